#pragma once

#include "engine/base/workbook/KVXETab.h"

/// The tab of the system monitors, of which each clock region has one.
class KVXETarvekSysmonTab : public KVXETab {
 public:
  static const KVXETitle m_SysmonTable;
  static const KVXETitle m_Name, m_Monitors, m_Clock, m_VccintPower, m_UserComments;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXETarvekSysmonTab"; }
  std::string getPlaceholderText() const override { return ""; }
  void init() override;

  static void updatePowerRow(const KVXEUID& uid);
  static void updateUtilization(const KVXEUID& uid);
};
