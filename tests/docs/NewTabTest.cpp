// The tab of docs/new-tab.md in a real book. Factory, summary and configuration layer of Tarvek have tables
// in which a tab is one line; here these lines stand in classes derived from them.

#include "engine/base/config/ConfigMgr.inl"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXETabMaker.h"
#include "engine/tarvek/KVXETarvekSummaryTab.h"
#include "engine/tarvek/KVXETarvekTabFactory.h"
#include "tests/docs/new_tab/KVXETarvekSysmonTab.h"
#include "tests/docs/new_tab/SysmonConfig.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;
using enum TabType;
using Sysmon = KVXETarvekSysmonTab;
using kvxe::SysmonConfig;

namespace {

template <class T>
std::vector<T> joined(std::span<const T> most, std::span<const T> further) {
  std::vector<T> all(most.begin(), most.end());
  all.insert(all.end(), further.begin(), further.end());
  return all;
}

class SummaryWithMonitors : public KVXETarvekSummaryTab {
 public:
  using KVXETarvekSummaryTab::KVXETarvekSummaryTab;

 protected:
  std::span<const kvxe::OnchipCategory> dynamicCategories() const override {
    static const kvxe::OnchipCategory further[] = {
        {"SYSMON", {{"SYSMON"}}},
    };
    static const auto all = joined<kvxe::OnchipCategory>(KVXETarvekSummaryTab::dynamicCategories(), further);
    return all;
  }
  std::span<const kvxe::OnchipSource> dynamicSources() const override {
    static const kvxe::OnchipSource further[] = {
        {"SYSMON", SYSMON},
    };
    static const auto all = joined<kvxe::OnchipSource>(KVXETarvekSummaryTab::dynamicSources(), further);
    return all;
  }
};

const KVXETabMaker makers[] = {
    {TabType::SUMMARY, &makeTab<SummaryWithMonitors>},
    {TabType::SYSMON, &makeTab<KVXETarvekSysmonTab>},
};

class FactoryWithMonitors : public KVXETarvekTabFactory {
 public:
  using KVXETarvekTabFactory::KVXETarvekTabFactory;
  KVXETab* createTab(TabType type) override {
    if (auto tab = makeFrom(makers, m_book, type)) return tab.release();
    return KVXETarvekTabFactory::createTab(type);
  }
};

struct Tutorial {};

}  // namespace

// Takes the place of the engine's in this program, so that its books are made with the factory above.
std::unique_ptr<KVXETabFactory> KVXETabFactory::createFor(const std::string&, KVXEBook* book) {
  return std::make_unique<FactoryWithMonitors>(book);
}

template <>
void kvxe::ConfigMgr::initIfcs<Tutorial>(ConfigMgr& mgr) {
  mgr.constructConfigIfc<Tutorial, SysmonConfig>();
}

namespace {

class NewTab : public ::testing::Test {
 protected:
  void SetUp() override {
    book.book()->getOrCreateTab(SYSMON);
    book.trim(3);
  }
  KVXETab* tab() { return book.book()->getTab(SYSMON); }
  KVXECell* cell(unsigned int row, const KVXETitle& column) {
    return tab()->getTable(&Sysmon::m_SysmonTable)->getCellAt(row, &column);
  }
  float power(unsigned int row) { return numberIn(cell(row, Sysmon::m_VccintPower)); }
  float summary(const std::string& row) {
    return numberIn(book.cell(SUMMARY, KVXESummaryTab::m_onchipDynamicTableHeader, row,
                              KVXESummaryTab::m_onchipResourceColumn, KVXESummaryTab::m_onchipPowerColumn));
  }
  float used(const KVXETitle& column) {
    return numberIn(book.cell(SYSMON, KVXETab::m_UtilTable, "Monitors", KVXETab::m_TypeColumn, column));
  }
  /// Calculates what was put in, and checks that a full calculation finds the same.
  void calculate() {
    KVXECalculationMgr::getGlobal().incrCalculate();
    const Captured out;
    EXPECT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull()) << out.text();
    KVXECellStateMgr::getGlobal().markGuiClean();
  }
  void use(unsigned int row, int monitors, const char* clock) {
    book.put(cell(row, Sysmon::m_Monitors), monitors);
    book.put(cell(row, Sysmon::m_Clock), std::string(clock));
    calculate();
  }

  DeviceBook book{KVXEPartSelection::m_arkeonArchName};
};

TEST_F(NewTab, ItsPowerReachesRailsAndSummary) {
  EXPECT_EQ(summary("SYSMON"), 0.0f);
  use(1, 4, "200.000 MHz (sense)");
  use(2, 4, "");
  use(3, 0, "200.000 MHz (sense)");
  ASSERT_GT(power(1), 1e-5f);
  EXPECT_LT(power(1), 1e-2f);
  EXPECT_TRUE(std::isnan(power(2)) && std::isnan(power(3)));
  use(2, 2, "200.000 MHz (sense)");
  float watts = 0.0f;
  ASSERT_TRUE(tab()->getTabActivePower(watts));
  EXPECT_FLOAT_EQ(watts, 1.5f * power(1));
  EXPECT_FLOAT_EQ(summary("SYSMON"), watts);
  const float amperes = numberIn(book.cell(POWER_DESIGN, KVXETab::m_powerSupplyTable, "VCCINT",
                                           KVXETab::m_internalSupplyColumn, KVXETab::m_dynamicCurrentColumn));
  const float volts = numberIn(book.cell(POWER_DESIGN, KVXETab::m_powerSupplyTable, "VCCINT",
                                         KVXETab::m_internalSupplyColumn, KVXETab::m_voltageColumn));
  EXPECT_NEAR(amperes * volts, watts, 1e-3f * watts);
}

TEST_F(NewTab, CountsItsUse) {
  use(1, static_cast<int>(used(KVXETab::m_AvailColumn)), "");
  EXPECT_EQ(used(KVXETab::m_UtilColumn), 1.0f);
  const KVXECell* share =
      book.cell(SYSMON, KVXETab::m_UtilTable, "Monitors", KVXETab::m_TypeColumn, KVXETab::m_UtilColumn);
  EXPECT_EQ(share->getSeverity(), KvxSeverity::NONE);
  use(2, 1, "");
  EXPECT_EQ(share->getSeverity(), KvxSeverity::WARNING);
}

TEST_F(NewTab, ItsRowsAreRecords) {
  auto& mgr = kvxe::ConfigMgr::getGlobal<Tutorial>();
  mgr.reset<Tutorial>(book.book());
  const auto modules = mgr.getConfigIfc<SysmonConfig>();
  ASSERT_TRUE(modules);
  ASSERT_TRUE(modules->populate({.name = "core", .monitors = 4, .clock = "200.000 MHz (sense)"},
                                kvxe::PopulatePolicy::DefaultEditable));
  calculate();
  EXPECT_GT(power(1), 0.0f);
  const auto read = modules->get("core");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->monitors, 4);
  EXPECT_EQ(modules->getDefault().monitors, kvxeBlank<int>);
  EXPECT_TRUE(modules->remove("core"));
  calculate();
  EXPECT_TRUE(std::isnan(power(1)));
}

}  // namespace
