#include "engine/base/workbook/KVXETabFactory.h"

#include "engine/base/workbook/KVXEDebugTab.h"

KVXETab* KVXETabFactory::createTab(KVXEEnums::TabType type) {
  if (type != KVXEEnums::TabType::DEBUG) return std::make_unique<KVXETab>(m_book, type).release();
  auto tab = std::make_unique<KVXEDebugTab>(m_book, type);
  tab->init();
  return tab.release();
}
