#include "engine/base/workbook/KVXETableOperations.h"
#include "tests/tabs/ClockLogicBook.h"

using namespace ::testing;

namespace {

// References of other tabs.

class ClockTags : public ClockLogicBook {
 protected:
  void SetUp() override {
    ClockLogicBook::SetUp();
    addClock(1, "sys", 100.0f);
    addClock(2, "mem", 200.0f);
    addModule(1, "100.000 MHz (sys)");
    addModule(2, "200.000 MHz (mem)");
    addModule(3, "100.000 MHz (sys)");
    settle();
  }
};

TEST_F(ClockTags, AreOfferedByEveryClockColumnInTheOrderOfTheRows) {
  EXPECT_THAT(offeredClocks(500), ElementsAre("100.000 MHz (sys)", "200.000 MHz (mem)"));
  addClock(4, "sys", 100.0f);
  addClock(3, "late", 5.5f);
  calculate();
  EXPECT_THAT(offeredClocks(1), ElementsAre("100.000 MHz (sys)", "200.000 MHz (mem)", "5.500 MHz (late)"));
  std::vector<std::string> list;
  static_cast<Clock*>(clockTab())->getClockdropdown(list);
  EXPECT_EQ(list, offeredClocks(1));
  EXPECT_EQ(static_cast<Clock*>(clockTab())->getClockTag("late"), "5.500 MHz (late)");
  EXPECT_EQ(static_cast<Clock*>(clockTab())->getClockTag("none"), "");
}

TEST_F(ClockTags, FollowTheClockWhetherTheGraphIsTrustedOrNot) {
  const struct {
    const char* label;
    const char* name;
    float megahertz;
    const char* expected;
  } cases[] = {
      {"name", "core", 100.0f, "100.000 MHz (core)"},
      {"frequency", "core", 150.0f, "150.000 MHz (core)"},
      {"both", "sys", 75.125f, "75.125 MHz (sys)"},
  };
  for (const bool isIncremental : {true, false})
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.label) + (isIncremental ? " incremental" : " full"));
      put(clock(1, Clock::m_Name), std::string(c.name));
      put(clock(1, Clock::m_ClockFreq), c.megahertz);
      isIncremental ? calculate() : settle();
      EXPECT_EQ(tagOf(1), c.expected);
      EXPECT_EQ(tagOf(3), c.expected);
      EXPECT_EQ(tagOf(2), "200.000 MHz (mem)");
      EXPECT_EQ(module(1, Logic::m_Clock)->getValueSource(), KVXEEnums::ValueSource::USER);
    }
}

TEST_F(ClockTags, SwapWithoutMixingTheClocksUp) {
  put(clock(2, Clock::m_ClockFreq), 100.0f);
  calculate();
  put(clock(1, Clock::m_Name), std::string("mem"));
  put(clock(2, Clock::m_Name), std::string("sys"));
  calculate();
  EXPECT_EQ(tagOf(1), "100.000 MHz (mem)");
  EXPECT_EQ(tagOf(2), "100.000 MHz (sys)");
  EXPECT_EQ(tagOf(3), "100.000 MHz (mem)");
}

TEST_F(ClockTags, StayWhileAnotherClockStillHasThem) {
  addClock(3, "sys", 100.0f);
  calculate();
  put(clock(3, Clock::m_Name), std::string("other"));
  calculate();
  EXPECT_EQ(tagOf(1), "100.000 MHz (sys)");
  put(clock(1, Clock::m_Name), std::string("core"));
  calculate();
  EXPECT_EQ(tagOf(1), "100.000 MHz (core)");
}

TEST_F(ClockTags, SurviveAClockThatLosesItsFrequencyForAWhile) {
  clear(clock(1, Clock::m_ClockFreq));
  calculate();
  EXPECT_EQ(text(clock(1, Clock::m_ClockTag)), "");
  EXPECT_EQ(number(clock(1, Clock::m_Power)), -1.0f);
  EXPECT_EQ(tagOf(1), "100.000 MHz (sys)");
  EXPECT_THAT(offeredClocks(1), ElementsAre("200.000 MHz (mem)"));
  module(1, Logic::m_Clock)->addDDErrorMsgIfApplicable();
  EXPECT_EQ(module(1, Logic::m_Clock)->getSeverity(), KvxSeverity::ERROR);

  put(clock(1, Clock::m_ClockFreq), 100.0f);
  calculate();
  module(1, Logic::m_Clock)->addDDErrorMsgIfApplicable();
  EXPECT_EQ(module(1, Logic::m_Clock)->getSeverity(), KvxSeverity::NONE);
  put(clock(1, Clock::m_Name), std::string("core"));
  calculate();
  EXPECT_EQ(tagOf(1), "100.000 MHz (core)") << "the link is whole again";
}

