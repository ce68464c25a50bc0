#pragma once

#include "engine/base/tabs/KVXEBramTab.h"

/// The block memories of a Morlan device, whose model tells the power of the nets at their ports as well.
class KVXEMorlanBramTab : public KVXEBramTab {
 public:
  using KVXEBramTab::KVXEBramTab;
  std::string className() const override { return "KVXEMorlanBramTab"; }
  void init() override { initTables(&updateBramConfigPowerRow); }

  static void updateBramConfigPowerRow(const KVXEUID& uid);
};
