#pragma once

#include "engine/base/tabs/KVXEIoTab.h"

/// The pins of a Morlan device: high performance banks and high density ones.
class KVXEMorlanIoTab : public KVXEIoTab {
 public:
  using KVXEIoTab::KVXEIoTab;
  std::string className() const override { return "KVXEMorlanIoTab"; }
  void init() override { initTables(); }

 protected:
  std::span<const Bank> banks() const override;
  std::string auxiliaryRail() const override { return "VCCAUXIO"; }
};
