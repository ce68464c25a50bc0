#include "clients/cli/Spelling.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace kvx {

namespace {

constexpr std::size_t LongestShown = 60;
constexpr std::size_t LongestCompared = 200;  // editDistance takes the product of both lengths
constexpr std::size_t MostSuggestions = 3;
constexpr std::size_t MostKnown = 2000;  // names that are considered at all

char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

/// Edits that still look like a slip of the hand, for a name of that length.
unsigned int tolerance(std::size_t length) {
  return static_cast<unsigned int>(std::clamp<std::size_t>(length / 3, 1, 4));
}

}  // namespace

std::string plainSpelling(std::string_view name) {
  std::string plain;
  unsigned int depth = 0;
  for (const char c : name) {
    if (c == '(') ++depth;
    if (c == ')' && depth > 0) --depth;
    const char lower = toLower(c);
    if (depth == 0 && isWordCharacter(lower)) plain += lower;
  }
  return plain;
}

bool isSameSpelling(std::string_view a, std::string_view b) {
  if (a == b) return true;
  const std::string plain = plainSpelling(a);
  return !plain.empty() && plain == plainSpelling(b);
}

unsigned int editDistance(std::string_view a, std::string_view b) {
  a = a.substr(0, LongestCompared);
  b = b.substr(0, LongestCompared);
  std::vector<unsigned int> before(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), 0u);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = static_cast<unsigned int>(i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0u : 1u)});
      const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwap) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    std::swap(before, last);
    std::swap(last, row);
  }
  return last[b.size()];
}

std::vector<std::string> nearestNames(std::string_view written, const std::vector<std::string>& known) {
  const std::string plain = plainSpelling(written);
  struct Candidate {
    unsigned int distance;
    const std::string* name;
  };
  std::vector<Candidate> candidates;
  for (const std::string& name : std::span(known).first(std::min(known.size(), MostKnown))) {
    const std::string other = plainSpelling(name);
    if (other.empty() || plain.empty()) continue;
    const bool isPart =
        plain.size() > 2 && (other.find(plain) != std::string::npos || plain.find(other) == 0);
    const unsigned int allowed = tolerance(std::max(plain.size(), other.size()));
    const bool isComparable =
        std::max(plain.size(), other.size()) - std::min(plain.size(), other.size()) <= allowed;
    const unsigned int distance = isComparable ? editDistance(plain, other) : allowed + 1;
    if (distance <= allowed)
      candidates.push_back({distance, &name});
    else if (isPart)
      candidates.push_back({allowed + 1, &name});
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.distance < b.distance; });
  std::vector<std::string> nearest;
  for (const Candidate& candidate : candidates) {
    if (nearest.size() == MostSuggestions) break;
    if (std::find(nearest.begin(), nearest.end(), *candidate.name) == nearest.end())
      nearest.push_back(*candidate.name);
  }
  return nearest;
}

std::string adviseName(std::string_view written, const std::vector<std::string>& known) {
  if (known.empty()) return "there are none";
  const std::vector<std::string> nearest = nearestNames(written, known);
  if (nearest.empty()) return (known.size() == 1 ? "known is " : "known are ") + listInQuotes(known);
  std::string advice = "did you mean ";
  for (std::size_t i = 0; i < nearest.size(); ++i) {
    if (i > 0) advice += i + 1 == nearest.size() ? " or " : ", ";
    advice += inQuotes(nearest[i]);
  }
  return advice + "?";
}

std::string listInQuotes(const std::vector<std::string>& texts, std::size_t limit) {
  std::string list;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) list += ", ";
    if (i == limit) return list + "... (" + std::to_string(texts.size()) + " in all)";
    list += inQuotes(texts[i]);
  }
  return list;
}

std::string inQuotes(std::string_view text) {
  const bool isLong = text.size() > LongestShown;
  std::size_t end = isLong ? LongestShown : text.size();
  while (isLong && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    --end;  // whole UTF-8 letters
  std::string shown = "\"";
  for (const char c : text.substr(0, end))
    shown += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c;
  return shown + (isLong ? "...\"" : "\"");
}

}  // namespace kvx
