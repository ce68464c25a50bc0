#include "engine/base/workbook/KVXEUID.h"

#include <iostream>
#include <limits>
#include <sstream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::AtomType;

namespace {

constexpr unsigned int Unset = 0xFFFFFFFF;
constexpr unsigned short levelOf(AtomType type) {
  return static_cast<unsigned short>(type);
}

// How each level is reached from its parent and how many siblings it has, which gives its field's width.
// clang-format off
unsigned int childCount(const KVXEBookMgr& mgr) { return mgr.getBookCount(); }
unsigned int childCount(const KVXEBook& book) { return book.getTabCount(); }
unsigned int childCount(const KVXETab& tab) { return tab.getTableCount(); }
unsigned int childCount(const KVXETable& table) { return table.getRowCount(); }
unsigned int childCount(const KVXERow& row) { return row.getChildCount(); }

KVXEBook* childAt(KVXEBookMgr* mgr, unsigned int i) { return mgr->getBook(i); }
KVXETab* childAt(KVXEBook* book, unsigned int i) { return book->getTab(i); }
KVXETable* childAt(KVXETab* tab, unsigned int i) { return tab->getTable(i); }
KVXERow* childAt(KVXETable* table, unsigned int i) { return table->getRow(i); }
KVXECell* childAt(KVXERow* row, unsigned int i) { return row->getChild(i); }

KVXEBookMgr* parentOf(KVXEBook*) { return &KVXEBookMgr::getGlobal(); }
KVXEBook* parentOf(KVXETab* tab) { return tab->getBook(); }
KVXETab* parentOf(KVXETable* table) { return table->getTab(); }
KVXETable* parentOf(KVXERow* row) { return row->getTable(); }
KVXERow* parentOf(KVXECell* cell) { return cell->getRow(); }

unsigned int indexOf(const KVXEBook& book) { return book.getIndex(); }
unsigned int indexOf(const KVXETab& tab) { return tab.getIndex(); }
unsigned int indexOf(const KVXETable& table) { return table.getIndex(); }
unsigned int indexOf(const KVXERow& row) { return row.getIndex(); }
unsigned int indexOf(const KVXECell& cell) { return cell.getColumnIndex(); }
// clang-format on

}  // namespace

KVXEUID::KVXEUID(KVXEBook* book) {
  init();
  m_atomType = AtomType::BOOK;
  setUpwardLineage(book, 0);
}

KVXEUID::KVXEUID(KVXETab* tab) {
  init();
  m_atomType = AtomType::TAB;
  setUpwardLineage(tab, 1);
}

KVXEUID::KVXEUID(KVXETable* table) {
  init();
  m_atomType = AtomType::TABLE;
  setUpwardLineage(table, 2);
}

KVXEUID::KVXEUID(KVXERow* row) {
  init();
  m_atomType = AtomType::ROW;
  setUpwardLineage(row, 3);
}

KVXEUID::KVXEUID(KVXECell* cell) {
  init();
  m_atomType = AtomType::CELL;
  setUpwardLineage(cell, 4);
}

KVXEUID::KVXEUID(unsigned long id, AtomType type) {
  init();
  m_atomType = type;
  if (type < AtomType::NumItems) setDownwardLineage(&KVXEBookMgr::getGlobal(), 0, 1, id);
}

void KVXEUID::init() {
  m_atomType = AtomType::NumItems;
  m_ptrs.fill(nullptr);
  m_ids.fill(Unset);
  m_uIds.fill(std::numeric_limits<unsigned long>::max());
}

unsigned long KVXEUID::getUId() const {
  return m_atomType < AtomType::NumItems ? m_uIds[levelOf(m_atomType)]
                                         : std::numeric_limits<unsigned long>::max();
}

unsigned int KVXEUID::upper_bound_10x(unsigned int n) {
  constexpr unsigned int Largest = 1000000000;
  unsigned int bound = 1;
  while (bound <= n && bound < Largest) bound *= 10;
  return bound;
}

bool KVXEUID::Compare(const KVXEUID& a, const KVXEUID& b) {
  if (a.m_atomType != b.m_atomType)
    std::cout << "Error: compare UID called for two different type of UIDs." << '\n';
  return a.m_ids < b.m_ids;
}

void KVXEUID::setLevel(unsigned short level, void* atom, unsigned int index, unsigned long id) {
  m_ptrs.at(level) = atom;
  m_ids.at(level) = index;
  m_uIds.at(level) = id;
}

