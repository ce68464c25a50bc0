#pragma once

#include <string>

#include "engine/base/workbook/KVXETab.h"

/// The tab of what moves data across the device: connections through the network on chip, and hard memory
/// controllers. The pins of a memory interface are rows of the IO tab, which also has their power.
class KVXETarvekNocDdrmcTab : public KVXETab {
 public:
  static const KVXETitle m_NocConfigTable, m_DdrmcConfigTable;

  // Columns that the user fills, in the order of their tables. Bandwidths are in MB/s.
  static const KVXETitle m_ModuleName, m_NocClock, m_NocSwitches, m_ReadBandWidth, m_WriteBandWidth,
      m_ToggleRate, m_UserComments;
  static const KVXETitle m_Name, m_DramType, m_Standard, m_Channels, m_Datarate, m_DataWidth, m_Ecc, m_Crypto,
      m_AccessPattern;  // and bandwidths, toggle rate and comments as above

  // Results.
  static const KVXETitle m_NocPower, m_ClockBufferPower;
  static const KVXETitle m_Controller, m_VccsocPower, m_VccintioPower, m_VccauxPower;

  // Rows of the utilization table, and its column of watts.
  static const std::string m_NocStr, m_ClockBufferStr, m_HardMcStr, m_Ddrmc5Str, m_Ddrmc5CStr, m_HbmmcStr;
  inline static const KVXETitle& m_PowerColumn = KVXETab::m_BlockPowerColumn;

  static constexpr float DefaultToggleRate = 0.5f;  ///< of random data

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXETarvekNocDdrmcTab"; }
  std::string getPlaceholderText() const override { return ""; }
  void init() override;

  // Formulas of the network's table.

  /// Warns of a clock that the speed grade does not reach.
  static void updateNocClock(const KVXEUID& uid);
  /// Warns of more than a port carries, in the direction of the column.
  static void updateNocBandWidth(const KVXEUID& uid);
  /// Writes all results of a row.
  static void updateNocPowerRow(const KVXEUID& uid);

  // Formulas of the controllers' table.

  /// Keeps the list of DRAM types that the device's controllers support.
  static void updateDramType(const KVXEUID& uid);
  /// Keep the lists that depend on the row's DRAM type.
  static void updateStandard(const KVXEUID& uid);
  static void updateDataWidth(const KVXEUID& uid);
  static void updateCrypto(const KVXEUID& uid);
  /// The kind of controller that serves the DRAM type; blank when the device has none.
  static void updateController(const KVXEUID& uid);
  /// Warn of what the controller does not reach.
  static void updateChannels(const KVXEUID& uid);
  static void updateDatarate(const KVXEUID& uid);
  static void updateDdrmcBandWidth(const KVXEUID& uid);
  /// Writes all results of a row.
  static void updateDdrmcPowerRow(const KVXEUID& uid);

  static void updateUtilizationTable(const KVXEUID& uid);

 private:
  void initNocConfigTable();
  void initDdrmcConfigTable();
  void initPowerTable();
  void initUtilizationTable();

  /// Puts the warning on the formula's cell, or takes the last one away, and keeps the cell's value.
  static void finishChecked(const KVXEUID& uid, bool isExceeded, const std::string& warning);
};
