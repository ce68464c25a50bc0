#include "engine/base/config/ConfigMgr.h"

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxe {

namespace {

bool isManaged(const KVXEBook* book) {
  const KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  for (unsigned int i = 0; i < books.getBookCount(); ++i)
    if (books.getBook(i) == book) return true;
  return false;
}

}  // namespace

void ConfigMgr::setBook(KVXEBook* book) {
  m_bindings.clear();
  m_book = book;
  m_isBookManaged = isManaged(book);
}

bool ConfigMgr::isBookOpen() const {
  return m_book && (!m_isBookManaged || isManaged(m_book));
}

KVXETable* ConfigMgr::findTable(KVXEEnums::TabType tabType, const KVXETitle& title) const {
  const KVXETab* tab = isBookOpen() ? m_book->getTab(tabType) : nullptr;
  return tab && tab->getIsEnabled() ? tab->getTable(&title) : nullptr;
}

std::shared_ptr<void> ConfigMgr::findLive(std::type_index type) const {
  const auto found = m_bindings.find(type);
  if (found == m_bindings.end()) return nullptr;
  const Binding& binding = found->second;
  // Another book may stand where the old one stood: the table itself must be there.
  return findTable(binding.tabType, *binding.tableTitle) == binding.table ? binding.ifc : nullptr;
}

}  // namespace kvxe
