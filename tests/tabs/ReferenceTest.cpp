// docs/tabs.md lists the tables that take input, as they are declared. This test fails when it is stale, and
// writes it anew when the environment variable KVX_ACCEPT is set.

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;

namespace {

std::string plain(const std::string& html) {
  std::string text;
  bool isTag = false;
  for (const char c : html) {
    if (c == '<') isTag = true;
    if (!isTag) text += c == '\n' ? ' ' : c == '|' ? '/' : c;
    if (c == '>') {
      isTag = false;
      if (!text.empty() && text.back() != ' ') text += ' ';
    }
  }
  KVXMHelperUtils::trim(text);
  return text;
}

std::string snake(std::string title) {
  if (const std::size_t unit = title.find(" ("); unit != std::string::npos) title.erase(unit);
  std::string key;
  for (const char c : title) {
    const bool isWord = std::isalnum(static_cast<unsigned char>(c));
    if (isWord) key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (!isWord && !key.empty() && key.back() != '_') key += '_';
  }
  while (!key.empty() && key.back() == '_') key.pop_back();
  return key;
}

template <class Cell>
std::string rangeOf(KVXECell* cell) {
  const auto [low, high] = static_cast<Cell*>(cell)->getRange();
  using Value = std::decay_t<decltype(low)>;
  if (low == kvxeBlank<Value> && high == kvxeBlank<Value>) return "";
  return (low == kvxeBlank<Value> ? "" : KVXMHelperUtils::ToString(low)) + " to " +
         (high == kvxeBlank<Value> ? "" : KVXMHelperUtils::ToString(high));
}

std::string columnLine(KVXETable* table, unsigned int column) {
  KVXEHeaderRow* header = table->getHeaderRow();
  KVXECell* cell = header->getDefaultCell(column);
  std::string value, unit, range;
  if (!cell->getVal(value, false)) value.clear();
  if (cell->getUnit() != Unit::NO_UNIT) {
    unit = nameOf(cell->getUnit());
    unit = snake(unit.substr(0, unit.rfind('_')));
    for (char& c : unit)
      if (c == '_') c = ' ';
  }
  if (cell->getCellType() == CellType::INT) range = rangeOf<KVXEIntCell>(cell);
  if (cell->getCellType() == CellType::FLOAT) range = rangeOf<KVXEFloatCell>(cell);
  std::vector<std::string> entries;
  cell->getDDVals(entries);
  for (const std::string& entry : entries) range += (range.empty() ? "" : ", ") + entry;
  const KVXEMsg* tip = header->getDisplayCell(column)->getMsg();
  std::string type = nameOf(cell->getCellType());
  for (char& c : type) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const KVXETitle* title = header->getIndexToTitle(column);
  std::string key = snake(title->getDisplayTag(false));
  if (key.empty()) key = snake(title->getTag(TitleType::SW));
  return "| `" + key + "` | " + type + " | " + unit + " | " + value + " | " + range + " | " +
         (tip ? plain(tip->getDisplayText()) : "") + " |\n";
}

bool takesInput(KVXETable* table) {
  for (unsigned int row = 1; row < std::min(table->getRowCount(), 50u); ++row)
    for (unsigned int column = 0; column < table->getColumnCount(); ++column)
      if (table->getCellAt(row, column)->getIsEditable()) return true;
  return false;
}

std::string tableText(KVXETable* table) {
  const std::string tab = snake(table->getTab()->getTypeAsStr());
  std::string text = "\n### " + table->getTab()->getPBTitle() + ": " +
                     table->getTableTitle()->getDisplayTag(false) + "\n\n`" + tab + "." +
                     snake(table->getTableTitle()->getDisplayTag(false)) + "`" +
                     (table->getHasTableEditingFeatures() ? ", rows of the user's own" : ", fixed rows") +
                     "\n\n| Column | Type | Unit | Default | Range or list | Meaning |\n"
                     "| --- | --- | --- | --- | --- | --- |\n";
  for (unsigned int column = table->getShowRowIds() ? 1 : 0; column < table->getColumnCount(); ++column)
    if (table->getColumnVisibility(column) == Visibility::EXTERNAL) text += columnLine(table, column);
  return text;
}

std::string referenceText() {
  std::string text =
      "# Tables that take input\n\nPrinted from the declarations; columns that only the engine sees are left "
      "out. "
      "In a design sheet `[[clock]]` is a row of the first table with rows of the user's own in tab `clock`, "
      "and "
      "`[[tab.table]]` one of another table. Values may be written with a unit.\n";
  for (const std::string& arch : DeviceBook::architectures()) {
    const DeviceBook book(arch);
    text += "\n## " + arch + "\n";
    for (unsigned int i = 0; i < book.book()->getTabCount(); ++i) {
      KVXETab* tab = book.book()->getTab(i);
      for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j)
        if (takesInput(tab->getTable(j)) && tab->getTable(j)->getVisibility() == Visibility::EXTERNAL)
          text += tableText(tab->getTable(j));
    }
  }
  return text;
}

TEST(Reference, IsWhatTheTablesDeclare) {
  const std::string path = KVX_SOURCE_DIR "/docs/tabs.md";
  const std::string text = referenceText();
  if (std::getenv("KVX_ACCEPT")) std::ofstream(path) << text;
  std::ostringstream present;
  present << std::ifstream(path).rdbuf();
  EXPECT_EQ(present.str(), text) << "docs/tabs.md is stale; run this test with KVX_ACCEPT=1";
}

}  // namespace
