#pragma once

#include "engine/base/tabs/KVXEWramTab.h"

/// The wide memories of a Tarvek device.
class KVXETarvekWramTab : public KVXEWramTab {
 public:
  using KVXEWramTab::KVXEWramTab;
  std::string className() const override { return "KVXETarvekWramTab"; }
  void init() override { initTables(&updateWramConfigPowerRow); }

  static void updateWramConfigPowerRow(const KVXEUID& uid);
};
