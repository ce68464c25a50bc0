#include "engine/base/tabs/KVXERailPowerIndex.h"

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxe {

const std::string RailPowerIndex::m_offChipTable = "OFF_CHIP_POWER";

namespace {

const KVXETab* tabOf(const KVXECell& cell) {
  return cell.getRow()->getTable()->getTab();
}

/// The total of a power table leaves out what is hidden or disabled, and so do the rails.
bool counts(const KVXECell& cell) {
  return tabOf(cell)->getIsEnabled() && cell.getRow()->getVisibility() == KVXEEnums::Visibility::EXTERNAL;
}

float sumOf(const std::vector<KVXECell*>& cells) {
  double watts = 0.0;
  for (KVXECell* cell : cells) {
    float value = 0.0f;
    if (cell->getVal(value, true) && counts(*cell)) watts += value;
  }
  return static_cast<float>(watts);
}

}  // namespace

void RailPowerIndex::refresh(const KVXEBook& book) {
  std::vector<TabState> tabs(book.getTabCount());
  for (unsigned int i = 0; i < tabs.size(); ++i)
    if (const KVXETab* tab = book.getTab(i)) tabs[i] = {tab->getTable(0u), tab->getTableCount()};
  if (tabs == m_tabs) return;
  m_tabs = std::move(tabs);
  m_cells.clear();
  m_offChipCells.clear();
  for (unsigned int i = 0; i < m_tabs.size(); ++i) {
    const KVXETab* tab = book.getTab(i);
    if (!tab) continue;
    addTable(tab->getTable(&KVXETab::m_PowerTable), false);
    addTable(tab->getTable(m_offChipTable), true);
  }
}

void RailPowerIndex::addTable(const KVXETable* table, bool isOffChip) {
  constexpr unsigned int missing = 0xFFFFFFFF;
  if (!table || table->findTitle(&KVXETab::m_InternalRailColumn) == missing ||
      table->findTitle(&KVXETab::m_ActivePowerColumn) == missing)
    return;
  for (unsigned int i = 1; i < table->getRowCount(); ++i) {
    std::string rail;
    if (!table->getCellAt(i, &KVXETab::m_InternalRailColumn)->getVal(rail, false)) continue;
    KVXECell* power = table->getCellAt(i, &KVXETab::m_ActivePowerColumn);
    m_cells[rail].push_back(power);
    if (isOffChip) m_offChipCells.push_back(power);
  }
}

float RailPowerIndex::drawnPower(const KVXEBook& book, const std::string& rail) {
  refresh(book);
  const auto found = m_cells.find(rail);
  return found == m_cells.end() ? 0.0f : sumOf(found->second);
}

float RailPowerIndex::offChipPower(const KVXEBook& book) {
  refresh(book);
  return sumOf(m_offChipCells);
}

}  // namespace kvxe
