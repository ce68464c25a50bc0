#pragma once

#include <string>
#include <string_view>

namespace kvx {

/// Text attributes of a terminal; without a terminal all texts stay plain.
class Style {
 public:
  explicit Style(bool hasColor) : m_hasColor(hasColor) {}
  /// Colour when standard output is a terminal that knows it and NO_COLOR is not set.
  static Style forStandardOutput();

  std::string bold(std::string_view text) const { return wrap("1", text); }
  std::string error(std::string_view text) const { return wrap("31", text); }
  std::string warning(std::string_view text) const { return wrap("33", text); }

 private:
  std::string wrap(std::string_view code, std::string_view text) const;
  bool m_hasColor;
};

}  // namespace kvx
