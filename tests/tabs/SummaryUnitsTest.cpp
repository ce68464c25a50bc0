// Display units: what the user picks changes what is shown, and nothing else.

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "tests/tabs/SummaryBook.h"

using KVXEEnums::Unit;
using ::testing::HasSubstr;

namespace {

TEST_F(SummaryBook, EveryUnitHasItsRow) {
  KVXETable* units = table(KVXETab::m_UnitsTable);
  ASSERT_EQ(units->getRowCount(), 24u);
  struct Case {
    Unit unit;
    const char *quantity, *suffix;
    float multiplier, offset;
  };
  const Case cases[] = {
      {Unit::NO_UNIT, "", "", 1.0f, 0.0f},
      {Unit::POWER_SHOW, "Power", "W", 1.0f, 0.0f},
      {Unit::POWER_HIDE, "Power", "", 1.0f, 0.0f},
      {Unit::PERCENTAGE_SHOW, "Percentage", "%", 100.0f, 0.0f},
      {Unit::PERCENTAGE_HIDE, "Percentage", "", 100.0f, 0.0f},
      {Unit::FREQUENCY_SHOW, "Frequency", "MHz", 1.0f, 0.0f},
      {Unit::TEMPERATURE_SHOW, "Temperature", "C", 1.0f, 0.0f},
      {Unit::POWER_FIXED_mW_SHOW, "Fixed mW", "mW", 1000.0f, 0.0f},
      {Unit::CURRENT_FIXED_mA_HIDE, "Fixed mA", "", 1000.0f, 0.0f},
      {Unit::FIXED_THETAJA_SHOW, "Fixed C/W", "C/W", 1.0f, 0.0f},
      {Unit::FIXED_Gbps_HIDE, "Fixed Gbps", "", 1.0f, 0.0f},
  };
  for (const Case& c : cases) {
    const auto row = static_cast<unsigned int>(c.unit);
    SCOPED_TRACE(KVXEEnums::nameOf(c.unit));
    EXPECT_EQ(textIn(units->getCellAt(row, &KVXETab::m_UnitsEnum)), KVXEEnums::nameOf(c.unit));
    EXPECT_EQ(textIn(units->getCellAt(row, &KVXETab::m_UnitsQuantity)), c.quantity);
    EXPECT_EQ(textIn(units->getCellAt(row, &KVXETab::m_UnitsSuffix)), c.suffix);
    EXPECT_EQ(numberIn(units->getCellAt(row, &KVXETab::m_UnitsMultiplier)), c.multiplier);
    EXPECT_EQ(numberIn(units->getCellAt(row, &KVXETab::m_UnitsOffset)), c.offset);
  }
}

TEST_F(SummaryBook, AnotherUnitChangesWhatIsShownOnly) {
  KVXECell* frequency = book()
                            ->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable)
                            ->getCellAt(1, &KVXEClockTab::m_ClockFreq);
  edit(frequency, 250.0f);
  edit(environment(Summary::m_PowerBudgetStr), 2.5f);
  edit(environment(Summary::m_AmbientTempStr), 40.0f);
  const std::string total = textIn(summary(Summary::m_onChipPowerStr));
  struct Case {
    Unit unit;
    const char* suffix;
    KVXECell* cell;
    float stored;
    const char* shown;
  };
  const Case cases[] = {
      {Unit::FREQUENCY_SHOW, "GHz", frequency, 250.0f, "0.25"},
      {Unit::FREQUENCY_SHOW, "kHz", frequency, 250.0f, "250000"},
      {Unit::POWER_SHOW, "mW", environment(Summary::m_PowerBudgetStr), 2.5f, "2500 mW"},
      {Unit::TEMPERATURE_SHOW, "F", environment(Summary::m_AmbientTempStr), 40.0f, "104 F"},
      {Unit::TEMPERATURE_SHOW, "C", environment(Summary::m_AmbientTempStr), 40.0f, "40 C"},
  };
  for (const Case& c : cases) {
    edit(unitChoice(c.unit), std::string(c.suffix));
    EXPECT_EQ(shown(c.cell), c.shown);
    EXPECT_EQ(numberIn(c.cell), c.stored);
    EXPECT_EQ(textIn(summary(Summary::m_onChipPowerStr)), total);
  }
}

TEST_F(SummaryBook, TextsKeepTheUnitTheyAreIn) {
  edit(environment(Summary::m_junctionTempStr), 45.0f);
  EXPECT_EQ(shown(summary(Summary::m_junctionTempStr)), "45 C");
  edit(unitChoice(Unit::TEMPERATURE_SHOW), std::string("F"));
  EXPECT_EQ(shown(environment(Summary::m_junctionTempStr)), "113 F");
  EXPECT_EQ(shown(summary(Summary::m_junctionTempStr)), "45 C");
  EXPECT_EQ(numberIn(summary(Summary::m_junctionTempStr)), 45.0f);
  edit(unitChoice(Unit::TEMPERATURE_SHOW), std::string("C"));
  EXPECT_EQ(shown(summary(Summary::m_junctionTempStr)), "45 C");
}

TEST_F(SummaryBook, AnUnknownSuffixIsReported) {
  Captured captured;
  m_device->edit(unitChoice(Unit::POWER_SHOW), std::string("hp"));
  EXPECT_THAT(captured.text(), HasSubstr("Error: Selected unit is not present in multiplier map : "));
}

TEST(SummaryUnits, ScalesOfAQuantity) {
  using Map = std::map<std::string, std::pair<float, float>>;
  const std::pair<const char*, Map> cases[] = {
      {"C", {{"C", {1.0f, 0.0f}}, {"F", {1.8f, 32.0f}}}},
      {"%", {{"%", {100.0f, 0.0f}}, {" ", {1.0f, 0.0f}}}},
      {"MHz", {{"MHz", {1.0f, 0.0f}}, {"kHz", {1000.0f, 0.0f}}, {"GHz", {0.001f, 0.0f}}}},
      {"furlong", {}},
  };
  for (const auto& [unit, expected] : cases)
    EXPECT_EQ(KVXESummaryTab::getUnitToMultMap(unit), expected) << unit;
}

}  // namespace
