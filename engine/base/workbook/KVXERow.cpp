#include "engine/base/workbook/KVXERow.h"

#include <iostream>

#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXEViewer.h"

using KVXEEnums::CellType;
using KVXEEnums::Visibility;

KVXERow* KVXERow::createRow(KVXETable* table, unsigned int index) {
  return index == 0 ? new KVXEHeaderRow(table, index) : new KVXERow(table, index);
}

KVXERow::~KVXERow() {
  for (KVXECell* cell : m_cells) delete cell;
}

KVXECell* KVXERow::getCell(unsigned int column) {
  return getChild(column);
}

KVXECell* KVXERow::getCell(const KVXETitle* title) {
  return m_table ? getChild(m_table->getTitleToIndex(title)) : nullptr;
}

unsigned int KVXERow::append(KVXECell* cell) {
  if (m_cells.empty() && m_table) m_cells.reserve(m_table->getColumnCount());
  m_cells.push_back(cell);
  return static_cast<unsigned int>(m_cells.size() - 1);
}

unsigned int KVXERow::addCell(CellType type) {
  return append(KVXECell::CreateCell(type, this, static_cast<unsigned int>(m_cells.size())));
}

unsigned int KVXERow::addCell(const KVXECell* source) {
  KVXECell* cell =
      KVXECell::CreateCell(source->getCellType(), this, static_cast<unsigned int>(m_cells.size()));
  source->copyAssignElements(cell);
  return append(cell);
}

void KVXERow::setIndex(unsigned int index) {
  if (index == 0) std::cout << "Warning: row index 0 is reserved for the header row." << '\n';
  m_index = index;
}

namespace {

unsigned int firstContentColumn(const KVXETable* table) {
  return table ? table->getFirstContentColumn() : 0;
}

}  // namespace

void KVXERow::resetDefaults() {
  KVXEHeaderRow* header = m_table ? m_table->getHeaderRow() : nullptr;
  if (!header || header == this) return;
  for (unsigned int column = firstContentColumn(m_table); column < getColumnCount(); ++column)
    if (KVXECell* source = header->getDefaultCell(column)) source->copyAssignElements(getChild(column));
}

void KVXERow::setIsEditable(bool isEditable) {
  for (KVXECell* cell : m_cells) cell->setIsEditable(isEditable);
}

void KVXERow::setIsEnabled(bool isEnabled) {
  if (isEnabled == m_isEnabled) return;
  m_isEnabled = isEnabled;
  for (KVXECell* cell : m_cells) cell->setIsEnabled(isEnabled);
  if (m_table) m_table->populateIndexMapping();
}

void KVXERow::setVisibility(Visibility visibility) {
  if (visibility == m_visibility) return;
  m_visibility = visibility;
  KVXECellStateMgr::getGlobal().requestGuiRedraw();
  if (m_table) m_table->populateIndexMapping();
}

bool KVXERow::hasPlaceOnScreen() const {
  return m_isEnabled && KVXEViewer::sees(m_visibility);
}

void KVXERow::copyAssignElements(KVXERow* target) {
  if (!target || target->getColumnCount() != getColumnCount()) return;
  for (unsigned int column = firstContentColumn(target->m_table); column < getColumnCount(); ++column) {
    const KVXECell* source = getContentCell(column);
    if (source) source->copyAssignElements(target->getContentCell(column));
  }
}

namespace {

/// The value as it is compared on screen: a zero in a number column counts as blank.
std::string comparableText(KVXECell* cell) {
  std::string text;
  if (!cell->getVal(text, true)) return {};
  const CellType type = cell->getCellType();
  return (type == CellType::INT || type == CellType::FLOAT) && text == "0" ? std::string() : text;
}

}  // namespace

bool KVXERow::isEquivalentElements(KVXERow* other, bool externalOnly) {
  if (!other || other->getColumnCount() != getColumnCount()) return false;
  for (unsigned int column = firstContentColumn(m_table); column < getColumnCount(); ++column) {
    KVXECell* mine = getContentCell(column);
    KVXECell* theirs = other->getContentCell(column);
    if (!mine || !theirs) return false;
    if (!externalOnly) {
      if (!mine->isEquivalentElements(theirs)) return false;
      continue;
    }
    const bool isShown = m_table->getColumnVisibility(column) == Visibility::EXTERNAL ||
                         other->m_table->getColumnVisibility(column) == Visibility::EXTERNAL;
    if (isShown && comparableText(mine) != comparableText(theirs)) return false;
  }
  return true;
}

bool KVXERow::isEquivalentToDefault(bool externalOnly) {
  return m_table && m_table->isDefaultRow(this, externalOnly);
}
