#include <algorithm>
#include <string_view>

#include "engine/base/selection/KVXEPartSelection.h"

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Takes the run of digits, or of anything else, at the start of the text.
std::string_view takeRun(std::string_view& text) {
  const bool wantsDigits = isDigit(text.front());
  const auto end = std::find_if(text.begin(), text.end(), [&](char c) { return isDigit(c) != wantsDigits; });
  const std::string_view run = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(run.size());
  return run;
}

/// Numbers of any length: without leading zeros the longer one is larger.
int compareNumbers(std::string_view a, std::string_view b) {
  const auto strip = [](std::string_view& number) {
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  };
  strip(a);
  strip(b);
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

bool isBefore(std::string_view a, std::string_view b) {
  std::string_view restOfA = a, restOfB = b;
  while (!restOfA.empty() && !restOfB.empty()) {
    const bool areNumbers = isDigit(restOfA.front()) && isDigit(restOfB.front());
    const std::string_view runOfA = takeRun(restOfA), runOfB = takeRun(restOfB);
    const int order = areNumbers ? compareNumbers(runOfA, runOfB) : runOfA.compare(runOfB);
    if (order != 0) return order < 0;
  }
  if (restOfA.empty() != restOfB.empty()) return restOfA.empty();
  return a < b;
}

}  // namespace

std::vector<std::string> KVXEPartSelection::getNaturalSorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end(), isBefore);
  return names;
}
