#pragma once

#include <boost/unordered/unordered_flat_map.hpp>
#include <optional>
#include <string>
#include <vector>

#include "clients/cli/CellValue.h"
#include "clients/cli/ClockNames.h"
#include "clients/cli/Diagnostics.h"
#include "clients/cli/Sheet.h"

class KVXEBook;
class KVXETab;
class KVXETable;

namespace kvx {

/// Writes a design sheet into a workbook. It knows no tab, table or column by name: what a sheet may say is
/// what the book contains. Every mistake is added to the diagnostics; the values that are right are written
/// in spite of them, so that a calculation brings to light what depends on it.
class SheetBinder {
 public:
  SheetBinder(KVXEBook& book, Diagnostics& diagnostics) : m_book(book), m_diagnostics(diagnostics) {}

  /// Writes all rows and the environment. The book waits for a full calculation then. `startThetaJa` is the
  /// thermal resistance in C/W of a sheet that has the junction temperature calculated without giving one.
  void bind(const Sheet& sheet, float startThetaJa);
  /// After the calculation: reports what the workbook did not accept, because a row is not in use, the
  /// range or the list that follows other cells leaves the value out, or a formula decides on the cell
  /// itself.
  void verify();

 private:
  struct Write {
    KVXECell* cell;
    CellValue value;
    std::string written;  ///< as in the sheet
    std::string name;     ///< of the column, or the key
    Place place;
    std::size_t entry;  ///< the row of the sheet
    bool isStored;      ///< by another workbook, so that this one need not accept it
  };
  /// A cell that names a clock; it is written when all clocks are known.
  struct ClockUse {
    KVXECell* cell;
    std::string clock;
    std::string name;
    Place place;
    std::size_t entry;
    std::optional<KVXEEnums::ValueSource> source;
  };

  void bindRow(const SheetRow& row);
  KVXETable* findTarget(const SheetRow& row);
  unsigned int findTargetRow(KVXETable& table, const SheetRow& row);
  unsigned int findNumberedRow(KVXETable& table, const Assignment& number);
  unsigned int findNamedRow(KVXETable& table, const std::string& text, const Place& place);
  unsigned int findFixedRow(KVXETable& table, const SheetRow& row);
  unsigned int reportUnknownRow(const KVXETable& table, unsigned int column, const std::string& text,
                                const Place& place);
  void bindCell(KVXETable& table, unsigned int row, unsigned int column, const Assignment& assignment,
                bool isOverride);
  void bindClock(KVXECell& cell, const Assignment& assignment, bool isOverride);
  void declareClock(const Assignment& assignment);
  void write(KVXECell& cell, const Assignment& assignment, bool isOverride);
  bool isOverwritten(const KVXECell& cell, const Assignment& assignment, bool isOverride);
  void resolveClocks();
  void verifyWrite(const Write& write);
  void reportUnusedRow(const Write& write);
  void fail(const Place& place, const std::string& what, const std::string& remedy);

  void bindEnvironment(const Sheet& sheet, float startThetaJa);

  KVXEBook& m_book;
  Diagnostics& m_diagnostics;
  ClockNames m_clocks;
  std::vector<Write> m_writes;
  std::vector<ClockUse> m_clockUses;
  boost::unordered_flat_map<const KVXECell*, std::size_t> m_writeOf;  ///< index into m_writes
  boost::unordered_flat_map<const KVXETable*, unsigned int> m_filledRows;
  std::vector<bool> m_isFailed;  ///< by entry of the sheet; what follows from a failure is not reported again
};

}  // namespace kvx
