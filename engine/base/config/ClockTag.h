#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvxe {

/// The text by which tabs refer to a clock: "250.000 MHz (sys_clk)".
///
/// A tag is read by hand-written code: it comes from files and from users, in any length, and the power of
/// every row in the workbook reads the frequency of its clock from one.
struct ClockTag {
  std::string_view name;  ///< all between " MHz (" and the final ")"; points into the text that was parsed
  float megahertz = 0;

  /// The tag of a clock; the frequency is written with three decimals.
  static std::string construct(std::string_view name, float megahertz);

  /// Reads digits, an optional "." with digits, an optional blank, "MHz (", a name without line breaks and
  /// ")". Nothing for any other text, and for a number that no float holds.
  static std::optional<ClockTag> parse(std::string_view text);
};

}  // namespace kvxe
