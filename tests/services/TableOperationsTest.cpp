#include <gmock/gmock.h>

#include <limits>
#include <random>

#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "tests/kit/Captured.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/TinyBook.h"

namespace {

using enum KVXEEnums::TableOperation;
using KVXEEnums::CellType;
using KVXEEnums::TableOperation;
using KVXEEnums::TabType;
using ::testing::IsEmpty;

constexpr int Most = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();

/// Five rows a to e, with the numbers 1 to 5 and a sum.
class TableOperations : public TinyBook {
 protected:
  static constexpr int Tab = static_cast<int>(TabType::SYSMON);

  void SetUp() override {
    TinyBook::SetUp();
    static const KVXEColumn columns[] = {
        {.title = &Name, .type = CellType::STRING, .isEditable = true, .text = "-"},
        {.title = &A, .type = CellType::INT, .isEditable = true},
        {.title = &B, .type = CellType::INT, .isEditable = true, .number = 10},
        {.title = &Sum, .type = CellType::INT, .formula = &addUp}};
    make(columns, 5, true)->setHasTableEditingFeatures(true);
    for (unsigned int row = 1; row <= 5; ++row) {
      at(row, Name)->setValAndState(std::string(1, static_cast<char>('a' + row - 1)), Dirty);
      at(row, A)->setValAndState(static_cast<int>(row), Dirty);
    }
    settle();
  }

  std::string names() {
    std::string all;
    for (unsigned int row = 1; row < table->getRowCount(); ++row) all += text(row, Name);
    return all;
  }

  std::string perform(TableOperation operation, std::vector<int> rows, int row, int onTable = 0) {
    const Captured silence;
    return m_operations.performTableOperation(nullptr, operation, Tab, onTable, rows, row);
  }

