#include "engine/base/workbook/KVXECell.h"

#include <iostream>
#include <unordered_set>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/CppStateManager.inl"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::Unit;

namespace {

const std::string NoSuffix;

/// The one copy of a suffix text. There are as many as the units table has suffixes.
const std::string* intern(const std::string& suffix) {
  static std::unordered_set<std::string> suffixes;
  return suffix.empty() ? &NoSuffix : &*suffixes.insert(suffix).first;
}

KVXECellStateMgr& states() {
  return KVXECellStateMgr::getGlobal();
}

KVXECalculationMgr& calculation() {
  return KVXECalculationMgr::getGlobal();
}

}  // namespace

KVXECell* KVXECell::CreateCell(CellType type, KVXERow* row, unsigned int columnIndex) {
  KVXECell* cell = nullptr;
  switch (type) {
    case CellType::INT:
      cell = new KVXEIntCell;
      break;
    case CellType::FLOAT:
      cell = new KVXEFloatCell;
      break;
    case CellType::STRING:
      cell = new KVXEStringCell;
      break;
    case CellType::HEADER:
      cell = new KVXEHeaderCell;
      break;
    default:
      return nullptr;
  }
  cell->m_row = row;
  cell->m_columnIndex = columnIndex;
  return cell;
}

KVXECell::KVXECell() : m_unitSuffix(&NoSuffix) {
  setState(CellState::DIRTY_DISABLED);
  calculation().setIsGraphStale();
}

KVXECell::~KVXECell() {
  calculation().forget(this);  // without a report, which could ask the dying cell to describe itself
  if (mp_state) states().clearState(this);
  calculation().setIsGraphStale();
}

void KVXECell::copyAssignElements(KVXECell* target) const {
  if (!target || !target->m_row) {
    std::cout << "Error: Please create a cell object before assignment operation." << '\n';
    return;
  }
  target->setIsEditable(m_isEditable);
  target->assignFormula(m_formula);
  target->setUnit(m_unit);
  target->m_valueSource = m_valueSource;
}

bool KVXECell::isEquivalentElements(KVXECell* other) {
  if (!other || !other->m_row) return false;
  return m_isEditable == other->m_isEditable && m_unit == other->m_unit;
}

void KVXECell::setBlankAndState(CellState state) {
  switch (getCellType()) {
    case CellType::INT:
      return setValAndState(kvxeBlank<int>, state);
    case CellType::FLOAT:
      return setValAndState(kvxeBlank<float>, state);
    default:
      return setValAndState(kvxeBlank<std::string>, state);
  }
}

void KVXECell::setBlankAndMarkEngineClean() {
  switch (getCellType()) {
    case CellType::INT:
      return setValAndMarkEngineClean(kvxeBlank<int>);
    case CellType::FLOAT:
      return setValAndMarkEngineClean(kvxeBlank<float>);
    default:
      return setValAndMarkEngineClean(kvxeBlank<std::string>);
  }
}

void KVXECell::finishWrite(CellState state) {
  setState(state);
  m_valueSource = KVXEEnums::ValueSource::FORMULA;
}

void KVXECell::finishWriteEngineClean() {
  markEngineClean();
  m_valueSource = KVXEEnums::ValueSource::FORMULA;
}

// State.

CellState KVXECell::getState() const {
  return mp_state ? mp_state->getState() : CellState::NumItems;
}

void KVXECell::setState(CellState state) {
  calculation().registerAction(KVXECalculationMgr::WRITE_GUI_STATE, this);
  calculation().registerAction(KVXECalculationMgr::WRITE_ENGINE_STATE, this);
  states().setState(this, state);
}

void KVXECell::clearState() {
  calculation().registerAction(KVXECalculationMgr::WRITE_GUI_STATE, this);
  calculation().registerAction(KVXECalculationMgr::WRITE_ENGINE_STATE, this);
  if (mp_state) states().clearState(this);
}

bool KVXECell::isEngineClean() const {
  return states().isEngineClean(this);
}

bool KVXECell::isGuiClean() const {
  return states().isGuiClean(this);
}

