#include <set>

#include "engine/som/KVXESomPartSelection.h"
#include "tests/kit/Captured.h"
#include "tests/selection/SelectionTest.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using Selection = KVXEPartSelection;
using Tarvek = KVXETarvekPartSelection;

namespace {

class EveryArchitecture : public SelectionTest, public ::testing::WithParamInterface<const std::string*> {
 protected:
  Selection& selection() { return *Selection::resetToArch(*GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Selection, EveryArchitecture,
                         ::testing::Values(&Selection::m_arkeonArchName, &Selection::m_morlanArchName,
                                           &Selection::m_somVisionArchName));

TEST_P(EveryArchitecture, EachPartComesBackFromItsSettingsAndStandsInItsLists) {
  Selection& selected = selection();
  const std::vector<std::string> parts = selected.getAvailableParts();
  ASSERT_GE(parts.size(), 6u);
  for (const std::string& part : parts) {
    SCOPED_TRACE(part);
    ASSERT_TRUE(selected.selectPart(part, "Typical"));
    const Selection::Settings settings = selected.getCurrentSettings();
    for (unsigned int i = 0; i < selected.getDeviceSelectionList().size(); ++i) {
      const DropDown list = read(selected, i);
      EXPECT_EQ(std::set(list.values.begin(), list.values.end()).size(), list.values.size())
          << "repeated values";
      EXPECT_TRUE(selected.isCurrentSettingValid(i, list.shown()));
    }
    EXPECT_EQ(selected.getCurrentSettings(), settings) << "reading the lists changed a consistent choice";
    EXPECT_EQ(selected.getSelectedDeviceName(), part);
    EXPECT_EQ(selected.getCurrentPart(), part);
    EXPECT_GT(selected.getAvailResources("LUT"), 0);
    EXPECT_EQ(selected.getTempGrade(), selected.getTempGrade(part));
    EXPECT_THAT(selected.getAvailablePartsForSelectedFamily(), Contains(part));
  }
}

TEST_P(EveryArchitecture, EveryChoiceFromAListLeadsToAPartThatShowsIt) {
  Selection& selected = selection();
  std::set<std::string> devices;
  for (const std::string& start : selected.getAvailableParts()) {
    if (!devices.insert(selected.getPartTokens(start).front()).second) continue;  // one part of each device
    for (unsigned int i = 0; i < selected.getDeviceSelectionList().size(); ++i) {
      selected.selectPart(start, "Maximum");
      for (const std::string& value : read(selected, i).values) {
        selected.selectPart(start, "Maximum");
        ASSERT_EQ(selected.setDeviceSelectionCurrentValue(i, value), 1);
        readAll(selected);
        EXPECT_EQ(read(selected, i).shown(), value) << start;
        EXPECT_NE(selected.getSelectedDeviceName(), "") << start << ", " << value;
      }
    }
  }
}

TEST_P(EveryArchitecture, AFreshSelectionIsFilledWithTheDefaultPart) {
  Selection& selected = selection();
  EXPECT_TRUE(selected.getCurrentSettings().empty());
  EXPECT_EQ(selected.getSelectedDeviceName(), "");
  readAll(selected);
  EXPECT_EQ(selected.getSelectedDeviceName(), selected.getDefaultPart());
  const Selection::Settings byReading = selected.getCurrentSettings();
  selected.resetDeviceSelectionToDefault();
  EXPECT_EQ(selected.getCurrentSettings(), byReading);
  EXPECT_EQ(selected.getCurrentSetting(Selection::m_familyStr), selected.getDefaultFamily());
}

TEST_P(EveryArchitecture, IndicesAndSettingsThatDoNotExistAreRefused) {
  Selection& selected = selection();
  readAll(selected);
  const unsigned int count = static_cast<unsigned int>(selected.getDeviceSelectionList().size());
  const Selection::Settings settings = selected.getCurrentSettings();
  for (const unsigned int index : {count, count + 1, 10u, ~0u}) {
    EXPECT_EQ(read(selected, index).index, -1);
    EXPECT_EQ(selected.setDeviceSelectionCurrentValue(index, "x"), 0);
    EXPECT_FALSE(selected.isCurrentSettingValid(index, "x"));
  }
  std::vector<std::string> values;
  const Captured out;
  selected.getValidSettings("Colour", values);
  EXPECT_EQ(out.text(), "setting str: Colour\n");
  EXPECT_EQ(selected.getCurrentSettings(), settings);
}

TEST_P(EveryArchitecture, ProcessShowsBothTextsTheCurrentOneFirst) {
  Selection& selected = selection();
  const unsigned int process = static_cast<unsigned int>(selected.getDeviceSelectionList().size()) - 1;
  readAll(selected);
  EXPECT_THAT(read(selected, process).values, ElementsAre("Maximum", "Typical"));
  selected.setDeviceSelectionCurrentValue(process, "Typical");
  EXPECT_THAT(read(selected, process).values, ElementsAre("Typical", "Maximum"));
  EXPECT_EQ(read(selected, process).index, 0);
  selected.setDeviceSelectionCurrentValue(process, "Fast");
  EXPECT_EQ(read(selected, process).shown(), "Maximum");
}

TEST_F(SelectionTest, DropDownsStandInTheOrderOfTheCascade) {
  EXPECT_THAT(Selection::resetToArch("Arkeon")->getDeviceSelectionList(),
              ElementsAre("Family", "Device Grade", "Device", "Package", "Speed", "Static Power",
                          "Temperature", "VCCINT Voltage", "Process"));
  EXPECT_THAT(Selection::resetToArch("Hexaline+")->getDeviceSelectionList(),
              ElementsAre("Family", "Device Grade", "Device", "Package", "Speed", "Grade", "Process"));
  EXPECT_THAT(Selection::resetToArch("Ludra")->getDeviceSelectionList(),
              ElementsAre("Family", "Device", "Board", "Grade", "Process"));
}

TEST_F(SelectionTest, ListsFollowTheSettingsBeforeThem) {
  Selection& selected = tarvek();
  EXPECT_THAT(read(selected, 0).values,
              ElementsAre("Arkeon Core", "Arkeon Edge", "Arkeon HBM", "Arkeon Net"));
  EXPECT_THAT(read(selected, 1).values, ElementsAre("QC", "QQ - Defence"));
  EXPECT_THAT(read(selected, 2).values, ElementsAre("AK1020", "AK1080", "AK1160", "AK2080"));
  EXPECT_THAT(read(selected, 4).values, ElementsAre("1", "2", "3"));
  EXPECT_THAT(read(selected, 5).values, ElementsAre("Standard", "Low"));
  EXPECT_THAT(read(selected, 6).values, ElementsAre("Extended 0C->100C", "Industrial -40C->100C"));
  EXPECT_THAT(read(selected, 7).values, ElementsAre("Low - 0.70v", "Mid - 0.80v", "Low - 0.70v, PS at 0.88v",
                                                    "Mid - 0.80v, PS at 0.88v"));
  selected.setDeviceSelectionCurrentValue(1, "QQ - Defence");
  readAll(selected);
  EXPECT_THAT(read(selected, 2).values, ElementsAre("QQ1080"));
  EXPECT_THAT(selected.getValidValues("VCCINT Voltage", {"", "", "AK1020", "", "3"}),
              ElementsAre("High - 0.88v"));
}

TEST_F(SelectionTest, ANewFamilyBlanksWhatDependsOnItAndTheDefaultPartOfTheFamilyComesBack) {
  Selection& selected = tarvek("AK1160-LRVE2197_2-MHP-E-L");
  selected.setDeviceSelectionCurrentValue(0, "Arkeon Core");
  EXPECT_EQ(selected.getSelectedDeviceName(), "AK1160-LRVE2197_2-MHP-E-L")
      << "the same family changes nothing";
  selected.setDeviceSelectionCurrentValue(0, "Arkeon HBM");
  for (const auto& [name, value] : selected.getCurrentSettings()) {
    const bool isKept = name == Selection::m_familyStr || name == Selection::m_processStr;
    EXPECT_EQ(value.empty(), !isKept) << name;
  }
  EXPECT_EQ(selected.getSelectedDeviceName(), "");
  EXPECT_EQ(selected.getCurrentPart(), "AK1160-LRVE2197_2-MHP-E-L");
  readAll(selected);
  EXPECT_EQ(selected.getSelectedDeviceName(), "AH4080-KTVF2304_2-MP-E-S");
  EXPECT_EQ(selected.getCurrentSetting("Core Voltage"), "0.80 V");
}

TEST_F(SelectionTest, AValueThatIsNotListedGivesWayToTheFirst) {
  Selection& selected = tarvek();
  selected.setDeviceSelectionCurrentValue(3, "LRVE2197");
  EXPECT_EQ(selected.getSelectedDeviceName(), "") << "no such part while the cascade is rewritten";
  EXPECT_TRUE(selected.isCurrentSettingValid(3, "VSVC1596"));
  EXPECT_FALSE(selected.isCurrentSettingValid(3, "LRVE2197"));
  EXPECT_EQ(selected.getCurrentSetting("Package"), "LRVE2197") << "asking changes nothing";
  const DropDown packages = read(selected, 3);
  EXPECT_EQ(packages.index, 0);
  EXPECT_EQ(selected.getCurrentSetting("Package"), packages.values.front());
  readAll(selected);
  EXPECT_NE(selected.getSelectedDeviceName(), "");
}

TEST_F(SelectionTest, TextsAreStoredAsTheCodesOfPartNames) {
  Selection& selected = tarvek();
  selected.setDeviceSelectionCurrentValue(5, "Low");
  selected.setDeviceSelectionCurrentValue(6, "Industrial -40C->100C");
  selected.setDeviceSelectionCurrentValue(7, "Low - 0.70v, PS at 0.88v");
  EXPECT_EQ(selected.getCurrentSetting(Tarvek::m_staticScreenStr), "L");
  EXPECT_EQ(selected.getCurrentSetting(Tarvek::m_tempGradeStr), "I");
  EXPECT_EQ(selected.getCurrentSetting(Tarvek::m_voltageRangeStr), "LHP");
  EXPECT_EQ(selected.getCoreVoltage(), "0.70 V");
}

TEST_F(SelectionTest, CodesThatShareATextAreToldApartByTheCatalogue) {
  Selection& military = tarvek("QQ1080-VSVC1596_1-MM-B-S");
  military.setDeviceSelectionCurrentValue(7, "Mid - 0.80v");
  readAll(military);
  EXPECT_EQ(military.getSelectedDeviceName(), "QQ1080-VSVC1596_1-MM-B-S") << "grade B has no MP";
  Selection& low = tarvek("AK1080-VSVA1024_2-LLI-I-L");
  readAll(low);
  EXPECT_EQ(low.getCurrentSetting(Tarvek::m_voltageRangeStr), "LLI");
}

TEST_F(SelectionTest, SettingsOfAFileKeepWhatIsThereAndMayHoldTexts) {
  Selection* selected = Selection::resetToArch("Arkeon");
  selected->insertSettings({{"Family", "Arkeon Edge"},
                            {"Device", "AE2060"},
                            {"Package", "VSVA1024"},
                            {"Speed", "1"},
                            {"Static Power", "Standard"},
                            {"Temperature", "Industrial -40C->100C"},
                            {"VCCINT Voltage", "LP"}});
  EXPECT_EQ(selected->getSelectedDeviceName(), "AE2060-VSVA1024_1-LP-I-S");
  selected->insertSettings({{"Device", "AK1080"}});
  EXPECT_EQ(selected->getCurrentSetting("Device"), "AE2060");
  readAll(*selected);
  EXPECT_EQ(selected->getSelectedDeviceName(), "AE2060-VSVA1024_1-LP-I-S");
  EXPECT_EQ(selected->getCurrentSetting("Temperature"), "I");
  EXPECT_EQ(selected->getDeviceGradeStr(), "QC");
}

TEST_F(SelectionTest, OlderFilesNameADeviceGradeByTheDevicesFirstLetters) {
  const struct {
    const char* archName;
    Selection::Settings settings;
    const char* grade;
  } cases[] = {
      {"Arkeon", {{"Device Grade", "QQ"}, {"Device", "QQ1080"}}, "QQ - Defence"},
      {"Arkeon",
       {{"Family", "Arkeon Edge"}, {"Device Grade", "QA"}, {"Device", "QA2020"}},
       "QA - Automotive"},
      {"Arkeon", {{"Device Grade", "AK"}, {"Device", "AK1160"}}, "QC"},
      {"Hexaline+",
       {{"Family", "Sorvik Hexaline+ MPSoC"}, {"Device Grade", "QQ"}, {"Device", "QQS440"}},
       "QQ - Defence"},
  };
  for (const auto& c : cases) {
    Selection::resetPartSelection();
    Selection& selected = *Selection::resetToArch(c.archName);
    selected.insertSettings(c.settings);
    readAll(selected);
    EXPECT_EQ(selected.getCurrentSetting("Device"), c.settings.at("Device"));
    EXPECT_EQ(selected.getDeviceGradeStr(), c.grade);
  }
}

TEST_F(SelectionTest, OneSelectionLivesAndAnArchitectureKeepsIts) {
  EXPECT_EQ(Selection::getGlobal(), nullptr);
  Selection& selected = tarvek("AE2020-NBVC784_1-MP-E-S");
  EXPECT_EQ(Selection::resetToArch("Arkeon"), &selected);
  EXPECT_EQ(selected.getFamily(), "Arkeon Edge");
  EXPECT_EQ(Selection::resetToArch("Hexaline+")->getArchName(), "Hexaline+");
  EXPECT_EQ(Selection::resetToArch("unknown"), nullptr);
  EXPECT_EQ(Selection::getGlobal(), nullptr);
  Selection::resetToDefaultPart();
  EXPECT_EQ(Selection::getGlobal()->getSelectedDeviceName(), Selection::getGlobal()->getDefaultPart());
}

TEST_F(SelectionTest, ResourcesFollowTheDevice) {
  EXPECT_TRUE(tarvek("AH4080-KTVF2304_1-LP-E-S").isArkeonHbm());
  Selection& selected = tarvek();
  EXPECT_FALSE(selected.isArkeonHbm());
  std::map<std::string, int> resources{{"stale", 1}};
  selected.getResources(resources);
  EXPECT_EQ(resources.count("stale"), 0u);
  EXPECT_EQ(selected.getAvailResources("BRAM"), resources.at("BRAM"));
  EXPECT_FALSE(selected.isResourceAvailable("DDRMC5C"));
  selected.selectPart("AK2080-LRVD1936_1-LP-E-S", "Maximum");
  EXPECT_TRUE(selected.hasDdrmc5c());
  selected.setDeviceSelectionCurrentValue(0, "Arkeon Edge");
  const Captured out;
  EXPECT_EQ(selected.getAvailResources("BRAM"), 0);
  EXPECT_EQ(selected.getAvailResources("BRAM"), 0);
  EXPECT_EQ(out.text(), "ERROR: Device resource data is missing for: \n") << "reported once for a choice";
}

TEST_F(SelectionTest, AModuleReadsItsCatalogueRow) {
  auto& module = dynamic_cast<KVXESomPartSelection&>(choose("Ludra", "sm4_motus_c", "Typical"));
  EXPECT_EQ(module.getSelectedDeviceName(), "SM4-MMRA484_1-C");
  EXPECT_EQ(module.getBaseDeviceName(), "HS210");
  EXPECT_EQ(module.getBaseFamilyName(), "Sorvik Hexaline+ MPSoC");
  EXPECT_EQ(module.getCurrentSetting(Selection::m_tempGradeStr), "Commercial");
  EXPECT_EQ(module.getTempGrade(), "C");
  EXPECT_TRUE(module.isStarterKit());
  EXPECT_FALSE(module.selectPart("SM4", "Typical")) << "a kind of module is no module";
  module.resetDeviceSelectionToDefault();
  for (const auto& [name, value] : KVXESomPartSelection::getDefaultPartInfo())
    EXPECT_EQ(module.getCurrentSetting(name), value);
  EXPECT_FALSE(module.isStarterKit());
}

}  // namespace
