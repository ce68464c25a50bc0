// Writes sessions of a well-behaved and of a clumsy front end, from which the fuzzer starts:
//     kvx_fuzz_seeds DIRECTORY

#include <google/protobuf/stubs/logging.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "fuzz/Session.h"
#include "fuzz/SmallBook.h"
#include "messages/handshake.pb.h"

namespace {

using namespace kvxe::fuzz;
using KVXEEnums::CellType;
using Data = KvxOperationData;

class SeedFolder {
 public:
  explicit SeedFolder(std::filesystem::path folder) : m_folder(std::move(folder)) {
    std::filesystem::create_directories(m_folder);
  }
  void add(const Session& session) {
    std::ofstream file(m_folder / ("seed" + std::to_string(m_count++)), std::ios::binary);
    const std::string bytes = encode(session);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw std::runtime_error(m_folder.string() + ": cannot write a seed. Is the folder writable?");
  }
  int count() const { return m_count; }

 private:
  std::filesystem::path m_folder;
  int m_count = 0;
};

// Requests.

KvxHandshakeData operation(Data::OperationType type) {
  KvxHandshakeData message;
  message.mutable_operation()->set_type(type);
  return message;
}

KvxHandshakeData operation(Data::OperationType type,
                           std::vector<std::pair<Data::ArgumentType, std::string>> arguments) {
  KvxHandshakeData message = operation(type);
  for (const auto& [kind, value] : arguments) {
    auto* argument = message.mutable_operation()->add_arguments();
    argument->set_type(kind);
    argument->set_value(value);
  }
  return message;
}

Request sent(const KvxHandshakeData& message) {
  return {.bytes = message.SerializePartialAsString()};
}

/// The packet of a table in a request.
KvxTablePacket* tablePacket(KvxHandshakeData& message, const KVXETable& table) {
  KvxSectionPacket* section = message.mutable_bookpacket()->add_sections();
  section->set_tabindex(static_cast<int>(table.getTab()->getIndex()));
  KvxTablePacket* packet = section->add_tables();
  packet->set_tableindex(static_cast<int>(table.getIndex()));
  return packet;
}

KvxCellPacket* cellPacket(KvxTablePacket* packet, const KVXECell& cell) {
  KvxCellPacket* edit = packet->add_cells();
  edit->set_row(static_cast<int>(cell.getRow()->getIndex()) - 1);
  edit->set_column(static_cast<int>(cell.getColumnIndex()));
  return edit;
}

/// A value that suits the cell, another for each of the variants.
void fillGood(KvxCellPacket& edit, KVXECell& cell, unsigned int variant) {
  std::vector<std::string> list;
  cell.getDDVals(list);
  const std::string entry = list.empty() ? "name" : list[variant % list.size()];
  switch (cell.getCellType()) {
    case CellType::INT:
      edit.mutable_intpacket()->set_value(static_cast<int>(1 + 7 * variant));
      break;
    case CellType::FLOAT:
      edit.mutable_floatpacket()->set_value(12.5f * static_cast<float>(1 + variant));
      break;
    default:
      edit.mutable_stringpacket()->set_value(entry);
  }
}

/// A value that suits no cell, or nothing.
void fillBad(KvxCellPacket& edit, unsigned int variant) {
  static constexpr float numbers[] = {NAN, INFINITY, -1e38f, 3e38f};
  switch (variant % 8) {
    case 0:
      edit.mutable_stringpacket()->set_value("\x01<html>\xFF");
      break;
    case 1:
      edit.mutable_stringpacket();
      break;
    case 2:
      edit.mutable_intpacket()->set_value(variant % 16 < 8 ? 2147483647 : -2147483647);
      break;
    case 3:
      edit.mutable_stringpacket()->set_value("1e400");
      break;
    default:
      edit.mutable_floatpacket()->set_value(numbers[variant % 4]);
  }
}

// Sessions.

void addEdits(SeedFolder& seeds, KVXETable& table) {
  for (unsigned int variant = 0; variant < 3; ++variant) {
    KvxHandshakeData good = operation(Data::INCREMENTAL_CALCULATION), bad = good;
    KvxTablePacket *goodPacket = tablePacket(good, table), *badPacket = tablePacket(bad, table);
    const unsigned int row = std::min(variant + 1, table.getRowCount() - 1);
    for (unsigned int column = 0; column < table.getColumnCount(); ++column) {
      KVXECell* cell = table.getCellAt(row, column);
      if (cell && cell->getIsEditable()) fillGood(*cellPacket(goodPacket, *cell), *cell, variant);
      if (cell) fillBad(*cellPacket(badPacket, *cell), column + variant);
    }
    seeds.add({sent(good)});
    seeds.add({sent(bad)});
  }
}

void addRowOperations(SeedFolder& seeds, const KVXETable& table) {
  const TableCall on{.tab = static_cast<int>(table.getTab()->getIndex()),
                     .table = static_cast<int>(table.getIndex()),
                     .rows = {0, 1},
                     .row = 2};
  const Request edit = sent(operation(Data::TABLE_EDIT));
  for (int kind = 0; kind < TableCall::KindCount; ++kind) {
    TableCall call = on;
    call.kind = kind;
    seeds.add({call, edit});
    if (kind >= TableCall::MenuQuery) continue;
    call.rows = {127, -128, -1, 0, 0};
    call.row = -128;
    seeds.add({call, edit});
  }
}

void addTables(SeedFolder& seeds) {
  const KVXEBook& book = *getSmallBook();
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      KVXETable& table = *tab->getTable(j);
      if (table.getRowCount() > 1) addEdits(seeds, table);
      if (table.getHasTableEditingFeatures()) addRowOperations(seeds, table);
    }
  }
}

