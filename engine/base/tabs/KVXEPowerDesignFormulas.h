#pragma once

#include <iostream>
#include <string>

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"

/// What the formulas of the power design tab share.
namespace kvxe::powerdesign {

using kvxe::isGiven;

inline constexpr KVXECell::Color OrangeBackground = 0xffc000;
inline constexpr KVXECell::Color RedBackground = 0xff0000;

inline const char* const outOfRangeMsg = "The Voltage value is out of valid range.";

/// Whether the formula runs in its table; if not, "Error: error occured in updating <updated>." is printed.
inline bool isInTable(const KVXEUID& uid, const KVXETitle& table, const char* updated) {
  if (uid.getTable() && uid.getTable()->getTableTitle() == &table) return true;
  std::cout << "Error: error occured in updating " << updated << "." << '\n';
  return false;
}

inline bool isInSupplyTable(const KVXEUID& uid) {
  return isInTable(uid, KVXETab::m_powerSupplyTable, "PowerSupplyTable");
}

/// A text that never changes once the row is made, such as the name of its rail: no dependency.
inline const std::string& fixedTextOf(KVXERow* row, const KVXETitle& column) {
  return static_cast<const KVXEStringCell*>(row->getCell(&column))->peekVal();
}

/// The rail of a row of the supply table; blank for a row that heads a category.
inline const std::string& railOf(const KVXEUID& uid) {
  return fixedTextOf(uid.getRow(), KVXETab::m_internalSupplyColumn);
}

/// Whether the part works at the voltage; yes for a rail without known limits.
inline bool isInLimits(KVXERow* rail, float volts) {
  const float minimum = readNumber(rail, KVXETab::m_minVoltageColumn, 0.0f);
  const float maximum = readNumber(rail, KVXETab::m_maxVoltageColumn, 0.0f);
  return minimum <= 0.0f || maximum <= 0.0f || (volts >= minimum && volts <= maximum);
}

/// The background of a cell that is in order or not, by whether the user may edit it.
inline void showRange(KVXECell& cell, bool isInRange) {
  const KVXECell::Color usual = cell.getIsEditable() ? KVXECell::White : KVXECell::ReadOnlyBackground;
  cell.setBackgroundColor(isInRange ? usual : OrangeBackground);
}

}  // namespace kvxe::powerdesign
