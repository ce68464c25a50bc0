#include "models/common/KVXMHelperUtils.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <stdexcept>

namespace KVXMHelperUtils {

namespace {

bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
char toUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  return text;
}

/// from_chars knows no plus sign; one in front of a number is dropped, one in front of a minus stays an
/// error.
std::string_view withoutPlus(std::string_view text) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

/// The power of ten of the first digit other than 0, to tell an overflow from an underflow. `text` is a
/// number.
long decimalMagnitude(std::string_view text) {
  long magnitude = 0;
  bool seenPoint = false, seenDigit = false;
  std::size_t i = 0;
  for (; i < text.size() && text[i] != 'e' && text[i] != 'E'; ++i) {
    if (text[i] == '.') seenPoint = true;
    if (!isDigit(text[i])) continue;
    seenDigit = seenDigit || text[i] != '0';
    if (seenPoint && !seenDigit) --magnitude;
    if (!seenPoint && seenDigit) ++magnitude;
  }
  return magnitude + (i < text.size() ? s2i(text.substr(i + 1)) : 0);
}

struct FloatText {
  float value = 0.0f;
  std::size_t length = 0;   ///< characters that belong to the number, 0 if the text begins with none
  bool outOfRange = false;  ///< the value was saturated, or is 0 in place of something smaller than any float
};

FloatText parseFloat(std::string_view text) {
  FloatText parsed;
  const char* const end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, parsed.value);
  if (error == std::errc::invalid_argument) return {};
  parsed.length = static_cast<std::size_t>(last - text.data());
  if (error == std::errc::result_out_of_range) {
    const std::string_view number = text.substr(0, parsed.length);
    const float limit = std::numeric_limits<float>::max();
    parsed.outOfRange = true;
    parsed.value = decimalMagnitude(number) < 0 ? 0.0f : (number.front() == '-' ? -limit : limit);
  }
  const bool inWord = last != end && (isLetter(*last) || isDigit(*last) || *last == '_');
  if (!std::isfinite(parsed.value) && inWord) return {};  // "info", "nand"
  return parsed;
}

template <class Number>
std::string shortestText(Number value) {
  char buffer[64];
  const Number magnitude = std::abs(value);
  const bool plain = magnitude == Number(0) || (magnitude >= Number(1e-4) && magnitude <= Number(1e7));
  const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), value, format).ptr};
}

/// Applies a rounding to whole numbers at the given decimal. The scaled value passes through float, which
/// maps what prints as a half (or as a whole) to exactly that.
template <class Rounding>
float roundAt(float value, unsigned int digits, Rounding round) {
  constexpr unsigned int smallestFloatDecimals = 45;
  if (!std::isfinite(value) || digits > smallestFloatDecimals) return value;
  const double scale = std::pow(10.0, digits);
  const double scaled = static_cast<double>(value) * scale;
  constexpr double wholeNumbersFrom = 1 << 23;  // floats this large have no fraction
  const double rounded =
      std::abs(scaled) < wholeNumbersFrom ? round(static_cast<float>(scaled)) : round(scaled);
  const double result = rounded / scale;
  return std::abs(result) > std::numeric_limits<float>::max() ? value : static_cast<float>(result);
}

[[noreturn]] void refuse(std::string_view text, const char* expected) {
  throw std::invalid_argument("\"" + std::string(text) + "\" is not " + expected);
}

}  // namespace

std::string ToString(int value) {
  char buffer[16];
  return {buffer, std::to_chars(std::begin(buffer), std::end(buffer), value).ptr};
}

std::string ToString(float value) {
  return shortestText(value);
}
std::string ToString(double value) {
  return shortestText(value);
}

std::string formatFixed(double value, unsigned int digits) {
  std::string text(std::numeric_limits<double>::max_exponent10 + 8 + digits, '\0');
  char* const begin = text.data();
  const auto [end, error] =
      std::to_chars(begin, begin + text.size(), value, std::chars_format::fixed, static_cast<int>(digits));
  text.resize(error == std::errc() ? static_cast<std::size_t>(end - begin) : 0);
  return text;
}

