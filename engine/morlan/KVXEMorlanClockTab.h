#pragma once

#include "engine/base/tabs/KVXEClockTab.h"

/// The clock tab of Morlan, and of the modules built on it. The power of clocks is drawn from the core rail,
/// that of clock managers from the core and the auxiliary rail.
class KVXEMorlanClockTab : public KVXEClockTab {
 public:
  using KVXEClockTab::KVXEClockTab;
  std::string className() const override { return "KVXEMorlanClockTab"; }
  void init() override;
  std::vector<std::string> getClockMgrTypes() const override;
  std::optional<std::pair<float, float>> getVcoLimits(const std::string& type) const override;

  /// Names a clock that got a frequency but no name, so that other tabs can refer to it. The name is given
  /// once, like one that the user typed: it stays when rows move.
  static void populateDefaultClkName(const KVXEUID& uid);
  /// As above for a clock manager that got a type.
  static void populateDefaultClkmgrName(const KVXEUID& uid);
  static void updateClockConfigPowerRow(const KVXEUID& uid);
  static void updateClockMgrPowerRow(const KVXEUID& uid);
  /// Only an FSYN shifts phases.
  static void updatePhaseShiftDropdown(const KVXEUID& uid);
  /// Offers the frequencies of the clocks that can be referred to as reference clocks.
  static void updateRefClockDropdown(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

 private:
  void initRefClockList();
};
