// Whatever a user does, in whatever order: what was calculated step by step equals what a full calculation
// gives.

#include "engine/base/workbook/KVXETableOperations.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;

namespace {

/// Random operations on a book, each one described so that a failure can be replayed by hand.
class RandomUser {
 public:
  RandomUser(DeviceBook& book, unsigned int seed, unsigned int rows)
      : m_book(book), m_state(seed), m_rows(rows) {}

  std::string act() {
    const unsigned int dice = below(100);
    if (dice < 3) return changeDevice();
    if (dice < 8) return changeUnit();
    if (dice < 14) return insertRow();
    if (dice < 20) return deleteRow();
    return editCell();
  }

 private:
  unsigned int below(unsigned int limit) {
    m_state = m_state * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<unsigned int>((m_state >> 33) % limit);
  }

  template <class Accept>
  KVXETable* pickTable(Accept accept) {
    std::vector<KVXETable*> tables;
    for (unsigned int i = 0; i < m_book.book()->getTabCount(); ++i) {
      KVXETab* tab = m_book.book()->getTab(i);
      for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j)
        if (accept(tab->getTable(j))) tables.push_back(tab->getTable(j));
    }
    return tables.empty() ? nullptr : tables[below(static_cast<unsigned int>(tables.size()))];
  }

  static std::string nameOf(const KVXETable* table) {
    return table->getTab()->getTypeAsStr() + "." + table->getTableTitle()->getTag(TitleType::SW);
  }

  std::string editCell() {
    KVXETable* table = pickTable([](KVXETable* t) {
      for (unsigned int c = 0; c < t->getColumnCount(); ++c)
        for (unsigned int r = 1; r < std::min(t->getRowCount(), 40u); ++r)
          if (t->getCellAt(r, c)->getIsEditable()) return true;
      return false;
    });
    KVXECell* cell = nullptr;
    do {
      // Mostly the first rows, so that rows get filled and refer to each other.
      const unsigned int rows = table->getRowCount() - 1;
      const unsigned int row = 1 + below(below(3) ? std::min(rows, 5u) : rows);
      cell = table->getCellAt(row, below(table->getColumnCount()));
    } while (!cell->getIsEditable());
    const std::string value = valueFor(cell);
    if (value.empty()) {
      cell->setBlankAndState(CellState::DIRTY_DIRTY);
    } else {
      cell->setValAndState(value, CellState::DIRTY_DIRTY);
    }
    cell->setValueSource(ValueSource::USER);
    KVXECalculationMgr::getGlobal().incrCalculate();
    return nameOf(table) + " " + cell->describe(" -> ").substr(0, 120) + " = " + value;
  }

  std::string valueFor(KVXECell* cell) {
    if (below(8) == 0) return "";
    std::vector<std::string> list;
    if (cell->getDDVals(list)) return list[below(static_cast<unsigned int>(list.size()))];
    switch (cell->getCellType()) {
      case CellType::INT:
        return std::to_string(below(2000));
      case CellType::FLOAT:
        return std::to_string(below(200)) + "." + std::to_string(below(100));
      default:
        return "n" + std::to_string(below(6));
    }
  }

  std::string insertRow() {
    KVXETable* table = pickTable([](KVXETable* t) { return t->getHasTableEditingFeatures(); });
    const KVXETableOperations::Scope operation;
    const unsigned int row = 1 + below(std::min(table->getRowCount(), 8u));
    table->insertRow(row);
    KVXECalculationMgr::getGlobal().incrCalculate();
    return "insert " + nameOf(table) + " row " + std::to_string(row);
  }

  std::string deleteRow() {
    KVXETable* table =
        pickTable([](KVXETable* t) { return t->getHasTableEditingFeatures() && t->getRowCount() > 4; });
    if (!table) return "nothing to delete";
    const KVXETableOperations::Scope operation;
    const unsigned int row = 1 + below(std::min(table->getRowCount() - 1, 8u));
    table->deleteRow(row);
    KVXECalculationMgr::getGlobal().incrCalculate();
    return "delete " + nameOf(table) + " row " + std::to_string(row);
  }

  std::string changeUnit() {
    KVXETable* units = m_book.book()->getTable(TabType::SUMMARY, &KVXETab::m_UnitsTable);
    KVXECell* cell = units->getCellAt(1 + below(units->getRowCount() - 1), &KVXETab::m_UnitsSuffix);
    std::vector<std::string> list;
    if (!cell->getDDVals(list)) return "a unit without a choice";
    m_book.edit(cell, list[below(static_cast<unsigned int>(list.size()))]);
    return "unit " + cell->describe(" -> ").substr(0, 120) + " = " + textIn(cell);
  }

  std::string changeDevice() {
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    const auto settings = selection->getDeviceSelectionList();
    const unsigned int index = below(static_cast<unsigned int>(settings.size()));
    std::vector<std::string> values;
    selection->getDeviceSelectionValues(index, values);
    const std::string value = values[below(static_cast<unsigned int>(values.size()))];
    selection->setDeviceSelectionCurrentValue(index, value);
    for (unsigned int i = 0; i < settings.size(); ++i) selection->getDeviceSelectionValues(i, values);
    const bool isRebuilt = below(2) == 0;
    selection->redrawTabs(isRebuilt);
    if (isRebuilt) m_book.trim(m_rows);
    m_book.settle();
    return "device " + settings[index] + " = " + value + (isRebuilt ? ", rebuilt" : "");
  }

  DeviceBook& m_book;
  unsigned long long m_state;
  unsigned int m_rows;
};

class RandomEdits : public ::testing::TestWithParam<std::string> {};

TEST_P(RandomEdits, IncrementalEqualsFull) {
  DeviceBook book(GetParam());
  constexpr unsigned int Rows = 12;
  book.trim(Rows);
  RandomUser user(book, 20240607, Rows);
  std::string history;
  for (int step = 0; step < 1000; ++step) {
    const std::string done = user.act();
    history = (history + "\n" + std::to_string(step) + ": " + done);
    if (history.size() > 2000) history.erase(0, history.find('\n', history.size() - 2000));
    const Captured out;
    ASSERT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull()) << history << "\n"
                                                                    << out.text().substr(0, 3000);
    KVXECellStateMgr::getGlobal().markGuiClean();
    ASSERT_EQ(KVXECalculationMgr::getGlobal().checkInvariants(), "") << history;
    ASSERT_EQ(KVXECellStateMgr::getGlobal().checkInvariants(), "") << history;
  }
}

INSTANTIATE_TEST_SUITE_P(All, RandomEdits, ::testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& param) {
                           std::string name;
                           for (const char c : param.param)
                             if (std::isalnum(static_cast<unsigned char>(c))) name += c;
                           return name;
                         });

}  // namespace
