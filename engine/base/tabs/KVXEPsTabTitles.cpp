#include "engine/base/tabs/KVXEPsTab.h"

using Title = const KVXETitle;
using Text = const std::string;

Title KVXEPsTab::m_PsStateSummaryTable("PS_STATE_SUMMARY", "Power Status & Summary");
Title KVXEPsTab::m_PsStateSummaryDomainCol("DOMAIN", "Domain");
Title KVXEPsTab::m_PsStateSummaryStateCol("STATE", "State");
Title KVXEPsTab::m_PsStateSummaryPowerCol("POWER", "Power");

Title KVXEPsTab::m_PsProcessorTable("PS_PROCESSORS", "Processors");
Title KVXEPsTab::m_PsPeripheralTable("PS_PERIPHERALS", "Interconnect & Peripherals");
Title KVXEPsTab::m_PsPllTable("PS_PLLS", "PLLs");
Title KVXEPsTab::m_Block("BLOCK", "Block");
Title KVXEPsTab::m_Count("COUNT", "In Use");
Title KVXEPsTab::m_Frequency("FREQUENCY", "Frequency (MHz)");
Title KVXEPsTab::m_Load("LOAD", "Load");
Title KVXEPsTab::m_CorePower("CORE_POWER", "Core Power");
Title KVXEPsTab::m_PadPower("PAD_POWER", "Pad Power");
Title KVXEPsTab::m_BiasPower("BIAS_POWER", "Bias Power");

Title KVXEPsTab::m_PsMemoryTable("PS_MEMORY_INTERFACE", "Memory Interface");
Title KVXEPsTab::m_MemoryOption("OPTION", "Option");
Title KVXEPsTab::m_MemorySelection("SELECTION", "Selection");

Text KVXEPsTab::m_pmcStr = "Platform Management Controller";
Text KVXEPsTab::m_lpdStr = "Low Power Domain";
Text KVXEPsTab::m_fpdStr = "Full Power Domain";
Text KVXEPsTab::m_batteryStr = "Battery Power Domain";
Text KVXEPsTab::m_onStr = "ON";
Text KVXEPsTab::m_offStr = "OFF";
Text KVXEPsTab::m_memoryTypeStr = "Memory Type";
Text KVXEPsTab::m_dataWidthStr = "Data Width";
Text KVXEPsTab::m_dataRateStr = "Data Rate";
Text KVXEPsTab::m_activityStr = "Activity";
