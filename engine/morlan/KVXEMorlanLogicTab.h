#pragma once

#include "engine/base/tabs/KVXELogicTab.h"

/// The logic tab of Morlan, and of the modules built on it: one model gives cells and signals.
class KVXEMorlanLogicTab : public KVXELogicTab {
 public:
  using KVXELogicTab::KVXELogicTab;
  std::string className() const override { return "KVXEMorlanLogicTab"; }
  void init() override;

  /// The formula of both the logic and the signal power of a row.
  static void updateLogicAndSignalPowerRow(const KVXEUID& uid);
};