  static constexpr auto Dirty = KVXEEnums::CellState::DIRTY_DIRTY;
  KVXETableOperations& m_operations = KVXETableOperations::getGlobal();
};

struct Case {
  TableOperation operation;
  std::vector<int> rows;
  int row;
  const char* after;             // the names of the rows; '-' is a new one
  const char* failed = nullptr;  // what could not be completed
};

const Case cases[] = {
    {INSERT, {}, 0, "-abcde"},
    {INSERT, {}, 3, "abc-de"},
    {INSERT, {}, 5, "abcde-"},
    {INSERT, {}, 6, "abcde"},  // beyond the end: nothing happens, and that is no failure
    {INSERT, {}, -1, "abcde"},
    {INSERT, {}, Most, "abcde"},
    {INSERT, {}, Least, "abcde"},

    {DELETE, {1, 3}, 0, "ace"},
    {DELETE, {3, 1}, 0, "ace"},
    {DELETE, {2, 2}, 0, "abe"},  // a row listed twice takes along the one that moved up
    {DELETE, {0, 1, 2, 3, 4}, 0, ""},
    {DELETE, {}, 0, "abcde", "delete"},
    {DELETE, {5}, 0, "abcde", "delete"},
    {DELETE, {4, -1}, 0, "abcd", "delete"},
    {DELETE, {Most, 0}, 0, "abcde", "delete"},
    {DELETE, {Least}, 0, "abcde", "delete"},

    {DUPLICATE, {1, 2}, 0, "abcbcde"},
    {DUPLICATE, {2, 3}, 0, "abcdcde"},
    {DUPLICATE, {4}, 0, "abcdee"},
    {DUPLICATE, {0, 0}, 0, "abaacde"},
    {DUPLICATE, {}, 0, "abcde", "duplicate"},
    {DUPLICATE, {5}, 0, "abcde", "duplicate"},
    {DUPLICATE, {4, 7}, 0, "abcde", "duplicate"},
    {DUPLICATE, {-1}, 0, "-abcde", "paste"},  // the new row stays
    {DUPLICATE, {Most}, 0, "abcde", "duplicate"},
    {DUPLICATE, {Least}, 0, "abcde", "duplicate"},

    {PASTE, {0, 1}, 3, "abcab"},
    {PASTE, {4, 0}, 1, "aeade"},
    {PASTE, {2}, 2, "abcde"},
    {PASTE, {0, 1, 2}, 1, "aaaae"},  // one after the other, with what the rows hold by then
    {PASTE, {}, Least, "abcde"},
    {PASTE, {0, 1}, 4, "abcda", "paste"},
    {PASTE, {9}, 0, "abcde", "paste"},
    {PASTE, {0}, -1, "abcde", "paste"},
    {PASTE, {0}, Most, "abcde", "paste"},

    {FILL_DOWN, {1, 4}, 0, "abbde"},  // the first row and the number of rows count
    {FILL_DOWN, {0, Most, -5}, 0, "aaade"},
    {FILL_DOWN, {}, 0, "abcde", "fill down"},
    {FILL_DOWN, {1}, 0, "abcde", "fill down"},
    {FILL_DOWN, {3, 4, 5}, 0, "abcdd", "paste"},
    {FILL_DOWN, {4, 0}, 0, "abcde", "paste"},
    {FILL_DOWN, {Most, 0}, 0, "abcde", "fill down"},
    {FILL_DOWN, {Least, 0}, 0, "abcde", "paste"},

    {CLEAR, {0, 2, 2}, 0, "-b-de"},
    {CLEAR, {}, 0, "abcde", "clear"},
    {CLEAR, {0, 5, 1}, 0, "-bcde", "clear"},
    {CLEAR, {-1}, 0, "abcde", "clear"},

    {static_cast<TableOperation>(6), {0, 1}, 0, "abcde"},
    {static_cast<TableOperation>(0xFFFF), {}, Least, "abcde"},
};

const char* nameOf(TableOperation operation) {
  static constexpr const char* names[] = {"insert", "delete", "duplicate", "paste", "fill down", "clear"};
  return static_cast<size_t>(operation) < 6 ? names[static_cast<size_t>(operation)] : "unknown";
}

std::string failureOf(const char* operation) {
  return std::string("ERROR: Could not complete the ") + operation + " operation";
}

class EachCase : public TableOperations, public ::testing::WithParamInterface<Case> {};

void PrintTo(const Case& c, std::ostream* out) {
  *out << nameOf(c.operation) << ' ' << ::testing::PrintToString(c.rows) << " at " << c.row;
}

TEST_P(EachCase, DoesWhatItSaysAndCalculatesAfterASuccess) {
  const Case& c = GetParam();
  const std::string label = ::testing::PrintToString(c);
  at(1, B)->setValAndState(20, Dirty);
  EXPECT_EQ(perform(c.operation, c.rows, c.row), c.failed ? failureOf(c.failed) : "") << label;
  EXPECT_EQ(names(), c.after) << label;
  EXPECT_FALSE(m_operations.getIsTableOperationActive());
  checkInvariants();
  for (unsigned int row = 1; row < table->getRowCount(); ++row) {
    EXPECT_EQ(text(row, KVXETab::m_RowID), std::to_string(row)) << label;
    EXPECT_TRUE(c.failed || at(row, Sum)->isEngineClean()) << label;
  }
  const bool isUntouched = c.failed && std::string(c.after) == "abcde";
  EXPECT_TRUE(!isUntouched || text(1, Sum) == "11") << label << ": the calculation waits for the next edit";
  calculate();
  expectConsistent();
}

INSTANTIATE_TEST_SUITE_P(Operations, EachCase, ::testing::ValuesIn(cases));

TEST_F(TableOperations, RowsThatAreNotTheUsersOwnStay) {
  table->setHasTableEditingFeatures(false);
  for (const TableOperation operation : {INSERT, DELETE, DUPLICATE, PASTE, FILL_DOWN, CLEAR})
    EXPECT_EQ(perform(operation, {0, 1}, 0), failureOf(nameOf(operation)));
  EXPECT_EQ(names(), "abcde");
}

TEST_F(TableOperations, WithoutATableEachFailsInItsWords) {
  for (const int missing : {-1, 1, Most, Least})
    for (const TableOperation operation : {INSERT, DELETE, DUPLICATE, PASTE, FILL_DOWN, CLEAR})
      EXPECT_EQ(perform(operation, {0, 1}, 0, missing), failureOf(nameOf(operation)));
  EXPECT_EQ(m_operations.getTablePtr(-1, 0), nullptr);
  EXPECT_EQ(m_operations.getTablePtr(static_cast<int>(TabType::CLOCK), 0), nullptr);
  EXPECT_EQ(m_operations.getTablePtr(Tab, 0), table);
}

TEST_F(TableOperations, TheMenuOffersWhatLeavesARow) {
  const auto offered = [&](int onTable, std::vector<int> rows) {
    std::string letters;
    if (m_operations.canInsertTableRow(Tab, onTable, 0)) letters += "i";
    if (m_operations.canDeleteTableRows(Tab, onTable, rows)) letters += "d";
    if (m_operations.canDuplicateTableRows(Tab, onTable, rows)) letters += "u";
    if (m_operations.canPasteTableRows(Tab, onTable, rows, 0)) letters += "p";
    if (m_operations.canFillDownTableRows(Tab, onTable, rows)) letters += "f";
    if (m_operations.canClearTableRows(Tab, onTable, rows)) letters += "c";
    return letters;
  };
  EXPECT_EQ(offered(0, {}), "ip");
  EXPECT_EQ(offered(0, {1}), "idupc");
  EXPECT_EQ(offered(0, {0, 1, 2, 3}), "idupfc");
  EXPECT_EQ(offered(0, {0, 1, 2, 3, 4}), "iupfc") << "the last data row stays";
  EXPECT_EQ(offered(1, {0, 1}), "f") << "there is no such table";
  perform(DELETE, {0, 1, 2, 3, 4}, 0);
  EXPECT_EQ(offered(0, {0}), "upc") << "only the header row is left";
  table->setHasTableEditingFeatures(false);
  EXPECT_FALSE(m_operations.hasTableEditingFeatures(Tab, 0));
  table->setHasTableEditingFeatures(true);
  EXPECT_TRUE(m_operations.hasTableEditingFeatures(Tab, 0));
}

TEST_F(TableOperations, RowsAreCountedOnScreen) {
  table->getRow(2)->setIsEnabled(false);
  EXPECT_EQ(perform(CLEAR, {1, 2}, 0), "");
  EXPECT_EQ(names(), "ab--e");
  EXPECT_EQ(perform(DELETE, {3}, 0), "");
  EXPECT_EQ(names(), "ab--");
  EXPECT_EQ(perform(CLEAR, {3}, 0), failureOf("clear"));
  EXPECT_EQ(perform(DUPLICATE, {0}, 0), "");
  EXPECT_EQ(names(), "aba--");
}

// The real books.

/// What the user put into the rows of a table, and what the operations do to it in the simplest way.
class RowModel {
 public:
  using Row = std::vector<std::string>;

