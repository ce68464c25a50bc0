#include "clients/cli/SheetBinder.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "clients/cli/BookSpelling.h"
#include "clients/cli/Spelling.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/wizard/base/KVXEWizardMgr.h"

namespace kvx {

namespace {

constexpr unsigned int MostRows = 20000;  // in one table

std::string tableName(const KVXETable& table) {
  return "table " + inQuotes(table.getTableTitle()->getTag(KVXEEnums::TitleType::DISPLAY));
}

std::optional<unsigned int> findFirstTextColumn(const KVXETable& table) {
  for (unsigned int column = 0; column < table.getColumnCount(); ++column)
    if (table.getColumnType(column) == KVXEEnums::CellType::STRING) return column;
  return std::nullopt;
}

/// Whether the user enters anything in the column. In which of the fixed rows may follow from other cells:
/// the calculation will tell.
bool takesInput(const KVXETable& table, unsigned int row, unsigned int column) {
  const bool isEditable =
      columnCell(table, column)->getIsEditable() || table.getCellAt(row, column)->getIsEditable();
  if (isEditable || table.getHasTableEditingFeatures()) return isEditable;
  for (unsigned int other = 1; other < table.getRowCount(); ++other)
    if (table.getCellAt(other, column)->getIsEditable()) return true;
  return false;
}

/// What a workbook had stored goes back also to where the user does not get.
Reach reachOf(const SheetRow& row) {
  const bool isStored = std::any_of(row.cells.begin(), row.cells.end(),
                                    [](const Assignment& cell) { return cell.source.has_value(); });
  return isStored ? Reach::All : Reach::Shown;
}

}  // namespace

void SheetBinder::fail(const Place& place, const std::string& what, const std::string& remedy) {
  if (!m_isFailed.empty()) m_isFailed.back() = true;
  m_diagnostics.add(place, what, remedy);
}

void SheetBinder::bind(const Sheet& sheet, float startThetaJa) {
  m_isFailed.assign(1, false);
  bindEnvironment(sheet, startThetaJa);
  for (const SheetRow& row : sheet.rows) {
    m_isFailed.push_back(false);
    bindRow(row);
  }
  if (!sheet.isDamaged) resolveClocks();
  KVXEWizardMgr::clearAllSavedIPConfigs();
  for (const IpConfiguration& configuration : sheet.ipConfigurations)
    KVXEWizardMgr::getGlobal().saveConfig(configuration.uid, configuration.properties);
}

// From an entry of the sheet to a row of the book.

void SheetBinder::bindRow(const SheetRow& row) {
  KVXETable* table = findTarget(row);
  const unsigned int index = table ? findTargetRow(*table, row) : 0;
  if (index == 0) return;
  std::map<unsigned int, const Assignment*> seen;
  for (const Assignment& assignment : row.cells) {
    const auto column = findColumn(*table, assignment.key);
    if (!column) {
      fail(assignment.place, tableName(*table) + " has no column " + inQuotes(assignment.key),
           adviseName(assignment.key, editableColumnNames(*table)));
    } else if (const auto [first, isNew] = seen.emplace(*column, &assignment); !isNew) {
      fail(assignment.place,
           inQuotes(assignment.key) + " is the same column as " + inQuotes(first->second->key),
           "keep one of them");
    } else {
      bindCell(*table, index, *column, assignment, row.row.has_value());
    }
  }
}

KVXETable* SheetBinder::findTarget(const SheetRow& row) {
  const KVXETab* tab = findTab(m_book, row.tab, reachOf(row));
  if (!tab) {
    fail(row.place, "the device has no tab " + inQuotes(row.tab), adviseName(row.tab, tabNames(m_book)));
    return nullptr;
  }
  KVXETable* table = row.table.empty() ? findMainTable(*tab) : findTable(*tab, row.table, reachOf(row));
  if (table) return table;
  const std::string what = row.table.empty()
                               ? "tab " + inQuotes(row.tab) + " has no table for rows of its own"
                               : "tab " + inQuotes(row.tab) + " has no table " + inQuotes(row.table);
  fail(row.place, what,
       row.table.empty() ? "write [[" + row.tab + ".TABLE]]: known are " + listInQuotes(tableNames(*tab))
                         : adviseName(row.table, tableNames(*tab)));
  return nullptr;
}

unsigned int SheetBinder::findTargetRow(KVXETable& table, const SheetRow& row) {
  if (row.row) return findNamedRow(table, *row.row, row.place);
  if (row.number) return findNumberedRow(table, *row.number);
  if (!table.getHasTableEditingFeatures()) return findFixedRow(table, row);
  unsigned int& filled = m_filledRows[&table];
  if (filled == MostRows) {
    fail(row.place, tableName(table) + " has more rows than it can hold",
         std::to_string(MostRows) + " is the limit");
    return 0;
  }
  table.getOrCreateRow(++filled);
  return filled;
}

/// The row of `row = 7`. In a table that grows with the sheet the rows above it stay blank.
unsigned int SheetBinder::findNumberedRow(KVXETable& table, const Assignment& number) {
  unsigned int& filled = m_filledRows[&table];
  const bool isGrown = table.getHasTableEditingFeatures();
  const unsigned int least = isGrown ? filled + 1 : 1;
  const unsigned int most = isGrown ? MostRows : table.getRowCount() - 1;
  const auto* index = std::get_if<std::int64_t>(&number.value);
  if (!index || *index < least || *index > most) {
    fail(number.place, describeValue(number.value) + " is no row that can follow in " + tableName(table),
         "give a number from " + std::to_string(least) + " to " + std::to_string(most));
    return 0;
  }
  const auto row = static_cast<unsigned int>(*index);
  if (isGrown) filled = row;
  table.getOrCreateRow(row);
  return row;
}

/// The row of an override: its number on screen, or its text.
unsigned int SheetBinder::findNamedRow(KVXETable& table, const std::string& text, const Place& place) {
  unsigned int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && end == text.data() + text.size()) {
    unsigned int index = 0;
    if (number > 0 && number < MostRows && table.guiToEngineIndex(static_cast<int>(number - 1), index) &&
        index < table.getRowCount())
      return index;
    fail(place, tableName(table) + " has no row " + text, "rows are numbered from 1");
    return 0;
  }
  const auto column = table.getHasTableEditingFeatures() ? findFirstTextColumn(table) : findKeyColumn(table);
  if (!column) {
    fail(place, tableName(table) + " has no column that names rows", "give the number of the row");
    return 0;
  }
  const unsigned int found = findRow(table, *column, text);
  return found > 0 ? found : reportUnknownRow(table, *column, text, place);
}

