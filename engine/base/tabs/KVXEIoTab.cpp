// The IO tab: its titles, columns and tables.

#include "engine/base/tabs/KVXEIoTab.h"

#include <functional>
#include <set>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"

using Title = const KVXETitle;
using KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

Title KVXEIoTab::m_IoConfigTable("IO_SETTINGS", "I/O Settings");
Title KVXEIoTab::m_Name("NAME", "Name", "name");
Title KVXEIoTab::m_IoType("IO_TYPE", "I/O Type", "ioType");
Title KVXEIoTab::m_IoStandard("IO_STANDARD", "I/O Standard", "ioStandard");
Title KVXEIoTab::m_Inputs("INPUTS", "Inputs", "inputs");
Title KVXEIoTab::m_Outputs("OUTPUTS", "Outputs", "outputs");
Title KVXEIoTab::m_Bidirs("BIDIRS", "Bidirs", "bidirs");
Title KVXEIoTab::m_TotalPins("TOTAL_PINS", "Total Pins", "totalPins");
Title KVXEIoTab::m_Clock("CLOCK", "Clock", "clockFreq");
Title KVXEIoTab::m_ToggleRate("TOGGLE_RATE", "Toggle Rate", "toggleRate");
Title KVXEIoTab::m_DataRate("DATA_RATE", "Data Rate", "dataRate");
Title KVXEIoTab::m_OutputEnable("OUTPUT_ENABLE", "Output Enable", "outputEnableRate");
Title KVXEIoTab::m_InputTermination("INPUT_TERMINATION", "Input Termination", "inputTerm");
Title KVXEIoTab::m_OutputTermination("OUTPUT_TERMINATION", "Output Termination", "outputTerm");
Title KVXEIoTab::m_TermDisable("TERM_DISABLE", "Term Disable", "termDisableRate");
Title KVXEIoTab::m_LoadCapacitance("OUTPUT_LOAD", "Output Load (pF)", "outputLoad");
Title KVXEIoTab::m_BankVoltage("BANK_VOLTAGE", "Bank Voltage", "bankVoltage");
Title KVXEIoTab::m_VccoRail("VCCO_RAIL", "VCCO Rail");
Title KVXEIoTab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title KVXEIoTab::m_VccintioPower("VCCINTIO_POWER", "VCCINTIO Power");
Title KVXEIoTab::m_VccauxPower("VCCAUX_POWER", "VCCAUX Power");
Title KVXEIoTab::m_VccoPower("VCCO_POWER", "VCCO Power");
Title KVXEIoTab::m_OffChipPower("OFF_CHIP_POWER", "Off-Chip Power");
Title KVXEIoTab::m_UserComments("USER_COMMENTS", "User Comments");
Title KVXEIoTab::m_OffChipPowerTable("OFF_CHIP_POWER", "Off-Chip Power");

const std::string KVXEIoTab::m_ioStr = "IO";

// Columns.

namespace {

using Tab = KVXEIoTab;

const char* const dataRates[] = {"SDR", "DDR", "Clock"};
const char* const noTermination[] = {"None"};

KVXEColumn withFormula(KVXEColumn column, KVXEFormula formula) {
  column.formula = formula;
  return column;
}

const KVXEColumn leadingColumns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this interface.</html>"),
    withFormula(kvxe::column::choice(Tab::m_IoType, {}, "",
                                     "<html>The kind of bank in which the pins are.\nLeave it blank to take "
                                     "the first kind that has the standard.</html>"),
                &Tab::updateIoType),
    withFormula(kvxe::column::choice(Tab::m_IoStandard, {}, "",
                                     "<html>The IO standard of the pins, which decides the voltage of their "
                                     "bank.</html>"),
                &Tab::updateIoStandard),
};

