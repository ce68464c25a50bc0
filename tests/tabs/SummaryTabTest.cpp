// The summary and the thermal environment, as a user of a real book sees them.

#include "engine/base/workbook/KVXERow.h"
#include "engine/tarvek/KVXETarvekSummaryTab.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "tests/tabs/SummaryBook.h"

using KVXEEnums::Unit;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

constexpr KVXECell::Color White = 0xffffff, Grey = 0xf5f5f5, Orange = 0xffc000, Red = 0xff0000;

std::vector<std::string> tableNames(KVXETab* tab) {
  std::vector<std::string> names;
  for (unsigned int i = 0; i < tab->getTableCount(); ++i)
    names.push_back(tab->getTable(i)->getTableTitle()->getTag(KVXEEnums::TitleType::SW));
  return names;
}

std::vector<std::string> rowTexts(KVXETable* table) {
  std::vector<std::string> texts;
  for (unsigned int i = 1; i < table->getRowCount(); ++i) texts.push_back(textIn(table->getCellAt(i, 0u)));
  return texts;
}

TEST_F(SummaryBook, TablesStandInTheirOrder) {
  EXPECT_THAT(tableNames(tab()), ElementsAre("DEVICE_SELECTION", "SUMMARY_HEADER", "ENV_HEADER",
                                             "HBM_ENV_HEADER", "RCX", "ONCHIP_STATIC_HEADER",
                                             "ONCHIP_DYNAMIC_HEADER", "RESOURCES", "POWER_INFO", "UNITS"));
  EXPECT_THAT(rowTexts(table(Summary::m_envTableHeader)),
              ElementsAre("Junction Temperature", "Ambient Temperature", "Effective Theta JA",
                          "Max. Junction Temperature", "Max. Junction Temperature with Excursion to 110C",
                          "Design Power Budget"));
  std::vector<std::string> ids;
  for (const auto& button : tab()->getButtons()) ids.push_back(button->getId());
  EXPECT_THAT(ids, ElementsAre("KVX_SUMMARY", "KVX_AUTOFIT", "KVX_CREATE_IP", "LvrImportButtonUid",
                               "ExportPwrReport", "RESET_TO_DEFAULT", "ExportZCF"));

  build(KVXEPartSelection::m_morlanArchName);
  EXPECT_THAT(tableNames(tab()), ElementsAre("DEVICE_SELECTION", "SUMMARY_HEADER", "ENV_HEADER",
                                             "HBM_ENV_HEADER", "ONCHIP_STATIC_HEADER",
                                             "ONCHIP_DYNAMIC_HEADER", "RESOURCES", "POWER_INFO", "UNITS"));
  EXPECT_THAT(rowTexts(table(Summary::m_summaryTableHeader)),
              ElementsAre("Total On-Chip Power", "Static Power", "Dynamic Power", "Junction Temperature",
                          "Thermal Margin", "Thermal Power Margin", "Characterization"));
  EXPECT_EQ(tab()->getButtons().size(), 6u);
}

TEST_F(SummaryBook, UserJunctionTemperatureIsHeldAgainstTheGrade) {
  struct Case {
    const char* grade;
    float celsius;
    KVXECell::Color background;
  };
  const Case cases[] = {
      {"I", -40.0f, White},  {"I", -41.0f, Orange}, {"I", 100.0f, White},  {"I", 101.0f, Orange},
      {"I", 125.0f, Orange}, {"I", 126.0f, Red},    {"E", -1.0f, Orange},  {"E", 100.0f, White},
      {"E", 101.0f, Orange}, {"E", 126.0f, Red},    {"C", 85.0f, White},   {"C", 90.0f, Orange},
      {"C", 126.0f, Red},    {"C", -1.0f, Orange},  {"M", -55.0f, White},  {"M", -56.0f, Orange},
      {"M", 125.0f, White},  {"M", 126.0f, Red},    {"Q", -40.0f, White},  {"Q", -41.0f, Orange},
      {"Q", 110.0f, White},  {"IE", -1.0f, White},  {"IC", 90.0f, Orange}, {"B", 200.0f, White},
  };
  KVXECell* grade = m_device->cell(TabType::POWER_DESIGN, KVXETab::m_deviceTable, "Temperature",
                                   KVXETab::m_optionColumn, KVXETab::m_selectionColumn);
  grade->assignFormula(&KVXECell::NoFormula);
  m_device->settle();
  KVXECell* junction = environment(Summary::m_junctionTempStr);
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.grade) + " " + std::to_string(static_cast<int>(c.celsius)));
    m_device->put(grade, std::string(c.grade));
    m_device->edit(junction, c.celsius);
    EXPECT_EQ(background(junction), c.background);
    EXPECT_EQ(message(junction).empty(), c.background == White);
    EXPECT_EQ(background(summary(Summary::m_onChipPowerStr)), c.background == White ? Grey : c.background);
    EXPECT_EQ(background(summary(Summary::m_junctionTempStr)), c.background == White ? Grey : c.background);
    KVXECellStateMgr::getGlobal().markGuiClean();
  }
  EXPECT_EQ(textIn(summary(Summary::m_junctionTempStr)), "200");
}

