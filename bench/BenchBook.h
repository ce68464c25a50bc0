#pragma once

#include <string>
#include <vector>

#include "engine/base/workbook/KVXETab.h"

/// The workbook of a large estimate on the default device: a clock table of 500 rows with 20 in use, the
/// logic table and three tables of the benchmark's own, each of `rows` rows in use with one model call a row,
/// and rails, totals, thermal solution and summary around them.
class BenchBook {
 public:
  static constexpr unsigned int Clocks = 20;

  explicit BenchBook(unsigned int rows);
  ~BenchBook();
  BenchBook(const BenchBook&) = delete;
  BenchBook& operator=(const BenchBook&) = delete;

  KVXETable* getLogicTable() const { return m_logic; }
  KVXECell* getToggleRate(unsigned int row) const;
  KVXECell* getClockFrequency(unsigned int clock) const;
  KVXECell* getVccint() const;
  KVXECell* getAmbient() const;

  /// Full calculation; then the front end has everything, so that what follows is incremental.
  void settle();
  /// A user's edit and what follows from it.
  void edit(KVXECell* cell, float value);

  size_t countCells() const;
  /// One model call for each used row with the very inputs of the book, and nothing else.
  double evaluateStraight() const;

 private:
  void fillClocks();
  void fillLogic();
  KVXETable* makeStandIn(KVXEEnums::TabType type);

  unsigned int m_rows;
  KVXETable* m_clocks = nullptr;
  KVXETable* m_logic = nullptr;
  std::vector<std::string> m_tags;
};