const KVXEColumn signalColumns[] = {
    kvxe::column::count(Tab::m_Inputs,
                        "<html>The number of input signals. A differential signal has two pins and counts "
                        "once.</html>",
                        kvxe::largestCount),
    kvxe::column::count(Tab::m_Outputs,
                        "<html>The number of output signals. A differential signal has two pins and counts "
                        "once.</html>",
                        kvxe::largestCount),
    kvxe::column::count(Tab::m_Bidirs,
                        "<html>The number of bidirectional signals. A differential signal has two pins and "
                        "counts once.</html>",
                        kvxe::largestCount),
    {.title = &Tab::m_TotalPins,
     .type = CellType::INT,
     .formula = &Tab::updateTotalPins,
     .toolTip = "<html>The number of pins that the interface takes.</html>"},
    kvxe::column::clock(
        Tab::m_Clock,
        "<html>The clock of this interface, from the clock tab.\nAn interface without a clock "
        "has no dynamic power.</html>"),
    kvxe::column::rate(
        Tab::m_ToggleRate, 0.125,
        "<html>The average rate at which the signals switch, relative to their bits: 100% is a "
        "transition with every bit, random data make 50%.\nNot used for clocks.</html>"),
    kvxe::column::choice(Tab::m_DataRate, dataRates, "SDR",
                         "<html>One bit a clock (SDR), two (DDR), or the clock itself, which makes two "
                         "transitions.</html>"),
    kvxe::column::rate(Tab::m_OutputEnable, 1.0,
                       "<html>The percentage of the time that bidirectional signals are driven; for the rest "
                       "they are received.</html>"),
    withFormula(kvxe::column::choice(Tab::m_InputTermination, noTermination, "None",
                                     "<html>The termination of received signals inside the device.</html>"),
                &Tab::updateInputTermination),
    withFormula(
        kvxe::column::choice(Tab::m_OutputTermination, noTermination, "None",
                             "<html>The termination of driven signals at the far end of the line.\nIts "
                             "power is drawn from the bank's supply but does not heat the "
                             "device.</html>"),
        &Tab::updateOutputTermination),
    kvxe::column::rate(
        Tab::m_TermDisable, 0.0,
        "<html>The percentage of the time that the terminations inside the device are switched "
        "off.</html>"),
    {.title = &Tab::m_LoadCapacitance,
     .type = CellType::FLOAT,
     .isEditable = true,
     .number = 5.0,
     .minimum = 0,
     .toolTip = "<html>The capacitance outside the device that each output drives, in picofarads.</html>"},
    {.title = &Tab::m_BankVoltage,
     .type = CellType::FLOAT,
     .formula = &Tab::updateBankVoltage,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip = "<html>The voltage of the bank's supply, which the standard decides.</html>"},
    {.title = &Tab::m_VccoRail,
     .type = CellType::STRING,
     .formula = &Tab::updateBankVoltage,
     .toolTip = "The supply of the bank.",
     .visibility = Visibility::INTERNAL},
    kvxe::column::watts(Tab::m_VccintPower, &Tab::updateIoConfigPowerRow,
                        "Power of the nets in the fabric that the inputs of this interface drive.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccintioPower, &Tab::updateIoConfigPowerRow,
                        "Power that this interface draws from the supply of the IO banks' logic.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccauxPower, &Tab::updateIoConfigPowerRow,
                        "Power that this interface draws from the auxiliary supply.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccoPower, &Tab::updateIoConfigPowerRow,
                        "Power that this interface draws from the supply of its bank and burns on the chip.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_OffChipPower, &Tab::updateIoConfigPowerRow,
                        "<html>The power that this interface draws from the supply of its bank and that "
                        "terminations outside the device burn.</html>"),
    kvxe::column::watts(KVXETab::m_Power, &Tab::updateIoConfigPowerRow,
                        "<html>The power of this interface on the chip.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

}  // namespace

// Tables.

void KVXEIoTab::initTables() {
  KVXETab::init();
  initIoConfigTable();
  initPowerTable();
  initUtilizationTable();
  initOffChipPowerTable();
}

void KVXEIoTab::initIoConfigTable() {
  std::vector<KVXEColumn> columns(std::begin(leadingColumns), std::end(leadingColumns));
  for (const KVXEColumn& column : bankColumns()) columns.push_back(column);
  columns.insert(columns.end(), std::begin(signalColumns), std::end(signalColumns));
  for (KVXEColumn& column : columns)
    if (column.title == &m_TotalPins) column.formula = totalPinsFormula();
  kvxe::createConfigTable(*this, m_IoConfigTable, columns, "IO");
}

/// Every VCCO rail that a standard of the architecture has, the highest voltage first: the digits of their
/// names are those of the voltage, "VCCO135" for 1.35 V.
std::vector<std::string> KVXEIoTab::vccoRails() const {
  std::set<std::string, std::greater<>> rails;
  for (const Bank& bank : banks())
    for (const std::string& standard : bank.standards->getIoList())
      rails.insert(bank.standards->find(standard)->rail);
  return {rails.begin(), rails.end()};
}

void KVXEIoTab::initPowerTable() {
  std::vector<PowerTableRow> rows{
      {"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCINTIO", &updateVccintioActivePowerInPowerTable, &KVXECell::NoFormula},
      {auxiliaryRail(), &updateVccauxActivePowerInPowerTable, &KVXECell::NoFormula},
  };
  const auto firstVccoRow = static_cast<unsigned int>(rows.size()) + 1;
  for (const std::string& rail : vccoRails())
    rows.push_back({rail, &updateVccoActivePowerInPowerTable, &KVXECell::NoFormula});
  m_vccoRun = initPowerTableRows(rows)->getCellAt(firstVccoRow, &m_ActivePowerColumn);
}

void KVXEIoTab::initOffChipPowerTable() {
  const KVXEColumn columns[] = {
      {.title = &m_InternalRailColumn, .type = CellType::STRING, .toolTip = "The supply of the banks."},
      {.title = &m_ActivePowerColumn,
       .type = CellType::FLOAT,
       .formula = &updateVccoActivePowerInPowerTable,
       .unit = Unit::POWER_SHOW,
       .toolTip = "Power that the supply delivers to terminations outside the device."},
  };
  KVXETable* table = createTable(&m_OffChipPowerTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  for (const std::string& rail : vccoRails())
    table->getOrCreateRow(table->getRowCount())
        ->getCell(&m_InternalRailColumn)
        ->setValAndMarkEngineClean(rail);
}

void KVXEIoTab::initUtilizationTable() {
  std::vector<UtilizationTableRow> rows;
  for (const Bank& bank : banks()) rows.push_back({bank.resource, &updateUtilizationTable});
  rows.push_back({m_ioStr, &updateUtilizationTable});
  initUtilizationTableRows(rows);
}
