#include "engine/base/config/ClockTag.h"

#include <optional>

#include <gtest/gtest.h>

using kvxe::ClockTag;

namespace {

TEST(ClockTag, IsWrittenWithThreeDecimals) {
  EXPECT_EQ(ClockTag::construct("sys", 100.0f), "100.000 MHz (sys)");
  EXPECT_EQ(ClockTag::construct("", 33.33333f), "33.333 MHz ()");
  EXPECT_EQ(ClockTag::construct("a (b)", 0.0006f), "0.001 MHz (a (b))");
  EXPECT_EQ(ClockTag::construct("big", 12345678.0f), "12345678.000 MHz (big)");
}

TEST(ClockTag, IsReadWhenItHasTheForm) {
  const struct {
    const char* text;
    float megahertz;
    const char* name;
  } cases[] = {
      {"100.000 MHz (sys)", 100.0f, "sys"},
      {"100.000MHz (sys)", 100.0f, "sys"},
      {"7 MHz (x)", 7.0f, "x"},
      {"007.25 MHz (x)", 7.25f, "x"},
      {"1.5 MHz (a (b) c)", 1.5f, "a (b) c"},
      {"1.5 MHz (a) MHz (b)", 1.5f, "a) MHz (b"},
      {"1.5 MHz ())", 1.5f, ")"},
      {"1.5 MHz ()", 1.5f, ""},
      {"1.5 MHz (\xC3\xA9t\xC3\xA9)", 1.5f, "\xC3\xA9t\xC3\xA9"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const auto tag = ClockTag::parse(c.text);
    ASSERT_TRUE(tag);
    EXPECT_EQ(tag->megahertz, c.megahertz);
    EXPECT_EQ(tag->name, c.name);
  }
}

TEST(ClockTag, IsRefusedOtherwise) {
  for (const char* text : {"",
                           "sys",
                           "MHz (sys)",
                           "100.000",
                           "100.000 mhz (sys)",
                           "100.000 MHZ (sys)",
                           "100.000 GHz (sys)",
                           "100.000  MHz (sys)",
                           " 100.000 MHz (sys)",
                           "100.000 MHz (sys) ",
                           "100.000 MHz(sys)",
                           "100.000 MHz (",
                           "100.000 MHz sys)",
                           "100. MHz (sys)",
                           ".5 MHz (sys)",
                           "-1 MHz (sys)",
                           "+1 MHz (sys)",
                           "1e3 MHz (sys)",
                           "1,5 MHz (sys)",
                           "1.5.2 MHz (sys)",
                           "nan MHz (sys)",
                           "1.5 MHz (a\nb)",
                           "1.5 MHz (a\r)"})
    EXPECT_FALSE(ClockTag::parse(text)) << text;
}

TEST(ClockTag, OfAnyLengthIsRead) {
  const std::string name(1 << 20, '(');
  EXPECT_EQ(ClockTag::parse(ClockTag::construct(name, 1.0f))->name, name);
  EXPECT_FALSE(ClockTag::parse(std::string(1 << 20, '9') + " MHz (x)")) << "no float holds that";
}

}  // namespace
