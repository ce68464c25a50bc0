#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/CsvTable.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/IoStandards.h"

namespace kvxm {

/// Puts the IO standards together from tarvek/io_standards.csv and morlan/io_standards.csv, the built-in
/// files first. A row replaces the standard of that name in its bank, or adds one behind the others; the same
/// one twice in one layer is a mistake.
class IoStandardReader {
 public:
  explicit IoStandardReader(Problems& problems) : m_problems(problems) {}

  /// Takes in one file; `rails` are the supplies of the architecture.
  void read(const DataFile& file, const std::vector<std::string_view>& rails);
  /// Makes the lists of names, and checks that every device with pins of a bank has the rails of its
  /// standards.
  void finish(const std::vector<Device>& devices);

  IoBankTable banks;

 private:
  /// Where a standard was written.
  struct Origin {
    DataFile file;  ///< without its text
    int line = 0;
  };

  void readStandard(CsvRow& row, const DataFile& file, const std::vector<std::string_view>& rails);

  void checkRails(const Device& device);

  Problems& m_problems;
  std::set<std::string> m_seen;             ///< layer and key of each row
  std::map<std::string, Origin> m_origins;  ///< by key
};

}  // namespace kvxm
