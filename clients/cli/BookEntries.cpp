#include "clients/cli/BookEntries.h"

#include <set>
#include <stdexcept>

#include "clients/cli/BookSpelling.h"
#include "clients/cli/CellValue.h"
#include "clients/cli/ClockNames.h"
#include "clients/cli/EnvironmentTable.h"
#include "clients/cli/Spelling.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/wizard/base/KVXEWizardMgr.h"

namespace kvx {

namespace {

using KVXEEnums::ValueSource;

std::string textOf(KVXECell& cell) {
  std::string text;
  cell.getVal(text, true);
  return text;
}

/// Whether a cell that the user enters this into ends up as it is.
bool isTakenAsIs(KVXECell& cell, const SheetValue& value) {
  const Conversion converted = convertForCell(value, cell);
  if (!converted.value || converted.value != convertStored(value, cell).value) return false;
  return checkLimits(*converted.value, "", cell).value.has_value();
}

class EntryReader {
 public:
  explicit EntryReader(KVXEBook& book) : m_book(book), m_environment(EnvironmentTable::find(book)) {
    m_clocks.readTags(book);
  }

  std::vector<TableEntry> readTables() {
    std::vector<TableEntry> tables;
    for (unsigned int i = 0; i < m_book.getTabCount(); ++i) {
      const KVXETab* tab = m_book.getTab(i);
      for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
        KVXETable* table = tab->getTable(j);
        if (!table->getTableTitle()) continue;
        TableEntry entry = readTable(*table);
        if (!entry.rows.empty()) tables.push_back(std::move(entry));
      }
    }
    return tables;
  }

 private:
  TableEntry readTable(KVXETable& table) {
    const KVXETab& tab = *table.getTab();
    TableEntry entry;
    entry.tab = writtenName(tab);
    entry.isMain = findMainTable(tab) == &table;
    entry.isGrown = table.getHasTableEditingFeatures();
    const bool isInUse = tab.getIsEnabled() && isShown(table);
    m_columnNames.assign(table.getColumnCount(), "");
    for (unsigned int index = 1; index < table.getRowCount(); ++index) {
      KVXERow* row = table.getRow(index);
      RowEntry rowEntry{index, "", std::nullopt, readCells(table, *row, isInUse && row->hasPlaceOnScreen())};
      if (rowEntry.cells.empty()) continue;
      rowEntry.name = rowName(table, index);
      if (!entry.isGrown) rowEntry.key = findKey(table, *row);
      entry.rows.push_back(std::move(rowEntry));
    }
    if (entry.rows.empty()) return entry;
    entry.table = nameOr(writtenName(table), "a table of tab " + inQuotes(entry.tab));
    if (m_environment && m_environment->table == &table)
      entry.environmentColumn = writtenName(table, m_environment->value);
    return entry;
  }

  std::vector<CellEntry> readCells(KVXETable& table, KVXERow& row, bool isInUse) {
    std::vector<CellEntry> cells;
    for (unsigned int column = 0; column < row.getColumnCount(); ++column) {
      KVXECell* cell = row.getCell(column);
      if (cell && kvxe::isGiven(*cell)) cells.push_back(readCell(table, *cell, isInUse));
    }
    return cells;
  }

  CellEntry readCell(KVXETable& table, KVXECell& cell, bool isInUse) {
    const unsigned int column = cell.getColumnIndex();
    CellEntry entry{{}, readStored(cell), cell.getValueSource(), false};
    const bool isEntry = isInUse && entry.source == ValueSource::USER && cell.getIsEditable();
    if (ClockNames::isClockColumn(table, column))
      entry.isCurrent = nameClock(std::get<std::string>(entry.value)) && isEntry;
    else
      entry.isCurrent = isEntry && isTakenAsIs(cell, entry.value);
    if (entry.isCurrent && ClockNames::isNameColumn(table, column)) entry.isCurrent = isNewClock(entry.value);
    entry.column = columnName(table, column);
    return entry;
  }

  /// Searching for a name takes longer than all the rest of a cell.
  const std::string& columnName(const KVXETable& table, unsigned int column) {
    std::string& name = m_columnNames[column];
    if (name.empty())
      name = nameOr(writtenName(table, column), "column " + inQuotes(columnTitle(table, column)) +
                                                    " of tab " + inQuotes(writtenName(*table.getTab())));
    return name;
  }

