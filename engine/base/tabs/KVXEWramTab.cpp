#include "engine/base/tabs/KVXEWramTab.h"

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"

using Title = const KVXETitle;

Title KVXEWramTab::m_WramConfigTable("WRAM_CONFIGURATION", "WideRAM Settings");
Title KVXEWramTab::m_Name("NAME", "Name", "name");
Title KVXEWramTab::m_WramCount("WRAM_COUNT", "WRAMs", "count");
Title KVXEWramTab::m_CascadeGroupSize("CASCADE_GROUP_SIZE", "Cascade Group Size", "cascade");
Title KVXEWramTab::m_Latency("LATENCY", "Latency", "pipelineRegs");
Title KVXEWramTab::m_Mode("MODE", "Mode", "mode");
Title KVXEWramTab::m_AutoSleep("AUTO_SLEEP", "Auto Sleep", "autoSleep");
Title KVXEWramTab::m_SleepRate("SLEEP_RATE", "Sleep Rate", "sleepRate");
Title KVXEWramTab::m_AvgInactiveCycles("AVG_INACTIVE_CYCLES", "Avg Inactive Cycles");
Title KVXEWramTab::m_InputToggleRate("INPUT_TOGGLE_RATE", "Input Toggle Rate", "inputToggleRate");
Title KVXEWramTab::m_OutputToggleRate("OUTPUT_TOGGLE_RATE", "Output Toggle Rate", "toggleRate");
Title KVXEWramTab::m_Clock("CLOCK", "Clock", "clockFreq");
Title KVXEWramTab::m_PortADataWidth("PORT_A_DATA_WIDTH", "Port A Data Width", "portAwidth");
Title KVXEWramTab::m_PortAEnableRate("PORT_A_ENABLE_RATE", "Port A Enable Rate", "portAenableRate");
Title KVXEWramTab::m_PortAWriteEnable("PORT_A_WRITE_ENABLE", "Port A Write Enable", "portAwriteRate");
Title KVXEWramTab::m_PortBDataWidth("PORT_B_DATA_WIDTH", "Port B Data Width", "portBwidth");
Title KVXEWramTab::m_PortBEnableRate("PORT_B_ENABLE_RATE", "Port B Enable Rate", "portBenableRate");
Title KVXEWramTab::m_PortBWriteEnable("PORT_B_WRITE_ENABLE", "Port B Write Enable", "portBwriteRate");
Title KVXEWramTab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title KVXEWramTab::m_VccRamPower("VCCRAM_POWER", "VCC_RAM Power");
Title KVXEWramTab::m_UserComments("USER_COMMENTS", "User Comments");

const std::string KVXEWramTab::m_wramStr = "WRAM";

// Columns.

