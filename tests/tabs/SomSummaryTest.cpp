// The summary of a module: where its power goes, what it asks of the carrier card, and what overloads it.

#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/som/KVXESomMorlanSummaryConsoleTab.h"
#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;
using Summary = KVXESomMorlanSummaryTab;
using Console = KVXESomMorlanSummaryConsoleTab;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class SomSummary : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(KVXEPartSelection::getGlobal()->selectPart(GetParam(), KVXEPartSelection::m_maxStr));
    KVXEPartSelection::getGlobal()->redrawTabs(true);
    book.trim(8);
  }

  bool isSmall() const { return std::string(GetParam()).starts_with("SM4"); }
  KVXEUID uid() { return KVXEUID(book.book()->getTab(TabType::SUMMARY)); }
  const KVXETitle& loading() const {
    return isSmall() ? Summary::m_ThermalLoadingTableSM4 : Summary::m_ThermalLoadingTable;
  }
  KVXECell* component(const std::string& row) {
    return book.cell(TabType::SUMMARY, loading(), row, Summary::m_ThermalLoadingComponent,
                     Summary::m_ThermalLoadingPower);
  }
  KVXECell* summary(const std::string& row) {
    return book.cell(TabType::SUMMARY, Summary::m_PowerSummaryTable, row, Summary::m_PowerSummaryOption,
                     Summary::m_PowerSummarySelection);
  }
  KVXECell* supply(const std::string& row, const KVXETitle& column) {
    return book.cell(TabType::SUMMARY, Summary::m_VCRequirementsTable, row, Summary::m_BankRail, column);
  }
  KVXECell* count(const std::string& row) {
    return book.cell(TabType::SUMMARY, Summary::m_IoIntfTable, row, Summary::m_IoKey, Summary::m_IoValue);
  }
  KVXECell* console(const std::string& row) {
    return book.cell(TabType::SUMMARY_CONSOLE, Console::m_PowerTable, row, Console::m_Key, Console::m_Value);
  }
  KVXECell* environment(const std::string& row, const KVXETitle& column) {
    return book.cell(TabType::SUMMARY, Summary::m_envTableHeader, row, Summary::m_envTypeColumn, column);
  }
  std::vector<std::string> texts(const KVXETitle& table, const KVXETitle& column) {
    std::vector<std::string> found;
    book.book()->getTab(TabType::SUMMARY)->readColumn(&table, &column, found);
    return found;
  }
  float loadingSum() {
    return book.book()->getTab(TabType::SUMMARY)->sumColumn(&loading(), &Summary::m_ThermalLoadingPower);
  }

  /// A design of so many LUTs at 400 MHz.
  void design(int luts) {
    KVXETable* clocks = book.book()->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
    KVXETable* logic = book.book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_Name), std::string("clk"));
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_ClockFreq), 400.0f);
    book.put(logic->getCellAt(1, &KVXELogicTab::m_Clock), kvxe::ClockTag::construct("clk", 400.0f));
    book.put(logic->getCellAt(1, &KVXELogicTab::m_Registers), luts);
    book.edit(logic->getCellAt(1, &KVXELogicTab::m_LutAsLogic), luts);
  }

  DeviceBook book{KVXEPartSelection::m_somVisionArchName};
};

}  // namespace

TEST_P(SomSummary, HasTheComponentsOfItsBoard) {
  const auto rows = texts(loading(), Summary::m_ThermalLoadingComponent);
  if (isSmall()) {
    EXPECT_THAT(rows, ElementsAre("SM4", "LPDDR4", "VR: U170", "VR: U167", "PCB.1", "eMMC: U133"));
    EXPECT_EQ(book.table(TabType::SUMMARY, "THERMAL_LOADING"), nullptr);
  } else {
    EXPECT_THAT(rows, ElementsAre("SM6", "DDR4: U11-U14", "VR: U170", "VR: U167", "VR: U166", "VR: U151",
                                  "VR: U165", "PCB.1", "eMMC: U133"));
    EXPECT_EQ(book.table(TabType::SUMMARY, "THERMAL_LOADING_SM4"), nullptr);
  }
  EXPECT_EQ(Summary::isSM4(uid()), isSmall());
  EXPECT_THAT(texts(Summary::m_PowerSummaryTable, Summary::m_PowerSummaryOption),
              ElementsAre("Total Power", "Junction Temperature (Tj)", "Thermal Margin",
                          "Thermal Power Margin", "Characterization"));
  EXPECT_EQ(textIn(summary("Characterization")), "Preliminary(+/- 20% accuracy)");
  EXPECT_THAT(texts(Summary::m_envTableHeader, Summary::m_envTypeColumn),
              ElementsAre("Junction Temperature", "Ambient Temperature", "Effective Theta JA",
                          "Max. Junction Temperature"));
}

