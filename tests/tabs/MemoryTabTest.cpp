#include <cmath>

#include "engine/base/tabs/KVXEBramTab.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/tabs/KVXEWramTab.h"
#include "engine/tarvek/KVXETarvekMpramTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/ParamSwitch.h"

using namespace KVXEEnums;
using Bram = KVXEBramTab;
using Wram = KVXEWramTab;
using Mpram = KVXETarvekMpramTab;

namespace {

constexpr float Megahertz = 400.0f;
constexpr const char* Tag = "400.000 MHz (mem)";
constexpr float Blank = -1.0f;  // no result of these tabs is negative
constexpr int Unset = kvxeBlank<int>;

struct Kind {
  std::string name;  ///< of its resource and of its row in the utilization table
  TabType tab;
  const KVXETitle *table, *count, *power;
  std::vector<const KVXETitle*> clocks;
};
const Kind bramKind{"BRAM",
                    TabType::BRAM,
                    &Bram::m_BramConfigTable,
                    &Bram::m_BramCount,
                    &Bram::m_VccintPower,
                    {&Bram::m_PortAClock, &Bram::m_PortBClock}};
const Kind wramKind{
    "WRAM",          TabType::WRAM, &Wram::m_WramConfigTable, &Wram::m_WramCount, &Wram::m_VccintPower,
    {&Wram::m_Clock}};
const Kind mpramKind{"MPRAM",
                     TabType::MPRAM,
                     &Mpram::m_ConfigTable,
                     &Mpram::m_NumMemory,
                     &Mpram::m_VccintPower,
                     {&Mpram::m_IntfClkFreq}};

struct Chip {
  std::string arch;
  std::string part;     ///< how the part's name begins; empty for the default part
  std::size_t kinds{};  ///< of memories that it has
};

class MemoryTabs : public ::testing::TestWithParam<Chip> {
 protected:
  void SetUp() override {
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    bool isFound = GetParam().part.empty();
    for (const std::string& part : selection->getAvailableParts()) {
      if (isFound) break;
      isFound = part.starts_with(GetParam().part) && selection->selectPart(part, KVXEPartSelection::m_typStr);
    }
    ASSERT_TRUE(isFound);
    selection->redrawTabs(true);
    book.trim(6);
    KVXETable* clocks = book.book()->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_Name), std::string("mem"));
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_ClockFreq), Megahertz);
    book.settle();
  }

  static std::vector<Kind> kinds() {
    std::vector<Kind> kinds{bramKind, wramKind, mpramKind};
    std::erase_if(kinds, [](const Kind& kind) { return kvxe::availableCount(kind.name).value_or(0) == 0; });
    return kinds;
  }
  KVXETable* table(const Kind& kind) { return book.book()->getTable(kind.tab, kind.table); }
  KVXECell* cell(const Kind& kind, unsigned int row, const KVXETitle& column) {
    return table(kind)->getCellAt(row, &column);
  }
  KVXECell* bram(const KVXETitle& column, unsigned int row = 1) { return cell(bramKind, row, column); }
  KVXECell* wram(const KVXETitle& column) { return cell(wramKind, 1, column); }
  KVXECell* utilization(const Kind& kind, const KVXETitle& column) {
    return book.cell(kind.tab, KVXETab::m_UtilTable, kind.name, KVXETab::m_TypeColumn, column);
  }
  float power(const Kind& kind, unsigned int row) { return number(cell(kind, row, *kind.power)); }
  float railWatts(const Kind& kind, const std::string& rail) {
    return numberIn(book.cell(kind.tab, KVXETab::m_PowerTable, rail, KVXETab::m_InternalRailColumn,
                              KVXETab::m_ActivePowerColumn));
  }
  float tabWatts(const Kind& kind) {
    float watts = 0.0f;
    EXPECT_TRUE(book.book()->getTab(kind.tab)->getTabActivePower(watts));
    return watts;
  }
  /// Watts that the power design sees drawn from a rail beyond the leakage.
  double suppliedWatts(const std::string& rail) {
    const auto supply = [&](const KVXETitle& column) {
      return static_cast<double>(numberIn(book.cell(TabType::POWER_DESIGN, KVXETab::m_powerSupplyTable, rail,
                                                    KVXETab::m_internalSupplyColumn, column)));
    };
    return supply(KVXETab::m_voltageColumn) * supply(KVXETab::m_dynamicCurrentColumn);
  }
  static float number(KVXECell* cell) {
    const float value = numberIn(cell);
    return std::isnan(value) ? Blank : value;
  }
  static std::string message(const KVXECell* cell) {
    return cell->getMsg() ? cell->getMsg()->getDisplayText() : "";
  }

  template <class T>
  void put(KVXECell* cell, const T& value) {
    book.put(cell, value);
  }
  void put(KVXECell* cell, const char* text) { book.put(cell, std::string(text)); }
  void clear(KVXECell* cell) { cell->setBlankAndState(CellState::DIRTY_DIRTY); }
  void use(const Kind& kind, unsigned int row, int count) {
    put(cell(kind, row, *kind.count), count);
    for (const KVXETitle* clock : kind.clocks) {
      if (kind.tab == TabType::MPRAM) {
        put(cell(kind, row, *clock), Megahertz);
      } else {
        put(cell(kind, row, *clock), Tag);
      }
    }
  }
  /// Calculates what was put in, and checks that a full calculation finds the same.
  void calculate() {
    KVXECalculationMgr::getGlobal().incrCalculate();
    const Captured out;
    const bool isSame = KVXECalculationMgr::getGlobal().verifyIncrVsFull();
    KVXECellStateMgr::getGlobal().markGuiClean();
    EXPECT_TRUE(isSame) << out.text();
  }

  DeviceBook book{GetParam().arch};
};

