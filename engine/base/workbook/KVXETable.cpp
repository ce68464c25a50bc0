#include "engine/base/workbook/KVXETable.h"

#include <algorithm>

#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEChart.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/base/workbook/KVXEViewer.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::Visibility;

KVXETable::KVXETable(KVXETab* tab, unsigned int index, const KVXETitle* title, bool showRowIds,
                     bool gridOptionA, bool gridOptionB)
    : m_tab(tab),
      m_index(index),
      m_title(title),
      m_showRowIds(showRowIds),
      m_gridOptionA(gridOptionA),
      m_gridOptionB(gridOptionB) {
  initGrid();
  if (!showRowIds) return;
  addColumn<int>(KVXETab::m_RowID, false, CellType::INT, &KVXECell::NoFormula, KVXEEnums::Unit::NO_UNIT,
                 false, kvxeBlank<int>, {kvxeBlank<int>, kvxeBlank<int>});
  setColumnToolTip(&KVXETab::m_RowID, "Row ID of the given row.");
}

KVXETable::~KVXETable() {
  for (KVXERow* row : m_rows) delete row;
}

// Columns.

template <class T>
unsigned int KVXETable::addColumn(const KVXETitle& title, bool isEditable, CellType cellType,
                                  KVXEFormula formula, KVXEEnums::Unit unit, bool isDropdownColumn,
                                  const T& defaultValue, const std::pair<T, T>& range) {
  KVXEHeaderRow* header = getOrCreateHeaderRow();
  const unsigned int column = header->addCell(cellType);
  header->assignHeaderToIndex(&title, column);
  KVXEHeaderCell* display = getDisplayCell(column);
  display->setValAndState(title.getDisplayTag(true), CellState::HEADER_DISABLED);
  KVXECell* cell = header->getDefaultCell(column);
  cell->setIsEditable(isEditable);
  cell->assignFormula(formula);
  cell->setValAndState(defaultValue, CellState::HEADER_DISABLED);
  cell->setValueSource(KVXEEnums::ValueSource::DEFAULT);
  cell->setUnit(unit);
  cell->setRange(range);
  display->setIsDropdownColumn(isDropdownColumn);
  return column;
}

template unsigned int KVXETable::addColumn<int>(const KVXETitle&, bool, CellType, KVXEFormula,
                                                KVXEEnums::Unit, bool, const int&,
                                                const std::pair<int, int>&);
template unsigned int KVXETable::addColumn<float>(const KVXETitle&, bool, CellType, KVXEFormula,
                                                  KVXEEnums::Unit, bool, const float&,
                                                  const std::pair<float, float>&);
template unsigned int KVXETable::addColumn<std::string>(const KVXETitle&, bool, CellType, KVXEFormula,
                                                        KVXEEnums::Unit, bool, const std::string&,
                                                        const std::pair<std::string, std::string>&);

namespace {

template <class T>
T orBlank(double number) {
  return number == number ? static_cast<T>(number) : kvxeBlank<T>;
}

template <class T>
unsigned int addNumberColumn(KVXETable& table, const KVXEColumn& c) {
  return table.addColumn<T>(*c.title, c.isEditable, c.type, c.formula, c.unit, c.isDropdown,
                            orBlank<T>(c.number), {orBlank<T>(c.minimum), orBlank<T>(c.maximum)});
}

unsigned int addDeclaredColumn(KVXETable& table, const KVXEColumn& c) {
  switch (c.type) {
    case CellType::INT:
      return addNumberColumn<int>(table, c);
    case CellType::FLOAT:
      return addNumberColumn<float>(table, c);
    default:
      return table.addColumn<std::string>(*c.title, c.isEditable, CellType::STRING, c.formula, c.unit,
                                          c.isDropdown, std::string(c.text), {});
  }
}

}  // namespace

void KVXETable::addColumns(std::span<const KVXEColumn> columns) {
  for (const KVXEColumn& c : columns) {
    const unsigned int column = addDeclaredColumn(*this, c);
    if (!c.entries.empty())
      getHeaderRow()->getDefaultCell(column)->setDDValsAndMarkEngineClean(
          std::vector<std::string>(c.entries.begin(), c.entries.end()));
    if (*c.toolTip) setColumnToolTip(c.title, c.toolTip);
    setColumnVisibility(column, c.visibility);
  }
}

void KVXETable::setColumnToolTip(const KVXETitle* title, const std::string& text) {
  setColumnHeaderMsg(title, KvxSeverity::INFO, text);
}

