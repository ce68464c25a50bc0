// Version files with any content, past their wrapping: the book takes what it can, keeps its invariants and
// stays within its limits, and what it then saves reads back to the same file.
//
// Reading a whole version makes a book, which takes a thousand times as long as the rest. So inputs pour
// their tables into a small book that is there, of each architecture in turn. One in so many is read whole
// first, with a device if it has none: which ones the input itself decides, so that they fail alone. With
// KVX_FUZZ_REPLAY=1 all are read whole and poured into a book of each architecture.

#include <boost/property_tree/ptree.hpp>
#include <cstdint>
#include <iostream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/project/KVXEVersion.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlOutline.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXETab.h"
#include "fuzz/ScratchPlace.h"
#include "fuzz/SmallBook.h"
#include "platform/tqm_iostreams/filters.h"

namespace {

using namespace kvxe::fuzz;

constexpr std::size_t InputsPerWholeOne = 512;
constexpr int InputsPerCheck = 50;
constexpr const char* Device =
    R"(<POWER_DESIGN><CurrentSelection><params Option="Architecture" Selection="Ludra"/>
<params Option="Device" Selection="SM6"/></CurrentSelection></POWER_DESIGN>)";
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

/// What is saved reads back to the same file. The book is made small first, so that this does not take long.
void checkRoundTrip() try {
  keepBookSmall();
  KVXECalculationMgr::getGlobal().fullCalculate();
  const std::string first = saved("first.xml");
  if (!KVXEVersion(".").read("first.xml")) stop("What was saved is refused.", "");
  KVXECalculationMgr::getGlobal().fullCalculate();
  if (saved("second.xml") != first) stop("What was saved reads back to another book.", "");
} catch (const std::exception& error) {
  stop("What was read cannot be saved and read again.", error.what());
}

std::size_t cellCount() {
  const KVXEBook& book = *getSmallBook();
  std::size_t cells = 0;
  for (unsigned int i = 0; i < book.getTabCount(); ++i)
    if (const KVXETab* tab = book.getTab(i))
      for (unsigned int j = 0; j < tab->getTableCount(); ++j)
        cells += std::size_t{tab->getTable(j)->getRowCount()} * tab->getTable(j)->getColumnCount();
  return cells;
}

void checkBook() {
  if (const std::string breach = findBreach(); !breach.empty()) stop("An invariant is broken.", breach);
  if (const std::size_t cells = cellCount(); cells > KVXEVersion::MaxCells)
    stop("The book has grown beyond its limit.", std::to_string(cells));
}

void readWhole(const std::string& text) {
  writeWrapped("input.xml", text);
  try {
    if (!KVXEVersion(".").read("input.xml")) return;
  } catch (const std::exception&) {
    return;  // refused
  }
  checkBook();
  checkRoundTrip();
}

bool isForWhole(const std::string& text) {
  return std::hash<std::string>()(text) % InputsPerWholeOne == 0;
}

std::string withDevice(std::string text) {
  const std::size_t end = text.rfind("</Book>");
  if (end != std::string::npos && text.find("CurrentSelection") == std::string::npos)
    text.insert(end, Device);
  return text;
}

void pour(const std::string& text) try {
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
} catch (const std::exception&) {
  // refused, with the reason in it
}

void run(const std::string& text) {
  static long inputs = 0;
  static std::size_t books = 0;
  const bool isReplay = std::getenv("KVX_FUZZ_REPLAY") != nullptr;
  const std::string* const architectures[] = {&KVXEPartSelection::m_somVisionArchName,
                                              &KVXEPartSelection::m_arkeonArchName,
                                              &KVXEPartSelection::m_morlanArchName};
  const bool isWhole = isReplay || isForWhole(text);
  if (isWhole) readWhole(withDevice(text));
  for (std::size_t i = 0; i < (isReplay ? std::size(architectures) : 1); ++i) {
    if (isWhole || inputs == 0) makeSmallBook(*architectures[books++ % std::size(architectures)]);
    pour(text);
    if (++inputs % InputsPerCheck != 0 && !isReplay) continue;
    keepBookSmall();
    checkBook();
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
