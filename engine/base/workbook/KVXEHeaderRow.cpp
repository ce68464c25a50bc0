#include "engine/base/workbook/KVXEHeaderRow.h"

#include <iostream>

#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXETitle.h"

namespace {

constexpr unsigned int NoColumn = 0xFFFFFFFF;

void warnUnlessHeaderIndex(unsigned int index) {
  if (index != 0) std::cout << "Warning: row index 0 has to be used for the header row." << '\n';
}

}  // namespace

KVXEHeaderRow::KVXEHeaderRow(KVXETable* table, unsigned int index) : KVXERow(table, index) {
  warnUnlessHeaderIndex(index);
}

void KVXEHeaderRow::setIndex(unsigned int index) {
  warnUnlessHeaderIndex(index);
}

KVXECell* KVXEHeaderRow::getCell(const KVXETitle* title) {
  return getDisplayCell(getTitleToIndex(title));
}

KVXECell* KVXEHeaderRow::getDefaultCell(const KVXETitle* title) {
  const unsigned int column = getTitleToIndex(title);
  return column == NoColumn ? nullptr : getDefaultCell(column);
}

unsigned int KVXEHeaderRow::addCell(KVXEEnums::CellType type) {
  const unsigned int column = getColumnCount();
  for (const KVXEEnums::CellType child : {type, KVXEEnums::CellType::HEADER}) {
    KVXECell* cell = KVXECell::CreateCell(child, this, getChildCount());
    cell->setState(KVXEEnums::CellState::HEADER_DISABLED);
    append(cell);
  }
  return column;
}

unsigned int KVXEHeaderRow::addCell(const KVXECell* source) {
  const unsigned int column = addCell(source->getCellType());
  KVXECell* cell = getDefaultCell(column);
  source->copyAssignElements(cell);
  return column;
}

void KVXEHeaderRow::assignHeaderToIndex(const KVXETitle* title, unsigned int index) {
  if (!title) return;
  const auto [found, isNew] = m_titleToIndex.emplace(title, index);
  if (isNew) {
    if (m_indexToTitle.size() <= index) m_indexToTitle.resize(index + 1);
    if (!m_indexToTitle[index]) m_indexToTitle[index] = title;
    return;
  }
  std::cout << "Error: A column name must be unique for a table."
            << "Column " << found->second << " and " << index
            << " have same header: " << title->getDisplayTag(false) << '\n';
}

unsigned int KVXEHeaderRow::findTitle(const KVXETitle* title) const {
  if (!title) return NoColumn;
  const unsigned int hint = title->m_columnHint;
  if (hint < m_indexToTitle.size() && m_indexToTitle[hint] == title) return hint;
  const auto found = m_titleToIndex.find(title);
  if (found == m_titleToIndex.end()) return NoColumn;
  return title->m_columnHint = found->second;
}

unsigned int KVXEHeaderRow::getTitleToIndex(const KVXETitle* title) const {
  const unsigned int column = findTitle(title);
  if (column == NoColumn)
    std::cout << "Error: Given header " << (title ? title->getDisplayTag(false) : std::string())
              << " does not exist (yet) in the table." << '\n';
  return column;
}

const KVXETitle* KVXEHeaderRow::getIndexToTitle(unsigned int index) const {
  return index < m_indexToTitle.size() ? m_indexToTitle[index] : nullptr;
}

void KVXEHeaderRow::populateTagToIndex(KVXEEnums::TitleType type,
                                       std::unordered_map<std::string, unsigned int>& map) const {
  for (const auto& [title, column] : m_titleToIndex) map[title->getTag(type)] = column;
}

void KVXEHeaderRow::populateIndexToTag(KVXEEnums::TitleType type,
                                       std::unordered_map<unsigned int, std::string>& map) const {
  for (const auto& [title, column] : m_titleToIndex) map[column] = title->getTag(type);
}