std::string chipName(const ::testing::TestParamInfo<Chip>& chip) {
  return chip.param.arch.substr(0, 5) + chip.param.part;
}
const Chip tarvek{KVXEPartSelection::m_arkeonArchName, "", 2};
const Chip withMultiPort{KVXEPartSelection::m_arkeonArchName, "AN3060", 3};
const Chip morlan{KVXEPartSelection::m_morlanArchName, "", 2};
const Chip withBlocksOnly{KVXEPartSelection::m_morlanArchName, "HB110", 1};
const Chip module{KVXEPartSelection::m_somVisionArchName, "", 2};

INSTANTIATE_TEST_SUITE_P(Chips, MemoryTabs,
                         ::testing::Values(tarvek, withMultiPort, morlan, withBlocksOnly, module), chipName);

TEST_P(MemoryTabs, AnUntouchedRowStaysTheDefault) {
  EXPECT_EQ(kinds().size(), GetParam().kinds);
  for (const Kind& kind : kinds()) {
    use(kind, 1, 10);
    calculate();
    EXPECT_FALSE(table(kind)->isDefaultRow(table(kind)->getRow(1), false));
    for (unsigned int row = 2; row < table(kind)->getRowCount(); ++row)
      EXPECT_TRUE(table(kind)->isDefaultRow(table(kind)->getRow(row), false)) << kind.name << " " << row;
  }
}

TEST_P(MemoryTabs, PowerReachesTheRailsOfTheDesign) {
  double core = suppliedWatts("VCCINT"), array = suppliedWatts("VCCRAM");
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    use(kind, 1, 20);
    use(kind, 3, 10);
    calculate();
    const float fromCore = railWatts(kind, "VCCINT");
    const float fromArray = kind.tab == TabType::MPRAM ? 0.0f : railWatts(kind, "VCCRAM");
    EXPECT_FLOAT_EQ(fromCore, 1.5f * power(kind, 1)) << "half as many cost half as much";
    EXPECT_FLOAT_EQ(tabWatts(kind), fromCore + fromArray);
    core += static_cast<double>(fromCore);
    array += static_cast<double>(fromArray);
    // The clock that the memories load takes its share on the same rails.
    EXPECT_GE(suppliedWatts("VCCINT"), core * (1.0 - 1e-4));
    EXPECT_GE(suppliedWatts("VCCRAM"), array * (1.0 - 1e-4));
    EXPECT_LE(suppliedWatts("VCCRAM"), array * 1.3);
  }
}

TEST_P(MemoryTabs, PowerNeedsMemoriesAndAClock) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    for (const int count : {0, -3, 5}) {
      use(kind, 1, count);
      calculate();
      EXPECT_EQ(power(kind, 1) == Blank, count <= 0) << count;
    }
    for (const KVXETitle* clock : kind.clocks) clear(cell(kind, 1, *clock));
    for (const int count : {5, 0}) {
      put(cell(kind, 1, *kind.count), count);
      calculate();
      EXPECT_EQ(power(kind, 1), Blank);
      EXPECT_EQ(tabWatts(kind), 0.0f);
    }
  }
}

