#pragma once

#include <map>
#include <string>
#include <vector>

#include "engine/base/tabs/KVXEDspTab.h"

class KVXMTarvekDspConfigParams;
class KVXMTarvekDspCplxParams;
class KVXMTarvekDspFp32Params;
class KVXMTarvekDspInt24Params;
class KVXMTarvekDspInt8Params;
class KVXMTarvekDspLegacyParams;

/// The DSP tab of Tarvek. A row's configuration decides its kind of arithmetic (the mode), and with that the
/// model, and which stages of the slice the user may choose.
class KVXETarvekDspTab : public KVXEDspTab {
 public:
  static const KVXETitle m_Config, m_DspCount, m_Mode;

  /// The text of a configuration by its key. Keys of slices that work as the older ones begin with "48".
  static const std::map<std::string, std::string> m_dspConfigMap;

  using KVXEDspTab::KVXEDspTab;
  std::string className() const override { return "KVXETarvekDspTab"; }
  void init() override;

  /// The text of a configuration in the workbook; empty for an unknown key.
  static std::string getConfigStr(const std::string& key);
  /// The texts that a row's configuration offers, those of the older slices last.
  static std::vector<std::string> getConfigList();
  /// Whether the configuration says if the multiplier is used. Otherwise, as for a text that is no
  /// configuration, the user does.
  static bool isDerivedConfigMode(const std::string& config);

  // Formulas.
  static void updateDspMode(const KVXEUID& uid);
  static void updateMultMode(const KVXEUID& uid);
  static void updateMultPipelineMode(const KVXEUID& uid);
  static void updatePreaddMode(const KVXEUID& uid);
  static void updateAdregMode(const KVXEUID& uid);
  /// The model of the row's mode gives the power of the slices, the routing model that of their nets.
  static void updateDspConfigPowerRow(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid) { updateUtilizationOf<m_DspCount>(uid); }

 private:
  /// Power of a row's slices in watts.
  struct SlicePower {
    float data = 0.0f;
    float clock = 0.0f;
  };
  using SliceModel = SlicePower (*)(const KVXEUID& uid, const DspRow& use);
  template <class Params, class Model>
  static SlicePower calculateSlices(const KVXEUID& uid, const DspRow& use);
  /// The calculation of a mode, null for an unknown one.
  static SliceModel modelOf(const std::string& mode);

  // Fill a record from the row.
  template <class Params>
  static void fillRow(const KVXEUID& uid, const DspRow& use, Params& params);
  static void updateDspParams(const KVXEUID& uid, KVXMTarvekDspConfigParams& params);
  static void updateDspParams(const KVXEUID& uid, const DspRow& use, KVXMTarvekDspInt24Params& params);
  static void updateDspParams(const KVXEUID& uid, const DspRow& use, KVXMTarvekDspCplxParams& params);
  static void updateDspParams(const KVXEUID& uid, const DspRow& use, KVXMTarvekDspFp32Params& params);
  static void updateDspParams(const KVXEUID& uid, const DspRow& use, KVXMTarvekDspInt8Params& params);
  static void updateDspParams(const KVXEUID& uid, const DspRow& use, KVXMTarvekDspLegacyParams& params);

  /// What the row's configuration stands for.
  static KVXMTarvekDspConfigParams readConfig(const KVXEUID& uid);
  /// Watts of the nets at the results of the row's slices.
  static float getSignalPower(const KVXEUID& uid, const DspRow& use);
  /// Watts of the clock pins inside the slices, of a calculated record.
  template <class Params>
  static float getClockSignalPower(const Params& params);
};
