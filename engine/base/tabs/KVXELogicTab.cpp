#include "engine/base/tabs/KVXELogicTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Unit;
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

KVXEColumn countColumn(const KVXETitle& title, const char* toolTip) {
  return {.title = &title, .type = INT, .isEditable = true, .minimum = 0, .toolTip = toolTip};
}

// The formulas of the last two are the architecture's.
const KVXEColumn logicColumns[] = {
    {.title = &Tab::m_Name,
     .type = STRING,
     .isEditable = true,
     .toolTip = "<html>The name of this module.</html>"},
    {.title = &Tab::m_Clock,
     .type = STRING,
     .isEditable = true,
     .formula = &KVXEClockTab::updateClockDropdown,
     .isDropdown = true,
     .toolTip = "<html>The clock of this module, from the clock tab.\nA module without a clock has no "
                "dynamic power.</html>"},
    countColumn(Tab::m_LutAsLogic, "<html>The number of LUTs that this module uses as logic.</html>"),
    countColumn(Tab::m_LutAsSRL, "<html>The number of LUTs that this module uses as shift registers.</html>"),
    countColumn(Tab::m_LutAsDRAM,
                "<html>The number of LUTs that this module uses as distributed RAMs.</html>"),
    countColumn(Tab::m_Registers, "<html>The number of registers that this module uses.</html>"),
    {.title = &Tab::m_ToggleRate,
     .type = FLOAT,
     .isEditable = true,
     .unit = Unit::PERCENTAGE_SHOW,
     .number = DefaultToggleRate,
     .minimum = 0,
     .maximum = 2,
     .toolTip =
         "<html>The rate at which the outputs of this module switch, relative to the clock.\n100% is one "
         "transition in each clock cycle; most logic lies below 25%, a free running toggle at 100%.</html>"},
    {.title = &Tab::m_RoutingComplexity,
     .type = FLOAT,
     .isEditable = true,
     .number = DefaultRoutingComplexity,
     .minimum = 0,
     .toolTip = "<html>How much interconnect the nets of this module need on average:\n10 is medium, 12 is "
                "high.</html>"},
    {.title = &Tab::m_VccintPower,
     .type = FLOAT,
     .formula = &Tab::updateVccintPowerRow,
     .unit = Unit::POWER_SHOW,
     .toolTip =
         "<html>The power that this module draws from the core supply: its logic and its signals.</html>"},
    {.title = &Tab::m_UserComments, .type = STRING, .isEditable = true, .toolTip = "Any text of your own."},
    {.title = &Tab::m_LogicPower,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Power inside the LUTs and registers.",
     .visibility = Visibility::INTERNAL},
    {.title = &Tab::m_SignalPower,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Power of the nets that the LUTs and registers drive.",
     .visibility = Visibility::INTERNAL},
};

}  // namespace

void KVXELogicTab::initTables(KVXEFormula logicPower, KVXEFormula signalPower) {
  KVXETab::init();
  initLogicConfigTable(logicPower, signalPower);
  initPowerTable();
  initUtilizationTable();
}

void KVXELogicTab::initLogicConfigTable(KVXEFormula logicPower, KVXEFormula signalPower) {
  KVXETable* table = createTable(&m_LogicConfigTable, true, false, true, GridComponentType::TABLE);
  table->addColumns(logicColumns);
  table->getHeaderRow()->getDefaultCell(&m_LogicPower)->assignFormula(logicPower);
  table->getHeaderRow()->getDefaultCell(&m_SignalPower)->assignFormula(signalPower);
  table->setTabWidgetTitle("Logic");
  table->setPilotColumnTitle(&m_Name);
  table->setHasTableEditingFeatures(true);
  table->getOrCreateRow(RowCount);
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
  const auto count = [row](const KVXETitle& column) {
    int number = 0;
    return row->getCell(&column)->getVal(number, true) ? number : 0;
  };
  LogicRow use{.megahertz = *megahertz,
               .luts = count(m_LutAsLogic),
               .shiftRegisters = count(m_LutAsSRL),
               .distributedRams = count(m_LutAsDRAM),
               .registers = count(m_Registers)};
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
  if (!kvxe::isInTable(uid, m_PowerTable, "power of the logic tab")) return;
  uid.getCell()->setValAndMarkEngineClean(uid.getTab()->sumColumn(&m_LogicConfigTable, &m_VccintPower));
}

// Utilization.

namespace {

template <const KVXETitle& Column>
std::optional<float> sumOfColumn(const KVXEUID& uid) {
  return uid.getTab()->sumColumn(&KVXELogicTab::m_LogicConfigTable, &Column);
}

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
      {KVXELogicTab::m_RegistersStr, "FF", &sumOfColumn<KVXELogicTab::m_Registers>, nullptr, overflow},
      {KVXELogicTab::m_LutsStr, "LUT", &sumOfLutRows, nullptr, overflow},
      {KVXELogicTab::m_LogicStr, "LUT", &sumOfColumn<KVXELogicTab::m_LutAsLogic>, nullptr, overflow},
      {KVXELogicTab::m_ShiftRegistersStr, "LUTRAM", &sumOfColumn<KVXELogicTab::m_LutAsSRL>, nullptr,
       overflow},
      {KVXELogicTab::m_DistributedRamsStr, "LUTRAM", &sumOfColumn<KVXELogicTab::m_LutAsDRAM>, nullptr,
       overflow},
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
