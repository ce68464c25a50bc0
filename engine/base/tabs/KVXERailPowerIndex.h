#pragma once

#include <string>
#include <unordered_map>
#include <vector>

class KVXEBook;
class KVXECell;
class KVXETable;

namespace kvxe {

/// Where the tabs of a book state the active power that they draw from a rail.
///
/// Asking every power table for every rail would make as many dependencies as there are rails times rows.
/// Which rail a row of a power table belongs to never changes, so each table is walked once and the cells are
/// kept by rail; a rail's formula then reads its own cells and no other.
class RailPowerIndex {
 public:
  /// Watts that all enabled tabs of the book draw from the rail.
  float activePower(const KVXEBook& book, const std::string& rail);

 private:
  void refresh(const KVXEBook& book);

  std::vector<const KVXETable*> m_tables;  ///< by tab type: the power table that was walked, or null
  std::unordered_map<std::string, std::vector<KVXECell*>> m_cells;
};

}  // namespace kvxe
