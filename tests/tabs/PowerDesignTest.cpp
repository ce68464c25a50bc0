// The power design of real books: rails, currents, voltages and the junction temperature.

#include <gtest/gtest.h>

#include <cmath>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/tarvek/KVXETarvekPowerDesignTab.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/tarvek/KVXMTarvekStatic.h"
#include "tests/kit/Captured.h"

namespace {

using KVXEEnums::CellState;
using KVXEEnums::TabType;
using KVXEEnums::ValueSource;
using KVXEEnums::Visibility;
using PowerDesign = KVXEPowerDesignTab;
using Summary = KVXESummaryTab;

constexpr const char* tarvekPart = "AK1080-VSVA1024_2-MP-E-S";
constexpr const char* morlanPart = "HB240-LFRC1156_2-E";
constexpr const char* coldPart = "AK1080-VSVA1024_2-LLI-I-S";

class PowerDesignBook : public testing::Test {
 protected:
  void TearDown() override {
    KVXEBookMgr::getGlobal().closeProject();
    KVXEPartSelection::resetPartSelection();
  }

  void open(const std::string& part, const std::string& process = "Typical") {
    KVXEPartSelection::resetToArch(KVXEPartSelection::getArchNameFromDeviceStr(part));
    ASSERT_TRUE(KVXEPartSelection::getGlobal()->selectPart(part, process)) << part;
    KVXEPartSelection::getGlobal()->redrawTabs(true);
    m_book = KVXEBookMgr::getGlobal().getCurrentBook();
    KVXECalculationMgr::getGlobal().fullCalculate();
    KVXECellStateMgr::getGlobal().markGuiClean();
  }

  KVXETab* design() { return m_book->getTab(TabType::POWER_DESIGN); }
  KVXEUID uid() { return KVXEUID(design()); }
  KVXECell* supply(const std::string& rail, const KVXETitle& column) {
    KVXECell* cell = design()->lookup<std::string>(&KVXETab::m_powerSupplyTable, rail,
                                                   &KVXETab::m_internalSupplyColumn, &column, false);
    EXPECT_TRUE(cell) << rail;
    return cell;
  }
  float current(const std::string& rail, const KVXETitle& column) {
    float amps = 0.0f;
    return supply(rail, column)->getVal(amps, true) ? amps : 0.0f;
  }
  KVXECell* environment(const std::string& row, const KVXETitle& column = Summary::m_envValColumn) {
    return m_book->lookup<std::string>(TabType::SUMMARY, &Summary::m_envTableHeader, row,
                                       &Summary::m_envTypeColumn, &column, false);
  }

  template <class T>
  void edit(KVXECell* cell, const T& value) {
    ASSERT_TRUE(cell);
    cell->setValAndState(value, CellState::DIRTY_DIRTY);
    cell->setValueSource(ValueSource::USER);
    KVXECalculationMgr::getGlobal().incrCalculate();
    expectIncrementalEqualsFull();
  }
  void expectIncrementalEqualsFull() {
    Captured out;
    EXPECT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull()) << out.text();
    KVXECellStateMgr::getGlobal().markGuiClean();
  }
  /// Sets the environment with the junction temperature calculated.
  void setEnvironment(float theta, float ambient) {
    edit(environment(Summary::m_junctionTempStr, Summary::m_envTempColumn), std::string("User Override OFF"));
    edit(environment(Summary::m_thetaJaStr), theta);
    edit(environment(Summary::m_AmbientTempStr), ambient);
  }
  void useLogic(int luts) {
    KVXETable* table = m_book->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
    edit(table->getCellAt(1, &KVXELogicTab::m_Clock), std::string("400.000 MHz (clk)"));
    edit(table->getCellAt(1, &KVXELogicTab::m_LutAsLogic), luts);
  }
  double wattsOfRails(std::initializer_list<const KVXETitle*> columns) {
    double watts = 0.0;
    const kvxm::Device* device = kvxm::DeviceCatalogue::getGlobal().findDevice(PowerDesign::getDevice(uid()));
    for (const kvxm::Supply& rail : device->supplies) {
      if (rail.category == "HBM") continue;
      for (const KVXETitle* column : columns)
        watts += PowerDesign::getVoltage(uid(), rail.rail) * current(rail.rail, *column);
    }
    return watts;
  }