/// Fills the level of `atom` and all above; returns the weight of the fields below it.
template <class T>
unsigned long KVXEUID::setUpwardLineage(T* atom, unsigned short level) {
  if (!atom) return 1;
  auto* parent = parentOf(atom);
  if (!parent) return 1;
  unsigned long weight = 1;
  if constexpr (!std::is_same_v<T, KVXEBook>) weight = setUpwardLineage(parent, level - 1);
  const unsigned int index = indexOf(*atom);
  // The tab's identifier leaves the book out; with one book at index 0 that makes no difference.
  const unsigned long above = level > 1 && m_ptrs[level - 1] ? m_uIds[level - 1] : 0;
  setLevel(level, atom, index, index * weight + above);
  return weight * upper_bound_10x(childCount(*parent));
}

/// Fills the levels from `level` down out of the digits in `rest`. A missing object ends the descent.
template <class T>
void KVXEUID::setDownwardLineage(T* parent, unsigned short level, unsigned long weight, unsigned long rest) {
  const unsigned long width = upper_bound_10x(childCount(*parent));
  const unsigned long index = rest % width;
  auto* child = childAt(parent, static_cast<unsigned int>(index));
  if (!child) return;
  const unsigned long above = level > 1 ? m_uIds[level - 1] : 0;
  setLevel(level, child, static_cast<unsigned int>(index), index * weight + above);
  if constexpr (!std::is_same_v<T, KVXERow>)
    if (level < levelOf(m_atomType)) setDownwardLineage(child, level + 1, weight * width, rest / width);
}

namespace {

std::string valueOf(KVXECell* cell) {
  std::string text;
  if (cell) cell->getVal(text, false);
  return text;
}

std::string rightAligned(unsigned int number, size_t width) {
  return KVXMHelperUtils::i2s(static_cast<int>(number), static_cast<int>(width), ' ');
}

std::string describeRow(KVXERow* row) {
  KVXETable* table = row->getTable();
  const size_t width = std::to_string(table->getRowCount()).size();
  int gui = 0;
  const bool isOnScreen = table->engineToGuiIndex(row->getIndex(), gui);
  return " -> Row(Engine:" + rightAligned(row->getIndex(), width) +
         ", Gui:" + (isOnScreen ? rightAligned(static_cast<unsigned int>(gui), width) : "Hidden") + " )";
}

std::string describeRowValues(KVXERow* row, const KVXECell* marked) {
  std::string text = "Row-Values: ";
  for (unsigned int i = 0; KVXECell* cell = row->getChild(i); ++i)
    text += cell == marked ? "| ==> " + valueOf(cell) + " <== " : "| " + valueOf(cell) + " ";
  return text + "|";
}

std::string columnTitleOf(KVXECell* cell) {
  const KVXEHeaderRow* header = cell->getHeaderRow();
  if (!header) return {};
  const bool isInHeader = cell->getRow() == header;
  const KVXETitle* title = header->getIndexToTitle(cell->getColumnIndex() / (isInHeader ? 2 : 1));
  return title ? title->getDisplayTag(false) : std::string();
}

}  // namespace

std::string KVXEUID::describe(const std::string& separator) const {
  const KVXECalculationMgr::Recording none(false);  // what a diagnosis reads is no dependency
  std::string text;
  if (getTab()) text += getTab()->getPBTitle() + " Tab";
  if (getTable()) text += " -> " + getTable()->getTableTitle()->getDisplayTag(false) + " Table";
  if (getCell()) text += " -> " + columnTitleOf(getCell()) + " Column";
  if (getRow()) text += describeRow(getRow());
  if (getCell()) text += " -> CellValue: " + valueOf(getCell()) + " -> CellUID: " + std::to_string(getUId());
  if (getRow()) text += separator + describeRowValues(getRow(), getCell());
  return text;
}

std::string KVXEUID::reflect() const {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << "Index mapping\n";
  for (unsigned short level = 0; level < 5; ++level)
    out << level << " = " << static_cast<AtomType>(level) << '\n';
  const auto list = [&out](const auto& values) {
    out << "( ";
    for (const auto& value : values) out << value << ' ';
    out << ')';
  };
  out << "m_atomType = " << m_atomType << " , m_ptrs = ";
  list(m_ptrs);
  out << " , m_ids = ";
  list(m_ids);
  out << " , m_uIds = ";
  list(m_uIds);
  out << '\n';
  return out.str();
}
