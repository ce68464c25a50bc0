#include "clients/cli/TextTable.h"

#include <algorithm>

namespace kvx {

namespace {

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// The first `width` characters.
std::string_view firstOf(std::string_view text, std::size_t width) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (isContinuation(text[end])) continue;
    if (width-- == 0) break;
  }
  return text.substr(0, end);
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

std::string padRight(std::string_view text, std::size_t width) {
  const std::string_view shown = firstOf(text, width);
  return std::string(shown) + std::string(width - displayWidth(shown), ' ');
}

std::string padLeft(std::string_view text, std::size_t width) {
  const std::string_view shown = firstOf(text, width);
  return std::string(width - displayWidth(shown), ' ') + std::string(shown);
}

std::string printable(std::string_view text) {
  std::string shown(text);
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  return shown;
}

std::vector<std::string> wrapText(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  while (displayWidth(text) > width) {
    const std::string_view head = firstOf(text, width + 1);
    const std::size_t blank = head.rfind(' ');
    const std::string_view line =
        blank == std::string_view::npos || blank == 0 ? firstOf(text, width) : head.substr(0, blank);
    lines.emplace_back(line);
    text.remove_prefix(line.size());
    if (text.starts_with(' ')) text.remove_prefix(1);
  }
  lines.emplace_back(text);
  return lines;
}

}  // namespace kvx
