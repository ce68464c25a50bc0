#include "engine/som/KVXESomMorlanSummaryConsoleTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"

using Summary = KVXESummaryTab;

const std::string KVXESomMorlanSummaryConsoleTab::m_boardStr = "Board";

void KVXESomMorlanSummaryConsoleTab::init() {
  initProjectTable();
  initThermalTable();
  initSomPowerTable();
}

void KVXESomMorlanSummaryConsoleTab::initSomPowerTable() {
  const KVXEFixedRow board[] = {
      {.text = &m_boardStr, .formula = &updateBoardPower, .unit = KVXEEnums::Unit::POWER_SHOW}};
  initPowerTable(board);
  // The totals of the summary are the board's here, so that the device's come from its list of blocks.
  for (const std::string* row : {&m_fpgaStr, &m_activeStr, &m_staticStr})
    lookup<std::string>(&m_PowerTable, *row, &m_Key, &m_Value, false)->assignFormula(&updateSomFpgaPower);
}

void KVXESomMorlanSummaryConsoleTab::updateBoardPower(const KVXEUID& uid) {
  if (!isInTable(uid, m_PowerTable)) return;
  const float beside = Summary::getPower(uid, Summary::m_totalKeyStr) - Summary::getFpgaTotalPower(uid);
  uid.getCell()->setValAndMarkEngineClean(std::max(beside, 0.0f));
}

void KVXESomMorlanSummaryConsoleTab::updateSomFpgaPower(const KVXEUID& uid) {
  if (!isInTable(uid, m_PowerTable)) return;
  std::string key;
  uid.getRow()->getCell(&m_Key)->getVal(key, true);
  float watts = 0.0f;
  if (key != m_staticStr) watts += Summary::getFpgaDynamicPower(uid);
  if (key != m_activeStr) watts += Summary::getFpgaStaticPower(uid);
  uid.getCell()->setValAndMarkEngineClean(watts);
}
