#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

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

/// The count in a column of the row, 0 for a blank cell.
int readCount(KVXERow* row, const KVXETitle& column);

/// The text in a column of the row, empty for a blank cell.
std::string readText(KVXERow* row, const KVXETitle& column);

/// Whether the cell holds what somebody put into it, in place of a default or a result.
bool isGiven(const KVXECell& cell);

/// The frequency in MHz from the clock tag in a column of the row; nothing for a blank cell or another text.
std::optional<float> readClockFrequency(KVXERow* row, const KVXETitle& column);

/// The device that the models know.
std::string readDevice(const KVXEUID& uid);

/// The speed grade of the selected part, as the catalogue writes it; empty without a part.
std::string readSpeedGrade();

/// The voltage of a rail in the power table of the tab that the formula runs in; nothing when it is unknown.
/// Which row belongs to a rail never changes, so the voltage is all that the formula comes to depend on.
std::optional<float> readVoltage(const KVXEUID& uid, std::string_view rail);

/// The used count of a row of another tab's utilization table; 0 when the tab, table or row is missing.
float readUsedCount(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type);

/// As above the used share of what the device has.
float readUtilization(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type);

/// Whether the switch "DISABLE_SIGNAL_POWER" leaves the power of routed nets out of the blocks that drive
/// them.
bool isSignalPowerDisabled();

/// Writes one result, blank for nothing.
void writeResult(KVXERow* row, const KVXETitle& column, std::optional<float> value);

/// Blanks the results of a row that has no power.
void blankResults(KVXERow* row, std::span<const KVXETitle* const> columns);

/// Puts the warning on the cell; takes the cell's message away when there is nothing to warn of.
void showWarning(KVXECell* cell, const std::optional<std::string>& warning);

}  // namespace kvxe
