#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "engine/base/calculation/KVXECalculationObserver.h"
#include "engine/base/calculation/KVXEDependencyGraph.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEUID.h"

/// Keeps the workbook consistent: learns which cell depends on which by watching formulas run, and after an
/// edit runs again just what is downstream of it.
///
/// How an edit travels:
///  1. A write from outside (the user, an import) makes its cell engine dirty.
///  2. `incrCalculate` walks the graph from the dirty cells and marks everything downstream dirty.
///  3. `calculate` evaluates the dirty cells in the order of KVXEUID::Compare. A formula that reads a dirty
///     cell evaluates it first.
///  4. While a formula runs it has a frame on the call stack. Its reads and writes report themselves through
///     `registerAction`; when it ends, every cell it wrote depends on every cell it read.
///  5. Formulas may ask for another round with `markDirtyForNextCalculationIteration`; at most 100 are run.
///
/// `fullCalculate` forgets the graph and learns it anew. It is needed whenever cells or formulas changed in a
/// way that the graph cannot follow, which `m_isGraphStale` says.
///
/// Deliberate oddities: the first cell in enumeration order shares vertex 0 with the root of the walk (see
/// KVXEDependencyGraph); a calculation that settles in exactly its hundredth round still prints the warning;
/// edges are never removed by evaluation, so a dependency that is gone costs at most an idle recalculation.
///
/// One thread at a time. Nothing here throws; every anomaly is a line on standard output.
class KVXECalculationMgr {
 public:
  /// What a cell reports. Reads go to the reads of the current frame, 2 to 11 to its writes.
  enum NodeAction : unsigned char {
    READ_EVALUATED = 0,
    READ_PREVIOUS,
    WRITE_UNIT_INFO,
    WRITE_UNIT,
    WRITE_ENABLED,
    WRITE_EDITABLE,
    WRITE_GUI_STATE,
    WRITE_ENGINE_STATE,
    WRITE_MSG,
    WRITE_VAL,
    WRITE_DD_VALS,
    WRITE_RANGE,
    BEGIN_EVAL,
    END_EVAL,
  };

  /// Switches the recording of what cells report on or off while it lives.
  class Recording {
   public:
    explicit Recording(bool isOn) : m_before(std::exchange(getGlobal().m_isCalculating, isOn)) {}
    ~Recording() { getGlobal().m_isCalculating = m_before; }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

   private:
    bool m_before;
  };

  static KVXECalculationMgr& getGlobal();
  ~KVXECalculationMgr();

  std::string className() const { return "KVXECalculationMgr"; }

  /// The single entry for cells; outside a calculation it does nothing.
  void registerAction(NodeAction action, KVXECell* cell) {
    if (m_isCalculating) record(action, cell);
  }

  /// Runs the evaluation loop on whatever is dirty now.
  bool calculate();
  /// Calculates after an edit, trusting the graph where that is allowed.
  bool incrCalculate();
  /// Learns the graph anew and evaluates every cell.
  bool fullCalculate();

  /// Resets the graph and makes a vertex for every known cell.
  void initGraphVertices();
  /// Drops the graph, the cells' vertices and the call stack.
  void resetGraph();
  /// Gives a new cell a vertex at the end, unless it has one. Without a graph the next calculation is a full
  /// one.
  void addVertex(KVXECell* cell);
  /// Detaches a cell that goes away. In-edges stay and lead to a vertex without a cell.
  void clearEdgesOfVertex(KVXECell* cell);
  /// Whether the graph knows the cell.
  bool hasVertex(const KVXECell* cell) const;
  /// Told by every cell that is being destroyed: from here on nothing leads to it.
  void forget(KVXECell* cell);
  /// The cell's vertex; an unknown cell is reported and gives 0.
  KVXEDependencyGraph::Vertex cellToVertex(KVXECell* cell);
  /// Marks the cells and all that depends on them dirty.
  void invalidateFOofCells(const KVXEUIDSet& seeds);
  /// The cells that were written by formulas that read this one.
  std::vector<KVXECell*> getDirectDependents(KVXECell* cell);
  /// The cells that were read by formulas that wrote this one.
  std::vector<KVXECell*> getDirectSources(KVXECell* cell);
  /// Turns the innermost frame into edges and drops it.
  void handleEndEval();

  /// Prints the frames of the formulas that are running, innermost first.
  void dumpCallStack();
  /// Reports a formula that writes more than 10 cells, for the innermost frame.
  void flagCongestedNodes();
  /// Compares the present values and drop-down lists with those of a full calculation; prints differences.
  bool verifyIncrVsFull();

  void setIsGraphStale() { m_isGraphStale = true; }
  bool getIsGraphStale() const { return m_isGraphStale; }
  bool getIsCalculating() const { return m_isCalculating; }
  bool getIsIncremental() const { return m_isIncremental; }
  KVXEUIDSet& getNextIterationCells() { return m_nextIterationCells; }
  size_t getEdgeCount() const { return m_graph ? m_graph->getEdgeCount() : 0; }
  /// Bytes held by the graph.
  size_t getGraphBytes() const { return m_graph ? m_graph->getBytes() : 0; }

  /// Told of each step while set; null for none. The caller keeps it alive.
  void setObserver(KVXECalculationObserver* observer) { m_observer = observer; }
  KVXECalculationObserver* getObserver() const { return m_observer; }

  /// The first breach of the graph's invariants in words, or an empty text.
  std::string checkInvariants() const;

 private:
  using Vertex = KVXEDependencyGraph::Vertex;
  struct Frame {
    std::vector<Vertex> reads;
    std::vector<Vertex> writes;
  };

  KVXECalculationMgr();
  void record(NodeAction action, KVXECell* cell);
  void evaluateAll();
  /// `iterations` is how many rounds there were before.
  void evaluateRounds(unsigned int iterations);
  void beginNextRound();
  void markFanOutDirty(const std::vector<KVXECell*>& seeds);

  std::unique_ptr<KVXEDependencyGraph> m_graph;
  std::vector<Frame> m_callStack;  // the first m_depth are in use; the rest keep their capacity
  size_t m_depth = 0;
  KVXEUIDSet m_nextIterationCells = makeUIDSet();
  std::unordered_set<const KVXECell*> m_goneCells;  // destroyed by formulas of the present round
  KVXECalculationObserver* m_observer = nullptr;
  std::uint32_t m_generation = 0;  // of the graph; a cell's vertex holds for one generation
  bool m_isGraphStale = true;
  bool m_isCalculating = false;
  bool m_isIncremental = false;
};
