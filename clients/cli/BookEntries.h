#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clients/cli/Sheet.h"

class KVXEBook;

namespace kvx {

/// What the user supplied to one cell.
struct CellEntry {
  std::string column;  ///< as a sheet writes it
  SheetValue value;    ///< a clock by its name where that tells it from others; an empty text for blank
  KVXEEnums::ValueSource source = KVXEEnums::ValueSource::USER;
  bool isCurrent =
      true;  ///< a user could enter it as things are: a sheet needs to say no more than the value
};

/// A text that tells a fixed row from the others of its table, before a calculation as well as behind it.
struct RowKey {
  std::string column, text;
};

struct RowEntry {
  unsigned int index = 0;     ///< from 1
  std::string name;           ///< what a message calls the row
  std::optional<RowKey> key;  ///< nothing for a row that goes by its number
  std::vector<CellEntry> cells;
};

/// The rows of a table in which the user has supplied something.
struct TableEntry {
  std::string tab, table;         ///< as a sheet writes them
  std::string environmentColumn;  ///< of the values of [environment]; empty for any other table
  bool isMain = false;            ///< the tab's own: [[tab]]
  bool isGrown = false;           ///< the user makes its rows
  std::vector<RowEntry> rows;
};

/// All that the user supplied to a book, apart from the book: the choice of the device, and the cells whose
/// values are the user's or come from an import or an IP. Two books with the same entries are the same
/// design.
struct BookEntries {
  std::string part, process;
  std::vector<TableEntry> tables;  ///< in the order of the book
  std::vector<IpConfiguration> ipConfigurations;
};

/// Reads the current book and device selection, after a calculation.
/// @throws std::runtime_error for what no sheet can name.
BookEntries readEntries(KVXEBook& book);

/// The first difference between two designs in words, or an empty text: "logic.logic_settings, row 3:
/// toggle_rate". Values are compared exactly, with their sources.
std::string findDifference(const BookEntries& a, const BookEntries& b);

/// The sheet that says it. Rows and settings have the place `source` without a line.
Sheet makeSheet(const BookEntries& entries, const std::string& source);

}  // namespace kvx