  KVXEBook* m_book = nullptr;
};

std::string messageOf(KVXECell* cell) {
  return cell->getMsg() ? cell->getMsg()->getDisplayText() : "";
}

}  // namespace

class EveryPowerDesign : public PowerDesignBook, public testing::WithParamInterface<const char*> {};

TEST_P(EveryPowerDesign, RailsAddUpToOnChipPower) {
  open(GetParam(), "Maximum");
  setEnvironment(1.0f, 40.0f);
  useLogic(60000);
  const float dynamic = PowerDesign::getOnChipDynamicPower(uid());
  EXPECT_GT(dynamic, 0.05f);
  const float total = PowerDesign::getOnChipPower(uid());
  EXPECT_NEAR(wattsOfRails({&KVXETab::m_staticCurrentColumn}), total - dynamic, 1e-5 * total);
  EXPECT_NEAR(wattsOfRails({&KVXETab::m_dynamicCurrentColumn}), dynamic, 1e-5 * total);
  EXPECT_NEAR(wattsOfRails({&KVXETab::m_totalCurrentColumn}), total, 1e-5 * total);
  EXPECT_NEAR(Summary::getFpgaStaticPower(uid()), total - dynamic, 1e-5 * total);
  EXPECT_NEAR(Summary::getFpgaTotalPower(uid()), total, 1e-5 * total);
}

TEST_P(EveryPowerDesign, JunctionSettlesWithItsLeakage) {
  open(GetParam(), "Maximum");
  const float theta = kvxm::DeviceCatalogue::getGlobal().findDevice(GetParam())->thetaJa;
  useLogic(60000);
  setEnvironment(theta, 45.0f);
  const float tj = PowerDesign::getCalculatedJunctionTemp(uid());
  EXPECT_NEAR(tj, 45.0f + theta * PowerDesign::getOnChipPower(uid()), 0.01f);
  EXPECT_EQ(PowerDesign::getJunctionStatus(uid()), PowerDesign::JunctionStatus::Valid);
  EXPECT_GT(PowerDesign::getJunctionTempAt25(uid()), PowerDesign::getInitialJunctionTemp(uid()));
  EXPECT_GT(tj, PowerDesign::getJunctionTempAt25(uid()));

  setEnvironment(500.0f, 45.0f);
  EXPECT_EQ(PowerDesign::getJunctionStatus(uid()), PowerDesign::JunctionStatus::NoSolution);
  EXPECT_EQ(PowerDesign::getCalculatedJunctionTemp(uid()), PowerDesign::AbsoluteMaxJunctionTemp);
  EXPECT_TRUE(std::isfinite(PowerDesign::getOnChipPower(uid())));
  KVXETable* debug = design()->getTable(&PowerDesign::m_debugJunctionTempTable);
  EXPECT_EQ(messageOf(debug->getCellAt(4, &PowerDesign::m_debugTempValueColumn)),
            PowerDesign::m_invalidJunctionMsg);

  setEnvironment(theta, 45.0f);
  EXPECT_EQ(PowerDesign::getCalculatedJunctionTemp(uid()), tj);
  EXPECT_EQ(messageOf(debug->getCellAt(4, &PowerDesign::m_debugTempValueColumn)), "");
}

TEST_P(EveryPowerDesign, TheUsersJunctionTemperatureWins) {
  open(GetParam());
  edit(environment(Summary::m_junctionTempStr, Summary::m_envTempColumn), std::string("User Override ON"));
  edit(environment(Summary::m_junctionTempStr), 80.0f);
  const float at80 = PowerDesign::getOnChipStaticPower(uid());
  EXPECT_EQ(PowerDesign::getCalculatedJunctionTemp(uid()), 80.0f);
  edit(environment(Summary::m_AmbientTempStr), 70.0f);
  EXPECT_EQ(PowerDesign::getOnChipStaticPower(uid()), at80);
  edit(environment(Summary::m_junctionTempStr), 90.0f);
  EXPECT_GT(PowerDesign::getOnChipStaticPower(uid()), at80);
}

