#include "models/catalogue/CsvTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvxm {
namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> splitCells(std::string_view line) {
  std::vector<std::string_view> cells;
  for (std::size_t comma; (comma = line.find(',')) != std::string_view::npos; line.remove_prefix(comma + 1)) {
    cells.push_back(trimmed(line.substr(0, comma)));
  }
  cells.push_back(trimmed(line));
  return cells;
}

template <class Number>
bool parseWhole(std::string_view text, Number& value) {
  const char* const end = text.data() + text.size();
  const auto [stop, failure] = std::from_chars(text.data(), end, value);
  return failure == std::errc() && stop == end;
}

}  // namespace

bool parseNumber(std::string_view text, float& value) {
  return parseWhole(text, value) && std::isfinite(value);
}

bool parseNumber(std::string_view text, int& value) {
  return parseWhole(text, value);
}

std::string numberText(float value) {
  char buffer[48];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

CsvTable::CsvTable(const DataFile& file, Problems& problems) : m_file(file), m_problems(problems) {
  std::string_view rest = file.text;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = trimmed(rest.substr(0, std::min(end, rest.find('#'))));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.empty()) continue;
    std::vector<std::string_view> cells = splitCells(line);
    if (m_headerLine == 0) {
      m_headerLine = number;
      m_columns = std::move(cells);
    } else if (cells.size() == m_columns.size()) {
      m_rows.push_back({number, std::move(cells)});
    } else {
      problems.error(file, number, cells.front(), std::to_string(cells.size()) + " cells",
                     "expected " + std::to_string(m_columns.size()) + " as in the header");
    }
  }
  if (m_headerLine == 0) {
    problems.error(file, 0, {}, "empty", "expected a header line and rows");
    return;
  }
  if (m_rows.empty())
    problems.error(file, m_headerLine, {}, "no rows", "expected at least one below the header");
  for (std::size_t i = 0; i < m_columns.size(); ++i) {
    const auto here = m_columns.begin() + static_cast<std::ptrdiff_t>(i);
    if (std::find(m_columns.begin(), here, *here) != here) {
      problems.error(file, m_headerLine, *here, "duplicate column", "expected each column once");
    }
  }
}

bool CsvTable::checkColumns(const std::vector<std::string_view>& expected) {
  if (m_headerLine == 0) return false;
  bool good = true;
  const auto has = [](const auto& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  for (const std::string_view name : expected) {
    if (has(m_columns, name)) continue;
    m_problems.error(m_file, m_headerLine, name, "missing column", "expected it in the header");
    good = false;
  }
  for (const std::string_view name : m_columns) {
    if (has(expected, name)) continue;
    m_problems.error(m_file, m_headerLine, name, "unknown column", expectedOneOf(name, expected));
    good = false;
  }
  return good;
}

std::string_view CsvRow::text(std::string_view column) const {
  const auto& columns = m_table.columns();
  const auto found = std::find(columns.begin(), columns.end(), column);
  return found == columns.end() ? std::string_view()
                                : m_row.cells[static_cast<std::size_t>(found - columns.begin())];
}

std::string CsvRow::required(std::string_view column) {
  const std::string_view cell = text(column);
  if (cell.empty()) wrong(column, "blank", "expected a value");
  return std::string(cell);
}

std::vector<std::string> CsvRow::words(std::string_view column) const {
  std::vector<std::string> words;
  std::string_view rest = text(column);
  if (rest == "*") return words;
  while (!(rest = trimmed(rest)).empty()) {
    const std::size_t end = std::min(rest.find_first_of(blanks), rest.size());
    words.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end);
  }
  return words;
}

float CsvRow::number(std::string_view column, float min, float max) {
  float value = 0;
  const std::string_view cell = text(column);
  if (!parseNumber(cell, value) || value < min || value > max) {
    wrong(column, quoted(cell), "expected a number from " + numberText(min) + " to " + numberText(max));
    return min;
  }
  return value;
}

int CsvRow::integer(std::string_view column, int min, int max) {
  int value = 0;
  const std::string_view cell = text(column);
  if (!parseNumber(cell, value) || value < min || value > max) {
    wrong(column, quoted(cell), "expected a whole number of at least " + std::to_string(min));
    return min;
  }
  return value;
}

bool CsvRow::yesNo(std::string_view column) {
  return choice(column, {"yes", "no"}) == "yes";
}

std::string CsvRow::choice(std::string_view column, const std::vector<std::string_view>& choices) {
  const std::string_view cell = text(column);
  if (std::find(choices.begin(), choices.end(), cell) == choices.end()) {
    wrong(column, quoted(cell), expectedOneOf(cell, choices));
  }
  return std::string(cell);
}

void CsvRow::wrong(std::string_view column, std::string_view what, std::string_view expected) {
  m_ok = false;
  m_table.problems().error(m_table.file(), m_row.line, column, what, expected);
}

}  // namespace kvxm
