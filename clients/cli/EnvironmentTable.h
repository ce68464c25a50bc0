#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class KVXEBook;
class KVXECell;
class KVXETable;

namespace kvx {

/// The table behind the [environment] of a sheet: the rows of the summary's environment table, whose keys are
/// their texts.
struct EnvironmentTable {
  static constexpr const char* JunctionKey = "junction_temperature";
  static constexpr const char* AmbientKey = "ambient_temperature";
  static constexpr const char* ThetaKey = "effective_theta_ja";
  /// How the entries end by which the junction temperature is given, or calculated.
  static constexpr std::string_view Given = " ON", Calculated = " OFF";

  KVXETable* table = nullptr;
  unsigned int type = 0, choice = 0, value = 0;  // columns

  static std::optional<EnvironmentTable> find(const KVXEBook& book);

  /// The row of a key in any spelling; 0 when there is none.
  unsigned int row(std::string_view key) const;
  /// The key of the row with that text, as a sheet writes it.
  static std::string keyOf(const std::string& text);
  std::vector<std::string> keys() const;
  KVXECell* cell(unsigned int row, unsigned int column) const;
  /// Chooses whether the junction temperature is the user's or calculated, unless it is so already.
  void chooseOverride(std::string_view ending) const;
};

}  // namespace kvx
