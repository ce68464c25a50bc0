// On-chip power by block, the totals, and the resources.

#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "tests/tabs/SummaryBook.h"

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// Powers by key, in a table of a tab: the tab's own, whose formulas then rest, or one of its shape.
class PowerList {
 public:
  PowerList(KVXETab* tab, const char* name, const char* key, std::vector<std::pair<std::string, float>> rows)
      : m_title(name), m_key(key), m_value("POWER") {
    KVXETable* table = tab->getTable(name);
    const bool isOwn = table != nullptr;
    if (!isOwn) table = makeTable(tab, rows);
    for (const auto& [text, watts] : rows) {
      m_cells.push_back(tab->lookup<std::string>(table->getTableTitle(), text, column(table, m_key),
                                                 column(table, m_value), false));
      if (isOwn) m_cells.back()->assignFormula(&KVXECell::NoFormula);
      m_cells.back()->setValAndMarkEngineClean(watts);
    }
  }
  KVXECell* power(unsigned int row) { return m_cells.at(row - 1); }

 private:
  KVXETable* makeTable(KVXETab* tab, const std::vector<std::pair<std::string, float>>& rows) {
    const KVXEColumn columns[] = {{.title = &m_key, .type = KVXEEnums::CellType::STRING},
                                  {.title = &m_value, .type = KVXEEnums::CellType::FLOAT}};
    KVXETable* table = tab->createTable(&m_title, false, false, true, KVXEEnums::GridComponentType::TABLE);
    table->addColumns(columns);
    for (unsigned int i = 0; i < rows.size(); ++i)
      table->getOrCreateRow(i + 1)->getCell(&m_key)->setValAndMarkEngineClean(rows[i].first);
    return table;
  }
  /// The table's column that is spelled as the title.
  static const KVXETitle* column(const KVXETable* table, const KVXETitle& title) {
    const auto spelling = KVXEEnums::TitleType::SW;
    for (unsigned int i = 0; i < table->getColumnCount(); ++i)
      if (const KVXETitle* own = table->getHeaderRow()->getIndexToTitle(i);
          own->getTag(spelling) == title.getTag(spelling))
        return own;
    return nullptr;
  }

  const KVXETitle m_title, m_key, m_value;
  std::vector<KVXECell*> m_cells;
};

/// Fixture whose lists outlive the book that points at their titles.
class OnchipBook : public SummaryBook {
 protected:
  void TearDown() override { m_device.reset(); }
  PowerList& list(TabType tab, const char* name, const char* key,
                  std::vector<std::pair<std::string, float>> rows) {
    return *m_lists.emplace_back(
        std::make_unique<PowerList>(book()->getOrCreateTab(tab), name, key, std::move(rows)));
  }
  std::vector<std::unique_ptr<PowerList>> m_lists;
};

TEST_F(OnchipBook, RowsReadTheTablesThatAreDeclared) {
  PowerList& states = list(
      TabType::PS, "PS_STATE_SUMMARY", "DOMAIN",
      {{"Low Power Domain", 1.0f}, {"Full Power Domain", 2.0f}, {"Platform Management Controller", 0.5f}});
  list(TabType::NOC_DDRMC, "UTILIZATION", "TYPE",
       {{"NoC", 0.25f}, {"NoC Clock Buffers", 0.125f}, {"DDRMC", 3.0f}, {"HBMMC", 4.0f}});
  m_device->settle();
  const std::pair<const char*, float> cases[] = {
      {"LPD", 1.0f}, {"FPD", 2.0f}, {"PMC", 0.5f}, {"NoC", 0.375f}, {"Hard MC", 3.0f}};
  for (const auto& [row, watts] : cases) EXPECT_EQ(numberIn(dynamic(row)), watts) << row;
  EXPECT_FLOAT_EQ(Summary::getFpgaDynamicPower(uid()), 6.875f);
  edit(states.power(2), 12.0f);
  EXPECT_EQ(numberIn(dynamic("FPD")), 12.0f);
  EXPECT_FLOAT_EQ(Summary::getPower(uid(), "DYNAMIC"), 16.875f);
}

