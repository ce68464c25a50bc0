#pragma once

#include <set>
#include <utility>
#include <vector>

#include "engine/base/workbook/CppStateManager.h"
#include "engine/base/workbook/KVXEEnums.h"
#include "engine/base/workbook/KVXEUID.h"

/// The set of UIDs that the engine works through: in the order of KVXEUID::Compare.
using KVXEUIDSet = std::set<KVXEUID, bool (*)(const KVXEUID&, const KVXEUID&)>;

/// An empty set of UIDs.
inline KVXEUIDSet makeUIDSet() {
  return KVXEUIDSet(&KVXEUID::Compare);
}

/// The two-sided dirty state of all cells: does the engine have to evaluate a cell, and does the front end
/// have its latest value. One thread at a time.
class KVXECellStateMgr : public CppStateManager<KVXECell, KVXEEnums::CellState> {
 public:
  static KVXECellStateMgr& getGlobal();
  std::string className() const { return "KVXECellStateMgr"; }

  // One cell.
  void markEngineClean(KVXECell* cell);
  void markGuiClean(KVXECell* cell);
  void markBothDirty(KVXECell* cell);
  /// The front end's copy of a cell that it has got is stale.
  void markGuiDirty(KVXECell* cell);
  void setIsEnabled(KVXECell* cell, bool isEnabled);
  bool isEngineClean(const KVXECell* cell) const;
  bool isGuiClean(const KVXECell* cell) const;
  /// Against its name, true exactly for a cell that has been disabled; its callers read it that way.
  bool isEnabled(const KVXECell* cell) const;

  // All cells at once, in constant time for each bundle.
  void markBothDirty();
  void markGuiClean();

  /// (no cell is dirty for the engine, how many are).
  std::pair<bool, unsigned int> isEngineClean() const;
  /// (the front end has every cell's latest value, how many it lacks). Cells that only wait for a refresh
  /// (`CLEAN_DIRTY`) do not count, those disabled and stale count twice.
  std::pair<bool, unsigned int> isGuiClean() const;
  /// (the whole book must go out, how many cells the front end never got).
  std::pair<bool, unsigned int> isGuiRedrawNeeded() const;
  void requestGuiRedraw() { m_isGuiRedrawRequested = true; }

  /// Adds the cells whose new value the front end waits for.
  void getCellsForGuiRefresh(KVXEUIDSet& cells) const;
  /// As above as plain pointers in no particular order, which replace the contents.
  void getCellsForGuiRefresh(std::vector<KVXECell*>& cells) const;
  /// Replaces the set's contents with the cells to evaluate.
  void getCellsForRecalculate(KVXEUIDSet& cells) const;
  /// As above as plain pointers in no particular order, for the evaluation loop, which sorts by itself.
  void getCellsForRecalculate(std::vector<KVXECell*>& cells) const;
  /// Appends all cells, state by state; returns the new size.
  size_t getAllCells(std::vector<KVXECell*>& cells) const;

 private:
  bool m_isGuiRedrawRequested = false;
};

extern template class CppStateManager<KVXECell, KVXEEnums::CellState>;