TEST_F(ClockTags, OutliveTheRowsOfTheClockTable) {
  const KVXETableOperations::Scope scope;
  ASSERT_TRUE(clocks()->deleteRow(1));
  calculate();
  EXPECT_EQ(tagOf(1), "100.000 MHz (sys)");
  EXPECT_THAT(offeredClocks(1), ElementsAre("200.000 MHz (mem)"));
  put(clock(1, Clock::m_Name), std::string("dram"));
  calculate();
  EXPECT_EQ(tagOf(2), "200.000 MHz (dram)");
  ASSERT_TRUE(clocks()->insertRow(1));
  addClock(1, "sys", 100.0f);
  calculate();
  EXPECT_THAT(offeredClocks(1), ElementsAre("100.000 MHz (sys)", "200.000 MHz (dram)"));
  clocks()->moveDownStreamRowsUpByOneRow(1u);
  put(clock(1, Clock::m_ClockFreq), 250.0f);
  calculate();
  EXPECT_EQ(tagOf(2), "250.000 MHz (dram)");
  EXPECT_EQ(tagOf(1), "100.000 MHz (sys)");
}

TEST_F(ClockTags, ForgetTheRowsThatWentBeforeTheListWasMade) {
  addClock(3, "io", 50.0f);
  addModule(4, "50.000 MHz (io)");
  calculate();
  const KVXETableOperations::Scope scope;
  ASSERT_TRUE(clocks()->deleteRow(1));
  EXPECT_EQ(static_cast<Clock*>(clockTab())->getClockTag("mem"), "200.000 MHz (mem)");
  ASSERT_TRUE(clocks()->deleteRow(1));
  put(clock(1, Clock::m_Name), std::string("pins"));
  calculate();
  EXPECT_EQ(tagOf(4), "50.000 MHz (pins)");
  EXPECT_EQ(tagOf(2), "200.000 MHz (mem)");
}

TEST_F(ClockTags, LinkACellToTheOneClockThatItNames) {
  KVXECalculationMgr& mgr = KVXECalculationMgr::getGlobal();
  EXPECT_THAT(mgr.getDirectSources(module(1, Logic::m_Clock)), ElementsAre(clock(1, Clock::m_ClockTag)));
  EXPECT_THAT(mgr.getDirectSources(module(4, Logic::m_Clock)), IsEmpty());
}

// Power.

class ClockPower : public ClockLogicBook, public WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    build(GetParam(), "");
    addClock(1, "sys", 100.0f, 5000);
    addClock(2, "mem", 200.0f, 300);
    addModule(1, "100.000 MHz (sys)", 4000, 5000);
    settle();
  }
};
INSTANTIATE_TEST_SUITE_P(Architectures, ClockPower,
                         Values(KVXEPartSelection::m_arkeonArchName.c_str(),
                                KVXEPartSelection::m_morlanArchName.c_str()),
                         [](const auto& param) { return "Arch" + std::to_string(param.index); });

TEST_P(ClockPower, IsLinearInFrequencyAndQuadraticInVoltage) {
  const float before = number(clock(1, Clock::m_Power));
  EXPECT_GT(before, 0.0f);
  put(clock(1, Clock::m_ClockFreq), 200.0f);
  calculate();
  EXPECT_NEAR(number(clock(1, Clock::m_Power)), 2 * before, 1e-5 * before);
  setVolts(0.8f * 1.05f);
  calculate();
  EXPECT_NEAR(number(clock(1, Clock::m_Power)), 2 * 1.1025 * before, 1e-5 * before);
}

TEST_P(ClockPower, AddsUpToThePowerTable) {
  float rails = 0.0f, active = 0.0f;
  KVXETable* power = clockTab()->getTable(&KVXETab::m_PowerTable);
  for (unsigned int i = 1; i + 1 < power->getRowCount(); ++i)
    rails += number(power->getCellAt(i, &KVXETab::m_ActivePowerColumn));
  const float rows = number(clock(1, Clock::m_Power)) + number(clock(2, Clock::m_Power));
  EXPECT_FLOAT_EQ(rails, rows);
  ASSERT_TRUE(clockTab()->getTabActivePower(active));
  EXPECT_FLOAT_EQ(active, rows);
  EXPECT_FLOAT_EQ(number(utilization(clockTab(), Clock::m_ClockStr, KVXETab::m_BlockPowerColumn)), rows);
  EXPECT_EQ(number(utilization(clockTab(), Clock::m_FsynStr, KVXETab::m_UsedColumn)), 0.0f);
}

