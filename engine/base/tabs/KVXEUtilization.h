#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXETab.h"

/// The utilization tables of the estimation tabs: what a row counts is declared, the rest is the same for
/// all.
namespace kvxe {

/// One row of a utilization table.
struct UtilizationRow {
  std::string type;      ///< text of the type column, and the key by which other tabs find the row
  std::string resource;  ///< the device's name of what is counted; empty for a row without a limit
  std::optional<float> (*countUsed)(const KVXEUID& uid) =
      nullptr;  ///< the used count; nothing leaves it blank
  std::optional<float> (*sumPower)(const KVXEUID& uid) = nullptr;  ///< watts of what is used, as above
  std::string overflow;  ///< warning of a row that uses more than the device has
};

/// The rows as KVXETab::initUtilizationTableRows takes them.
std::vector<KVXETab::UtilizationTableRow> toTableRows(std::span<const UtilizationRow> rows,
                                                      KVXEFormula formula);

/// The formula of each value cell of a utilization table, given the declaration of the cell's row. Each of
/// the four cells computes itself alone, so that only the used count depends on the columns that it adds up.
void updateUtilizationCell(const KVXEUID& uid, const UtilizationRow& row);

/// How many of a resource the selected device has; nothing without a device.
std::optional<int> availableCount(const std::string& resource);

}  // namespace kvxe