KVXEHeaderCell* KVXETable::getDisplayCell(unsigned int column) const {
  KVXEHeaderRow* header = getHeaderRow();
  return header ? static_cast<KVXEHeaderCell*>(header->getDisplayCell(column)) : nullptr;
}

unsigned int KVXETable::getTitleToIndex(const KVXETitle* title) const {
  const KVXEHeaderRow* header = getHeaderRow();
  return header ? header->getTitleToIndex(title) : 0xFFFFFFFF;
}

unsigned int KVXETable::findTitle(const KVXETitle* title) const {
  const KVXEHeaderRow* header = getHeaderRow();
  return header ? header->findTitle(title) : 0xFFFFFFFF;
}

unsigned int KVXETable::getColumnCount() const {
  const KVXEHeaderRow* header = getHeaderRow();
  return header ? header->getColumnCount() : 0;
}

CellType KVXETable::getColumnType(unsigned int column) const {
  KVXEHeaderRow* header = getHeaderRow();
  const KVXECell* cell = header ? header->getDefaultCell(column) : nullptr;
  return cell ? cell->getCellType() : CellType::NumItems;
}

Visibility KVXETable::getColumnVisibility(unsigned int column) const {
  const KVXEHeaderCell* display = getDisplayCell(column);
  return display ? display->getVisibility() : Visibility::NumItems;
}

Visibility KVXETable::getColumnVisibility(const KVXETitle* title) const {
  return getColumnVisibility(getTitleToIndex(title));
}

void KVXETable::setColumnVisibility(unsigned int column, Visibility visibility) {
  if (KVXEHeaderCell* display = getDisplayCell(column)) display->setVisibility(visibility);
}

void KVXETable::setColumnVisibility(const KVXETitle* title, Visibility visibility) {
  setColumnVisibility(getTitleToIndex(title), visibility);
}

void KVXETable::setColumnHeaderText(const KVXETitle* title, const std::string& text) {
  if (KVXEHeaderCell* display = getDisplayCell(getTitleToIndex(title)))
    display->setValAndState(text, CellState::HEADER_DIRTY);
}

void KVXETable::setColumnHeaderMsg(const KVXETitle* title, const KvxSeverity& severity,
                                   const std::string& text) {
  if (KVXEHeaderCell* display = getDisplayCell(getTitleToIndex(title))) display->setMsg(severity, text);
}

void KVXETable::clearColumnHeaderMsg(const KVXETitle* title) {
  if (KVXEHeaderCell* display = getDisplayCell(getTitleToIndex(title))) display->clearMsg();
}

void KVXETable::clearColumn(const KVXETitle* title) {
  const unsigned int column = getTitleToIndex(title);
  for (unsigned int i = 1; i < getRowCount(); ++i)
    if (KVXECell* cell = getCellAt(i, column)) cell->setBlankAndMarkEngineClean();
}

// Rows as they stand; inserting and deleting them is in KVXETableRows.cpp.

KVXEHeaderRow* KVXETable::getHeaderRow() const {
  return m_rows.empty() ? nullptr : static_cast<KVXEHeaderRow*>(m_rows.front());
}

KVXEHeaderRow* KVXETable::getOrCreateHeaderRow() {
  if (m_rows.empty()) m_rows.push_back(KVXERow::createRow(this, 0));
  return getHeaderRow();
}

KVXECell* KVXETable::getCellAt(unsigned int row, unsigned int column) const {
  KVXERow* found = getRow(row);
  return found ? found->getCell(column) : nullptr;
}

KVXECell* KVXETable::getCellAt(unsigned int row, const KVXETitle* title) const {
  return getCellAt(row, getTitleToIndex(title));
}

bool KVXETable::isDefaultRow(KVXERow* row, bool externalOnly) const {
  KVXEHeaderRow* header = getHeaderRow();
  return header && row && header->isEquivalentElements(row, externalOnly);
}

unsigned int KVXETable::getFirstRowIDWithDefaults(bool externalOnly) const {
  if (getRowCount() < 2) return 1;
  for (unsigned int i = 1; i < getRowCount(); ++i)
    if (isDefaultRow(m_rows[i], externalOnly)) return i;
  return getRowCount();
}

unsigned int KVXETable::getLastRowIDWithoutDefaults() const {
  for (unsigned int i = getRowCount(); i-- > 1;)
    if (!isDefaultRow(m_rows[i], false)) return i;
  return 0;
}

