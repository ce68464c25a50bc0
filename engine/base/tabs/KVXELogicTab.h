#pragma once

#include <optional>
#include <string>

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXETab.h"

/// The tab of the design's logic: LUTs in their three uses, and registers, one design module per row.
class KVXELogicTab : public KVXETab {
 public:
  static const KVXETitle m_LogicConfigTable;
  static const KVXETitle m_Name, m_Clock, m_LutAsLogic, m_LutAsSRL, m_LutAsDRAM, m_Registers, m_ToggleRate,
      m_RoutingComplexity, m_VccintPower, m_UserComments, m_LogicPower, m_SignalPower;

  // Rows of the utilization table.
  static const std::string m_RegistersStr, m_LutsStr, m_LogicStr, m_ShiftRegistersStr, m_DistributedRamsStr;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXELogicTab"; }
  std::string getPlaceholderText() const override { return ""; }

  // Formulas.

  /// The sum of a row's logic and signal power.
  static void updateVccintPowerRow(const KVXEUID& uid);
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

 protected:
  /// What a row that has power uses, as the models take it; nothing for a row without a clock frequency,
  /// without a voltage, or with nothing used.
  struct LogicRow {
    float megahertz = 0.0f;
    float volts = 0.0f;
    int luts = 0;
    int shiftRegisters = 0;
    int distributedRams = 0;
    int registers = 0;
    float toggleRate = 0.0f;
    float routingComplexity = 0.0f;
  };
  static std::optional<LogicRow> readLogicRow(const KVXEUID& uid);
  /// Fills the inputs that the records of logic and of signals share.
  template <class Params>
  static void fillLogic(const KVXEUID& uid, const LogicRow& use, Params& params) {
    using I = typename Params::IntEnum;
    using F = typename Params::FloatEnum;
    params[Params::StringEnum::DEVICE] = kvxe::readDevice(uid);
    params[I::LUT_LOGIC] = use.luts;
    params[I::LUT_SRL] = use.shiftRegisters;
    params[I::LUT_RAM] = use.distributedRams;
    params[I::REGISTERS] = use.registers;
    params[F::FREQUENCY] = use.megahertz;
    params[F::VCCINT] = use.volts;
    params[F::TOGGLE_RATE] = use.toggleRate;
  }

  /// All tables of the tab, with the formulas in which the architectures differ.
  void initTables(KVXEFormula logicPower, KVXEFormula signalPower);

 private:
  void initLogicConfigTable(KVXEFormula logicPower, KVXEFormula signalPower);
  void initPowerTable();
  void initUtilizationTable();
};