  static Row read(KVXETable& table, unsigned int index) {
    Row row;
    for (unsigned int column = table.getFirstContentColumn(); column < table.getColumnCount(); ++column)
      if (KVXECell* cell = table.getCellAt(index, column); cell->getIsEditable()) row.push_back(textIn(cell));
    return row;
  }

  RowModel(KVXETable& table, Row blank) : m_blank(std::move(blank)) {
    for (unsigned int i = 1; i < table.getRowCount(); ++i) m_rows.push_back(read(table, i));
  }

  int size() const { return static_cast<int>(m_rows.size()); }

  /// Returns what could not be completed; empty after a success.
  std::string perform(TableOperation operation, std::vector<int> rows, int row) {
    switch (operation) {
      case INSERT:
        insert(row);
        return {};
      case DELETE:
        std::sort(rows.rbegin(), rows.rend());
        return each(rows, [&](int r) { m_rows.erase(m_rows.begin() + r); }) ? "" : "delete";
      case DUPLICATE:
        for (const int r : rows) {
          const int copy = r + static_cast<int>(rows.size());
          if (!insert(copy)) return "duplicate";
          if (!paste({r}, copy)) return "paste";
        }
        return rows.empty() ? "duplicate" : "";
      case PASTE:
        return paste(rows, row) ? "" : "paste";
      case FILL_DOWN:
        if (rows.size() < 2) return "fill down";
        return paste(std::vector<int>(rows.size() - 1, rows[0]), rows[0] + 1) ? "" : "paste";
      default:
        return each(rows, [&](int r) { at(r) = m_blank; }) ? "" : "clear";
    }
  }

  std::string differenceFrom(KVXETable& table) const {
    if (table.getRowCount() != m_rows.size() + 1) return "the number of rows";
    for (unsigned int i = 1; i < table.getRowCount(); ++i)
      if (read(table, i) != m_rows[i - 1]) return "row " + std::to_string(i);
    return {};
  }

 private:
  bool has(int r) const { return r >= 0 && r < size(); }
  Row& at(int r) { return m_rows[static_cast<size_t>(r)]; }

