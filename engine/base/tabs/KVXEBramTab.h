#pragma once

#include <optional>
#include <string>

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXETab.h"

/// The tab of the design's block memories, one module a row. The architectures differ in the models that
/// their power formula calls.
class KVXEBramTab : public KVXETab {
 public:
  static const KVXETitle m_BramConfigTable;
  static const KVXETitle m_Name, m_BramCount, m_CascadeGroupSize, m_Mode, m_ToggleRate;
  static const KVXETitle m_PortAClock, m_PortAEnableRate, m_PortABitWidth, m_PortAWriteMode,
      m_PortAWriteEnable;
  static const KVXETitle m_PortBClock, m_PortBEnableRate, m_PortBBitWidth, m_PortBWriteMode,
      m_PortBWriteEnable;
  static const KVXETitle m_VccintPower, m_VccRamPower, m_UserComments;

  static const std::string m_bramStr;  ///< the row of the utilization table

  /// The most memories in a cascade.
  static constexpr int LargestCascadeGroup = 12;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEBramTab"; }
  std::string getPlaceholderText() const override { return ""; }

  // Formulas.

  /// The widths that the mode and the other port leave to a port.
  static void updateBitWidthADropdown(const KVXEUID& uid);
  static void updateBitWidthBDropdown(const KVXEUID& uid);
  /// A cascade has no more memories than the module.
  static void updateCascadeGroupRange(const KVXEUID& uid);
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccramActivePowerInPowerTable(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

  /// Watts of all modules.
  static float updateTotalLogicPower(const KVXEUID& uid);

 protected:
  /// What one port of a row does; nothing is accessed through a port without a clock.
  struct Port {
    float megahertz = 0.0f;
    float enable = 0.0f;
    float write = 0.0f;
    int width = 0;
    std::string writeMode;
  };
  /// What a row that has power uses; nothing for a row without memories, clocks or voltages.
  struct BramRow {
    int count = 0;
    int cascadeGroup = 0;
    std::string mode;
    float toggleRate = 0.0f;
    float vccint = 0.0f;
    float vccram = 0.0f;
    Port portA, portB;
  };
  static std::optional<BramRow> readBramRow(const KVXEUID& uid);

  /// Fills the record of a block memory.
  template <class Params>
  static void fillBram(const KVXEUID& uid, const BramRow& row, Params& params) {
    using I = typename Params::IntEnum;
    using F = typename Params::FloatEnum;
    using S = typename Params::StringEnum;
    params[S::DEVICE] = kvxe::readDevice(uid);
    params[S::MODE] = row.mode;
    params[I::COUNT] = row.count;
    params[I::CASCADE_GROUP_SIZE] = row.cascadeGroup;
    params[F::TOGGLE_RATE] = row.toggleRate;
    params[F::VCCINT] = row.vccint;
    params[F::VCCRAM] = row.vccram;
    updateBramParamClock(row, params);
    params[I::PORT_A_WIDTH] = row.portA.width;
    params[I::PORT_B_WIDTH] = row.portB.width;
    params[S::PORT_A_WRITE_MODE] = row.portA.writeMode;
    params[S::PORT_B_WRITE_MODE] = row.portB.writeMode;
  }
  /// Fills the clocks of both ports and how often they are enabled and written.
  template <class Params>
  static void updateBramParamClock(const BramRow& row, Params& params) {
    using F = typename Params::FloatEnum;
    params[F::PORT_A_CLOCK] = row.portA.megahertz;
    params[F::PORT_A_ENABLE] = row.portA.enable;
    params[F::PORT_A_WRITE] = row.portA.write;
    params[F::PORT_B_CLOCK] = row.portB.megahertz;
    params[F::PORT_B_ENABLE] = row.portB.enable;
    params[F::PORT_B_WRITE] = row.portB.write;
  }

  /// The power formula of a row. `signalPower(uid, row, params)` gives the watts of the nets at the ports of
  /// the calculated record.
  template <class Params, class Model, class SignalPower>
  static void updatePowerRow(const KVXEUID& uid, SignalPower signalPower) {
    using F = typename Params::FloatEnum;
    constexpr float WattsPerResult = 1000.0f;  // the record's results are in kilowatts
    const std::optional<BramRow> row = readBramRow(uid);
    if (!row) return blankPower(uid);
    Params params;
    fillBram(uid, *row, params);
    Model::getGlobal().calculate(params);
    float vccint = params[F::VCCINT_POWER] * WattsPerResult;
    if (!kvxe::isSignalPowerDisabled()) vccint += signalPower(uid, *row, params);
    writePower(uid, vccint, params[F::VCCRAM_POWER] * WattsPerResult);
  }

  /// All tables of the tab, with the power formula of the architecture.
  void initTables(KVXEFormula power);

 private:
  static void blankPower(const KVXEUID& uid);
  static void writePower(const KVXEUID& uid, float vccint, float vccram);
};