bool KVXECell::isEnabled() const {
  return states().isEnabled(this);
}

void KVXECell::markEngineClean() {
  calculation().registerAction(KVXECalculationMgr::WRITE_ENGINE_STATE, this);
  states().markEngineClean(this);
  if (m_unit == Unit::NO_UNIT) return;
  const KVXETable* table = getTable();
  updateUnitInfo(table && table->getTab() ? table->getTab()->getBook() : nullptr);
}

void KVXECell::markGuiClean() {
  calculation().registerAction(KVXECalculationMgr::WRITE_GUI_STATE, this);
  states().markGuiClean(this);
}

void KVXECell::markBothDirty() {
  states().markBothDirty(this);
}

void KVXECell::setIsEnabled(bool isEnabled) {
  calculation().registerAction(KVXECalculationMgr::WRITE_ENABLED, this);
  states().setIsEnabled(this, isEnabled);
}

// Looks.

void KVXECell::noteLookChanged() {
  // Of a header row only the heads are on screen; a default cell shows in the list of its column.
  KVXECell* shown = m_row && m_row->getIndex() == 0 ? getHeaderDisplayCell() : this;
  if (shown) states().markGuiDirty(shown);
}

void KVXECell::setColor(Colors colors) {
  if (colors == m_color) return;
  m_color = colors;
  noteLookChanged();
}

void KVXECell::setIsEditable(bool isEditable) {
  calculation().registerAction(KVXECalculationMgr::WRITE_EDITABLE, this);
  const Colors colors{Black, isEditable ? White : ReadOnlyBackground};
  if (isEditable == m_isEditable && colors == m_color) return;
  m_isEditable = isEditable;
  m_color = colors;
  noteLookChanged();
}

KVXECell::Colors KVXECell::getColor() const {
  switch (getSeverity()) {
    case KvxSeverity::ERROR:
      return {Black, 0xFFD9D9};
    case KvxSeverity::WARNING:
      return {Black, 0xFFF2CC};
    default:
      return m_color;
  }
}

// Formula.

void KVXECell::assignFormula(KVXEFormula formula) {
  if (!formula) formula = &KVXECell::NoFormula;
  if (formula == m_formula) return;
  calculation().setIsGraphStale();
  m_formula = formula;
}

void KVXECell::NoFormula(const KVXEUID& uid) {
  if (uid.getCell()) uid.getCell()->markEngineClean();
}

void KVXECell::reportCycle(const KVXEUID& uid) {
  std::cout
      << "Error: Cell described below has a formula associated with it that creates a cyclic dependancy "
         "with the cell it-self. The cell's value will not be calculated properly.\n"
      << "\tuid.describe() = " << uid.describe(" -> ") << " , getState() = " << getState() << '\n'
      << "Resolution: If you are trying to get previous value of the cell from cell's formula function "
         "it-self, for getting previous value pass argument evaluateIfDirty=false to getVal.\n";
  calculation().dumpCallStack();
}

bool KVXECell::hasWorkToDo() const {
  return m_formula != &KVXECell::NoFormula || m_unit != Unit::NO_UNIT || m_isEvaluating ||
         calculation().getObserver();
}

void KVXECell::evaluateFormula() {
  if (isEngineClean()) return;
  if (!hasWorkToDo()) {
    states().markEngineClean(this);
    return;
  }
  const KVXEUID uid(this);
  if (m_isEvaluating) {
    reportCycle(uid);
    m_isEvaluating = false;  // ends the inner evaluation; the outer one goes on with the value it finds
    return;
  }
  m_isEvaluating = true;
  calculation().registerAction(KVXECalculationMgr::BEGIN_EVAL, this);
  m_formula(uid);
  calculation().registerAction(KVXECalculationMgr::END_EVAL, this);
  if (!isEngineClean()) {
    std::cout
        << "Error: Cell described below has a formula associated with it that does not mark engine value "
           "clean for the cell.\n"
        << "\tuid.describe() = " << uid.describe(" -> ") << " , getState() = " << getState() << '\n';
    markEngineClean();
  }
  m_isEvaluating = false;
}

