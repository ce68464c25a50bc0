#pragma once

#include "engine/base/tabs/KVXEClockTab.h"

/// The clock tab of Tarvek.
class KVXETarvekClockTab : public KVXEClockTab {
 public:
  using KVXEClockTab::KVXEClockTab;
  std::string className() const override { return "KVXETarvekClockTab"; }
  void init() override;
  std::vector<std::string> getClockMgrTypes() const override;
  std::optional<std::pair<float, float>> getVcoLimits(const std::string& type) const override;

  /// Registers share a site the more, the fuller the device is; a value that the user entered stands.
  static void updateFanoutPerSite(const KVXEUID& uid);
  static void updateClockConfigPowerRow(const KVXEUID& uid);
  static void updateClockMgrPowerRow(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);
  /// Which PLL of the IO banks the device has decides what the row's type cell reads.
  static void updateIoPllType(const KVXEUID& uid);

 private:
  void initPowerTable();
  void initUtilizationTable();
};
