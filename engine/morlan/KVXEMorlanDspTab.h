#pragma once

#include "engine/base/tabs/KVXEDspTab.h"

/// The DSP tab of Morlan, and of the modules built on it. All slices are alike, so the user chooses each of
/// their stages; what stands around the multiplier goes with it.
class KVXEMorlanDspTab : public KVXEDspTab {
 public:
  static const KVXETitle m_DspCount;

  using KVXEDspTab::KVXEDspTab;
  std::string className() const override { return "KVXEMorlanDspTab"; }
  void init() override;

  // Formulas.

  static void updateMultMode(const KVXEUID& uid);
  /// Of the stages around the multiplier: without the multiplier none is used.
  static void updateMultiplierStage(const KVXEUID& uid);
  static void updateDspConfigPowerRow(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid) { updateUtilizationOf<m_DspCount>(uid); }
};
