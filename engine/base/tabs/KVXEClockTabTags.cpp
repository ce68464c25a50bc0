// Clock tags: how they come about, reach the drop-down lists of other tabs, and follow a clock that is
// renamed.

#include <algorithm>
#include <boost/unordered/unordered_flat_set.hpp>
#include <unordered_set>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::CellState;
using KVXEEnums::TabType;

namespace {

/// While it lives, what happens to the cell is an evaluation of the cell's own: it makes no edges with the
/// cells that the running formula reads and writes.
class OwnEvaluation {
 public:
  explicit OwnEvaluation(KVXECell* cell) : m_cell(cell) { report(KVXECalculationMgr::BEGIN_EVAL); }
  ~OwnEvaluation() { report(KVXECalculationMgr::END_EVAL); }
  OwnEvaluation(const OwnEvaluation&) = delete;
  OwnEvaluation& operator=(const OwnEvaluation&) = delete;

 private:
  void report(KVXECalculationMgr::NodeAction action) {
    KVXECalculationMgr::getGlobal().registerAction(action, m_cell);
  }
  KVXECell* m_cell;
};

KVXEClockTab* clockTabOf(KVXEBook* book) {
  return book ? dynamic_cast<KVXEClockTab*>(book->getTab(TabType::CLOCK)) : nullptr;
}

/// Calls `visit(table, column)` for every clock column of the book.
template <class Visit>
void forEachClockColumn(KVXEBook* book, Visit visit) {
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    KVXETab* tab = book->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      KVXETable* table = tab->getTable(j);
      for (unsigned int column = 0; column < table->getColumnCount(); ++column)
        if (table->getHeaderRow()->getDefaultCell(column)->getFormula() == &KVXEClockTab::updateClockDropdown)
          visit(table, column);
    }
  }
}

/// Puts a text into a cell as if its owner had chosen it: the source of the value stays, and what depends on
/// the cell follows. A cell that is still dirty comes up later in this round, and so does all that reads it.
void carryInto(KVXECell* cell, const std::string& text) {
  const KVXEEnums::ValueSource source = cell->getValueSource();
  const bool isYetToCome = !cell->isEngineClean();
  cell->setValAndState(text, cell->getState());
  cell->setValueSource(source);
  if (isYetToCome) return;
  cell->markBothDirty();
  cell->markDirtyForNextCalculationIteration();
}

}  // namespace

void KVXEClockTab::updateClockSource(const KVXEUID& uid) {
  auto* cell = dynamic_cast<KVXEStringCell*>(uid.getCell());
  if (!cell || !kvxe::isInTable(uid, m_ClockConfigTable, "source of a clock")) return;
  auto* column = dynamic_cast<KVXEStringCell*>(uid.getTable()->getHeaderRow()->getDefaultCell(&m_Source));
  std::vector<std::string> list = column->getDDVals();
  const std::string& source = cell->readVal(false);
  // An output of a clock manager reads "type:manager:output".
  if (source.find(':') != std::string::npos) list.push_back(source);
  kvxe::offerInCell(cell, list);
}

void KVXEClockTab::clockFreqChanged(const KVXEUID& uid) {
  uid.getCell()->markEngineClean();  // the tag reads the frequency, so it follows by itself
}

void KVXEClockTab::updateClockTagRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "clock tag")) return;
  auto* cell = static_cast<KVXEStringCell*>(uid.getCell());
  std::string name;
  const bool hasName = uid.getRow()->getCell(&m_Name)->getVal(name, true);
  float megahertz = 0.0f;
  const bool hasFrequency = uid.getRow()->getCell(&m_ClockFreq)->getVal(megahertz, true);
  const std::string tag =
      hasName && hasFrequency ? kvxe::ClockTag::construct(name, megahertz) : std::string();
  const std::string& old = cell->readVal(false);
  if (auto* tab = dynamic_cast<KVXEClockTab*>(uid.getTab())) tab->m_tagChanges.push_back({old, tag, cell});
  cell->setValAndMarkEngineClean(tag);
}

// The list of all tags.

