// The estimate as an engineer checks it: on a whole book, through the cells that a user writes and reads.

#include <cmath>

#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;
using Summary = KVXESummaryTab;

namespace {

/// A chip with a few clocks and modules of logic.
class PhysicsTest : public ::testing::TestWithParam<std::string> {
 protected:
  static constexpr unsigned int Clocks = 3, Modules = 9;

  void SetUp() override {
    useOverride(false);
    setAmbient(40.0f);
    setThetaJa(1.2f);
  }

  KVXEUID uid() { return KVXEUID(book.book()->getTab(TabType::SUMMARY)); }
  KVXECell* environment(const std::string& row, const KVXETitle& column) {
    return book.cell(TabType::SUMMARY, Summary::m_envTableHeader, row, Summary::m_envTypeColumn, column);
  }
  void useOverride(bool isOn) {
    book.edit(environment(Summary::m_junctionTempStr, Summary::m_envTempColumn),
              isOn ? Summary::m_userOverrideOnStr : Summary::m_userOverrideOffStr);
  }
  void setAmbient(float celsius) {
    book.edit(environment(Summary::m_AmbientTempStr, Summary::m_envValColumn), celsius);
  }
  void setThetaJa(float theta) {
    book.edit(environment(Summary::m_thetaJaStr, Summary::m_envValColumn), theta);
  }

  void design(float frequencyFactor) {
    KVXETable* clocks = book.book()->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
    KVXETable* logic = book.book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
    for (unsigned int i = 1; i <= Clocks; ++i) {
      const std::string name = "clk" + std::to_string(i);
      const float megahertz = 50.0f * static_cast<float>(i) * frequencyFactor;
      book.put(clocks->getCellAt(i, &KVXEClockTab::m_Name), name);
      book.put(clocks->getCellAt(i, &KVXEClockTab::m_ClockFreq), megahertz);
      book.put(clocks->getCellAt(i, &KVXEClockTab::m_Fanout), 4000);
      for (unsigned int m = i; m <= Modules; m += Clocks) {
        book.put(logic->getCellAt(m, &KVXELogicTab::m_Clock), kvxe::ClockTag::construct(name, megahertz));
        book.put(logic->getCellAt(m, &KVXELogicTab::m_LutAsLogic), 5000);
        book.put(logic->getCellAt(m, &KVXELogicTab::m_Registers), 6000);
      }
    }
    book.settle();
  }

  float dynamicPower(TabType type) {
    float watts = 0.0f;
    EXPECT_TRUE(book.book()->getTab(type)->getTabActivePower(watts));
    return watts;
  }
  float staticPower() { return Summary::getFpgaStaticPower(uid()); }
  float totalPower() { return Summary::getFpgaTotalPower(uid()); }
  float junction() { return Summary::getCalculatedJunctionTemp(uid()); }
  KVXECell* voltage(const std::string& rail) {
    return book.cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable, rail,
                     KVXETab::m_internalSupplyColumn, KVXETab::m_voltageColumn);
  }

  DeviceBook book{GetParam()};
};

TEST_P(PhysicsTest, AnEmptyDesignHasNoDynamicPower) {
  EXPECT_EQ(Summary::getFpgaDynamicPower(uid()), 0.0f);
  EXPECT_GT(staticPower(), 0.05f);
}

TEST_P(PhysicsTest, DynamicPowerIsLinearInFrequency) {
  design(1.0f);
  const float clock = dynamicPower(TabType::CLOCK), logic = dynamicPower(TabType::LOGIC);
  EXPECT_GT(clock, 1e-4f);
  EXPECT_GT(logic, 1e-2f);
  design(2.0f);
  EXPECT_NEAR(dynamicPower(TabType::CLOCK) / clock, 2.0f, 0.01f);
  EXPECT_NEAR(dynamicPower(TabType::LOGIC) / logic, 2.0f, 0.01f);
}

