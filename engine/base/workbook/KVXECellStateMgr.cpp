#include "engine/base/workbook/KVXECellStateMgr.h"

#include <array>
#include <iostream>

#include "engine/base/workbook/CppStateManager.inl"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"

template class CppStateManager<KVXECell, KVXEEnums::CellState>;

namespace {

using enum KVXEEnums::CellState;
using State = KVXEEnums::CellState;
constexpr size_t StateCount = static_cast<size_t>(NumItems) + 1;  // a cell without a state has NumItems

/// What one operation does to a cell, by its present state; a state that is not listed stays.
class Transitions {
 public:
  constexpr Transitions(std::initializer_list<std::pair<State, State>> moves) {
    for (size_t i = 0; i < StateCount; ++i) m_to[i] = static_cast<State>(i);
    for (const auto& [from, to] : moves) m_to[static_cast<size_t>(from)] = to;
  }
  constexpr State operator[](State from) const { return m_to[static_cast<size_t>(from)]; }

 private:
  std::array<State, StateCount> m_to{};
};

constexpr Transitions EngineClean{
    {DIRTY_DISABLED, CLEAN_DISABLED}, {DIRTY_DIRTY, CLEAN_DIRTY}, {DIRTY_CLEAN, CLEAN_CLEAN}};
constexpr Transitions GuiClean{{HEADER_DISABLED, HEADER_CLEAN},
                               {HEADER_DIRTY, HEADER_CLEAN},
                               {CLEAN_DISABLED, CLEAN_CLEAN},
                               {CLEAN_DIRTY, CLEAN_CLEAN},
                               {DISABLED_DIRTY, DISABLED_DISABLED}};
constexpr Transitions BothDirty{{CLEAN_DISABLED, DIRTY_DISABLED},
                                {CLEAN_DIRTY, DIRTY_DIRTY},
                                {DIRTY_CLEAN, DIRTY_DIRTY},
                                {CLEAN_CLEAN, DIRTY_DIRTY}};
constexpr Transitions GuiDirty{
    {HEADER_CLEAN, HEADER_DIRTY}, {DIRTY_CLEAN, DIRTY_DIRTY}, {CLEAN_CLEAN, CLEAN_DIRTY}};
constexpr Transitions Disable{{HEADER_DIRTY, DISABLED_DIRTY},       {HEADER_CLEAN, DISABLED_DIRTY},
                              {DIRTY_DIRTY, DISABLED_DIRTY},        {CLEAN_DIRTY, DISABLED_DIRTY},
                              {DIRTY_CLEAN, DISABLED_DIRTY},        {CLEAN_CLEAN, DISABLED_DIRTY},
                              {HEADER_DISABLED, DISABLED_DISABLED}, {DIRTY_DISABLED, DISABLED_DISABLED},
                              {CLEAN_DISABLED, DISABLED_DISABLED}};
constexpr Transitions EnableData{{DISABLED_DIRTY, DIRTY_DIRTY}, {DISABLED_DISABLED, DIRTY_DISABLED}};
constexpr Transitions EnableHeader{{DISABLED_DIRTY, HEADER_CLEAN}, {DISABLED_DISABLED, HEADER_DISABLED}};

constexpr std::array EngineDirtyStates{DIRTY_DISABLED, DIRTY_DIRTY, DIRTY_CLEAN};
// The front end's view of cleanliness counts the disabled and stale cells twice; what it shows rests on it.
constexpr std::array GuiDirtyStates{HEADER_DISABLED, HEADER_DIRTY, DIRTY_DISABLED, CLEAN_DISABLED,
                                    DISABLED_DIRTY,  DIRTY_DIRTY,  DISABLED_DIRTY};
constexpr std::array NeverSentStates{HEADER_DISABLED, DIRTY_DISABLED, CLEAN_DISABLED, DISABLED_DIRTY};

/// A cell without a state, whose first enumerator means nothing, gets none.
void move(KVXECellStateMgr& states, KVXECell* cell, State from, const Transitions& moves) {
  if (moves[from] != from) states.setState(cell, moves[from]);
}

template <class States>
unsigned int usageOf(const KVXECellStateMgr& states, const States& counted) {
  unsigned int usage = 0;
  for (const State state : counted) usage += states.getStateUsage(state);
  return usage;
}

}  // namespace

KVXECellStateMgr& KVXECellStateMgr::getGlobal() {
  static KVXECellStateMgr states;
  return states;
}

void KVXECellStateMgr::markEngineClean(KVXECell* cell) {
  move(*this, cell, getState(cell), EngineClean);
}

