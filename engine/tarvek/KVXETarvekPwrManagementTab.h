#pragma once

#include "engine/base/workbook/KVXETab.h"

/// What the design draws by domain, and what it would save by gating its clocks or running them slower. All
/// of it is information for the designer: nothing here adds to the power of the chip.
class KVXETarvekPwrManagementTab : public KVXETab {
 public:
  static const KVXETitle m_PwrManagementTable, m_Domain, m_DomainPower;
  /// One clock a row, by its tag.
  static const KVXETitle m_ClockDomainPwrTable, m_ClockTag, m_GatedClock, m_MinScaledFreq, m_ClockPower,
      m_ManagedPower, m_GatingSaving, m_ScalingSaving;
  static const KVXETitle m_PotentialSavingsTable, m_Measure, m_Saving;

  // Values of m_GatedClock.
  static const std::string m_yesStr, m_noStr;
  // Rows of m_PwrManagementTable.
  static const std::string m_pmcStr, m_lpdStr, m_fpdStr, m_logicStr;
  // Rows of m_PotentialSavingsTable.
  static const std::string m_gatingStr, m_scalingStr, m_totalStr;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXETarvekPwrManagementTab"; }
  std::string getPlaceholderText() const override { return ""; }
  void init() override;

  // Formulas.

  /// The power of a row's clock, while it runs, and what remains of it and what is saved while it is gated or
  /// at its minimum frequency. A row without a clock that exists has none of these.
  static void updateClockDomainRow(const KVXEUID& uid);
  static void updateDomainPower(const KVXEUID& uid);
  static void updateSaving(const KVXEUID& uid);

 private:
  void initPwrManagementTable();
  void initClockDomainPwrTable();
  void initPotentialSavingsTable();
};