  template <class Change>
  bool each(const std::vector<int>& rows, const Change& change) {
    for (const int r : rows) {
      if (!has(r)) return false;
      change(r);
    }
    return !rows.empty();
  }
  bool insert(int r) {
    if (r < 0 || r > size()) return false;
    m_rows.insert(m_rows.begin() + r, m_blank);
    return true;
  }
  bool paste(const std::vector<int>& rows, int destination) {
    for (const int r : rows) {
      if (!has(r) || !has(destination)) return false;
      at(destination) = Row(at(r));
      ++destination;
    }
    return true;
  }

  Row m_blank;
  std::vector<Row> m_rows;
};

class RealTable : public ::testing::TestWithParam<std::string> {
 protected:
  std::string perform(const KVXETable& table, TableOperation operation, std::vector<int> rows, int row) {
    return KVXETableOperations::getGlobal().performTableOperation(
        nullptr, operation, static_cast<int>(table.getTab()->getIndex()), static_cast<int>(table.getIndex()),
        rows, row);
  }
};

TEST_P(RealTable, ManyOperationsLeaveWhatASimpleListHolds) {
  DeviceBook book(GetParam());
  KVXETable& table = *book.book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
  const RowModel::Row blank = RowModel::read(table, 1);
  ASSERT_EQ(table.getRowCount(), 501u);
  for (unsigned int i = 1; i <= 400; ++i) {
    book.put(table.getCellAt(i, &KVXELogicTab::m_Name), "module " + std::to_string(i));
    book.put(table.getCellAt(i, &KVXELogicTab::m_LutAsLogic), static_cast<int>(i));
    book.put(table.getCellAt(i, &KVXELogicTab::m_ToggleRate), 0.001f * static_cast<float>(i));
  }
  book.settle();
  RowModel model(table, blank);

  std::mt19937 random(5);
  const auto draw = [&](int count) { return static_cast<int>(random() % static_cast<unsigned int>(count)); };
  const Captured silence;
  for (int step = 1; step <= 150; ++step) {
    const auto operation = static_cast<TableOperation>(draw(6));
    const int first = draw(model.size() + 3) - 1;
    std::vector<int> rows;
    for (int i = draw(6); i-- > 0;) rows.push_back(draw(4) == 0 ? draw(model.size() + 2) : first + i);
    const int destination = draw(model.size() + 3) - 1;
    const std::string failed = model.perform(operation, rows, destination);
    const std::string failure = perform(table, operation, rows, destination);
    ASSERT_EQ(failure, failed.empty() ? "" : failureOf(failed.c_str()))
        << step << ::testing::PrintToString(rows);
    ASSERT_EQ(model.differenceFrom(table), "") << "step " << step << ": " << nameOf(operation) << " "
                                               << ::testing::PrintToString(rows) << " at " << destination;
    ASSERT_EQ(table.checkInvariants(), "");
    if (step % 50 != 0) continue;
    calculateEdits();
    ASSERT_EQ(KVXECalculationMgr::getGlobal().checkInvariants(), "");
  }
}

TEST_P(RealTable, EveryOperationOnEveryTableLeavesWhatAFullCalculationFinds) {
  DeviceBook book(GetParam());
  book.trim(4);
  for (unsigned int i = 0; i < book.book()->getTabCount(); ++i) {
    KVXETab* tab = book.book()->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      KVXETable& table = *tab->getTable(j);
      if (!table.getHasTableEditingFeatures() || table.getRowCount() < 5) continue;
      for (const TableOperation operation : {INSERT, PASTE, DUPLICATE, FILL_DOWN, CLEAR, DELETE}) {
        EXPECT_EQ(perform(table, operation, {0, 1}, 2), "") << tab->getTypeAsStr() << nameOf(operation);
        expectConsistent();
      }
    }
  }
}

TEST_P(RealTable, AnInsertedRowCostsLittle) {
  struct Count : KVXECalculationObserver {
    Count() { KVXECalculationMgr::getGlobal().setObserver(this); }
    ~Count() override { KVXECalculationMgr::getGlobal().setObserver(nullptr); }
    void onBeginEvaluation(KVXECell*) override { ++runs; }
    int runs = 0;
  };
  DeviceBook book(GetParam());
  KVXETable& table = *book.book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
  const Count count;
  EXPECT_EQ(perform(table, INSERT, {}, 100), "");
  EXPECT_GT(count.runs, 0);
  EXPECT_LT(count.runs, 500) << "the graph is kept";
}

INSTANTIATE_TEST_SUITE_P(Architectures, RealTable, ::testing::ValuesIn(DeviceBook::architectures()));

}  // namespace