TEST_F(SummaryBook, OverrideStartsWhereTheEstimateStands) {
  useLogic();
  KVXECell* junction = environment(Summary::m_junctionTempStr);
  edit(junction, 90.0f);
  EXPECT_EQ(shown(summary(Summary::m_junctionTempStr)), "90 C");

  setOverride(false);
  EXPECT_EQ(textIn(junction), KVXMHelperUtils::ToString(kvxeBlank<float>));
  EXPECT_FALSE(junction->getIsEditable());
  edit(environment(Summary::m_thetaJaStr), 2.0f);
  const float estimate = numberIn(summary(Summary::m_junctionTempStr));
  EXPECT_GT(estimate, 26.0f);
  EXPECT_NEAR(estimate, KVXEPowerDesignTab::getCalculatedJunctionTemp(uid()), 0.001f);

  setOverride(true);
  EXPECT_TRUE(junction->getIsEditable());
  EXPECT_EQ(numberIn(junction), estimate);
  EXPECT_EQ(junction->getValueSource(), KVXEEnums::ValueSource::USER) << "or a saved project would lose it";
  edit(environment(Summary::m_AmbientTempStr), 60.0f);
  EXPECT_EQ(numberIn(junction), estimate) << "an override stays";
  edit(junction, -1000.0f);
  EXPECT_EQ(numberIn(junction), estimate) << "the blank of older projects is none";
}

TEST_F(SummaryBook, ThetaJaCountsWithoutOverrideOnly) {
  KVXECell* thetaJa = environment(Summary::m_thetaJaStr);
  EXPECT_EQ(numberIn(thetaJa), 0.0f);
  EXPECT_FALSE(thetaJa->getIsEditable());
  EXPECT_EQ(textIn(summary(Summary::m_thermalPowerMarginStr)), "0");
  setOverride(false);
  EXPECT_TRUE(thetaJa->getIsEditable());
  EXPECT_EQ(textIn(summary(Summary::m_thermalPowerMarginStr)), "0") << "never a division by zero";
  edit(thetaJa, 1.5f);
  const float margin = numberIn(summary(Summary::m_thermalPowerMarginStr));
  EXPECT_NEAR(margin, (Summary::getMaxAmbientTemp(uid()) - 25.0f) / 1.5f, 0.001f);
  EXPECT_GT(margin, 10.0f);
}

TEST_F(SummaryBook, MarginsTurnNegativeBeyondTheMaximum) {
  edit(environment(Summary::m_junctionTempStr), 110.0f);
  KVXECell* margin = summary(Summary::m_thermalMarginStr);
  EXPECT_EQ(textIn(margin), "-10 C");
  EXPECT_THAT(message(margin), HasSubstr("Thermal Margin is in excess of the maximum accepted range"));
  EXPECT_EQ(static_cast<int>(margin->getSeverity()), 1);
  edit(environment(Summary::m_junctionTempStr), 60.0f);
  EXPECT_EQ(textIn(margin), "40 C");
  EXPECT_EQ(message(margin), "");
}

TEST_F(SummaryBook, ARunawayIsShownAsBeyondTheRange) {
  setOverride(false);
  edit(environment(Summary::m_thetaJaStr), 80.0f);
  EXPECT_EQ(textIn(summary(Summary::m_junctionTempStr)), "125+");
  EXPECT_EQ(background(summary(Summary::m_junctionTempStr)), Red);
  edit(environment(Summary::m_thetaJaStr), 0.5f);
  EXPECT_EQ(background(summary(Summary::m_junctionTempStr)), Grey);
}

TEST_F(SummaryBook, ExcursionRowsAreThereForPartsThatMay) {
  select("AK1080-VSVA1024_2-MP-E-S");
  KVXECell* margin = summary(Summary::m_thermalPowerMarginWithExcursionStr);
  KVXECell* limit = environment(Summary::m_maxJunctionTempWithExcursionStr);
  EXPECT_TRUE(isShown(margin) && isShown(limit));
  EXPECT_EQ(numberIn(limit), 110.0f);
  setOverride(false);
  edit(environment(Summary::m_thetaJaStr), 2.0f);
  EXPECT_GT(numberIn(margin), 5.0f);
  EXPECT_LT(numberIn(margin), (110.0f - 25.0f) / 2.0f) << "leakage at 110 C takes its part";
  edit(environment(Summary::m_AmbientTempStr), 109.0f);
  EXPECT_LE(numberIn(margin), 0.0f);
  select("AK1160");
  EXPECT_FALSE(isShown(margin) || isShown(limit));
  EXPECT_EQ(textIn(margin), "");
}

