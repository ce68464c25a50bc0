#pragma once

#include "engine/base/tabs/KVXEPowerDesignTab.h"

/// The power design on the older rail list. Limits of supplies differ by the speed field.
class KVXEMorlanPowerDesignTab : public KVXEPowerDesignTab {
 public:
  using KVXEPowerDesignTab::KVXEPowerDesignTab;
  std::string className() const override { return "KVXEMorlanPowerDesignTab"; }

 protected:
  std::span<const DeviceRow> deviceRows() const override;
  kvxm::Architecture architecture() const override;
  const kvxm::StaticQueries& staticData() const override;
  std::unique_ptr<kvxm::Record> makeStaticParams() const override;
  void calculateStatic(kvxm::Record& params) const override;
  std::string supplyGrade(const KVXEUID& uid) const override;
};