TEST_P(EveryPowerDesign, UserVoltagesStayUntilBlanked) {
  open(GetParam());
  const float nominal = PowerDesign::getVoltage(uid(), "VCCRAM");
  const float before = current("VCCRAM", KVXETab::m_staticCurrentColumn);
  KVXECell* cell = supply("VCCRAM", KVXETab::m_voltageColumn);
  EXPECT_TRUE(cell->getIsEditable());
  edit(cell, nominal + 0.01f);
  EXPECT_FLOAT_EQ(PowerDesign::getVoltage(uid(), "VCCRAM"), nominal + 0.01f);
  EXPECT_EQ(messageOf(cell), "");
  EXPECT_GT(current("VCCRAM", KVXETab::m_staticCurrentColumn), before);
  edit(cell, 1.5f);
  EXPECT_EQ(messageOf(cell), "<html>The Voltage value is out of valid range.</html>");
  EXPECT_EQ(cell->getSeverity(), KvxSeverity::ERROR);
  edit(cell, -1.0f);
  EXPECT_EQ(current("VCCRAM", KVXETab::m_staticCurrentColumn), 0.0f);
  edit(cell, std::numeric_limits<float>::max());
  EXPECT_EQ(PowerDesign::getVoltage(uid(), "VCCRAM"), nominal);
  EXPECT_EQ(current("VCCRAM", KVXETab::m_staticCurrentColumn), before);
  EXPECT_EQ(messageOf(cell), "");
}

TEST_P(EveryPowerDesign, DependenciesStayFew) {
  open(GetParam());
  std::vector<KVXECell*> cells;
  KVXECellStateMgr::getGlobal().getAllCells(cells);
  EXPECT_LT(KVXECalculationMgr::getGlobal().getEdgeCount(), 12 * cells.size());
}

INSTANTIATE_TEST_SUITE_P(Architectures, EveryPowerDesign,
                         testing::Values(tarvekPart, "AN3060-LRVD1936_2-MP-E-S", "AH4080-KTVF2304_2-MP-E-S",
                                         morlanPart, "HS440-SMRB900_2-E"),
                         [](const auto& param) { return std::string(param.param, 5); });

class PowerDesignTab : public PowerDesignBook {};

TEST_F(PowerDesignTab, ReadsThePart) {
  open(tarvekPart, "Maximum");
  EXPECT_EQ(PowerDesign::getDevice(uid()), "AK1080");
  EXPECT_EQ(PowerDesign::getPkg(uid()), "VSVA1024");
  EXPECT_EQ(PowerDesign::getFamily(uid()), "Arkeon Core");
  EXPECT_EQ(PowerDesign::getSpeedGrade(uid()), "2");
  EXPECT_EQ(PowerDesign::getTempGrade(uid()), "E");
  EXPECT_EQ(PowerDesign::getProcess(uid()), "Maximum");
  EXPECT_EQ(PowerDesign::getMaxJunctionTemp(uid()), 100.0f);
  EXPECT_TRUE(PowerDesign::isExcursionTempSupported(uid()));
  open("AH4080-KTVF2304_2-MP-E-S");
  EXPECT_FALSE(PowerDesign::isExcursionTempSupported(uid()));
  EXPECT_GT(PowerDesign::getHbmStaticPower(uid()), 0.0f);
}

TEST_F(PowerDesignTab, ShowsTheRailsAndCategoriesOfTheDevice) {
  open(tarvekPart);
  const auto isShown = [&](const KVXETitle& column, const std::string& text) {
    KVXECell* cell =
        design()->lookup<std::string>(&KVXETab::m_powerSupplyTable, text, &column, &column, false);
    return cell && cell->getRow()->getVisibility() == Visibility::EXTERNAL;
  };
  EXPECT_TRUE(isShown(KVXETab::m_supplyColumn, "Platform Management Controller(PMC)"));
  EXPECT_TRUE(isShown(KVXETab::m_supplyColumn, "Programmable Logic XCVRA"));
  EXPECT_FALSE(isShown(KVXETab::m_supplyColumn, "Programmable Logic XCVRD"));
  EXPECT_TRUE(isShown(KVXETab::m_supplyColumn, "VCC_RAM"));
  EXPECT_FALSE(isShown(KVXETab::m_internalSupplyColumn, "MXCVRDAVCC"));
  float volts = 0.0f;
  EXPECT_FALSE(supply("MXCVRDAVCC", KVXETab::m_voltageColumn)->getVal(volts, true));
  float minimum = 0.0f;
  EXPECT_TRUE(supply("VCCINT", KVXETab::m_minVoltageColumn)->getVal(minimum, true));
  EXPECT_FLOAT_EQ(minimum, 0.775f);
}

