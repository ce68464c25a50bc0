#pragma once

#include <string>
#include <unordered_map>

class KVXETable;

/// Patches of what projects of earlier releases hold, applied to the texts of a project file before they
/// reach the model. None of them reports: a value that cannot be patched stays as it was read.
namespace kvxe::BackwardCompatibility {

/// Renames what older device selections were called, in projects of the release "2023.2" and in those that do
/// not say what wrote them (KVXEPrjMgr::getBuildInfo).
void patchDeviceSelectionMap(std::unordered_map<std::string, std::string>& selection);

/// The value of a cell in the column of a tag (the KVX spelling of its title).
void patchCellValue(const std::string& tag, std::string& value, const KVXETable* table);

/// "100 MHz (clk)" to the present spelling of clock tags, "100.000 MHz (clk)".
void correctClockTag(std::string& value);
/// "GEN3X8" to the present spelling of link modes, "Gen3x8".
void correctSpeedLink(std::string& value);
/// "GEN3" to the present spelling of link speeds, "GEN 3 (8 GT/s)".
void correctHicSpeed(std::string& value);

}  // namespace kvxe::BackwardCompatibility
