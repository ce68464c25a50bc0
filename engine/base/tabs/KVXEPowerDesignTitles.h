#pragma once

#include <string>

#include "engine/base/workbook/KVXETitle.h"

/// The tables, columns and rows of the power design tab beyond those that every tab knows (KVXETab).
struct KVXEPowerDesignTitles {
  static const KVXETitle m_powerSummaryTable;
  static const KVXETitle m_ownVoltageColumn;  ///< of the supply table: the user's while a group decides
  static const KVXETitle m_powerSupplyDesignTable, m_schematicNameColumn, m_psdSuppliesColumn,
      m_psdVoltageColumn, m_psdCurrentColumn, m_psdEstimatedCurrentColumn, m_psdStepLoadColumn,
      m_psdMarginColumn;
  static const KVXETitle m_powerRailConsolidationTable, m_currentSelectionTable, m_internalScalingTable;
  static const KVXETitle m_debugIntDeviceTable, m_debugStrDeviceTable, m_debugFloatDeviceTable,
      m_debugDeviceOptionColumn, m_debugDeviceSelectionColumn, m_debugFloatOptionColumn,
      m_debugFloatSelectionColumn;
  static const KVXETitle m_debugJunctionTempTable, m_debugTempOptionColumn, m_debugTempValueColumn;

  // Rows of the power summary.
  static const std::string m_totalPowerCol, m_staticPowerCol, m_dynamicPowerCol;
  // Rows and choices of the tables that have a single choice.
  static const std::string m_powerRailConsolidationStr, m_currentSelectionStr;
  static const std::string m_totalCurrentStr, m_staticCurrentStr, m_dynamicCurrentStr, m_powerupCurrentStr;
  // Row of the scaling factors.
  static const std::string m_tpfStr;
  // Rows of the junction temperature table.
  static const std::string m_initialTempStr, m_tempAt25Str, m_nonIntLeakageStr, m_calcJunctionTempStr,
      m_maxAmbientTempStr;

  /// What the junction temperature cell says while the status is not valid.
  static const std::string m_invalidJunctionMsg;
};