void KVXEClockTab::updateClockTagList(const KVXEUID& uid) {
  auto* tab = dynamic_cast<KVXEClockTab*>(uid.getTab());
  if (!tab || !kvxe::isInTable(uid, m_ClockTagTable, "list of clock tags")) return;
  tab->readClockTags();
  const std::vector<TagChange> changes = std::exchange(tab->m_tagChanges, {});
  tab->carryRenames(tab->findRenames(changes), changes);
  uid.getCell()->setValAndMarkEngineClean(static_cast<int>(tab->m_tags.size()));
}

void KVXEClockTab::readClockTags() {
  m_tagRows.clear();
  m_tags.clear();
  KVXETable* table = getTable(&m_ClockConfigTable);
  const unsigned int column = table ? table->getTitleToIndex(&m_ClockTag) : 0;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    const std::string& tag = static_cast<KVXEStringCell*>(table->getCellAt(i, column))->readVal(true);
    if (tag.empty()) continue;
    TagRows& rows = m_tagRows[tag];
    if (rows.count++ > 0) continue;
    rows.first = i;
    m_tags.push_back(tag);
  }
}

/// The tags that changed, by the old one. A tag that a clock has kept is none of them, nor is one that became
/// blank: a clock that loses its name or frequency for a while must not take the choices of other tabs with
/// it.
KVXEClockTab::Renames KVXEClockTab::findRenames(const std::vector<TagChange>& changes) const {
  boost::unordered_flat_map<std::string, unsigned int> arrivals;
  for (const TagChange& change : changes)
    if (change.from != change.to) ++arrivals[change.to];
  Renames renames;
  for (const auto& [from, to, cell] : changes) {
    if (from.empty() || to.empty() || from == to) continue;
    const auto holders = m_tagRows.find(from);
    const auto arrived = arrivals.find(from);
    const unsigned int held = holders == m_tagRows.end() ? 0 : holders->second.count;
    const bool isKept = held > (arrived == arrivals.end() ? 0 : arrived->second);
    if (!isKept) renames.try_emplace(from, to);
  }
  return renames;
}

/// The cells of clock columns that may hold one of the old tags: while the graph holds, those that read a tag
/// cell which was made anew (rows may have moved, so the one that changed is not always the one that was
/// read); while the graph is learned, all there are.
std::vector<KVXECell*> KVXEClockTab::cellsThatMayName(const std::vector<TagChange>& changes) {
  std::vector<KVXECell*> cells;
  KVXECalculationMgr& calculation = KVXECalculationMgr::getGlobal();
  if (calculation.getIsIncremental()) {
    boost::unordered_flat_set<const KVXECell*> made;
    for (const TagChange& change : changes) made.insert(change.cell);
    const KVXETable* table = getTable(&m_ClockConfigTable);
    for (unsigned int i = 1; i < table->getRowCount(); ++i) {
      KVXECell* tag = table->getCellAt(i, &m_ClockTag);
      if (!made.contains(tag)) continue;
      for (KVXECell* cell : calculation.getDirectDependents(tag))
        if (cell->getFormula() == &updateClockDropdown) cells.push_back(cell);
    }
    std::sort(cells.begin(), cells.end());
    cells.erase(std::unique(cells.begin(), cells.end()), cells.end());
    return cells;
  }
  forEachClockColumn(getBook(), [&](KVXETable* table, unsigned int column) {
    for (unsigned int i = 1; i < table->getRowCount(); ++i) cells.push_back(table->getCellAt(i, column));
  });
  return cells;
}

/// All renames at once, each cell once, so that two clocks may swap their names.
void KVXEClockTab::carryRenames(const Renames& renames, const std::vector<TagChange>& changes) {
  if (renames.empty()) return;
  for (KVXECell* candidate : cellsThatMayName(changes)) {
    auto* cell = dynamic_cast<KVXEStringCell*>(candidate);
    if (!cell || cell->isBlank()) continue;
    const OwnEvaluation evaluation(cell);
    const auto renamed = renames.find(cell->readVal(false));
    if (renamed != renames.end()) carryInto(cell, renamed->second);
  }
}

