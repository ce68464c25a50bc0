#include "models/common/KVXMHelperUtils.h"

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <locale>
#include <random>
#include <stdexcept>

namespace {

using namespace KVXMHelperUtils;
using testing::ElementsAre;

constexpr float largest = std::numeric_limits<float>::max();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr int maxInt = std::numeric_limits<int>::max();
constexpr int minInt = std::numeric_limits<int>::min();

TEST(HelperUtils, WritesTheShortestTextWithoutNeedlessExponent) {
  const std::vector<std::pair<float, std::string>> cases = {{0.0f, "0"},
                                                            {0.1f, "0.1"},
                                                            {-2.5f, "-2.5"},
                                                            {300.0f, "300"},
                                                            {1e-4f, "0.0001"},
                                                            {9.9e-5f, "9.9e-05"},
                                                            {1e7f, "10000000"},
                                                            {9999999.0f, "9999999"},
                                                            {1.25e8f, "1.25e+08"},
                                                            {0.125f, "0.125"},
                                                            {16777216.0f, "1.6777216e+07"},
                                                            {largest, "3.4028235e+38"},
                                                            {infinite, "inf"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(ToString(value), text);
  EXPECT_EQ(ToString(500.0), "500");
  EXPECT_EQ(ToString(0x7FFFFFFE), "2147483646");
  EXPECT_EQ(ToString(minInt), "-2147483648");
}

TEST(HelperUtils, WhatWasWrittenReadsBackBitForBit) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    const float back = s2f(ToString(value));
    if (std::isnan(value)) {
      EXPECT_TRUE(std::isnan(back));
    } else {
      EXPECT_EQ(std::bit_cast<std::uint32_t>(back), std::bit_cast<std::uint32_t>(value)) << ToString(value);
    }
  }
}

TEST(HelperUtils, ReadsTheLeadingNumberOfAnyText) {
  const std::vector<std::pair<std::string, int>> whole = {{"12", 12},
                                                          {"  -7 MHz", -7},
                                                          {"+3", 3},
                                                          {"12.9", 12},
                                                          {"", 0},
                                                          {"abc", 0},
                                                          {"-", 0},
                                                          {"+-3", 0},
                                                          {"0x10", 0},
                                                          {"99999999999", maxInt},
                                                          {"-99999999999", minInt}};
  for (const auto& [text, value] : whole) EXPECT_EQ(s2i(text), value) << text;

  const std::string manyZeros(400, '0');
  const std::vector<std::pair<std::string, float>> fractions = {
      {"1.5", 1.5f},
      {"\t+.5 V", 0.5f},
      {"2e3x", 2000.0f},
      {"1,5", 1.0f},
      {"", 0.0f},
      {"e5", 0.0f},
      {"info", 0.0f},
      {"nand2", 0.0f},
      {"inf", infinite},
      {"-inf W", -infinite},
      {"1e999", largest},
      {"-1e999", -largest},
      {"1e-999", 0.0f},
      {"0." + manyZeros + "1", 0.0f},
      {"1" + manyZeros, largest},
      {"1" + manyZeros + "e-500", 0.0f},
      {"0." + manyZeros + "1e500", largest},
      {"1e-45", std::numeric_limits<float>::denorm_min()}};
  for (const auto& [text, value] : fractions) EXPECT_EQ(s2f(text), value) << text;
}

TEST(HelperUtils, StrictFormsTakeTheWholeTextOrThrow) {
  EXPECT_EQ(s2iStrict("-12"), -12);
  EXPECT_EQ(s2fStrict("+2.5e1"), 25.0f);
  EXPECT_EQ(s2fStrict("1e-999"), 0.0f);
  for (const char* text : {"", " 1", "1 ", "1.5", "99999999999", "x", "+-1"}) {
    EXPECT_THROW(s2iStrict(text), std::invalid_argument) << text;
  }
  for (const char* text : {"", " 1", "1 W", "1,5", "1e999", "inf", "nan", "x"}) {
    EXPECT_THROW(s2fStrict(text), std::invalid_argument) << text;
  }
}

TEST(HelperUtils, Fields) {
  EXPECT_EQ(i2s(42, 5, '0'), "00042");
  EXPECT_EQ(i2s(-42, 5, ' '), "  -42");
  EXPECT_EQ(i2s(123456, 3, '0'), "123456");
  EXPECT_EQ(i2s(1, -1, '0'), "1");
  EXPECT_EQ(formatFixed(300.0, 3), "300.000");
  EXPECT_EQ(formatFixed(-0.0625, 2), "-0.06");
  EXPECT_EQ(formatFixed(1e300, 3).size(), 305u);
  EXPECT_EQ(formatFixed(std::numeric_limits<double>::infinity(), 3), "inf");
}

TEST(HelperUtils, Rounding) {
  struct Case {
    float value;
    unsigned int digits;
    float nearest;
    float up;
  };
  const Case cases[] = {{1.005f, 2, 1.01f, 1.01f},      {2.5f, 0, 3.0f, 3.0f},
                        {-2.5f, 0, -3.0f, -2.0f},       {1.1f, 1, 1.1f, 1.1f},
                        {0.1234f, 3, 0.123f, 0.124f},   {-0.1239f, 3, -0.124f, -0.123f},
                        {largest, 2, largest, largest}, {infinite, 2, infinite, infinite},
                        {1e-40f, 60, 1e-40f, 1e-40f},   {12345678.0f, 3, 12345678.0f, 12345678.0f}};
  for (const Case& c : cases) {
    EXPECT_EQ(ROUND(c.value, c.digits), c.nearest) << c.value;
    EXPECT_EQ(ROUNDUP(c.value, c.digits), c.up) << c.value;
  }
}

TEST(HelperUtils, SumsSaturateAndDoNotDependOnOrder) {
  EXPECT_EQ(SUM(std::vector<int>{}), 0);
  EXPECT_EQ(SUM(std::vector<int>{maxInt, maxInt, -5}), maxInt);
  EXPECT_EQ(SUM(std::vector<int>{minInt, -1}), minInt);
  EXPECT_EQ(SUM(std::vector<float>{1e8f, 1.0f, -1e8f}), 1.0f);
  EXPECT_EQ(SUM(std::vector<float>{largest, largest}), largest);
}

TEST(HelperUtils, Texts) {
  const auto changed = [](void (*change)(std::string&), std::string text) {
    change(text);
    return text;
  };
  EXPECT_EQ(changed(convertToCamelString, "POWER_DESIGN"), "Power Design");
  EXPECT_EQ(changed(convertToCamelString, "__pl  io_X2 "), "Pl Io X2");
  EXPECT_EQ(changed(convertToCamelString, "µ_ä"), "µ ä");
  EXPECT_EQ(changed(removeWhiteSpaces, " a\tb\r\n c "), "abc");
  EXPECT_EQ(changed(trim, " \t a b \n"), "a b");
  EXPECT_EQ(changed(trim, "  "), "");
  EXPECT_EQ(changed(ltrim, "  a "), "a ");
  EXPECT_EQ(changed(rtrim, "  a "), "  a");
  EXPECT_EQ(getFirstNumericSubStr("BMEM36SDP18"), "36");
  EXPECT_EQ(getFirstNumericSubStr("none"), "");

  std::vector<std::string> names = {"b", "a", "b", "", "a", ""};
  UNIQUE(names);
  EXPECT_THAT(names, ElementsAre("b", "a", ""));
}

TEST(HelperUtils, NumbersIgnoreTheLocale) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new Comma));  // owned by it
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(ToString(1234.5f), "1234.5");
  EXPECT_EQ(formatFixed(1234.5, 3), "1234.500");
  EXPECT_EQ(i2s(1234567, 9, ' '), "  1234567");
  EXPECT_EQ(s2f("1.5"), 1.5f);
  EXPECT_EQ(s2fStrict("1.5"), 1.5f);
  std::setlocale(LC_ALL, "C");
  std::locale::global(before);
}

TEST(HelperUtils, FileOpenerLeavesAFailedStreamForWhatCannotBeOpened) {
  const std::string path = testing::TempDir() + "kvx_file_opener.txt";
  FileOpener(path, std::ios_base::out).get() << "text";
  std::string read;
  FileOpener reader(path, std::ios_base::in);
  EXPECT_TRUE(reader.get() >> read);
  EXPECT_EQ(read, "text");
  EXPECT_FALSE(FileOpener(path + std::string("\0.pwr", 5), std::ios_base::in).get());
  EXPECT_FALSE(FileOpener(testing::TempDir() + "none/none", std::ios_base::in).get());
  std::filesystem::remove(path);
}

}  // namespace
