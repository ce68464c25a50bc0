#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class KVXEBook;
class KVXECell;
class KVXETable;

namespace kvxe {

/// Where the tabs of a book state the power that they draw from a rail: what their power tables say is turned
/// into heat on the chip, and what a tab's table "OFF_CHIP_POWER" says leaves the chip through external
/// terminations.
///
/// Asking every table for every rail would make as many dependencies as there are rails times rows. Which
/// rail a row belongs to never changes, so each table is walked once and the cells are kept by rail; a rail's
/// formula then reads its own cells and no other.
class RailPowerIndex {
 public:
  /// Name of the tables of power that leaves the chip.
  static const std::string m_offChipTable;

  /// Watts that all enabled tabs of the book draw from the rail, whether they stay on the chip or leave it.
  float drawnPower(const KVXEBook& book, const std::string& rail);
  /// Watts that leave the chip from all rails.
  float offChipPower(const KVXEBook& book);

 private:
  using Cells = std::vector<KVXECell*>;
  using TabState = std::pair<const KVXETable*, unsigned int>;  ///< its first table, and how many it has

  void refresh(const KVXEBook& book);
  void addTable(const KVXETable* table, bool isOffChip);

  std::vector<TabState> m_tabs;  ///< by tab type: what was walked
  std::unordered_map<std::string, Cells> m_cells;
  Cells m_offChipCells;
};

}  // namespace kvxe
