#include <memory>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"

using namespace ::testing;
using namespace KVXEEnums;
using Clock = KVXEClockTab;

namespace {

/// The clock tab of a whole book, as a user fills its clock manager table.
class ManagerBook : public Test {
 protected:
  void open(const std::string& arch, const std::string& family = "") {
    m_book.reset();  // there is one book at a time
    m_book = std::make_unique<DeviceBook>(arch);
    m_book->trim(30);
    if (!family.empty()) {
      KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
      for (const std::string& part : selection->getAvailableParts())
        if (part.starts_with(family) && selection->selectPart(part, KVXEPartSelection::m_typStr)) break;
      ASSERT_TRUE(selection->getCurrentSetting(KVXEPartSelection::m_devStr).starts_with(family));
    }
    m_book->settle();
  }

  KVXETab* tab() { return m_book->book()->getTab(TabType::CLOCK); }
  KVXETable* managers() { return tab()->getTable(&Clock::m_ClkMgrTable); }
  KVXECell* manager(unsigned int row, const KVXETitle& column) { return managers()->getCellAt(row, &column); }
  KVXECell* clock(unsigned int row, const KVXETitle& column) {
    return tab()->getTable(&Clock::m_ClockConfigTable)->getCellAt(row, &column);
  }
  float watts(unsigned int row) { return numberIn(manager(row, Clock::m_Power)); }
  KVXECell* utilization(const std::string& type, const KVXETitle& column) {
    return m_book->cell(TabType::CLOCK, KVXETab::m_UtilTable, type, KVXETab::m_TypeColumn, column);
  }

  template <class T>
  void put(unsigned int row, const KVXETitle& column, const T& value) {
    m_book->put(manager(row, column), value);
  }
  void clear(unsigned int row, const KVXETitle& column) {
    manager(row, column)->setBlankAndState(CellState::DIRTY_DIRTY);
  }
  /// A manager whose oscillator runs at 1 GHz.
  void add(unsigned int row, const std::string& type) {
    put(row, Clock::m_Name, "mgr" + std::to_string(row));
    put(row, Clock::m_ClkMgrType, type);
    put(row, Clock::m_RefClock, 100.0f);
    put(row, Clock::m_DivideCounter, 1);
    put(row, Clock::m_MultiplyCounter, 10);
    put(row, Clock::m_Clk0Divide, 5);
  }
  std::vector<std::string> offered(KVXECell* cell) {
    std::vector<std::string> list;
    cell->getDDVals(list);
    return list;
  }
  /// Opens a book with a row for each type that it offers.
  void openWithAllTypes(const std::string& arch, const std::string& family) {
    open(arch, family);
    unsigned int row = 0;
    for (const std::string& type : offered(manager(1, Clock::m_ClkMgrType))) add(++row, type);
    m_typeCount = row;
    ASSERT_GE(row, 2u);
    calculateEdits();
  }

