#include "engine/base/tabs/KVXERailPowerIndex.h"

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxe {

namespace {

const KVXETab* tabOf(const KVXECell& cell) {
  return cell.getRow()->getTable()->getTab();
}

/// The total of a power table leaves out what is hidden or disabled, and so do the rails.
bool counts(const KVXECell& cell) {
  return tabOf(cell)->getIsEnabled() && cell.getRow()->getVisibility() == KVXEEnums::Visibility::EXTERNAL;
}

}  // namespace

void RailPowerIndex::refresh(const KVXEBook& book) {
  std::vector<const KVXETable*> tables(book.getTabCount());
  for (unsigned int i = 0; i < tables.size(); ++i) {
    const KVXETab* tab = book.getTab(i);
    tables[i] = tab ? tab->getTable(&KVXETab::m_PowerTable) : nullptr;
  }
  if (tables == m_tables) return;
  m_tables = tables;
  m_cells.clear();
  for (const KVXETable* table : tables) {
    if (!table || table->findTitle(&KVXETab::m_InternalRailColumn) == 0xFFFFFFFF) continue;
    for (unsigned int i = 1; i < table->getRowCount(); ++i) {
      std::string rail;
      if (table->getCellAt(i, &KVXETab::m_InternalRailColumn)->getVal(rail, false))
        m_cells[rail].push_back(table->getCellAt(i, &KVXETab::m_ActivePowerColumn));
    }
  }
}

float RailPowerIndex::activePower(const KVXEBook& book, const std::string& rail) {
  refresh(book);
  const auto found = m_cells.find(rail);
  if (found == m_cells.end()) return 0.0f;
  double watts = 0.0;
  for (KVXECell* cell : found->second) {
    float value = 0.0f;
    if (cell->getVal(value, true) && counts(*cell)) watts += value;
  }
  return static_cast<float>(watts);
}

}  // namespace kvxe
