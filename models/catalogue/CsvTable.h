#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/DataFile.h"

namespace kvxm {

/// A table of comma-separated text: a header line of column names, then rows of as many cells. Cells are
/// trimmed; there are no quotes; "#" starts a comment. Views point into the file's text.
class CsvTable {
 public:
  struct Row {
    int line = 0;
    std::vector<std::string_view> cells;
  };

  /// Parses the file. Rows with a wrong number of cells are reported and left out.
  CsvTable(const DataFile& file, Problems& problems);

  /// Reports columns that are missing or not known; false if there are any.
  bool checkColumns(const std::vector<std::string_view>& expected);

  const std::vector<std::string_view>& columns() const { return m_columns; }
  const std::vector<Row>& rows() const { return m_rows; }
  int headerLine() const { return m_headerLine; }
  const DataFile& file() const { return m_file; }
  Problems& problems() const { return m_problems; }

 private:
  const DataFile& m_file;
  Problems& m_problems;
  std::vector<std::string_view> m_columns;
  std::vector<Row> m_rows;
  int m_headerLine = 0;
};

/// Reads the cells of one row by column name and reports what is wrong with them.
class CsvRow {
 public:
  CsvRow(const CsvTable& table, const CsvTable::Row& row) : m_table(table), m_row(row) {}

  /// False as soon as any cell was wrong.
  bool ok() const { return m_ok; }
  int line() const { return m_row.line; }

  /// The cell's text, possibly empty.
  std::string_view text(std::string_view column) const;
  /// The cell's text, which must not be empty.
  std::string required(std::string_view column);
  /// The blank-separated words of a cell; none for an empty cell or "*".
  std::vector<std::string> words(std::string_view column) const;
  /// A finite number in the closed range.
  float number(std::string_view column, float min, float max);
  int integer(std::string_view column, int min, int max = std::numeric_limits<int>::max());
  bool yesNo(std::string_view column);
  /// One of the choices.
  std::string choice(std::string_view column, const std::vector<std::string_view>& choices);
  /// Reports a mistake in a column.
  void wrong(std::string_view column, std::string_view what, std::string_view expected);

 private:
  const CsvTable& m_table;
  const CsvTable::Row& m_row;
  bool m_ok = true;
};

/// A whole text as a finite number; false for anything else.
bool parseNumber(std::string_view text, float& value);
bool parseNumber(std::string_view text, int& value);
/// Shortest text of a number.
std::string numberText(float value);

}  // namespace kvxm
