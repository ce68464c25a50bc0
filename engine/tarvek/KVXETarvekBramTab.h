#pragma once

#include "engine/base/tabs/KVXEBramTab.h"

/// The block memories of a Tarvek device: the memory and the nets at its ports have models of their own.
class KVXETarvekBramTab : public KVXEBramTab {
 public:
  using KVXEBramTab::KVXEBramTab;
  std::string className() const override { return "KVXETarvekBramTab"; }
  void init() override { initTables(&updateBramConfigPowerRow); }

  static void updateBramConfigPowerRow(const KVXEUID& uid);
};
