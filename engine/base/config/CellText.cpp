#include "engine/base/config/CellText.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/base/config/ValueSource.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETable.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvxe::detail {

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::Visibility;

// Lists.

std::string joinList(const std::vector<std::string>& entries) {
  std::string text;
  for (const std::string& entry : entries) {
    if (entry.empty()) continue;
    if (!text.empty()) text += ListSeparator;
    text += entry;
  }
  return text;
}

std::vector<std::string> splitList(std::string_view text) {
  std::vector<std::string> entries;
  while (!text.empty()) {
    const size_t length = std::min(text.find(ListSeparator), text.size());
    if (length > 0) entries.emplace_back(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return entries;
}

// Numbers.

int StringConverter<int>::convert(const std::string& text) {
  return text.empty() ? blank : KVXMHelperUtils::s2i(text);
}

std::string StringConverter<int>::toText(int value) {
  return value == kvxeBlank<int> ? std::string() : KVXMHelperUtils::ToString(value);
}

unsigned int StringConverter<unsigned int>::convert(const std::string& text) {
  return static_cast<unsigned int>(std::max(StringConverter<int>::convert(text), 0));
}

std::string StringConverter<unsigned int>::toText(unsigned int value) {
  constexpr unsigned int largest = std::numeric_limits<int>::max();
  return StringConverter<int>::toText(static_cast<int>(std::min(value, largest)));
}

float StringConverter<float>::convert(const std::string& text) {
  return text.empty() ? blank : KVXMHelperUtils::s2f(text);
}

std::string StringConverter<float>::toText(float value) {
  const bool isNumber = std::isfinite(value) && value != kvxeBlank<float>;
  return isNumber ? KVXMHelperUtils::ToString(value) : std::string();
}

bool StringConverter<bool>::convert(const std::string& text) {
  std::string lower;
  for (const unsigned char c : text) lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return lower == "yes" || lower == "true" || lower == "on" || KVXMHelperUtils::s2f(lower) != 0.0f;
}

// Cells.

std::string storedText(KVXECell& cell) {
  std::string text;
  return cell.getVal(text, false) ? text : std::string();
}

void writeText(KVXECell& cell, const std::string& text) {
  KVXEEnums::ValueSource source = cell.getValueSource();
  if (storedText(cell) != text) source = utils::ValueSource::get();
  if (KVXECell* columnDefault = cell.getHeaderDefaultCell();
      columnDefault && storedText(*columnDefault) == text)
    source = columnDefault->getValueSource();
  if (text.empty()) {
    cell.setBlankAndState(CellState::DIRTY_DIRTY);
  } else {
    cell.setValAndState(text, CellState::DIRTY_DIRTY);
  }
  cell.setValueSource(source);
}

bool isComputedColumn(KVXECell& defaultCell) {
  return !defaultCell.getIsEditable() && defaultCell.getFormula() != &KVXECell::NoFormula;
}

// Rows.

namespace {

/// As the screen compares: a zero in a number column counts as blank.
std::string comparableText(KVXECell& cell) {
  std::string text = storedText(cell);
  const CellType type = cell.getCellType();
  if ((type == CellType::INT || type == CellType::FLOAT) && text == "0") text.clear();
  return text;
}

}  // namespace

bool isFreeRow(KVXERow& row) {
  const KVXETable& table = *row.getTable();
  for (unsigned int column = table.getFirstContentColumn(); column < row.getColumnCount(); ++column) {
    if (table.getColumnVisibility(column) != Visibility::EXTERNAL) continue;
    KVXECell* cell = row.getCell(column);
    KVXECell* columnDefault = table.getHeaderRow()->getDefaultCell(column);
    if (comparableText(*cell) != comparableText(*columnDefault)) return false;
  }
  return true;
}

std::vector<KVXERow*> findFreeRows(KVXETable& table, size_t count) {
  std::vector<KVXERow*> rows;
  for (unsigned int i = 1; i < table.getRowCount() && rows.size() < count; ++i)
    if (isFreeRow(*table.getRow(i))) rows.push_back(table.getRow(i));
  return rows;
}

std::vector<KVXERow*> findUsedRows(KVXETable& table) {
  std::vector<KVXERow*> rows;
  for (unsigned int i = 1; i < table.getRowCount() && !isFreeRow(*table.getRow(i)); ++i)
    rows.push_back(table.getRow(i));
  return rows;
}

KVXERow* findRow(KVXETable& table, const KVXETitle& column, const std::string& text) {
  if (text.empty()) return nullptr;
  const unsigned int index = table.findTitle(&column);
  for (unsigned int i = 1; i < table.getRowCount(); ++i)
    if (KVXECell* cell = table.getCellAt(i, index); cell && storedText(*cell) == text) return table.getRow(i);
  return nullptr;
}

}  // namespace kvxe::detail
