// Whatever a design is made of: what is drawn from the rails is what the blocks use, the parts add up to the
// whole, and more of the same never uses less.

#include <cmath>
#include <random>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;
using Clock = KVXEClockTab;
using Summary = KVXESummaryTab;

namespace {

constexpr unsigned int Rows = 8;  // of each table; a design fills half of them, so that it can be doubled

template <class Visit>
void forEachTable(Visit visit) {
  KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    KVXETab* tab = book->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) visit(tab->getTable(j));
  }
}

template <class Visit>
void forEachCell(KVXETable* table, Visit visit) {
  for (unsigned int row = 1; row < table->getRowCount(); ++row)
    for (unsigned int column = 0; column < table->getColumnCount(); ++column)
      visit(table->getCellAt(row, column));
}

std::string nameOf(const KVXETable* table) {
  return table->getTab()->getTypeAsStr() + "." + table->getTableTitle()->getTag(TitleType::SW);
}

/// Fills the tables of a book with rows that its cells allow, column by column without knowing any of them.
class RandomDesign {
 public:
  RandomDesign(DeviceBook& book, unsigned int seed) : m_book(book), m_random(seed) {}

  std::string changeDevice() {
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    const std::string part = oneOf(selection->getAvailableParts());
    const std::string process = oneOf({KVXEPartSelection::m_typStr, KVXEPartSelection::m_maxStr});
    EXPECT_TRUE(selection->selectPart(part, process)) << part;
    selection->redrawTabs(true);
    m_book.trim(Rows);
    m_fixedCells.clear();
    forEachTable([&](KVXETable* table) {
      if (isFixed(table))
        forEachCell(table, [&](KVXECell* cell) {
          if (cell->getIsEditable()) m_fixedCells.emplace_back(cell, textIn(cell));
        });
    });
    return part + " " + process;
  }

  void make() {
    clear();
    setAmbient();
    for (const auto& [cell, start] : m_fixedCells) fill(cell);
    fillTables([](KVXETab* tab) { return tab->getType() == TabType::CLOCK; });
    m_book.settle();
    readClockTags();
    fillTables([](KVXETab* tab) { return tab->getType() != TabType::CLOCK; });
    for (int pass = 0; pass < 2; ++pass) {  // some lists follow from what other cells hold
      m_book.settle();
      replaceWhatIsNoLongerOffered();
    }
    m_book.settle();
  }

  void clear() {
    forEachTable([](KVXETable* table) {
      if (table->getHasTableEditingFeatures()) table->resetDefaults(1, table->getRowCount() - 1);
    });
    for (const auto& [cell, start] : m_fixedCells) {
      if (start.empty()) {
        cell->setBlankAndState(CellState::DIRTY_DIRTY);
      } else {
        cell->setValAndState(start, CellState::DIRTY_DIRTY);
      }
      cell->setValueSource(ValueSource::DEFAULT);
    }
    m_book.settle();
  }

  /// Gives the design everything but its clocks twice.
  void doubleRows() {
    forEachTable([](KVXETable* table) {
      if (!table->getHasTableEditingFeatures() || table->getTab()->getType() == TabType::CLOCK) return;
      const unsigned int half = (table->getRowCount() - 1) / 2;
      for (unsigned int row = 1; row <= half; ++row)
        table->getRow(row)->copyAssignElements(table->getRow(row + half));
    });
    m_book.settle();
  }

  void doubleFrequencies() {
    KVXETable* clocks = m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
    for (unsigned int row = 1; row < clocks->getRowCount(); ++row) {
      KVXECell* frequency = clocks->getCellAt(row, &Clock::m_ClockFreq);
      if (!std::isnan(numberIn(frequency))) m_book.put(frequency, 2.0f * numberIn(frequency));
    }
    m_book.settle();
  }

