#pragma once

#include <array>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "engine/base/workbook/KVXETemplateCell.h"

class KVXERow;
class KVXETable;
class KVXETitle;

namespace kvxe {

/// The value of a record's number that stands for a blank cell.
struct Blank {
  constexpr operator int() const { return kvxeBlank<int>; }
  constexpr operator unsigned int() const { return static_cast<unsigned int>(kvxeBlank<int>); }
  constexpr operator float() const { return kvxeBlank<float>; }
};
inline constexpr Blank blank;

/// What the layer reads and writes of single cells. All of it goes by the stored value: evaluating a dirty
/// cell outside a calculation would mark it clean before what depends on it has been told.
namespace detail {

/// Joins the entries of a list that stands in one cell.
inline constexpr char ListSeparator = '\x17';

std::string joinList(const std::vector<std::string>& entries);
/// The entries in order, without empty ones.
std::vector<std::string> splitList(std::string_view text);

/// The field of a record from the text of a cell. An empty text is a blank number; any other text counts as
/// the number that it begins with. Nothing throws.
template <class U>
struct StringConverter;

template <>
struct StringConverter<std::string> {
  static std::string convert(const std::string& text) { return text; }
  static std::string toText(const std::string& value) { return value; }
};
template <>
struct StringConverter<int> {
  static int convert(const std::string& text);
  static std::string toText(int value);
};
template <>
struct StringConverter<unsigned int> {
  static unsigned int convert(const std::string& text);  ///< 0 for a negative number
  static std::string toText(unsigned int value);
};
template <>
struct StringConverter<float> {
  static float convert(const std::string& text);
  static std::string toText(float value);  ///< empty for what is no finite number
};
/// "Yes" and "No" on screen; "true", "on" and numbers other than 0 are read as yes, too, in any letter case.
template <>
struct StringConverter<bool> {
  static bool convert(const std::string& text);
  static std::string toText(bool value) { return value ? "Yes" : "No"; }
};
template <>
struct StringConverter<std::vector<std::string>> {
  static std::vector<std::string> convert(const std::string& text) { return splitList(text); }
  static std::string toText(const std::vector<std::string>& value) { return joinList(value); }
};

/// A type that a cell holds.
template <class U>
concept CellValue = requires(const U& value, const std::string& text) {
  { StringConverter<U>::convert(text) } -> std::same_as<U>;
  { StringConverter<U>::toText(value) } -> std::same_as<std::string>;
};

/// The stored value as text, empty for a blank cell.
std::string storedText(KVXECell& cell);

/// Writes a value, blank for an empty text, as an edit that the next incremental calculation follows. The
/// source of the value becomes the present one (utils::ValueSource), but a value that the cell has already
/// keeps its source, and the default of the column stays a default, which formulas may go on replacing.
void writeText(KVXECell& cell, const std::string& text);

/// A column that only its formula fills.
bool isComputedColumn(KVXECell& defaultCell);

/// KVXETable::isDefaultRow for what the outside sees.
bool isFreeRow(KVXERow& row);
/// The first `count` free rows, or all if there are fewer.
std::vector<KVXERow*> findFreeRows(KVXETable& table, size_t count);
/// The rows that hold records: from row 1 up to the first free one.
std::vector<KVXERow*> findUsedRows(KVXETable& table);
/// The first row whose cell in that column reads `text`; null for none and for an empty text.
KVXERow* findRow(KVXETable& table, const KVXETitle& column, const std::string& text);

}  // namespace detail
}  // namespace kvxe
