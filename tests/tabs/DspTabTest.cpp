#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/morlan/KVXEMorlanDspTab.h"
#include "engine/tarvek/KVXETarvekDspTab.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/ParamSwitch.h"

using namespace KVXEEnums;
using Dsp = KVXETarvekDspTab;

namespace {

constexpr const char* Tag = "400.000 MHz (fast)";

class DspTab : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    book.trim(8);
    KVXETable* clocks = book.book()->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_Name), std::string("fast"));
    book.put(clocks->getCellAt(1, &KVXEClockTab::m_ClockFreq), 400.0f);
    book.settle();
  }
  bool isTarvek() const { return GetParam() == KVXEPartSelection::m_arkeonArchName; }
  const KVXETitle& count() const { return isTarvek() ? Dsp::m_DspCount : KVXEMorlanDspTab::m_DspCount; }
  KVXETab* tab() { return book.book()->getTab(TabType::DSP); }
  KVXETable* table() { return tab()->getTable(&Dsp::m_DspConfigTable); }
  KVXECell* cell(unsigned int row, const KVXETitle& column) { return table()->getCellAt(row, &column); }
  float power(unsigned int row) { return numberIn(cell(row, Dsp::m_VccintPower)); }
  void edit(KVXECell* cell, const std::string& value) {
    if (value.empty()) {
      cell->setBlankAndState(CellState::DIRTY_DIRTY);
      cell->setValueSource(ValueSource::USER);
      KVXECalculationMgr::getGlobal().incrCalculate();
    } else {
      book.edit(cell, value);
    }
    expectConsistent();
  }
  void use(unsigned int row, int slices) {
    book.put(cell(row, count()), slices);
    edit(cell(row, Dsp::m_Clock), Tag);
  }
  /// "Yes" or "No" of each stage, in lower case where the user may not change it.
  std::string stages(unsigned int row) {
    std::string text;
    for (const KVXETitle* stage :
         {&Dsp::m_MultUsed, &Dsp::m_MultPipelineUsed, &Dsp::m_PreaddUsed, &Dsp::m_AdRegUsed}) {
      const std::string value = textIn(cell(row, *stage));
      const bool isFree = cell(row, *stage)->getIsEditable();
      text += value == "Yes" ? (isFree ? 'Y' : 'y') : value == "No" ? (isFree ? 'N' : 'n') : '?';
    }
    return text;
  }

  DeviceBook book{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Chips, DspTab,
                         ::testing::Values(KVXEPartSelection::m_arkeonArchName,
                                           KVXEPartSelection::m_morlanArchName),
                         [](const auto& param) { return param.param.substr(0, 6); });

TEST_P(DspTab, PowerNeedsSlicesAndAClock) {
  use(1, 100);
  EXPECT_GT(power(1) / (100 * 400e6f), 0.9e-12f) << "joules of a slice and cycle";
  EXPECT_LT(power(1) / (100 * 400e6f), 6e-12f);
  use(2, 0);
  use(3, -4);
  book.edit(cell(4, count()), 100);
  book.edit(cell(5, Dsp::m_Clock), std::string(Tag));
  for (const unsigned int row : {2u, 3u, 4u, 5u}) EXPECT_TRUE(std::isnan(power(row))) << row;
  use(2, 50);
  float watts = 0.0f;
  ASSERT_TRUE(tab()->getTabActivePower(watts));
  EXPECT_FLOAT_EQ(watts, 1.5f * power(1));
}

TEST_P(DspTab, AStageIsTheUsersWhileItsMultiplierIsUsed) {
  use(1, 100);
  const float pipelined = power(1);
  edit(cell(1, Dsp::m_MultPipelineUsed), "No");
  EXPECT_GT(power(1), pipelined);
  edit(cell(1, Dsp::m_AdRegUsed), "Yes");
  EXPECT_EQ(stages(1), isTarvek() ? "YNnY" : "YNNY");
  edit(cell(1, Dsp::m_MultUsed), "No");
  EXPECT_EQ(stages(1), "Nnnn");
  EXPECT_LT(power(1), pipelined);
  edit(cell(1, Dsp::m_MultUsed), "");
  EXPECT_EQ(stages(1), isTarvek() ? "YYnN" : "YYNN") << "a blank choice is the default again";
  EXPECT_FLOAT_EQ(power(1), pipelined);
}

TEST_P(DspTab, CountsItsUseAgainstTheDevice) {
  const auto used = [&](const KVXETitle& column) {
    return book.cell(TabType::DSP, KVXETab::m_UtilTable, "DSP", KVXETab::m_TypeColumn, column);
  };
  const auto available = static_cast<int>(numberIn(used(KVXETab::m_AvailColumn)));
  ASSERT_GT(available, 0);
  for (const int excess : {0, 1, 0}) {
    book.edit(cell(1, count()), 5);
    book.edit(cell(2, count()), available - 5 + excess);
    EXPECT_EQ(numberIn(used(KVXETab::m_UsedColumn)), static_cast<float>(available + excess));
    const KVXECell* share = used(KVXETab::m_UtilColumn);
    EXPECT_EQ(
        share->getMsg() ? share->getMsg()->getDisplayText() : "",
        excess > 0 ? "<html>Utilization exceeds 100%.\nPlease review the usage in DSP table.</html>" : "");
    EXPECT_EQ(share->getSeverity(), excess > 0 ? KvxSeverity::WARNING : KvxSeverity::NONE);
  }
}

