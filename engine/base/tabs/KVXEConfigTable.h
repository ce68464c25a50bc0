#pragma once

#include <span>
#include <string>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEColumn.h"
#include "engine/base/workbook/KVXETab.h"

/// The configuration tables of the estimation tabs, one design module a row: the kinds of columns that they
/// are made of, how such a table is created, and the formula of a rail that sums a column of it.
///
///     const KVXEColumn columns[] = {
///         kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
///         kvxe::column::count(Tab::m_Count, "<html>The number of blocks.</html>"),
///         kvxe::column::clock(Tab::m_Clock, "<html>The clock of this module.</html>"),
///         kvxe::column::rate(Tab::m_ToggleRate, 0.125, "<html>How often outputs switch.</html>"),
///         kvxe::column::watts(Tab::m_Power, &Tab::updatePowerRow, "<html>The power.</html>"),
///         kvxe::column::comments(Tab::m_UserComments),
///     };
namespace kvxe {

/// Rows of a configuration table.
inline constexpr unsigned int configRowCount = 500;

/// The largest count that a user may enter; the number above it stands for a blank cell.
inline constexpr double largestCount = 2147483646.0;

namespace column {

/// Any text of the user's.
inline KVXEColumn name(const KVXETitle& title, const char* toolTip) {
  return {.title = &title, .type = KVXEEnums::CellType::STRING, .isEditable = true, .toolTip = toolTip};
}

/// The user's remarks, in the last visible column.
inline KVXEColumn comments(const KVXETitle& title) {
  return name(title, "Any text of your own.");
}

/// A number of blocks, blank in a new row.
inline KVXEColumn count(const KVXETitle& title, const char* toolTip, double maximum = KVXEColumn::None,
                        KVXEFormula formula = &KVXECell::NoFormula) {
  return {.title = &title,
          .type = KVXEEnums::CellType::INT,
          .isEditable = true,
          .formula = formula,
          .minimum = 0,
          .maximum = maximum,
          .toolTip = toolTip};
}

/// A share of the time or of the clocks, shown in percent.
inline KVXEColumn rate(const KVXETitle& title, double start, const char* toolTip, double maximum = 1.0) {
  return {.title = &title,
          .type = KVXEEnums::CellType::FLOAT,
          .isEditable = true,
          .unit = KVXEEnums::Unit::PERCENTAGE_SHOW,
          .number = start,
          .minimum = 0,
          .maximum = maximum,
          .toolTip = toolTip};
}

/// A clock of the clock tab, by its tag.
inline KVXEColumn clock(const KVXETitle& title, const char* toolTip) {
  return {.title = &title,
          .type = KVXEEnums::CellType::STRING,
          .isEditable = true,
          .formula = &KVXEClockTab::updateClockDropdown,
          .isDropdown = true,
          .toolTip = toolTip};
}

/// One of a list of texts; an empty list is set later by a formula.
inline KVXEColumn choice(const KVXETitle& title, std::span<const char* const> entries, const char* start,
                         const char* toolTip, KVXEFormula formula = &KVXECell::NoFormula) {
  return {.title = &title,
          .type = KVXEEnums::CellType::STRING,
          .isEditable = true,
          .formula = formula,
          .text = start,
          .isDropdown = true,
          .entries = entries,
          .toolTip = toolTip};
}

/// A computed power.
inline KVXEColumn watts(const KVXETitle& title, KVXEFormula formula, const char* toolTip,
                        KVXEEnums::Visibility visibility = KVXEEnums::Visibility::EXTERNAL) {
  return {.title = &title,
          .type = KVXEEnums::CellType::FLOAT,
          .formula = formula,
          .unit = KVXEEnums::Unit::POWER_SHOW,
          .toolTip = toolTip,
          .visibility = visibility};
}

}  // namespace column

/// Creates a table of design modules, with row numbers and the user's own rows. `widgetTitle` is the sub-tab
/// in which it stands.
KVXETable* createConfigTable(KVXETab& tab, const KVXETitle& title, std::span<const KVXEColumn> columns,
                             const std::string& widgetTitle);

/// The formula of an active power cell of a power table: the sum of a column of a table of the same tab.
template <const KVXETitle& Table, const KVXETitle& Column>
void sumIntoRail(const KVXEUID& uid) {
  if (!isInTable(uid, KVXETab::m_PowerTable, "active power of a rail")) return;
  uid.getCell()->setValAndMarkEngineClean(uid.getTab()->sumColumn(&Table, &Column));
}

/// The used count of a utilization row (UtilizationRow::countUsed): the sum of a column of a table of the
/// same tab.
template <const KVXETitle& Table, const KVXETitle& Column>
std::optional<float> sumOfColumn(const KVXEUID& uid) {
  return uid.getTab()->sumColumn(&Table, &Column);
}

}  // namespace kvxe