TEST_F(SummaryBook, AmbientTemperatureHasLimits) {
  KVXECell* ambient = environment(Summary::m_AmbientTempStr);
  const std::string text = "Ambient temperatures below --65C or above 125C are not allowed.";
  const std::pair<float, std::string> cases[] = {{-66.0f, text}, {-65.0f, ""}, {125.0f, ""}, {126.0f, text}};
  for (const auto& [celsius, expected] : cases) {
    edit(ambient, celsius);
    EXPECT_EQ(message(ambient), expected) << celsius;
  }
  blank(ambient);
  EXPECT_EQ(message(ambient), "");
}

TEST_F(SummaryBook, BudgetIsHeldAgainstTheTotal) {
  KVXECell* budget = environment(Summary::m_PowerBudgetStr);
  EXPECT_EQ(message(budget), "");
  edit(budget, 0.01f);
  EXPECT_EQ(message(budget),
            "Total On-Chip Power exceeds the User-Entered Power Budget.\n Enter a new value.");
  EXPECT_EQ(tab()->getTabSeverity(), 3);
  edit(budget, 1000.0f);
  EXPECT_EQ(message(budget), "");
  edit(budget, 0.01f);
  blank(budget);
  EXPECT_EQ(message(budget), "");
}

TEST_F(SummaryBook, HbmBelongsToTheTotalOfDevicesThatCarryIt) {
  KVXECell* total = summary(Summary::m_onChipPowerStr, Summary::m_summaryOptionColumn);
  EXPECT_EQ(message(total), "Total On-Chip Power");
  EXPECT_FALSE(isShown(summary(Summary::m_aplxOnChipPowerStr)));
  EXPECT_EQ(table(Summary::m_hbmEnvTableHeader)->getVisibility(), KVXEEnums::Visibility::ALWAYS_HIDDEN);

  select("AH4080");
  EXPECT_EQ(message(total), "Total On-Chip Power (APLX + HBM)");
  EXPECT_TRUE(isShown(summary(Summary::m_aplxOnChipPowerStr)));
  EXPECT_EQ(table(Summary::m_hbmEnvTableHeader)->getVisibility(), KVXEEnums::Visibility::EXTERNAL);
  const float hbmWatts = numberIn(hbm(Summary::m_hbmOnChipPowerStr));
  EXPECT_GT(hbmWatts, 0.0f);
  EXPECT_NEAR(numberIn(summary(Summary::m_onChipPowerStr)),
              numberIn(summary(Summary::m_aplxOnChipPowerStr)) + hbmWatts, 0.0011f);
}

TEST_F(SummaryBook, HbmJunctionTemperatureFollowsOverridesThenThePath) {
  select("AH4080");
  KVXECell* junction = hbm(Summary::m_hbmJunctionTempStr);
  KVXECell* own = hbm(Summary::m_hbmTjOverrideStr);
  edit(environment(Summary::m_junctionTempStr), 70.0f);
  EXPECT_EQ(numberIn(junction), 70.0f);
  edit(hbm(Summary::m_hbmTjOverrideStr, Summary::m_envTempColumn), Summary::m_userOverrideOnStr);
  EXPECT_EQ(numberIn(own), 70.0f);
  struct Case {
    float celsius;
    KVXECell::Color background;
    const char* message;
  };
  const Case cases[] = {
      {85.0f, Grey, ""},
      {86.0f, 0xfff2cc, "Additional Refresh cycle required for operation between 85 C -105 C."},
      {105.0f, 0xfff2cc, "Additional Refresh cycle"},
      {106.0f, 0xffd9d9, "HBM Junction temeperature is out of range."}};
  for (const Case& c : cases) {
    edit(own, c.celsius);
    EXPECT_EQ(background(junction), c.background) << c.celsius;
    EXPECT_THAT(message(junction), HasSubstr(c.message));
  }
  edit(hbm(Summary::m_hbmTjOverrideStr, Summary::m_envTempColumn), Summary::m_userOverrideOffStr);
  setOverride(false);
  edit(environment(Summary::m_thetaJaStr), 2.0f);
  EXPECT_NEAR(numberIn(junction), 25.0f + 2.0f * Summary::getInitialHbmStaticPower(uid()), 0.01f);
  EXPECT_EQ(background(junction), Grey);
  edit(environment(Summary::m_thetaJaStr), 5000.0f);
  EXPECT_EQ(numberIn(junction), 125.0f);
}