unsigned int SheetBinder::reportUnknownRow(const KVXETable& table, unsigned int column,
                                           const std::string& text, const Place& place) {
  fail(place, tableName(table) + " has no row " + inQuotes(text),
       adviseName(text, columnTexts(table, column)));
  return 0;
}

/// The row that the entry names by the first text column that it gives and the user does not edit.
unsigned int SheetBinder::findFixedRow(KVXETable& table, const SheetRow& row) {
  std::optional<unsigned int> keyColumn;
  const Assignment* key = nullptr;
  for (const Assignment& assignment : row.cells) {
    const auto column = findColumn(table, assignment.key);
    if (!column || assignment.source || (keyColumn && *keyColumn <= *column)) continue;
    if (!isKeyColumn(table, *column)) continue;
    keyColumn = column;
    key = &assignment;
  }
  if (!key) {
    const auto column = findKeyColumn(table);
    fail(row.place, "the entry does not say which row of " + tableName(table) + " it means",
         column ? "give " + inQuotes(columnTitle(table, *column)) + ": known are " +
                      listInQuotes(columnTexts(table, *column))
                : "the table has no rows to fill");
    return 0;
  }
  const auto* text = std::get_if<std::string>(&key->value);
  const std::string name = text ? *text : describeValue(key->value);
  const unsigned int found = findRow(table, *keyColumn, name);
  return found > 0 ? found : reportUnknownRow(table, *keyColumn, name, key->place);
}

// From an assignment to a cell.

void SheetBinder::bindCell(KVXETable& table, unsigned int row, unsigned int column,
                           const Assignment& assignment, bool isOverride) {
  KVXECell& cell = *table.getCellAt(row, column);
  if (!assignment.source && !takesInput(table, row, column)) {
    // In a table with fixed rows the cell that names the row is no edit.
    const auto* text = std::get_if<std::string>(&assignment.value);
    std::string present;
    cell.getVal(present, true);
    if (!table.getHasTableEditingFeatures() && text && isSameSpelling(present, *text)) return;
    return fail(assignment.place, inQuotes(assignment.key) + " is calculated by the workbook",
                "remove it, or give " + listInQuotes(editableColumnNames(table)));
  }
  if (ClockNames::isClockColumn(table, column)) return bindClock(cell, assignment, isOverride);
  if (ClockNames::isNameColumn(table, column) && !assignment.source) declareClock(assignment);
  write(cell, assignment, isOverride);
}

void SheetBinder::bindClock(KVXECell& cell, const Assignment& assignment, bool isOverride) {
  const auto* name = std::get_if<std::string>(&assignment.value);
  if (!name)
    return fail(assignment.place, inQuotes(assignment.key) + " takes the name of a clock",
                "give the name in quotes");
  if (isOverride) std::erase_if(m_clockUses, [&cell](const ClockUse& use) { return use.cell == &cell; });
  m_clockUses.push_back(
      {&cell, *name, assignment.key, assignment.place, m_isFailed.size() - 1, assignment.source});
}

