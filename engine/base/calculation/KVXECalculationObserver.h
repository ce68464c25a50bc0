#pragma once

class KVXECell;

/// Listens to a calculation: which formulas ran, what was learned, and why a cell became dirty.
class KVXECalculationObserver {
 public:
  virtual ~KVXECalculationObserver() = default;

  virtual void onBeginEvaluation(KVXECell* /*cell*/) {}
  virtual void onEndEvaluation(KVXECell* /*cell*/) {}
  /// `reader` now depends on `source`.
  virtual void onEdgeLearned(KVXECell* /*source*/, KVXECell* /*reader*/) {}
  /// The walk reached the cell from `cause`; null for a cell that was edited itself.
  virtual void onMarkedDirty(KVXECell* /*cell*/, KVXECell* /*cause*/) {}
  /// A formula asked for one more round for this cell.
  virtual void onNextIteration(KVXECell* /*cell*/) {}
};
