#include "engine/base/config/ClockTag.h"

#include <charconv>

#include "models/common/KVXMHelperUtils.h"

namespace kvxe {

namespace {

constexpr std::string_view UnitAndBracket = "MHz (";

/// The number of digits that the text begins with.
size_t countDigits(std::string_view text) {
  size_t count = 0;
  while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
  return count;
}

/// The length of the unsigned decimal number that the text begins with, 0 for none.
size_t numberLength(std::string_view text) {
  const size_t whole = countDigits(text);
  if (whole == 0 || whole == text.size() || text[whole] != '.') return whole;
  const size_t fraction = countDigits(text.substr(whole + 1));
  return fraction == 0 ? whole : whole + 1 + fraction;
}

}  // namespace

std::string ClockTag::construct(std::string_view name, float megahertz) {
  std::string tag = KVXMHelperUtils::formatFixed(megahertz, 3);
  return tag.append(" MHz (").append(name).append(")");
}

std::optional<ClockTag> ClockTag::parse(std::string_view text) {
  const std::string_view number = text.substr(0, numberLength(text));
  text.remove_prefix(number.size());
  if (number.empty()) return std::nullopt;
  if (text.starts_with(' ')) text.remove_prefix(1);
  if (!text.starts_with(UnitAndBracket) || !text.ends_with(')')) return std::nullopt;
  text.remove_prefix(UnitAndBracket.size());
  if (text.empty()) return std::nullopt;
  text.remove_suffix(1);
  if (text.find_first_of("\r\n") != std::string_view::npos) return std::nullopt;

  ClockTag tag{text};
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), tag.megahertz);
  if (error != std::errc()) return std::nullopt;
  return tag;
}

}  // namespace kvxe