void KVXEClockTab::updateClockDropdownLists(const KVXEUID& uid) {
  auto* tab = dynamic_cast<KVXEClockTab*>(uid.getTab());
  if (!tab || !kvxe::isInTable(uid, m_ClockTagTable, "drop-down lists of clocks")) return;
  int tagCount = 0;
  uid.getRow()->getCell(&m_TagCount)->getVal(tagCount, true);
  int columnCount = 0;
  forEachClockColumn(tab->getBook(), [&](KVXETable* table, unsigned int column) {
    ++columnCount;
    KVXECell* cell = table->getHeaderRow()->getDefaultCell(column);
    const auto* list = dynamic_cast<KVXEStringCell*>(cell);
    const bool isNew = list && list->getDDVals() != tab->m_tags;
    cell->setDDValsAndMarkEngineClean(tab->m_tags);
    if (isNew && cell->getState() == CellState::HEADER_CLEAN) cell->setState(CellState::HEADER_DIRTY);
  });
  uid.getCell()->setValAndMarkEngineClean(columnCount);
}

// A cell that names a clock.

void KVXEClockTab::refreshTagIndex() {
  KVXETable* table = getTable(&m_ClockTagTable);
  if (KVXECell* cell = table ? table->getCellAt(1, &m_TagCount) : nullptr) cell->evaluateFormula();
}

void KVXEClockTab::updateClockDropdown(const KVXEUID& uid) {
  auto* cell = dynamic_cast<KVXEStringCell*>(uid.getCell());
  KVXEClockTab* tab = cell && !cell->isBlank() ? clockTabOf(uid.getBook()) : nullptr;
  if (tab) {
    tab->refreshTagIndex();
    const auto found = tab->m_tagRows.find(cell->readVal(false));
    KVXETable* table = tab->getTable(&m_ClockConfigTable);
    KVXECell* tag =
        found != tab->m_tagRows.end() ? table->getCellAt(found->second.first, &m_ClockTag) : nullptr;
    if (std::string text; tag) tag->getVal(text, true);
  }
  uid.getCell()->markEngineClean();
}

// Queries.

KVXERow* KVXEClockTab::findClockRow(const KVXEUID& uid, const std::string& tag) {
  const KVXEClockTab* tab = clockTabOf(uid.getBook());
  KVXETable* list = tab ? tab->getTable(&m_ClockTagTable) : nullptr;
  if (!list) return nullptr;
  int tagCount = 0;
  list->getCellAt(1, &m_TagCount)->getVal(tagCount, true);
  const auto found = tab->m_tagRows.find(tag);
  return found == tab->m_tagRows.end() ? nullptr
                                       : tab->getTable(&m_ClockConfigTable)->getRow(found->second.first);
}

std::vector<std::string> KVXEClockTab::peekColumn(KVXETable* table, const KVXETitle& column) {
  std::vector<std::string> texts;
  for (unsigned int i = 1; i < table->getRowCount(); ++i) {
    KVXECell* cell = table->getCellAt(i, &column);
    const OwnEvaluation evaluation(cell);
    cell->getVal(texts.emplace_back(), false);
  }
  return texts;
}

std::string KVXEClockTab::unusedName(KVXETable* table, const KVXETitle& column, const std::string& prefix) {
  const std::vector<std::string> names = peekColumn(table, column);
  const std::unordered_set<std::string> used(names.begin(), names.end());
  for (int number = 1;; ++number) {
    std::string name = prefix + KVXMHelperUtils::ToString(number);
    if (!used.contains(name)) return name;
  }
}

void KVXEClockTab::getClockdropdown(std::vector<std::string>& list) {
  refreshTagIndex();
  list = m_tags;
}

std::string KVXEClockTab::getClockTag(const std::string& name) {
  KVXERow* row = getRowIfClockExisting(name, getTable(&m_ClockConfigTable));
  std::string tag;
  if (row) row->getCell(&m_ClockTag)->getVal(tag, true);
  return tag;
}

KVXERow* KVXEClockTab::getRowIfClockExisting(const std::string& name, KVXETable* table) {
  const unsigned int column = table ? table->findTitle(&m_Name) : 0;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    std::string text;
    KVXECell* cell = table->getCellAt(i, column);
    if (cell && cell->getVal(text, true) && text == name) return table->getRow(i);
  }
  return nullptr;
}
