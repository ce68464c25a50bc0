// The tables that other parts read: the totals, and the resources of the device.

#include <algorithm>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/KVXMHelperUtils.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Visibility;

// Totals.

void KVXESummaryTab::initPowerInfoTable(KVXEFormula formula) {
  const KVXEColumn columns[] = {
      {.title = &m_KeyCol, .type = STRING},
      {.title = &m_ValueCol, .type = STRING},
  };
  const KVXEFixedRow rows[] = {
      {.text = &m_staticKeyStr, .formula = formula},
      {.text = &m_dynamicKeyStr, .formula = formula},
      {.text = &m_totalKeyStr, .formula = formula},
  };
  KVXETable* table = createTable(&m_StoreInfoTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  table->setVisibility(Visibility::ALWAYS_HIDDEN);
  kvxe::addFixedRows(*table, m_KeyCol, m_ValueCol, rows);
}

void KVXESummaryTab::updatePowerInfoTable(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_StoreInfoTable}, "Summary table")) return;
  const std::string key = textInRow(uid, m_KeyCol);
  float watts = 0.0f;
  if (key == m_staticKeyStr) {
    watts = getFpgaStaticPower(uid);
  } else if (key == m_dynamicKeyStr) {
    watts = getFpgaDynamicPower(uid);
  } else {
    watts = getPower(uid, m_staticKeyStr) + getPower(uid, m_dynamicKeyStr);
  }
  uid.getCell()->setValAndMarkEngineClean(watts);
}

// Resources.

namespace {

/// Rows enough for every device that the book may come to hold: it stays when another device is selected.
unsigned int mostResources() {
  size_t most = 0;
  for (const kvxm::Device& device : kvxm::DeviceCatalogue::getGlobal().devices())
    most = std::max(most, device.resources.size());
  return static_cast<unsigned int>(most);
}

}  // namespace

void KVXESummaryTab::initResourceTable() {
  const KVXEColumn columns[] = {
      {.title = &m_resourceTypeColumn, .type = STRING, .formula = &updateResourceTableResources},
      {.title = &m_resourceAvailCountColumn, .type = STRING, .formula = &updateResourceTableResources},
  };
  KVXETable* table = createTable(&m_resourceTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  table->setVisibility(Visibility::ALWAYS_HIDDEN);
  table->getOrCreateRow(mostResources());
}

/// Any cell of the table writes all of it, so that the device is asked once for each calculation.
void KVXESummaryTab::updateResourceTableResources(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_resourceTable}, "Summary table")) return;
  std::map<std::string, int> resources;
  if (const KVXEPartSelection* selection = KVXEPartSelection::getGlobal()) selection->getResources(resources);
  auto next = resources.begin();
  for (unsigned int i = 1; i < uid.getTable()->getRowCount(); ++i) {
    KVXERow* row = uid.getTable()->getRow(i);
    KVXECell* type = row->getCell(&m_resourceTypeColumn);
    KVXECell* count = row->getCell(&m_resourceAvailCountColumn);
    setRowVisible(row, next != resources.end());
    if (next == resources.end()) {
      type->setBlankAndMarkEngineClean();
      count->setBlankAndMarkEngineClean();
      continue;
    }
    type->setValAndMarkEngineClean(next->first);
    count->setValAndMarkEngineClean(KVXMHelperUtils::ToString(next->second));
    ++next;
  }
}
