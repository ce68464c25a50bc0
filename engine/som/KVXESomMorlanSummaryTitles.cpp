// Titles and row texts of the module's summary.

#include "engine/som/KVXESomMorlanSummaryTab.h"

using Title = const KVXETitle;
using Text = const std::string;

// Option and selection share a tag: they go out as one pair.
Title KVXESomMorlanSummaryTab::m_PowerSummaryTable("POWER_SUMMARY", "Power Summary");
Title KVXESomMorlanSummaryTab::m_PowerSummaryOption("POWER_SUMMARY_OPTION", "Option");
Title KVXESomMorlanSummaryTab::m_PowerSummarySelection("POWER_SUMMARY_OPTION", "Selection");

Title KVXESomMorlanSummaryTab::m_ThermalLoadingTable("THERMAL_LOADING", "Thermal Loading");
Title KVXESomMorlanSummaryTab::m_ThermalLoadingTableSM4("THERMAL_LOADING_SM4", "Thermal Loading");
Title KVXESomMorlanSummaryTab::m_ThermalLoadingComponent("COMPONENT", "Component");
Title KVXESomMorlanSummaryTab::m_ThermalLoadingPower("THERMAL_POWER", "Power");

Title KVXESomMorlanSummaryTab::m_VCRequirementsTable("VC_REQUIREMENTS", "Voltage & Current Requirements");
Title KVXESomMorlanSummaryTab::m_BankRail("RAIL", "Rail");
Title KVXESomMorlanSummaryTab::m_BankVoltage("VOLTAGE", "Voltage");
Title KVXESomMorlanSummaryTab::m_BankCurrent("CURRENT", "Current");
Title KVXESomMorlanSummaryTab::m_BankVoltageRange("RANGE", "Range");

Title KVXESomMorlanSummaryTab::m_IoIntfTable("IO_INTF", "IO Interfaces");
Title KVXESomMorlanSummaryTab::m_IoKey("IO_KEY", "Interface");
Title KVXESomMorlanSummaryTab::m_IoValue("IO_VALUE", "Count");

Text KVXESomMorlanSummaryTab::m_somTotalPowerStr = "Total Power";
Text KVXESomMorlanSummaryTab::m_somJunctionTempStr = "Junction Temperature (Tj)";

Text KVXESomMorlanSummaryTab::m_sm6Str = "SM6";
Text KVXESomMorlanSummaryTab::m_sm4Str = "SM4";
Text KVXESomMorlanSummaryTab::m_ddr4Str = "DDR4: U11-U14";
Text KVXESomMorlanSummaryTab::m_lpddr4Str = "LPDDR4";
Text KVXESomMorlanSummaryTab::m_u170Str = "VR: U170";
Text KVXESomMorlanSummaryTab::m_u167Str = "VR: U167";
Text KVXESomMorlanSummaryTab::m_u166Str = "VR: U166";
Text KVXESomMorlanSummaryTab::m_u151Str = "VR: U151";
Text KVXESomMorlanSummaryTab::m_u165Str = "VR: U165";
Text KVXESomMorlanSummaryTab::m_pcbStr = "PCB.1";
Text KVXESomMorlanSummaryTab::m_emmcStr = "eMMC: U133";

Text KVXESomMorlanSummaryTab::m_vccSomStr = "VCC_SOM";
Text KVXESomMorlanSummaryTab::m_vccoHpaStr = "VCCO_HPA";
Text KVXESomMorlanSummaryTab::m_vccoHpbStr = "VCCO_HPB";
Text KVXESomMorlanSummaryTab::m_vccoHpcStr = "VCCO_HPC";
Text KVXESomMorlanSummaryTab::m_vccoHdaStr = "VCCO_HDA";
Text KVXESomMorlanSummaryTab::m_vccoHdbStr = "VCCO_HDB";
Text KVXESomMorlanSummaryTab::m_vccoHdcStr = "VCCO_HDC";
Text KVXESomMorlanSummaryTab::m_vccBattStr = "VCC_BATT";

Text KVXESomMorlanSummaryTab::m_qspiStr = "QSPI";
Text KVXESomMorlanSummaryTab::m_emmcSd0Str = "eMMC/SD0";
Text KVXESomMorlanSummaryTab::m_spiStr = "SPI";
Text KVXESomMorlanSummaryTab::m_i2cStr = "I2C";
Text KVXESomMorlanSummaryTab::m_usbStr = "USB";
Text KVXESomMorlanSummaryTab::m_gpiosStr = "GPIOs";
Text KVXESomMorlanSummaryTab::m_gpioLedsStr = "GPIO LEDs";
Text KVXESomMorlanSummaryTab::m_dualGemStr = "Dual GEM";
Text KVXESomMorlanSummaryTab::m_bank50xStr = "Bank 50x";
