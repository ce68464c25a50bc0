#include "tests/kit/TinyBook.h"

#include "engine/base/workbook/KVXECellStateMgr.h"

const KVXETitle TinyBook::Table("TINY", "Tiny");
const KVXETitle TinyBook::Name("NAME", "Name");
const KVXETitle TinyBook::A("A");
const KVXETitle TinyBook::B("B");
const KVXETitle TinyBook::Sum("SUM");
const KVXETitle TinyBook::Total("TOTAL");
const KVXETitle TinyBook::Choice("CHOICE");

void TinyBook::SetUp() {
  KVXEBookMgr::getGlobal().closeProject();
  m_book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook("Arkeon");
}

void TinyBook::TearDown() {
  KVXEBookMgr::getGlobal().closeProject();
}

KVXETable* TinyBook::make(std::span<const KVXEColumn> columns, unsigned int rows, bool showRowIds) {
  table = tab()->createTable(&Table, showRowIds, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  if (rows > 0) table->getOrCreateRow(rows);
  return table;
}

std::string TinyBook::text(unsigned int row, const KVXETitle& column) {
  std::string value;
  at(row, column)->getVal(value, false);
  return value;
}

void TinyBook::checkInvariants() {
  EXPECT_EQ(KVXECalculationMgr::getGlobal().checkInvariants(), "");
  EXPECT_EQ(KVXECellStateMgr::getGlobal().checkInvariants(), "");
  for (unsigned int i = 0; i < tab()->getTableCount(); ++i)
    EXPECT_EQ(tab()->getTable(i)->checkInvariants(), "");
}

void TinyBook::calculate() {
  checkInvariants();
  KVXECalculationMgr::getGlobal().incrCalculate();
  checkInvariants();
}

void TinyBook::settle() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  KVXECellStateMgr::getGlobal().markGuiClean();
  checkInvariants();
}

void addUp(const KVXEUID& uid) {
  int sum = 0;
  for (const KVXETitle* column : {&TinyBook::A, &TinyBook::B})
    if (int value = 0; uid.getRow()->getCell(column)->getVal(value, true)) sum += value;
  uid.getCell()->setValAndMarkEngineClean(sum);
}

std::string EventLog::nameOf(KVXECell* cell) {
  if (!cell) return "-";
  const KVXETitle* title = cell->getHeaderRow()->getIndexToTitle(cell->getColumnIndex());
  return (title ? title->getTag(KVXEEnums::TitleType::SW) : "?") + std::to_string(cell->getRow()->getIndex());
}
