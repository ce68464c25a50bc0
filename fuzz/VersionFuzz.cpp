// Version files with any content, past their wrapping: the book takes what it can, keeps its invariants and
// stays within its limits, and what it then saves reads back to the same file.
//
// Reading a whole version makes a book, which takes a thousand times as long as the rest. So most inputs pour
// their tables into the small book that is there; one in so many is read whole.

#include <boost/property_tree/ptree.hpp>
#include <cstdint>
#include <iostream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/project/KVXEVersion.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlOutline.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "fuzz/ScratchPlace.h"
#include "fuzz/SmallBook.h"
#include "platform/tqm_iostreams/filters.h"

namespace {

using namespace kvxe::fuzz;

constexpr int InputsPerWholeOne = 500;
constexpr int InputsPerCheck = 50;
/// Rows that one input may add to the small book.
constexpr std::size_t MostRows = 50;

void writeWrapped(const char* path, const std::string& text) {
  tqm::iostreams::filtering_stream<tqm::iostreams::output> out;
  tqm::iostreams::xp_latest{std::ios::binary}(out, path);
  out << text;
  out.close();
}

std::string saved(const char* path) {
  KVXEVersion(".").write(path);
  return readFile(path);
}

/// What is saved reads back to the same file.
void checkRoundTrip() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  const std::string first = saved("first.xml");
  if (!KVXEVersion(".").read("first.xml")) stop("What was saved is refused.", "");
  KVXECalculationMgr::getGlobal().fullCalculate();
  if (saved("second.xml") != first) stop("What was saved reads back to another book.", "");
}

void readWhole(const std::string& text) {
  writeWrapped("input.xml", text);
  const bool isRead = KVXEVersion(".").read("input.xml");
  if (const std::string breach = findBreach(); !breach.empty()) stop("An invariant is broken.", breach);
  if (isRead) checkRoundTrip();
}

void pour(const std::string& text) {
  const kvxe::XmlOutline outline(text, "input.xml");
  KVXEVersion version(".");
  std::vector<TableId> tables;
  std::vector<std::string> stack;
  version.getAllParamPaths(tables, outline.tree(), stack);
  for (const TableId& table : tables) {
    std::string path;
    table.getTableIdParamStr(path);
    const KVXEXmlReadWrite xml = outline.read(table.getPath());
    auto rows = xml.getVectorOfAttrMap(path, true);
    if (rows.size() > MostRows) rows.resize(MostRows);
    version.populateParams(table, rows, version.getPilotCol(xml, table));
  }
  version.readIPConfigurations(outline.read("Version._IpConfiguration"));
}

void run(const std::string& text) {
  static long inputs = 0;
  const bool isReplay = std::getenv("KVX_FUZZ_REPLAY") != nullptr;
  if (isReplay || inputs % InputsPerWholeOne == 0) {
    makeSmallBook();
    try {
      readWhole(text);
    } catch (const std::exception&) {
      // refused, with the reason in it
    }
    makeSmallBook();
  }
  try {
    pour(text);
  } catch (const std::exception&) {
    // as above
  }
  KVXEHandshakeDialog::getGlobal().reset();
  if (isReplay || ++inputs % InputsPerCheck == 0) {
    keepBookSmall();
    if (const std::string breach = findBreach(); !breach.empty()) stop("An invariant is broken.", breach);
    KVXECalculationMgr::getGlobal().fullCalculate();
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::cout.setstate(std::ios::failbit);  // the engine reports each unknown name there
  std::cerr.setstate(std::ios::failbit);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const ScratchPlace place;
  run(std::string(reinterpret_cast<const char*>(bytes), size));
  return 0;
}
