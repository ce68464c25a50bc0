#include "clients/cli/Style.h"

#include <unistd.h>

#include <cstdlib>

namespace kvx {

namespace {

std::string_view environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

Style Style::forStandardOutput() {
  return Style(isatty(STDOUT_FILENO) == 1 && environment("NO_COLOR").empty() &&
               environment("TERM") != "dumb");
}

std::string Style::wrap(std::string_view code, std::string_view text) const {
  if (!m_hasColor || text.empty()) return std::string(text);
  return "\x1b[" + std::string(code) + "m" + std::string(text) + "\x1b[0m";
}

}  // namespace kvx