TEST_F(OnchipBook, ANewerMemoryControllerTakesThePlaceOfTheOlder) {
  list(TabType::NOC_DDRMC, "UTILIZATION", "TYPE", {{"DDRMC", 3.0f}, {"DDRMC5C", 7.0f}});
  m_device->settle();
  EXPECT_EQ(numberIn(dynamic("Hard MC")), 7.0f);
}

TEST_F(OnchipBook, RowsWithoutTheirTabCountNothing) {
  book()->getTab(TabType::PS)->setIsEnabled(false);
  m_device->settle();
  for (const char* row : {"LPD", "PMC"}) {
    EXPECT_EQ(textIn(dynamic(row)), KVXMHelperUtils::ToString(kvxeBlank<float>)) << row;
    EXPECT_TRUE(isShown(dynamic(row))) << row;
  }
  for (const char* row : {"Other", "PCIE"}) {
    EXPECT_EQ(numberIn(dynamic(row)), 0.0f) << row;
    EXPECT_FALSE(isShown(dynamic(row))) << row;
  }
  for (const char* category : {"Programmable Logic", "Hard IP"}) {
    EXPECT_TRUE(isShown(dynamic(category)));
    EXPECT_EQ(
        textIn(onchip(Summary::m_onchipDynamicTableHeader, category, Summary::m_onchipPowerPercentageColumn)),
        KVXMHelperUtils::ToString(kvxeBlank<float>));
  }
}

