#pragma once

#include <optional>
#include <span>
#include <string>

#include "engine/base/workbook/KVXEEnums.h"
#include "engine/base/workbook/KVXEUID.h"

class KVXETitle;

/// What the power formulas of the estimation tabs read and write again and again. Every read evaluates a
/// dirty cell first and is learned as a dependency.
namespace kvxe {

/// Whether the formula runs in the table it was written for; a mismatch is reported with what was being
/// updated.
bool isInTable(const KVXEUID& uid, const KVXETitle& table, const char* updated);

/// The number in a column of the row, `ifBlank` for a blank cell.
float readNumber(KVXERow* row, const KVXETitle& column, float ifBlank);

/// The frequency in MHz from the clock tag in a column of the row; nothing for a blank cell or another text.
std::optional<float> readClockFrequency(KVXERow* row, const KVXETitle& column);

/// The voltage of a rail in the power table of the tab that the formula runs in; nothing when it is unknown.
std::optional<float> readVoltage(const KVXEUID& uid, const std::string& rail);

/// The used count of a row of another tab's utilization table; 0 when the tab, table or row is missing.
float readUsedCount(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type);

/// As above the used share of what the device has.
float readUtilization(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type);

/// Writes one result, blank for nothing.
void writeResult(KVXERow* row, const KVXETitle& column, std::optional<float> value);

/// Blanks the results of a row that has no power.
void blankResults(KVXERow* row, std::span<const KVXETitle* const> columns);

}  // namespace kvxe
