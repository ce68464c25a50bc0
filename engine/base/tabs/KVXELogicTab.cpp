#include "engine/base/tabs/KVXELogicTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"

using enum KVXEEnums::CellType;
using KVXEEnums::Visibility;

using Title = const KVXETitle;

Title KVXELogicTab::m_LogicConfigTable("LOGIC_CONFIGURATION", "Logic Settings");
Title KVXELogicTab::m_Name("NAME", "Name", "name");
Title KVXELogicTab::m_Clock("CLOCK", "Clock", "clockFreq");
Title KVXELogicTab::m_LutAsLogic("LUT_AS_LOGIC", "LUTs as Logic", "luts");
Title KVXELogicTab::m_LutAsSRL("LUT_AS_SRL", "LUTs as Shift Registers", "SRL");
Title KVXELogicTab::m_LutAsDRAM("LUT_AS_DRAM", "LUTs as Distributed RAMs", "RAM");
Title KVXELogicTab::m_Registers("REGISTERS", "Registers", "ffs");
Title KVXELogicTab::m_ToggleRate("TOGGLE_RATE", "Toggle Rate", "toggleRate");
Title KVXELogicTab::m_RoutingComplexity("ROUTING_COMPLEXITY", "Routing Complexity", "ru");
Title KVXELogicTab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title KVXELogicTab::m_UserComments("USER_COMMENTS", "User Comments");
Title KVXELogicTab::m_LogicPower("LOGIC_POWER");
Title KVXELogicTab::m_SignalPower("SIGNAL_POWER");

const std::string KVXELogicTab::m_RegistersStr = "Registers";
const std::string KVXELogicTab::m_LutsStr = "LUTs";
const std::string KVXELogicTab::m_LogicStr = "Logic";
const std::string KVXELogicTab::m_ShiftRegistersStr = "Shift Registers";
const std::string KVXELogicTab::m_DistributedRamsStr = "Distributed RAMs";

namespace {

using Tab = KVXELogicTab;

constexpr float DefaultToggleRate = 0.125f;
constexpr float DefaultRoutingComplexity = 10.0f;
constexpr double LargestToggleRate = 2.0;  // a clock's own rate

// The formulas of the last two are the architecture's.
const KVXEColumn logicColumns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
    kvxe::column::clock(Tab::m_Clock,
                        "<html>The clock of this module, from the clock tab.\nA module without a clock has "
                        "no dynamic power.</html>"),
    kvxe::column::count(Tab::m_LutAsLogic, "<html>The number of LUTs that this module uses as logic.</html>"),
    kvxe::column::count(Tab::m_LutAsSRL,
                        "<html>The number of LUTs that this module uses as shift registers.</html>"),
    kvxe::column::count(Tab::m_LutAsDRAM,
                        "<html>The number of LUTs that this module uses as distributed RAMs.</html>"),
    kvxe::column::count(Tab::m_Registers, "<html>The number of registers that this module uses.</html>"),
    kvxe::column::rate(
        Tab::m_ToggleRate, DefaultToggleRate,
        "<html>The rate at which the outputs of this module switch, relative to the clock.\n100% is one "
        "transition in each clock cycle; most logic lies below 25%, a free running toggle at 100%.</html>",
        LargestToggleRate),
    {.title = &Tab::m_RoutingComplexity,
     .type = FLOAT,
     .isEditable = true,
     .number = DefaultRoutingComplexity,
     .minimum = 0,
     .toolTip = "<html>How much interconnect the nets of this module need on average:\n10 is medium, 12 is "
                "high.</html>"},
    kvxe::column::watts(
        Tab::m_VccintPower, &Tab::updateVccintPowerRow,
        "<html>The power that this module draws from the core supply: its logic and its signals.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
    kvxe::column::watts(Tab::m_LogicPower, &KVXECell::NoFormula, "Power inside the LUTs and registers.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_SignalPower, &KVXECell::NoFormula,
                        "Power of the nets that the LUTs and registers drive.", Visibility::INTERNAL),
};

}  // namespace

void KVXELogicTab::initTables(KVXEFormula logicPower, KVXEFormula signalPower) {
  KVXETab::init();
  initLogicConfigTable(logicPower, signalPower);
  initPowerTable();
  initUtilizationTable();
}

