#include <gmock/gmock.h>

#include "engine/base/workbook/CppStateManager.inl"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "tests/kit/Captured.h"
#include "tests/kit/TinyBook.h"

using namespace ::testing;
using namespace KVXEEnums;
using enum CellState;

namespace {

const char* const Letters[] = {"a", "b", "c"};

class CellTest : public TinyBook {
 protected:
  void SetUp() override {
    TinyBook::SetUp();
    static const KVXEColumn columns[] = {
        {.title = &A, .type = CellType::INT, .isEditable = true},
        {.title = &B, .type = CellType::FLOAT, .isEditable = true, .minimum = 0.5, .maximum = 9},
        {.title = &Name, .type = CellType::STRING, .isEditable = true},
        {.title = &Choice,
         .type = CellType::STRING,
         .isEditable = true,
         .isDropdown = true,
         .entries = Letters}};
    make(columns, 2);
  }
  KVXECell* cellOf(CellType type) {
    return at(1, type == CellType::INT ? A : type == CellType::FLOAT ? B : Name);
  }
};

TEST_F(CellTest, EveryCellAnswersInEachType) {
  const struct {
    CellType type;
    std::string stored;
    int asInt;
    float asFloat;
    std::string asText;
  } cases[] = {
      {CellType::INT, "42", 42, 42.0f, "42"},          {CellType::INT, "9 lives", 9, 9.0f, "9"},
      {CellType::FLOAT, "-2.75", -2, -2.75f, "-2.75"}, {CellType::FLOAT, "1e20", 2147483647, 1e20f, "1e+20"},
      {CellType::STRING, "3.5 V", 3, 3.5f, "3.5 V"},   {CellType::STRING, "none", 0, 0.0f, "none"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.stored);
    KVXECell* cell = cellOf(c.type);
    cell->setValAndState(c.stored, DIRTY_DIRTY);
    int i = 0;
    float f = 0;
    std::string s;
    EXPECT_TRUE(cell->getVal(i, false) && cell->getVal(f, false) && cell->getVal(s, false));
    EXPECT_EQ(i, c.asInt);
    EXPECT_EQ(f, c.asFloat);
    EXPECT_EQ(s, c.asText);
    EXPECT_EQ(cell->getValueSource(), ValueSource::FORMULA);
  }
}

TEST_F(CellTest, BlankIsTheBlankOfTheCellsOwnType) {
  for (const CellType type : {CellType::INT, CellType::FLOAT, CellType::STRING}) {
    KVXECell* cell = cellOf(type);
    cell->setValAndState(5, DIRTY_DIRTY);
    cell->setBlankAndMarkEngineClean();
    int i = 0;
    std::string s = "x";
    EXPECT_FALSE(cell->getVal(i, false)) << nameOf(type);
    EXPECT_FALSE(cell->getValWithUnit(s, false));
    EXPECT_EQ(s, "");
  }
  std::string text;
  EXPECT_FALSE(at(1, A)->getVal(text, false));
  EXPECT_EQ(text, "2147483646");
  at(1, B)->setValAndState(std::numeric_limits<float>::quiet_NaN(), DIRTY_DIRTY);
  int zero = 1;
  EXPECT_TRUE(at(1, B)->getVal(zero, false)) << "no number is not blank";
  EXPECT_EQ(zero, 0);
}

TEST_F(CellTest, DisplayFollowsTheUnitsTable) {
  const auto shown = [this] {
    std::string text;
    at(1, B)->markEngineClean();
    EXPECT_TRUE(at(1, B)->getValWithUnit(text, false));
    return text;
  };
  at(1, B)->setValAndState(0.5f, DIRTY_DIRTY);
  at(1, B)->setUnit(Unit::POWER_SHOW);
  EXPECT_EQ(shown(), "0.5") << "without a summary the unit changes nothing";
  KVXETab* summary = book()->getOrCreateTab(TabType::SUMMARY);
  KVXETable* units = summary->getTable(&KVXETab::m_UnitsTable);
  if (!units) {
    static const KVXEColumn columns[] = {
        {.title = &KVXETab::m_UnitsMultiplier, .type = CellType::FLOAT},
        {.title = &KVXETab::m_UnitsOffset, .type = CellType::FLOAT, .number = 0},
        {.title = &KVXETab::m_UnitsSuffix, .type = CellType::STRING}};
    units = summary->createTable(&KVXETab::m_UnitsTable, false, false, true, GridComponentType::TABLE);
    units->addColumns(columns);
  }
  KVXERow* row = units->getOrCreateRow(static_cast<unsigned int>(Unit::POWER_SHOW));
  row->getCell(&KVXETab::m_UnitsMultiplier)->setValAndState(1000.0f, CLEAN_CLEAN);
  row->getCell(&KVXETab::m_UnitsSuffix)->setValAndState(std::string("mW"), CLEAN_CLEAN);
  EXPECT_EQ(shown(), "500 mW");
  float value = 250.0f;
  at(1, B)->unitAdjustment(value, false);
  EXPECT_EQ(value, 0.25f);
  at(1, B)->setUnit(Unit::NO_UNIT);
  EXPECT_EQ(shown(), "0.5") << "nothing of the former unit stays";
}

TEST_F(CellTest, DropDownListsAreOfTheColumnUnlessTheCellHasItsOwn) {
  std::vector<std::string> list;
  EXPECT_TRUE(at(1, Choice)->getDDVals(list));
  EXPECT_THAT(list, ElementsAre("a", "b", "c"));
  at(1, Choice)->setDDValsAndMarkEngineClean(std::vector<std::string>{"own"});
  table->getHeaderRow()->getDefaultCell(&Choice)->setDDValsAndMarkEngineClean(std::vector<std::string>{"z"});
  at(1, Choice)->getDDVals(list);
  EXPECT_THAT(list, ElementsAre("own"));
  at(2, Choice)->getDDVals(list);
  EXPECT_THAT(list, ElementsAre("z"));
  at(2, Choice)->copyAssignElements(at(2, Name));
  at(2, Name)->getDDVals(list);
  EXPECT_THAT(list, ElementsAre("z")) << "a copy to another column takes the list along";
  at(1, Choice)->copyAssignElements(at(2, Choice));
  at(2, Choice)->getDDVals(list);
  EXPECT_THAT(list, ElementsAre("own"));
  const Captured out;
  at(1, Name)->setDDValsAndMarkEngineClean(std::vector<std::string>{"x"});
  EXPECT_THAT(out.text(),
              StartsWith("Error: Trying to set a drop-down value for a non drop-down column: Sysmon Tab"));
}

TEST_F(CellTest, WhoReadsAnInheritedListDependsOnItsColumn) {
  at(1, A)->assignFormula([](const KVXEUID& uid) {
    std::vector<std::string> list;
    uid.getRow()->getCell(&Choice)->getDDVals(list);
    uid.getCell()->setValAndMarkEngineClean(static_cast<int>(list.size()));
  });
  settle();
  EXPECT_THAT(KVXECalculationMgr::getGlobal().getDirectDependents(at(1, Choice)->getHeaderDefaultCell()),
              ElementsAre(at(1, A)));
}

TEST_F(CellTest, AValueOutsideItsListCarriesAMessageUntilItIsMended) {
  KVXECell* cell = at(1, Choice);
  const struct {
    std::string value;
    bool isEditable;
    bool isWrong;
  } cases[] = {{"q", true, true}, {"b", true, false}, {"q", false, false}, {"", true, false}};
  for (const auto& c : cases) {
    cell->setIsEditable(c.isEditable);
    cell->setValAndState(c.value, DIRTY_DIRTY);
    cell->addDDErrorMsgIfApplicable();
    EXPECT_EQ(cell->getSeverity() == KvxSeverity::ERROR, c.isWrong) << c.value;
    EXPECT_EQ(tab()->getTabSeverity(), c.isWrong ? 3 : 0);
  }
}

TEST_F(CellTest, MessagesRaiseTheTableAndTheTabAndColourTheCell) {
  at(1, A)->setMsg(KvxSeverity::INFO, "tip");
  EXPECT_EQ(table->getTableSeverity(), 0);
  at(1, A)->setMsg(KvxSeverity::WARNING, "hm");
  EXPECT_EQ(at(1, A)->getColor(), (KVXECell::Colors{0x000000, 0xFFF2CC}));
  EXPECT_EQ(at(1, A)->getMsg()->getDisplayText(), "<html>hm</html>");
  EXPECT_EQ(table->getTableSeverity(), 2);
  at(2, B)->setMsg(KvxSeverity::ERROR, "<html>no</html>");
  EXPECT_EQ(tab()->getTabSeverity(), 3);
  table->setColumnVisibility(&B, Visibility::INTERNAL);
  EXPECT_EQ(tab()->getTabSeverity(), 2) << "what the viewer does not see does not count";
  table->deleteRow(2);
  at(1, A)->clearMsg();
  EXPECT_EQ(tab()->getTabSeverity(), 0);
  at(1, A)->setIsEditable(false);
  EXPECT_EQ(at(1, A)->getColor(), (KVXECell::Colors{0x000000, 0xF5F5F5}));
}

TEST_F(CellTest, CopyingMovesTheContentsAndLeavesTheStateButDirty) {
  KVXECell* from = at(1, B);
  KVXECell* to = at(2, B);
  from->setValAndState(3.5f, DIRTY_DIRTY);
  from->setValueSource(ValueSource::XML);
  from->setIsEditable(false);
  from->setRange(std::pair{1.0f, 2.0f});
  to->setState(CLEAN_CLEAN);
  from->copyAssignElements(to);
  EXPECT_EQ(to->getState(), DIRTY_DIRTY);
  EXPECT_EQ(to->getValueSource(), ValueSource::XML);
  EXPECT_TRUE(from->isEquivalentElements(to));
  EXPECT_EQ(static_cast<KVXEFloatCell*>(to)->getRange(), (std::pair{1.0f, 2.0f}));
  to->setRange(std::pair{1.0f, 3.0f});
  EXPECT_FALSE(from->isEquivalentElements(to));
  EXPECT_FALSE(from->isEquivalentElements(at(2, A)));
  const Captured out;
  const std::string error = "Error: Please create a cell object before assignment operation.\n";
  from->copyAssignElements(nullptr);
  from->copyAssignElements(at(2, A));
  EXPECT_EQ(out.text(), error + error) << "neither nothing nor another type";
}

TEST_F(CellTest, ACellTakenOutOfTheStatesStaysOut) {
  KVXECell* cell = at(1, A);
  cell->clearState();
  cell->clearState();
  const Captured err(std::cerr);
  cell->markEngineClean();
  EXPECT_EQ(cell->getState(), NumItems);
  at(2, A)->copyAssignElements(cell);
  EXPECT_EQ(cell->getState(), NumItems);
  EXPECT_EQ(KVXECellStateMgr::getGlobal().checkInvariants(), "");
}

TEST_F(CellTest, HeaderCellsKnowTheirColumn) {
  const std::pair<const KVXETitle*, int> classes[] = {{&A, 500}, {&B, 200}, {&Name, 700}, {&Choice, 810}};
  for (const auto& [title, expected] : classes) {
    KVXEHeaderCell* display = at(1, *title)->getHeaderDisplayCell();
    EXPECT_EQ(display->getPBColumnClass(), expected);
    EXPECT_EQ(display->getDefaultCell(), at(1, *title)->getHeaderDefaultCell());
    EXPECT_EQ(display->getHeaderDefaultCell(), at(2, *title)->getHeaderDefaultCell());
  }
}

TEST_F(CellTest, StatesMoveAsTheirTwoSidesSay) {
  const std::vector<std::vector<CellState>> moves = {
      // from, engine clean, gui clean, both dirty, disabled, enabled
      {HEADER_DISABLED, HEADER_DISABLED, HEADER_CLEAN, HEADER_DISABLED, DISABLED_DISABLED, HEADER_DISABLED},
      {HEADER_DIRTY, HEADER_DIRTY, HEADER_CLEAN, HEADER_DIRTY, DISABLED_DIRTY, HEADER_DIRTY},
      {DIRTY_DISABLED, CLEAN_DISABLED, DIRTY_DISABLED, DIRTY_DISABLED, DISABLED_DISABLED, DIRTY_DISABLED},
      {CLEAN_DISABLED, CLEAN_DISABLED, CLEAN_CLEAN, DIRTY_DISABLED, DISABLED_DISABLED, CLEAN_DISABLED},
      {DIRTY_DIRTY, CLEAN_DIRTY, DIRTY_DIRTY, DIRTY_DIRTY, DISABLED_DIRTY, DIRTY_DIRTY},
      {CLEAN_DIRTY, CLEAN_DIRTY, CLEAN_CLEAN, DIRTY_DIRTY, DISABLED_DIRTY, CLEAN_DIRTY},
      {DIRTY_CLEAN, CLEAN_CLEAN, DIRTY_CLEAN, DIRTY_DIRTY, DISABLED_DIRTY, DIRTY_CLEAN},
      {CLEAN_CLEAN, CLEAN_CLEAN, CLEAN_CLEAN, DIRTY_DIRTY, DISABLED_DIRTY, CLEAN_CLEAN},
      {DISABLED_DIRTY, DISABLED_DIRTY, DISABLED_DISABLED, DISABLED_DIRTY, DISABLED_DIRTY, DIRTY_DIRTY},
      {DISABLED_DISABLED, DISABLED_DISABLED, DISABLED_DISABLED, DISABLED_DISABLED, DISABLED_DISABLED,
       DIRTY_DISABLED}};
  const Captured out;
  KVXECell* cell = at(1, A);
  for (const auto& move : moves) {
    const auto expect = [&](size_t column, auto&& act) {
      cell->setState(move[0]);
      act();
      EXPECT_EQ(cell->getState(), move[column]) << nameOf(move[0]) << " column " << column;
    };
    expect(1, [&] { cell->markEngineClean(); });
    expect(2, [&] { cell->markGuiClean(); });
    expect(3, [&] { cell->markBothDirty(); });
    expect(4, [&] { cell->setIsEnabled(false); });
    expect(5, [&] { cell->setIsEnabled(true); });
  }
  KVXECell* header = table->getRow(0)->getChild(0);
  header->setState(DISABLED_DIRTY);
  header->setIsEnabled(true);
  EXPECT_EQ(header->getState(), HEADER_CLEAN);
  EXPECT_FALSE(header->isEnabled());
}

TEST_F(CellTest, PopulationsMoveAtOnce) {
  auto& states = KVXECellStateMgr::getGlobal();
  settle();
  EXPECT_EQ(states.isEngineClean(), (std::pair{true, 0u}));
  EXPECT_EQ(states.isGuiClean(), (std::pair{true, 0u}));
  at(1, A)->setState(CLEAN_DIRTY);
  EXPECT_TRUE(states.isGuiClean().first) << "cells that wait for a refresh do not count";
  KVXEUIDSet waiting = makeUIDSet();
  states.getCellsForGuiRefresh(waiting);
  ASSERT_EQ(waiting.size(), 1u);
  EXPECT_EQ(waiting.begin()->getCell(), at(1, A));
  at(1, B)->setState(DISABLED_DIRTY);
  EXPECT_EQ(states.isGuiClean(), (std::pair{false, 2u})) << "disabled and stale counts twice";
  EXPECT_EQ(states.isGuiRedrawNeeded(), (std::pair{true, 1u}));
  states.markBothDirty();
  EXPECT_EQ(at(1, A)->getState(), DIRTY_DIRTY);
  const Captured out;
  states.markGuiClean();
  EXPECT_THAT(out.text(), StartsWith("Warning: Trying to mark GUI Clean while engine has "));
}

/// A node of its own shows the manager without cells around it.
struct Node {
  CppStateNodesBundle<Node, AtomType>* mp_state = nullptr;
  unsigned int m_stateSlot = 0;
};

TEST(StateManager, BundlesMigrateAndMergeWhenTheyGetSmall) {
  std::vector<Node> nodes(9);  // the manager lets go of them when it ends
  CppStateManager<Node, AtomType> manager;
  EXPECT_TRUE(manager.migrateGivenStateTo(AtomType::ROW, AtomType::CELL)) << "from a state without a list";
  manager.setState(&nodes[0], AtomType::BOOK);
  manager.setState(&nodes[1], AtomType::TAB);
  manager.setState(&nodes[2], AtomType::TABLE);
  EXPECT_TRUE(manager.migrateGivenStateTo(AtomType::BOOK, AtomType::BOOK));
  EXPECT_FALSE(manager.migrateGivenStateTo(AtomType::BOOK, AtomType::TABLE)) << "two of one node each merge";
  EXPECT_FALSE(manager.migrateAllStatesTo(AtomType::TABLE));
  EXPECT_EQ(manager.getStateUsage(AtomType::TABLE), 3u);
  for (size_t i = 3; i < 9; ++i) manager.setState(&nodes[i], AtomType::CELL);
  EXPECT_FALSE(manager.swapStates(AtomType::TABLE, AtomType::CELL)) << "the three are merged again";
  EXPECT_EQ(manager.getState(&nodes[0]), AtomType::CELL);
  EXPECT_EQ(manager.getState(&nodes[8]), AtomType::TABLE);
  EXPECT_EQ(manager.checkInvariants(), "");
  const Captured out;
  manager.printStateUsage(7);
  EXPECT_EQ(
      out.text(),
      "State usage at line 7\n\tTABLE -> 6 (in 1 fragments)\n\tCELL -> 3 (in 1 fragments)\nTotal -> 9\n");
  const Captured err(std::cerr);
  manager.clearState(&nodes[0]);
  EXPECT_EQ(manager.getState(&nodes[0]), AtomType::BOOK);
  EXPECT_EQ(err.text(), "Trying to getState for a node for which mp_state pointer is nullptr\n");
}

}  // namespace