TEST_F(PowerDesignTab, LimitsFollowTheVoltageGrade) {
  const struct {
    const char* part;
    float vccint;
  } cases[] = {{"AK1080-VSVA1024_2-LP-E-S", 0.70f},
               {tarvekPart, 0.80f},
               {"AK1080-VSVA1024_3-HP-E-S", 0.88f},
               {morlanPart, 0.85f},
               {"HB240-LFRC1156_2LV-E", 0.72f}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.part);
    open(c.part);
    EXPECT_FLOAT_EQ(PowerDesign::getVoltage(uid(), "VCCINT"), c.vccint);
  }
}

TEST_F(PowerDesignTab, ColdLowVoltagePartsAskForMoreVccint) {
  const std::string expected =
      "<html>Junction Temperature is currently set or calculated to 25C or less, to correctly estimate Total "
      "power at this "
      "temperature in a -2L I Device with DVS (Dynamic Voltage Scaling) set the VCCINT voltage to 0.725v, "
      "adjust the "
      "Nominal voltage to 0.725v in the Power Supply Design Table below</html>";
  const struct {
    const char* label;
    const char* part;
    float junction, vccint;
    std::string message;
  } cases[] = {
      {"cold", coldPart, 25.0f, 0.70f, expected},
      {"warm", coldPart, 25.1f, 0.70f, ""},
      {"cold and raised", coldPart, 0.0f, 0.725f, ""},
      {"cold and out of range", coldPart, 0.0f, 0.9f, expected},
      {"warm and out of range", coldPart, 60.0f, 0.9f,
       "<html>The Voltage value is out of valid range.</html>"},
      {"another grade", "AK1080-VSVA1024_2-LP-I-S", 25.0f, 0.70f, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    open(c.part);
    edit(environment(Summary::m_junctionTempStr, Summary::m_envTempColumn), std::string("User Override ON"));
    edit(environment(Summary::m_junctionTempStr), c.junction);
    edit(supply("VCCINT", KVXETab::m_voltageColumn), c.vccint);
    EXPECT_EQ(messageOf(supply("VCCINT", KVXETab::m_voltageColumn)), c.message);
  }
}

TEST_F(PowerDesignTab, ToldWhenThePackageCannotCarryTheCurrent) {
  open(tarvekPart, "Maximum");
  KVXECell* total = supply("VCCINT", KVXETab::m_totalCurrentColumn);
  EXPECT_EQ(messageOf(total), "");
  useLogic(50000000);
  EXPECT_EQ(
      messageOf(total),
      "<html>Estimated current exceeds the maximum limit of the selected package.\n Maximum Current: 72 "
      "(A).</html>");
  useLogic(1000);
  EXPECT_EQ(messageOf(total), "");
}

TEST_F(PowerDesignTab, StartupCurrentShowsForTheMaximumProcessAlone) {
  open(tarvekPart, "Typical");
  float amps = 0.0f;
  EXPECT_FALSE(supply("VCCINT", KVXETab::m_powerupCurrentColumn)->getVal(amps, true));
  open(tarvekPart, "Maximum");
  ASSERT_TRUE(supply("VCCINT", KVXETab::m_powerupCurrentColumn)->getVal(amps, true));
  EXPECT_GT(amps, current("VCCINT", KVXETab::m_totalCurrentColumn));
  useLogic(50000000);
  EXPECT_FALSE(supply("VCCINT", KVXETab::m_powerupCurrentColumn)->getVal(amps, true));
}

TEST_F(PowerDesignTab, StepLoads) {
  open(tarvekPart);
  const std::map<std::string, float> expected{
      {"VCCINT", 0.33f},    {"VCCAUX", 0.33f}, {"MXCVRAAVCC", 0.33f}, {"VCCAUXPMC", 1.0f},
      {"VCCAUXSMON", 1.0f}, {"VCCO33", 1.0f},  {"VCCO12", 1.0f},      {"VCCO502", 1.0f}};
  for (const auto& [rail, share] : expected)
    EXPECT_EQ(current(rail, KVXETab::m_stepLoadColumn), share) << rail;
}

TEST_F(PowerDesignTab, StaticParamsServeTheExcursion) {
  open(tarvekPart, "Maximum");
  KVXMTarvekStaticParams params;
  PowerDesign::getStaticParams(uid(), params);
  using FloatEnum = KVXMTarvekStaticParams::FloatEnum;
  KVXMTarvekStaticModel::getGlobal().calculate(params);
  EXPECT_FLOAT_EQ(params[FloatEnum::STATIC_POWER], PowerDesign::getOnChipStaticPower(uid()));
  const float before = params[FloatEnum::STATIC_POWER];
  params[static_cast<FloatEnum>(12)] = 110.0f;
  KVXMTarvekStaticModel::getGlobal().calculate(params);
  EXPECT_GT(params[FloatEnum::STATIC_POWER], before);
}

TEST_F(PowerDesignTab, RailsAreToldApartByName) {
  const struct {
    bool (*is)(const std::string&);
    std::vector<std::string> rails, others;
  } cases[] = {
      {&PowerDesign::isXcvrAVoltage,
       {"MXCVRAAVCC", "MXCVRAVCCAUX"},
       {"MXCVRDAVCC", "VPSMXCVRAVCC", "VCCINT"}},
      {&PowerDesign::isXcvrBVoltage, {"MXCVRBVCCAUX"}, {"MXCVRAAVCC"}},
      {&PowerDesign::isXcvrCVoltage, {"MXCVRCAVTT"}, {"MXCVRAAVCC"}},
      {&PowerDesign::isXcvrDVoltage, {"MXCVRDAVTT"}, {"MXCVRAAVCC"}},
      {&PowerDesign::isPSIoVoltage, {"VCCO500", "VCCO503", "VCCOPSIO"}, {"VCCO33", "VCCPSLP"}},
      {&PowerDesign::isPsVoltage, {"VCCPSLP", "VCCO502", "VCCPSINTFP", "VPSMXCVRAVCC"}, {"VCCINT", "VCCO33"}},
      {&PowerDesign::isPsBlockVoltage, {"VCCPMC", "VCCPSFP", "VCCPSINTLP"}, {"VCCO500", "VCCAUX"}},
      {&PowerDesign::isPswVoltage, {"VCCPSW", "VTTPSGTA"}, {"VCCPSLP"}},
      {&PowerDesign::isHbmVoltage, {"VCCHBM", "VCCAUXHBM"}, {"VCCAUX"}},
      {&PowerDesign::isHic5Voltage, {"VCCHIC5"}, {"VCCHIC5N", "VCCINTHIC"}},
      {&PowerDesign::isHic5nVoltage, {"VCCHIC5N"}, {"VCCHIC5"}},
      {&PowerDesign::isNicbVoltage, {"VCCNICB"}, {"VCCSOC"}},
      {&PowerDesign::isVcuVoltage, {"VCCINTVCU"}, {"VCCINT"}},
      {&PowerDesign::isIoVccoVoltage, {"VCCO33", "VCCO12", "VCCO10"}, {"VCCO500", "VCCOPSDDR"}},
      {&PowerDesign::isArkeonNetVcco, {"VCCO15", "VCCO10"}, {"VCCO18", "VCCO33"}},
  };
  for (const auto& c : cases) {
    for (const std::string& rail : c.rails) EXPECT_TRUE(c.is(rail)) << rail;
    for (const std::string& rail : c.others) EXPECT_FALSE(c.is(rail)) << rail;
  }
}

TEST_F(PowerDesignTab, FormulasRefuseOtherTables) {
  open(tarvekPart);
  KVXECell* stranger = design()->getTable(&KVXETab::m_deviceTable)->getCellAt(1, &KVXETab::m_selectionColumn);
  for (const KVXEFormula formula : {&PowerDesign::updatePowerSupplyTable, &PowerDesign::updateVoltage,
                                    &PowerDesign::updateTotalCurrentPowerSupplyTable}) {
    Captured out;
    formula(KVXEUID(stranger));
    EXPECT_EQ(out.text(), "Error: error occured in updating PowerSupplyTable.\n");
  }
}