TEST_P(ClockPower, IsBlankWithoutFrequencyOrLoads) {
  for (const KVXETitle* column : {&Clock::m_ClockFreq, &Clock::m_Fanout}) {
    KVXECell* cell = clock(1, *column);
    const float value = number(cell);
    clear(cell);
    calculate();
    for (const KVXETitle* result : {&Clock::m_Power, &Clock::m_VccintPwr, &Clock::m_VccramPwr})
      EXPECT_EQ(number(clock(1, *result)), -1.0f) << result->getDisplayTag(false);
    put(cell, value);
    calculate();
    EXPECT_GT(number(clock(1, Clock::m_Power)), 0.0f);
  }
  put(clock(1, Clock::m_Fanout), 0);
  calculate();
  EXPECT_EQ(number(clock(1, Clock::m_Power)), -1.0f);
}

TEST_P(ClockPower, GrowsWithTheRegionsThatTheDesignFills) {
  const float before = number(clock(1, Clock::m_Power));
  const float available = number(utilization(logicTab(), Logic::m_LutsStr, KVXETab::m_AvailColumn));
  put(module(1, Logic::m_LutAsLogic), static_cast<int>(available));
  calculate();
  EXPECT_GT(number(clock(1, Clock::m_Power)), before);
}

// What the architectures do for the user.

class FanoutPerSite : public ClockLogicBook {
 protected:
  void useRegisters(float share) {
    const float available = number(utilization(logicTab(), Logic::m_RegistersStr, KVXETab::m_AvailColumn));
    put(module(1, Logic::m_Registers), static_cast<int>(share * available));
    calculate();
  }
};

TEST_F(FanoutPerSite, FollowsTheRegistersUntilTheUserDecides) {
  addClock(1, "sys", 100.0f);
  settle();
  EXPECT_FLOAT_EQ(number(clock(1, Clock::m_FanoutPerSite)), 6.5f);
  useRegisters(0.3f);
  EXPECT_FLOAT_EQ(number(clock(1, Clock::m_FanoutPerSite)), 6.5f);
  useRegisters(1.0f);
  EXPECT_NEAR(number(clock(1, Clock::m_FanoutPerSite)), 15.995, 0.01);
  EXPECT_FLOAT_EQ(number(clock(2, Clock::m_FanoutPerSite)), 6.5f) << "a row without a clock is left alone";
  put(clock(1, Clock::m_FanoutPerSite), 9.0f);
  calculate();
  useRegisters(0.0f);
  EXPECT_FLOAT_EQ(number(clock(1, Clock::m_FanoutPerSite)), 9.0f);
  clear(clock(1, Clock::m_FanoutPerSite));
  calculate();
  EXPECT_FLOAT_EQ(number(clock(1, Clock::m_FanoutPerSite)), 6.5f);
}

class MorlanClocks : public ClockLogicBook {
 protected:
  void SetUp() override { build(KVXEPartSelection::m_morlanArchName, ""); }
};

TEST_F(MorlanClocks, GetANameOfTheirOwnWhenTheyHaveNone) {
  settle();
  put(clock(1, Clock::m_Name), std::string("clk_2"));
  put(clock(3, Clock::m_ClockFreq), 50.0f);
  put(clock(5, Clock::m_ClockFreq), 60.0f);
  calculate();
  EXPECT_EQ(text(clock(3, Clock::m_Name)), "clk_1");
  EXPECT_EQ(text(clock(5, Clock::m_Name)), "clk_3");
  EXPECT_EQ(text(clock(5, Clock::m_ClockTag)), "60.000 MHz (clk_3)");
  EXPECT_EQ(text(clock(2, Clock::m_Name)), "");
}

TEST_F(ClockLogicBook, HasTheTypesOfItsArchitecture) {
  const auto types = [&] {
    std::vector<std::string> read;
    settle();
    clockTab()->readColumn(&KVXETab::m_UtilTable, &KVXETab::m_TypeColumn, read);
    return read;
  };
  EXPECT_THAT(types(), ElementsAre("FSYN", "DPLL", "IOPLL", "Clock"));
  for (const std::string& part : KVXEPartSelection::getGlobal()->getAvailableParts())
    if (part.starts_with("AN3060")) {
      build(KVXEPartSelection::m_arkeonArchName, part);
      break;
    }
  EXPECT_THAT(types(), ElementsAre("FSYN", "DPLL", "Y7PLL", "Clock"));
  build(KVXEPartSelection::m_morlanArchName, "");
  EXPECT_THAT(types(), ElementsAre("FSYN", "PLL", "Clock"));
}

}  // namespace
