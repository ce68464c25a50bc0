// The titles of the tables and columns that tabs share.

#include "engine/base/workbook/KVXETab.h"

using Title = const KVXETitle;

Title KVXETab::m_RowID("ROW_ID", "Row");
Title KVXETab::m_SpacerTable("SPACER");

Title KVXETab::m_UtilTable("UTILIZATION", "Utilization");
Title KVXETab::m_TypeColumn("TYPE", "Type");
Title KVXETab::m_AvailColumn("AVAILABLE", "Available");
Title KVXETab::m_UsedColumn("USED", "Used");
Title KVXETab::m_UtilColumn("UTILIZATION", "Utilization (%)");
Title KVXETab::m_BlockPowerColumn("POWER", "Power (W)");

Title KVXETab::m_PowerTable("POWER", "Power");
Title KVXETab::m_RailColumn("RAIL", "Rail");
Title KVXETab::m_InternalRailColumn("INTERNAL_RAIL", "Internal Rail");
Title KVXETab::m_VoltageColumn("VOLTAGE", "Voltage");
Title KVXETab::m_ActivePowerColumn("ACTIVE", "Active (W)");
Title KVXETab::m_StaticPowerColumn("STATIC", "Static (W)");
Title KVXETab::m_TotalPowerColumn("TOTAL", "Total (W)");

Title KVXETab::m_UnitsTable("UNITS");
Title KVXETab::m_UnitsQuantity("QUANTITY");
Title KVXETab::m_UnitsEnum("ENUM");
Title KVXETab::m_UnitsMultiplier("MULTIPLIER");
Title KVXETab::m_UnitsOffset("OFFSET");
Title KVXETab::m_UnitsSuffix("UNIT");

// The double blanks in these heads are meant: they say where the heads break.
Title KVXETab::m_powerSupplyTable("POWER_DESIGN", "Power Rail Characteristics");
Title KVXETab::m_supplyColumn("SUPPLY", "Supply");
Title KVXETab::m_internalSupplyColumn("INTERNAL_SUPPLY", "Internal Supply");
Title KVXETab::m_voltageColumn("VOLTAGE", "Voltage");
Title KVXETab::m_minVoltageColumn("MIN_VOLTAGE", "Min  Voltage");
Title KVXETab::m_maxVoltageColumn("MAX_VOLTAGE", "Max  Voltage");
Title KVXETab::m_stepLoadColumn("STEP_LOAD", "Step Load %");
Title KVXETab::m_staticCurrentColumn("STATIC", "Static  (A)");
Title KVXETab::m_dynamicCurrentColumn("DYNAMIC", "Dynamic  (A)");
Title KVXETab::m_totalCurrentColumn("TOTAL", "Total  (A)");
Title KVXETab::m_powerupCurrentColumn("POWERUP", "Powerup  (A)");
Title KVXETab::m_powerRailGroupColumn("POWER_RAIL_GROUP");
Title KVXETab::m_voltageFromLvrColumn("VOLTAGE_FROM_LVR");

Title KVXETab::m_deviceTable("DEVICE", "Part");
Title KVXETab::m_optionColumn("OPTION", "Option");
Title KVXETab::m_selectionColumn("SELECTION", "Selection");

Title KVXETab::m_StoreInfoTable("POWER_INFO");
Title KVXETab::m_KeyCol("KEY");
Title KVXETab::m_ValueCol("VALUE");

Title KVXETab::m_Power("POWER", "Power (W)");
