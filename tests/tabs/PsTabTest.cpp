// The processing system of real books, and the power management that looks at it.

#include "engine/base/tabs/KVXEPsTab.h"

#include <memory>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "engine/tarvek/KVXETarvekPwrManagementTab.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"

using namespace ::testing;
using namespace KVXEEnums;
using Ps = KVXEPsTab;
using Summary = KVXESummaryTab;
using Management = KVXETarvekPwrManagementTab;
using Clock = KVXEClockTab;

namespace {

class PsBook : public Test {
 protected:
  void open(const std::string& arch, const std::string& device) {
    m_book.reset();  // there is one book at a time
    m_book = std::make_unique<DeviceBook>(arch);
    select(device);
  }
  void select(const std::string& prefix) {
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    for (const std::string& part : selection->getAvailableParts())
      if (part.starts_with(prefix) && selection->selectPart(part, KVXEPartSelection::m_typStr)) break;
    ASSERT_TRUE(selection->getSelectedDeviceName().starts_with(prefix.substr(0, 3))) << prefix;
    selection->redrawTabs(true);
    m_book->trim(20);
  }

  KVXETab* tab() { return m_book->book()->getTab(TabType::PS); }
  KVXECell* block(const std::string& name, const KVXETitle& column) {
    for (const KVXETitle* table : {&Ps::m_PsProcessorTable, &Ps::m_PsPeripheralTable, &Ps::m_PsPllTable})
      if (KVXECell* cell = tab()->lookup<std::string>(table, name, &Ps::m_Block, &column, false)) return cell;
    ADD_FAILURE() << "no block " << name;
    return nullptr;
  }
  KVXECell* domain(const std::string& name, const KVXETitle& column = Ps::m_PsStateSummaryPowerCol) {
    return m_book->cell(TabType::PS, Ps::m_PsStateSummaryTable, name, Ps::m_PsStateSummaryDomainCol, column);
  }
  KVXECell* memory(const std::string& option) {
    return m_book->cell(TabType::PS, Ps::m_PsMemoryTable, option, Ps::m_MemoryOption, Ps::m_MemorySelection);
  }
  float watts(const std::string& rail) {
    return numberIn(m_book->cell(TabType::PS, KVXETab::m_PowerTable, rail, KVXETab::m_InternalRailColumn,
                                 KVXETab::m_ActivePowerColumn));
  }
  float onchip(const std::string& row) {
    const bool isModule = !m_book->table(TabType::SUMMARY, "ONCHIP_DYNAMIC_HEADER");
    return numberIn(m_book->cell(
        TabType::SUMMARY, isModule ? Summary::m_onchipTableHeader : Summary::m_onchipDynamicTableHeader, row,
        Summary::m_onchipResourceColumn, Summary::m_onchipPowerColumn));
  }
  void use(const std::string& name, int count) { m_book->put(block(name, Ps::m_Count), count); }
  /// All there is, and any memory that the list offers.
  void useEverything() {
    for (const KVXETitle* title : {&Ps::m_PsProcessorTable, &Ps::m_PsPeripheralTable, &Ps::m_PsPllTable}) {
      KVXETable* table = tab()->getTable(title);
      for (unsigned int row = 1; row < table->getRowCount(); ++row) {
        std::vector<std::string> counts;
        table->getCellAt(row, &Ps::m_Count)->getDDVals(counts);
        m_book->put(table->getCellAt(row, &Ps::m_Count), static_cast<int>(counts.size()) - 1);
      }
    }
    std::vector<std::string> types;
    if (!tab()->getTable(&Ps::m_PsMemoryTable)) return;
    memory(Ps::m_memoryTypeStr)->getDDVals(types);
    m_book->put(memory(Ps::m_memoryTypeStr), types.back());
  }