void KVXECell::markDirtyForNextCalculationIteration() {
  calculation().getNextIterationCells().insert(KVXEUID(this));
  if (auto* observer = calculation().getObserver()) observer->onNextIteration(this);
}

// Message.

KVXETable* KVXECell::getTable() const {
  return m_row ? m_row->getTable() : nullptr;
}

void KVXECell::setMsg(const KvxSeverity& severity, const std::string& text) {
  calculation().registerAction(KVXECalculationMgr::WRITE_MSG, this);
  KVXEMsg msg(severity, text);
  if (m_msg && *m_msg == msg) return;
  KVXETable* table = getTable();
  if (m_msg && table && raisesSeverity(m_msg->getSeverity())) table->unregisterMsgCell(this);
  m_msg = std::make_unique<KVXEMsg>(std::move(msg));
  noteLookChanged();
  if (table && raisesSeverity(severity)) table->registerMsgCell(this);
}

void KVXECell::clearMsg() {
  calculation().registerAction(KVXECalculationMgr::WRITE_MSG, this);
  if (!m_msg) return;
  if (KVXETable* table = getTable(); table && raisesSeverity(m_msg->getSeverity()))
    table->unregisterMsgCell(this);
  m_msg.reset();
  noteLookChanged();
}

// Unit.

void KVXECell::setUnit(Unit unit) {
  calculation().registerAction(KVXECalculationMgr::WRITE_UNIT, this);
  m_unit = unit;
  if (unit == Unit::NO_UNIT) resetUnitInfo();
}

void KVXECell::resetUnitInfo() {
  m_unitMultiplier = 1.0f;
  m_unitOffset = 0.0f;
  m_unitSuffix = &NoSuffix;
}

void KVXECell::updateUnitInfo(const KVXEUID& uid) {
  updateUnitInfo(uid.getBook());
}

void KVXECell::updateUnitInfo(KVXEBook* book) {
  if (m_unit == Unit::NO_UNIT) return resetUnitInfo();
  calculation().registerAction(KVXECalculationMgr::WRITE_UNIT_INFO, this);
  KVXETable* units = book ? book->getTable(KVXEEnums::TabType::SUMMARY, &KVXETab::m_UnitsTable) : nullptr;
  KVXERow* row = units ? units->getRow(static_cast<unsigned int>(m_unit)) : nullptr;
  if (!row) return;
  if (KVXECell* cell = row->getCell(&KVXETab::m_UnitsMultiplier)) cell->getVal(m_unitMultiplier, true);
  if (KVXECell* cell = row->getCell(&KVXETab::m_UnitsOffset)) cell->getVal(m_unitOffset, true);
  KVXECell* cell = row->getCell(&KVXETab::m_UnitsSuffix);
  if (!cell || cell->getCellType() != CellType::STRING) return;
  const std::string& suffix = static_cast<KVXEStringCell*>(cell)->readVal(true);
  if (suffix != *m_unitSuffix) m_unitSuffix = intern(suffix);
}

// Header.

KVXEHeaderRow* KVXECell::getHeaderRow() const {
  const KVXETable* table = getTable();
  return table ? table->getHeaderRow() : nullptr;
}

KVXECell* KVXECell::getHeaderDefaultCell() {
  KVXEHeaderRow* header = getHeaderRow();
  if (!header) return nullptr;
  if (m_row == header) return header->getChild(m_columnIndex & ~1u);
  return header->getDefaultCell(m_columnIndex);
}

KVXEHeaderCell* KVXECell::getHeaderDisplayCell() {
  KVXEHeaderRow* header = getHeaderRow();
  if (!header) return nullptr;
  KVXECell* cell =
      m_row == header ? header->getChild(m_columnIndex | 1u) : header->getDisplayCell(m_columnIndex);
  return static_cast<KVXEHeaderCell*>(cell);
}

bool KVXECell::isInADropdownColumn() {
  const KVXEHeaderCell* display = getHeaderDisplayCell();
  return display && display->getIsDropdownColumn();
}

std::string KVXECell::describe(const std::string& separator) const {
  return KVXEUID(const_cast<KVXECell*>(this)).describe(separator);
}
