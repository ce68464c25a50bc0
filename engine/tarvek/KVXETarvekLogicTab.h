#pragma once

#include "engine/base/tabs/KVXELogicTab.h"

/// The logic tab of Tarvek: cells and signals have a model each.
class KVXETarvekLogicTab : public KVXELogicTab {
 public:
  using KVXELogicTab::KVXELogicTab;
  std::string className() const override { return "KVXETarvekLogicTab"; }
  void init() override;

  static void updateLogicPowerRow(const KVXEUID& uid);
  static void updateSignalPowerRow(const KVXEUID& uid);
};