  std::unique_ptr<DeviceBook> m_book;
};

struct Device {
  std::string arch, name;
  std::vector<std::string> domains;
};

class PsTab : public PsBook, public WithParamInterface<Device> {
 protected:
  void SetUp() override { open(GetParam().arch, GetParam().name); }
};
const std::vector<std::string> tarvekDomains{Ps::m_pmcStr, Ps::m_lpdStr, Ps::m_fpdStr};
const std::vector<std::string> morlanDomains{Ps::m_lpdStr, Ps::m_fpdStr, Ps::m_batteryStr};
INSTANTIATE_TEST_SUITE_P(Devices, PsTab,
                         Values(Device{"Arkeon", "AK1080", tarvekDomains},
                                Device{"Arkeon", "AH4080", tarvekDomains},
                                Device{"Hexaline+", "HS440", morlanDomains},
                                Device{"Hexaline+", "HS210", morlanDomains},
                                Device{"Ludra", "SM6", morlanDomains}, Device{"Ludra", "SM4", morlanDomains}),
                         [](const auto& param) { return param.param.name; });

TEST_P(PsTab, HasItsDomainsAndUsesNothingAtFirst) {
  KVXETable* table = tab()->getTable(&Ps::m_PsStateSummaryTable);
  ASSERT_EQ(table->getRowCount(), GetParam().domains.size() + 1);
  for (unsigned int i = 0; i < GetParam().domains.size(); ++i) {
    EXPECT_EQ(textIn(table->getCellAt(i + 1, &Ps::m_PsStateSummaryDomainCol)), GetParam().domains[i]);
    EXPECT_EQ(numberIn(table->getCellAt(i + 1, &Ps::m_PsStateSummaryPowerCol)), 0.0f);
  }
  float total = -1.0f;
  EXPECT_TRUE(tab()->getTabActivePower(total));
  EXPECT_EQ(total, 0.0f);
  EXPECT_EQ(tab()->getTabSeverity(), 0);
}

TEST_P(PsTab, DrawsFromTheRailsWhatTheDomainsShow) {
  useEverything();
  calculateEdits();
  float total = 0.0f;
  ASSERT_TRUE(tab()->getTabActivePower(total));
  EXPECT_GT(total, 0.3f);
  double sum = 0.0;
  for (const std::string& name : GetParam().domains) {
    EXPECT_GT(numberIn(domain(name)), 0.0f) << name;
    sum += numberIn(domain(name));
  }
  EXPECT_NEAR(sum, total, 1e-6 * sum);

  double drawn = 0.0;
  const KVXETable* rails = tab()->getTable(&KVXETab::m_PowerTable);
  for (unsigned int row = 1; row + 1 < rails->getRowCount(); ++row) {
    const std::string rail = textIn(rails->getCellAt(row, &KVXETab::m_InternalRailColumn));
    EXPECT_GT(watts(rail), 0.0f) << rail << " feeds nothing";
    const auto supply = [&](const KVXETitle& column) {
      return static_cast<double>(numberIn(m_book->cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable,
                                                       rail, KVXETab::m_internalSupplyColumn, column)));
    };
    drawn += supply(KVXETab::m_voltageColumn) * supply(KVXETab::m_dynamicCurrentColumn);
  }
  EXPECT_NEAR(drawn, total, 1e-4 * total) << "the device has all the rails";
  EXPECT_FLOAT_EQ(onchip("LPD"), numberIn(domain(Ps::m_lpdStr)));
  EXPECT_FLOAT_EQ(onchip("FPD"), numberIn(domain(Ps::m_fpdStr)));
  if (GetParam().arch == "Arkeon") {
    EXPECT_FLOAT_EQ(onchip("PMC"), numberIn(domain(Ps::m_pmcStr)));
  }
}

TEST_P(PsTab, DrawsNothingFromADomainThatIsOff) {
  useEverything();
  calculateEdits();
  const float lpd = numberIn(domain(Ps::m_lpdStr));
  m_book->put(domain(Ps::m_fpdStr, Ps::m_PsStateSummaryStateCol), Ps::m_offStr);
  calculateEdits();
  EXPECT_EQ(numberIn(domain(Ps::m_fpdStr)), 0.0f);
  EXPECT_GT(numberIn(domain(Ps::m_lpdStr)), 0.0f);
  EXPECT_EQ(numberIn(domain(Ps::m_lpdStr)) == lpd, GetParam().arch == "Arkeon")
      << "only Morlan feeds PLLs of one domain from the other";
  EXPECT_EQ(block("Application Processors", KVXETab::m_Power)->getSeverity(), KvxSeverity::WARNING);
  m_book->put(domain(Ps::m_fpdStr, Ps::m_PsStateSummaryStateCol), Ps::m_onStr);
  calculateEdits();
  EXPECT_GT(numberIn(domain(Ps::m_fpdStr)), 0.0f);
  EXPECT_EQ(tab()->getTabSeverity(), 0);
  EXPECT_FALSE(domain(Ps::m_lpdStr, Ps::m_PsStateSummaryStateCol)->getIsEditable());
}

