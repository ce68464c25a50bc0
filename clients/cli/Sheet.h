#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "clients/cli/Place.h"

namespace kvx {

/// A value as the user wrote it.
using SheetValue = std::variant<bool, std::int64_t, double, std::string>;

/// `key = value`.
struct Assignment {
  std::string key;
  SheetValue value;
  Place place;
};

/// The cells that the user gives of one row of one table.
struct SheetRow {
  std::string tab;
  std::string table;  ///< empty for the tab's main table
  /// Names an existing row by its number or text. Without it a table whose rows the user makes takes the next
  /// row, and in one with fixed rows a cell of the entry names the row.
  std::optional<std::string> row;
  std::vector<Assignment> cells;
  Place place;
};

/// A design sheet: what it says, without knowing whether a workbook has such tabs, tables and columns.
struct Sheet {
  Place place;  ///< its beginning
  std::optional<Assignment> name, part, process;
  std::vector<Assignment> environment;
  std::vector<SheetRow> rows;
  bool isDamaged = false;  ///< lines could not be read, so that what seems to be missing may stand there
};

/// The value as it would stand in a sheet.
std::string describeValue(const SheetValue& value);

}  // namespace kvx