TEST_P(PhysicsTest, SwitchingPowerIsQuadraticInVoltage) {
  design(1.0f);
  KVXECell* vccint = voltage("VCCINT");
  const float volts = numberIn(vccint), logic = dynamicPower(TabType::LOGIC);
  book.edit(vccint, 1.05f * volts);
  EXPECT_NEAR(dynamicPower(TabType::LOGIC) / logic, 1.1025f, 0.0055f);
  vccint->setBlankAndState(CellState::DIRTY_DIRTY);
  KVXECalculationMgr::getGlobal().incrCalculate();
  EXPECT_FLOAT_EQ(numberIn(vccint), volts) << "a blank voltage is the nominal one again";
}

TEST_P(PhysicsTest, HeatRaisesLeakageAndLeakageRaisesHeat) {
  design(1.0f);
  const float leakage = staticPower(), celsius = junction();
  setAmbient(70.0f);
  EXPECT_GT(staticPower(), 1.2f * leakage);
  EXPECT_GT(junction(), celsius + 30.0f);
}

TEST_P(PhysicsTest, TheJunctionSettlesWhereTheHeatFlowsOff) {
  for (const float theta : {0.5f, 1.0f, 2.5f})
    for (const float ambient : {0.0f, 25.0f, 60.0f}) {
      design(theta);
      setAmbient(ambient);
      setThetaJa(theta);
      if (junction() >= KVXEPowerDesignTab::AbsoluteMaxJunctionTemp) continue;
      EXPECT_NEAR(junction(), ambient + theta * totalPower(), 0.01f) << theta << " C/W at " << ambient;
    }
}

TEST_P(PhysicsTest, TheUsersJunctionTemperatureDecidesWhileItIsForced) {
  design(1.0f);
  const float calculated = junction();
  useOverride(true);
  KVXECell* forced = environment(Summary::m_junctionTempStr, Summary::m_envValColumn);
  EXPECT_NEAR(numberIn(forced), calculated, 0.01f) << "an override starts where the estimate stands";
  book.edit(forced, 25.0f);
  const float cool = staticPower();
  setAmbient(80.0f);
  EXPECT_EQ(staticPower(), cool);
  book.edit(forced, 85.0f);
  EXPECT_GT(staticPower(), 2.0f * cool);
  useOverride(false);
  EXPECT_TRUE(std::isnan(numberIn(forced)));
}

TEST_P(PhysicsTest, RunawayIsSaidAndNeverComputed) {
  design(1.0f);
  setThetaJa(80.0f);
  EXPECT_NE(KVXEPowerDesignTab::getJunctionStatus(uid()), KVXEPowerDesignTab::JunctionStatus::Valid);
  KVXECell* shown = book.cell(TabType::SUMMARY, Summary::m_summaryTableHeader, Summary::m_junctionTempStr,
                              Summary::m_summaryOptionColumn, Summary::m_summarySelectionColumn);
  EXPECT_EQ(textIn(shown).substr(0, 4), "125+");
  EXPECT_EQ(shown->getColor().second, 0xff0000u);
  EXPECT_TRUE(std::isfinite(totalPower()));
  setThetaJa(1.0f);
  EXPECT_EQ(KVXEPowerDesignTab::getJunctionStatus(uid()), KVXEPowerDesignTab::JunctionStatus::Valid);
}

TEST_P(PhysicsTest, MaximumProcessLeaksMore) {
  auto* selection = KVXEPartSelection::getGlobal();
  const auto leakageOf = [&](const std::string& process) {
    const auto names = selection->getDeviceSelectionList();
    for (unsigned int i = 0; i < names.size(); ++i)
      if (names[i] == KVXEPartSelection::m_processStr) selection->setDeviceSelectionCurrentValue(i, process);
    selection->redrawTabs(false);
    useOverride(true);
    book.edit(environment(Summary::m_junctionTempStr, Summary::m_envValColumn), 60.0f);
    book.settle();
    return staticPower();
  };
  const float typical = leakageOf(KVXEPartSelection::m_typStr);
  const float maximum = leakageOf(KVXEPartSelection::m_maxStr);
  EXPECT_GT(maximum, 1.4f * typical);
  EXPECT_LT(maximum, 2.6f * typical);
}

INSTANTIATE_TEST_SUITE_P(Chips, PhysicsTest,
                         ::testing::Values(KVXEPartSelection::m_arkeonArchName,
                                           KVXEPartSelection::m_morlanArchName),
                         [](const auto& param) { return param.param.substr(0, 6); });

}  // namespace
