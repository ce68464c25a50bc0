#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

class KVXEBook;
class KVXETable;

namespace kvx {

/// The clocks of a design by name. A sheet names a clock by its name alone; the workbook wants the clock's
/// tag, "250.000 MHz (sys_clk)".
class ClockNames {
 public:
  /// Whether cells of the column name clocks.
  static bool isClockColumn(const KVXETable& table, unsigned int column);
  /// Whether cells of the column are the names of clocks.
  static bool isNameColumn(const KVXETable& table, unsigned int column);

  /// Notes a name that the sheet gives to a clock. False if it does so a second time.
  bool declare(const std::string& name);
  /// Reads the tags that the book's clocks have by now.
  void readTags(KVXEBook& book);

  /// The tag of a clock by the tag itself, or by its name if that is no other clock's.
  std::optional<std::string> tagOf(const std::string& name) const;
  /// Whether clocks of different frequencies have the name.
  bool isAmbiguous(const std::string& name) const;
  /// Whether the sheet declares such a clock, which then lacks a frequency if it has no tag.
  bool isDeclared(const std::string& name) const { return m_tags.count(name) > 0; }
  std::vector<std::string> names() const;
  /// The name in a clock's tag; none for any other text.
  static std::optional<std::string> nameIn(const std::string& tag);

 private:
  std::map<std::string, std::vector<std::string>> m_tags;  ///< by name; none while a clock has none
};

}  // namespace kvx
