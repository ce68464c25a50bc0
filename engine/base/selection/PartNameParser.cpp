#include "engine/base/selection/PartNameParser.h"

#include <algorithm>

#include "models/catalogue/PartName.h"

namespace kvxe {
namespace {

using kvxm::Architecture;
using kvxm::Part;

constexpr std::string_view secondEdition = "SE";

bool isCapital(char c) {
  return c >= 'A' && c <= 'Z';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isLetterOrDigit(char c) {
  return isCapital(c) || isDigit(c);
}
bool isSeparator(char c) {
  return c == '-' || c == '_';
}

/// What is left of a name, taken apart from the front.
class Rest {
 public:
  explicit Rest(std::string_view text) : m_text(text) {}

  bool isEmpty() const { return m_text.empty(); }
  std::string_view text() const { return m_text; }

  std::string_view takeWhile(bool (*belongs)(char)) {
    const auto end = std::find_if_not(m_text.begin(), m_text.end(), belongs);
    return take(static_cast<std::size_t>(end - m_text.begin()));
  }
  bool takeSeparator() { return !isEmpty() && isSeparator(m_text.front()) && !take(1).empty(); }
  /// The first of the codes that stands here, blank if none does.
  std::string_view takeCode(const std::vector<std::string_view>& codes) {
    for (const std::string_view code : codes) {
      if (m_text.starts_with(code)) return take(code.size());
    }
    return {};
  }
  /// Separator and marker, if another field follows.
  bool takeMarker(std::string_view marker) {
    const std::size_t size = marker.size() + 1;
    if (m_text.size() <= size || !isSeparator(m_text[0]) || !isSeparator(m_text[size])) return false;
    return m_text.substr(1, marker.size()) == marker && !take(size).empty();
  }

 private:
  std::string_view take(std::size_t count) {
    const std::string_view taken = m_text.substr(0, count);
    m_text.remove_prefix(count);
    return taken;
  }

  std::string_view m_text;
};

bool takePackage(Rest& rest, Part& part) {
  if (!rest.takeSeparator()) return false;
  part.package = std::string(rest.takeWhile(isLetterOrDigit));
  return kvxm::isPackageName(part.package) && rest.takeSeparator();
}

/// Takes a code of a fixed list, with or without a separator in front.
bool takeGrade(Rest& rest, const std::vector<std::string_view>& codes, std::string& grade) {
  rest.takeSeparator();
  grade = std::string(rest.takeCode(codes));
  return !grade.empty();
}

bool parseTarvek(Rest rest, Part& part) {
  part.device = std::string(rest.takeWhile(isLetterOrDigit));
  if (rest.takeMarker(secondEdition)) part.device += "_" + std::string(secondEdition);
  if (!kvxm::isDeviceName(Architecture::Tarvek, part.device) || !takePackage(rest, part)) return false;
  part.speed = std::string(rest.takeCode(kvxm::speedCodes(Architecture::Tarvek)));
  return !part.speed.empty() && takeGrade(rest, kvxm::voltageCodes(), part.voltage) &&
         takeGrade(rest, kvxm::temperatureCodes(Architecture::Tarvek), part.temperature) &&
         takeGrade(rest, kvxm::screenCodes(), part.screen) && rest.isEmpty();
}

/// The last letter is the temperature grade: "2LVI" is speed "2LV" and grade "I", "2LVII" speed "2LVI".
bool parseMorlan(Rest rest, Part& part) {
  part.device = std::string(rest.takeWhile(isLetterOrDigit));
  if (!kvxm::isDeviceName(Architecture::Morlan, part.device) || !takePackage(rest, part)) return false;
  std::string_view grades = rest.text();
  if (grades.size() < 2) return false;
  part.temperature = std::string(grades.substr(grades.size() - 1));
  grades.remove_suffix(1);
  if (grades.size() > 1 && isSeparator(grades.back())) grades.remove_suffix(1);
  part.speed = std::string(grades);
  const auto isOneOf = [](const std::vector<std::string_view>& codes, const std::string& code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
  };
  return isOneOf(kvxm::speedCodes(Architecture::Morlan), part.speed) &&
         isOneOf(kvxm::temperatureCodes(Architecture::Morlan), part.temperature);
}

}  // namespace

std::string upperCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return result;
}

std::optional<Part> parsePartName(Architecture architecture, std::string_view name) {
  if (name.size() > maxPartNameLength) return std::nullopt;
  const std::string capitals = upperCase(name);
  Part part;
  const bool isTarvek = architecture == Architecture::Tarvek;
  if (isTarvek ? !parseTarvek(Rest(capitals), part) : !parseMorlan(Rest(capitals), part)) return std::nullopt;
  kvxm::composeNames(part, architecture);
  return part;
}

bool sharesLeadingLetters(std::string_view name, const std::vector<std::string>& devices) {
  const std::string capitals = upperCase(name.substr(0, maxPartNameLength));
  const std::string_view letters = Rest(capitals).takeWhile(isCapital);
  return !letters.empty() &&
         std::any_of(devices.begin(), devices.end(), [letters](const std::string& device) {
           return Rest(device).takeWhile(isCapital) == letters;
         });
}

}  // namespace kvxe