  /// Puts the clock's name in the place of its tag where it says as much. False for a clock that is not
  /// there.
  bool nameClock(std::string& tag) const {
    if (tag.empty()) return true;
    if (m_clocks.tagOf(tag) != tag) return false;
    if (auto name = ClockNames::nameIn(tag); name && m_clocks.tagOf(*name) == tag) tag = std::move(*name);
    return true;
  }

  bool isNewClock(const SheetValue& name) {
    const auto& text = std::get<std::string>(name);
    return text.empty() || m_clockNames.insert(text).second;
  }

  static std::optional<RowKey> findKey(KVXETable& table, KVXERow& row) {
    for (unsigned int column = 0; column < table.getColumnCount(); ++column) {
      if (!isKeyColumn(table, column) || !isLasting(table, row, column)) continue;
      const std::string text = textOf(*row.getCell(column));
      std::string name = writtenName(table, column);
      if (!text.empty() && !name.empty() && isUnique(table, column, row.getIndex(), text))
        return RowKey{std::move(name), text};
    }
    return std::nullopt;
  }

  /// Whether the text is given, or spelled like one of the row that is: what is computed may read otherwise
  /// before the calculation.
  static bool isLasting(KVXETable& table, KVXERow& row, unsigned int column) {
    const KVXECell& cell = *row.getCell(column);
    if (cell.getIsEditable() || kvxe::isGiven(cell)) return false;
    const std::string text = textOf(*row.getCell(column));
    for (unsigned int other = 0; other < table.getColumnCount(); ++other)
      if (isKeyColumn(table, other) && row.getCell(other)->getFormula() == &KVXECell::NoFormula &&
          isSameSpelling(textOf(*row.getCell(other)), text))
        return true;
    return false;
  }

  static bool isUnique(const KVXETable& table, unsigned int column, unsigned int row,
                       const std::string& text) {
    for (unsigned int other = 1; other < table.getRowCount(); ++other)
      if (other != row && isSameSpelling(textOf(*table.getCellAt(other, column)), text)) return false;
    return true;
  }

  static std::string nameOr(std::string name, const std::string& what) {
    if (name.empty()) throw std::runtime_error(what + " holds values, but has no name in a sheet");
    return name;
  }

  KVXEBook& m_book;
  std::optional<EnvironmentTable> m_environment;
  ClockNames m_clocks;
  std::set<std::string> m_clockNames;      ///< of the clocks that have been read
  std::vector<std::string> m_columnNames;  ///< of the table that is read, as far as they are known
};

// Comparison.

bool isSame(const CellEntry& a, const CellEntry& b) {
  return a.column == b.column && a.value == b.value && a.source == b.source;
}

std::string findDifference(const TableEntry& a, const TableEntry& b) {
  const std::string table = a.tab + "." + a.table;
  for (std::size_t i = 0; i < std::max(a.rows.size(), b.rows.size()); ++i) {
    if (i == a.rows.size() || i == b.rows.size() || a.rows[i].index != b.rows[i].index) return table;
    const auto& left = a.rows[i].cells;
    const auto& right = b.rows[i].cells;
    const auto [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end(), isSame);
    if (l != left.end() || r != right.end())
      return table + ", row " + std::to_string(a.rows[i].index) + ": " +
             (l != left.end() ? l->column : r->column);
  }
  return "";
}

}  // namespace

BookEntries readEntries(KVXEBook& book) {
  BookEntries entries;
  if (const KVXEPartSelection* selection = KVXEPartSelection::getGlobal()) {
    entries.part = selection->getSelectedDeviceName();
    entries.process = selection->getCurrentSetting(KVXEPartSelection::m_processStr);
  }
  entries.tables = EntryReader(book).readTables();
  for (const auto& [uid, properties] : KVXEWizardMgr::getGlobal().getSavedConfigs())
    entries.ipConfigurations.push_back({uid, properties});
  return entries;
}

std::string findDifference(const BookEntries& a, const BookEntries& b) {
  if (a.part != b.part) return "part";
  if (a.process != b.process) return "process";
  if (a.ipConfigurations != b.ipConfigurations) return "ip_configuration";
  for (std::size_t i = 0; i < std::max(a.tables.size(), b.tables.size()); ++i) {
    if (i == a.tables.size()) return b.tables[i].tab + "." + b.tables[i].table;
    if (i == b.tables.size() || a.tables[i].tab != b.tables[i].tab || a.tables[i].table != b.tables[i].table)
      return a.tables[i].tab + "." + a.tables[i].table;
    if (std::string difference = findDifference(a.tables[i], b.tables[i]); !difference.empty())
      return difference;
  }
  return "";
}

}  // namespace kvx
