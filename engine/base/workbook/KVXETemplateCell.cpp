#include "engine/base/workbook/KVXETemplateCell.h"

#include <cmath>
#include <iostream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;

namespace {

void report(KVXECalculationMgr::NodeAction action, KVXECell* cell) {
  KVXECalculationMgr::getGlobal().registerAction(action, cell);
}

/// Truncation toward zero that has a result for every float: the nearest int beyond the range, 0 for NaN.
int truncated(float value) {
  if (std::isnan(value)) return 0;
  if (value >= 2147483648.0f) return std::numeric_limits<int>::max();
  if (value <= -2147483648.0f) return std::numeric_limits<int>::min();
  return static_cast<int>(value);
}

// convert<To>(from) for each pair of value types.
template <class To>
To convert(const To& value) {
  return value;
}
template <class To>
  requires std::is_same_v<To, int>
To convert(const float& value) {
  return truncated(value);
}
template <class To>
  requires std::is_same_v<To, int>
To convert(const std::string& value) {
  return KVXMHelperUtils::s2i(value);
}
template <class To>
  requires std::is_same_v<To, float>
To convert(const int& value) {
  return static_cast<float>(value);
}
template <class To>
  requires std::is_same_v<To, float>
To convert(const std::string& value) {
  return KVXMHelperUtils::s2f(value);
}
template <class To, class From>
  requires(std::is_same_v<To, std::string> && !std::is_same_v<From, std::string>)
To convert(const From& value) {
  return KVXMHelperUtils::ToString(value);
}

const KVXEMsg& invalidEntryMsg() {
  static const KVXEMsg msg(KvxSeverity::ERROR, "Invalid value selected for a dropdown entry.");
  return msg;
}

}  // namespace

template <class T>
template <class U>
void KVXETemplateCell<T>::store(const U& value) {
  report(KVXECalculationMgr::WRITE_VAL, this);
  m_val = convert<T>(value);
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
    std::cout << "Error: Trying to set a drop-down value for a non drop-down column: " << describe(" -> ") << '\n';
  report(KVXECalculationMgr::WRITE_DD_VALS, this);
  auto list = std::make_shared<std::vector<T>>();
  list->reserve(values.size());
  for (const U& value : values) list->push_back(convert<T>(value));
  m_ddVals = list->empty() ? nullptr : std::move(list);
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
  m_range = isNone ? nullptr : std::make_shared<const std::pair<T, T>>(converted);
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
  if (exact != static_cast<float>(value)) value = truncated(exact);
}

template <class T>
void KVXETemplateCell<T>::unitAdjustment(std::string&, bool) {}

template <class T>
const std::vector<T>& KVXETemplateCell<T>::getDDVals() const {
  static const std::vector<T> none;
  if (m_ddVals) return *m_ddVals;
  const KVXEHeaderRow* header = getHeaderRow();
  if (!header || getRow() == header) return none;
  const auto* column = dynamic_cast<const KVXETemplateCell*>(header->getChild(2 * getColumnIndex()));
  return column && column->m_ddVals ? *column->m_ddVals : none;
}

template <class T>
bool KVXETemplateCell<T>::getDDVals(std::vector<std::string>& values) {
  report(KVXECalculationMgr::READ_EVALUATED, this);
  values.clear();
  for (const T& value : getDDVals()) values.push_back(convert<std::string>(value));
  return !values.empty();
}

template <class T>
void KVXETemplateCell<T>::addDDErrorMsgIfApplicable() {
  if (getMsg() && *getMsg() == invalidEntryMsg()) clearMsg();
  if (!isInADropdownColumn() || !getIsEditable() || isBlank()) return;
  const std::vector<T>& values = getDDVals();
  if (std::find(values.begin(), values.end(), m_val) == values.end())
    setMsg(invalidEntryMsg().getSeverity(), invalidEntryMsg().getDisplayText());
}

/// Whether this is the default cell of the target's own column, whose list the target shows anyway.
template <class T>
bool KVXETemplateCell<T>::isDefaultOf(const KVXECell* target) const {
  const KVXEHeaderRow* header = target->getHeaderRow();
  return header && getRow() == header && target->getRow() != header &&
         getColumnIndex() == 2 * target->getColumnIndex();
}

template <class T>
void KVXETemplateCell<T>::copyAssignElements(KVXECell* target) const {
  auto* typed = dynamic_cast<KVXETemplateCell*>(target);
  if (!typed || !typed->getRow()) {
    if (!target || !target->getRow()) KVXECell::copyAssignElements(target);
    return;
  }
  typed->setValAndState(m_val, typed->getState());
  typed->markBothDirty();
  report(KVXECalculationMgr::WRITE_RANGE, typed);
  typed->m_range = m_range;
  typed->m_ddVals = isDefaultOf(typed) ? nullptr : m_ddVals;
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

int KVXEHeaderCell::getPBColumnClass() const {
  const KVXECell* cell = getDefaultCell();
  switch (cell ? cell->getCellType() : CellType::NumItems) {
    case CellType::FLOAT: return m_isDropdownColumn ? 830 : 200;
    case CellType::INT: return m_isDropdownColumn ? 820 : 500;
    case CellType::STRING: return m_isDropdownColumn ? 810 : 700;
    default: return 700;
  }
}
