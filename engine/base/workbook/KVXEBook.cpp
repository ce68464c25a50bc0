#include "engine/base/workbook/KVXEBook.h"

#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETabFactory.h"

namespace {

constexpr size_t SlotCount = static_cast<size_t>(KVXEEnums::TabType::NumItems);

}  // namespace

KVXEBook::KVXEBook(unsigned int index, std::string archName)
    : m_tabs(SlotCount), m_index(index), m_archName(std::move(archName)) {
  m_factory = KVXETabFactory::createFor(m_archName, this);
}

KVXEBook::~KVXEBook() {
  deleteTabs(false);
}

KVXETab* KVXEBook::getOrCreateTab(KVXEEnums::TabType type) {
  const auto slot = static_cast<size_t>(type);
  if (slot >= m_tabs.size()) return nullptr;
  if (!m_tabs[slot]) m_tabs[slot] = m_factory->createTab(type);
  return m_tabs[slot];
}

KVXETable* KVXEBook::getTable(KVXEEnums::TabType type, const KVXETitle* title) const {
  const KVXETab* tab = getTab(type);
  return tab ? tab->getTable(title) : nullptr;
}

void KVXEBook::deleteTabs(bool recreateSlots) {
  for (KVXETab* tab : m_tabs) delete tab;
  m_tabs.assign(recreateSlots ? SlotCount : 0, nullptr);
}
