#pragma once

#include "engine/morlan/KVXEMorlanPowerDesignTab.h"

/// The power design of a module: the rails of the device that the module carries. Package and speed field,
/// which a module has none of, are those of that device's part.
class KVXESomMorlanPowerDesignTab : public KVXEMorlanPowerDesignTab {
 public:
  using KVXEMorlanPowerDesignTab::KVXEMorlanPowerDesignTab;
  std::string className() const override { return "KVXESomMorlanPowerDesignTab"; }

 protected:
  std::span<const DeviceRow> deviceRows() const override;
  kvxm::Architecture architecture() const override;
  std::string partSetting(const DeviceRow& row) const override;
  float onChipDynamicPower(const KVXEUID& uid) override;
};