TEST_P(PsTab, FollowsCountFrequencyAndLoad) {
  const std::string cores = "Application Processors";
  KVXECell* power = block(cores, KVXETab::m_Power);
  EXPECT_TRUE(std::isnan(numberIn(power)));
  use(cores, 1);
  calculateEdits();
  const float one = numberIn(power);
  EXPECT_GT(one, 0.0f);
  use(cores, 2);
  calculateEdits();
  EXPECT_FLOAT_EQ(numberIn(power), 2 * one);
  m_book->put(block(cores, Ps::m_Load), 1.0f);
  calculateEdits();
  const float loaded = numberIn(power);
  EXPECT_GT(loaded, 2 * one);
  m_book->put(block(cores, Ps::m_Frequency), 600.0f);
  calculateEdits();
  EXPECT_LT(numberIn(power), loaded);
  use(cores, 7);
  calculateEdits();
  EXPECT_EQ(block(cores, Ps::m_Count)->getSeverity(), KvxSeverity::ERROR);
  EXPECT_TRUE(std::isnan(numberIn(power))) << "more than there are";
  use(cores, 2);
  calculateEdits();
  EXPECT_EQ(block(cores, Ps::m_Count)->getSeverity(), KvxSeverity::NONE);
  block(cores, Ps::m_Frequency)->setBlankAndState(CellState::DIRTY_DIRTY);
  calculateEdits();
  EXPECT_TRUE(std::isnan(numberIn(power))) << "no clock, no power";
}

TEST_P(PsTab, WarnsOfAFrequencyAboveTheSpeedGrade) {
  KVXECell* frequency = block("Application Processors", Ps::m_Frequency);
  for (const auto& [megahertz, severity] :
       {std::pair{5000.0f, KvxSeverity::WARNING}, {500.0f, KvxSeverity::NONE}}) {
    m_book->put(frequency, megahertz);
    calculateEdits();
    EXPECT_EQ(frequency->getSeverity(), severity) << megahertz;
  }
}

using PsDevices = PsBook;

TEST_F(PsDevices, HaveTheGraphicsProcessorsOfTheirKind) {
  open("Hexaline+", "HS440");
  use("Graphics Processors", 2);
  calculateEdits();
  EXPECT_GT(numberIn(block("Graphics Processors", KVXETab::m_Power)), 0.0f);
  select("HS210");
  use("Graphics Processors", 2);
  calculateEdits();
  EXPECT_TRUE(std::isnan(numberIn(block("Graphics Processors", KVXETab::m_Power))));
  EXPECT_EQ(block("Graphics Processors", Ps::m_Block)->getRow()->getVisibility(), Visibility::ALWAYS_HIDDEN);
}

TEST_F(PsDevices, WithoutOneHaveNoTab) {
  open("Hexaline+", "HB240");
  EXPECT_FALSE(tab() && tab()->getIsEnabled());
  open("Arkeon", "AN3060");
  EXPECT_FALSE(tab() && tab()->getIsEnabled());
}

TEST_F(PsDevices, ReachWhatTheirSpeedGradeAllows) {
  open("Hexaline+", "HS440");
  KVXECell* frequency = block("Application Processors", Ps::m_Frequency);
  KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  m_book->put(frequency, 1300.0f);
  int grades = 0;
  for (const std::string& part : selection->getAvailablePartsForSelectedFamily()) {
    if (!part.starts_with("HS440") || !selection->selectPart(part, KVXEPartSelection::m_typStr)) continue;
    m_book->settle();
    const std::string speed = selection->getCurrentSetting(KVXEPartSelection::m_spdGradeStr);
    EXPECT_EQ(frequency->getSeverity(), speed.starts_with("1") ? KvxSeverity::WARNING : KvxSeverity::NONE)
        << part;
    ++grades;
  }
  EXPECT_GT(grades, 1);
}

