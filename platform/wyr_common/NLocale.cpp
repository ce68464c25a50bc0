#include "platform/wyr_common/NLocale.h"

#include <cstdint>

namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr char32_t LastCodePoint = 0x10FFFF;
constexpr char32_t FirstOfSecondPlane = 0x10000;

constexpr bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The forms of UTF-8 sequences: the lead bytes, the range of the second byte and the number of bytes after
/// the lead (The Unicode Standard, table 3-7). The second byte's range keeps out overlong forms, surrogates
/// and what lies beyond the last code point.
struct SequenceForm {
  unsigned char firstLead, lastLead, firstSecond, lastSecond, continuations;
};
constexpr SequenceForm SequenceForms[] = {
    {0x00, 0x7F, 0x00, 0x00, 0}, {0xC2, 0xDF, 0x80, 0xBF, 1}, {0xE0, 0xE0, 0xA0, 0xBF, 2},
    {0xE1, 0xEC, 0x80, 0xBF, 2}, {0xED, 0xED, 0x80, 0x9F, 2}, {0xEE, 0xEF, 0x80, 0xBF, 2},
    {0xF0, 0xF0, 0x90, 0xBF, 3}, {0xF1, 0xF3, 0x80, 0xBF, 3}, {0xF4, 0xF4, 0x80, 0x8F, 3},
};

/// Reads the code point at `position` and moves past it, or past what is broken of it.
char32_t readCodePoint(const std::string& text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position++]);
  for (const SequenceForm& form : SequenceForms) {
    if (lead < form.firstLead || lead > form.lastLead) continue;
    // A lead byte keeps 7, 5, 4 or 3 bits for the code point.
    char32_t codePoint = form.continuations == 0 ? lead : lead & (0x3Fu >> form.continuations);
    for (unsigned int i = 0; i < form.continuations; ++i) {
      const unsigned int byte = position < text.size() ? static_cast<unsigned char>(text[position]) : 0u;
      const unsigned int first = i == 0 ? form.firstSecond : 0x80;
      const unsigned int last = i == 0 ? form.lastSecond : 0xBF;
      if (byte < first || byte > last) return Replacement;
      codePoint = codePoint << 6 | (byte & 0x3F);
      ++position;
    }
    return codePoint;
  }
  return Replacement;
}

void appendWide(std::wstring& text, char32_t codePoint) {
  if (codePoint < FirstOfSecondPlane) {
    text += static_cast<wchar_t>(codePoint);
    return;
  }
  const char32_t offset = codePoint - FirstOfSecondPlane;
  text += static_cast<wchar_t>(0xD800 + (offset >> 10));
  text += static_cast<wchar_t>(0xDC00 + (offset & 0x3FF));
}

void appendNarrow(std::string& text, char32_t codePoint) {
  const auto continuation = [&](unsigned int shift) {
    text += static_cast<char>(0x80 | (codePoint >> shift & 0x3F));
  };
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text += static_cast<char>(0xC0 | codePoint >> 6);
    continuation(0);
  } else if (codePoint < FirstOfSecondPlane) {
    text += static_cast<char>(0xE0 | codePoint >> 12);
    continuation(6);
    continuation(0);
  } else {
    text += static_cast<char>(0xF0 | codePoint >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

char32_t unitAt(const std::wstring& text, std::size_t position) {
  return position < text.size() ? static_cast<char32_t>(text[position]) : 0;
}

}  // namespace

std::wstring NLocale::convert(const std::string& narrow) {
  std::wstring wide;
  wide.reserve(narrow.size());
  for (std::size_t position = 0; position < narrow.size();) appendWide(wide, readCodePoint(narrow, position));
  return wide;
}

std::string NLocale::convert(const std::wstring& wide) {
  std::string narrow;
  narrow.reserve(wide.size());
  for (std::size_t position = 0; position < wide.size(); ++position) {
    char32_t codePoint = unitAt(wide, position);
    if (isHighSurrogate(codePoint) && isLowSurrogate(unitAt(wide, position + 1))) {
      codePoint = FirstOfSecondPlane + ((codePoint - 0xD800) << 10) + (unitAt(wide, ++position) - 0xDC00);
    } else if (isHighSurrogate(codePoint) || isLowSurrogate(codePoint) || codePoint > LastCodePoint) {
      codePoint = Replacement;
    }
    appendNarrow(narrow, codePoint);
  }
  return narrow;
}
