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
Title KVXEClockTab::m_VccioPwr("VCCINTIO_POWER", "VCCINT_IO Power");
Title KVXEClockTab::m_VccauxPwr("VCCAUX_POWER", "VCCAUX Power");

Title KVXEClockTab::m_ClockTagTable("CLOCK_TAG_LIST", "Clock Tags");
Title KVXEClockTab::m_TagCount("TAG_COUNT", "Tags");
Title KVXEClockTab::m_ClockColumnCount("CLOCK_COLUMN_COUNT", "Clock Columns");

const std::string KVXEClockTab::m_FsynStr = "FSYN";
const std::string KVXEClockTab::m_PllStr = "PLL";
const std::string KVXEClockTab::m_DpllStr = "DPLL";
const std::string KVXEClockTab::m_IopllStr = "IOPLL";
const std::string KVXEClockTab::m_Y7PllStr = "Y7PLL";
const std::string KVXEClockTab::m_ClockStr = "Clock";