TEST_F(PsDevices, OfModulesTellTheBoardWhichMemoryRuns) {
  using Module = KVXESomMorlanSummaryTab;
  const struct {
    std::string name, type;
    const std::string& row;
    const KVXETitle& table;
  } modules[] = {{"SM6", "DDR4", Module::m_ddr4Str, Module::m_ThermalLoadingTable},
                 {"SM4", "LPDDR4", Module::m_lpddr4Str, Module::m_ThermalLoadingTableSM4}};
  for (const auto& [name, type, row, table] : modules) {
    SCOPED_TRACE(name);
    open("Ludra", name);
    const auto memoryWatts = [this, &heading = row, &title = table] {
      return numberIn(m_book->cell(TabType::SUMMARY, title, heading, Module::m_ThermalLoadingComponent,
                                   Module::m_ThermalLoadingPower));
    };
    std::vector<std::string> types;
    memory(Ps::m_memoryTypeStr)->getDDVals(types);
    EXPECT_THAT(types, ElementsAre("None", type));
    const float none = memoryWatts();
    EXPECT_EQ(textIn(memory(Ps::m_dataWidthStr)), "0");
    m_book->put(memory(Ps::m_memoryTypeStr), type);
    calculateEdits();
    EXPECT_GT(memoryWatts(), none);
    EXPECT_GT(watts("VCCOPSDDR"), 0.0f);
    const std::string widest = textIn(memory(Ps::m_dataWidthStr));
    EXPECT_THAT(widest, AnyOf("32", "64"));
    m_book->put(memory(Ps::m_dataWidthStr), std::string("16"));
    calculateEdits();
    EXPECT_EQ(textIn(memory(Ps::m_dataWidthStr)), "16") << "what the user enters stands";
    m_book->put(memory(Ps::m_memoryTypeStr), std::string("None"));
    calculateEdits();
    EXPECT_EQ(memoryWatts(), none) << "an unused width does not count";
    EXPECT_EQ(watts("VCCOPSDDR"), 0.0f);
    EXPECT_EQ(memory(Ps::m_dataWidthStr)->getSeverity(), KvxSeverity::ERROR) << "16 bits of no memory";
  }
}

TEST_F(PsDevices, OfModulesHaveTheirBatteryInTheTotal) {
  open("Ludra", "SM6");
  const KVXEUID uid(m_book->book()->getTab(TabType::SUMMARY));
  const float before = KVXESomMorlanSummaryTab::getSomTotalPower(uid);
  use("Real-Time Clock", 1);
  calculateEdits();
  EXPECT_GT(numberIn(domain(Ps::m_batteryStr)), 0.0f);
  EXPECT_NEAR(KVXESomMorlanSummaryTab::getSomTotalPower(uid), before + numberIn(domain(Ps::m_batteryStr)),
              1e-6f);
}

// Power management.

class PowerManagement : public PsBook {
 protected:
  void SetUp() override {
    open("Arkeon", "AK1080");
    for (const auto& [row, name, megahertz] : {std::tuple{1u, "fast", 400.0f}, {2u, "slow", 100.0f}}) {
      KVXETable* clocks = m_book->book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
      m_book->put(clocks->getCellAt(row, &Clock::m_Name), std::string(name));
      m_book->put(clocks->getCellAt(row, &Clock::m_ClockFreq), megahertz);
      m_book->put(clocks->getCellAt(row, &Clock::m_Fanout), 5000);
    }
    calculateEdits();
  }
  KVXECell* clock(unsigned int row, const KVXETitle& column) {
    return m_book->book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable)->getCellAt(row, &column);
  }
  KVXECell* managed(unsigned int row, const KVXETitle& column) {
    return m_book->book()
        ->getTable(TabType::POWER_MANAGEMENT, &Management::m_ClockDomainPwrTable)
        ->getCellAt(row, &column);
  }
  float saving(const std::string& measure) {
    return numberIn(m_book->cell(TabType::POWER_MANAGEMENT, Management::m_PotentialSavingsTable, measure,
                                 Management::m_Measure, Management::m_Saving));
  }
  float domainPower(const std::string& name) {
    return numberIn(m_book->cell(TabType::POWER_MANAGEMENT, Management::m_PwrManagementTable, name,
                                 Management::m_Domain, Management::m_DomainPower));
  }
  void manage(unsigned int row, unsigned int clockRow, bool isGated, std::optional<float> megahertz) {
    m_book->put(managed(row, Management::m_ClockTag), textIn(clock(clockRow, Clock::m_ClockTag)));
    m_book->put(managed(row, Management::m_GatedClock), isGated ? Management::m_yesStr : Management::m_noStr);
    if (megahertz) m_book->put(managed(row, Management::m_MinScaledFreq), *megahertz);
  }
};

