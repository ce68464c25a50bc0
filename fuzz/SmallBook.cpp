#include "fuzz/SmallBook.h"

#include <functional>
#include <iostream>
#include <sstream>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETab.h"

namespace kvxe::fuzz {
namespace {

constexpr unsigned int MostRows = 40;

void forEachTable(const KVXEBook& book, const std::function<void(KVXETable&)>& visit) {
  for (unsigned int i = 0; i < book.getTabCount(); ++i)
    if (const KVXETab* tab = book.getTab(i))
      for (unsigned int j = 0; j < tab->getTableCount(); ++j) visit(*tab->getTable(j));
}

void trim(KVXETable& table) {
  if (!table.getHasTableEditingFeatures()) return;
  while (table.getRowCount() > StartRows + 1) table.deleteRow(table.getRowCount() - 1);
}

std::string currentPart() {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return selection ? selection->getSelectedDeviceName() : std::string();
}

std::string madePart;

}  // namespace

void makeSmallBook() {
  makeSmallBook(KVXEPartSelection::m_somVisionArchName);
}

void makeSmallBook(const std::string& architecture) {
  KVXEPrjMgr::getGlobal().closeProject();
  KVXEHandshakeDialog::getGlobal().reset();
  KVXEPartSelection::resetPartSelection();
  KVXEPartSelection* selection = KVXEPartSelection::resetToArch(architecture);
  selection->resetDeviceSelectionToDefault();
  selection->redrawTabs(true);
  forEachTable(*getSmallBook(), trim);
  KVXECalculationMgr::getGlobal().fullCalculate();
  madePart = currentPart();
}

KVXEBook* getSmallBook() {
  return KVXEBookMgr::getGlobal().getCurrentBook();
}

bool isSmallBookThere() {
  return getSmallBook() && currentPart() == madePart;
}

void keepBookSmall() {
  bool isChanged = false;
  forEachTable(*getSmallBook(), [&](KVXETable& table) {
    if (!table.getHasTableEditingFeatures()) return;
    if (table.getRowCount() > 1 && table.getRowCount() <= MostRows) return;
    trim(table);
    table.getOrCreateRow(StartRows);
    isChanged = true;
  });
  if (isChanged) KVXECalculationMgr::getGlobal().fullCalculate();
}

std::string findBreach() {
  std::string breach = KVXECalculationMgr::getGlobal().checkInvariants();
  if (breach.empty()) breach = KVXECellStateMgr::getGlobal().checkInvariants();
  if (const KVXEBook* book = getSmallBook())
    forEachTable(*book, [&](const KVXETable& table) {
      if (breach.empty()) breach = table.checkInvariants();
    });
  return breach;
}

std::string findInconsistency() {
  KVXECalculationMgr& calculation = KVXECalculationMgr::getGlobal();
  calculation.incrCalculate();
  std::ostringstream report;
  const std::ios::iostate state = std::cout.rdstate();
  std::streambuf* before = std::cout.rdbuf(report.rdbuf());
  const bool isSame = calculation.verifyIncrVsFull();
  std::cout.rdbuf(before);
  std::cout.setstate(state);
  return isSame ? std::string() : report.str();
}

}  // namespace kvxe::fuzz
