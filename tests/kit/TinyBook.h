#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"

/// A book with one plain sheet and a table of the test's own, and the calculation as a client drives it, with
/// the invariants of graph, states and tables checked around each step.
class TinyBook : public ::testing::Test {
 public:
  static const KVXETitle Table, Name, A, B, Sum, Total, Choice;

  KVXETable* table = nullptr;

  /// A table of these columns with `rows` data rows.
  KVXETable* make(std::span<const KVXEColumn> columns, unsigned int rows, bool showRowIds = false);

  KVXECell* at(unsigned int row, const KVXETitle& column) { return table->getCellAt(row, &column); }
  std::string text(unsigned int row, const KVXETitle& column);
  /// What a user does: the value goes in, and what depends on it follows.
  template <class T>
  void edit(KVXECell* cell, const T& value) {
    cell->setValAndState(value, KVXEEnums::CellState::DIRTY_DIRTY);
    cell->setValueSource(KVXEEnums::ValueSource::USER);
    calculate();
  }
  void calculate();
  /// Calculates in full and tells the states that the front end has everything, so that edits are
  /// incremental.
  void settle();
  void checkInvariants();

  KVXETab* tab() { return m_book->getOrCreateTab(KVXEEnums::TabType::SYSMON); }
  KVXEBook* book() { return m_book; }

 protected:
  void SetUp() override;
  void TearDown() override;

 private:
  KVXEBook* m_book = nullptr;
};

/// Sum = A + B of the row, blank counting as 0.
void addUp(const KVXEUID& uid);

/// Notes as text what a calculation does: "run Sum2", "edge A2 Sum2", "dirty Sum2 by A2", "again A2".
class EventLog : public KVXECalculationObserver {
 public:
  EventLog() { KVXECalculationMgr::getGlobal().setObserver(this); }
  ~EventLog() override { KVXECalculationMgr::getGlobal().setObserver(nullptr); }

  void onBeginEvaluation(KVXECell* cell) override { runs.push_back(nameOf(cell)); }
  void onEdgeLearned(KVXECell* from, KVXECell* to) override {
    edges.push_back(nameOf(from) + ">" + nameOf(to));
  }
  void onMarkedDirty(KVXECell* cell, KVXECell* cause) override {
    dirtied.push_back(nameOf(cell) + (cause ? " by " + nameOf(cause) : ""));
  }
  void onNextIteration(KVXECell* cell) override { again.push_back(nameOf(cell)); }

  std::vector<std::string> runs, edges, dirtied, again;

 private:
  static std::string nameOf(KVXECell* cell);
};