  std::unique_ptr<DeviceBook> m_book;
  unsigned int m_typeCount = 0;
};

struct Device {
  std::string arch, family;
  std::vector<std::string> types;
  const char* typeToolTip;
};

class Managers : public ManagerBook, public WithParamInterface<Device> {};
INSTANTIATE_TEST_SUITE_P(
    Devices, Managers,
    Values(Device{"Arkeon",
                  "AK1080",
                  {"FSYN", "IOPLL", "DPLL"},
                  "<html>The clock manager type: FSYN, IOPLL or DPLL</html>"},
           Device{"Arkeon",
                  "AN3060",
                  {"FSYN", "Y7PLL", "DPLL"},
                  "<html>The clock manager type: FSYN, Y7PLL or DPLL</html>"},
           Device{"Hexaline+", "HB240", {"FSYN", "PLL"}, "<html>The clock manager type: FSYN or PLL</html>"},
           Device{"Ludra", "", {"FSYN", "PLL"}, "<html>The clock manager type: FSYN or PLL</html>"}),
    [](const auto& param) { return "Device" + std::to_string(param.index); });

TEST_P(Managers, OfferTheTypesOfTheDevice) {
  open(GetParam().arch, GetParam().family);
  EXPECT_EQ(offered(manager(7, Clock::m_ClkMgrType)), GetParam().types);
  KVXEHeaderRow* header = managers()->getHeaderRow();
  KVXECell* head = header->getDisplayCell(header->getTitleToIndex(&Clock::m_ClkMgrType));
  ASSERT_TRUE(head->getMsg());
  EXPECT_EQ(head->getMsg()->getDisplayText(), GetParam().typeToolTip);
}

TEST_P(Managers, DrawTheirPowerFromTheRailsOfTheTab) {
  openWithAllTypes(GetParam().arch, GetParam().family);
  float sum = 0.0f, active = 0.0f;
  for (unsigned int row = 1; row <= m_typeCount; ++row) {
    EXPECT_GT(watts(row), 0.003f) << textIn(manager(row, Clock::m_ClkMgrType));
    EXPECT_LT(watts(row), 0.06f);
    sum += watts(row);
  }
  KVXETable* power = tab()->getTable(&KVXETab::m_PowerTable);
  float rails = 0.0f;
  for (unsigned int i = 1; i + 1 < power->getRowCount(); ++i)
    rails += numberIn(power->getCellAt(i, &KVXETab::m_ActivePowerColumn));
  EXPECT_FLOAT_EQ(rails, sum);
  ASSERT_TRUE(tab()->getTabActivePower(active));
  EXPECT_FLOAT_EQ(active, sum);
  for (const std::string& type : GetParam().types) {
    EXPECT_EQ(numberIn(utilization(type, KVXETab::m_UsedColumn)), 1.0f) << type;
    EXPECT_GT(numberIn(utilization(type, KVXETab::m_AvailColumn)), 2.0f) << type;
  }
}

TEST_P(Managers, AreBlankWithoutAReferenceOrARunningOscillator) {
  openWithAllTypes(GetParam().arch, GetParam().family);
  const KVXETitle* const needed[] = {&Clock::m_RefClock, &Clock::m_ClkMgrType, &Clock::m_DivideCounter,
                                     &Clock::m_MultiplyCounter};
  for (const KVXETitle* column : needed) {
    for (unsigned int row = 1; row <= m_typeCount; ++row) clear(row, *column);
    calculateEdits();
    for (unsigned int row = 1; row <= m_typeCount; ++row)
      for (const KVXETitle* result : {&Clock::m_Power, &Clock::m_VccintPwr, &Clock::m_VccauxPwr})
        EXPECT_TRUE(std::isnan(numberIn(manager(row, *result)))) << column->getDisplayTag(false);
    for (unsigned int row = 1; row <= m_typeCount; ++row) add(row, GetParam().types[row - 1]);
    calculateEdits();
    EXPECT_GT(watts(1), 0.0f);
  }
  put(1, Clock::m_RefClock, 0.0f);
  calculateEdits();
  EXPECT_TRUE(std::isnan(watts(1)));
}

TEST_P(Managers, PassOnOnlyTheOutputsThatTheTypeHas) {
  openWithAllTypes(GetParam().arch, GetParam().family);
  const KVXETitle* const divides[] = {&Clock::m_Clk0Divide, &Clock::m_Clk1Divide, &Clock::m_Clk2Divide,
                                      &Clock::m_Clk3Divide, &Clock::m_Clk4Divide, &Clock::m_Clk5Divide,
                                      &Clock::m_Clk6Divide};
  const std::map<std::string, int> outputs = {
      {"FSYN", 7}, {"DPLL", 4}, {"IOPLL", 3}, {"Y7PLL", 3}, {"PLL", 3}};
  for (unsigned int row = 1; row <= m_typeCount; ++row) {
    const std::string type = textIn(manager(row, Clock::m_ClkMgrType));
    for (int i = 1; i < 7; ++i) {
      const float before = watts(row);
      put(row, *divides[i], 3);
      calculateEdits();
      EXPECT_EQ(watts(row) > before, i < outputs.at(type)) << type << " output " << i;
    }
  }
}

TEST_P(Managers, WarnAboveTheDeviceAndNoLonger) {
  open(GetParam().arch, GetParam().family);
  for (const std::string& type : GetParam().types) {
    const float available = numberIn(utilization(type, KVXETab::m_AvailColumn));
    const auto count = static_cast<unsigned int>(available);
    if (count + 1 >= managers()->getRowCount()) continue;  // the table was cut for the test
    for (unsigned int row = 1; row <= count + 1; ++row) {
      put(row, Clock::m_Name, "m" + std::to_string(row));
      put(row, Clock::m_ClkMgrType, type);
    }
    calculateEdits();
    KVXECell* share = utilization(type, KVXETab::m_UtilColumn);
    ASSERT_TRUE(share->getMsg()) << type;
    EXPECT_EQ(share->getSeverity(), KvxSeverity::WARNING);
    EXPECT_EQ(share->getMsg()->getDisplayText(),
              "<html>" + type +
                  " utilization exceeds 100%.\nPlease review the usage in Clock Managers table.</html>");
    clear(1, Clock::m_Name);
    if (GetParam().arch != "Arkeon") clear(1, Clock::m_ClkMgrType);  // or the row gets a name of its own
    calculateEdits();
    EXPECT_FALSE(share->getMsg()) << type;
    EXPECT_FLOAT_EQ(numberIn(share), 1.0f);
    for (unsigned int row = 1; row <= count + 1; ++row) {
      clear(row, Clock::m_ClkMgrType);
      clear(row, Clock::m_Name);
    }
  }
}

TEST_F(ManagerBook, ShowsTheOscillatorAndWarnsOutsideItsRange) {
  for (const char* arch : {"Arkeon", "Hexaline+"}) {
    open(arch);
    add(1, "FSYN");
    calculateEdits();
    KVXECell* vco = manager(1, Clock::m_VcoFreq);
    EXPECT_FLOAT_EQ(numberIn(vco), 1000.0f);
    EXPECT_FALSE(vco->getMsg());
    for (const auto& [divide, multiply, expected] :
         {std::tuple{2, 5, 250.0f}, std::tuple{1, 64, 6400.0f}, std::tuple{128, 1, 0.78125f}}) {
      put(1, Clock::m_DivideCounter, divide);
      put(1, Clock::m_MultiplyCounter, multiply);
      calculateEdits();
      EXPECT_FLOAT_EQ(numberIn(vco), expected);
      EXPECT_EQ(vco->getSeverity(), KvxSeverity::WARNING);
    }
    add(1, "FSYN");
    calculateEdits();
    EXPECT_FALSE(vco->getMsg());
    clear(1, Clock::m_MultiplyCounter);
    calculateEdits();
    EXPECT_TRUE(std::isnan(numberIn(vco)));
  }
}

TEST_F(ManagerBook, FollowsTheVoltagesOfThePowerDesign) {
  open("Arkeon", "AK1080");
  add(1, "FSYN");
  calculateEdits();
  const float before = numberIn(manager(1, Clock::m_VccintPwr));
  KVXECell* volts = m_book->cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable, "VCCINT",
                                 KVXETab::m_internalSupplyColumn, KVXETab::m_voltageColumn);
  const float nominal = numberIn(volts);
  m_book->put(volts, nominal * 1.02f);
  calculateEdits();
  EXPECT_NEAR(numberIn(manager(1, Clock::m_VccintPwr)), 1.02 * 1.02 * before, 1e-4 * before);
}

