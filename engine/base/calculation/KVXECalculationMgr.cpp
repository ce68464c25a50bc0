#include "engine/base/calculation/KVXECalculationMgr.h"

#include <boost/sort/pdqsort/pdqsort.hpp>
#include <iostream>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXECellOrder.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXETableOperations.h"

namespace {

constexpr unsigned int MaxIterations = 100;

/// The dirty cells in the order in which they are evaluated. Those for which the order makes no difference
/// are evaluated at once.
std::vector<KVXEOrderedCell> dirtyCellsInOrder() {
  std::vector<KVXECell*> cells;
  KVXECellStateMgr::getGlobal().getCellsForRecalculate(cells);
  std::vector<KVXEOrderedCell> ordered;
  for (KVXECell* cell : cells) {
    if (cell->hasWorkToDo()) {
      ordered.emplace_back(cell);
    } else {
      cell->evaluateFormula();
    }
  }
  boost::sort::pdqsort(ordered.begin(), ordered.end());
  return ordered;
}

}  // namespace

KVXECalculationMgr& KVXECalculationMgr::getGlobal() {
  static KVXECalculationMgr manager;
  return manager;
}

KVXECalculationMgr::KVXECalculationMgr() {
  KVXECellStateMgr::getGlobal();  // cells leave both managers when they die, so neither ends before the other
}

KVXECalculationMgr::~KVXECalculationMgr() = default;

// Recording.

void KVXECalculationMgr::record(NodeAction action, KVXECell* cell) {
  if (action > END_EVAL) return;
  if (action == END_EVAL) {
    if (m_observer) m_observer->onEndEvaluation(cell);
    handleEndEval();
    return;
  }
  if (action == BEGIN_EVAL) {
    if (m_observer) m_observer->onBeginEvaluation(cell);
    if (m_depth == m_callStack.size()) m_callStack.emplace_back();
    m_callStack[m_depth].reads.clear();
    m_callStack[m_depth].writes.clear();
    ++m_depth;
  }
  if (m_depth == 0) return;  // touched by the loop itself, outside any formula
  const Vertex vertex = cellToVertex(cell);
  Frame& frame = m_callStack[m_depth - 1];
  std::vector<Vertex>& touched = action <= READ_PREVIOUS ? frame.reads : frame.writes;
  if (touched.empty() || touched.back() != vertex) touched.push_back(vertex);
}

void KVXECalculationMgr::handleEndEval() {
  if (m_depth == 0) return;
  const Frame& frame = m_callStack[m_depth - 1];
  if (frame.writes.empty()) return;
  std::function<void(Vertex, Vertex)> learned;
  if (m_observer)
    learned = [this](Vertex from, Vertex to) {
      m_observer->onEdgeLearned(m_graph->getCell(from), m_graph->getCell(to));
    };
  if (m_graph) m_graph->learn(frame.reads, frame.writes, learned);
  --m_depth;
}

KVXECalculationMgr::Vertex KVXECalculationMgr::cellToVertex(KVXECell* cell) {
  const Vertex vertex = cell ? cell->m_vertex : 0;
  if (cell ? !hasVertex(cell) : !m_graph) {
    std::cout << "Error: No or incorrect vertex found for below cell in DAG.\n"
              << (cell ? cell->describe(" -> ") : std::string()) << '\n';
    return 0;
  }
  if (cell && m_graph->getCell(vertex) != cell) {
    std::cout << "Error: Incorrect vertex to cell linking found for below cell in DAG.\n"
              << cell->describe(" -> ") << '\n';
    return 0;
  }
  return vertex;
}

// Calculation.

bool KVXECalculationMgr::calculate() {
  const Recording on(true);
  evaluateRounds(0);
  return true;
}

namespace {

/// Evaluates the cells of all books in the order in which dirty cells are evaluated. Where all are dirty this
/// spares finding and sorting them, and goes through memory in the order in which it was filled.
void evaluateBooks() {
  const KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  for (unsigned int b = 0; b < books.getBookCount(); ++b)
    for (unsigned int t = 0; t < books.getBook(b)->getTabCount(); ++t) {
      const KVXETab* tab = books.getBook(b)->getTab(t);
      for (unsigned int i = 0; tab && i < tab->getTableCount(); ++i)
        for (unsigned int row = 1; KVXERow* cells = tab->getTable(i)->getRow(row); ++row)
          for (unsigned int column = 0; column < cells->getChildCount(); ++column)
            cells->getChild(column)->evaluateFormula();
    }
}

}  // namespace

/// The first of all rounds of a full calculation.
void KVXECalculationMgr::evaluateAll() {
  const Recording on(true);
  m_goneCells.clear();
  evaluateBooks();
  beginNextRound();
  evaluateRounds(1);
}

void KVXECalculationMgr::beginNextRound() {
  if (m_nextIterationCells.empty()) return;
  const KVXEUIDSet again = std::exchange(m_nextIterationCells, makeUIDSet());
  invalidateFOofCells(again);
}

void KVXECalculationMgr::evaluateRounds(unsigned int iterations) {
  for (auto dirty = dirtyCellsInOrder(); !dirty.empty(); dirty = dirtyCellsInOrder()) {
    if (iterations == MaxIterations) break;
    ++iterations;
    m_goneCells.clear();
    for (const KVXEOrderedCell& ordered : dirty)
      if (m_goneCells.empty() || !m_goneCells.contains(ordered.cell)) ordered.cell->evaluateFormula();
    beginNextRound();
  }
  if (iterations == MaxIterations)
    std::cout
        << "Error: Incremental calculation exceeded calculation iteration count threshold. Please look at "
           "usage of markDirtyForNextCalculationIteration API in your code and make sure it is not being "
           "called again and agin in the logic."
        << '\n';
}

