#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/CsvTable.h"
#include "models/catalogue/SomBoard.h"

namespace kvxm {

/// Puts the boards together from som/regulators.csv and som/consumers.csv, the built-in files first. A row
/// replaces the one with the same key from an earlier layer; the same key twice in one layer is a mistake.
class SomBoardReader {
 public:
  explicit SomBoardReader(Problems& problems) : m_problems(problems) {}

  /// Takes in one file; `modules` are the kinds of modules that may have a board.
  void read(const DataFile& file, const std::vector<std::string_view>& modules);
  /// Checks that each board has an input and feeds each load once.
  void finish();

  std::vector<SomBoard> boards;

 private:
  void readRegulator(CsvRow& row, const DataFile& file);
  void readConsumer(CsvRow& row, const DataFile& file);
  bool firstInLayer(CsvRow& row, const DataFile& file, std::string_view column, const std::string& key);
  SomBoard& boardOf(const std::string& device);
  void checkFeeds(const SomBoard& board);

  Problems& m_problems;
  std::vector<std::string_view> m_modules;
  std::set<std::string> m_seen;  ///< layer and key of each row
  DataFile m_origin;             ///< the last file of regulators, without its text
};

}  // namespace kvxm