TEST_P(SomSummary, TheTotalIsTheSumOfTheComponentsAndFollowsTheDesign) {
  const float idle = loadingSum();
  design(40000);
  const float busy = loadingSum();
  EXPECT_GT(busy, idle + 0.1f);
  EXPECT_EQ(textIn(summary("Total Power")), KVXMHelperUtils::formatFixed(busy, 3) + " W");
  EXPECT_NEAR(Summary::getPower(uid(), "TOTAL"), busy, 1e-4f);
  EXPECT_NEAR(Summary::getPower(uid(), "STATIC") + Summary::getPower(uid(), "DYNAMIC"), busy, 1e-4f);
  EXPECT_THAT(book.book()->getTab(TabType::SUMMARY)->getPBSuffix(), StartsWith("( "));
  const Captured out;
  EXPECT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull()) << out.text();
}

TEST_P(SomSummary, TheDeviceHeatsAsItsBlocksSay) {
  design(40000);
  const float blocks = Summary::getFpgaTotalPower(uid());
  EXPECT_NEAR(numberIn(component(isSmall() ? "SM4" : "SM6")), blocks, 1e-3f * blocks);
  EXPECT_GT(Summary::getFpgaStaticPower(uid()), 0.0f);
  EXPECT_GT(Summary::getFpgaDynamicPower(uid()), 0.0f);
}

TEST_P(SomSummary, TheInputCurrentCarriesAllButTheBanks) {
  design(40000);
  KVXEBook* workbook = book.book();
  float banks = 0.0f;
  KVXETable* rails = workbook->getTable(TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable);
  for (unsigned int i = 1; i < rails->getRowCount(); ++i) {
    const std::string rail = textIn(rails->getCellAt(i, &KVXETab::m_internalSupplyColumn));
    const float amps = numberIn(rails->getCellAt(i, &KVXETab::m_totalCurrentColumn));
    if (KVXEPowerDesignTab::isIoVccoVoltage(rail) && amps > 0.0f)
      banks += amps * numberIn(rails->getCellAt(i, &KVXETab::m_voltageColumn));
  }
  EXPECT_GT(banks, 0.0f);
  EXPECT_NEAR(numberIn(supply("VCC_SOM", Summary::m_BankCurrent)) * 5.0f + banks, loadingSum(), 1e-3f);
}

TEST_P(SomSummary, StatesWhatTheCarrierCardMustGive) {
  EXPECT_THAT(texts(Summary::m_VCRequirementsTable, Summary::m_BankRail),
              ElementsAre("VCC_SOM", "VCCO_HPA", "VCCO_HPB", "VCCO_HPC", "VCCO_HDA", "VCCO_HDB", "VCCO_HDC",
                          "VCC_BATT"));
  EXPECT_EQ(textIn(supply("VCC_SOM", Summary::m_BankVoltage)), "5.0 V");
  EXPECT_EQ(textIn(supply("VCC_SOM", Summary::m_BankVoltageRange)), "4.750 - 5.250 V");
  EXPECT_EQ(textIn(supply("VCC_BATT", Summary::m_BankVoltage)), "1.2 - 1.5 V");
  EXPECT_EQ(textIn(supply("VCCO_HPA", Summary::m_BankVoltage)), "") << "no bank is in use";
}

TEST_P(SomSummary, InterfacesDrawPower) {
  const float before = loadingSum();
  const float emmcBefore = numberIn(component("eMMC: U133"));
  std::vector<std::string> choices;
  count("eMMC/SD0")->getDDVals(choices);
  EXPECT_THAT(choices, ElementsAre("0", "1"));
  count("GPIO LEDs")->getDDVals(choices);
  EXPECT_THAT(choices, ElementsAre("0", "1", "2", "3"));
  book.edit(count("eMMC/SD0"), 1);
  EXPECT_GT(numberIn(component("eMMC: U133")), emmcBefore + 0.1f);
  const float withEmmc = loadingSum();
  EXPECT_GT(withEmmc, before + 0.3f) << "what the eMMC takes, and what its regulators lose";
  book.edit(count("GPIO LEDs"), 3);
  EXPECT_GT(loadingSum(), withEmmc);
  book.edit(count("GPIO LEDs"), 0);
  book.edit(count("eMMC/SD0"), 0);
  EXPECT_FLOAT_EQ(loadingSum(), before);
}

TEST_P(SomSummary, AnOverloadedSupplyIsAnError) {
  EXPECT_FALSE(Summary::hasExceededLimits(uid()));
  EXPECT_NE(component("PCB.1")->getSeverity(), KvxSeverity::ERROR);
  design(4000000);
  EXPECT_TRUE(Summary::hasExceededLimits(uid()));
  KVXECell* regulator = component(isSmall() ? "VR: U167" : "VR: U166");
  ASSERT_EQ(regulator->getSeverity(), KvxSeverity::ERROR);
  EXPECT_THAT(
      regulator->getMsg()->getDisplayText(),
      HasSubstr(std::string("Power exceeded on the ") + (isSmall() ? "SM4" : "SM6") + " Core rail by "));
  KVXECell* input = supply("VCC_SOM", Summary::m_BankVoltageRange);
  ASSERT_EQ(input->getSeverity(), KvxSeverity::ERROR);
  EXPECT_EQ(book.book()->getTab(TabType::SUMMARY)->getTabSeverity(), 3);
  design(100);
  EXPECT_FALSE(Summary::hasExceededLimits(uid()));
  EXPECT_NE(input->getSeverity(), KvxSeverity::ERROR);
}