void SheetBinder::declareClock(const Assignment& assignment) {
  const auto* name = std::get_if<std::string>(&assignment.value);
  if (!name || name->empty() || m_clocks.declare(*name)) return;
  fail(assignment.place, "there are two clocks " + inQuotes(*name), "give each clock a name of its own");
}

/// Whether another entry of the sheet has set the cell; an override may.
bool SheetBinder::isOverwritten(const KVXECell& cell, const Assignment& assignment, bool isOverride) {
  const auto found = m_writeOf.find(&cell);
  if (found == m_writeOf.end() || isOverride) return false;
  const Write& first = m_writes[found->second];
  fail(assignment.place, inQuotes(assignment.key) + " of this row is given twice",
       "it stands in line " + std::to_string(first.place.line) + " already");
  return true;
}

void SheetBinder::write(KVXECell& cell, const Assignment& assignment, bool isOverride) {
  if (isOverwritten(cell, assignment, isOverride)) return;
  const Conversion conversion =
      assignment.source ? convertStored(assignment.value, cell) : convertForCell(assignment.value, cell);
  if (!conversion.value)
    return fail(assignment.place, assignment.key + ": " + conversion.what, conversion.remedy);
  writeAsUser(cell, *conversion.value);
  if (assignment.source) cell.setValueSource(*assignment.source);
  Write write{&cell,
              *conversion.value,
              describeValue(assignment.value),
              assignment.key,
              assignment.place,
              m_isFailed.size() - 1,
              assignment.source.has_value()};
  const auto [found, isNew] = m_writeOf.emplace(&cell, m_writes.size());
  if (isNew)
    m_writes.push_back(std::move(write));
  else
    m_writes[found->second] = std::move(write);
}

void SheetBinder::resolveClocks() {
  m_clocks.readTags(m_book);
  for (const ClockUse& use : m_clockUses) {
    const auto tag = m_clocks.tagOf(use.clock);
    if (tag || use.source || use.clock.empty()) {
      writeAsUser(*use.cell, tag.value_or(use.clock));
      use.cell->setValueSource(use.source.value_or(KVXEEnums::ValueSource::USER));
      continue;
    }
    m_isFailed[use.entry] = true;
    if (m_clocks.isAmbiguous(use.clock))
      m_diagnostics.add(use.place,
                        use.name + ": there are clocks " + inQuotes(use.clock) + " of several frequencies",
                        "name the one that is meant by its tag, as in \"250.000 MHz (" + use.clock + ")\"");
    else if (m_clocks.isDeclared(use.clock))
      m_diagnostics.add(use.place, use.name + ": clock " + inQuotes(use.clock) + " has no frequency",
                        "give the clock's row a frequency");
    else
      m_diagnostics.add(use.place, use.name + ": there is no clock " + inQuotes(use.clock),
                        m_diagnostics.isFull() ? "" : adviseName(use.clock, m_clocks.names()));
  }
}

// What the calculation says to it.

void SheetBinder::verify() {
  for (const Write& write : m_writes)
    if (!write.isStored && !m_isFailed[write.entry]) verifyWrite(write);
}

/// The device or a setting of the sheet leaves the row out, with all that the entry says of it.
void SheetBinder::reportUnusedRow(const Write& write) {
  m_isFailed[write.entry] = true;
  const KVXERow& row = *write.cell->getRow();
  const std::string name = rowName(*row.getTable(), row.getIndex());
  m_diagnostics.add(write.place, "this design has no " + inQuotes(name) + " in " + tableName(*row.getTable()),
                    adviseName(name, shownRowNames(*row.getTable())));
}

void SheetBinder::verifyWrite(const Write& write) {
  KVXECell& cell = *write.cell;
  if (!cell.getRow()->hasPlaceOnScreen()) return reportUnusedRow(write);
  if (!cell.getIsEditable())
    return m_diagnostics.add(write.place, write.name + " is decided by the workbook in this row",
                             "remove it, or change what it follows from");
  if (const Conversion checked = checkLimits(write.value, write.written, cell); !checked.value)
    return m_diagnostics.add(write.place, write.name + ": " + checked.what, checked.remedy);
  if (holds(cell, write.value)) return;
  std::string present;
  cell.getValWithUnit(present, true);
  m_diagnostics.add(write.place, write.name + ": the workbook does not keep " + write.written,
                    present.empty() ? "it leaves the cell blank" : "it takes " + inQuotes(present));
}

}  // namespace kvx