TEST_F(OnchipBook, RowsFollowTheDevice) {
  struct Case {
    const char* device;
    std::vector<const char*> shown, hidden, shownStatic, hiddenStatic;
  };
  const Case cases[] = {
      {"AK1080",
       {"PS", "LPD", "FPD"},
       {"PSW", "LPD (PSW)", "MPRAM", "XCVRD"},
       {"PS+PMC", "MXE", "XCVRA", "NoC+DDRMC"},
       {"PSW", "MXE-ML", "XCVRD", "NoC+DDRMC5", "NoC+DDRMC5C"}},
      {"AN3060",
       {"PSW", "LPD (PSW)", "FPD (PSW)"},
       {"PS", "LPD", "FPD", "HIC5"},
       {"PSW", "XCVRD", "NoC+DDRMC5C"},
       {"PS+PMC", "MXE", "NoC+DDRMC", "XCVRA"}},
      {"AE2060", {"PS"}, {"PSW"}, {"MXE-ML", "NoC+DDRMC5", "XCVRs"}, {"MXE", "NoC+DDRMC", "XCVRC"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.device);
    select(c.device);
    for (const char* row : c.shown) EXPECT_TRUE(isShown(dynamic(row))) << row;
    for (const char* row : c.hidden) EXPECT_FALSE(isShown(dynamic(row))) << row;
    for (const char* row : c.shownStatic) EXPECT_TRUE(isShown(leakage(row))) << row;
    for (const char* row : c.hiddenStatic) EXPECT_FALSE(isShown(leakage(row))) << row;
  }
}

/// On every device the rows are the whole of what the static model says, whatever rows the device has.
TEST_F(OnchipBook, PartsAddUp) {
  for (const kvxm::Architecture architecture : {kvxm::Architecture::Tarvek, kvxm::Architecture::Morlan}) {
    build(architecture == kvxm::Architecture::Tarvek ? KVXEPartSelection::m_arkeonArchName
                                                     : KVXEPartSelection::m_morlanArchName);
    for (const kvxm::Device& device : kvxm::DeviceCatalogue::getGlobal().devices()) {
      if (device.architecture != architecture) continue;
      SCOPED_TRACE(device.name);
      select(device.name);
      useLogic();
      const float leaked = Summary::getFpgaStaticPower(uid());
      const float active = Summary::getFpgaDynamicPower(uid());
      EXPECT_GT(active, 0.1f);
      EXPECT_NEAR(leaked, KVXEPowerDesignTab::getOnChipStaticPower(uid()), leaked * 1e-5f);
      EXPECT_FLOAT_EQ(Summary::getPower(uid(), "TOTAL"), leaked + active);
      EXPECT_NEAR(numberIn(summary(Summary::m_onChipPowerStr)),
                  leaked + active + (Summary::hasHbm() ? Summary::getHbmPower(uid()) : 0.0f), 0.0006f);
      double percent = 0.0;
      for (const KVXETitle* title :
           {&Summary::m_onchipStaticTableHeader, &Summary::m_onchipDynamicTableHeader})
        percent += tab()->sumColumn(title, &Summary::m_onchipPowerPercentageColumn);
      if (!Summary::hasHbm()) {
        EXPECT_NEAR(percent, 100.0, 0.2);
      }
    }
  }
}

TEST_F(OnchipBook, ListsOfTheTables) {
  EXPECT_THAT(Summary::getDynamicCompList("I/O"), ElementsAre("Interface", "Hard MC"));
  EXPECT_EQ(Summary::getStaticCompList(), (std::vector<std::string>{"Static", "XCVRs"}));
  EXPECT_EQ(Summary::getDynamicPowerSummaryListSize() + 1,
            table(Summary::m_onchipDynamicTableHeader)->getRowCount());
  EXPECT_EQ(Summary::getStaticPowerSummaryListSize() + 1,
            table(Summary::m_onchipStaticTableHeader)->getRowCount());
  const std::tuple<const char*, unsigned int, bool> levels[] = {
      {"PMC", 0, false}, {"PS", 0, true}, {"LPD", 1, false}, {"Clocking", 1, false}, {"nothing", 0, false}};
  for (const auto& [text, level, isCategory] : levels) {
    EXPECT_EQ(Summary::getDynamicIndentLevel(text), level) << text;
    EXPECT_EQ(Summary::isCategoryStr(text), isCategory) << text;
  }
  EXPECT_EQ(Summary::getStaticIndentLevel("XCVRs"), 0u);
  EXPECT_EQ(Summary::getStaticIndentLevel("XCVRA"), 1u);
  Captured captured;
  EXPECT_THAT(Summary::getDynamicCompList("nothing"), IsEmpty());
  EXPECT_EQ(captured.text(), "Error: Empty Comp Vector. Look at the m_dynamicPowerSummaryMap\n");
}

TEST_F(OnchipBook, ResourcesAreThoseOfTheDevice) {
  for (const char* device : {"AK1020", "AN3120", "AK1080"}) {
    select(device);
    std::map<std::string, int> expected, found;
    KVXEPartSelection::getGlobal()->getResources(expected);
    KVXETable* resources = table(Summary::m_resourceTable);
    for (unsigned int i = 1; i < resources->getRowCount(); ++i) {
      if (!isShown(resources->getCellAt(i, 0u))) continue;
      found[textIn(resources->getCellAt(i, &Summary::m_resourceTypeColumn))] =
          KVXMHelperUtils::s2iStrict(textIn(resources->getCellAt(i, &Summary::m_resourceAvailCountColumn)));
    }
    EXPECT_EQ(found, expected) << device;
  }
}

TEST(SummaryReaders, WithoutTablesReportAndGiveZero) {
  KVXEBook* book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook(KVXEPartSelection::m_arkeonArchName);
  const KVXEUID uid(book);
  Captured captured;
  EXPECT_EQ(KVXESummaryTab::getFpgaTotalPower(uid), 0.0f);
  EXPECT_EQ(KVXESummaryTab::getFpgaDynamicPower(uid), 0.0f);
  EXPECT_EQ(captured.text(),
            "Error: error occured in KVXESummaryTab::getFpgaTotalPower.\n"
            "Error: error occured in KVXESummaryTab::getFpgaDynamicPower.\n");
  EXPECT_EQ(KVXESummaryTab::getPower(uid, "TOTAL"), 0.0f);
  EXPECT_EQ(KVXESummaryTab::getCalculatedJunctionTemp(uid), 25.0f);
  KVXEBookMgr::getGlobal().closeProject();
}

}  // namespace