void KVXELogicTab::initLogicConfigTable(KVXEFormula logicPower, KVXEFormula signalPower) {
  std::vector<KVXEColumn> columns(std::begin(logicColumns), std::end(logicColumns));
  columns.end()[-2].formula = logicPower;
  columns.end()[-1].formula = signalPower;
  kvxe::createConfigTable(*this, m_LogicConfigTable, columns, "Logic");
}

void KVXELogicTab::initPowerTable() {
  std::vector<PowerTableRow> rows{{"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula}};
  initPowerTableRows(rows);
}

// Power of a row.

std::optional<KVXELogicTab::LogicRow> KVXELogicTab::readLogicRow(const KVXEUID& uid) {
  KVXERow* row = uid.getRow();
  const std::optional<float> megahertz = kvxe::readClockFrequency(row, m_Clock);
  if (!megahertz) return std::nullopt;
  LogicRow use{.megahertz = *megahertz,
               .luts = kvxe::readCount(row, m_LutAsLogic),
               .shiftRegisters = kvxe::readCount(row, m_LutAsSRL),
               .distributedRams = kvxe::readCount(row, m_LutAsDRAM),
               .registers = kvxe::readCount(row, m_Registers)};
  if (std::max({use.luts, use.shiftRegisters, use.distributedRams, use.registers}) <= 0) return std::nullopt;
  const std::optional<float> volts = kvxe::readVoltage(uid, "VCCINT");
  if (!volts) return std::nullopt;
  use.volts = *volts;
  use.toggleRate = kvxe::readNumber(row, m_ToggleRate, DefaultToggleRate);
  use.routingComplexity = kvxe::readNumber(row, m_RoutingComplexity, DefaultRoutingComplexity);
  return use;
}

void KVXELogicTab::updateVccintPowerRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_LogicConfigTable, "power of logic")) return;
  float sum = 0.0f;
  bool hasPower = false;
  for (const KVXETitle* column : {&m_LogicPower, &m_SignalPower}) {
    float watts = 0.0f;
    if (!uid.getRow()->getCell(column)->getVal(watts, true)) continue;
    sum += watts;
    hasPower = true;
  }
  if (hasPower) return uid.getCell()->setValAndMarkEngineClean(sum);
  uid.getCell()->setBlankAndMarkEngineClean();
}

void KVXELogicTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_LogicConfigTable, m_VccintPower>(uid);
}

// Utilization.

namespace {

template <const KVXETitle& Column>
constexpr auto countOf = &kvxe::sumOfColumn<Tab::m_LogicConfigTable, Column>;

/// All LUTs, from the rows under it, so that the columns are read once.
std::optional<float> sumOfLutRows(const KVXEUID& uid) {
  float sum = 0.0f;
  for (unsigned int i = uid.getRowIndex() + 1; KVXERow* row = uid.getTable()->getRow(i); ++i)
    sum += kvxe::readNumber(row, KVXETab::m_UsedColumn, 0.0f);
  return sum;
}

const std::vector<kvxe::UtilizationRow>& utilizationRows() {
  static const std::string overflow =
      "<html>Utilization exceeds 100%.\nPlease review the usage in Logic table.</html>";
  static const std::vector<kvxe::UtilizationRow> rows{
      {Tab::m_RegistersStr, "FF", countOf<Tab::m_Registers>, nullptr, overflow},
      {Tab::m_LutsStr, "LUT", &sumOfLutRows, nullptr, overflow},
      {Tab::m_LogicStr, "LUT", countOf<Tab::m_LutAsLogic>, nullptr, overflow},
      {Tab::m_ShiftRegistersStr, "LUTRAM", countOf<Tab::m_LutAsSRL>, nullptr, overflow},
      {Tab::m_DistributedRamsStr, "LUTRAM", countOf<Tab::m_LutAsDRAM>, nullptr, overflow},
  };
  return rows;
}

}  // namespace

void KVXELogicTab::initUtilizationTable() {
  auto rows = kvxe::toTableRows(utilizationRows(), &updateUtilizationTable);
  initUtilizationTableRows(rows);
}

void KVXELogicTab::updateUtilizationTable(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of logic")) return;
  kvxe::updateUtilizationCell(uid, utilizationRows().at(uid.getRowIndex() - 1));
}
