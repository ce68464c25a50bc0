#pragma once

#include "engine/base/workbook/KVXETab.h"

/// The tab of the design's multi-port memories, one module a row.
class KVXETarvekMpramTab : public KVXETab {
 public:
  static const KVXETitle m_ConfigTable;
  static const KVXETitle m_Name, m_IntfClkFreq, m_ToggleRate, m_AvgDutyCycle, m_NumMemory, m_VccintPower,
      m_UserComments;

  static const std::string m_mpramStr;  ///< the row of the utilization table

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXETarvekMpramTab"; }
  std::string getPlaceholderText() const override { return ""; }
  void init() override;

  static void updateMpramConfigPowerRow(const KVXEUID& uid);
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);
};
