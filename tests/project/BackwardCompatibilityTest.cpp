// What projects of earlier releases hold reads in its present spelling.

#include "engine/base/project/BackwardCompatibility.h"

#include "engine/base/project/ConfigTables.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/tarvek/KVXETarvekMpramTab.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/ProjectDirectory.h"

using namespace kvxe::BackwardCompatibility;
using KVXEEnums::TabType;
using Selection = std::unordered_map<std::string, std::string>;

namespace {

TEST(BackwardCompatibility, DeviceSelection) {
  const struct {
    const char* label;
    Selection before, after;
  } cases[] = {
      {"nothing", {}, {}},
      {"architecture", {{"Architecture", "Hexaline Plus"}}, {{"Architecture", "Hexaline+"}}},
      {"present architecture", {{"Architecture", "Tarvek"}}, {{"Architecture", "Tarvek"}}},
      {"family", {{"Family", "Sorvikplus"}}, {{"Family", "Sorvik Hexaline+ MPSoC"}}},
      {"family in another case", {{"Family", "sorvikplus"}}, {{"Family", "sorvikplus"}}},
      {"device of two characters", {{"Device", "XY"}}, {{"Device", "XY"}}},
      {"device of three",
       {{"Device", "XYZ"}, {"Device Grade", "old"}},
       {{"Device", "XYZ"}, {"Device Grade", "XY"}}},
  };
  KVXEPrjMgr::getGlobal().closeProject();
  for (const auto& [label, before, after] : cases) {
    Selection selection = before;
    patchDeviceSelectionMap(selection);
    EXPECT_EQ(selection, after) << label;
  }
}

TEST(BackwardCompatibility, ProjectsOfThisReleaseKeepTheirDevice) {
  const ProjectDirectory directory;
  KVXEPrjMgr& manager = KVXEPrjMgr::getGlobal();
  ASSERT_TRUE(manager.newProject((directory.path() / "new.kvx").string()) && manager.saveProject(""));
  Selection selection = {{"Family", "Belrinplus"}, {"Device", "XYZ"}};
  const Selection before = selection;
  patchDeviceSelectionMap(selection);
  manager.closeProject();
  EXPECT_EQ(selection, before);
}

TEST(BackwardCompatibility, ClockTags) {
  const struct {
    std::string before, after;
  } cases[] = {
      {"100 MHz (clk)", "100.000 MHz (clk)"},
      {"100MHz (clk)", "100.000 MHz (clk)"},
      {"62.5 MHz (a (b) c)", "62.500 MHz (a (b) c)"},
      {"250.000 MHz (clk)", "250.000 MHz (clk)"},
      {"100 MHz", "100 MHz"},
      {"100  MHz (clk)", "100  MHz (clk)"},
      {"100. MHz (clk)", "100. MHz (clk)"},
      {"-1 MHz (clk)", "-1 MHz (clk)"},
      {"1e3 MHz (clk)", "1e3 MHz (clk)"},
      {"100 MHz (clk) ", "100 MHz (clk) "},
      {"100 MHz (two\nlines)", "100 MHz (two\nlines)"},
      {"100 MHz ()", "100 MHz ()"},
      {"clk", "clk"},
      {"", ""},
      {"1" + std::string(400, '0') + " MHz (clk)", "1" + std::string(400, '0') + " MHz (clk)"},
      {"1 MHz (" + std::string(1'000'000, '(') + ")", "1.000 MHz (" + std::string(1'000'000, '(') + ")"},
  };
  for (const auto& [before, after] : cases) {
    std::string value = before;
    correctClockTag(value);
    EXPECT_EQ(value, after);
  }
}

TEST(BackwardCompatibility, LinkSpelling) {
  const struct {
    void (*correct)(std::string&);
    const char *before, *after;
  } cases[] = {
      {&correctSpeedLink, "GEN3", "Gen3"},
      {&correctSpeedLink, "GEN4X8", "Gen4x8"},
      {&correctSpeedLink, "GEN1 DUAL X4", "Gen1 Dual X4"},
      {&correctSpeedLink, "GEN", "GEN"},
      {&correctSpeedLink, "GENERIC", "GENERIC"},
      {&correctSpeedLink, "PCIE GEN3", "PCIE GEN3"},
      {&correctHicSpeed, "GEN1", "GEN 1 (2.5 GT/s)"},
      {&correctHicSpeed, "GEN5", "GEN 5 (32 GT/s)"},
      {&correctHicSpeed, "GEN6", "GEN6"},
      {&correctHicSpeed, "Gen1", "Gen1"},
  };
  for (const auto& [correct, before, after] : cases) {
    std::string value = before;
    correct(value);
    EXPECT_EQ(value, after) << before;
  }
}

class CellPatches : public testing::Test {
 protected:
  CellPatches() { KVXEBookMgr::getGlobal().closeProject(); }
  ~CellPatches() override { KVXEBookMgr::getGlobal().closeProject(); }

