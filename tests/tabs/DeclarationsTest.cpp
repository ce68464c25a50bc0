// Every declared table of every architecture is visited once: what a declaration can get wrong is found here.

#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;

namespace {

template <class Visit>
void forEachTable(KVXEBook* book, Visit visit) {
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    KVXETab* tab = book->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) visit(tab->getTable(j));
  }
}

bool isInRange(KVXECell* cell, float value) {
  if (cell->getCellType() == CellType::INT) {
    const auto [low, high] = static_cast<KVXEIntCell*>(cell)->getRange();
    return low == kvxeBlank<int> || (value >= static_cast<float>(low) && value <= static_cast<float>(high));
  }
  if (cell->getCellType() != CellType::FLOAT) return true;
  const auto [low, high] = static_cast<KVXEFloatCell*>(cell)->getRange();
  return low == kvxeBlank<float> || (value >= low && value <= high);
}

void checkColumn(KVXETable* table, unsigned int column) {
  KVXEHeaderRow* header = table->getHeaderRow();
  KVXECell* cell = header->getDefaultCell(column);
  KVXECell* display = header->getDisplayCell(column);
  SCOPED_TRACE(table->getTab()->getTypeAsStr() + "." + table->getTableTitle()->getTag(TitleType::SW) + "." +
               header->getIndexToTitle(column)->getTag(TitleType::SW));
  if (cell->getIsEditable() && table->getHasTableEditingFeatures()) {
    EXPECT_TRUE(display->getMsg() && !display->getMsg()->getDisplayText().empty()) << "no tool tip";
  }
  float number = 0.0f;
  std::string text;
  if (cell->getVal(number, false)) {
    EXPECT_TRUE(isInRange(cell, number)) << "default out of range";
  }
  std::vector<std::string> list;
  if (cell->getVal(text, false) && cell->getDDVals(list)) {
    EXPECT_NE(std::find(list.begin(), list.end(), text), list.end()) << "default not in its list";
  }
}

TEST(Declarations, HoldInEveryTable) {
  for (const std::string& arch : DeviceBook::architectures()) {
    const DeviceBook book(arch);
    unsigned int tables = 0;
    forEachTable(book.book(), [&](KVXETable* table) {
      ++tables;
      EXPECT_EQ(table->checkInvariants(), "");
      for (unsigned int column = 0; column < table->getColumnCount(); ++column) {
        ASSERT_NE(table->getHeaderRow()->getIndexToTitle(column), nullptr) << "a title stands twice";
        checkColumn(table, column);
      }
    });
    EXPECT_GT(tables, 15u) << arch;
  }
}

TEST(Declarations, AComputedColumnHasItsFormulaInEveryRow) {
  for (const std::string& arch : DeviceBook::architectures()) {
    const DeviceBook book(arch);
    forEachTable(book.book(), [&](KVXETable* table) {
      if (!table->getHasTableEditingFeatures()) return;
      for (unsigned int column = 0; column < table->getColumnCount(); ++column)
        for (unsigned int row = 1; row < table->getRowCount(); row += 97)
          EXPECT_EQ(table->getCellAt(row, column)->getFormula(),
                    table->getHeaderRow()->getDefaultCell(column)->getFormula())
              << KVXEUID(table->getCellAt(row, column)).describe(" -> ");
    });
  }
}

}  // namespace
