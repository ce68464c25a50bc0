#include "engine/base/tabs/KVXEConfigTable.h"
#include "tests/kit/ParamSwitch.h"
#include "tests/tabs/ClockLogicBook.h"

using namespace ::testing;

namespace {

class LogicTab : public ClockLogicBook, public WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    build(GetParam(), "");
    addClock(1, "sys", 300.0f);
    addModule(1, "300.000 MHz (sys)", 100000, 0);
    settle();
  }
  float power(unsigned int row) { return number(module(row, Logic::m_VccintPower)); }
};
INSTANTIATE_TEST_SUITE_P(Architectures, LogicTab,
                         Values(KVXEPartSelection::m_arkeonArchName.c_str(),
                                KVXEPartSelection::m_morlanArchName.c_str()),
                         [](const auto& param) { return "Arch" + std::to_string(param.index); });

TEST_P(LogicTab, PowerIsBelievable) {
  EXPECT_THAT(power(1), AllOf(Gt(0.02f), Lt(0.6f))) << "100,000 LUTs at 12.5 % and 300 MHz";
  EXPECT_FLOAT_EQ(power(1), number(module(1, Logic::m_LogicPower)) + number(module(1, Logic::m_SignalPower)));
}

TEST_P(LogicTab, PowerScalesAsItsInputsDo) {
  const struct {
    const char* label;
    const KVXETitle* column;
    float value;
    double factor;
  } cases[] = {
      {"toggle rate", &Logic::m_ToggleRate, 0.25f, 2.0},
      {"count", &Logic::m_LutAsLogic, 200000.0f, 4.0},
      {"routing complexity", &Logic::m_RoutingComplexity, 0.0f, 0.0},
  };
  const double before = power(1);
  const double signal = number(module(1, Logic::m_SignalPower)) / before;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    put(module(1, *c.column), c.value);
    calculate();
    const double expected = c.factor > 0.0 ? c.factor : 4.0 * (1.0 - signal);
    EXPECT_NEAR(power(1) / before, expected, 1e-4);
  }
}

TEST_P(LogicTab, PowerIsLinearInFrequencyAndQuadraticInVoltage) {
  const float before = power(1);
  put(clock(1, Clock::m_ClockFreq), 600.0f);
  calculate();
  EXPECT_NEAR(power(1), 2 * before, 1e-5 * before)
      << "the clock's frequency reaches the module through the tag";
  setVolts(0.8f * 1.05f);
  calculate();
  EXPECT_NEAR(power(1), 2 * 1.1025 * before, 1e-5 * before);
}

TEST_P(LogicTab, SignalsMayBeLeftOut) {
  const float whole = power(1), cells = number(module(1, Logic::m_LogicPower));
  {
    const ParamSwitch withoutSignals("DISABLE_SIGNAL_POWER");
    settle();
    EXPECT_FLOAT_EQ(power(1), cells);
    EXPECT_EQ(number(railPower(logicTab(), "VCCINT")), power(1));
  }
  settle();
  EXPECT_FLOAT_EQ(power(1), whole);
}

TEST_P(LogicTab, TwoModulesCostWhatTheirSumCosts) {
  put(module(1, Logic::m_LutAsSRL), 500);
  put(module(1, Logic::m_LutAsDRAM), 700);
  put(module(1, Logic::m_Registers), 900);
  calculate();
  const float whole = number(railPower(logicTab(), "VCCINT"));
  for (const unsigned int row : {1u, 7u}) {
    addModule(row, "300.000 MHz (sys)", 50000, 450);
    put(module(row, Logic::m_LutAsSRL), 250);
    put(module(row, Logic::m_LutAsDRAM), 350);
  }
  calculate();
  EXPECT_FLOAT_EQ(number(railPower(logicTab(), "VCCINT")), whole);
  EXPECT_FLOAT_EQ(power(1) + power(7), whole);
  float active = 0.0f;
  ASSERT_TRUE(logicTab()->getTabActivePower(active));
  EXPECT_FLOAT_EQ(active, whole);
}