TEST_F(ManagerBook, LetsAnOutputClockHaveASourceOfItsOwn) {
  open("Arkeon");
  m_book->put(clock(1, Clock::m_Source), std::string("FSYN:mgr1:clk_out1"));
  m_book->put(clock(2, Clock::m_Source), std::string("Somewhere"));
  calculateEdits();
  EXPECT_THAT(offered(clock(1, Clock::m_Source)), ElementsAre("External", "Internal", "FSYN:mgr1:clk_out1"));
  EXPECT_THAT(offered(clock(2, Clock::m_Source)), ElementsAre("External", "Internal"));
  m_book->put(clock(1, Clock::m_Source), std::string("Internal"));
  calculateEdits();
  EXPECT_THAT(offered(clock(1, Clock::m_Source)), ElementsAre("External", "Internal"));
}

TEST_F(ManagerBook, OffersTheClocksOfTheOlderDeviceAsReferences) {
  open("Hexaline+");
  const float megahertz[] = {100.0f, 33.3333f, 100.0f};
  for (unsigned int row = 1; row <= 3; ++row) m_book->put(clock(row, Clock::m_ClockFreq), megahertz[row - 1]);
  add(1, "FSYN");
  calculateEdits();
  const auto* list = static_cast<KVXEFloatCell*>(manager(1, Clock::m_RefClock));
  EXPECT_THAT(list->getDDVals(), ElementsAre(100.0f, 33.3333f));
  manager(1, Clock::m_RefClock)->addDDErrorMsgIfApplicable();
  EXPECT_FALSE(manager(1, Clock::m_RefClock)->getMsg());
  m_book->put(clock(1, Clock::m_ClockFreq), 50.0f);
  m_book->put(clock(3, Clock::m_ClockFreq), 50.0f);
  calculateEdits();
  manager(1, Clock::m_RefClock)->addDDErrorMsgIfApplicable();
  EXPECT_EQ(manager(1, Clock::m_RefClock)->getSeverity(), KvxSeverity::ERROR);
}