namespace {

using Tab = KVXEWramTab;

constexpr double DefaultRate = 0.125;
constexpr double DefaultEnableRate = 0.25;
constexpr double LargestCascade = 16;
constexpr double LongestLatency = 16;

const char* const modes[] = {"TDP", "SDP", "SDP_ECC"};
const char* const yesNo[] = {"Yes", "No"};

KVXEColumn number(KVXEColumn column, double start) {
  column.number = start;
  return column;
}

KVXEColumn widthColumn(const KVXETitle& title, const char* toolTip) {
  constexpr double Widest = 72;
  KVXEColumn column = number(kvxe::column::count(title, toolTip, Widest), Widest);
  column.minimum = 1;
  return column;
}

const KVXEColumn wramColumns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
    kvxe::column::count(Tab::m_WramCount, "<html>The number of WRAMs that this module uses.</html>",
                        kvxe::largestCount),
    kvxe::column::count(
        Tab::m_CascadeGroupSize,
        "<html>The number of WRAMs of this module that form one deep memory.\nOnly one WRAM of "
        "a cascade is accessed at a time. Leave it blank for WRAMs that stand alone.</html>",
        LargestCascade),
    number(kvxe::column::count(Tab::m_Latency,
                               "<html>The clocks from an address to its data: one, and one more for each "
                               "pipeline register behind the outputs.</html>",
                               LongestLatency),
           1),
    kvxe::column::choice(Tab::m_Mode, modes, "SDP",
                         "<html>The ports of the WRAMs: true dual port (TDP), or simple dual port (SDP), in "
                         "which PortA is the read port and PortB is the write port, with or without error "
                         "correction (ECC).</html>"),
    kvxe::column::choice(Tab::m_AutoSleep, yesNo, "No",
                         "<html>Whether the WRAMs fall asleep by themselves while they are not "
                         "accessed.</html>"),
    kvxe::column::rate(Tab::m_SleepRate, 0.0,
                       "<html>The percentage of the time that the WRAMs are asleep. Used with Auto Sleep "
                       "only.</html>"),
    {.title = &Tab::m_AvgInactiveCycles,
     .type = KVXEEnums::CellType::FLOAT,
     .isEditable = true,
     .minimum = 1,
     .toolTip = "<html>The number of clocks that the WRAMs stay asleep on average before an access wakes "
                "them up. Used with Auto Sleep only.</html>"},
    kvxe::column::rate(Tab::m_InputToggleRate, DefaultRate,
                       "<html>The average rate at which the data and address inputs switch, relative to the "
                       "clock.</html>"),
    kvxe::column::rate(Tab::m_OutputToggleRate, DefaultRate,
                       "<html>The average rate at which the data outputs switch, relative to the accesses of "
                       "their port.</html>"),
    kvxe::column::clock(Tab::m_Clock,
                        "<html>The clock of both ports, from the clock tab.\nA module without a clock has no "
                        "dynamic power.</html>"),
    widthColumn(Tab::m_PortADataWidth, "<html>The width of PortA in bits.</html>"),
    kvxe::column::rate(Tab::m_PortAEnableRate, DefaultEnableRate,
                       "<html>The percentage of the time that PortA is enabled.</html>"),
    kvxe::column::rate(Tab::m_PortAWriteEnable, DefaultEnableRate,
                       "<html>The percentage of the accesses of PortA that write.\nNot used in SDP "
                       "configurations as PortA is the read port.</html>"),
    widthColumn(Tab::m_PortBDataWidth, "<html>The width of PortB in bits.</html>"),
    kvxe::column::rate(Tab::m_PortBEnableRate, DefaultEnableRate,
                       "<html>The percentage of the time that PortB is enabled.</html>"),
    kvxe::column::rate(Tab::m_PortBWriteEnable, DefaultEnableRate,
                       "<html>The percentage of the accesses of PortB that write.\nNot used in SDP "
                       "configurations as PortB is the write port.</html>"),
};

const kvxe::UtilizationRow utilization{
    .type = Tab::m_wramStr,
    .resource = "WRAM",
    .countUsed = &kvxe::sumOfColumn<Tab::m_WramConfigTable, Tab::m_WramCount>,
    .overflow = "<html>Utilization exceeds 100%.\nPlease review the usage in WRAM table.</html>"};

}  // namespace

void KVXEWramTab::initTables(KVXEFormula power) {
  KVXETab::init();
  std::vector<KVXEColumn> columns(std::begin(wramColumns), std::end(wramColumns));
  columns.push_back(
      kvxe::column::watts(m_VccintPower, power,
                          "<html>The power that this module draws from the core supply: its WRAMs without "
                          "their arrays, and the nets at their ports.</html>"));
  columns.push_back(
      kvxe::column::watts(m_VccRamPower, power,
                          "<html>The power that this module draws from the supply of the memories.</html>"));
  columns.push_back(kvxe::column::comments(m_UserComments));
  kvxe::createConfigTable(*this, m_WramConfigTable, columns, "WideRAM");
  std::vector<PowerTableRow> rails{
      {"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCRAM", &updateVccramActivePowerInPowerTable, &KVXECell::NoFormula},
  };
  initPowerTableRows(rails);
  std::vector<UtilizationTableRow> used{{m_wramStr, &updateUtilizationTable}};
  initUtilizationTableRows(used);
}

// Rows.

void KVXEWramTab::writePower(const KVXEUID& uid, std::optional<float> vccint, std::optional<float> vccram) {
  kvxe::writeResult(uid.getRow(), m_VccintPower, vccint);
  kvxe::writeResult(uid.getRow(), m_VccRamPower, vccram);
}

// Rails and utilization.

void KVXEWramTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_WramConfigTable, m_VccintPower>(uid);
}
void KVXEWramTab::updateVccramActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_WramConfigTable, m_VccRamPower>(uid);
}

void KVXEWramTab::updateUtilizationTable(const KVXEUID& uid) {
  if (kvxe::isInTable(uid, m_UtilTable, "utilization of wide memories"))
    kvxe::updateUtilizationCell(uid, utilization);
}
