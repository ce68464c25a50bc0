// What the calculation manager can say about itself.

#include <iostream>
#include <set>
#include <unordered_map>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "models/common/KVXMHelperUtils.h"

void KVXECalculationMgr::dumpCallStack() {
  std::cout << "Dependency call stack:\n";
  for (size_t level = m_depth; level > 0; --level) {
    const Frame& frame = m_callStack[level - 1];
    KVXECell* cell = frame.reads.empty() || !m_graph ? nullptr : m_graph->getCell(frame.reads.back());
    if (!cell) continue;
    std::cout << "\tLevel-" << level << ":\t" << KVXEUID(cell).describe("\n\t\t\t") << '\n';
  }
}

void KVXECalculationMgr::flagCongestedNodes() {
  constexpr size_t Limit = 10;
  if (m_depth == 0 || !m_graph) return;
  std::set<std::string> written;
  for (const Vertex vertex : m_callStack[m_depth - 1].writes)
    if (KVXECell* cell = m_graph->getCell(vertex)) written.insert(cell->describe(" -> "));
  if (written.size() <= Limit) return;
  std::cout << std::string(100, '-') << '\n'
            << "Warning: Cells described below is linked with a formula that "
            << "creates a congested node in calculationg DAG. "
            << "It tries to update values of " << written.size()
            << " cells in single call. Please try to see if the formula "
            << "can be broken down into smaller logical formulas." << '\n';
  int number = 0;
  for (const std::string& text : written)
    std::cout << KVXMHelperUtils::i2s(++number, 6, ' ') << ". " << text << '\n';
}

namespace {

/// What a cell shows: its value and its drop-down list, as text.
struct Shown {
  std::string value;
  std::vector<std::string> list;

  explicit Shown(KVXECell* cell) {
    cell->getVal(value, false);
    cell->getDDVals(list);
  }
};

std::string compact(const std::vector<std::string>& list) {
  std::string text = "( Container with " + std::to_string(list.size()) + " elements )";
  for (const std::string& entry : list) text += " " + entry;
  return text;
}

void reportDifference(KVXECell* cell, const Shown& before, const Shown& after) {
  const char* head = "Error: incremental analysis did not calculate cell described below properly. \n";
  if (before.value != after.value)
    std::cout << head << "Incremental Output: " << before.value << "\nFull Output: " << after.value << '\n';
  if (before.list != after.list)
    std::cout << head << "Incremental Output: " << compact(before.list)
              << " vs Full Output: " << compact(after.list) << '\n';
  std::cout << cell->describe(" -> ") << '\n';
}

}  // namespace

bool KVXECalculationMgr::verifyIncrVsFull() {
  std::cout << "Running full calculation now to verify incremental calc. (@Line:" << __LINE__ << " - "
            << "bool KVXECalculationMgr::verifyIncrVsFull()"
            << ")" << '\n';
  std::vector<KVXECell*> cells;
  KVXECellStateMgr::getGlobal().getAllCells(cells);
  std::vector<Shown> before(cells.begin(), cells.end());
  fullCalculate();
  size_t wrong = 0;
  for (size_t i = 0; i < cells.size(); ++i) {
    const Shown after(cells[i]);
    if (before[i].value == after.value && before[i].list == after.list) continue;
    ++wrong;
    reportDifference(cells[i], before[i], after);
  }
  if (wrong != 0) {
    std::cout << "Error: " << wrong << " cells out of " << cells.size()
              << " cells were calculated incorrectly in incremental analysis" << '\n';
    return false;
  }
  std::cout << "Info: Incremental and full analysis matched for all " << cells.size() << " cells." << '\n';
  return true;
}