void KVXECellStateMgr::markGuiClean(KVXECell* cell) {
  const State state = getState(cell);
  if (state == DIRTY_DISABLED || state == DIRTY_DIRTY)
    std::cout << "Warning: markGuiClean called for a cell where engine is dirty!" << '\n';
  move(*this, cell, state, GuiClean);
}

void KVXECellStateMgr::markBothDirty(KVXECell* cell) {
  move(*this, cell, getState(cell), BothDirty);
}

void KVXECellStateMgr::markGuiDirty(KVXECell* cell) {
  move(*this, cell, getState(cell), GuiDirty);
}

void KVXECellStateMgr::setIsEnabled(KVXECell* cell, bool isEnabled) {
  const bool isInHeader = cell->getRow() && cell->getRow()->getIndex() == 0;
  move(*this, cell, getState(cell), !isEnabled ? Disable : isInHeader ? EnableHeader : EnableData);
}

bool KVXECellStateMgr::isEngineClean(const KVXECell* cell) const {
  const State state = getState(cell);
  return state != DIRTY_DISABLED && state != DIRTY_DIRTY && state != DIRTY_CLEAN && state < NumItems;
}

bool KVXECellStateMgr::isGuiClean(const KVXECell* cell) const {
  const State state = getState(cell);
  return state == HEADER_CLEAN || state == CLEAN_CLEAN || state == DISABLED_DISABLED;
}

bool KVXECellStateMgr::isEnabled(const KVXECell* cell) const {
  const State state = getState(cell);
  return state == DISABLED_DIRTY || state == DISABLED_DISABLED;
}

void KVXECellStateMgr::markBothDirty() {
  migrateGivenStateTo(CLEAN_DISABLED, DIRTY_DISABLED);
  for (const State from : {CLEAN_DIRTY, DIRTY_CLEAN, CLEAN_CLEAN}) migrateGivenStateTo(from, DIRTY_DIRTY);
}

void KVXECellStateMgr::markGuiClean() {
  const auto [isClean, dirtyCount] = isEngineClean();
  if (!isClean)
    std::cout << "Warning: Trying to mark GUI Clean while engine has " << dirtyCount << " dirty cells!\n";
  for (const State from : {HEADER_DISABLED, HEADER_DIRTY}) migrateGivenStateTo(from, HEADER_CLEAN);
  for (const State from : {CLEAN_DISABLED, CLEAN_DIRTY}) migrateGivenStateTo(from, CLEAN_CLEAN);
  migrateGivenStateTo(DISABLED_DIRTY, DISABLED_DISABLED);
  m_isGuiRedrawRequested = false;
}

std::pair<bool, unsigned int> KVXECellStateMgr::isEngineClean() const {
  const unsigned int usage = usageOf(*this, EngineDirtyStates);
  return {usage == 0, usage};
}

std::pair<bool, unsigned int> KVXECellStateMgr::isGuiClean() const {
  const unsigned int usage = usageOf(*this, GuiDirtyStates);
  return {usage == 0, usage};
}

std::pair<bool, unsigned int> KVXECellStateMgr::isGuiRedrawNeeded() const {
  const unsigned int usage = usageOf(*this, NeverSentStates);
  return {usage != 0 || m_isGuiRedrawRequested, usage};
}

void KVXECellStateMgr::getCellsForGuiRefresh(KVXEUIDSet& cells) const {
  std::vector<KVXECell*> nodes;
  getCellsForGuiRefresh(nodes);
  for (KVXECell* cell : nodes) cells.insert(KVXEUID(cell));
}

void KVXECellStateMgr::getCellsForGuiRefresh(std::vector<KVXECell*>& cells) const {
  cells.clear();
  for (const State state : {CLEAN_DIRTY, HEADER_DIRTY}) getStateNodes(state, cells);
}

void KVXECellStateMgr::getCellsForRecalculate(KVXEUIDSet& cells) const {
  std::vector<KVXECell*> nodes;
  getCellsForRecalculate(nodes);
  cells.clear();
  for (KVXECell* cell : nodes) cells.insert(KVXEUID(cell));
}

void KVXECellStateMgr::getCellsForRecalculate(std::vector<KVXECell*>& cells) const {
  cells.clear();
  for (const State state : EngineDirtyStates) getStateNodes(state, cells);
}

size_t KVXECellStateMgr::getAllCells(std::vector<KVXECell*>& cells) const {
  for (size_t i = 0; i < static_cast<size_t>(NumItems); ++i) getStateNodes(static_cast<State>(i), cells);
  return cells.size();
}