  /// A table of that title on a sheet of a new book.
  KVXETable* make(const char* architecture, TabType tab, const KVXETitle& title) {
    KVXEBookMgr::getGlobal().closeProject();
    KVXEBook* book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook(architecture);
    return book->getOrCreateTab(tab)->createTable(&title, false, false, true,
                                                  KVXEEnums::GridComponentType::TABLE);
  }
  static std::string patched(const char* tag, std::string value, const KVXETable* table) {
    patchCellValue(tag, value, table);
    return value;
  }
};

TEST_F(CellPatches, GoByColumnAndTable) {
  const KVXETitle pcie("PCIE_CONFIGURATION"), pcie5("PCIE5_CONFIGURATION"), hic("HIC_CONFIGURATION"),
      hic5("HIC5_CONFIGURATION"), other("OTHER");
  const struct {
    const char* architecture;
    TabType tab;
    const KVXETitle& title;
    const char *mode, *speed;
  } cases[] = {
      {"Tarvek", TabType::PCIE, pcie, "Gen3x8", "GEN3"},
      {"Tarvek", TabType::PCIE5, pcie5, "Gen3x8", "GEN3"},
      {"Tarvek", TabType::HIC, hic, "GEN3X8", "GEN 3 (8 GT/s)"},
      {"Tarvek", TabType::HIC5, hic5, "GEN3X8", "GEN 3 (8 GT/s)"},
      {"Tarvek", TabType::HIC, other, "GEN3X8", "GEN3"},
      {"Morlan", TabType::PCIE, pcie, "GEN3X8", "GEN3"},
  };
  for (const auto& [architecture, tab, title, mode, speed] : cases) {
    const KVXETable* table = make(architecture, tab, title);
    const std::string label = std::string(architecture) + " " + title.getTag(KVXEEnums::TitleType::SW);
    EXPECT_EQ(patched("Mode", "GEN3X8", table), mode) << label;
    EXPECT_EQ(patched("LinkSpeed", "GEN3", table), speed) << label;
    EXPECT_EQ(patched("Name", "GEN3", table), "GEN3") << label;
    for (const char* tag : {"Clock", "PortAclockFreq", "CLOCK"})
      EXPECT_EQ(patched(tag, "5 MHz (c)", table), "5.000 MHz (c)") << label << tag;
    EXPECT_EQ(kvxe::isConfigTable(*table), std::string(mode) + speed != "GEN3X8GEN3") << label;
  }
  EXPECT_EQ(patched("Clock", "5 MHz (c)", nullptr), "5.000 MHz (c)");
  EXPECT_EQ(patched("Mode", "GEN3X8", nullptr), "GEN3X8");
}

TEST_F(CellPatches, ConfigurationsAreToldByTheirTitle) {
  const KVXETitle namesake("MPRAM_CONFIGURATION"), xcvrB("XCVRB_CONFIGURATION");
  EXPECT_TRUE(kvxe::isConfigTable(*make("Arkeon", TabType::SYSMON, KVXETarvekMpramTab::m_ConfigTable)));
  EXPECT_FALSE(kvxe::isConfigTable(*make("Arkeon", TabType::SYSMON, namesake)));
  EXPECT_TRUE(kvxe::isConfigTable(*make("Som", TabType::XCVRB, xcvrB)));
  EXPECT_FALSE(kvxe::isConfigTable(*make("Tarvek", TabType::XCVRB, xcvrB)));
}

}  // namespace
