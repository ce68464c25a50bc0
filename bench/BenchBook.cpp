#include "bench/BenchBook.h"

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/config/ClockTag.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;

namespace {

KVXEBook* book() {
  return KVXEBookMgr::getGlobal().getCurrentBook();
}

template <class T>
void enter(KVXECell* cell, const T& value) {
  cell->setValAndState(value, CellState::DIRTY_DIRTY);
  cell->setValueSource(KVXEEnums::ValueSource::USER);
}

float frequencyOf(unsigned int row) {
  return 100.0f + 0.5f * static_cast<float>(row % 400);
}

std::string clockName(unsigned int row) {
  return "clk_" + std::to_string(row);
}

int countIn(const KVXETable& table) {
  return table.getTableTitle() == &KVXELogicTab::m_LogicConfigTable ? 100 : 1;
}

/// The middle of the range of a float cell; 1 without a range.
float middleOf(const KVXECell* cell) {
  const auto [low, high] = static_cast<const KVXEFloatCell*>(cell)->getRange();
  return low < high && high != kvxeBlank<float> ? 0.5f * (low + high) : 1.0f;
}

bool isOfferedList(KVXECell* cell, std::string& first) {
  std::vector<std::string> list;
  if (!cell->getDDVals(list) || list.empty()) return false;
  first = list.front();
  return true;
}

}  // namespace

BenchBook::BenchBook(unsigned int rows) : m_rows(rows) {
  KVXEPartSelection::resetToDefaultPart();
  for (unsigned int i = 1; i <= rows; ++i)
    m_tags.push_back(kvxe::ClockTag::construct(clockName(i), frequencyOf(i)));
  rebuild();
}

BenchBook::~BenchBook() {
  KVXEBookMgr::getGlobal().closeProject();
}

void BenchBook::rebuild() {
  KVXEPartSelection::getGlobal()->redrawTabs(true);
  fill();
}

/// What a cell offers may follow from cells to the left of it, so that lists are brought up to date first.
void BenchBook::fill() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  for (unsigned int i = 0; i < book()->getTabCount(); ++i) {
    const KVXETab* tab = book()->getTab(i);
    for (unsigned int j = 0; tab && tab->getIsEnabled() && j < tab->getTableCount(); ++j)
      if (tab->getTable(j)->getHasTableEditingFeatures()) fillTable(*tab->getTable(j));
  }
}

void BenchBook::fillTable(KVXETable& table) {
  table.getOrCreateRow(m_rows);
  for (unsigned int row = 1; row <= m_rows; ++row) fillRow(table, row);
}

void BenchBook::fillRow(KVXETable& table, unsigned int row) {
  const bool isClock = table.getTableTitle() == &KVXEClockTab::m_ClockConfigTable;
  for (unsigned int column = table.getFirstContentColumn(); column < table.getColumnCount(); ++column) {
    KVXECell* cell = table.getCellAt(row, column);
    std::string text;
    if (!cell->getIsEditable() || cell->getVal(text, false)) continue;
    if (cell->getFormula() == &KVXEClockTab::updateClockDropdown) {
      enter(cell, m_tags[row % m_tags.size()]);
    } else if (isOfferedList(cell, text)) {
      enter(cell, text);
    } else if (cell->getCellType() == CellType::STRING) {
      enter(cell, isClock ? clockName(row) : table.getTab()->getTypeAsStr() + "_" + std::to_string(row));
    } else if (cell->getCellType() == CellType::INT) {
      enter(cell, countIn(table));
    } else {
      const bool isFrequency =
          cell->getUnit() == Unit::FREQUENCY_HIDE || cell->getUnit() == Unit::FREQUENCY_SHOW;
      enter(cell, isFrequency ? frequencyOf(row) : middleOf(cell));
    }
  }
}

KVXETable* BenchBook::getLogicTable() const {
  return book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
}

KVXECell* BenchBook::getToggleRate(unsigned int row) const {
  return getLogicTable()->getCellAt(row, &KVXELogicTab::m_ToggleRate);
}

KVXECell* BenchBook::getClockFrequency(unsigned int clock) const {
  return book()
      ->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable)
      ->getCellAt(clock, &KVXEClockTab::m_ClockFreq);
}

KVXECell* BenchBook::getVccint() const {
  return book()->lookup<std::string>(TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable, "VCCINT",
                                     &KVXETab::m_internalSupplyColumn, &KVXETab::m_voltageColumn, false);
}

KVXECell* BenchBook::getAmbient() const {
  return book()->lookup<std::string>(TabType::SUMMARY, &KVXESummaryTab::m_envTableHeader,
                                     "Ambient Temperature", &KVXESummaryTab::m_envTypeColumn,
                                     &KVXESummaryTab::m_envValColumn, false);
}

void BenchBook::settle() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  KVXECellStateMgr::getGlobal().markGuiClean();
}

void BenchBook::edit(KVXECell* cell, float value) {
  enter(cell, value);
  KVXECalculationMgr::getGlobal().incrCalculate();
}

size_t BenchBook::countCells() const {
  std::vector<KVXECell*> cells;
  return KVXECellStateMgr::getGlobal().getAllCells(cells);
}