int s2i(std::string_view text) {
  text = withoutPlus(withoutLeadingBlanks(text));
  int value = 0;
  const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
  if (error != std::errc::result_out_of_range) return value;
  return text.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

float s2f(std::string_view text) {
  return parseFloat(withoutPlus(withoutLeadingBlanks(text))).value;
}

int s2iStrict(std::string_view text) {
  const std::string_view number = withoutPlus(text);
  int value = 0;
  const auto [last, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || last != number.data() + number.size()) refuse(text, "a whole number");
  return value;
}

float s2fStrict(std::string_view text) {
  const std::string_view number = withoutPlus(text);
  const FloatText parsed = parseFloat(number);
  const bool tooLarge = parsed.outOfRange && parsed.value != 0.0f;
  if (parsed.length == 0 || parsed.length != number.size() || tooLarge || !std::isfinite(parsed.value)) {
    refuse(text, "a number");
  }
  return parsed.value;
}

std::string i2s(int value, int width, char fill) {
  std::string text = ToString(value);
  const auto field = static_cast<std::size_t>(std::max(width, 0));
  if (text.size() < field) text.insert(0, field - text.size(), fill);
  return text;
}

float ROUND(float value, unsigned int digits) {
  return roundAt(value, digits, [](double scaled) { return std::round(scaled); });
}

float ROUNDUP(float value, unsigned int digits) {
  return roundAt(value, digits, [](double scaled) { return std::ceil(scaled); });
}

int SUM(const std::vector<int>& values) {
  std::int64_t sum = 0;
  for (int value : values) sum += value;
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}

float SUM(const std::vector<float>& values) {
  double sum = 0.0;
  for (float value : values) sum += value;
  constexpr double limit = std::numeric_limits<float>::max();
  return static_cast<float>(std::isfinite(sum) ? std::clamp(sum, -limit, limit) : sum);
}

void UNIQUE(std::vector<std::string>& values) {
  std::set<std::string> seen;
  std::erase_if(values, [&seen](const std::string& value) { return !seen.insert(value).second; });
}

void convertToCamelString(std::string& text) {
  std::string shown;
  shown.reserve(text.size());
  bool wordBegins = true;
  for (char c : text) {
    if (c == '_' || isBlank(c)) {
      wordBegins = true;
      continue;
    }
    if (wordBegins && !shown.empty()) shown += ' ';
    shown += wordBegins ? toUpper(c) : toLower(c);
    wordBegins = false;
  }
  text = std::move(shown);
}

void removeWhiteSpaces(std::string& text) {
  std::erase_if(text, isBlank);
}

void trim(std::string& text) {
  rtrim(text);
  ltrim(text);
}

void ltrim(std::string& text) {
  text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isBlank));
}

void rtrim(std::string& text) {
  text.erase(std::find_if_not(text.rbegin(), text.rend(), isBlank).base(), text.end());
}

std::string getFirstNumericSubStr(std::string_view text) {
  const auto begin = std::find_if(text.begin(), text.end(), isDigit);
  return {begin, std::find_if_not(begin, text.end(), isDigit)};
}

namespace {

/// The length of a character by its first byte, 0 for none, and what its second byte must lie between: no
/// character has two spellings, and halves of surrogate pairs are none.
struct Utf8Lead {
  int length;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
};

Utf8Lead utf8Lead(unsigned char byte) {
  if (byte < 0x80) return {1};
  if (byte < 0xC2 || byte > 0xF4) return {0};
  if (byte < 0xE0) return {2};
  if (byte == 0xE0) return {3, 0xA0};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3};
  if (byte == 0xF0) return {4, 0x90};
  return byte == 0xF4 ? Utf8Lead{4, 0x80, 0x8F} : Utf8Lead{4};
}

}  // namespace

bool isText(std::string_view text) {
  for (size_t i = 0; i < text.size();) {
    const auto byteAt = [&](size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byteAt(i);
    if (first < 0x20 && first != '\t' && first != '\n' && first != '\r') return false;
    const auto [length, low, high] = utf8Lead(first);
    if (length == 0 || i + static_cast<size_t>(length) > text.size()) return false;
    for (int k = 1; k < length; ++k) {
      const unsigned char next = byteAt(i + static_cast<size_t>(k));
      if (next < (k == 1 ? low : 0x80) || next > (k == 1 ? high : 0xBF)) return false;
    }
    i += static_cast<size_t>(length);
  }
  return true;
}

FileOpener::FileOpener(const std::string& path, std::ios_base::openmode mode) {
  if (path.find('\0') != std::string::npos) {
    m_stream.setstate(std::ios_base::failbit);
    return;
  }
  m_stream.open(path, mode);
}

}  // namespace KVXMHelperUtils
