#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXETab.h"

namespace kvxm {
class Record;
struct BlockDescription;
}  // namespace kvxm

/// The workbook of a large estimate on the default device: every table with rows of the user's own is filled
/// to the last of `rows` rows, each clock column with one of the clocks, and rails, totals, thermal solution
/// and summary stand around them.
class BenchBook {
 public:
  explicit BenchBook(unsigned int rows);
  ~BenchBook();
  BenchBook(const BenchBook&) = delete;
  BenchBook& operator=(const BenchBook&) = delete;

  KVXETable* getLogicTable() const;
  KVXECell* getToggleRate(unsigned int row) const;
  KVXECell* getClockFrequency(unsigned int clock) const;
  KVXECell* getVccint() const;
  KVXECell* getAmbient() const;

  /// Makes all tabs anew, as a change of the device does, and fills them again.
  void rebuild();
  void fill();
  /// Full calculation; then the front end has everything, so that what follows is incremental.
  void settle();
  /// A user's edit and what follows from it.
  void edit(KVXECell* cell, float value);

  size_t countCells() const;

 private:
  void fillTable(KVXETable& table);
  void fillRow(KVXETable& table, unsigned int row);

  unsigned int m_rows;
  std::vector<std::string> m_tags;
};

/// The model calls that a full calculation of the book makes for its rows, and nothing else: what the
/// calculation would cost if cells, dependencies and messages were free.
class StraightLine {
 public:
  explicit StraightLine(unsigned int rows);
  ~StraightLine();
  void run();
  size_t countCalls() const { return m_calls.size() * m_rows; }

 private:
  struct Call {
    const kvxm::BlockDescription* block;
    std::unique_ptr<kvxm::Record> inputs;
  };
  unsigned int m_rows;
  std::vector<Call> m_calls;  ///< of one row of each table
};