TEST_F(SummaryBook, CharacterizationTellsHowFarToTrust) {
  const std::pair<const char*, const char*> cases[] = {{"AK1080", "Production (+/- 15% accuracy)"},
                                                       {"AE2060", "Preliminary (+/- 20% accuracy)"},
                                                       {"AK2080", "Preview (+/- 30% accuracy)"},
                                                       {"AN3120", "Advance (+/- 25% accuracy)"}};
  for (const auto& [device, label] : cases) {
    select(device);
    EXPECT_EQ(textIn(summary(Summary::m_characterizationStr)), label) << device;
  }
}

TEST_F(SummaryBook, MaxJunctionTemperatureFollowsTheGrade) {
  select("AK1080-VSVC1596_1-MM-M");
  EXPECT_EQ(numberIn(environment(Summary::m_maxJunctionTempStr)), 125.0f);
  select("AK1080-VSVC1596_1-MP-I");
  EXPECT_EQ(numberIn(environment(Summary::m_maxJunctionTempStr)), 100.0f);
}

TEST_F(SummaryBook, ReconfigurationLeaksOnTheNetwork) {
  KVXECell* usage = table(Summary::m_rcxTableHeader)->getCellAt(1, &Summary::m_rcxOptionColumn);
  std::vector<std::string> entries;
  usage->getDDVals(entries);
  ASSERT_EQ(entries.size(), 4u);
  EXPECT_EQ(textIn(usage), entries.front());
  const float before = numberIn(leakage("NoC+DDRMC"));
  edit(usage, entries.back());
  EXPECT_GT(numberIn(leakage("NoC+DDRMC")), before);
}

TEST_F(SummaryBook, TheConsoleSaysTheSame) {
  useLogic();
  KVXETab* console = book()->getTab(TabType::SUMMARY_CONSOLE);
  using Console = KVXESummaryConsoleTab;
  const auto cell = [&](const KVXETitle& title, const std::string& row, const KVXETitle& column) {
    return console->lookup<std::string>(&title, row, &Console::m_Key, &column, false);
  };
  EXPECT_EQ(textIn(cell(Console::m_ProjectTable, "Status", Console::m_Value)), "Initial Estimation");
  EXPECT_EQ(textIn(cell(Console::m_ProjectTable, "Design State", Console::m_Value)), "Empty");
  EXPECT_FALSE(isShown(cell(Console::m_ProjectTable, "Design State", Console::m_Value)));
  EXPECT_EQ(textIn(cell(Console::m_ThermalTable, "Ambient Temperature", Console::m_Value)), "25 C");
  EXPECT_EQ(textIn(cell(Console::m_ThermalTable, "Thermal Margin", Console::m_Value)),
            textIn(summary(Summary::m_thermalMarginStr)));
  const float total = numberIn(cell(Console::m_PowerTable, "Total", Console::m_Value));
  const float active = numberIn(cell(Console::m_PowerTable, "    Active", Console::m_Value));
  EXPECT_GT(active, 0.0f);
  EXPECT_FLOAT_EQ(total, active + numberIn(cell(Console::m_PowerTable, "    Static", Console::m_Value)));
  EXPECT_FLOAT_EQ(numberIn(cell(Console::m_PowerTable, "    Active", Console::m_Percentage)), active / total);
  EXPECT_EQ(console->getPBSuffix(), "");

  edit(cell(Console::m_ProjectTable, "Design State", Console::m_Value), std::string("routed"));
  EXPECT_TRUE(isShown(cell(Console::m_ProjectTable, "Design State", Console::m_Value)));
}

TEST_F(SummaryBook, AFormulaInAStrangeTableSaysSo) {
  const std::pair<KVXEFormula, const char*> cases[] = {
      {&Summary::updateTotalOnchipPower, "Error: error occured in updating Summary.\n"},
      {&Summary::updateAmbientTemp, "Error: error occured in updating Environment.\n"},
      {&Summary::updateOnchipDynamicPowerInWattsTable,
       "Error: error occured in updating Onchip summary Table.\n"},
      {&Summary::updatePowerInfoTable, "Error: error occured in updating Summary table.\n"},
      {&KVXETarvekSummaryTab::updateThermalMarginWithExcursionW,
       "Error: error occured in updating Summary.\n"},
  };
  for (const auto& [formula, line] : cases) {
    Captured captured;
    formula(KVXEUID(table(Summary::m_rcxTableHeader)->getCellAt(1, &Summary::m_rcxOptionColumn)));
    EXPECT_EQ(captured.text(), line);
  }
}

}  // namespace
