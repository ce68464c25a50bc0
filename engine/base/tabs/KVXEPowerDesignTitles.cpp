// The titles and texts of the power design.

#include "engine/base/tabs/KVXEPowerDesignTitles.h"

using Title = const KVXETitle;
using Titles = KVXEPowerDesignTitles;

Title Titles::m_powerSummaryTable("POWER_SUMMARY", "Power Summary");

Title Titles::m_ownVoltageColumn("OWN_VOLTAGE");

// The double blanks in these heads are meant: they say where the heads break.
Title Titles::m_powerSupplyDesignTable("POWER_SUPPLY_DESIGN", "Power Delivery Design");
Title Titles::m_schematicNameColumn("SCHEMATIC_NAME", "Schematic Name");
Title Titles::m_psdSuppliesColumn("PSD_SUPPLIES", "Supplies");
Title Titles::m_psdVoltageColumn("PSD_VOLTAGE", "Voltage");
Title Titles::m_psdCurrentColumn("PSD_CURRENT", "Available  (A)");
Title Titles::m_psdEstimatedCurrentColumn("PSD_ESTIMATED_CURRENT", "Estimated  (A)");
Title Titles::m_psdStepLoadColumn("PSD_STEP_LOAD", "Step Load  (A)");
Title Titles::m_psdMarginColumn("PSD_MARGIN", "Margin  (A)");

Title Titles::m_powerRailConsolidationTable("POWER_RAIL_CONSOLIDATION");
Title Titles::m_currentSelectionTable("CURRENT_SELECTION");
Title Titles::m_internalScalingTable("INTERNAL_SCALING", "Internal Scaling", "SCALING_FACTORS");

Title Titles::m_debugIntDeviceTable("DEBUG_INT_RESOURCE_TABLE");
Title Titles::m_debugStrDeviceTable("DEBUG_STR_RESOURCE_TABLE");
Title Titles::m_debugFloatDeviceTable("DEBUG_FLOAT_RESOURCE_TABLE");
Title Titles::m_debugDeviceOptionColumn("DEBUG_DEVICE_OPTION", "Key");
Title Titles::m_debugDeviceSelectionColumn("DEBUG_DEVICE_SELECTION", "Value");
Title Titles::m_debugFloatOptionColumn("DEBUG_FLOAT_OPTION", "Key");
Title Titles::m_debugFloatSelectionColumn("DEBUG_FLOAT_SELECTION", "Value");

Title Titles::m_debugJunctionTempTable("DEBUG_JUNCTION_TEMP_TABLE", "Debug Junction Temp Table");
Title Titles::m_debugTempOptionColumn("DEBUG_TEMP_OPTION", "Key");
Title Titles::m_debugTempValueColumn("DEBUG_TEMP_VALUE", "value");

const std::string Titles::m_totalPowerCol = "Total";
const std::string Titles::m_staticPowerCol = "Static";
const std::string Titles::m_dynamicPowerCol = "Dynamic";

const std::string Titles::m_powerRailConsolidationStr = "Power Rail Consolidation";
const std::string Titles::m_currentSelectionStr = "Estimated Current";
const std::string Titles::m_totalCurrentStr = "Total";
const std::string Titles::m_staticCurrentStr = "Static";
const std::string Titles::m_dynamicCurrentStr = "Dynamic";
const std::string Titles::m_powerupCurrentStr = "Powerup";

const std::string Titles::m_tpfStr = "TPF";

const std::string Titles::m_initialTempStr = "INITIAL_TEMP";
const std::string Titles::m_tempAt25Str = "TEMP_AT_25";
const std::string Titles::m_nonIntLeakageStr = "NON_INT_LEAKAGE";
const std::string Titles::m_calcJunctionTempStr = "CALC_JUNCTION_TEMP";
const std::string Titles::m_maxAmbientTempStr = "MAX_AMBIENT_TEMP";

const std::string Titles::m_invalidJunctionMsg =
    "<html>Estimates are calculated up to the absolute maximum temperature after which point 125+ is shown "
    "in red and the power and thermal estimates are no longer valid.<html>";
