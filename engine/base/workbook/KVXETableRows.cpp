// The rows of a table as they come, move and go, in step with the graph and the screen.

#include <algorithm>
#include <iostream>
#include <regex>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::CellState;

KVXERow* KVXETable::getOrCreateRow(unsigned int index) {
  if (index < m_rows.size()) return m_rows[index];
  KVXEHeaderRow* header = getOrCreateHeaderRow();
  if (index >= m_rows.capacity()) m_rows.reserve(size_t{index} + 1);
  while (m_rows.size() <= index) appendToScreen(appendRow(header));
  return m_rows[index];
}

KVXERow* KVXETable::appendRow(KVXEHeaderRow* header) {
  KVXERow* row = KVXERow::createRow(this, getRowCount());
  m_rows.push_back(row);
  for (unsigned int column = 0; column < header->getColumnCount(); ++column)
    row->addCell(header->getDefaultCell(column));
  return row;
}

/// Gives a new last row its place and number; those above it keep theirs.
void KVXETable::appendToScreen(KVXERow* row) {
  const unsigned int index = row->getIndex();
  if (index == 0) return;
  int place = static_cast<int>(index);  // counted from 1
  if (!m_guiToEngine.empty()) {
    m_guiToEngine.push_back(index);
    place = static_cast<int>(m_guiToEngine.size());
  }
  if (!m_showRowIds) return;
  KVXECell* cell = row->getChild(0);
  cell->setValAndState(place, cell->getState());
}

void KVXETable::markFirstRowDirty(unsigned int firstColumn) {
  KVXERow* first = getRow(1);
  if (!first) return;
  for (unsigned int column = firstColumn; column < first->getColumnCount(); ++column)
    first->getChild(column)->setState(CellState::DIRTY_DIRTY);
}

void KVXETable::renumberRowsFrom(unsigned int index) {
  for (unsigned int i = index; i < getRowCount(); ++i) m_rows[i]->setIndex(i);
}

/// A table whose numbering is the plain one keeps it without work.
void KVXETable::refreshScreenNumbers() {
  if (!m_guiToEngine.empty()) return populateIndexMapping();
  fillRowIDs();
}

KVXERow* KVXETable::insertRow(unsigned int index) {
  if (!getRow(1)) return nullptr;
  // Row 1 is marked wherever the insertion takes place: the next calculation needs something to start from.
  markFirstRowDirty(getFirstContentColumn());
  if (index > getRowCount() || index == 0) {
    std::cout << "\n Unable to insert row";
    return nullptr;
  }
  KVXEHeaderRow* header = getHeaderRow();
  KVXERow* row = KVXERow::createRow(this, index);
  m_rows.insert(m_rows.begin() + index, row);
  for (unsigned int column = 0; column < header->getColumnCount(); ++column) {
    KVXECell* cell = row->getChild(row->addCell(header->getDefaultCell(column)));
    cell->setState(CellState::DIRTY_DIRTY);
    KVXECalculationMgr::getGlobal().addVertex(cell);
  }
  renumberRowsFrom(index + 1);
  refreshScreenNumbers();
  recordInsertion(index);
  return row;
}

namespace {

bool isEvaluating(const KVXERow& row) {
  for (unsigned int i = 0; const KVXECell* cell = row.getChild(i); ++i)
    if (cell->getIsEvaluating()) return true;
  return false;
}

}  // namespace

void KVXETable::detachFromGraphAndMessages(KVXERow* row) {
  for (unsigned int column = 0; column < row->getChildCount(); ++column) {
    KVXECell* cell = row->getChild(column);
    unregisterMsgCell(cell);
    if (KVXECalculationMgr::getGlobal().hasVertex(cell))
      KVXECalculationMgr::getGlobal().clearEdgesOfVertex(cell);
  }
}

bool KVXETable::deleteRow(unsigned int index) {
  if (index >= getRowCount() || index == 0 || isEvaluating(*m_rows[index])) {
    std::cout << "\n Unable to delete row";
    return false;
  }
  KVXERow* row = m_rows[index];
  detachFromGraphAndMessages(row);
  m_rows.erase(m_rows.begin() + index);
  delete row;
  renumberRowsFrom(index);
  markFirstRowDirty(0);
  refreshScreenNumbers();
  recordDeletion(index);
  return true;
}

void KVXETable::moveDownStreamRowsUpByOneRow(KVXERow* row) {
  if (row) moveDownStreamRowsUpByOneRow(row->getIndex());
}

void KVXETable::moveDownStreamRowsUpByOneRow(unsigned int index) {
  KVXERow* row = getRow(index);
  if (!row || index == 0) return;
  row->resetDefaults();
  for (unsigned int i = index; i + 1 < getRowCount(); ++i)
    for (unsigned int column = getFirstContentColumn(); column < getColumnCount(); ++column)
      m_rows[i + 1]->getChild(column)->copyAssignElements(m_rows[i]->getChild(column));
  m_rows.back()->resetDefaults();
}

void KVXETable::resetDefaults(unsigned int from, unsigned int to) {
  for (unsigned int i = std::max(from, 1u); i <= to && i < getRowCount(); ++i) m_rows[i]->resetDefaults();
}

void KVXETable::setIsEnabled(bool isEnabled) {
  m_isMappingHeld = true;  // once for all rows, not once for each
  for (KVXERow* row : m_rows) row->setIsEnabled(isEnabled);
  m_isMappingHeld = false;
  populateIndexMapping();
}

void KVXETable::addRowIndices(unsigned int index) {
  m_addedRowIndices.insert(index);
  m_deletedRowIndices.erase(index);
}