TEST_F(PowerManagement, SavesByGatingAllAndByScalingInProportion) {
  manage(1, 1, true, 100.0f);
  manage(2, 2, false, 25.0f);
  manage(3, 2, false, std::nullopt);
  calculateEdits();
  const float fast = numberIn(clock(1, KVXETab::m_Power)), slow = numberIn(clock(2, KVXETab::m_Power));
  ASSERT_GT(fast, 0.0f);
  EXPECT_FLOAT_EQ(numberIn(managed(1, Management::m_ClockPower)), fast);
  EXPECT_EQ(numberIn(managed(1, Management::m_ManagedPower)), 0.0f);
  EXPECT_FLOAT_EQ(numberIn(managed(2, Management::m_ManagedPower)), 0.25f * slow);
  EXPECT_FLOAT_EQ(numberIn(managed(3, Management::m_ManagedPower)), slow);
  EXPECT_FLOAT_EQ(saving(Management::m_gatingStr), fast);
  EXPECT_FLOAT_EQ(saving(Management::m_scalingStr), 0.75f * slow);
  EXPECT_FLOAT_EQ(saving(Management::m_totalStr), fast + 0.75f * slow);
  EXPECT_FALSE(m_book->book()->getTab(TabType::POWER_MANAGEMENT)->getTable(&KVXETab::m_PowerTable))
      << "savings add to no total";
}

TEST_F(PowerManagement, WarnsOfAMinimumAboveTheFrequencyAndSavesNothing) {
  manage(1, 2, false, 101.0f);
  calculateEdits();
  EXPECT_EQ(managed(1, Management::m_ManagedPower)->getSeverity(), KvxSeverity::WARNING);
  EXPECT_EQ(saving(Management::m_totalStr), 0.0f);
  m_book->put(managed(1, Management::m_MinScaledFreq), 100.0f);
  calculateEdits();
  EXPECT_EQ(managed(1, Management::m_ManagedPower)->getSeverity(), KvxSeverity::NONE);
}

TEST_F(PowerManagement, FollowsAClockThatIsRenamedMovedLostAndFound) {
  manage(1, 2, true, std::nullopt);
  m_book->put(managed(2, Management::m_ClockTag), std::string("50.000 MHz (later)"));
  calculateEdits();
  const float slow = numberIn(clock(2, KVXETab::m_Power));
  m_book->put(clock(2, Clock::m_Name), std::string("renamed"));
  calculateEdits();
  EXPECT_EQ(textIn(managed(1, Management::m_ClockTag)), "100.000 MHz (renamed)");
  EXPECT_FLOAT_EQ(numberIn(managed(1, Management::m_ClockPower)), slow);
  EXPECT_TRUE(std::isnan(numberIn(managed(2, Management::m_ClockPower)))) << "no such clock yet";
  m_book->put(clock(3, Clock::m_Name), std::string("later"));
  m_book->put(clock(3, Clock::m_ClockFreq), 50.0f);
  m_book->put(clock(3, Clock::m_Fanout), 5000);
  calculateEdits();
  EXPECT_FLOAT_EQ(numberIn(managed(2, Management::m_ClockPower)), numberIn(clock(3, KVXETab::m_Power)));
  m_book->put(clock(2, Clock::m_Fanout), 9000);
  calculateEdits();
  EXPECT_GT(numberIn(managed(1, Management::m_ClockPower)), slow);
  clock(2, Clock::m_Name)->setBlankAndState(CellState::DIRTY_DIRTY);
  calculateEdits();
  EXPECT_TRUE(std::isnan(numberIn(managed(1, Management::m_ClockPower))));
}

TEST_F(PowerManagement, ShowsWhatTheDomainsDraw) {
  useEverything();
  calculateEdits();
  EXPECT_FLOAT_EQ(domainPower(Management::m_fpdStr), numberIn(domain(Ps::m_fpdStr)));
  EXPECT_FLOAT_EQ(domainPower(Management::m_pmcStr), numberIn(domain(Ps::m_pmcStr)));
  EXPECT_GT(domainPower(Management::m_logicStr), 0.0f);
}

TEST_F(PowerManagement, OffersTheClocksToEveryRow) {
  std::vector<std::string> offered;
  managed(4, Management::m_ClockTag)->getDDVals(offered);
  EXPECT_THAT(offered, ElementsAre("400.000 MHz (fast)", "100.000 MHz (slow)"));
}

}  // namespace
