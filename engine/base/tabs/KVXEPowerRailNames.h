#pragma once

#include <string>
#include <vector>

#include "engine/base/workbook/KVXECell.h"

/// What is known of supply rails by their names alone, whatever the device: what a rail supplies, and the
/// categories under which rails are listed.
struct KVXEPowerRailNames {
  // Keys of the rail categories, in the order of the supply table.
  static const std::string m_pmcStr, m_lpdStr, m_fpdStr, m_systemAuxStr, m_systemCoreStr, m_plCoreStr,
      m_ioStr, m_xcvraStr, m_xcvrdStr, m_xcvrcStr, m_hbmStr, m_batStr, m_otherStr;

  // What a rail supplies, by its internal name.
  static bool isVcuVoltage(const std::string& rail);
  static bool isXcvrAVoltage(const std::string& rail);
  static bool isXcvrDVoltage(const std::string& rail);
  static bool isXcvrCVoltage(const std::string& rail);
  static bool isXcvrBVoltage(const std::string& rail);
  static bool isPSIoVoltage(const std::string& rail);
  static bool isHbmVoltage(const std::string& rail);
  static bool isPsVoltage(const std::string& rail);
  static bool isPsBlockVoltage(const std::string& rail);
  static bool isHic5Voltage(const std::string& rail);
  static bool isPswVoltage(const std::string& rail);
  static bool isNicbVoltage(const std::string& rail);
  static bool isHic5nVoltage(const std::string& rail);
  static bool isIoVccoVoltage(const std::string& rail);
  static bool isArkeonNetVcco(const std::string& rail);

  /// Whether a supply text heads a category rather than names a rail.
  static bool isCategoryStr(const std::string& supply);
  /// The keys of all categories, in the order of the supply table.
  static std::vector<std::string> getCategoryList();
  /// The key of a category from its shown text, and the shown text from the key; blank for any other text.
  static std::string getCategoryStr(const std::string& detailed);
  static std::string getCategoryDetailedStr(const std::string& key);
  /// The power domain of a category: "PMC", "SYSTEM", "LPD", "FPD", "PL", "IO", "BATT"...
  static std::string domainOfCategory(const std::string& key);
  /// Text and background colour of a power domain.
  static KVXECell::Colors getPowerDomainColorCode(const std::string& domain);
};
