// The titles of the tab of the network on chip and the memory controllers.

#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"

using Tab = KVXETarvekNocDdrmcTab;
using Title = const KVXETitle;

Title Tab::m_NocConfigTable("NOC_TABLE", "NoC Customizations");
Title Tab::m_ModuleName("MODULE_NAME", "Module Name");
Title Tab::m_NocClock("NOC_CLOCK", "NoC Clock");
Title Tab::m_NocSwitches("NOC_SWITCHES", "NoC Switches");
Title Tab::m_ReadBandWidth("READ_BAND_WIDTH", "Read Bandwidth (MB/s)");
Title Tab::m_WriteBandWidth("WRITE_BAND_WIDTH", "Write Bandwidth (MB/s)");
Title Tab::m_ToggleRate("TOGGLE_RATE", "Data Toggle Rate");
Title Tab::m_UserComments("USER_COMMENTS", "User Comments");
Title Tab::m_NocPower("NOC_POWER", "NoC Power");
Title Tab::m_ClockBufferPower("CLOCK_BUFFER_POWER", "Clock Buffer Power");

Title Tab::m_DdrmcConfigTable("DDRMC_CONFIG", "DDRMC Customizations");
Title Tab::m_Name("NAME", "Name");
Title Tab::m_DramType("DRAM_TYPE", "DRAM Type");
Title Tab::m_Controller("CONTROLLER", "Controller");
Title Tab::m_Standard("STANDARD", "Standard");
Title Tab::m_Channels("CHANNELS", "Channels");
Title Tab::m_Datarate("DATARATE", "Data Rate");
Title Tab::m_DataWidth("DATA_WIDTH", "Data Width");
Title Tab::m_Ecc("ECC", "ECC");
Title Tab::m_Crypto("CRYPTO", "Encryption");
Title Tab::m_AccessPattern("ACCESS_PATTERN", "Access Pattern");
Title Tab::m_VccsocPower("VCCSOC_POWER", "VCC_SOC Power");
Title Tab::m_VccintioPower("VCCINTIO_POWER", "VCC_IO Power");
Title Tab::m_VccauxPower("VCCAUX_POWER", "VCCAUX Power");

const std::string Tab::m_NocStr = "NoC";
const std::string Tab::m_ClockBufferStr = "NoC Clock Buffers";
const std::string Tab::m_HardMcStr = "DDRMC";
const std::string Tab::m_Ddrmc5Str = "DDRMC5";
const std::string Tab::m_Ddrmc5CStr = "DDRMC5C";
const std::string Tab::m_HbmmcStr = "HBMMC";
