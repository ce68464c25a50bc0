#pragma once

#include "engine/base/tabs/KVXEIoTab.h"

/// The pins of a Tarvek device: high speed banks and low speed ones.
class KVXETarvekIoTab : public KVXEIoTab {
 public:
  using KVXEIoTab::KVXEIoTab;
  std::string className() const override { return "KVXETarvekIoTab"; }
  void init() override { initTables(); }

 protected:
  std::span<const Bank> banks() const override;
  std::string auxiliaryRail() const override { return "VCCAUX"; }
};
