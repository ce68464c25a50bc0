#include "clients/cli/CellValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "clients/cli/Spelling.h"
#include "clients/cli/UnitText.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvx {

namespace {

using KVXEEnums::CellState;
using KVXEEnums::CellType;

Conversion refuse(std::string what, std::string remedy) {
  return {std::nullopt, std::move(what), std::move(remedy)};
}

Conversion refuseType(const SheetValue& written, const std::string& expected) {
  return refuse(describeValue(written) + " is no " + expected, "give a " + expected);
}

std::string adviseUnits(KVXEEnums::Unit unit) {
  const std::vector<std::string> units = unitsOf(unit);
  return units.empty() ? "give a number without a unit"
                       : "give a number, alone or with " + listInQuotes(units);
}

std::string showBound(double bound) {
  return KVXMHelperUtils::ToString(static_cast<float>(bound));
}

/// The number in the stored unit, or why there is none.
Conversion readNumber(const SheetValue& written, KVXEEnums::Unit unit, double& number) {
  if (const auto* whole = std::get_if<std::int64_t>(&written)) {
    number = static_cast<double>(*whole);
  } else if (const auto* real = std::get_if<double>(&written)) {
    number = *real;
  } else if (const auto* text = std::get_if<std::string>(&written)) {
    const auto parsed = NumberText::parse(*text);
    if (!parsed) return refuse(describeValue(written) + " is no number", adviseUnits(unit));
    const auto stored = toStored(*parsed, unit);
    if (!stored) return refuse(inQuotes(parsed->suffix) + " is no unit of this column", adviseUnits(unit));
    number = *stored;
  } else {
    return refuseType(written, "number");
  }
  if (!std::isfinite(number)) return refuse("the value is not finite", adviseUnits(unit));
  return {};
}

/// A bound of a range as a number; the other bound's blank where there is none.
template <class T>
double boundOr(T bound, double none) {
  return bound == kvxeBlank<T> ? none : static_cast<double>(bound);
}

/// Whether a cell's range and list are those of its column for good; a formula may let them follow other
/// cells.
bool hasFixedLimits(const KVXECell& cell) {
  return cell.getFormula() == &KVXECell::NoFormula;
}

template <class T>
std::pair<T, T> fixedRangeOf(const KVXETemplateCell<T>& cell) {
  return hasFixedLimits(cell) ? cell.getRange() : std::pair<T, T>{kvxeBlank<T>, kvxeBlank<T>};
}

template <class T>
Conversion checkRange(const std::string& written, double number, const std::pair<T, T>& range) {
  // The blank value itself and what lies beyond it cannot be stored.
  const double least = boundOr(range.first, static_cast<double>(std::numeric_limits<T>::lowest()));
  const double most = boundOr(range.second, static_cast<double>(kvxeBlank<T>));
  if (number >= least && number <= most && static_cast<T>(number) != kvxeBlank<T>) return {};
  const bool isOpen =
      most == static_cast<double>(kvxeBlank<T>) || most >= std::numeric_limits<int>::max() - 1.0;
  return refuse(written + " is out of range",
                isOpen && number < least ? "at least " + showBound(least) + " is allowed"
                                         : showBound(least) + " to " + showBound(most) + " is allowed");
}

Conversion convertInt(const SheetValue& written, KVXEIntCell& cell) {
  double number = 0;
  if (Conversion failure = readNumber(written, cell.getUnit(), number); !failure.what.empty()) return failure;
  if (number != std::trunc(number))
    return refuse(describeValue(written) + " is no whole number", "give a whole number");
  if (Conversion failure = checkRange(describeValue(written), number, fixedRangeOf(cell));
      !failure.what.empty())
    return failure;
  return {static_cast<int>(number), "", ""};
}

Conversion convertFloat(const SheetValue& written, KVXEFloatCell& cell) {
  double number = 0;
  if (Conversion failure = readNumber(written, cell.getUnit(), number); !failure.what.empty()) return failure;
  if (Conversion failure = checkRange(describeValue(written), number, fixedRangeOf(cell));
      !failure.what.empty())
    return failure;
  return {static_cast<float>(number), "", ""};
}

CellValue blankOf(const KVXECell& cell) {
  switch (cell.getCellType()) {
    case CellType::INT:
      return kvxeBlank<int>;
    case CellType::FLOAT:
      return kvxeBlank<float>;
    default:
      return std::string();
  }
}

bool isEmptyText(const SheetValue& written) {
  const auto* text = std::get_if<std::string>(&written);
  return text && text->empty();
}

/// A text; a number is taken for a drop-down entry that reads so.
Conversion convertText(const SheetValue& written, KVXECell& cell) {
  std::string text;
  if (const auto* given = std::get_if<std::string>(&written)) {
    text = *given;
  } else if (cell.isInADropdownColumn() && !std::holds_alternative<bool>(written)) {
    text = describeValue(written);
  } else {
    return refuseType(written, "text");
  }
  if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos)
    return refuse("the text has more than one line", "keep it on one line");
  return {text, "", ""};
}

/// Equal up to the precision of a float.
bool isSameNumber(float a, float b) {
  return std::fabs(a - b) <= 1e-5f * std::fabs(b);
}

/// Whether an entry of a list is the value; numbers may be written with other digits.
bool isEntry(const std::string& entry, const CellValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return entry == *text;
  if (const auto* number = std::get_if<int>(&value)) return entry == KVXMHelperUtils::ToString(*number);
  return isSameNumber(KVXMHelperUtils::s2f(entry), std::get<float>(value));
}

