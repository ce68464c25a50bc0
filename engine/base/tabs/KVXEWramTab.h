#pragma once

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXETab.h"

/// The tab of the design's wide memories, one module a row, both ports on one clock. The architectures differ
/// in the model that their power formula calls.
class KVXEWramTab : public KVXETab {
 public:
  static const KVXETitle m_WramConfigTable;
  static const KVXETitle m_Name, m_WramCount, m_CascadeGroupSize, m_Latency, m_Mode, m_AutoSleep, m_SleepRate,
      m_AvgInactiveCycles, m_InputToggleRate, m_OutputToggleRate, m_Clock;
  static const KVXETitle m_PortADataWidth, m_PortAEnableRate, m_PortAWriteEnable;
  static const KVXETitle m_PortBDataWidth, m_PortBEnableRate, m_PortBWriteEnable;
  static const KVXETitle m_VccintPower, m_VccRamPower, m_UserComments;

  static const std::string m_wramStr;  ///< the row of the utilization table

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEWramTab"; }
  std::string getPlaceholderText() const override { return ""; }

  // Formulas.

  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccramActivePowerInPowerTable(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

 protected:
  /// The power formula of a row.
  template <class Params, class Model>
  static void updatePowerRow(const KVXEUID& uid) {
    using F = typename Params::FloatEnum;
    if (!kvxe::isInTable(uid, m_WramConfigTable, "power of wide memories")) return;
    Params params;
    if (!fillWram(uid, params)) return writePower(uid, std::nullopt, std::nullopt);
    Model::getGlobal().calculate(params);
    float vccint = params[F::VCCINT_POWER];
    if (!kvxe::isSignalPowerDisabled()) vccint += params[F::SIGNAL_POWER];
    writePower(uid, vccint, params[F::VCCRAM_POWER]);
  }

  /// All tables of the tab, with the power formula of the architecture.
  void initTables(KVXEFormula power);

 private:
  /// False for a row without memories, a clock or voltages.
  template <class Params>
  static bool fillWram(const KVXEUID& uid, Params& params) {
    using I = typename Params::IntEnum;
    using F = typename Params::FloatEnum;
    using S = typename Params::StringEnum;
    KVXERow* row = uid.getRow();
    const int count = kvxe::readCount(row, m_WramCount);
    const auto megahertz = kvxe::readClockFrequency(row, m_Clock);
    const auto vccint = kvxe::readVoltage(uid, "VCCINT");
    const auto vccram = kvxe::readVoltage(uid, "VCCRAM");
    if (count <= 0 || !megahertz || !vccint || !vccram) return false;
    params[S::DEVICE] = kvxe::readDevice(uid);
    params[S::MODE] = kvxe::readText(row, m_Mode);
    params[S::AUTO_SLEEP] = kvxe::readText(row, m_AutoSleep);
    params[I::COUNT] = count;
    params[I::CASCADE_GROUP_SIZE] = kvxe::readCount(row, m_CascadeGroupSize);
    params[I::LATENCY] = kvxe::readCount(row, m_Latency);
    params[I::PORT_A_WIDTH] = kvxe::readCount(row, m_PortADataWidth);
    params[I::PORT_B_WIDTH] = kvxe::readCount(row, m_PortBDataWidth);
    params[F::FREQUENCY] = *megahertz;
    params[F::VCCINT] = *vccint;
    params[F::VCCRAM] = *vccram;
    const std::pair<F, const KVXETitle*> rates[] = {
        {F::INPUT_TOGGLE_RATE, &m_InputToggleRate},
        {F::OUTPUT_TOGGLE_RATE, &m_OutputToggleRate},
        {F::SLEEP_RATE, &m_SleepRate},
        {F::AVG_INACTIVE_CYCLES, &m_AvgInactiveCycles},
        {F::PORT_A_ENABLE, &m_PortAEnableRate},
        {F::PORT_A_WRITE, &m_PortAWriteEnable},
        {F::PORT_B_ENABLE, &m_PortBEnableRate},
        {F::PORT_B_WRITE, &m_PortBWriteEnable},
    };
    for (const auto& [slot, column] : rates) params[slot] = kvxe::readNumber(row, *column, params[slot]);
    return true;
  }

  static void writePower(const KVXEUID& uid, std::optional<float> vccint, std::optional<float> vccram);
};