TEST_P(MemoryTabs, WarnAboveTheDeviceAndNoLonger) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const auto available = static_cast<int>(number(utilization(kind, KVXETab::m_AvailColumn)));
    if (kind.tab == TabType::BRAM) {
      for (const unsigned int row : {1u, 2u}) put(bram(Bram::m_Mode, row), "BMEM36");
    }
    const KVXECell* share = utilization(kind, KVXETab::m_UtilColumn);
    for (const int excess : {0, 1, 0}) {
      use(kind, 1, 5);
      use(kind, 2, available - 5 + excess);
      calculate();
      EXPECT_EQ(number(utilization(kind, KVXETab::m_UsedColumn)), static_cast<float>(available + excess));
      EXPECT_EQ(message(share), excess > 0 ? "<html>Utilization exceeds 100%.\nPlease review the usage in " +
                                                 kind.name + " table.</html>"
                                           : "");
      EXPECT_EQ(static_cast<int>(share->getSeverity()), excess > 0 ? 2 : 0);
    }
  }
}

TEST_P(MemoryTabs, SignalsMayBeLeftOut) {
  for (const Kind& kind : kinds()) {
    if (kind.tab == TabType::MPRAM) continue;  // its ports have wires of their own
    SCOPED_TRACE(kind.name);
    use(kind, 1, 10);
    book.settle();
    const float core = railWatts(kind, "VCCINT"), array = railWatts(kind, "VCCRAM");
    {
      const ParamSwitch withoutSignals("DISABLE_SIGNAL_POWER");
      book.settle();
      EXPECT_LT(railWatts(kind, "VCCINT"), 0.98f * core);
      EXPECT_GT(railWatts(kind, "VCCINT"), 0.1f * core);
      EXPECT_EQ(railWatts(kind, "VCCRAM"), array);
    }
    book.settle();
    EXPECT_EQ(railWatts(kind, "VCCINT"), core);
  }
}

TEST_P(MemoryTabs, FullOfModulesHaveFewEdges) {
  for (const Kind& kind : kinds()) {
    table(kind)->getOrCreateRow(kvxe::configRowCount);
    book.settle();
    const size_t idle = KVXECalculationMgr::getGlobal().getEdgeCount();
    for (unsigned int row = 1; row <= kvxe::configRowCount; ++row) use(kind, row, 1);
    book.settle();
    EXPECT_LT(KVXECalculationMgr::getGlobal().getEdgeCount() - idle, 80u * kvxe::configRowCount) << kind.name;
  }
}

class BlockMemories : public MemoryTabs {};
INSTANTIATE_TEST_SUITE_P(Chips, BlockMemories, ::testing::Values(tarvek, morlan, module), chipName);

TEST_P(BlockMemories, WidthsFollowModeAndOtherPort) {
  const struct {
    const char* mode;
    int other;
    std::vector<std::string> widths;
  } cases[] = {
      {"BMEM18", Unset, {"9", "18"}},
      {"BMEM18", 72, {"9", "18"}},
      {"BMEM36SDP", 72, {"9", "18", "36", "72"}},
      {"BMEM36SDP", 71, {"72"}},
      {"BMEM36SDP", Unset, {"72"}},
      {"BMEM36", 18, {"9", "18", "36"}},
      {"BMEM18SDP", 36, {"9", "18", "36"}},
      {"BMEM18SDP", 35, {"36"}},
      {"BMEM36SDP_ECC", 72, {"72"}},
      {"BMEM36SDP_ECC_ENCODE_ONLY", 9, {"72"}},
      {"BMEM36SDP_ECC_DECODE_ONLY", Unset, {"72"}},
      {"FIFO36", 36, {"0"}},
      {"BMEM18", 9, {"9", "18"}},
  };
  const std::pair ports{&Bram::m_PortABitWidth, &Bram::m_PortBBitWidth};
  for (const auto& [port, other] : {ports, std::pair{ports.second, ports.first}}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.mode) + " beside " + KVXMHelperUtils::ToString(c.other));
      put(bram(Bram::m_Mode), c.mode);
      c.other == Unset ? clear(bram(*other)) : put(bram(*other), c.other);
      calculate();
      std::vector<std::string> offered;
      bram(*port)->getDDVals(offered);
      EXPECT_EQ(offered, c.widths);
    }
    clear(bram(*other));
  }
}

TEST_P(BlockMemories, AWidthThatIsNoLongerOfferedIsAnError) {
  const struct {
    const char* mode;
    int other;
    bool isOffered;
  } cases[] = {{"BMEM18", 9, true},
               {"BMEM36SDP_ECC", 9, false},
               {"BMEM36", 9, true},
               {"BMEM36SDP", 36, false},
               {"BMEM36SDP", 72, true}};
  KVXECell* width = bram(Bram::m_PortBBitWidth);
  put(width, 9);
  for (const auto& c : cases) {
    put(bram(Bram::m_Mode), c.mode);
    put(bram(Bram::m_PortABitWidth), c.other);
    calculate();
    EXPECT_EQ(message(width), c.isOffered ? "" : "<html>Invalid value selected for a dropdown entry.</html>");
    EXPECT_EQ(static_cast<int>(width->getSeverity()), c.isOffered ? 0 : 3) << c.mode;
  }
}

