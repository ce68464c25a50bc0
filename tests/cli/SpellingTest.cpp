#include "clients/cli/Spelling.h"

#include "clients/cli/UnitText.h"

namespace {

using KVXEEnums::Unit;

TEST(Spelling, IgnoresEverythingButLettersAndDigits) {
  const std::vector<std::pair<std::string, std::string>> same = {
      {"toggle_rate", "Toggle Rate"},
      {"toggleRate", "TOGGLE RATE"},
      {"Frequency (MHz)", "frequency"},
      {"Min  Voltage", "min_voltage"},
      {"Fanout/Site", "fanout_site"},
      {"Max. Junction Temperature", "max_junction_temperature"},
      {"Mult Used ?", "mult_used"},
      {"VCCO 1.8V", "vcco18v"},
      {" ", " "}};
  for (const auto& [a, b] : same) EXPECT_TRUE(kvx::isSameSpelling(a, b)) << a << " / " << b;
  const std::vector<std::pair<std::string, std::string>> different = {
      {"clock", "clocks"}, {"", "(MHz)"}, {" ", "_"}, {"a)b", "a"}, {"größe", "gröse"}};
  for (const auto& [a, b] : different) EXPECT_FALSE(kvx::isSameSpelling(a, b)) << a << " / " << b;
}

TEST(Spelling, DistanceIsThatOfEdits) {
  const std::vector<std::tuple<std::string, std::string, unsigned>> cases = {
      {"", "", 0},           {"", "abc", 3},         {"clock", "clock", 0}, {"clock", "clok", 1},
      {"clcok", "clock", 1}, {"toggle", "togle", 1}, {"bram", "wram", 1},   {"kitten", "sitting", 3}};
  for (const auto& [a, b, distance] : cases) {
    EXPECT_EQ(kvx::editDistance(a, b), distance) << a << " / " << b;
    EXPECT_EQ(kvx::editDistance(b, a), distance) << b << " / " << a;
  }
}

TEST(Spelling, AdviceNamesWhatIsNear) {
  const std::vector<std::string> known = {"clock", "logic", "power_design", "summary"};
  EXPECT_EQ(kvx::adviseName("clok", known), "did you mean \"clock\"?");
  EXPECT_EQ(kvx::adviseName("Power-Desing", known), "did you mean \"power_design\"?");
  EXPECT_EQ(kvx::adviseName("theta", {"ambient", "effective_theta_ja"}),
            "did you mean \"effective_theta_ja\"?");
  EXPECT_EQ(kvx::adviseName("xyz", known), "known are \"clock\", \"logic\", \"power_design\", \"summary\"");
  EXPECT_EQ(kvx::adviseName("xyz", {}), "there are none");
  EXPECT_EQ(kvx::adviseName("", known), "known are \"clock\", \"logic\", \"power_design\", \"summary\"");
}

TEST(Spelling, QuotedTextIsShortAndPrintable) {
  EXPECT_EQ(kvx::inQuotes("a\tb\x1b[31m"), "\"a?b?[31m\"");
  const std::string cut = kvx::inQuotes(std::string(59, 'a') + "öööö");  // the cut falls into the first ö
  EXPECT_EQ(cut, "\"" + std::string(59, 'a') + "...\"");
}

TEST(UnitText, ReadsNumbersWithAndWithoutUnit) {
  struct Case {
    const char* text;
    Unit unit;
    double stored;
  };
  const Case cases[] = {
      {"250", Unit::FREQUENCY_HIDE, 250},
      {"0.3 GHz", Unit::FREQUENCY_SHOW, 300},
      {"24576 kHz", Unit::FREQUENCY_HIDE, 24.576},
      {" 12.5% ", Unit::PERCENTAGE_SHOW, 0.125},
      {"0.125", Unit::PERCENTAGE_SHOW, 0.125},
      {"850 mV", Unit::VOLTAGE_SHOW, 0.85},
      {"-40 C", Unit::TEMPERATURE_SHOW, -40},
      {"212 F", Unit::TEMPERATURE_SHOW, 100},
      {"1.2 C/W", Unit::FIXED_THETAJA_SHOW, 1.2},
      {"250 mW", Unit::POWER_FIXED_mW_SHOW, 0.25},
      {"25.78125Gbps", Unit::FIXED_Gbps_SHOW, 25.78125},
      {"+1e3", Unit::NO_UNIT, 1000},
  };
  for (const Case& each : cases) {
    const auto parsed = kvx::NumberText::parse(each.text);
    ASSERT_TRUE(parsed) << each.text;
    const auto stored = kvx::toStored(*parsed, each.unit);
    ASSERT_TRUE(stored) << each.text;
    EXPECT_FLOAT_EQ(static_cast<float>(*stored), static_cast<float>(each.stored)) << each.text;
  }
}

TEST(UnitText, RefusesWhatIsNoNumberOfThatKind) {
  for (const char* text :
       {"", " ", "abc", "1,5", "1.5.2", "nan", "inf", "1e999", "++1", "+-1", "12 3", "0x10"})
    EXPECT_FALSE(kvx::NumberText::parse(text)) << text;
  EXPECT_FALSE(kvx::toStored(*kvx::NumberText::parse("3 V"), Unit::FREQUENCY_SHOW));
  EXPECT_FALSE(kvx::toStored(*kvx::NumberText::parse("3 mhz"), Unit::FREQUENCY_SHOW));
  EXPECT_FALSE(kvx::toStored(*kvx::NumberText::parse("3 W"), Unit::NO_UNIT));
}

}  // namespace
