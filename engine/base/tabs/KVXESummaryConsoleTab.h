#pragma once

#include <span>
#include <string>

#include "engine/base/tabs/KVXEFixedRows.h"
#include "engine/base/workbook/KVXETab.h"

/// The panel that a console shows beside every tab: the project and, for an architecture, temperatures and
/// power in a few lines. It computes nothing but sums and shares of what the summary tab says.
class KVXESummaryConsoleTab : public KVXETab {
 public:
  static const KVXETitle m_ProjectTable, m_ThermalTable, m_PowerTable;
  static const KVXETitle m_Key, m_Value, m_Percentage;

  // Rows of the project table, which an import fills as well.
  static const std::string m_nameStr, m_statusStr, m_designStateStr;
  static const std::string m_initialStatusStr, m_emptyStateStr;
  // Rows of the power table; the indent is part of the text.
  static const std::string m_totalStr, m_fpgaStr, m_activeStr, m_staticStr;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXESummaryConsoleTab"; }

  // Formulas. What stands in the project table stays; the formulas fill in what is missing.
  static void updateProjectName(const KVXEUID& uid);
  static void updateProjectStatus(const KVXEUID& uid);
  static void updateDesignState(const KVXEUID& uid);
  static void updateThermalTable(const KVXEUID& uid);
  static void updateTotalPower(const KVXEUID& uid);
  /// The chip's power, and the active and static share of it.
  static void updateFpgaPower(const KVXEUID& uid);
  static void updatePercentage(const KVXEUID& uid);

 protected:
  void initProjectTable();
  void initThermalTable();
  /// The total, rows of an architecture's own, the chip's power and its two shares.
  void initPowerTable(std::span<const KVXEFixedRow> further = {});

  /// Whether the formula runs in the given table; if not, that is printed.
  static bool isInTable(const KVXEUID& uid, const KVXETitle& table);
};
