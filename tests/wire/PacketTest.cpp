#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "tests/wire/Mirror.h"
#include "tests/wire/WireBook.h"

namespace {

using KVXEEnums::CellState;
using KVXEEnums::Visibility;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Packet : public WireBook {
 protected:
  void SetUp() override {
    WireBook::SetUp();
    m_mirror.apply(reply());
  }
  /// Screen row and column of the cells of the next reply.
  std::vector<std::pair<int, int>> places() {
    std::vector<std::pair<int, int>> places;
    for (const KvxCellPacket& cell : tablePacket().cells()) places.emplace_back(cell.row(), cell.column());
    return places;
  }
  void expectMirrorHolds() {
    m_mirror.apply(reply());
    KVXECellStateMgr::getGlobal().requestGuiRedraw();
    Mirror fresh;
    fresh.apply(reply());
    EXPECT_THAT(m_mirror.differencesFrom(fresh), IsEmpty());
  }

  Mirror m_mirror;
};

TEST_F(Packet, HoldsWhatChangedAndNothingTwice) {
  EXPECT_TRUE(absorb("cells { row: 1 column: 1 intPacket { value: 5 } }"));
  EXPECT_THAT(places(), ElementsAre(std::pair(1, +AColumn), std::pair(1, +SumColumn)));
  EXPECT_EQ(reply().bookpacket().sections_size(), 0);
  EXPECT_EQ(KVXECellStateMgr::getGlobal().isGuiClean().second, 0u);
}

TEST_F(Packet, BlankCellsBlank) {
  absorb("cells { row: 0 column: 2 floatPacket { value: 2.5 } }");
  reply();
  absorb("cells { row: 0 column: 2 floatPacket { } }");
  const KvxCellPacket cell = tablePacket().cells(0);
  EXPECT_EQ(cell.column(), BColumn);
  EXPECT_FALSE(cell.floatpacket().has_value());
  EXPECT_TRUE(cell.has_unit());
  EXPECT_EQ(cell.unit(), "");
  EXPECT_TRUE(cell.floatpacket().has_min());
  EXPECT_FALSE(cell.floatpacket().has_max());
}

TEST_F(Packet, RowsComeAndGoOnce) {
  table->insertRow(2);
  table->insertRow(2);
  table->deleteRow(4);
  calculate();
  const KvxTablePacket packet = tablePacket();
  EXPECT_THAT(packet.addedrows(), ElementsAre(2, 3));
  EXPECT_THAT(packet.deletedrows(), ElementsAre(2));
  edit(at(1, A), 3);
  EXPECT_THAT(tablePacket().addedrows(), IsEmpty());
}

TEST_F(Packet, RowsReplayWhateverTheirOrder) {
  std::mt19937 random(7);
  table->getOrCreateRow(12);
  KVXECalculationMgr::getGlobal().fullCalculate();
  m_mirror.apply(reply());
  for (int round = 0; round < 60; ++round) {
    for (unsigned int i = random() % 6; i-- > 0;) {
      const unsigned int row = 1 + random() % (table->getRowCount() - 1);
      if (random() % 2 == 0 || table->getRowCount() < 4) {
        table->insertRow(row);
      } else {
        table->deleteRow(row);
      }
      table->getCellAt(1 + random() % (table->getRowCount() - 1), &A)
          ->setValAndState(static_cast<int>(random() % 50), CellState::DIRTY_DIRTY);
    }
    {
      const auto flag = KVXECalculationMgr::getGlobal().getIsGraphStale();
      flag ? KVXECalculationMgr::getGlobal().fullCalculate()
           : KVXECalculationMgr::getGlobal().incrCalculate();
    }
    expectMirrorHolds();
  }
}

TEST_F(Packet, LooksThatChangeWithoutAValueAreSent) {
  const struct {
    const char* what;
    std::function<void(KVXECell*)> change;
  } cases[] = {
      {"message", [](KVXECell* cell) { cell->setMsg(KvxSeverity::ERROR, "bad"); }},
      {"no message", [](KVXECell* cell) { cell->clearMsg(); }},
      {"read-only", [](KVXECell* cell) { cell->setIsEditable(false); }},
      {"colour", [](KVXECell* cell) { cell->setBackgroundColor(0xABCDEF); }},
      {"list",
       [](KVXECell* cell) {
         cell->setDDValsAndMarkEngineClean(std::vector<std::string>{"x", "z"});
       }},
  };
  for (const auto& [what, change] : cases) {
    SCOPED_TRACE(what);
    change(at(2, Choice));
    expectMirrorHolds();
    change(at(2, Choice));
    EXPECT_EQ(reply().bookpacket().sections_size(), 0) << "nothing changed";
  }
  at(1, A)->setRange(std::pair(0, 10));
  expectMirrorHolds();
}

TEST_F(Packet, HeadsCarryTextAndList) {
  table->setColumnHeaderText(&A, "Amps");
  table->getHeaderRow()->getDefaultCell(&Choice)->setDDValsAndMarkEngineClean(
      std::vector<std::string>{"x", "y", "z"});
  const KvxTablePacket packet = tablePacket();
  ASSERT_EQ(packet.headers_size(), 2);
  EXPECT_EQ(packet.headers(0).column(), AColumn);
  EXPECT_EQ(packet.headers(0).stringpacket().value(), "Amps");
  EXPECT_FALSE(packet.headers(0).has_row());
  EXPECT_EQ(packet.headers(1).column(), ChoiceColumn);
  EXPECT_THAT(packet.headers(1).stringpacket().dropdown(), ElementsAre("x", "y", "z"));
  EXPECT_EQ(packet.cells_size(), 0);
}

TEST_F(Packet, ANewListOfAColumnJudgesItsCells) {
  table->setColumnToolTip(&Choice, "Which one.");
  edit(at(1, Choice), std::string("y"));
  reply();
  table->getHeaderRow()->getDefaultCell(&Choice)->setDDValsAndMarkEngineClean(
      std::vector<std::string>{"y", "z"});
  const KvxTablePacket packet = tablePacket();
  ASSERT_EQ(packet.cells_size(), 2) << "the two that have x";
  EXPECT_EQ(packet.cells(0).row(), 1);
  EXPECT_THAT(packet.cells(0).message(), HasSubstr("Invalid value selected"));
  EXPECT_EQ(packet.severity(), 3);
  EXPECT_EQ(table->getHeaderRow()->getDisplayCell(ChoiceColumn)->getMsg()->getDisplayText(),
            "<html>Which one.</html>")
      << "a head is no entry";
}

TEST_F(Packet, WhatTheViewerDoesNotSeeIsNotSentAndDoesNotWait) {
  table->getRow(2)->setVisibility(Visibility::INTERNAL);
  reply();
  edit(at(2, A), 4);
  edit(at(3, A), 4);
  EXPECT_THAT(places(), ElementsAre(std::pair(1, +AColumn), std::pair(1, +SumColumn)));
  table->setVisibility(Visibility::INTERNAL);
  reply();
  edit(at(3, A), 5);
  for (const KvxSectionPacket& section : reply().bookpacket().sections()) EXPECT_EQ(section.tables_size(), 0);
  tab()->setVisibility(Visibility::DEVELOPER);
  reply();
  edit(at(3, A), 6);
  EXPECT_EQ(reply().bookpacket().sections_size(), 0);
  EXPECT_EQ(KVXECellStateMgr::getGlobal().getStateUsage(CellState::CLEAN_DIRTY), 0u);
}

TEST_F(Packet, AChangedShapeBringsABundle) {
  const std::function<void()> changes[] = {
      [&] { table->getRow(2)->setIsEnabled(false); },
      [&] { table->getRow(3)->setVisibility(Visibility::ALWAYS_HIDDEN); },
      [&] { table->setColumnVisibility(&B, Visibility::DEVELOPER); },
      [&] { table->setVisibility(Visibility::INTERNAL); },
      [&] { tab()->setVisibility(Visibility::INTERNAL); },
      [&] { KVXEPBHelper::getGlobal().setVisibility(Visibility::INTERNAL); },
      [&] { tab()->disableButton("KVX_AUTOFIT", "Nothing to fit."); },
      [&] { tab()->setIsEnabled(false); },
  };
  for (const auto& change : changes) {
    change();
    KVXECalculationMgr::getGlobal().fullCalculate();
    EXPECT_TRUE(reply().has_bookbundle());
    change();  // as it is already
    EXPECT_FALSE(reply().has_bookbundle());
  }
}

}  // namespace
