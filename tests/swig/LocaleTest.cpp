#include <gtest/gtest.h>

#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/NLocale.h"

using namespace std::string_literals;

namespace {

TEST(Locale, NarrowAndWideTextsAreTheSame) {
  const struct {
    const char* label;
    std::string narrow;
    std::wstring wide;
  } cases[] = {
      {"empty", "", L""s},
      {"letters", "Clock 1", L"Clock 1"s},
      {"NUL inside", "a\0b"s, L"a\0b"s},
      {"two bytes", "\u00FC\u07FF", {0xFC, 0x7FF}},
      {"three bytes", "\u0800\u20AC\uFFFD\uFFFF", {0x800, 0x20AC, 0xFFFD, 0xFFFF}},
      {"around the surrogates", "\uD7FF\uE000", {0xD7FF, 0xE000}},
      {"pairs of surrogates",
       "\U00010000\U0001F600\U0010FFFF",
       {0xD800, 0xDC00, 0xD83D, 0xDE00, 0xDBFF, 0xDFFF}},
  };
  for (const auto& [label, narrow, wide] : cases) {
    EXPECT_EQ(NLocale::convert(narrow), wide) << label;
    EXPECT_EQ(NLocale::convert(wide), narrow) << label;
  }
}

TEST(Locale, BrokenNarrowTextHasReplacements) {
  constexpr wchar_t X = 0xFFFD;
  const struct {
    const char* label;
    std::string narrow;
    std::wstring wide;
  } cases[] = {
      {"lone continuation",
       "a\x80"
       "b",
       {L'a', X, L'b'}},
      {"cut short", "\xE2\x82", {X}},
      {"cut short by a letter",
       "\xE2\x82"
       "a",
       {X, L'a'}},
      {"cut short by a character", "\xF0\x9F\x98\xC3\xBC", {X, 0xFC}},
      {"overlong NUL", "\xC0\x80", {X, X}},
      {"overlong in three bytes", "\xE0\x80\x80", {X, X, X}},
      {"surrogate", "\xED\xA0\x80", {X, X, X}},
      {"beyond the last code point", "\xF4\x90\x80\x80", {X, X, X, X}},
      {"no lead byte", "\xFF\xFE", {X, X}},
  };
  for (const auto& [label, narrow, wide] : cases) EXPECT_EQ(NLocale::convert(narrow), wide) << label;
}

TEST(Locale, BrokenWideTextHasReplacements) {
  const struct {
    const char* label;
    std::wstring wide;
    std::string narrow;
  } cases[] = {
      {"high surrogate at the end", {L'a', 0xD83D}, "a\uFFFD"},
      {"low surrogate first", {0xDE00, 0xD83D}, "\uFFFD\uFFFD"},
      {"high surrogate twice", {0xD83D, 0xD83D, 0xDE00}, "\uFFFD\U0001F600"},
      {"a code point in one unit", {0x1F600}, "\U0001F600"},
      {"beyond the last code point", {0x110000, -1}, "\uFFFD\uFFFD"},
  };
  for (const auto& [label, wide, narrow] : cases) EXPECT_EQ(NLocale::convert(wide), narrow) << label;
}

TEST(Exception, TellsItsBulletins) {
  BulletinMgr bulletins;
  bulletins.append("inner");
  bulletins.append("outer");
  EXPECT_STREQ(NException(bulletins).what(), "inner\nouter");
  EXPECT_EQ(NException("word").getBulletinMgr()->getMessage(), "word");
  EXPECT_EQ(NException().getBulletinMgr(), nullptr);
  EXPECT_STREQ(NException().what(), "");
}

}  // namespace