void KVXETable::deleteRowIndices(unsigned int index) {
  m_deletedRowIndices.insert(index);
  m_addedRowIndices.erase(index);
}

void KVXETable::clearRowIndices() {
  m_addedRowIndices.clear();
  m_deletedRowIndices.clear();
}

namespace {

/// The indices of what stands at or behind `index` move by `step`.
void shiftFrom(std::set<unsigned int>& indices, unsigned int index, int step) {
  std::set<unsigned int> shifted;
  for (const unsigned int i : indices) shifted.insert(i < index ? i : i + static_cast<unsigned int>(step));
  indices = std::move(shifted);
}

/// The index that a row had before any of the changes; it is none of the added ones.
unsigned int indexBefore(unsigned int index, const std::set<unsigned int>& added,
                         const std::set<unsigned int>& deleted) {
  const auto addedBelow = std::distance(added.begin(), added.lower_bound(index));
  unsigned int before = index - static_cast<unsigned int>(addedBelow);
  for (const unsigned int i : deleted) {
    if (i > before) break;
    ++before;
  }
  return before;
}

}  // namespace

/// Rows that come and go in a table that does not show all its rows, or that leave it empty, change more than
/// a list of indices can say.
void KVXETable::requestRedrawUnlessPlain() {
  const bool showsAll = m_guiToEngine.empty() || m_guiToEngine.size() + 1 >= m_rows.size();
  if (!showsAll || m_rows.size() < 2) KVXECellStateMgr::getGlobal().requestGuiRedraw();
}

void KVXETable::recordInsertion(unsigned int index) {
  shiftFrom(m_addedRowIndices, index, 1);
  m_addedRowIndices.insert(index);
  requestRedrawUnlessPlain();
}

void KVXETable::recordDeletion(unsigned int index) {
  if (m_addedRowIndices.erase(index) == 0)
    m_deletedRowIndices.insert(indexBefore(index, m_addedRowIndices, m_deletedRowIndices));
  shiftFrom(m_addedRowIndices, index, -1);
  requestRedrawUnlessPlain();
}

// Lookup.

namespace {

/// Compares a cell's text with the key, reporting the read; a string cell is compared in place.
class KeyMatcher {
 public:
  KeyMatcher(const std::string& key, bool useRegex) : m_key(key) {
    if (!useRegex) return;
    m_isTooLong = key.size() > MaxLength;
    if (m_isTooLong) {
      std::cout << "Warning: a pattern of " << key.size() << " characters is too long and matches nothing."
                << '\n';
    } else {
      m_pattern.emplace(key);
    }
  }

  bool operator()(KVXECell* cell) {
    if (m_isTooLong) return false;
    const std::string* text = &m_text;
    if (cell->getCellType() == KVXEEnums::CellType::STRING) {
      text = &static_cast<KVXEStringCell*>(cell)->readVal(true);
    } else {
      cell->getVal(m_text, true);
    }
    if (!m_pattern) return *text == m_key;
    if (text->size() <= MaxLength) return std::regex_match(*text, *m_pattern);
    std::cout << "Warning: a text of " << text->size()
              << " characters is too long to be matched with the pattern " << m_key
              << " and counts as no match: " << cell->describe(" -> ").substr(0, MaxLength) << '\n';
    return false;
  }

 private:
  // std::regex recurses several times per character of text and of pattern; at this length a stack of 1 MiB
  // suffices.
  static constexpr size_t MaxLength = 800;

  const std::string& m_key;
  std::optional<std::regex> m_pattern;
  std::string m_text;
  bool m_isTooLong = false;
};

}  // namespace

bool KVXETable::lookup(const std::string& key, const KVXETitle* from, const KVXETitle* to,
                       std::vector<KVXECell*>& out, bool useRegex, bool stopAtFirst) {
  out.clear();
  const unsigned int fromIndex = findTitle(from);
  const unsigned int toIndex = findTitle(to);
  if (!getHeaderRow() || fromIndex == 0xFFFFFFFF || toIndex == 0xFFFFFFFF) {
    std::cout << "Error: lookup function could not find given headers. fromIndex = " << fromIndex
              << " , toIndex = " << toIndex
              << " , getTableTitle()->getDisplayTag() = " << getTableTitle()->getDisplayTag(false) << '\n';
    return false;
  }
  KeyMatcher matches(key, useRegex);
  for (unsigned int i = 1; i < getRowCount(); ++i) {
    KVXECell* read = m_rows[i]->getCell(fromIndex);
    if (!read || !matches(read)) continue;
    KVXECell* found = m_rows[i]->getCell(toIndex);
    if (!found) continue;  // a row does not get the columns that were added after it
    out.push_back(found);
    if (stopAtFirst) return true;
  }
  return !out.empty();
}

std::string KVXETable::checkInvariants() const {
  for (unsigned int i = 0; i < getRowCount(); ++i) {
    const KVXERow* row = m_rows[i];
    if (row->getIndex() != i) return "row " + std::to_string(i) + " holds another index";
    if (row->getTable() != this) return "row " + std::to_string(i) + " belongs to another table";
    if (i > 0 && row->getChildCount() > getColumnCount())
      return "row " + std::to_string(i) + " has too many cells";
    for (unsigned int column = 0; column < row->getChildCount(); ++column) {
      const KVXECell* cell = row->getChild(column);
      if (!cell || cell->getRow() != row || cell->getColumnIndex() != column)
        return "a cell of row " + std::to_string(i) + " does not know its place";
    }
  }
  for (const KVXECell* cell : m_msgCells)
    if (!raisesSeverity(cell->getSeverity())) return "a cell without a warning or error is kept as one";
  return {};
}
