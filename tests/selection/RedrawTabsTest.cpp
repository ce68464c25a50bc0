#include <set>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETab.h"
#include "tests/kit/Captured.h"
#include "tests/selection/SelectionTest.h"

using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::Not;
using Tabs = std::set<std::string>;

namespace {

class RedrawTabs : public SelectionTest {
 protected:
  static KVXEBook* book() { return KVXEBookMgr::getGlobal().getCurrentBook(); }

  /// Names of the tabs that take part.
  static Tabs enabled() {
    Tabs names;
    for (unsigned int i = 0; i < book()->getTabCount(); ++i) {
      const KVXETab* tab = book()->getTab(i);
      if (tab && tab->getIsEnabled()) names.insert(tab->getTypeAsStr());
    }
    return names;
  }
  static Tabs redraw(KVXEPartSelection& selection, bool deleteTabs = false) {
    selection.redrawTabs(deleteTabs);
    return enabled();
  }
};

TEST_F(RedrawTabs, EachArchitectureShowsItsTabs) {
  EXPECT_EQ(
      redraw(tarvek("AK1020-NBVA625_1-LP-E-S")),
      (Tabs{"SUMMARY_CONSOLE", "SUMMARY", "POWER_DESIGN", "POWER_MANAGEMENT", "ESTIMATION", "LOGIC", "CLOCK",
            "NOC_DDRMC", "PS", "IO", "HARD_BLOCKS", "BRAM", "WRAM", "DSP", "XCVRA", "PCIE", "EMMAC"}));
  EXPECT_EQ(redraw(choose("Hexaline+", "HB240-LFRC1156_2-E")),
            (Tabs{"SUMMARY_CONSOLE", "SUMMARY", "POWER_DESIGN", "ESTIMATION", "DSP", "CLOCK", "BRAM", "LOGIC",
                  "IO", "OTHER", "WRAM", "XCVRB", "XCVRC"}));
  EXPECT_EQ(redraw(choose("Ludra", "SM4_CUSTOM_I")),
            (Tabs{"SUMMARY_CONSOLE", "SUMMARY", "POWER_DESIGN", "ESTIMATION", "DSP", "CLOCK", "BRAM", "LOGIC",
                  "PS", "HARD_BLOCKS", "PCIE", "IO", "XCVRB"}));
}

TEST_F(RedrawTabs, TabsFollowTheResourcesOfTheDevice) {
  const struct {
    const char* label;
    const char* part;
    std::vector<std::string> with;
    std::vector<std::string> without;
  } cases[] = {
      {"wide processing system",
       "AN3060-LRVD1936_1-LP-E-S",
       {"PSW", "Y7IO", "NICB", "HIC5", "MPRAM", "CRE"},
       {"PS", "IO", "HIC"}},
      {"DDRMC5C", "AK2080-LRVD1936_1-LP-E-S", {"PS", "Y7IO", "MXE2", "VDU"}, {"IO", "PSW", "MXE"}},
      {"DDRMC5", "AE2060-NBVC784_1-LP-E-S", {"PS", "IO", "XCVRD"}, {"Y7IO", "XCVRA"}},
      {"HBM", "AH4080-KTVF2304_1-LP-E-S", {"PS", "IO", "NOC_DDRMC"}, {"Y7IO", "HBM", "MXE"}},
  };
  KVXEPartSelection& selection = tarvek();
  for (const auto& c : cases) {  // without new tabs, so that one device's tabs are put away for the next
    SCOPED_TRACE(c.label);
    ASSERT_TRUE(selection.selectPart(c.part, "Maximum"));
    const Captured out;
    const Tabs tabs = redraw(selection);
    EXPECT_THAT(tabs, IsSupersetOf(c.with));
    for (const std::string& name : c.without) EXPECT_THAT(tabs, Not(Contains(name)));
    EXPECT_THAT(out.text(), Not(::testing::HasSubstr("Tab type")));
    EXPECT_EQ(selection.getDevicePkg(), selection.getDevicePkgTag());
  }
}

TEST_F(RedrawTabs, TabsThatStayKeepTheirObjectUnlessAllAreBuiltAnew) {
  KVXEPartSelection& selection = tarvek();
  selection.redrawTabs(true);
  KVXETab* io = book()->getTab(KVXEEnums::TabType::IO);
  KVXETab* clock = book()->getTab(KVXEEnums::TabType::CLOCK);
  selection.selectPart("AK2080-LRVD1936_1-LP-E-S", "Maximum");
  selection.redrawTabs(false);
  EXPECT_EQ(book()->getTab(KVXEEnums::TabType::CLOCK), clock);
  ASSERT_EQ(book()->getTab(KVXEEnums::TabType::IO), io);
  EXPECT_FALSE(io->getIsEnabled());
  EXPECT_TRUE(KVXECellStateMgr::getGlobal().isGuiRedrawNeeded().first);
  selection.redrawTabs(true);
  EXPECT_EQ(book()->getTab(KVXEEnums::TabType::IO), nullptr);
}

TEST_F(RedrawTabs, AnIncompleteChoiceIsCompletedFirst) {
  KVXEPartSelection* selection = KVXEPartSelection::resetToArch("Arkeon");
  selection->insertSettings({{"Family", "Arkeon Net"}, {"Device", "AN3120"}});
  const Captured out;
  EXPECT_THAT(redraw(*selection), IsSupersetOf({"PSW", "NICB"}));
  EXPECT_EQ(selection->getCurrentSetting("Device"), "AN3120");
  EXPECT_THAT(out.text(), Not(::testing::HasSubstr("ERROR")));
}

}  // namespace
