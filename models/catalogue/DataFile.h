#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvxm {

/// What a data file holds, in the order in which files must be read: each kind refers to earlier ones only.
enum class DataKind {
  Families,
  Devices,
  Modules,
  Resources,
  Supplies,
  Leakage,
  Packages,
  Parts,
  Coefficients,
  IoStandards,
  BoardRegulators,
  BoardConsumers,
  Parameters,
  Aliases
};

/// One text file of model data in memory.
struct DataFile {
  DataKind kind = DataKind::Families;
  std::string directory;  ///< "tarvek", "morlan", "som" or "common"
  std::string path;       ///< as shown in messages
  std::string text;
  bool isUser = false;  ///< from the user's directory: overrides what is built in
};

/// Collects what is wrong with the data, in the words that the user reads.
class Problems {
 public:
  /// One mistake: "file:line: key: what; expected form". Line 0 stands for the whole file, an empty key for
  /// none.
  void error(const DataFile& file, int line, std::string_view key, std::string_view what,
             std::string_view expected);
  void warning(const DataFile& file, int line, std::string_view key, std::string_view what,
               std::string_view expected);

  std::vector<std::string> errors;
  std::vector<std::string> warnings;
};

/// The text between double quotes.
std::string quoted(std::string_view text);

/// The data that the library was built with.
std::vector<DataFile> builtInDataFiles();

/// The data files of a directory laid out as the built-in data (tarvek/devices.csv and so on). Whatever
/// cannot be read as text, or is no data file, is an error.
std::vector<DataFile> readDataDirectory(const std::string& directory, Problems& problems);

/// The candidate that is nearest to a misspelled name, or empty when none is near.
std::string_view nearestName(std::string_view name, const std::vector<std::string_view>& candidates);

/// "expected a, b or c", after "; did you mean x?" where one is near and without the list when it is long.
std::string expectedOneOf(std::string_view name, const std::vector<std::string_view>& candidates);

}  // namespace kvxm
