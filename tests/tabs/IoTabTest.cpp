// The pins of real books: what they draw, from which rail, and what of it leaves the device.

#include "engine/base/tabs/KVXEIoTab.h"

#include <memory>

#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/som/KVXESomIoTab.h"
#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/ParamSwitch.h"

using namespace ::testing;
using namespace KVXEEnums;
using Io = KVXEIoTab;
using Som = KVXESomIoTab;

namespace {

const std::string sysClock = "200.000 MHz (sys)";

/// An interface as a user enters it; blank texts stay as they are.
struct Pins {
  std::string type = "", standard = "";
  int inputs = 0, outputs = 0, bidirs = 0;
  std::string inside = "", outside = "";
  std::string clock = sysClock;
};

class IoBook : public Test {
 protected:
  void open(const std::string& arch, const std::string& prefix, bool isTrimmed = true) {
    m_book.reset();  // there is one book at a time
    m_book = std::make_unique<DeviceBook>(arch);
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    for (const std::string& part : selection->getAvailableParts())
      if (part.starts_with(prefix) && selection->selectPart(part, KVXEPartSelection::m_typStr)) break;
    ASSERT_TRUE(selection->getSelectedDeviceName().starts_with(prefix)) << prefix;
    selection->redrawTabs(true);
    if (isTrimmed) m_book->trim(12);
    m_book->settle();
  }

  KVXETab* tab() { return m_book->book()->getTab(TabType::IO); }
  KVXETable* interfaces() { return tab()->getTable(&Io::m_IoConfigTable); }
  KVXECell* cell(unsigned int row, const KVXETitle& column) { return interfaces()->getCellAt(row, &column); }
  float number(unsigned int row, const KVXETitle& column) { return numberIn(cell(row, column)); }
  bool isBlank(unsigned int row, const KVXETitle& column) { return std::isnan(number(row, column)); }
  std::vector<std::string> offered(unsigned int row, const KVXETitle& column) {
    std::vector<std::string> list;
    cell(row, column)->getDDVals(list);
    return list;
  }
  KVXECell* utilization(const std::string& type, const KVXETitle& column) {
    return m_book->cell(TabType::IO, KVXETab::m_UtilTable, type, KVXETab::m_TypeColumn, column);
  }
  KVXECell* rail(const KVXETitle& table, const std::string& name,
                 const KVXETitle& column = KVXETab::m_ActivePowerColumn) {
    return m_book->cell(TabType::IO, table, name, KVXETab::m_InternalRailColumn, column);
  }
  KVXECell* supply(const std::string& name, const KVXETitle& column) {
    return m_book->cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable, name,
                        KVXETab::m_internalSupplyColumn, column);
  }
  float activePower() {
    float watts = -1.0f;
    EXPECT_TRUE(tab()->getTabActivePower(watts));
    return watts;
  }

  void put(unsigned int row, const Pins& pins) {
    const std::pair<const KVXETitle*, const std::string*> texts[] = {
        {&Io::m_IoType, &pins.type},
        {&Io::m_IoStandard, &pins.standard},
        {&Io::m_Clock, &pins.clock},
        {&Io::m_InputTermination, &pins.inside},
        {&Io::m_OutputTermination, &pins.outside}};
    for (const auto& [column, text] : texts)
      if (!text->empty()) m_book->put(cell(row, *column), *text);
    m_book->put(cell(row, Io::m_Inputs), pins.inputs);
    m_book->put(cell(row, Io::m_Outputs), pins.outputs);
    m_book->put(cell(row, Io::m_Bidirs), pins.bidirs);
  }
  void enter(unsigned int row, const Pins& pins) {
    put(row, pins);
    calculate();
  }
  /// Makes it a new row again.
  void clear(unsigned int row) {
    interfaces()->getRow(row)->resetDefaults();
    calculate();
  }
  /// Calculates what was put in, and checks that a full calculation finds the same.
  void calculate() {
    KVXECalculationMgr::getGlobal().incrCalculate();
    Captured captured;
    const bool isSame = KVXECalculationMgr::getGlobal().verifyIncrVsFull();
    KVXECellStateMgr::getGlobal().markGuiClean();
    EXPECT_TRUE(isSame) << captured.text();
  }

