#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "clients/cli/Place.h"
#include "engine/base/workbook/KVXEEnums.h"

namespace kvx {

/// A value as the user wrote it.
using SheetValue = std::variant<bool, std::int64_t, double, std::string>;

/// `key = value`. With a source, `key = { value = ..., source = "XML" }`, it is what a workbook had stored:
/// it goes back into the cell to the letter, whether the workbook makes use of it or not.
struct Assignment {
  std::string key;
  SheetValue value;
  Place place;
  std::optional<KVXEEnums::ValueSource> source = std::nullopt;
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
  std::optional<Assignment> number = std::nullopt;  ///< `row = 7`: the row's place in the table, from 1
};

/// What a dialog that made an IP was filled with.
struct IpConfiguration {
  std::string uid;
  std::map<std::string, std::string> properties;
  bool operator==(const IpConfiguration&) const = default;
};

/// A design sheet: what it says, without knowing whether a workbook has such tabs, tables and columns.
struct Sheet {
  Place place;  ///< its beginning
  std::optional<Assignment> name, part, process;
  std::vector<Assignment> environment;
  std::vector<SheetRow> rows;
  std::vector<IpConfiguration> ipConfigurations;
  bool isDamaged = false;  ///< lines could not be read, so that what seems to be missing may stand there
};

/// The key of SheetRow::number.
inline constexpr const char* RowNumberKey = "row";

/// The value as it would stand in a sheet.
std::string describeValue(const SheetValue& value);

}  // namespace kvx
