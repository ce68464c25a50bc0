#pragma once

#include "engine/base/tabs/KVXEClockTab.h"

/// The clock tab of Morlan, and of the modules built on it. All clock power is drawn from the core rail.
class KVXEMorlanClockTab : public KVXEClockTab {
 public:
  using KVXEClockTab::KVXEClockTab;
  std::string className() const override { return "KVXEMorlanClockTab"; }
  void init() override;

  /// Names a clock that got a frequency but no name, so that other tabs can refer to it. The name is given
  /// once, like one that the user typed: it stays when rows move.
  static void populateDefaultClkName(const KVXEUID& uid);
  static void updateClockConfigPowerRow(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

 private:
  static std::string unusedClockName(KVXETable* table);
};