bool KVXECalculationMgr::incrCalculate() {
  const bool isTableOperation = KVXETableOperations::getGlobal().getIsTableOperationActive();
  if (m_isGraphStale || KVXECellStateMgr::getGlobal().isGuiRedrawNeeded().first) {
    if (!isTableOperation || !m_graph) return fullCalculate();
    m_isGraphStale = false;
  }
  m_isIncremental = true;
  std::vector<KVXECell*> seeds;
  KVXECellStateMgr::getGlobal().getCellsForRecalculate(seeds);
  if (!seeds.empty()) markFanOutDirty(seeds);
  const bool result = calculate();
  m_isIncremental = false;
  return result;
}

bool KVXECalculationMgr::fullCalculate() {
  initGraphVertices();
  KVXECellStateMgr::getGlobal().markBothDirty();
  evaluateAll();
  m_isGraphStale = false;
  return true;
}

// Graph.

void KVXECalculationMgr::initGraphVertices() {
  std::unique_ptr<KVXEDependencyGraph> graph = std::move(m_graph);
  resetGraph();
  std::vector<KVXECell*> cells;
  const size_t count = KVXECellStateMgr::getGlobal().getAllCells(cells);
  if (graph) {
    graph->reset(count + 1);
  } else {
    graph = std::make_unique<KVXEDependencyGraph>(count + 1);
  }
  m_graph = std::move(graph);
  for (size_t i = 0; i < count; ++i) {
    const Vertex vertex = static_cast<Vertex>(i);
    cells[i]->m_vertex = vertex;
    cells[i]->m_graphGeneration = m_generation;
    m_graph->setCell(vertex, cells[i]);
  }
}

void KVXECalculationMgr::resetGraph() {
  m_graph.reset();
  ++m_generation;
  m_depth = 0;
}

void KVXECalculationMgr::addVertex(KVXECell* cell) {
  if (!cell || !m_graph || hasVertex(cell)) return;
  cell->m_vertex = m_graph->addVertex(cell);
  cell->m_graphGeneration = m_generation;
}

void KVXECalculationMgr::clearEdgesOfVertex(KVXECell* cell) {
  if (!m_graph) return;
  const Vertex vertex = cellToVertex(cell);
  if (vertex == 0) return;
  m_graph->clearOutEdges(vertex);
  m_graph->setCell(vertex, nullptr);
  cell->m_graphGeneration = m_generation - 1;
}

bool KVXECalculationMgr::hasVertex(const KVXECell* cell) const {
  return m_graph && cell->m_graphGeneration == m_generation && cell->m_vertex < m_graph->size();
}

void KVXECalculationMgr::forget(KVXECell* cell) {
  std::erase_if(m_nextIterationCells, [cell](const KVXEUID& uid) { return uid.getCell() == cell; });
  if (m_isCalculating) m_goneCells.insert(cell);
  // The edges stay: the graph is stale now, and cutting them one by one is dear when a whole book goes.
  if (hasVertex(cell)) m_graph->setCell(cell->m_vertex, nullptr);
}

void KVXECalculationMgr::invalidateFOofCells(const KVXEUIDSet& seeds) {
  if (seeds.empty()) return;
  std::vector<KVXECell*> cells;
  for (const KVXEUID& uid : seeds)
    if (uid.getCell()) cells.push_back(uid.getCell());
  markFanOutDirty(cells);
}

void KVXECalculationMgr::markFanOutDirty(const std::vector<KVXECell*>& seeds) {
  if (!m_graph) return;
  m_graph->clearOutEdges(0);
  for (KVXECell* cell : seeds) m_graph->addEdge(0, cellToVertex(cell));
  m_graph->visitDepthFirst(0, [this](Vertex vertex, Vertex from) {
    KVXECell* cell = m_graph->getCell(vertex);
    if (!cell) return;
    if (m_observer) m_observer->onMarkedDirty(cell, from == 0 ? nullptr : m_graph->getCell(from));
    cell->markBothDirty();
  });
}

std::vector<KVXECell*> KVXECalculationMgr::getDirectDependents(KVXECell* cell) {
  std::vector<KVXECell*> dependents;
  if (!m_graph) return dependents;
  for (const Vertex to : m_graph->getOutEdges(cellToVertex(cell)))
    if (KVXECell* dependent = m_graph->getCell(to)) dependents.push_back(dependent);
  return dependents;
}

std::vector<KVXECell*> KVXECalculationMgr::getDirectSources(KVXECell* cell) {
  std::vector<KVXECell*> sources;
  if (!m_graph) return sources;
  for (const Vertex from : m_graph->getInEdges(cellToVertex(cell)))
    if (KVXECell* source = m_graph->getCell(from)) sources.push_back(source);
  return sources;
}

std::string KVXECalculationMgr::checkInvariants() const {
  if (!m_graph) return {};
  for (Vertex v = 0; v < m_graph->size(); ++v) {
    const KVXECell* cell = m_graph->getCell(v);
    if (cell && (cell->m_vertex != v || cell->m_graphGeneration != m_generation))
      return "a cell does not know its vertex " + std::to_string(v);
  }
  return m_graph->checkInvariants();
}
