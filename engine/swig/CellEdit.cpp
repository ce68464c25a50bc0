#include "engine/swig/CellEdit.h"

#include <cmath>
#include <iostream>
#include <optional>
#include <stdexcept>

#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;

namespace kvxe {
namespace {

const std::string RefusalPrefix = "<html>The entry was not taken over: ";

constexpr size_t LongestText = 32767;

void refuse(KVXECell& cell, const std::string& why) {
  cell.setMsg(KvxSeverity::ERROR, RefusalPrefix + why + "</html>");
  KVXECellStateMgr::getGlobal().markGuiDirty(&cell);
}

void forgetRefusal(KVXECell& cell) {
  if (cell.getMsg() && cell.getMsg()->getDisplayText().starts_with(RefusalPrefix)) cell.clearMsg();
}

/// Whatever becomes of the entry, the screen shows something else now than what it was sent.
bool beginEdit(KVXECell& cell) {
  cell.m_sentLook = 0;
  if (cell.getIsEditable()) return true;
  std::cout << "Error: the front end changed a cell that is not editable: " << cell.describe(" -> ") << '\n';
  KVXECellStateMgr::getGlobal().markGuiDirty(&cell);
  return false;
}

/// A bound or value in words, as the screen shows it.
template <class T>
std::string shown(KVXECell& cell, T value) {
  cell.unitAdjustment(value, true);
  const std::string& suffix = cell.getUnitSuffix();
  return KVXMHelperUtils::ToString(value) + (suffix.empty() ? "" : " " + suffix);
}

/// Why a number cannot stand in a cell of this type and range; nothing when it can. A range that a formula
/// keeps may be about to change with the rest of the edit, so it is judged after the calculation.
template <class T>
std::optional<std::string> whyNot(KVXETemplateCell<T>& cell, double stored) {
  if (!std::isfinite(stored)) return "it is not a number.";
  const double most = std::is_same_v<T, int> ? kvxeBlank<int> : static_cast<double>(kvxeBlank<float>);
  if (stored >= most || stored <= -most) return "it is too large.";
  if (cell.getFormula() != &KVXECell::NoFormula) return std::nullopt;
  const auto [low, high] = cell.getRange();
  if (low != kvxeBlank<T> && stored < low) return "the least is " + shown(cell, low) + ".";
  if (high != kvxeBlank<T> && stored > high) return "the most is " + shown(cell, high) + ".";
  return std::nullopt;
}

std::optional<std::string> whyNot(KVXECell& cell, double stored) {
  switch (cell.getCellType()) {
    case CellType::INT:
      return whyNot(static_cast<KVXEIntCell&>(cell), std::trunc(stored));
    case CellType::FLOAT:
      return whyNot(static_cast<KVXEFloatCell&>(cell), stored);
    default:
      return std::isfinite(stored) ? std::nullopt : std::optional<std::string>("it is not a number.");
  }
}

template <class T>
void store(KVXECell& cell, const T& value) {
  forgetRefusal(cell);
  cell.setValAndState(value, CellState::DIRTY_CLEAN);
  cell.setValueSource(KVXEEnums::ValueSource::USER);
}

template <class T>
void editNumber(KVXECell& cell, T value) {
  if (!beginEdit(cell)) return;
  if constexpr (std::is_same_v<T, float>)
    if (!std::isfinite(value)) return refuse(cell, "it is not a number.");
  cell.unitAdjustment(value, false);
  if (const auto why = whyNot(cell, static_cast<double>(value))) return refuse(cell, *why);
  store(cell, value);
}

std::optional<std::string> whyNotText(const std::string& text) {
  if (text.size() > LongestText)
    return "a text may have " + KVXMHelperUtils::ToString(int{LongestText}) + " bytes.";
  if (!KVXMHelperUtils::isText(text)) return "it holds a control character, or is not UTF-8.";
  return std::nullopt;
}

std::optional<double> numberIn(std::string text) {
  KVXMHelperUtils::trim(text);
  try {
    return KVXMHelperUtils::s2fStrict(text);
  } catch (const std::invalid_argument&) {
    return std::nullopt;
  }
}

}  // namespace

void editCell(KVXECell& cell, float value) {
  editNumber(cell, value);
}

void editCell(KVXECell& cell, int value) {
  editNumber(cell, value);
}

void editCell(KVXECell& cell, const std::string& value) {
  if (!beginEdit(cell)) return;
  if (const auto why = whyNotText(value)) return refuse(cell, *why);
  if (cell.getCellType() != CellType::STRING) {
    const std::optional<double> number = numberIn(value);
    if (!number) return refuse(cell, "it is not a number.");
    if (const auto why = whyNot(cell, *number)) return refuse(cell, *why);
  }
  store(cell, value);
}

void blankCell(KVXECell& cell) {
  if (!beginEdit(cell)) return;
  forgetRefusal(cell);
  cell.setBlankAndState(CellState::DIRTY_CLEAN);
}

}  // namespace kvxe