TEST_P(DspTab, SignalsMayBeLeftOut) {
  use(1, 100);
  const float whole = power(1);
  {
    const ParamSwitch withoutSignals("DISABLE_SIGNAL_POWER");
    book.settle();
    EXPECT_LT(power(1), 0.98f * whole);
    EXPECT_GT(power(1), 0.7f * whole);
  }
  book.settle();
  EXPECT_FLOAT_EQ(power(1), whole);
}

TEST_P(DspTab, FullOfModulesHasFewEdges) {
  while (table()->getRowCount() <= kvxe::configRowCount) table()->getOrCreateRow(kvxe::configRowCount);
  book.settle();
  const size_t idle = KVXECalculationMgr::getGlobal().getEdgeCount();
  for (unsigned int row = 1; row <= kvxe::configRowCount; ++row) {
    book.put(cell(row, count()), 1);
    book.put(cell(row, Dsp::m_Clock), std::string(Tag));
  }
  book.settle();
  EXPECT_LT(KVXECalculationMgr::getGlobal().getEdgeCount() - idle, 20u * kvxe::configRowCount);
}

class TarvekDspTab : public DspTab {};
INSTANTIATE_TEST_SUITE_P(Chip, TarvekDspTab, ::testing::Values(KVXEPartSelection::m_arkeonArchName));

TEST_P(TarvekDspTab, CellsFollowTheConfiguration) {
  const struct {
    const char* configuration;
    const char* mode;
    const char* stages;  // multiplier, its register, pre-adder, its register
  } cases[] = {
      {"27x24 + 58", "INT24", "YYnN"},
      {"12x12", "INT24", "yYnN"},
      {"18x18 + 58 Dynamic", "INT24", "YYnN"},
      {"27x24 + 58 Pre-add", "INT24", "yYyN"},
      {"58 Add", "INT24", "nnnn"},
      {"18x18 Complex", "CPLX", "yYnn"},
      {"FP32 Multiply + Add", "FP32", "yYnn"},
      {"FP32 Add", "FP32", "nnnn"},
      {"INT8 Dot Product", "INT8", "yYnn"},
      {"27x18 + 48 Legacy", "LEGACY", "YYnN"},
      {"9x9", "", "YYnn"},
  };
  use(1, 100);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.configuration);
    edit(cell(1, Dsp::m_Config), c.configuration);
    EXPECT_EQ(textIn(cell(1, Dsp::m_Mode)), c.mode);
    EXPECT_EQ(stages(1), c.stages);
    EXPECT_EQ(power(1) > 0.0f, *c.mode != '\0');
  }
}

TEST_P(TarvekDspTab, EveryConfigurationHasBelievablePower) {
  use(1, 100);
  std::vector<std::string> offered;
  ASSERT_TRUE(cell(1, Dsp::m_Config)->getDDVals(offered));
  EXPECT_EQ(offered, Dsp::getConfigList());
  EXPECT_EQ(offered.size(), Dsp::m_dspConfigMap.size());
  for (const std::string& configuration : offered) {
    book.edit(cell(1, Dsp::m_Config), configuration);
    EXPECT_GT(power(1) / (100 * 400e6f), 0.1e-12f) << configuration;
    EXPECT_LT(power(1) / (100 * 400e6f), 6e-12f) << configuration;
  }
}

TEST_P(TarvekDspTab, AnEntryStandsUntilAConfigurationReplacesIt) {
  edit(cell(1, Dsp::m_MultPipelineUsed), "No");
  edit(cell(1, Dsp::m_Config), "18x18");
  EXPECT_EQ(stages(1), "yNnN");
  edit(cell(1, Dsp::m_Config), "58 Add");
  edit(cell(1, Dsp::m_Config), "27x24 + 58");
  EXPECT_EQ(stages(1), "YYnN");
}

TEST_P(TarvekDspTab, KeysOfLegacyConfigurationsComeLast) {
  for (const auto& [key, text] : Dsp::m_dspConfigMap) EXPECT_EQ(Dsp::getConfigStr(key), text);
  EXPECT_EQ(Dsp::getConfigStr("9x9"), "");
  const std::vector<std::string> list = Dsp::getConfigList();
  for (unsigned int i = 1; i < list.size(); ++i)
    EXPECT_LE(list[i - 1].find("Legacy") != std::string::npos, list[i].find("Legacy") != std::string::npos);
  EXPECT_TRUE(Dsp::isDerivedConfigMode("18x18"));
  EXPECT_FALSE(Dsp::isDerivedConfigMode("27x24 + 58"));
  EXPECT_FALSE(Dsp::isDerivedConfigMode("9x9"));
}

}  // namespace
