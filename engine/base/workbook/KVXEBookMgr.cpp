#include "engine/base/workbook/KVXEBookMgr.h"

#include <iostream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXEBook.h"

std::string KVXEBookMgr::m_lastArchName = KVXEBookMgr::NoArchName;

KVXEBookMgr& KVXEBookMgr::getGlobal() {
  static KVXEBookMgr manager;
  return manager;
}

KVXEBookMgr::KVXEBookMgr() {
  KVXECalculationMgr::getGlobal();  // dying cells report there, so the books end first
}

KVXEBookMgr::~KVXEBookMgr() = default;

KVXEBook* KVXEBookMgr::getCurrentBook(std::string archName) const {
  if (archName == NoArchName) archName = m_lastArchName;
  if (archName == NoArchName) {
    std::cout << "ERROR: Exception both archName and lastArchName are NONE" << '\n';
    return nullptr;
  }
  for (const auto& book : m_books) {
    if (book->getArchName() != archName) continue;
    m_lastArchName = archName;
    return book.get();
  }
  return nullptr;
}

KVXEBook* KVXEBookMgr::getOrCreateCurrentBook(std::string archName) {
  if (KVXEBook* book = getCurrentBook(archName)) return book;
  if (archName == NoArchName && m_lastArchName != NoArchName) archName = m_lastArchName;
  m_books.clear();
  m_books.push_back(std::make_unique<KVXEBook>(0, archName));
  m_lastArchName = archName;
  return m_books.back().get();
}

KVXEBook* KVXEBookMgr::getBook(unsigned int index) const {
  return index < m_books.size() ? m_books[index].get() : nullptr;
}

void KVXEBookMgr::closeProject() {
  m_books.clear();
}
