#include "engine/som/KVXESomForeignCell.h"

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxe {

namespace {

const KVXETitle* findColumn(const KVXETable& table, const char* name) {
  const KVXEHeaderRow* header = table.getHeaderRow();
  for (unsigned int i = 0; header && i < header->getColumnCount(); ++i) {
    const KVXETitle* title = header->getIndexToTitle(i);
    if (title && title->getTag(KVXEEnums::TitleType::SW) == name) return title;
  }
  return nullptr;
}

}  // namespace

KVXECell* findCell(const KVXEBook& book, const ForeignCell& place) {
  KVXETab* tab = book.getTab(place.tab);
  const KVXETable* table = tab && tab->getIsEnabled() ? tab->getTable(place.table) : nullptr;
  const KVXETitle* key = table ? findColumn(*table, place.keyColumn) : nullptr;
  const KVXETitle* value = key ? findColumn(*table, place.valueColumn) : nullptr;
  return value ? tab->lookup<std::string>(table->getTableTitle(), place.key, key, value, false) : nullptr;
}

}  // namespace kvxe
