#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvx {

/// The width that no line of the output exceeds.
inline constexpr std::size_t LineWidth = 100;

/// The number of columns that a UTF-8 text takes, counting each character as one.
std::size_t displayWidth(std::string_view text);
/// Filled with blanks, or cut, to exactly that width.
std::string padRight(std::string_view text, std::size_t width);
std::string padLeft(std::string_view text, std::size_t width);

/// The text without the control characters that would reach the terminal.
std::string printable(std::string_view text);

/// Breaks a text at blanks into lines of at most `width`; a word that is longer is cut.
std::vector<std::string> wrapText(std::string_view text, std::size_t width);

}  // namespace kvx
