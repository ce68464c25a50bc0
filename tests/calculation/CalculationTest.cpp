#include <gmock/gmock.h>

#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "tests/kit/Captured.h"
#include "tests/kit/TinyBook.h"

using namespace ::testing;
using enum KVXEEnums::CellType;

namespace {

/// Row by row A + B, and in the last row the sum of the rows above.
class CalculationTest : public TinyBook {
 protected:
  static constexpr unsigned int Rows = 4;

  void SetUp() override {
    TinyBook::SetUp();
    static const KVXEColumn columns[] = {{.title = &A, .type = INT, .isEditable = true, .number = 1},
                                         {.title = &B, .type = INT, .isEditable = true, .number = 10},
                                         {.title = &Sum, .type = INT, .formula = &addUp}};
    make(columns, Rows);
    at(Rows, Sum)->assignFormula(&KVXETab::updateColumnTotal);
  }

  KVXECalculationMgr& mgr = KVXECalculationMgr::getGlobal();
};

TEST_F(CalculationTest, FullCalculationLearnsWhatEachFormulaReads) {
  EventLog log;
  settle();
  EXPECT_EQ(text(1, Sum), "11");
  EXPECT_EQ(text(4, Sum), "33");
  EXPECT_THAT(log.edges, UnorderedElementsAre("A1>SUM1", "B1>SUM1", "A2>SUM2", "B2>SUM2", "A3>SUM3",
                                              "B3>SUM3", "SUM1>SUM4", "SUM2>SUM4", "SUM3>SUM4"));
}

TEST_F(CalculationTest, AnEditRunsOnlyWhatIsDownstream) {
  settle();
  EventLog log;
  edit(at(2, A), 5);
  EXPECT_EQ(text(2, Sum), "15");
  EXPECT_EQ(text(4, Sum), "37");
  EXPECT_THAT(log.runs, ElementsAre("A2", "SUM2", "SUM4"));
  EXPECT_THAT(log.dirtied, ElementsAre("A0", "A2", "SUM2 by A2", "SUM4 by SUM2"))
      << "the walk starts at vertex 0, which is the first header cell's as well";
  EXPECT_THAT(log.edges, IsEmpty());
}

TEST_F(CalculationTest, NothingDirtyIsNothingDone) {
  settle();
  EventLog log;
  EXPECT_TRUE(mgr.calculate());
  EXPECT_THAT(log.runs, IsEmpty());
}

TEST_F(CalculationTest, EvaluationFollowsTheOrderOfUidsAndPullsWhatItReads) {
  at(1, Sum)->assignFormula([](const KVXEUID& uid) {
    int below = 0;
    uid.getTable()->getCellAt(3, &Sum)->getVal(below, true);
    uid.getCell()->setValAndMarkEngineClean(below);
  });
  settle();
  EventLog log;
  edit(at(3, B), 7);
  EXPECT_THAT(log.runs, ElementsAre("SUM1", "SUM3", "B3", "SUM4"));
  EXPECT_EQ(text(1, Sum), "8");
}

TEST_F(CalculationTest, OnlyTableOperationsKeepTheGraphWhenCellsComeAndGo) {
  settle();
  EventLog log;
  {
    const KVXETableOperations::Scope operation;
    table->insertRow(2);
    mgr.incrCalculate();
  }
  EXPECT_LT(log.runs.size(), 12u) << "a full calculation would run all";
  EXPECT_EQ(text(5, Sum), "44") << "the total takes in the new row";
  EXPECT_THAT(table->getAddedRowIndices(), ElementsAre(2u));
  log.runs.clear();
  table->insertRow(2);
  mgr.incrCalculate();
  EXPECT_EQ(log.runs.size(), 18u) << "outside a table operation the graph is learned anew";
  checkInvariants();
}

TEST_F(CalculationTest, ADeletedCellIsNoDependentAnyMore) {
  settle();
  EXPECT_THAT(mgr.getDirectDependents(at(3, Sum)), ElementsAre(at(4, Sum)));
  const KVXETableOperations::Scope operation;
  table->deleteRow(4);
  EXPECT_THAT(mgr.getDirectDependents(at(3, Sum)), IsEmpty());
  table->deleteRow(2);
  mgr.incrCalculate();
  EXPECT_EQ(text(2, Sum), "11");
  EXPECT_THAT(table->getDeletedRowIndices(), ElementsAre(2u, 4u));
  checkInvariants();
}

TEST_F(CalculationTest, BeforeAnyCalculationNothingDepends) {
  mgr.resetGraph();
  EXPECT_THAT(mgr.getDirectDependents(at(1, A)), IsEmpty());
}

TEST_F(CalculationTest, ReadingItsOwnPreviousValueIsNoDependency) {
  at(1, Sum)->assignFormula([](const KVXEUID& uid) {
    int before = 0;
    uid.getCell()->getVal(before, false);
    uid.getCell()->setValAndMarkEngineClean(7);
  });
  Captured out;
  settle();
  EXPECT_THAT(mgr.getDirectDependents(at(1, Sum)), ElementsAre(at(4, Sum)));
  EXPECT_EQ(out.text(), "");
}

TEST_F(CalculationTest, ACycleIsReportedWithItsCallStackAndLeft) {
  at(1, Sum)->assignFormula([](const KVXEUID& uid) {
    int own = 0;
    uid.getCell()->getVal(own, true);
    uid.getCell()->setValAndMarkEngineClean(3);
  });
  Captured out;
  EventLog log;
  settle();
  EXPECT_THAT(log.edges, Not(Contains("A1>SUM1"))) << "what the report reads is no dependency";
  EXPECT_THAT(out.text(), HasSubstr("creates a cyclic dependancy with the cell it-self."));
  EXPECT_THAT(out.text(),
              HasSubstr("\tuid.describe() = Sysmon Tab -> Tiny Table -> Sum Column -> Row(Engine:1, "
                        "Gui:0 ) -> CellValue: "));
  EXPECT_THAT(out.text(), HasSubstr(" , getState() = DIRTY_DISABLED\n"));
  EXPECT_THAT(out.text(), HasSubstr("Dependency call stack:\n\tLevel-1:\tSysmon Tab"));
  EXPECT_EQ(text(1, Sum), "3");
}

TEST_F(CalculationTest, AFormulaThatForgetsToMarkItsCellCleanIsReportedAndMendedFor) {
  at(1, Sum)->assignFormula([](const KVXEUID&) {});
  Captured out;
  settle();
  EXPECT_THAT(out.text(),
              HasSubstr("that does not mark engine value clean for the cell.\n\tuid.describe() = "));
  EXPECT_TRUE(at(1, Sum)->isEngineClean());
}

TEST_F(CalculationTest, FormulasMayDeleteRowsThatAreStillToBeEvaluated) {
  at(1, Sum)->assignFormula([](const KVXEUID& uid) {
    KVXETable* rows = uid.getTable();
    while (rows->getRowCount() > 3) {
      rows->getCellAt(2, &A)->markDirtyForNextCalculationIteration();
      rows->deleteRow(2);
    }
    EXPECT_FALSE(rows->deleteRow(1)) << "not the row whose formula is running";
    uid.getCell()->setValAndMarkEngineClean(7);
  });
  Captured out;
  settle();
  EXPECT_EQ(table->getRowCount(), 3u);
  EXPECT_EQ(text(2, Sum), "7") << "the total is what is left";
  EXPECT_EQ(out.text(), "\n Unable to delete row");
}

TEST_F(CalculationTest, CellsThatFormulasMakeAreReportedAndCalculated) {
  at(1, Sum)->assignFormula([](const KVXEUID& uid) {
    if (uid.getTable()->getRowCount() == Rows + 1) uid.getTable()->getOrCreateRow(Rows + 1);
    uid.getCell()->setValAndMarkEngineClean(7);
  });
  Captured out;
  settle();
  EXPECT_EQ(text(Rows + 1, Sum), "11");
  EXPECT_THAT(out.text(),
              HasSubstr("Error: No or incorrect vertex found for below cell in DAG.\nSysmon Tab -> Tiny"));
}

TEST_F(CalculationTest, CellsThatWaitForTheNextRoundLeaveWhenTheyDie) {
  settle();
  for (const unsigned int row : {2u, 3u}) at(row, A)->markDirtyForNextCalculationIteration();
  table->deleteRow(2);
  ASSERT_EQ(mgr.getNextIterationCells().size(), 1u);
  EXPECT_EQ(mgr.getNextIterationCells().begin()->getCell(), at(2, A));
  KVXEBookMgr::getGlobal().closeProject();
  EXPECT_THAT(mgr.getNextIterationCells(), IsEmpty());
  EXPECT_EQ(mgr.checkInvariants(), "");
}

int roundsLeft = 0;

void askAgain(const KVXEUID& uid) {
  uid.getCell()->setValAndMarkEngineClean(roundsLeft);
  if (--roundsLeft > 0) uid.getCell()->markDirtyForNextCalculationIteration();
}

TEST_F(CalculationTest, RoundsEndAtAHundredWithAWarning) {
  at(1, Sum)->assignFormula(&askAgain);
  const struct {
    const char* label;
    int rounds;
    bool warns;
    int last;
  } cases[] = {
      {"settles early", 3, false, 1}, {"in the hundredth", 100, true, 1}, {"never", 1000, true, 901}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    roundsLeft = c.rounds;
    Captured out;
    mgr.fullCalculate();
    EXPECT_EQ(out.text().find("exceeded calculation iteration count threshold") != std::string::npos,
              c.warns);
    EXPECT_EQ(text(1, Sum), std::to_string(c.last));
    roundsLeft = 0;
    mgr.calculate();
  }
}

TEST_F(CalculationTest, CongestedFormulasAreThoseThatWriteMoreThanTenCells) {
  static int count = 0;
  table->getOrCreateRow(20);
  const auto writeMany = [](const KVXEUID& uid) {
    for (int i = 1; i < count; ++i)
      uid.getTable()->getCellAt(static_cast<unsigned int>(i) + 4, &A)->setValAndMarkEngineClean(i);
    uid.getCell()->setValAndMarkEngineClean(0);
    KVXECalculationMgr::getGlobal().flagCongestedNodes();
  };
  at(1, Sum)->assignFormula(writeMany);
  for (const auto& [written, isFlagged] : {std::pair{10, false}, {11, true}}) {
    count = written;
    Captured out;
    settle();
    EXPECT_EQ(out.text().find("It tries to update values of 11 cells in single call.") != std::string::npos,
              isFlagged);
  }
}

TEST_F(CalculationTest, VerificationPointsAtFormulasThatReadWhatNobodySees) {
  static int hidden = 1;
  at(2, Sum)->assignFormula([](const KVXEUID& uid) { uid.getCell()->setValAndMarkEngineClean(hidden); });
  settle();
  {
    Captured out;
    EXPECT_TRUE(mgr.verifyIncrVsFull());
    EXPECT_THAT(out.text(), HasSubstr("Info: Incremental and full analysis matched for all "));
  }
  hidden = 2;
  Captured out;
  EXPECT_FALSE(mgr.verifyIncrVsFull());
  EXPECT_THAT(out.text(),
              HasSubstr("did not calculate cell described below properly. \nIncremental Output: 1\n"
                        "Full Output: 2\n"));
  EXPECT_THAT(out.text(), HasSubstr(" cells were calculated incorrectly in incremental analysis"));
}

TEST_F(CalculationTest, RandomEditsEqualAPlainModelAndAFullCalculation) {
  settle();
  unsigned int seed = 12345;
  const auto random = [&seed](unsigned int below) {
    seed = seed * 1664525u + 1013904223u;
    return (seed >> 8) % below;
  };
  std::vector<std::array<int, 2>> model(Rows - 1, {1, 10});
  Captured out;
  for (int step = 0; step < 300; ++step) {
    const unsigned int row = random(static_cast<unsigned int>(model.size()));
    switch (random(4)) {
      case 0: {
        const KVXETableOperations::Scope operation;
        table->insertRow(row + 1);
        model.insert(model.begin() + row, {1, 10});
        calculate();
        break;
      }
      case 1: {
        if (model.size() < 2) break;
        const KVXETableOperations::Scope operation;
        table->deleteRow(row + 1);
        model.erase(model.begin() + row);
        calculate();
        break;
      }
      default: {
        const int value = static_cast<int>(random(1000));
        const size_t column = random(2);
        model[row][column] = value;
        edit(at(row + 1, column == 0 ? A : B), value);
      }
    }
    int total = 0;
    for (size_t i = 0; i < model.size(); ++i) {
      total += model[i][0] + model[i][1];
      ASSERT_EQ(text(static_cast<unsigned int>(i) + 1, Sum), std::to_string(model[i][0] + model[i][1]))
          << step;
    }
    ASSERT_EQ(text(static_cast<unsigned int>(model.size()) + 1, Sum), std::to_string(total)) << step;
    ASSERT_TRUE(mgr.verifyIncrVsFull()) << out.text();
    KVXECellStateMgr::getGlobal().markGuiClean();
  }
}

}  // namespace
