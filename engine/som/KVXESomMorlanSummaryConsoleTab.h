#pragma once

#include "engine/morlan/KVXEMorlanSummaryConsoleTab.h"

/// The console panel of a module's book: the total is the board's, which the panel splits into the device and
/// the board around it.
class KVXESomMorlanSummaryConsoleTab : public KVXEMorlanSummaryConsoleTab {
 public:
  static const std::string m_boardStr;

  using KVXEMorlanSummaryConsoleTab::KVXEMorlanSummaryConsoleTab;
  std::string className() const override { return "KVXESomMorlanSummaryConsoleTab"; }
  void init() override;

  /// What the board draws besides its device.
  static void updateBoardPower(const KVXEUID& uid);
  /// The device's power, and the active and static share of it.
  static void updateSomFpgaPower(const KVXEUID& uid);

 private:
  void initSomPowerTable();
};