TEST_P(LogicTab, PowerIsBlankForARowThatUsesNothing) {
  const struct {
    const char* label;
    const char* tag;
    int luts;
    int registers;
    bool hasPower;
  } cases[] = {
      {"no clock", "", 10, 10, false},
      {"no tag", "sys", 10, 10, false},
      {"nothing used", "300.000 MHz (sys)", 0, 0, false},
      {"negative count", "300.000 MHz (sys)", -5, 0, false},
      {"LUTs only", "300.000 MHz (sys)", 10, 0, true},
      {"registers only", "300.000 MHz (sys)", 0, 10, true},
      {"a tag that no clock has", "300.000MHz (gone)", 10, 0, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    addModule(2, c.tag, c.luts, c.registers);
    calculate();
    EXPECT_EQ(power(2) > 0.0f, c.hasPower);
    EXPECT_EQ(power(2) == -1.0f, !c.hasPower);
  }
}

TEST_P(LogicTab, CountsItsUseAgainstTheDevice) {
  addModule(2, "", 25, 30);
  put(module(3, Logic::m_LutAsSRL), 40);
  put(module(4, Logic::m_LutAsDRAM), 50);
  calculate();
  const struct {
    const char* type;
    const char* resource;
    float used;
  } cases[] = {{"Registers", "FF", 30},
               {"LUTs", "LUT", 100115},
               {"Logic", "LUT", 100025},
               {"Shift Registers", "LUTRAM", 40},
               {"Distributed RAMs", "LUTRAM", 50}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.type);
    const float available = static_cast<float>(KVXEPartSelection::getGlobal()->getAvailResources(c.resource));
    EXPECT_GT(available, 0.0f);
    EXPECT_EQ(number(utilization(logicTab(), c.type, KVXETab::m_UsedColumn)), c.used);
    EXPECT_EQ(number(utilization(logicTab(), c.type, KVXETab::m_AvailColumn)), available);
    EXPECT_FLOAT_EQ(number(utilization(logicTab(), c.type, KVXETab::m_UtilColumn)), c.used / available);
  }
}

TEST_P(LogicTab, WarnsAboveTheDeviceAndNoLonger) {
  const auto available =
      static_cast<int>(number(utilization(logicTab(), "Registers", KVXETab::m_AvailColumn)));
  KVXECell* share = utilization(logicTab(), "Registers", KVXETab::m_UtilColumn);
  for (const int excess : {0, 1, 0}) {
    put(module(1, Logic::m_Registers), available + excess);
    calculate();
    const char* expected =
        excess > 0 ? "<html>Utilization exceeds 100%.\nPlease review the usage in Logic table.</html>" : "";
    EXPECT_EQ(share->getMsg() ? share->getMsg()->getDisplayText() : "", expected);
    EXPECT_EQ(logicTab()->getTabSeverity(), excess > 0 ? 2 : 0);
  }
}

TEST_P(LogicTab, FullOfModulesHasFewEdges) {
  for (unsigned int i = 1; i <= 20; ++i)
    addClock(i, "clk" + std::to_string(i), 10.0f * static_cast<float>(i));
  settle();
  for (unsigned int i = 1; i <= kvxe::configRowCount; ++i)
    addModule(i, text(clock(1 + i % 20, Clock::m_ClockTag)));
  settle();
  const auto countEdges = [&] {
    size_t edges = 0;
    for (unsigned int i = 1; i <= kvxe::configRowCount; ++i)
      for (unsigned int column = 0; column < modules()->getColumnCount(); ++column)
        for (KVXECell* source :
             KVXECalculationMgr::getGlobal().getDirectSources(modules()->getCellAt(i, column)))
          edges += source->getRow()->getIndex() > 0;  // the root of the walk stands in a header row
    return edges;
  };
  const size_t edges = countEdges();
  EXPECT_LT(edges, 12 * kvxe::configRowCount * modules()->getColumnCount());
  put(clock(1, Clock::m_Name), std::string("renamed"));
  KVXECalculationMgr::getGlobal().incrCalculate();
  EXPECT_EQ(tagOf(20), "10.000 MHz (renamed)");
  EXPECT_EQ(countEdges(), edges) << "a rename teaches nothing new";
}

}  // namespace