// Screen.

std::pair<unsigned int, unsigned int> KVXETable::getPrintableArea() const {
  return {m_rows.empty() ? 0 : getRowCount() - 1, getColumnCount()};
}

bool KVXETable::guiToEngineIndex(int gui, unsigned int& engine) const {
  engine = 0x7FFFFFFF;
  if (gui < 0) return false;
  const auto position = static_cast<unsigned int>(gui);
  if (m_guiToEngine.empty()) {
    engine = position + 1;
    return true;
  }
  if (position >= m_guiToEngine.size()) return false;
  engine = m_guiToEngine[position];
  return true;
}

bool KVXETable::engineToGuiIndex(unsigned int engine, int& gui) const {
  gui = 0x7FFFFFFF;
  if (m_rows.empty() || engine == 0) return false;
  if (m_guiToEngine.empty()) {
    gui = static_cast<int>(engine - 1);
    return true;
  }
  const auto found = std::lower_bound(m_guiToEngine.begin(), m_guiToEngine.end(), engine);
  if (found == m_guiToEngine.end() || *found != engine) return false;
  gui = static_cast<int>(found - m_guiToEngine.begin());
  return true;
}

void KVXETable::populateIndexMapping() {
  if (m_isMappingHeld) return;
  m_guiToEngine.clear();
  const unsigned int last = getPrintableArea().first;
  for (unsigned int i = 1; i <= last; ++i)
    if (const KVXERow* row = getRow(i); row && row->hasPlaceOnScreen()) m_guiToEngine.push_back(i);
  fillRowIDs();
}

void KVXETable::refreshForViewer() {
  const auto isForSome = [](const KVXERow* row) { return row->getVisibility() != Visibility::EXTERNAL; };
  if (!m_guiToEngine.empty() || std::any_of(m_rows.begin(), m_rows.end(), isForSome)) populateIndexMapping();
}

void KVXETable::setVisibility(Visibility visibility) {
  if (visibility == m_visibility) return;
  m_visibility = visibility;
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

void KVXETable::fillRowIDs() {
  if (!m_showRowIds) return;
  int number = 0;
  const unsigned int last = getPrintableArea().first;
  for (unsigned int i = 1; i <= last; ++i) {
    KVXERow* row = getRow(i);
    if (!row->hasPlaceOnScreen()) continue;
    auto* cell = static_cast<KVXEIntCell*>(row->getChild(0));
    if (++number != cell->peekVal()) cell->setValAndState(number, cell->getState());
  }
}

void KVXETable::setTabWidgetTitle(const std::string& title) {
  m_tabWidgetTitle = title;
  if (m_tab) m_tab->incrementTabWidgetTitleCount(title);
}

KVXEChart* KVXETable::getOrCreateChartView(bool isSecondKind) {
  m_chartViewKind = isSecondKind ? 2 : 1;
  if (!m_chart) m_chart = std::make_unique<KVXEChart>();
  return m_chart.get();
}

// Messages.

void KVXETable::setMsg(const KvxSeverity& severity, const std::string& text) {
  m_msg = std::make_unique<KVXEMsg>(severity, text);
}

void KVXETable::registerMsgCell(KVXECell* cell) {
  m_msgCells.insert(cell);
  if (m_tab) m_tab->registerMsgCell(cell);
}

void KVXETable::unregisterMsgCell(KVXECell* cell) {
  m_msgCells.erase(cell);
  if (m_tab) m_tab->unregisterMsgCell(cell);
}

int KVXETable::getTableSeverity() const {
  return severityOfVisible(m_msgCells);
}

int severityOfVisible(const std::unordered_set<KVXECell*>& cells) {
  int severity = 0;
  for (KVXECell* cell : cells) {
    const KVXETable* table = cell->getRow() ? cell->getRow()->getTable() : nullptr;
    const KVXEHeaderCell* display = cell->getHeaderDisplayCell();
    if (table && !KVXEViewer::sees(table->getVisibility())) continue;
    if (display && !KVXEViewer::sees(display->getVisibility())) continue;
    if (cell->getSeverity() == KvxSeverity::ERROR) return static_cast<int>(KvxSeverity::ERROR);
    if (cell->getSeverity() == KvxSeverity::WARNING) severity = static_cast<int>(KvxSeverity::WARNING);
  }
  return severity;
}
