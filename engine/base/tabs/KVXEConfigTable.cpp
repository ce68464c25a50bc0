#include "engine/base/tabs/KVXEConfigTable.h"

#include "engine/base/workbook/KVXETable.h"

namespace kvxe {

KVXETable* createConfigTable(KVXETab& tab, const KVXETitle& title, std::span<const KVXEColumn> columns,
                             const std::string& widgetTitle) {
  KVXETable* table = tab.createTable(&title, true, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  table->setTabWidgetTitle(widgetTitle);
  table->setHasTableEditingFeatures(true);
  table->getOrCreateRow(configRowCount);
  return table;
}

}  // namespace kvxe
