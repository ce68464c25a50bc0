#include "tests/selection/SelectionTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Selection = KVXEPartSelection;

namespace {

TEST_F(SelectionTest, PartNamesAreReadInEverySpelling) {
  const struct {
    const char* archName;
    const char* name;
    const char* selected;  // empty: refused
  } cases[] = {
      {"Arkeon", "ak1080-vsva1024_2-mp-e-s", "AK1080-VSVA1024_2-MP-E-S"},
      {"Arkeon", "AK1080_VSVA1024_2MPES", "AK1080-VSVA1024_2-MP-E-S"},
      {"Arkeon", "AK1080_VSVA1024_2_MP_E_S", "AK1080-VSVA1024_2-MP-E-S"},
      {"Arkeon", "AK1080-VSVA1024-2-LLI-I-L", "AK1080-VSVA1024_2-LLI-I-L"},
      {"Arkeon", "AK1080_VSVC1596_1MMMS", "AK1080-VSVC1596_1-MM-M-S"},
      {"Arkeon", "", ""},
      {"Arkeon", "AK1080-VSVA1024_2-MP-E", ""},
      {"Arkeon", "AK1080-VSVA1024_2-MP-E-SS", ""},
      {"Arkeon", "AK1080-VSVA1024_4-MP-E-S", ""},
      {"Arkeon", "AK1080-VSVA1024_2-MP-Q-S", ""},
      {"Arkeon", "AK1080-VSVA1024_2--MP-E-S", ""},
      {"Arkeon", "AK1080VSVA1024_2-MP-E-S", ""},
      {"Arkeon", "AK1080_SE-VSVA1024_2-MP-E-S", ""},  // well formed, but there is none
      {"Arkeon", "AK1080-LRVE2197_2-MP-E-S", ""},     // not in this package
      {"Arkeon", "HB240-LFRC1156_2-E", ""},           // another architecture's
      {"Hexaline+", "hb240_lfrc1156_2lvii", "HB240-LFRC1156_2LVI-I"},
      {"Hexaline+", "HS440_SMRB900_2LVI", "HS440-SMRB900_2LV-I"},
      {"Hexaline+", "QAS210_SMRA484_1QQ", "QAS210-SMRA484_1Q-Q"},
      {"Hexaline+", "HB240-LFRC1156_2-", ""},
      {"Hexaline+", "HB240-LFRC1156_2-E-S", ""},
      {"Ludra", "SM6_CUSTOM_I", "SM6-CMRB900_2LV-I"},
      {"Ludra", "sm6-cmrb900_2lv-i", "SM6-CMRB900_2LV-I"},
      {"Ludra", "HS440-SMRB900_2LV-I", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Selection* selection = Selection::resetToArch(c.archName);
    selection->resetDeviceSelectionToDefault();
    const Selection::Settings before = selection->getCurrentSettings();
    const bool isExpected = *c.selected != '\0';
    EXPECT_EQ(selection->selectPart(c.name, "Maximum"), isExpected);
    if (isExpected)
      EXPECT_EQ(selection->getSelectedDeviceName(), c.selected);
    else
      EXPECT_EQ(selection->getCurrentSettings(), before);
  }
}

TEST_F(SelectionTest, HugeOrBrokenNamesAreRefused) {
  for (const char* archName : {"Arkeon", "Hexaline+", "Ludra"}) {
    Selection* selection = Selection::resetToArch(archName);
    for (const std::string& name : {std::string(1000000, 'A'), std::string(1000, '\0'),
                                    std::string("\xff\xfe"), "AK1080" + std::string(500, '_')})
      EXPECT_FALSE(selection->selectPart(name, "Maximum"));
  }
}

TEST_F(SelectionTest, OnlyTheTwoProcessesAreTaken) {
  Selection& selection = tarvek();
  EXPECT_TRUE(selection.selectPart("AK1020-NBVA625_1-LP-E-S", "Typical"));
  for (const char* process : {"", "typical", "MAXIMUM", "Worst"})
    EXPECT_FALSE(selection.selectPart("AK1080-VSVA1024_2-MP-E-S", process)) << process;
  EXPECT_EQ(selection.getCurrentSetting("Device"), "AK1020");
  EXPECT_EQ(selection.getCurrentSetting("Process"), "Typical");
}

TEST_F(SelectionTest, SettingsOfAPart) {
  Selection& selection = tarvek();
  const std::string part = "QQ1080-VSVC1596_1-MM-B-S";
  EXPECT_THAT(selection.getPartTokens(part), ElementsAre("QQ1080", "VSVC1596", "1", "MM", "B", "S"));
  EXPECT_EQ(selection.getPartSetting("VCCINT Voltage", part), "MM");
  EXPECT_EQ(selection.getPartSetting("Temperature", ""), "");
  EXPECT_EQ(selection.getDeviceGradeStr(part), "QQ - Defence");
  EXPECT_EQ(selection.getDeviceGradeStr("qa2020-nbvc784_1-lp-e-s"), "QA - Automotive");
  EXPECT_EQ(selection.getTempGrade(part), "B");
  EXPECT_EQ(selection.getFamilyExternal2InternalStr("Arkeon Core"), "arkeoncore");
  EXPECT_THAT(selection.getPartTokens("AK1080"), IsEmpty());
  EXPECT_TRUE(Selection::isEsPart("AK1080-VSVA1024_2-MP-E-S-es1"));
  EXPECT_FALSE(Selection::isEsPart(part));
}

TEST_F(SelectionTest, GradeTextsAndCodes) {
  const Selection& tarvekSelection = *Selection::resetToArch("Arkeon");
  const struct {
    const char* text;
    const char* temperature;
    const char* voltage;
    const char* coreVoltage;
  } texts[] = {
      {"Extended 0C->100C", "E", "HP", "0.88 V"},
      {"Military", "M", "HP", "0.80 V"},
      {"Automotive -40C->125C", "Q", "HP", "0.88 V"},
      {"whatever", "I", "HP", "0.88 V"},
      {"B", "B", "HP", "0.88 V"},
      {"Low - 0.70v", "I", "LP", "0.70 V"},
      {"Low - 0.70v, PS at 0.88v", "I", "LHP", "0.70 V"},
      {"Mid - 0.80v", "I", "MP", "0.80 V"},
      {"Mid - 0.80v, PS at 0.88v", "I", "MHP", "0.80 V"},
      {"MM", "I", "MM", "0.80 V"},
  };
  for (const auto& c : texts) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(tarvekSelection.getTempGradeFromStr(c.text), c.temperature);
    EXPECT_EQ(tarvekSelection.getVoltageGradeFromStr(c.text), c.voltage);
    EXPECT_EQ(tarvekSelection.getCoreVoltageFromVoltageGradeStr(c.text), c.coreVoltage);
  }
  EXPECT_EQ(tarvekSelection.getTempGradeStr("B"), "Military -55C->125C");
  EXPECT_EQ(tarvekSelection.getVoltageGradeStr("LLI"), "Low - 0.70v");
  const Selection& morlan = *Selection::resetToArch("Hexaline+");
  for (const char* code : {"I", "E", "C", "M", "Q"})
    EXPECT_EQ(morlan.getTempGradeFromStr(morlan.getTempGradeStr(code)), code);
}

TEST(PartNames, TheLeadingLettersTellTheArchitecture) {
  const struct {
    const char* name;
    const char* archName;
  } cases[] = {{"AK1080-VSVA1024_2-MP-E-S", "Arkeon"},
               {"an9999", "Arkeon"},
               {"QQ1080", "Arkeon"},
               {"QQS440", "Hexaline+"},
               {"SM6_CUSTOM_I", "Ludra"},
               {"XX1000", ""},
               {"", ""}};
  for (const auto& c : cases) EXPECT_EQ(Selection::getArchNameFromDeviceStr(c.name), c.archName) << c.name;
}

TEST(PartNames, NumbersInNamesCompareAsNumbers) {
  EXPECT_THAT(Selection::getNaturalSorted({"VSVA1024", "NBVC784", "A10", "A9", "A09", "A", "NBVC1024",
                                           "A99999999999999999999", "A100000000000000000000"}),
              ElementsAre("A", "A09", "A9", "A10", "A99999999999999999999", "A100000000000000000000",
                          "NBVC784", "NBVC1024", "VSVA1024"));
}

}  // namespace
