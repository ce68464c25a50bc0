#pragma once

#include <optional>
#include <string>
#include <variant>

#include "clients/cli/Sheet.h"

class KVXECell;

namespace kvx {

/// A value in the type of a cell, as the workbook stores it.
using CellValue = std::variant<int, float, std::string>;

/// The outcome of a conversion: a value, or what is wrong and what would be right.
struct Conversion {
  std::optional<CellValue> value;
  std::string what, remedy;
};

/// Whether a value is the one that stands for a blank cell.
bool isBlank(const CellValue& value);

/// Converts what the user wrote into the type and the stored unit of a cell. Where no formula may change
/// them, the cell's range and drop-down list hold already. An empty text leaves a cell of any type blank.
Conversion convertForCell(const SheetValue& written, KVXECell& cell);
/// As above for a value that a workbook had stored: to the letter, without a unit, and whatever the limits.
Conversion convertStored(const SheetValue& written, KVXECell& cell);
/// Checks a converted value against the range and the list that the cell has after the calculation. `written`
/// is what the user wrote.
Conversion checkLimits(const CellValue& value, const std::string& written, KVXECell& cell);

/// The entry of the cell's drop-down list that is a spelling of `text`; `text` itself when there is no list;
/// nothing when the list has no such entry.
std::optional<std::string> matchEntry(KVXECell& cell, const std::string& text);
/// The entries of the cell's list as advice.
std::string adviseEntries(KVXECell& cell, const std::string& text);

/// The cell's value as a sheet may write it; an empty text for a blank cell.
SheetValue readStored(KVXECell& cell);

/// Writes as the user's own edit.
void writeAsUser(KVXECell& cell, const CellValue& value);
/// Whether the cell holds that value, up to the precision of a float.
bool holds(KVXECell& cell, const CellValue& value);

}  // namespace kvx
