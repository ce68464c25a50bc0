#include "engine/base/workbook/KVXETemplateCell.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;

int kvxeTruncated(float value) {
  if (std::isnan(value)) return 0;
  if (value >= 2147483648.0f) return std::numeric_limits<int>::max();
  if (value <= -2147483648.0f) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

namespace {

void report(KVXECalculationMgr::NodeAction action, KVXECell* cell) {
  KVXECalculationMgr::getGlobal().registerAction(action, cell);
}

/// The value in another of the three types.
template <class To, class From>
To convert(const From& value) {
  if constexpr (std::is_same_v<To, From>) {
    return value;
  } else if constexpr (std::is_same_v<To, std::string>) {
    return KVXMHelperUtils::ToString(value);
  } else if constexpr (std::is_same_v<From, float>) {
    return kvxeTruncated(value);
  } else if constexpr (std::is_same_v<From, int>) {
    return static_cast<To>(value);
  } else if constexpr (std::is_same_v<To, int>) {
    return KVXMHelperUtils::s2i(value);
  } else {
    return KVXMHelperUtils::s2f(value);
  }
}

const KVXEMsg& invalidEntryMsg() {
  static const KVXEMsg msg(KvxSeverity::ERROR, "Invalid value selected for a dropdown entry.");
  return msg;
}

const KVXEMsg& outOfRangeMsg() {
  static const KVXEMsg msg(KvxSeverity::ERROR, "The value lies outside the range of the cell.");
  return msg;
}

template <class T>
bool isWithin(const T& value, const std::pair<T, T>& range) {
  return (range.first == kvxeBlank<T> || value >= range.first) &&
         (range.second == kvxeBlank<T> || value <= range.second);
}

}  // namespace

template <class T>
template <class U>
void KVXETemplateCell<T>::store(const U& value) {
  report(KVXECalculationMgr::WRITE_VAL, this);
  T converted = convert<T>(value);
  if (converted == m_val) return;
  m_val = std::move(converted);
  noteLookChanged();
}

template <class T>
void KVXETemplateCell<T>::setValAndState(const int& value, CellState state) {
  store(value);
  finishWrite(state);
}
template <class T>
void KVXETemplateCell<T>::setValAndState(const float& value, CellState state) {
  store(value);
  finishWrite(state);
}
template <class T>
void KVXETemplateCell<T>::setValAndState(const std::string& value, CellState state) {
  store(value);
  finishWrite(state);
}
template <class T>
void KVXETemplateCell<T>::setValAndMarkEngineClean(const int& value) {
  store(value);
  finishWriteEngineClean();
}
template <class T>
void KVXETemplateCell<T>::setValAndMarkEngineClean(const float& value) {
  store(value);
  finishWriteEngineClean();
}
template <class T>
void KVXETemplateCell<T>::setValAndMarkEngineClean(const std::string& value) {
  store(value);
  finishWriteEngineClean();
}

template <class T>
template <class U>
void KVXETemplateCell<T>::storeList(const std::vector<U>& values) {
  if (!isInADropdownColumn())
    std::cout << "Error: Trying to set a drop-down value for a non drop-down column: " << describe(" -> ")
              << '\n';
  report(KVXECalculationMgr::WRITE_DD_VALS, this);
  auto list = std::make_shared<std::vector<T>>();
  list->reserve(values.size());
  for (const U& value : values) list->push_back(convert<T>(value));
  if (list->empty()) list.reset();
  const bool isSame = list && m_ddVals ? *list == *m_ddVals : list == m_ddVals;
  if (!isSame) {
    m_ddVals = std::move(list);
    noteLookChanged();
  }
  markEngineClean();
}

template <class T>
void KVXETemplateCell<T>::setDDValsAndMarkEngineClean(const std::vector<int>& values) {
  storeList(values);
}
template <class T>
void KVXETemplateCell<T>::setDDValsAndMarkEngineClean(const std::vector<float>& values) {
  storeList(values);
}
template <class T>
void KVXETemplateCell<T>::setDDValsAndMarkEngineClean(const std::vector<std::string>& values) {
  storeList(values);
}

template <class T>
template <class U>
void KVXETemplateCell<T>::storeRange(const std::pair<U, U>& range) {
  report(KVXECalculationMgr::WRITE_RANGE, this);
  // A blank bound stays blank in the cell's own type.
  const auto bound = [](const U& value) { return value == kvxeBlank<U> ? kvxeBlank<T> : convert<T>(value); };
  const std::pair<T, T> converted{bound(range.first), bound(range.second)};
  const bool isNone = converted.first == kvxeBlank<T> && converted.second == kvxeBlank<T>;
  if (m_range ? *m_range == converted : isNone) return;
  m_range = isNone ? nullptr : std::make_shared<const std::pair<T, T>>(converted);
  noteLookChanged();
}

template <class T>
void KVXETemplateCell<T>::setRange(const std::pair<int, int>& range) {
  storeRange(range);
}
template <class T>
void KVXETemplateCell<T>::setRange(const std::pair<float, float>& range) {
  storeRange(range);
}
template <class T>
void KVXETemplateCell<T>::setRange(const std::pair<std::string, std::string>& range) {
  storeRange(range);
}

template <class T>
const T& KVXETemplateCell<T>::readVal(bool evaluateIfDirty) {
  report(evaluateIfDirty ? KVXECalculationMgr::READ_EVALUATED : KVXECalculationMgr::READ_PREVIOUS, this);
  if (evaluateIfDirty) evaluateFormula();
  return m_val;
}

template <class T>
bool KVXETemplateCell<T>::getVal(int& value, bool evaluateIfDirty) {
  value = convert<int>(readVal(evaluateIfDirty));
  return !isBlank();
}
template <class T>
bool KVXETemplateCell<T>::getVal(float& value, bool evaluateIfDirty) {
  value = convert<float>(readVal(evaluateIfDirty));
  return !isBlank();
}
template <class T>
bool KVXETemplateCell<T>::getVal(std::string& value, bool evaluateIfDirty) {
  value = convert<std::string>(readVal(evaluateIfDirty));
  return !isBlank();
}

template <class T>
bool KVXETemplateCell<T>::getValWithUnit(std::string& text, bool evaluateIfDirty) {
  T value = readVal(evaluateIfDirty);
  text.clear();
  if (isBlank()) return false;
  unitAdjustment(value, true);
  text = convert<std::string>(value);
  if (!text.empty() && !getUnitSuffix().empty()) text += " " + getUnitSuffix();
  return true;
}

template <class T>
void KVXETemplateCell<T>::unitAdjustment(float& value, bool toDisplay) {
  if (toDisplay) {
    value = value * getUnitMultiplier() + getUnitOffset();
  } else if (getUnitMultiplier() != 0.0f) {
    value = (value - getUnitOffset()) / getUnitMultiplier();
  }
}

template <class T>
void KVXETemplateCell<T>::unitAdjustment(int& value, bool toDisplay) {
  float exact = static_cast<float>(value);
  unitAdjustment(exact, toDisplay);
  // Leaves a value that the unit does not touch as it is: a float holds 24 bits of it.
  if (exact != static_cast<float>(value)) value = kvxeTruncated(exact);
}

template <class T>
void KVXETemplateCell<T>::unitAdjustment(std::string&, bool) {}

template <class T>
const std::vector<T>& KVXETemplateCell<T>::getDDVals() const {
  static const std::vector<T> none;
  if (m_ddVals) return *m_ddVals;
  const KVXETemplateCell* column = columnCell();
  return column && column->m_ddVals ? *column->m_ddVals : none;
}

template <class T>
KVXETemplateCell<T>* KVXETemplateCell<T>::columnCell() const {
  const KVXEHeaderRow* header = getHeaderRow();
  if (!header || getRow() == header) return nullptr;
  return dynamic_cast<KVXETemplateCell*>(header->getChild(2 * getColumnIndex()));
}

template <class T>
typename KVXETemplateCell<T>::List KVXETemplateCell<T>::columnList() const {
  const KVXETemplateCell* column = columnCell();
  return column ? column->m_ddVals : nullptr;
}

template <class T>
bool KVXETemplateCell<T>::getDDVals(std::vector<std::string>& values) {
  report(KVXECalculationMgr::READ_EVALUATED, this);
  if (KVXETemplateCell* column = m_ddVals ? nullptr : columnCell())
    report(KVXECalculationMgr::READ_EVALUATED, column);
  values.clear();
  for (const T& value : getDDVals()) values.push_back(convert<std::string>(value));
  return !values.empty();
}

template <class T>
void KVXETemplateCell<T>::addDDErrorMsgIfApplicable() {
  const auto isOffered = [this] {
    const std::vector<T>& values = getDDVals();
    return std::find(values.begin(), values.end(), m_val) != values.end();
  };
  if (isInADropdownColumn() && getIsEditable() && !isBlank() && !isOffered()) {
    setMsg(invalidEntryMsg().getSeverity(), invalidEntryMsg().getDisplayText());
  } else if (getMsg() && *getMsg() == invalidEntryMsg()) {
    clearMsg();
  }
}

template <class T>
void KVXETemplateCell<T>::addRangeErrorMsgIfApplicable() {
  const bool isWrong = getIsEditable() && !isBlank() && !isWithin(m_val, getRange());
  if (isWrong && getSeverity() != KvxSeverity::ERROR) {
    setMsg(outOfRangeMsg().getSeverity(), outOfRangeMsg().getDisplayText());
  } else if (!isWrong && getMsg() && *getMsg() == outOfRangeMsg()) {
    clearMsg();
  }
}

template <class T>
void KVXETemplateCell<T>::copyAssignElements(KVXECell* target) const {
  auto* typed = dynamic_cast<KVXETemplateCell*>(target);
  if (!typed || !typed->getRow()) return KVXECell::copyAssignElements(nullptr);
  typed->setValAndState(m_val, typed->getState());
  typed->markBothDirty();
  report(KVXECalculationMgr::WRITE_RANGE, typed);
  typed->m_range = m_range;
  const List list = m_ddVals ? m_ddVals : columnList();
  typed->m_ddVals = list && list != typed->columnList() ? list : nullptr;
  KVXECell::copyAssignElements(target);
}

template <class T>
bool KVXETemplateCell<T>::isEquivalentElements(KVXECell* other) {
  auto* typed = dynamic_cast<KVXETemplateCell*>(other);
  if (!typed) return false;
  if (readVal(true) != typed->readVal(true)) return false;
  if (getRange() != typed->getRange() || getDDVals() != typed->getDDVals()) return false;
  return KVXECell::isEquivalentElements(other);
}

template class KVXETemplateCell<int>;
template class KVXETemplateCell<float>;
template class KVXETemplateCell<std::string>;

void KVXEHeaderCell::setVisibility(KVXEEnums::Visibility visibility) {
  if (visibility == m_visibility) return;
  m_visibility = visibility;
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

void KVXEHeaderCell::copyAssignElements(KVXECell* target) const {
  auto* header = dynamic_cast<KVXEHeaderCell*>(target);
  if (!header) {
    std::cout << "Error:: Incorrect type of cell passed to copyAssign API" << '\n';
    return;
  }
  KVXEStringCell::copyAssignElements(target);
  header->m_isDropdownColumn = m_isDropdownColumn;
  header->m_visibility = m_visibility;
}

KVXECell* KVXEHeaderCell::getDefaultCell() const {
  return getRow() ? getRow()->getChild((getColumnIndex() - 1) & ~1u) : nullptr;
}

namespace {

template <class T>
std::vector<std::string> shownList(KVXETemplateCell<T>& cell) {
  std::vector<std::string> shown;
  for (T entry : cell.getDDVals()) {
    cell.unitAdjustment(entry, true);
    shown.push_back(convert<std::string>(entry));
  }
  return shown;
}

}  // namespace

std::vector<std::string> KVXEHeaderCell::getShownColumnList() const {
  KVXECell* cell = m_isDropdownColumn ? getDefaultCell() : nullptr;
  switch (cell ? cell->getCellType() : CellType::NumItems) {
    case CellType::FLOAT:
      return shownList(static_cast<KVXEFloatCell&>(*cell));
    case CellType::INT:
      return shownList(static_cast<KVXEIntCell&>(*cell));
    case CellType::STRING:
      return shownList(static_cast<KVXEStringCell&>(*cell));
    default:
      return {};
  }
}

int KVXEHeaderCell::getPBColumnClass() const {
  const KVXECell* cell = getDefaultCell();
  switch (cell ? cell->getCellType() : CellType::NumItems) {
    case CellType::FLOAT:
      return m_isDropdownColumn ? 830 : 200;
    case CellType::INT:
      return m_isDropdownColumn ? 820 : 500;
    case CellType::STRING:
      return m_isDropdownColumn ? 810 : 700;
    default:
      return 700;
  }
}