 private:
  unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }
  const std::string& oneOf(const std::vector<std::string>& list) {
    return list[below(static_cast<unsigned int>(list.size()))];
  }
  float between(float low, float high) {
    return low + (high - low) * static_cast<float>(below(1001)) / 1000.0f;
  }

  /// Whether the table is one of an estimation tab whose rows are given.
  static bool isFixed(const KVXETable* table) {
    const TabType type = table->getTab()->getType();
    return !table->getHasTableEditingFeatures() && type > TabType::ESTIMATION_START &&
           type < TabType::ESTIMATION_END;
  }

  template <class Accept>
  void fillTables(Accept accept) {
    forEachTable([&](KVXETable* table) {
      if (!table->getHasTableEditingFeatures() || !accept(table->getTab()) || below(4) == 0) return;
      const unsigned int rows = 1 + below((table->getRowCount() - 1) / 2);
      for (unsigned int row = 1; row <= rows; ++row)
        for (unsigned int column = 0; column < table->getColumnCount(); ++column)
          fill(table->getCellAt(row, column));
    });
  }

  void fill(KVXECell* cell) {
    const KVXETable* table = cell->getRow()->getTable();
    const bool isKey = table->getHasTableEditingFeatures() &&
                       cell->getColumnIndex() == table->getTitleToIndex(table->getPilotColumnTitle());
    if (!cell->getIsEditable() || (!isKey && below(8) == 0)) return;
    std::vector<std::string> list;
    if (cell->getFormula() == &Clock::updateClockDropdown) {
      if (!m_tags.empty()) m_book.put(cell, oneOf(m_tags));
    } else if (cell->getDDVals(list)) {
      m_book.put(cell, oneOf(list));
    } else if (cell->getCellType() == CellType::INT) {
      m_book.put(cell, integerFor(static_cast<KVXEIntCell*>(cell)));
    } else if (cell->getCellType() == CellType::FLOAT) {
      m_book.put(cell, numberFor(static_cast<KVXEFloatCell*>(cell)));
    } else if (isKey) {
      m_book.put(cell, "n" + std::to_string(cell->getRow()->getIndex()));
    }
  }

  int integerFor(const KVXEIntCell* cell) {
    const auto [low, high] = cell->getRange();
    const int least = low == kvxeBlank<int> ? 0 : low;
    const int most = high == kvxeBlank<int> ? 2000 : high;
    return least + static_cast<int>(below(static_cast<unsigned int>(std::min(most - least, 2000)) + 1));
  }

  float numberFor(const KVXEFloatCell* cell) {
    const auto [low, high] = cell->getRange();
    const bool isShare = cell->getUnit() == Unit::PERCENTAGE_SHOW || cell->getUnit() == Unit::PERCENTAGE_HIDE;
    const bool isFrequency =
        cell->getUnit() == Unit::FREQUENCY_SHOW || cell->getUnit() == Unit::FREQUENCY_HIDE;
    const float usual = isShare ? 1.0f : isFrequency ? 500.0f : 20.0f;
    const float least = low == kvxeBlank<float> ? 0.0f : low;
    return between(least, high == kvxeBlank<float> ? least + usual : high);
  }

  void readClockTags() {
    m_tags.clear();
    KVXETable* clocks = m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
    for (unsigned int row = 1; row < clocks->getRowCount(); ++row)
      if (const std::string tag = textIn(clocks->getCellAt(row, &Clock::m_ClockTag)); !tag.empty())
        m_tags.push_back(tag);
  }

  void replaceWhatIsNoLongerOffered() {
    forEachTable([&](KVXETable* table) {
      if (!table->getHasTableEditingFeatures() && !isFixed(table)) return;
      forEachCell(table, [&](KVXECell* cell) {
        std::vector<std::string> list;
        const std::string text = textIn(cell);
        if (text.empty() || !cell->getIsEditable() || !cell->getDDVals(list)) return;
        if (cell->getFormula() == &Clock::updateClockDropdown) return;
        if (std::find(list.begin(), list.end(), text) == list.end()) m_book.put(cell, oneOf(list));
      });
    });
  }

  void setAmbient() {
    KVXETable* environment = m_book.book()->getTable(TabType::SUMMARY, &Summary::m_envTableHeader);
    KVXECell* cell = environment
                         ? m_book.cell(TabType::SUMMARY, Summary::m_envTableHeader, Summary::m_AmbientTempStr,
                                       Summary::m_envTypeColumn, Summary::m_envValColumn)
                         : nullptr;
    if (cell) m_book.put(cell, between(-20.0f, 80.0f));
  }

  DeviceBook& m_book;
  std::mt19937 m_random;
  std::vector<std::string> m_tags;
  std::vector<std::pair<KVXECell*, std::string>> m_fixedCells;  ///< of tables with given rows, as they start
};

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
          << nameOf(table) << " " << column->getTag(TitleType::SW);
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
  RandomDesign design(book, 20250311);
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