void addProjects(SeedFolder& seeds) {
  const auto create = sent(operation(Data::CREATE_PROJECT, {{Data::PROJECT_PATH, "design.kvx"}}));
  seeds.add({create, sent(operation(Data::SAVE_PROJECT)), sent(operation(Data::CLOSE_PROJECT))});
  seeds.add({create, sent(operation(Data::SAVE_AS_PROJECT, {{Data::PROJECT_PATH, "folder/design.xml"}}))});
  seeds.add({sent(operation(Data::CREATE_PROJECT, {{Data::IMPORT_FILE_PATH, "estimate.lvr"}}))});
  seeds.add({sent(operation(Data::OPEN_PROJECT, {{Data::PROJECT_PATH, "missing.kvx"}}))});
  seeds.add({sent(operation(Data::IMPORT_FILE, {{Data::IMPORT_FILE_PATH, "estimate.lvr"}}))});
  seeds.add({sent(
      operation(Data::EXPORT_FILE, {{Data::FILE_CHOOSER_UID, KVXESummaryTab::m_powerDesignXmlExportButtonUid},
                                    {Data::CHOSEN_FILE_PATH, "design.xml"}}))});
}

void addDialogs(SeedFolder& seeds) {
  KvxHandshakeData press = operation(Data::BUTTON_PRESS);
  press.mutable_operation()->mutable_buttondata()->mutable_genericbutton()->set_uid("button");
  KvxHandshakeData change = operation(Data::DIALOG_PACKET);
  GenericGuiComponent* component =
      change.mutable_genericdialogpacket()->mutable_packet()->mutable_changedcomponent();
  component->set_uid("component");
  component->mutable_combobox()->set_currentitem("value");
  seeds.add({sent(press), sent(change)});
}

void addDevices(SeedFolder& seeds) {
  KVXEPartSelection& selection = *KVXEPartSelection::getGlobal();
  const Request change = sent(operation(Data::DEVICE_CHANGE));
  for (int list = 0; list < static_cast<int>(selection.getDeviceSelectionList().size()); ++list) {
    std::vector<std::string> values;
    selection.getDeviceSelectionValues(static_cast<unsigned int>(list), values);
    if (!values.empty()) seeds.add({Choice{list, values.back()}, change});
  }
  for (const std::string& arch : {KVXEPartSelection::m_arkeonArchName, std::string("unknown")})
    seeds.add({Choice{-1, arch}, change});
}

void addOddRequests(SeedFolder& seeds) {
  for (const Data::OperationType type : {Data::NO_OPERATION, Data::UNUSED_6, Data::REFRESH, Data::TABLE_EDIT})
    seeds.add({sent(operation(type))});
  for (const bool isDeveloper : {false, true}) {
    Request look = sent(operation(Data::TABLE_EDIT));
    look.internalView = true;
    look.developerView = isDeveloper;
    look.mockMode = look.dumpJson = isDeveloper;
    seeds.add({look});
  }
  seeds.add({Request{}, Request{.bytes = "\x08"}, Request{.bytes = "\xFF\xFF\xFF"}});
  KvxHandshakeData noOperation;
  noOperation.mutable_messagedialog()->set_text("echo");
  seeds.add({sent(noOperation)});
  KvxHandshakeData lost = operation(Data::INCREMENTAL_CALCULATION);
  lost.mutable_bookpacket()->add_sections()->set_tabindex(-1);
  seeds.add({sent(lost)});
  lost.mutable_bookpacket()->mutable_sections(0)->set_tabindex(static_cast<int>(KVXEEnums::TabType::SUMMARY));
  KvxTablePacket* table = lost.mutable_bookpacket()->mutable_sections(0)->add_tables();
  table->set_tableindex(0);
  KvxCellPacket* cell = table->add_cells();
  cell->set_uid(10000000000ULL);
  cell->mutable_intpacket()->set_value(1);
  seeds.add({sent(lost)});
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: kvx_fuzz_seeds DIRECTORY\n";
    return 2;
  }
  try {
    std::cout.setstate(std::ios::failbit);
    google::protobuf::SetLogHandler(nullptr);
    SeedFolder seeds(argv[1]);
    makeSmallBook();
    addTables(seeds);
    addProjects(seeds);
    addDialogs(seeds);
    addOddRequests(seeds);
    addDevices(seeds);  // last: it changes the drop-downs
    std::cerr << seeds.count() << " seeds\n";
    return 0;
  } catch (const std::exception& exception) {
    std::cerr << exception.what() << '\n';
    return 1;
  }
}