Conversion checkList(const CellValue& value, const std::string& written, KVXECell& cell) {
  std::vector<std::string> entries;
  if (!cell.getDDVals(entries)) return {};
  const auto isValue = [&value](const std::string& entry) { return isEntry(entry, value); };
  if (std::any_of(entries.begin(), entries.end(), isValue)) return {};
  const auto* text = std::get_if<std::string>(&value);
  return refuse(written + " is not in the list", adviseEntries(cell, text ? *text : written));
}

}  // namespace

bool isBlank(const CellValue& value) {
  if (const auto* whole = std::get_if<int>(&value)) return *whole == kvxeBlank<int>;
  if (const auto* real = std::get_if<float>(&value)) return *real == kvxeBlank<float>;
  return std::get<std::string>(value).empty();
}

Conversion convertForCell(const SheetValue& written, KVXECell& cell) {
  if (isEmptyText(written)) return {blankOf(cell), "", ""};
  Conversion result;
  switch (cell.getCellType()) {
    case CellType::INT:
      result = convertInt(written, static_cast<KVXEIntCell&>(cell));
      break;
    case CellType::FLOAT:
      result = convertFloat(written, static_cast<KVXEFloatCell&>(cell));
      break;
    default:
      result = convertText(written, cell);
  }
  if (!result.value || !cell.isInADropdownColumn()) return result;
  if (auto* text = std::get_if<std::string>(&*result.value)) *text = matchEntry(cell, *text).value_or(*text);
  if (!hasFixedLimits(cell)) return result;
  Conversion failure = checkList(*result.value, describeValue(written), cell);
  return failure.what.empty() ? result : failure;
}

Conversion convertStored(const SheetValue& written, KVXECell& cell) {
  if (isEmptyText(written)) return {blankOf(cell), "", ""};
  const auto* text = std::get_if<std::string>(&written);
  if (cell.getCellType() == CellType::STRING)
    return text && text->find('\0') == std::string::npos ? Conversion{*text, "", ""}
                                                         : refuseType(written, "text");
  double number = 0;
  if (text || !readNumber(written, KVXEEnums::Unit::NO_UNIT, number).what.empty())
    return refuseType(written, "number");
  if (cell.getCellType() == CellType::FLOAT && std::fabs(number) <= std::numeric_limits<float>::max())
    return {static_cast<float>(number), "", ""};
  if (number != std::trunc(number) || std::fabs(number) > std::numeric_limits<int>::max())
    return refuseType(written, "whole number");
  return {static_cast<int>(number), "", ""};
}

SheetValue readStored(KVXECell& cell) {
  if (cell.getCellType() == CellType::INT) {
    int number = 0;
    return cell.getVal(number, true) ? SheetValue(std::int64_t{number}) : SheetValue(std::string());
  }
  if (cell.getCellType() == CellType::FLOAT) {
    float number = 0;
    return cell.getVal(number, true) ? SheetValue(static_cast<double>(number)) : SheetValue(std::string());
  }
  std::string text;
  cell.getVal(text, true);
  return text;
}

Conversion checkLimits(const CellValue& value, const std::string& written, KVXECell& cell) {
  if (isBlank(value)) return {value, "", ""};
  Conversion failure;
  if (const auto* whole = std::get_if<int>(&value))
    failure = checkRange(written, *whole, static_cast<KVXEIntCell&>(cell).getRange());
  else if (const auto* real = std::get_if<float>(&value))
    failure = checkRange(written, static_cast<double>(*real), static_cast<KVXEFloatCell&>(cell).getRange());
  if (failure.what.empty()) failure = checkList(value, written, cell);
  return failure.what.empty() ? Conversion{value, "", ""} : failure;
}

std::optional<std::string> matchEntry(KVXECell& cell, const std::string& text) {
  std::vector<std::string> entries;
  if (!cell.getDDVals(entries)) return text;
  for (const std::string& entry : entries)
    if (entry == text) return entry;
  for (const std::string& entry : entries)
    if (isSameSpelling(entry, text)) return entry;
  return std::nullopt;
}

std::string adviseEntries(KVXECell& cell, const std::string& text) {
  std::vector<std::string> entries;
  cell.getDDVals(entries);
  if (entries.size() > 8) return adviseName(text, entries);
  return "choose " + std::string(entries.size() > 1 ? "one of " : "") + listInQuotes(entries);
}

void writeAsUser(KVXECell& cell, const CellValue& value) {
  if (isBlank(value))
    cell.setBlankAndState(CellState::DIRTY_DIRTY);
  else
    std::visit([&cell](const auto& stored) { cell.setValAndState(stored, CellState::DIRTY_DIRTY); }, value);
  cell.setValueSource(KVXEEnums::ValueSource::USER);
}

bool holds(KVXECell& cell, const CellValue& value) {
  if (const auto* expected = std::get_if<std::string>(&value)) {
    std::string text;
    cell.getVal(text, true);
    return text == *expected;
  }
  if (std::string text; isBlank(value)) return !cell.getVal(text, true);
  if (const auto* expected = std::get_if<int>(&value)) {
    int number = 0;
    return cell.getVal(number, true) && number == *expected;
  }
  const float expected = std::get<float>(value);
  float number = 0;
  return cell.getVal(number, true) && isSameNumber(number, expected);
}

}  // namespace kvx
