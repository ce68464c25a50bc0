#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

namespace kvx {

/// A number as a user writes it, with or without a unit: "0.3 GHz", "12.5 %", "250".
struct NumberText {
  double number = 0;
  std::string suffix;  ///< empty without a unit

  /// Reads a number that is followed by nothing, or by a unit with or without a blank. Nothing for any other
  /// text and for a number that is not finite. The locale does not matter.
  static std::optional<NumberText> parse(std::string_view text);
};

/// The value in the unit in which the workbook stores a column of that kind: W, A, V, MHz, degrees C, C/W,
/// Mbps, Gbps, or a fraction where the screen shows per cent. A number without unit is taken as stored.
/// Nothing for a unit of another kind.
std::optional<double> toStored(const NumberText& text, KVXEEnums::Unit unit);

/// The units that a column of that kind takes; none for a plain number.
std::vector<std::string> unitsOf(KVXEEnums::Unit unit);

}  // namespace kvx