TEST_F(ManagerBook, NamesTheManagersOfTheOlderDeviceAndKnowsWhatTheyShift) {
  open("Hexaline+");
  put(2, Clock::m_Name, std::string("clkmgr_1"));
  put(3, Clock::m_ClkMgrType, std::string("PLL"));
  put(4, Clock::m_ClkMgrType, std::string("FSYN"));
  calculateEdits();
  EXPECT_EQ(textIn(manager(1, Clock::m_Name)), "");
  EXPECT_EQ(textIn(manager(3, Clock::m_Name)), "clkmgr_2");
  EXPECT_EQ(textIn(manager(4, Clock::m_Name)), "clkmgr_3");
  EXPECT_THAT(offered(manager(3, Clock::m_PhaseShift)), ElementsAre("None"));
  EXPECT_THAT(offered(manager(4, Clock::m_PhaseShift)), ElementsAre("None", "Fixed", "Dynamic"));
  put(3, Clock::m_ClkMgrType, std::string("FSYN"));
  calculateEdits();
  EXPECT_THAT(offered(manager(3, Clock::m_PhaseShift)), ElementsAre("None", "Fixed", "Dynamic"));
}

TEST_F(ManagerBook, StandsInItsOwnWidgetWithItsColumnsInOrder) {
  open("Arkeon");
  std::vector<std::string> tags;
  for (unsigned int i = 1; i < managers()->getColumnCount(); ++i)
    tags.push_back(managers()->getHeaderRow()->getIndexToTitle(i)->getTag(TitleType::SW));
  EXPECT_THAT(
      tags, ElementsAre("NAME", "CLKMGR_TYPE", "REF_CLOCK", "VCO_FREQUENCY", "DIV_COUNTER", "MULT_COUNTER",
                        "VCCINTIO_POWER", "VCCINT_POWER", "VCCAUX_POWER", "VCCRAM_POWER", "POWER",
                        "PHASE_SHIFT", "CLK0DIV", "CLK1DIV", "CLK2DIV", "CLK3DIV", "CLK4DIV", "CLK5DIV",
                        "CLK6DIV", "CLK0FORow", "CLK1FORow", "CLK2FORow", "CLK3FORow", "CLK4FORow",
                        "CLK5FORow", "CLK6FORow", "INPUT_CLOCK", "OUTPUT_CLOCKS", "POWER_DOWN", "VCO_RANGE"));
  KVXEHeaderRow* header = managers()->getHeaderRow();
  for (const auto& [title, text] :
       {std::pair{
            &Clock::m_Clk2Divide,
            "<html>The Clock 2 output divide value [1-128]. Set the value to blank to denote Off.</html>"},
        std::pair{&Clock::m_Clk3Divide,
                  "<html>The Clock 3 output divide value [1-128]. Set the value to blank to denote Off. This "
                  "is only applicable to FSYN.</html>"}}) {
    KVXECell* head = header->getDisplayCell(header->getTitleToIndex(title));
    EXPECT_EQ(head->getMsg()->getDisplayText(), text);
  }
}

}  // namespace
