#pragma once

#include "engine/base/tabs/KVXEPowerDesignTab.h"

/// The power design of the first architecture: parts with a voltage grade and a static screen.
class KVXETarvekPowerDesignTab : public KVXEPowerDesignTab {
 public:
  using KVXEPowerDesignTab::KVXEPowerDesignTab;
  std::string className() const override { return "KVXETarvekPowerDesignTab"; }

  /// Whether the part is a low voltage one whose VCCINT is raised when it is cold.
  static bool isLvdsSku(const KVXEUID& uid);

 protected:
  std::span<const DeviceRow> deviceRows() const override;
  kvxm::Architecture architecture() const override;
  const kvxm::StaticQueries& staticData() const override;
  std::unique_ptr<kvxm::Record> makeStaticParams() const override;
  void calculateStatic(kvxm::Record& params) const override;
  std::string supplyGrade(const KVXEUID& uid) const override;
  void fillDeviceParams(const KVXEUID& uid, kvxm::Record& params) const override;
  void fillBlockParams(const KVXEUID& uid, kvxm::Record& params) const override;
  std::string railGroup(const std::string& consolidation, const kvxm::Supply& supply,
                        float nominalVolts) const override;
  void checkVoltage(const KVXEUID& uid, const std::string& rail, float volts) const override;

 private:
  static void checkSupplyPull(const KVXEUID& uid, const std::string& rail, float volts);
  static void checkColdVoltage(const KVXEUID& uid, const std::string& rail, float volts);
};
