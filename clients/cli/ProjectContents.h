#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kvx {

/// What is inside a project file, read without a workbook.
struct ProjectContents {
  struct Entry {
    std::string name;
    std::uint64_t bytes = 0, packedBytes = 0;
  };
  struct Table {
    std::string tab, name;
    std::size_t rows = 0;
    std::size_t supplied = 0;  ///< cells whose values are the user's or come from an import
  };
  struct Ip {
    std::string uid;
    std::size_t properties = 0;
  };
  using Settings = std::vector<std::pair<std::string, std::string>>;

  std::uint64_t bytes = 0;  ///< of the file
  std::vector<Entry> entries;
  Settings product;  ///< which program wrote it
  Settings device;   ///< the settings of the device choice
  std::vector<Table> tables;
  std::vector<Ip> ips;
};

/// Reads a project file.
/// @throws std::exception with the reason for a file that is damaged or no project.
ProjectContents readContents(const std::string& path);

}  // namespace kvx