  std::unique_ptr<DeviceBook> m_book;
};

/// A device, with the kinds of its banks and a standard that only the second has.
struct Device {
  std::string arch, name;
  std::vector<std::string> types, resources;
  std::string terminated, differential;  ///< of the first kind
};

class IoTab : public IoBook, public WithParamInterface<Device> {
 protected:
  void SetUp() override { open(GetParam().arch, GetParam().name); }
  /// Some interfaces of all kinds on all kinds of banks.
  void useAllKinds() {
    const Device& device = GetParam();
    put(1, {"", device.terminated, 8, 16, 0, "RTT_40", "FP_VTT_40"});
    put(2, {device.types[0], "POD 1.2V", 4, 0, 32, "RTT_60", "FP_VCCO_50"});
    put(3, {device.types[0], device.differential, 2, 6, 0, "TERM_100", "FD_100"});
    put(4, {device.types[1], "LVCMOS 3.3V 12mA", 5, 7, 0});
    put(5, {"", "LVCMOS 2.5V 12mA", 0, 3, 0});
    m_book->put(cell(2, Io::m_OutputEnable), 0.5f);
    calculate();
  }
};
const Device tarvek{"Arkeon", "AK1080", {"HSIO", "LSIO"}, {"HSIO", "LSIO"}, "SSTL 1.2V", "LVDS 1.5V"};
const Device morlan{"Hexaline+", "HS440", {"HP", "HD"}, {"MSIO", "LSIO"}, "SSTL 1.35V", "LVDS 1.8V"};
const Device som{"Ludra", "SM6", {"HP", "HD"}, {"MSIO", "LSIO"}, "HSTL 1.5V", "LVDS 1.8V"};
INSTANTIATE_TEST_SUITE_P(Devices, IoTab, Values(tarvek, morlan, som),
                         [](const auto& param) { return param.param.name; });

TEST_P(IoTab, AnUntouchedRowIsANewOneAndDrawsNothing) {
  for (unsigned int row = 1; row < interfaces()->getRowCount(); ++row)
    EXPECT_TRUE(interfaces()->isDefaultRow(interfaces()->getRow(row), false)) << row;
  EXPECT_EQ(interfaces()->getFirstRowIDWithDefaults(false), 1u);
  EXPECT_EQ(activePower(), 0.0f);
  for (const KVXETitle* column :
       {&Io::m_TotalPins, &Io::m_BankVoltage, &KVXETab::m_Power, &Io::m_OffChipPower})
    EXPECT_TRUE(isBlank(1, *column));
  EXPECT_EQ(tab()->getTabSeverity(), 0);
}

