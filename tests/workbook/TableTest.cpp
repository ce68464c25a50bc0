#include <gmock/gmock.h>

#include <regex>

#include "engine/base/workbook/KVXEChart.h"
#include "engine/base/workbook/KVXEDebugTab.h"
#include "engine/base/workbook/KVXEImage.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "tests/kit/Captured.h"
#include "tests/kit/TinyBook.h"

using namespace ::testing;
using namespace KVXEEnums;

namespace {

class TableTest : public TinyBook {
 protected:
  void SetUp() override {
    TinyBook::SetUp();
    static const KVXEColumn columns[] = {
        {.title = &Name, .type = CellType::STRING, .isEditable = true},
        {.title = &A, .type = CellType::INT, .isEditable = true, .number = 1, .toolTip = "An A."},
        {.title = &B, .type = CellType::FLOAT, .isEditable = true, .visibility = Visibility::INTERNAL}};
    make(columns, 4, true);
  }
  std::string ids() {
    std::string all;
    for (unsigned int i = 1; i < table->getRowCount(); ++i) all += text(i, KVXETab::m_RowID) + " ";
    return all;
  }
};

TEST_F(TableTest, ColumnsCarryTheirDeclaration) {
  EXPECT_EQ(table->getColumnCount(), 4u);
  EXPECT_EQ(table->getColumnType(2), CellType::INT);
  EXPECT_EQ(table->getColumnType(9), CellType::NumItems);
  EXPECT_EQ(text(3, A), "1");
  EXPECT_EQ(table->getRow(0)->getCell(&A)->getMsg()->getDisplayText(), "<html>An A.</html>");
  EXPECT_EQ(table->getRow(0)->getCell(0u)->getMsg()->getDisplayText(),
            "<html>Row ID of the given row.</html>");
  EXPECT_EQ(table->getColumnVisibility(&B), Visibility::INTERNAL);
  const Captured out;
  table->getHeaderRow()->assignHeaderToIndex(&A, 3);
  EXPECT_EQ(out.text(),
            "Error: A column name must be unique for a table.Column 2 and 3 have same header: A\n");
  EXPECT_EQ(table->getTitleToIndex(&Total), 0xFFFFFFFF);
  EXPECT_THAT(out.text(), EndsWith("\nError: Given header Total does not exist (yet) in the table.\n"));
}

TEST_F(TableTest, ScreenRowsCloseUpOverWhatIsDisabledOrHidden) {
  unsigned int engine = 0;
  int gui = 0;
  EXPECT_TRUE(table->guiToEngineIndex(0, engine) && engine == 1u);
  EXPECT_TRUE(table->engineToGuiIndex(1, gui) && gui == 0);
  EXPECT_FALSE(table->guiToEngineIndex(-1, engine));
  EXPECT_FALSE(table->engineToGuiIndex(0, gui));
  table->getRow(2)->setIsEnabled(false);
  table->getRow(4)->setVisibility(Visibility::INTERNAL);
  EXPECT_TRUE(table->guiToEngineIndex(1, engine) && engine == 3u);
  EXPECT_FALSE(table->guiToEngineIndex(2, engine));
  EXPECT_EQ(engine, 0x7FFFFFFFu);
  EXPECT_FALSE(table->engineToGuiIndex(2, gui));
  EXPECT_EQ(ids(), "1 2 2 3 ") << "a row without a place keeps the number it had";
  table->getOrCreateRow(5);
  EXPECT_TRUE(table->engineToGuiIndex(5, gui) && gui == 2) << "a new row has its place";
  table->deleteRow(5);
  KVXEViewer::setLevel(Visibility::INTERNAL);
  table->populateIndexMapping();
  EXPECT_TRUE(table->engineToGuiIndex(4, gui) && gui == 2);
  KVXEViewer::setLevel(Visibility::EXTERNAL);
  table->getRow(4)->setVisibility(Visibility::EXTERNAL);
  table->setIsEnabled(false);
  table->setIsEnabled(true);
  EXPECT_EQ(ids(), "1 2 3 4 ");
}

TEST_F(TableTest, ATableWithoutDataRowsHasNoScreen) {
  KVXETable* empty = tab()->createTable(&Total, false, false, true, GridComponentType::TABLE);
  EXPECT_EQ(empty->getPrintableArea(), (std::pair{0u, 0u}));
  EXPECT_EQ(empty->getFirstRowIDWithDefaults(false), 1u);
  EXPECT_EQ(empty->getLastRowIDWithoutDefaults(), 0u);
  EXPECT_EQ(empty->insertRow(1), nullptr);
}

TEST_F(TableTest, DefaultsTellUsedRowsFromFreeOnes) {
  EXPECT_EQ(table->getLastRowIDWithoutDefaults(), 0u) << "row numbers do not count";
  EXPECT_EQ(table->getFirstRowIDWithDefaults(true), 1u);
  KVXETable* plain = tab()->createTable(&Total, false, false, true, GridComponentType::TABLE);
  static const KVXEColumn columns[] = {{.title = &A, .type = CellType::INT}};
  plain->addColumns(columns);
  plain->getOrCreateRow(3);
  EXPECT_EQ(plain->getLastRowIDWithoutDefaults(), 0u);
  EXPECT_EQ(plain->getFirstRowIDWithDefaults(false), 1u);
  plain->getCellAt(1, &A)->setValAndState(0, CellState::DIRTY_DIRTY);
  EXPECT_EQ(plain->getFirstRowIDWithDefaults(false), 2u);
  EXPECT_EQ(plain->getFirstRowIDWithDefaults(true), 1u) << "on screen 0 is as good as blank";
  EXPECT_EQ(plain->getLastRowIDWithoutDefaults(), 1u);
}

TEST_F(TableTest, RowsComeMoveAndGo) {
  for (unsigned int i = 1; i <= 4; ++i)
    at(i, Name)->setValAndState("n" + std::to_string(i), CellState::DIRTY_DIRTY);
  settle();
  const auto names = [this] {
    std::string all;
    for (unsigned int i = 1; i < table->getRowCount(); ++i) all += text(i, Name) + " ";
    return all;
  };
  table->insertRow(3);
  EXPECT_EQ(names(), "n1 n2  n3 n4 ");
  EXPECT_EQ(ids(), "1 2 3 4 5 ");
  EXPECT_EQ(at(3, A)->getState(), CellState::DIRTY_DIRTY);
  EXPECT_EQ(at(1, A)->getState(), CellState::DIRTY_DIRTY) << "row 1 starts the next calculation";
  table->moveDownStreamRowsUpByOneRow(2u);
  EXPECT_EQ(names(), "n1  n3 n4  ");
  table->deleteRow(1);
  EXPECT_EQ(names(), " n3 n4  ");
  EXPECT_EQ(ids(), "1 2 3 4 ");
  table->getRow(2)->copyAssignElements(table->getRow(4));
  EXPECT_EQ(names(), " n3 n4 n3 ");
  EXPECT_EQ(ids(), "1 2 3 4 ");
  const Captured out;
  EXPECT_FALSE(table->deleteRow(0));
  EXPECT_FALSE(table->deleteRow(9));
  EXPECT_EQ(table->insertRow(7), nullptr);
  EXPECT_EQ(out.text(), "\n Unable to delete row\n Unable to delete row\n Unable to insert row");
  table->resetDefaults(0, 99);
  EXPECT_EQ(names(), "    ");
  EXPECT_EQ(ids(), "1 2 3 4 ");
  checkInvariants();
}

TEST_F(TableTest, LookupFindsByTextNumberAndPattern) {
  const char* names[] = {"VCCINT", "VCCRAM", "MXCVRA(1)", "VCCINT"};
  for (unsigned int i = 1; i <= 4; ++i) {
    at(i, Name)->setValAndState(std::string(names[i - 1]), CellState::DIRTY_DIRTY);
    at(i, A)->setValAndState(static_cast<int>(10 * i), CellState::DIRTY_DIRTY);
  }
  EXPECT_EQ(tab()->lookup<std::string>(&Table, "VCCINT", &Name, &A, false), at(1, A));
  EXPECT_EQ(tab()->lookup<int>(&Table, 30, &A, &Name, false), at(3, Name));
  std::vector<KVXECell*> cells;
  EXPECT_TRUE(tab()->lookup<std::string>(&Table, "VCC.*", &Name, &A, cells, true));
  EXPECT_THAT(cells, ElementsAre(at(1, A), at(2, A), at(4, A)));
  EXPECT_EQ(tab()->lookup<std::string>(&Table, "MXCVRA(1)", &Name, &A, true), nullptr)
      << "a group, not brackets";
  EXPECT_THROW(tab()->lookup<std::string>(&Table, "VCC(", &Name, &A, true), std::regex_error);
  EXPECT_EQ(book()->lookup<std::string>(TabType::DSP, &Table, "x", &Name, &A, false), nullptr);
  const Captured out;
  at(2, Name)->setValAndState(std::string(1000000, 'x'), CellState::DIRTY_DIRTY);
  EXPECT_EQ(tab()->lookup<std::string>(&Table, "x*", &Name, &A, true), nullptr);
  EXPECT_THAT(out.text(), HasSubstr("a text of 1000000 characters is too long"));
  EXPECT_EQ(tab()->lookup<std::string>(&Table, std::string(100000, '('), &Name, &A, true), nullptr);
  EXPECT_THAT(out.text(), EndsWith("a pattern of 100000 characters is too long and matches nothing.\n"));
  EXPECT_EQ(tab()->lookup<std::string>(&Table, "x", &Name, &Sum, false), nullptr);
  EXPECT_THAT(out.text(), HasSubstr("Error: lookup function could not find given headers."));
}

TEST_F(TableTest, LookupPassesOverRowsThatAreOlderThanTheColumn) {
  static const KVXEColumn late[] = {{.title = &Sum, .type = CellType::INT, .number = 3}};
  table->addColumns(late);
  table->getOrCreateRow(5);
  EXPECT_EQ(at(4, Sum), nullptr);
  EXPECT_EQ(tab()->lookup<int>(&Table, 3, &Sum, &A, false), at(5, A));
  EXPECT_EQ(tab()->lookup<int>(&Table, 1, &A, &Sum, false), at(5, Sum));
}

class TabTest : public TinyBook {};

TEST_F(TabTest, APlainTabHasThreeButtonsAndSaysThatMoreIsToCome) {
  KVXETab* plain = book()->getOrCreateTab(TabType::OTHER);
  std::string ids;
  for (const auto& button : plain->getButtons()) ids += button->getId() + " ";
  EXPECT_EQ(ids, "KVX_SUMMARY KVX_AUTOFIT KVX_CREATE_IP ");
  EXPECT_EQ(plain->getTableCount(), 0u);
  EXPECT_EQ(plain->getPlaceholderText(), "Other tab is yet to be implemented. Stay tuned!");
  EXPECT_EQ(plain->getPBSuffix(), "");
  EXPECT_EQ(book()->getOrCreateTab(TabType::NumItems), nullptr);
  plain->disableButton("KVX_AUTOFIT", "busy");
  EXPECT_FALSE(plain->getButtons()[1]->getIsEnabled());
  plain->enableButton("KVX_AUTOFIT", "ready", "Fit");
  EXPECT_EQ(plain->getButtons()[1]->getText() + plain->getButtons()[1]->getToolTip(), "Fitready");
}

TEST_F(TabTest, DuplicatesKeepTheFirst) {
  const Captured out;
  std::string file = "a.png";
  KVXETable* first = tab()->createTable(&Table, false, false, true, GridComponentType::SPACER);
  EXPECT_EQ(tab()->createTable(&Table, true, false, true, GridComponentType::TABLE), first);
  KVXEImage* image = tab()->createImage(&Name, file, &KVXECell::NoFormula, false);
  EXPECT_EQ(tab()->createImage(&Name, file, &KVXECell::NoFormula, false), image);
  EXPECT_EQ(out.text(),
            "Warning: Trying to create table Tiny again. Please use unique names for tables inside a tab.\n"
            "Warning: Trying to create image Name again. Please use unique names for images inside a tab.\n");
  image->setFileName("b.png");
  EXPECT_TRUE(image->getFileName(file));
  EXPECT_EQ(file, "b.png");
  EXPECT_EQ(image->getPBGridViewType(), GridComponentType::IMAGE);
  EXPECT_EQ(first->getPBGridViewType(), GridComponentType::SPACER);
  first->setTabWidgetTitle("Clock");
  EXPECT_FALSE(tab()->hasMultipleTablesInTabWidget("Clock"));
  image->setTabWidgetTitle("Clock");
  EXPECT_TRUE(tab()->hasMultipleTablesInTabWidget("Clock"));
  EXPECT_EQ(first->getOrCreateChartView(true)->getSeries()[1]->name, "Dynamic");
  EXPECT_EQ(first->getChartViewKind(), 2u);
}

TEST_F(TabTest, PowerAndUtilizationTablesAddUp) {
  std::vector<KVXETab::PowerTableRow> rails = {
      {"VCCINT", [](const KVXEUID& uid) { uid.getCell()->setValAndMarkEngineClean(1.5f); },
       &KVXECell::NoFormula},
      {"VCCAUX", &KVXECell::NoFormula,
       [](const KVXEUID& uid) { uid.getCell()->setValAndMarkEngineClean(0.25f); }}};
  tab()->initPowerTableRows(rails);
  std::vector<KVXETab::UtilizationTableRow> rows = {{"FF", &KVXECell::NoFormula}};
  table = tab()->initUtilizationTableRows(rows);
  at(1, KVXETab::m_AvailColumn)->setValAndMarkEngineClean(10);
  at(1, KVXETab::m_UsedColumn)->setValAndMarkEngineClean(9);
  settle();
  float watts = 0;
  EXPECT_TRUE(tab()->getTabTotalPower(watts));
  EXPECT_EQ(watts, 1.75f);
  EXPECT_TRUE(tab()->getTabActivePower(watts) && watts == 1.5f);
  EXPECT_TRUE(tab()->getTabStaticPower(watts) && watts == 0.25f);
  EXPECT_EQ(tab()->getPBSuffix(), "( 1.75 W, 0 % )") << "no chip total yet";
  EXPECT_TRUE(KVXETab::isResourceAvailable(TabType::SYSMON, "FF"));
  at(1, KVXETab::m_UsedColumn)->setValAndMarkEngineClean(10);
  EXPECT_FALSE(KVXETab::isResourceAvailable(TabType::SYSMON, "FF"));
  EXPECT_FALSE(KVXETab::isResourceAvailable(TabType::DSP, "FF"));
  tab()->setIsEnabled(false);
  EXPECT_FALSE(tab()->getTabTotalPower(watts));
}

TEST_F(TabTest, OneBookLivesAtATime) {
  KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  EXPECT_EQ(books.getCurrentBook(), book());
  KVXEBook* other = books.getOrCreateCurrentBook("Hexaline+");
  EXPECT_EQ(books.getBookCount(), 1u);
  EXPECT_EQ(books.getBook(0), other);
  EXPECT_EQ(books.getCurrentBook("Arkeon"), nullptr);
  EXPECT_EQ(KVXEBookMgr::getLastArchName(), "Hexaline+");
  books.closeProject();
  EXPECT_EQ(books.getOrCreateCurrentBook(KVXEBookMgr::NoArchName)->getArchName(), "Hexaline+");
}

TEST_F(TabTest, TheDebugSheetShowsHowTheWorkbookWorks) {
  KVXETab* debug = book()->getOrCreateTab(TabType::DEBUG);
  table = debug->getTable("API_DEMO");
  ASSERT_NE(table, nullptr);
  settle();
  const std::pair<int, int> severities[] = {{0, 3}, {1000, 2}, {1001, 0}};
  for (const auto& [input, severity] : severities) {
    edit(at(1, KVXEDebugTab::m_DemoInput), input);
    EXPECT_EQ(debug->getTabSeverity(), severity);
  }
  edit(at(1, KVXEDebugTab::m_DemoChoice), std::string("double"));
  EXPECT_EQ(text(1, KVXEDebugTab::m_DemoResult), "2002");
}

}  // namespace