TEST_P(SomSummary, TheConsoleSplitsTheTotalIntoDeviceAndBoard) {
  design(40000);
  const float total = numberIn(console(Console::m_totalStr));
  EXPECT_NEAR(total, loadingSum(), 1e-4f);
  EXPECT_NEAR(numberIn(console(Console::m_boardStr)) + numberIn(console(Console::m_fpgaStr)), total, 1e-4f);
  EXPECT_NEAR(numberIn(console(Console::m_activeStr)) + numberIn(console(Console::m_staticStr)),
              numberIn(console(Console::m_fpgaStr)), 1e-4f);
  EXPECT_GT(numberIn(console(Console::m_boardStr)), 0.1f);
}

TEST_P(SomSummary, AnOverrideStartsWhereTheEstimateStands) {
  KVXECell* choice = environment(Summary::m_junctionTempStr, Summary::m_envTempColumn);
  book.edit(choice, Summary::m_userOverrideOffStr);
  book.edit(environment(Summary::m_AmbientTempStr, Summary::m_envValColumn), 45.0f);
  book.edit(environment(Summary::m_thetaJaStr, Summary::m_envValColumn), 2.0f);
  const float estimate = KVXMHelperUtils::s2f(textIn(summary("Junction Temperature (Tj)")));
  EXPECT_GT(estimate, 45.0f);
  book.edit(choice, Summary::m_userOverrideOnStr);
  EXPECT_NEAR(numberIn(environment(Summary::m_junctionTempStr, Summary::m_envValColumn)), estimate, 1e-2f);
  EXPECT_EQ(textIn(book.cell(TabType::SUMMARY_CONSOLE, Console::m_ThermalTable, Summary::m_junctionTempStr,
                             Console::m_Key, Console::m_Value)),
            textIn(summary("Junction Temperature (Tj)")) + " C");
}

INSTANTIATE_TEST_SUITE_P(Modules, SomSummary, ::testing::Values("SM6_CUSTOM_I", "SM4_CUSTOM_C"),
                         [](const auto& param) { return std::string(param.param).substr(0, 3); });

TEST(SomViolations, EveryLimitHasTheTextOfItsBoard) {
  struct Case {
    const char* key;
    const char* sm6;
    const char* sm4;
  };
  const char* const bram =
      "Power exceeded on the PL IO and BRAM Rail by 12.346 mW. Reduce MSIO power or BRAM power.";
  const char* const xcvrb = "Power exceeded on the XCVRB rails by 12.346 mW. Reduce XCVRB usage.";
  const Case cases[] = {
      {"U170_DA9062_LDO2_OVERLIMIT",
       "Power exceeded on the Processing Subsystem/eMMC/QSPI/TPM/EEPRAM rails by 12.346 mW.\n\nReduce PSIO "
       "or "
       "eMMC/QSPI/TPM/EEPRAM usage.",
       "Power exceeded on the Processing Subsystem/eMMC/QSPI/TPM/EEPRAM rails by 12.346 mW.\n\nReduce PSIO "
       "or "
       "eMMC/QSPI/TPM/EEPRAM usage."},
      {"U170_DA9062_LDO3_OVERLIMIT", "", ""},
      {"U170_DA9062_LDO4_OVERLIMIT",
       "Current exceeded on the DDR4 interface by 12.346 mW. Reduce interface width or speed.",
       "Current exceeded on the LPDDR4 interface by 12.346 mW. Reduce interface width or speed."},
      {"U170_DA9062_BUCK1_OVERLIMIT", xcvrb, xcvrb},
      {"U170_DA9062_BUCK2_OVERLIMIT", bram, bram},
      {"U165_MPS3805A_A_OVERLIMIT", "Power exceeded on the XCVRE rails by 12.346 mW reduce XCVRE usage.", ""},
      {"U151_MPS3805A_B_OVERLIMIT", xcvrb, ""},
      {"U166_DA9130_OVERLIMIT",
       "Power exceeded on the SM6 Core rail by 12.346 mW. Reduce power for the SM6 "
       "Logic/Routing/Clock/BRAM/DSP "
       "resources.",
       ""},
      {"U999", "", ""},
  };
  for (const Case& given : cases) {
    SCOPED_TRACE(given.key);
    std::string message = "kept from before";
    EXPECT_EQ(Summary::getBoardViolationMessage(given.key, 12.3456f, message), *given.sm6 != 0);
    EXPECT_EQ(message, given.sm6);
    EXPECT_EQ(Summary::getBoardViolationMessageSM4(given.key, 12.3456f, message), *given.sm4 != 0);
    EXPECT_EQ(message, given.sm4);
  }
}
