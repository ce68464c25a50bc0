// Titles, row texts and messages of the summary tabs.

#include "engine/base/tabs/KVXESummaryTab.h"

using Title = const KVXETitle;
using Text = const std::string;

Title KVXESummaryTab::m_deviceSelectionTable("DEVICE_SELECTION", "Device Selection");

Title KVXESummaryTab::m_summaryTableHeader("SUMMARY_HEADER", "Summary");
Title KVXESummaryTab::m_summaryOptionColumn("OPTION", "Option");
Title KVXESummaryTab::m_summarySelectionColumn("SELECTION", "Selection");

Title KVXESummaryTab::m_envTableHeader("ENV_HEADER", "Environment");
Title KVXESummaryTab::m_hbmEnvTableHeader("HBM_ENV_HEADER", "HBM Summary and Environment");
Title KVXESummaryTab::m_envTypeColumn("ENV_TYPE", " ");
Title KVXESummaryTab::m_envTempColumn("ENV_TEMP", "User Choice", "envTemp");
Title KVXESummaryTab::m_envValColumn("ENV_VAL", "FPGA", "envVal");

Title KVXESummaryTab::m_rcxTableHeader("RCX", "RCX");
Title KVXESummaryTab::m_rcxTypeColumn("RCX_TYPE", "Rcx Type");
Title KVXESummaryTab::m_rcxOptionColumn("RCX_OPTION", "Rcx Option");

Title KVXESummaryTab::m_onchipStaticTableHeader("ONCHIP_STATIC_HEADER", "On-Chip Static Power");
Title KVXESummaryTab::m_onchipDynamicTableHeader("ONCHIP_DYNAMIC_HEADER", "On-Chip Dynamic Power");
Title KVXESummaryTab::m_onchipTableHeader("ONCHIP_HEADER", "On-Chip Power");
Title KVXESummaryTab::m_onchipResourceColumn("RESOURCE", "Resource");
Title KVXESummaryTab::m_onchipPowerColumn("POWER_W", "Power ");
Title KVXESummaryTab::m_onchipPowerPercentageColumn("POWER_PERCENTAGE", "Power");

Title KVXESummaryTab::m_resourceTable("RESOURCES", "Resources");
Title KVXESummaryTab::m_resourceTypeColumn("TYPE", "Type");
Title KVXESummaryTab::m_resourceAvailCountColumn("AVAILABLE_COUNT", "Available Count");
Title KVXESummaryTab::m_resourceUsedCountColumn("USED_COUNT", "Used Count");
Title KVXESummaryTab::m_resourceUtilColumn("UTILIZATION", "Utilization (%)");

Text KVXESummaryTab::m_onChipPowerStr = "Total On-Chip Power";
Text KVXESummaryTab::m_aplxOnChipPowerStr = "APLX On-Chip Power";
Text KVXESummaryTab::m_staticOnChipPowerStr = "Static Power";
Text KVXESummaryTab::m_dynamicOnChipPowerStr = "Dynamic Power";
Text KVXESummaryTab::m_junctionTempStr = "Junction Temperature";
Text KVXESummaryTab::m_thermalMarginStr = "Thermal Margin";
Text KVXESummaryTab::m_thermalPowerMarginStr = "Thermal Power Margin";
Text KVXESummaryTab::m_thermalPowerMarginWithExcursionStr = "Thermal Power Margin with excursion to 110C";
Text KVXESummaryTab::m_characterizationStr = "Characterization";

Text KVXESummaryTab::m_AmbientTempStr = "Ambient Temperature";
Text KVXESummaryTab::m_thetaJaStr = "Effective Theta JA";
Text KVXESummaryTab::m_maxJunctionTempStr = "Max. Junction Temperature";
Text KVXESummaryTab::m_maxJunctionTempWithExcursionStr = "Max. Junction Temperature with Excursion to 110C";
Text KVXESummaryTab::m_PowerBudgetStr = "Design Power Budget";

Text KVXESummaryTab::m_hbmOnChipPowerStr = "HBM On-Chip Power";
Text KVXESummaryTab::m_hbmJunctionTempStr = "HBM Junction Temperature";
Text KVXESummaryTab::m_hbmTjOverrideStr = "HBM Tj Override";

Text KVXESummaryTab::m_rcxUsageStr = "RCX Usage";

Text KVXESummaryTab::m_userOverrideOffStr = "User Override OFF";
Text KVXESummaryTab::m_userOverrideOnStr = "User Override ON";

Text KVXESummaryTab::m_staticKeyStr = "STATIC";
Text KVXESummaryTab::m_dynamicKeyStr = "DYNAMIC";
Text KVXESummaryTab::m_totalKeyStr = "TOTAL";

Text KVXESummaryTab::m_lvrImportButtonUid = "LvrImportButtonUid";
Text KVXESummaryTab::m_exportPwrReportDialogLid = "ExportPwrReport";
Text KVXESummaryTab::m_resetToDefaultLid = "RESET_TO_DEFAULT";
Text KVXESummaryTab::m_exportzcfWDialogLid = "ExportZCF";
Text KVXESummaryTab::m_powerDesignXmlExportButtonUid = "PowerDesignXmlExportButtonUid";

const char* const KVXESummaryTab::m_negativeMarginMsg =
    "<html>Thermal Margin is in excess of the maximum accepted range for this device Grade.\n Thermal margin "
    "is "
    "negative when estimated junction temperature exceeds the maximum specified value.</html>";
