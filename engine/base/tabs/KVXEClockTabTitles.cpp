// The titles and texts of the clock tab.

#include "engine/base/tabs/KVXEClockTab.h"

using Title = const KVXETitle;

Title KVXEClockTab::m_ClockConfigTable("CLOCK_CONFIGURATION", "Clock Settings");
Title KVXEClockTab::m_Name("NAME", "Name", "name");
Title KVXEClockTab::m_Source("SOURCE", "Source", "src");
Title KVXEClockTab::m_ClockFreq("CLOCK_FREQUENCY", "Frequency (MHz)", "freq");
Title KVXEClockTab::m_Fanout("FANOUT");
Title KVXEClockTab::m_FanoutPerSite("FANOUT_PER_SITE", "Fanout/Site", "FoPerSite");
Title KVXEClockTab::m_ClkBufEnable("CLOCK_BUFFER_ENABLE", "Clock Buffer Enable", "enableRate");
Title KVXEClockTab::m_SliceClkEnable("SLICE_CLOCK_ENABLE", "Slice Clock Enable", "sliceEnableRate");
Title KVXEClockTab::m_VccintPwr("VCCINT_POWER", "VCCINT Power");
Title KVXEClockTab::m_VccramPwr("VCCRAM_POWER", "VCC_RAM Power");
Title KVXEClockTab::m_ClockMgr("CLOCK_MANAGER");
Title KVXEClockTab::m_ClockTag("CLOCK_TAG");
Title KVXEClockTab::m_UserComments("USER_COMMENTS", "User Comments");

Title KVXEClockTab::m_ClkMgrTable("CLOCK_MANAGER_CONFIGURATION", "Clock Manager Customizations");
Title KVXEClockTab::m_ClkMgrType("CLKMGR_TYPE", "Type", "clkmgrtype");
Title KVXEClockTab::m_RefClock("REF_CLOCK", "Ref Clock", "refClock");
Title KVXEClockTab::m_PhaseShift("PHASE_SHIFT", "Phase Shift", "phaseShift");
Title KVXEClockTab::m_DivideCounter("DIV_COUNTER", "Divide Counter", "divCounter");
Title KVXEClockTab::m_MultiplyCounter("MULT_COUNTER", "Multiply Counter", "multCounter");
Title KVXEClockTab::m_VcoFreq("VCO_FREQUENCY", "VCO Frequency (MHz)", "vcoFrequency");
Title KVXEClockTab::m_VcoRange("VCO_RANGE");
Title KVXEClockTab::m_Clk0Divide("CLK0DIV", "Clock 0 Divide", "clock0Div");
Title KVXEClockTab::m_Clk1Divide("CLK1DIV", "Clock 1 Divide", "clock1Div");
Title KVXEClockTab::m_Clk2Divide("CLK2DIV", "Clock 2 Divide", "clock2Div");
Title KVXEClockTab::m_Clk3Divide("CLK3DIV", "Clock 3 Divide", "clock3Div");
Title KVXEClockTab::m_Clk4Divide("CLK4DIV", "Clock 4 Divide", "clock4Div");
Title KVXEClockTab::m_Clk5Divide("CLK5DIV", "Clock 5 Divide", "clock5Div");
Title KVXEClockTab::m_Clk6Divide("CLK6DIV", "Clock 6 Divide", "clock6Div");
Title KVXEClockTab::m_Clk0FanoutRow("CLK0FORow", "Clock 0 Fanout Row");
Title KVXEClockTab::m_Clk1FanoutRow("CLK1FORow", "Clock 1 Fanout Row");
Title KVXEClockTab::m_Clk2FanoutRow("CLK2FORow", "Clock 2 Fanout Row");
Title KVXEClockTab::m_Clk3FanoutRow("CLK3FORow", "Clock 3 Fanout Row");
Title KVXEClockTab::m_Clk4FanoutRow("CLK4FORow", "Clock 4 Fanout Row");
Title KVXEClockTab::m_Clk5FanoutRow("CLK5FORow", "Clock 5 Fanout Row");
Title KVXEClockTab::m_Clk6FanoutRow("CLK6FORow", "Clock 6 Fanout Row");
Title KVXEClockTab::m_InputClkName("INPUT_CLOCK");
Title KVXEClockTab::m_OutputClkNames("OUTPUT_CLOCKS");
Title KVXEClockTab::m_PowerDown("POWER_DOWN", "Power Down", "powerDownRate");
Title KVXEClockTab::m_VccioPwr("VCCINTIO_POWER", "VCCINT_IO Power");
Title KVXEClockTab::m_VccauxPwr("VCCAUX_POWER", "VCCAUX Power");

Title KVXEClockTab::m_ClockTagTable("CLOCK_TAG_LIST", "Clock Tags");
Title KVXEClockTab::m_TagCount("TAG_COUNT", "Tags");
Title KVXEClockTab::m_ClockColumnCount("CLOCK_COLUMN_COUNT", "Clock Columns");
Title KVXEClockTab::m_RefClockCount("REF_CLOCK_COUNT", "Ref Clocks");

const std::string KVXEClockTab::m_FsynStr = "FSYN";
const std::string KVXEClockTab::m_PllStr = "PLL";
const std::string KVXEClockTab::m_DpllStr = "DPLL";
const std::string KVXEClockTab::m_IopllStr = "IOPLL";
const std::string KVXEClockTab::m_Y7PllStr = "Y7PLL";
const std::string KVXEClockTab::m_ClockStr = "Clock";