TEST_P(BlockMemories, ACascadeIsNotLargerThanTheModule) {
  const struct {
    int count, group;
    bool isRejected;
    int largest;
  } cases[] = {{100, 13, true, 12}, {100, 12, false, 12}, {Unset, 13, false, 4},
               {3, 4, true, 3},     {3, 3, false, 3},     {0, 1, true, 0},
               {0, 0, false, 0},    {-2, 1, true, 0},     {1, Unset, false, 1}};
  auto* group = static_cast<KVXEIntCell*>(bram(Bram::m_CascadeGroupSize));
  for (const auto& c : cases) {
    SCOPED_TRACE(KVXMHelperUtils::ToString(c.group) + " of " + KVXMHelperUtils::ToString(c.count));
    put(bram(Bram::m_BramCount), c.count);
    put(group, c.group);
    calculate();
    EXPECT_EQ(message(group),
              c.isRejected ? "<html>Cascade group size can not be greater than BRAM count.</html>" : "");
    EXPECT_EQ(static_cast<int>(group->getSeverity()), c.isRejected ? 3 : 0);
    EXPECT_EQ(group->getRange(), std::pair(0, c.largest));
  }
}

TEST_P(BlockMemories, SmallOnesCountHalf) {
  unsigned int row = 0;
  for (const auto& [mode, count] :
       {std::pair{"BMEM18", 3}, {"BMEM18SDP", 4}, {"BMEM36", 10}, {"BMEM36SDP_ECC", 2}}) {
    put(bram(Bram::m_Mode, ++row), mode);
    put(bram(Bram::m_BramCount, row), count);
  }
  calculate();
  EXPECT_EQ(number(utilization(bramKind, KVXETab::m_UsedColumn)), 15.5f);
  put(bram(Bram::m_Mode, 1), "BMEM36");
  calculate();
  EXPECT_EQ(number(utilization(bramKind, KVXETab::m_UsedColumn)), 17.0f);
}

TEST_P(BlockMemories, PowerIsTheSumOfPortsAndOfRails) {
  use(bramKind, 1, 10);
  calculate();
  const float both = number(bram(KVXETab::m_Power));
  EXPECT_FLOAT_EQ(both, number(bram(Bram::m_VccintPower)) + number(bram(Bram::m_VccRamPower)));
  const float accesses = 10 * 2 * 0.25f * Megahertz * 1e6f;
  EXPECT_GT(both / accesses, 1e-12f);
  EXPECT_LT(both / accesses, 20e-12f);
  EXPECT_FLOAT_EQ(Bram::updateTotalLogicPower(KVXEUID(bram(Bram::m_Name))), tabWatts(bramKind));
  clear(bram(Bram::m_PortBClock));
  calculate();
  EXPECT_FLOAT_EQ(number(bram(KVXETab::m_Power)), both / 2) << "both ports were used alike";
  put(bram(Bram::m_Mode), "BMEM18SDP");
  calculate();
  const float reading = number(bram(KVXETab::m_Power));
  put(bram(Bram::m_PortAWriteMode), "READ_FIRST");
  put(bram(Bram::m_PortAWriteEnable), 0.9f);
  calculate();
  EXPECT_EQ(number(bram(KVXETab::m_Power)), reading) << "this port only reads";
}

class WideMemories : public MemoryTabs {};
INSTANTIATE_TEST_SUITE_P(Chips, WideMemories, ::testing::Values(tarvek, morlan, module), chipName);

TEST_P(WideMemories, PowerFollowsEachColumn) {
  use(wramKind, 1, 4);
  put(wram(Wram::m_AvgInactiveCycles), 1000.0f);
  put(wram(Wram::m_SleepRate), 0.5f);
  put(wram(Wram::m_PortADataWidth), 36);
  calculate();
  float before = tabWatts(wramKind);
  for (const auto& [column, value] : {std::pair{&Wram::m_PortADataWidth, 72.0f},
                                      {&Wram::m_Latency, 4.0f},
                                      {&Wram::m_OutputToggleRate, 0.5f},
                                      {&Wram::m_InputToggleRate, 0.5f},
                                      {&Wram::m_PortAEnableRate, 1.0f},
                                      {&Wram::m_PortBEnableRate, 1.0f}}) {
    put(wram(*column), value);
    calculate();
    EXPECT_GT(tabWatts(wramKind), before) << column->getDisplayTag(false);
    before = tabWatts(wramKind);
  }
  put(wram(Wram::m_AutoSleep), "Yes");
  calculate();
  EXPECT_LT(tabWatts(wramKind), before) << "the sleep rate counts from now on";
}

}  // namespace
