// Whatever a design is made of: what is drawn from the rails is what the blocks use, the parts add up to the
// whole, and more of the same never uses less.

#include <cmath>

#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Captured.h"
#include "tests/kit/RandomDesign.h"

using namespace KVXEEnums;
using Summary = KVXESummaryTab;

namespace {

constexpr unsigned int Rows = 8;  // of each table; a design fills half of them, so that it can be doubled

KVXEUID uid() {
  return KVXEUID(KVXEBookMgr::getGlobal().getCurrentBook()->getTab(TabType::SUMMARY));
}

float amountIn(KVXETable* table, unsigned int row, const KVXETitle& column) {
  const float value = numberIn(table->getCellAt(row, &column));
  return std::isnan(value) ? 0.0f : value;
}

/// The power of each tab that has a power table, in watts.
std::map<TabType, float> activePowers() {
  std::map<TabType, float> powers;
  forEachTable([&](KVXETable* table) {
    if (table->getTableTitle() == &KVXETab::m_PowerTable)
      table->getTab()->getTabActivePower(powers[table->getTab()->getType()]);
  });
  return powers;
}

void expectBlocksMakeTheTotal() {
  KVXETable* blocks = uid().getBook()->getTable(TabType::SUMMARY, &Summary::m_onchipDynamicTableHeader);
  if (!blocks) blocks = uid().getBook()->getTable(TabType::SUMMARY, &Summary::m_onchipTableHeader);
  ASSERT_TRUE(blocks);
  double sum = 0.0;
  std::string list;
  for (unsigned int row = 1; row < blocks->getRowCount(); ++row) {
    const std::string name = textIn(blocks->getCellAt(row, &Summary::m_onchipResourceColumn));
    const float watts = amountIn(blocks, row, Summary::m_onchipPowerColumn);
    if (Summary::isCategoryStr(name) || name.find("Static") != std::string::npos) continue;
    list += name + " " + KVXMHelperUtils::ToString(watts) + "\n";
    sum += static_cast<double>(watts);
  }
  const auto total = static_cast<double>(Summary::getFpgaDynamicPower(uid()));
  EXPECT_NEAR(sum, total, 1e-4 * total + 1e-6) << "blocks against the dynamic total\n" << list;
}

void expectRailsSupplyTheBlocks() {
  KVXETable* rails = uid().getBook()->getTable(TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable);
  ASSERT_TRUE(rails);
  double sum = 0.0;
  std::string list;
  for (unsigned int row = 1; row < rails->getRowCount(); ++row) {
    const double watts = static_cast<double>(amountIn(rails, row, KVXETab::m_voltageColumn)) *
                         static_cast<double>(amountIn(rails, row, KVXETab::m_dynamicCurrentColumn));
    sum += watts;
    if (watts > 0.0)
      list += textIn(rails->getCellAt(row, &KVXETab::m_internalSupplyColumn)) + " " +
              KVXMHelperUtils::ToString(watts) + "\n";
  }
  for (const auto& [type, watts] : activePowers())
    if (watts > 0.0f) list += "tab " + nameOf(type) + " " + KVXMHelperUtils::ToString(watts) + "\n";
  const float offChip =
      KVXEPowerDesignTab::getOffChipPower(uid());  // supplied, but turned into heat elsewhere
  const auto blocks = static_cast<double>(Summary::getFpgaDynamicPower(uid()) + offChip);
  EXPECT_NEAR(sum, blocks, 1e-3 * blocks + 1e-6) << "rails against blocks\n" << list;
}

void expectPowerTablesAddUp() {
  forEachTable([](KVXETable* table) {
    if (table->getTableTitle() != &KVXETab::m_PowerTable) return;
    const unsigned int totalRow = table->getRowCount() - 1;
    for (const KVXETitle* column :
         {&KVXETab::m_ActivePowerColumn, &KVXETab::m_StaticPowerColumn, &KVXETab::m_TotalPowerColumn}) {
      double sum = 0.0;
      for (unsigned int row = 1; row < totalRow; ++row)
        sum += static_cast<double>(amountIn(table, row, *column));
      EXPECT_NEAR(amountIn(table, totalRow, *column), sum, 1e-5 * sum + 1e-9)
          << tableName(table) << " " << column->getTag(TitleType::SW);
    }
  });
}

void expectFiniteNumbers() {
  forEachTable([](KVXETable* table) {
    forEachCell(table, [](KVXECell* cell) {
      float value = 0.0f;
      if (cell->getCellType() != CellType::FLOAT || !cell->getVal(value, false)) return;
      EXPECT_TRUE(std::isfinite(value)) << KVXEUID(cell).describe(" -> ");
    });
  });
}

void expectNoLess(const std::map<TabType, float>& before, bool withClocks, const char* what) {
  for (const auto& [type, watts] : activePowers()) {
    if (type == TabType::CLOCK && !withClocks) continue;  // fuller sites share their clocks
    EXPECT_GE(watts, before.at(type) * 0.9999f) << nameOf(type) << " with " << what;
  }
}

/// Formulas that read each other evaluated are reported by the engine and leave results to chance.
template <class Act>
void expectNoCycles(Act act) {
  const Captured out;
  act();
  const std::string text = out.text();
  const std::size_t found = text.find("cyclic dependancy");
  EXPECT_EQ(found, std::string::npos) << text.substr(std::min(found, text.size()), 600);
}

class RandomDesigns : public ::testing::TestWithParam<std::string> {};

TEST_P(RandomDesigns, AddUp) {
  DeviceBook book(GetParam());
  RandomDesign design(book, 20250311, Rows);
  std::string device;
  int designsWithPower = 0;
  for (int i = 0; i < 200; ++i) {
    if (i % 20 == 0) {
      device = design.changeDevice();
      EXPECT_EQ(Summary::getFpgaDynamicPower(uid()), 0.0f) << device << " with nothing on it";
    }
    SCOPED_TRACE(device + ", design " + std::to_string(i));
    expectNoCycles([&] { design.make(); });
    expectBlocksMakeTheTotal();
    expectRailsSupplyTheBlocks();
    expectPowerTablesAddUp();
    expectFiniteNumbers();
    designsWithPower += Summary::getFpgaDynamicPower(uid()) > 0.01f;
    if (i % 4 == 0) {
      auto before = activePowers();
      design.doubleRows();
      expectNoLess(before, false, "twice the rows");
      before = activePowers();
      design.doubleFrequencies();
      expectNoLess(before, true, "twice the frequency");
    }
    if (::testing::Test::HasFailure()) return;  // the next would fail alike
  }
  EXPECT_GT(designsWithPower, 100) << "most designs use something";
}

INSTANTIATE_TEST_SUITE_P(All, RandomDesigns, ::testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& param) { return param.param.substr(0, 5); });

}  // namespace
