#pragma once

#include "engine/base/tabs/KVXEWramTab.h"

/// The wide memories of a Morlan device.
class KVXEMorlanWramTab : public KVXEWramTab {
 public:
  using KVXEWramTab::KVXEWramTab;
  std::string className() const override { return "KVXEMorlanWramTab"; }
  void init() override { initTables(&updateWramConfigPowerRow); }

  static void updateWramConfigPowerRow(const KVXEUID& uid);
};