TEST_P(IoTab, OffersWhatTheTypeAndTheStandardHave) {
  const Device& device = GetParam();
  EXPECT_EQ(offered(1, Io::m_IoType), device.types);
  EXPECT_THAT(offered(1, Io::m_IoStandard),
              IsSupersetOf({device.terminated, std::string("LVCMOS 3.3V 12mA")}));
  EXPECT_THAT(offered(1, Io::m_DataRate), ElementsAre("SDR", "DDR", "Clock"));
  const struct {
    const char* label;
    std::string type, standard;
    size_t inside, outside;  ///< terminations, none among them
    bool isKnown;
  } cases[] = {
      {"to half of VCCO", device.types[0], device.terminated, 4, 3, true},
      {"a pair", device.types[0], device.differential, 2, 2, true},
      {"no termination", device.types[1], "LVCMOS 3.3V 12mA", 1, 1, true},
      {"of the other type", device.types[1], device.terminated, 1, 1, false},
      {"of no type", device.types[0], "TTL 5V", 1, 1, false},
      {"of a type that there is not", "XIO", "LVCMOS 3.3V 12mA", 1, 1, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    enter(1, {c.type, c.standard, 1, 1, 0});
    EXPECT_EQ(offered(1, Io::m_InputTermination).size(), c.inside);
    EXPECT_EQ(offered(1, Io::m_OutputTermination).size(), c.outside);
    EXPECT_EQ(isBlank(1, KVXETab::m_Power), !c.isKnown);
    EXPECT_EQ(isBlank(1, Io::m_BankVoltage), !c.isKnown);
    EXPECT_EQ(tab()->getTabSeverity() == 0, c.isKnown) << "a stale choice is told";
    EXPECT_THAT(offered(1, Io::m_IoStandard), Not(IsEmpty()));
    EXPECT_EQ(offered(2, Io::m_InputTermination).size(), 1u) << "the next row has its own list";
  }
  clear(1);
  EXPECT_TRUE(interfaces()->isDefaultRow(interfaces()->getRow(1), false));
}

TEST_P(IoTab, CountsPinsAndTellsWhenThereAreTooMany) {
  const Device& device = GetParam();
  const struct {
    const char* label;
    Pins pins;
    int first, second;  ///< pins in the banks of each type
  } cases[] = {
      {"single pins", {device.types[0], device.terminated, 1, 2, 3}, 6, 0},
      {"pairs", {device.types[0], device.differential, 1, 2, 3}, 12, 0},
      {"second type", {device.types[1], "LVCMOS 1.8V 4mA", 4, 0, 0}, 0, 4},
      {"first type that has it", {"", device.terminated, 4, 0, 0}, 4, 0},
      {"no clock needed", {device.types[1], "LVCMOS 3.3V 4mA", 0, 9, 0, "", "", " "}, 0, 9},
      {"negative", {device.types[1], "LVCMOS 3.3V 4mA", -5, 2, 0}, 0, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    enter(1, c.pins);
    EXPECT_EQ(number(1, Io::m_TotalPins), static_cast<float>(c.first + c.second));
    EXPECT_EQ(numberIn(utilization(device.resources[0], KVXETab::m_UsedColumn)), static_cast<float>(c.first));
    EXPECT_EQ(numberIn(utilization(device.resources[1], KVXETab::m_UsedColumn)),
              static_cast<float>(c.second));
    EXPECT_EQ(numberIn(utilization(Io::m_ioStr, KVXETab::m_UsedColumn)),
              static_cast<float>(c.first + c.second));
    clear(1);
  }
  KVXECell* share = utilization(device.resources[0], KVXETab::m_UtilColumn);
  const int available = KVXEPartSelection::getGlobal()->getAvailResources(device.resources[0]);
  for (const int excess : {0, 1, 0}) {
    enter(1, {device.types[0], device.terminated, available, excess, 0});
    EXPECT_EQ(numberIn(utilization(Io::m_ioStr, KVXETab::m_AvailColumn)),
              numberIn(utilization(device.resources[0], KVXETab::m_AvailColumn)) +
                  numberIn(utilization(device.resources[1], KVXETab::m_AvailColumn)));
    EXPECT_FLOAT_EQ(numberIn(share), 1.0f + static_cast<float>(excess) / static_cast<float>(available));
    EXPECT_EQ(
        share->getMsg() ? share->getMsg()->getDisplayText() : "",
        excess > 0 ? "<html>Utilization exceeds 100%.\nPlease review the usage in IO table.</html>" : "");
  }
}

TEST_P(IoTab, ABankHasTheVoltageOfItsRail) {
  enter(1, {"", "LVCMOS 1.8V 4mA", 0, 10, 0});
  enter(2, {"", "LVCMOS 3.3V 12mA", 0, 10, 0});
  EXPECT_FLOAT_EQ(number(1, Io::m_BankVoltage), 1.8f);
  EXPECT_FLOAT_EQ(number(2, Io::m_BankVoltage), 3.3f);
  const float before = number(1, Io::m_VccoPower), other = number(2, Io::m_VccoPower);
  m_book->put(supply("VCCO18", KVXETab::m_voltageColumn), 1.75f);
  calculate();
  EXPECT_FLOAT_EQ(number(1, Io::m_BankVoltage), 1.75f);
  EXPECT_NEAR(number(1, Io::m_VccoPower) / before, 1.75 * 1.75 / (1.8 * 1.8), 1e-5);
  EXPECT_EQ(number(2, Io::m_VccoPower), other);
}

TEST_P(IoTab, RailsSupplyWhatStaysAndWhatLeaves) {
  useAllKinds();
  const float active = activePower();
  double onChip = 0.0, offChip = 0.0, rows = 0.0;
  for (unsigned int row = 1; row <= 5; ++row) {
    EXPECT_GT(number(row, KVXETab::m_Power), 0.0f) << row;
    EXPECT_EQ(number(row, Io::m_OffChipPower) > 0.0f, row <= 3) << row;
    rows += number(row, KVXETab::m_Power);
    offChip += number(row, Io::m_OffChipPower);
  }
  double drawn = 0.0, leaves = 0.0;
  KVXETable* rails = tab()->getTable(&KVXETab::m_PowerTable);
  for (unsigned int row = 1; row + 1 < rails->getRowCount(); ++row) {
    const std::string name = textIn(rails->getCellAt(row, &KVXETab::m_InternalRailColumn));
    double watts = numberIn(rails->getCellAt(row, &KVXETab::m_ActivePowerColumn));
    onChip += watts;
    if (name.starts_with("VCCO")) leaves += numberIn(rail(Io::m_OffChipPowerTable, name));
    if (name.starts_with("VCCO")) watts += numberIn(rail(Io::m_OffChipPowerTable, name));
    const double supplied = static_cast<double>(numberIn(supply(name, KVXETab::m_voltageColumn))) *
                            static_cast<double>(numberIn(supply(name, KVXETab::m_dynamicCurrentColumn)));
    EXPECT_NEAR(supplied, watts, 1e-3 * watts) << name;
    drawn += supplied;
  }
  EXPECT_GT(active, 0.02f);
  EXPECT_NEAR(rows, active, 1e-5 * active);
  EXPECT_NEAR(onChip, active, 1e-5 * active);
  EXPECT_NEAR(leaves, offChip, 1e-5 * offChip);
  EXPECT_NEAR(drawn, active + offChip, 1e-3 * drawn);
  const KVXEUID summary(m_book->book()->getTab(TabType::SUMMARY));
  EXPECT_NEAR(KVXEPowerDesignTab::getOffChipPower(summary), offChip, 1e-5 * offChip);
  EXPECT_NEAR(KVXESummaryTab::getFpgaDynamicPower(summary), active, 1e-4 * active) << "the rest heats no die";
}

TEST_P(IoTab, FollowsEditsOfEveryColumn) {
  useAllKinds();
  const struct {
    const char* label;
    const KVXETitle& column;
    float value;
    bool isMore;
  } cases[] = {{"toggle rate", Io::m_ToggleRate, 0.5f, true},
               {"load", Io::m_LoadCapacitance, 15.0f, true},
               {"fewer outputs", Io::m_Outputs, 1.0f, false},
               {"off", Io::m_TermDisable, 1.0f, false},
               {"as an output", Io::m_OutputEnable, 1.0f, true}};
  float before = number(2, KVXETab::m_Power);
  m_book->put(cell(2, Io::m_Outputs), 20);
  calculate();
  EXPECT_GT(number(2, KVXETab::m_Power), before);
  for (const auto& c : cases) {
    before = number(2, KVXETab::m_Power);
    m_book->put(cell(2, c.column), c.value);
    calculate();
    EXPECT_EQ(number(2, KVXETab::m_Power) > before, c.isMore) << c.label;
    EXPECT_NE(number(2, KVXETab::m_Power), before) << c.label;
  }
  before = number(2, KVXETab::m_Power);
  m_book->put(cell(2, Io::m_DataRate), std::string("Clock"));
  calculate();
  EXPECT_GT(number(2, KVXETab::m_Power), before);
  for (unsigned int row = 1; row <= 5; ++row) clear(row);
  EXPECT_EQ(activePower(), 0.0f);
}

TEST_P(IoTab, NetsBehindInputsMayBeLeftOut) {
  useAllKinds();
  const float nets = numberIn(rail(KVXETab::m_PowerTable, "VCCINT")), whole = activePower();
  EXPECT_GT(nets, 0.0f);
  {
    const ParamSwitch withoutSignals("DISABLE_SIGNAL_POWER");
    m_book->settle();
    EXPECT_EQ(numberIn(rail(KVXETab::m_PowerTable, "VCCINT")), 0.0f);
    EXPECT_FLOAT_EQ(activePower(), whole - nets);
  }
  m_book->settle();
  EXPECT_FLOAT_EQ(activePower(), whole);
}

TEST_P(IoTab, HasNoPowerWithoutWhatItNeeds) {
  const std::string standard = "LVCMOS 1.8V 4mA";
  const struct {
    const char* label;
    Pins pins;
    bool hasPower;
  } cases[] = {
      {"complete", {"", standard, 1, 0, 0}, true},
      {"no standard", {"", "", 1, 1, 1}, false},
      {"no signals", {"", standard, 0, 0, 0}, false},
      {"negative signals", {"", standard, -1, 0, 0}, false},
      {"no clock", {"", standard, 1, 1, 1, "", "", " "}, false},
      {"no tag", {"", standard, 1, 1, 1, "", "", "sys"}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    enter(1, c.pins);
    for (const KVXETitle* column : {&KVXETab::m_Power, &Io::m_OffChipPower, &Io::m_VccoPower})
      EXPECT_EQ(isBlank(1, *column), !c.hasPower);
    clear(1);
  }
}

TEST_F(IoBook, FullOfInterfacesHasFewEdges) {
  open("Arkeon", "AK1080", false);
  const size_t before = KVXECalculationMgr::getGlobal().getEdgeCount();
  for (unsigned int row = 1; row <= kvxe::configRowCount; ++row)
    put(row, {"HSIO", "POD 1.2V", 1, 1, 1, "RTT_40"});
  m_book->settle();
  EXPECT_LT(KVXECalculationMgr::getGlobal().getEdgeCount() - before, 150 * kvxe::configRowCount);
  EXPECT_GT(activePower(), 0.0f);
}

TEST_F(IoBook, OfADeviceWithOneKindOfBanksOffersNoOther) {
  open("Hexaline+", "HD540");
  EXPECT_THAT(offered(1, Io::m_IoType), ElementsAre("HP"));
  EXPECT_THAT(offered(1, Io::m_IoStandard), Not(Contains("LVCMOS 3.3V 12mA")));
  enter(1, {"", "LVCMOS 3.3V 12mA", 4, 4, 0});
  EXPECT_TRUE(isBlank(1, KVXETab::m_Power));
  EXPECT_EQ(rail(KVXETab::m_PowerTable, "VCCO33")->getRow()->getVisibility(), Visibility::ALWAYS_HIDDEN);
  EXPECT_EQ(rail(KVXETab::m_PowerTable, "VCCO18")->getRow()->getVisibility(), Visibility::EXTERNAL);
}

class SomIo : public IoBook {
 protected:
  using Board = KVXESomMorlanSummaryTab;
  void SetUp() override { open("Ludra", "SM6"); }
  KVXECell* bank(const std::string& name, const KVXETitle& column) {
    return m_book->cell(TabType::IO, Som::m_BankSuppliesTable, name, Som::m_BankSupplyRail, column);
  }
  KVXECell* required(const std::string& name, const KVXETitle& column) {
    return m_book->cell(TabType::SUMMARY, Board::m_VCRequirementsTable, name, Board::m_BankRail, column);
  }
  void enterIn(const std::string& bankName, unsigned int row, const Pins& pins) {
    m_book->put(cell(row, Som::m_Bank), bankName);
    enter(row, pins);
  }
};

TEST_F(SomIo, OffersTheBanksOfTheType) {
  EXPECT_EQ(offered(1, Som::m_Bank).size(), 6u);
  enter(1, {"HP", "", 0, 0, 0});
  EXPECT_THAT(offered(1, Som::m_Bank), ElementsAre("VCCO_HPA", "VCCO_HPB", "VCCO_HPC"));
  enterIn("VCCO_HPA", 1, {"HD", "", 0, 0, 0});
  EXPECT_THAT(offered(1, Som::m_Bank), ElementsAre("VCCO_HDA", "VCCO_HDB", "VCCO_HDC"));
  EXPECT_EQ(cell(1, Som::m_Bank)->getSeverity(), KvxSeverity::ERROR);
  EXPECT_EQ(offered(2, Som::m_Bank).size(), 6u);
}

TEST_F(SomIo, BanksAskTheCarrierCardForWhatTheirInterfacesDraw) {
  EXPECT_TRUE(std::isnan(numberIn(bank("VCCO_HPB", Som::m_BankSupplyVoltage))));
  enterIn("VCCO_HPB", 1, {"HP", "SSTL 1.35V", 0, 20, 0, "", "FP_VTT_50"});
  enterIn("VCCO_HPB", 2, {"HP", "SSTL 1.35V", 10, 0, 0, "RTT_48"});
  enterIn("VCCO_HDC", 3, {"HD", "LVCMOS 3.3V 12mA", 0, 20, 0});
  const auto amperes = [&](unsigned int row) {
    return (number(row, Io::m_VccoPower) + number(row, Io::m_OffChipPower)) / number(row, Io::m_BankVoltage);
  };
  const struct {
    const char* bank;
    const char* volts;
    float amperes;
  } cases[] = {{"VCCO_HPB", "1.350 V", amperes(1) + amperes(2)}, {"VCCO_HDC", "3.300 V", amperes(3)}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bank);
    EXPECT_GT(c.amperes, 0.001f);
    EXPECT_FLOAT_EQ(numberIn(bank(c.bank, Som::m_BankSupplyCurrent)), c.amperes);
    EXPECT_FLOAT_EQ(numberIn(required(c.bank, Board::m_BankCurrent)), c.amperes);
    EXPECT_EQ(textIn(required(c.bank, Board::m_BankVoltage)), c.volts);
  }
  EXPECT_EQ(textIn(required("VCCO_HPA", Board::m_BankVoltage)), "");
  EXPECT_TRUE(std::isnan(numberIn(required("VCCO_HPA", Board::m_BankCurrent))));
}

TEST_F(SomIo, WarnsOfABankWithTwoVoltagesUntilTheyAgree) {
  enterIn("VCCO_HPA", 1, {"HP", "LVCMOS 1.8V 8mA", 0, 4, 0});
  enterIn("VCCO_HPA", 2, {"HP", "LVCMOS 1.5V 8mA", 0, 4, 0});
  KVXECell* volts = bank("VCCO_HPA", Som::m_BankSupplyVoltage);
  EXPECT_FLOAT_EQ(numberIn(volts), 1.8f);
  EXPECT_EQ(cell(1, Io::m_TotalPins)->getSeverity(), KvxSeverity::NONE) << "the first decides";
  EXPECT_EQ(cell(2, Io::m_TotalPins)->getSeverity(), KvxSeverity::WARNING);
  enterIn("VCCO_HPC", 2, {});
  EXPECT_EQ(cell(2, Io::m_TotalPins)->getSeverity(), KvxSeverity::NONE);
  EXPECT_FLOAT_EQ(numberIn(bank("VCCO_HPC", Som::m_BankSupplyVoltage)), 1.5f);
  clear(1);
  EXPECT_TRUE(std::isnan(numberIn(volts)));
}

TEST_F(SomIo, WhatLeavesTheModuleDoesNotHeatIt) {
  enterIn("VCCO_HPA", 1, {"HP", "POD 1.2V", 0, 40, 0, "", "FP_VCCO_40"});
  EXPECT_GT(number(1, Io::m_OffChipPower), 0.1f);
  const KVXEUID summary(m_book->book()->getTab(TabType::SUMMARY));
  const float blocks = Board::getFpgaTotalPower(summary);
  EXPECT_NEAR(numberIn(m_book->cell(TabType::SUMMARY, Board::m_ThermalLoadingTable, "SM6",
                                    Board::m_ThermalLoadingComponent, Board::m_ThermalLoadingPower)),
              blocks, 1e-3f * blocks);
}

}  // namespace
