// A front end that sends anything: requests, native calls between them. Beside what the sanitizers see, the
// engine must answer each request with a message that can be read, keep its invariants, and hold after many
// edits what a full calculation finds.
//
// The book lives on from input to input and is made anew now and then, so that inputs are many. An input that
// fails only with those before it fails with KVX_FUZZ_REPLAY=1 if it fails alone, with a new book for each.

#include <google/protobuf/stubs/logging.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "engine/swig/KVXEGuiInterface.h"
#include "engine/swig/KVXEPBHelper.h"
#include "fuzz/Session.h"
#include "fuzz/SmallBook.h"

namespace {

using namespace kvxe::fuzz;
using KVXEEnums::Visibility;

constexpr int InputsPerBook = 1000;
constexpr int InputsPerCheck = 32;
/// Inputs that take long come one in so many, lest they be all that there is time for.
constexpr int InputsPerDearOne = 100;

[[noreturn]] void stop(const char* what, const std::string& detail) {
  std::fprintf(stderr, "%s\n%s\n", what, detail.c_str());
  std::abort();
}

class FrontEnd {
 public:
  FrontEnd() : m_isReplay(std::getenv("KVX_FUZZ_REPLAY") != nullptr) {}

  /// False for an input that was not taken, since it takes long.
  bool run(const Session& session) {
    if (leavesDirectory(session)) return false;
    if (isDear(session)) {
      if (!m_isReplay && m_sinceDear < InputsPerDearOne) return false;
      m_sinceDear = 0;
    }
    ++m_sinceDear;
    if (m_isReplay || m_inputs % InputsPerBook == 0 || !isSmallBookThere()) renew();
    keepBookSmall();
    for (const Step& step : session) std::visit([this](const auto& s) { perform(s); }, step);
    check();
    ++m_inputs;
    return true;
  }

 private:
  void renew() {
    makeSmallBook();
    m_isComparable = true;
    Request refresh;
    refresh.bytes = requestOf(KvxOperationData::REFRESH).SerializeAsString();
    perform(refresh);
  }

  static KvxHandshakeData requestOf(KvxOperationData_OperationType type) {
    KvxHandshakeData request;
    request.mutable_operation()->set_type(type);
    return request;
  }

  /// Names a file outside of the current directory, where nobody wants projects.
  static bool leavesDirectory(const Session& session) {
    for (const Step& step : session) {
      const Request* request = std::get_if<Request>(&step);
      KvxHandshakeData message;
      if (request) message.ParseFromString(request->bytes);
      for (const auto& argument : message.operation().arguments())
        if (argument.value().starts_with('/') || argument.value().find("..") != std::string::npos)
          return true;
    }
    return false;
  }

  /// Makes tabs, or has the whole book go out, or writes files.
  bool isDear(const Session& session) const {
    for (const Step& step : session) {
      const Request* request = std::get_if<Request>(&step);
      if (!request) {
        if (std::holds_alternative<Choice>(step)) return true;
        continue;
      }
      if (request->dumpJson || request->internalView || request->developerView) return true;
      KvxHandshakeData message;
      message.ParseFromString(request->bytes);
      switch (message.operation().type()) {
        case KvxOperationData::CREATE_PROJECT:
        case KvxOperationData::OPEN_PROJECT:
        case KvxOperationData::SAVE_PROJECT:
        case KvxOperationData::SAVE_AS_PROJECT:
        case KvxOperationData::CLOSE_PROJECT:
        case KvxOperationData::DEVICE_CHANGE:
        case KvxOperationData::REFRESH:
          return true;
        default:
          break;
      }
    }
    return false;
  }

  void perform(const Request& request) {
    std::string bytes = request.bytes;
    const unsigned int size =
        m_gui.getKvxHandshakeDataSize(data(bytes), static_cast<int>(bytes.size()), request.mockMode,
                                      request.dumpJson, request.internalView, request.developerView);
    if (bytes.empty()) {
      if (size != 0) stop("An empty request has a reply.", "");
      return;
    }
    std::string reply(size, '\0');
    if (!m_gui.getKvxHandshakeDataByteArray(data(reply), static_cast<int>(size)))
      stop("The reply does not have the size that was told.", "");
    // What cannot be read may come back as far as it was read.
    KvxHandshakeData message;
    if (message.ParseFromString(request.bytes) && !message.ParseFromString(reply))
      stop("The reply cannot be read.", "");
  }

  void perform(const TableCall& call) {
    std::vector<int> rows = call.rows;
    switch (call.kind) {
      case 0:
        m_gui.insertTableRow(call.tab, call.table, call.row);
        break;
      case 1:
        m_gui.deleteTableRows(call.tab, call.table, rows);
        break;
      case 2:
        m_gui.duplicateTableRows(call.tab, call.table, rows);
        break;
      case 3:
        m_gui.pasteTableRows(call.tab, call.table, rows, call.row);
        break;
      case 4:
        m_gui.fillDownTableRows(call.tab, call.table, rows);
        break;
      case 5:
        m_gui.clearTableRows(call.tab, call.table, rows);
        break;
      case TableCall::MenuQuery:
        queryMenu(call);
        break;
      default:
        queryTable(call);
    }
  }

  void queryMenu(const TableCall& call) {
    std::vector<int> rows = call.rows;
    m_gui.hasTableEditingFeatures(call.tab, call.table);
    m_gui.canInsertTableRow(call.tab, call.table, call.row);
    m_gui.canDeleteTableRows(call.tab, call.table, rows);
    m_gui.canDuplicateTableRows(call.tab, call.table, rows);
    m_gui.canPasteTableRows(call.tab, call.table, rows, call.row);
    m_gui.canFillDownTableRows(call.tab, call.table, rows);
    m_gui.canClearTableRows(call.tab, call.table, rows);
  }

  void queryTable(const TableCall& call) {
    const int size = m_gui.getGenericTreeTableDataSize(call.tab, call.table);
    if (size < 0) stop("A table has a negative size.", "");
    std::string bytes(static_cast<std::size_t>(size), '\0');
    m_gui.getGenericTreeTableData(call.tab, call.table, data(bytes), size);
    GenericTreeTableData table;
    if (!table.ParseFromString(bytes)) stop("A table cannot be read.", "");
  }

  void perform(const Choice& choice) {
    m_isComparable = false;  // until a full calculation
    if (choice.list < 0)
      m_gui.setArchitectureDropDownCurrentValue(0, choice.value);
    else
      m_gui.setDeviceSelectionDropDownCurrentValue(choice.list, choice.value);
    std::vector<std::string> lists, values;
    m_gui.getDeviceSelectionDropDownsList(lists);
    for (int i = -1; i <= static_cast<int>(lists.size()); ++i)
      m_gui.getDeviceSelectionDropDownValues(i, values);
  }

  static unsigned char* data(std::string& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }

  void check() {
    if (!m_isReplay && m_inputs % InputsPerCheck != 0) return;
    if (const std::string breach = findBreach(); !breach.empty()) stop("An invariant is broken.", breach);
    if (!m_isComparable || !isSmallBookThere()) return;
    if (const std::string report = findInconsistency(); !report.empty())
      stop("The book is not what a full calculation finds.", report);
  }

  KVXEGuiInterface m_gui;
  const bool m_isReplay;
  bool m_isComparable = true;
  long m_inputs = 0;
  int m_sinceDear = InputsPerDearOne;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::cout.setstate(std::ios::failbit);  // the engine reports each mismatch there
  google::protobuf::SetLogHandler(nullptr);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static FrontEnd frontEnd;
  return frontEnd.run(decode({bytes, size})) ? 0 : -1;
}
