#include "engine/base/tabs/KVXESummaryConsoleTab.h"

#include <iostream>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;
using Summary = KVXESummaryTab;

using Title = const KVXETitle;
using Text = const std::string;

Title KVXESummaryConsoleTab::m_ProjectTable("PROJECT");
Title KVXESummaryConsoleTab::m_ThermalTable("THERMAL");
Title KVXESummaryConsoleTab::m_PowerTable("POWER");
Title KVXESummaryConsoleTab::m_Key("KEY");
Title KVXESummaryConsoleTab::m_Value("VALUE");
Title KVXESummaryConsoleTab::m_Percentage("PERCENTAGE", "%");

Text KVXESummaryConsoleTab::m_nameStr = "Name";
Text KVXESummaryConsoleTab::m_statusStr = "Status";
Text KVXESummaryConsoleTab::m_designStateStr = "Design State";
Text KVXESummaryConsoleTab::m_initialStatusStr = "Initial Estimation";
Text KVXESummaryConsoleTab::m_emptyStateStr = "Empty";
Text KVXESummaryConsoleTab::m_totalStr = "Total";
Text KVXESummaryConsoleTab::m_fpgaStr = "FPGA";
Text KVXESummaryConsoleTab::m_activeStr = "    Active";
Text KVXESummaryConsoleTab::m_staticStr = "    Static";

namespace {

using Console = KVXESummaryConsoleTab;

const KVXEColumn textColumns[] = {
    {.title = &Console::m_Key, .type = STRING},
    {.title = &Console::m_Value, .type = STRING},
};
const KVXEColumn powerColumns[] = {
    {.title = &Console::m_Key, .type = STRING},
    {.title = &Console::m_Value, .type = FLOAT, .unit = Unit::POWER_SHOW},
    {.title = &Console::m_Percentage,
     .type = FLOAT,
     .formula = &Console::updatePercentage,
     .unit = Unit::PERCENTAGE_HIDE},
};

/// Where a row of the thermal table is copied from.
struct ThermalRow {
  const std::string* text;
  bool isInEnvironment;
};
const ThermalRow thermalRows[] = {
    {&Summary::m_junctionTempStr, false},
    {&Summary::m_AmbientTempStr, true},
    {&Summary::m_thetaJaStr, true},
    {&Summary::m_thermalMarginStr, false},
    {&Summary::m_thermalPowerMarginStr, false},
};

std::string keyOf(const KVXEUID& uid) {
  std::string key;
  uid.getRow()->getCell(&Console::m_Key)->getVal(key, true);
  return key;
}

/// Leaves the text that stands in the cell, or writes the default.
std::string keepOr(KVXECell* cell, const std::string& text) {
  std::string present;
  if (cell->getVal(present, false)) {
    cell->markEngineClean();
    return present;
  }
  cell->setValAndMarkEngineClean(text);
  return text;
}

float storedPower(const KVXEUID& uid, const std::string& key) {
  KVXECell* cell = uid.getBook()->lookup<std::string>(TabType::SUMMARY, &KVXETab::m_StoreInfoTable, key,
                                                      &KVXETab::m_KeyCol, &KVXETab::m_ValueCol, false);
  float watts = 0.0f;
  return cell && cell->getVal(watts, true) ? watts : 0.0f;
}

}  // namespace

bool KVXESummaryConsoleTab::isInTable(const KVXEUID& uid, const KVXETitle& table) {
  if (uid.getTable() && uid.getTable()->getTableTitle() == &table) return true;
  std::cout << "Error: error occured in updating Summary table." << '\n';
  return false;
}

// Tables.

void KVXESummaryConsoleTab::initProjectTable() {
  const KVXEFixedRow rows[] = {
      {.text = &m_nameStr, .formula = &updateProjectName},
      {.text = &m_statusStr, .formula = &updateProjectStatus},
      {.text = &m_designStateStr, .formula = &updateDesignState},
  };
  KVXETable* table = createTable(&m_ProjectTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(textColumns);
  table->setIsHeaderHidden(true);
  kvxe::addFixedRows(*table, m_Key, m_Value, rows);
}

void KVXESummaryConsoleTab::initThermalTable() {
  KVXETable* table = createTable(&m_ThermalTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(textColumns);
  table->setIsHeaderHidden(true);
  for (const ThermalRow& row : thermalRows)
    kvxe::addFixedRow(*table, m_Key, m_Value, {.text = row.text, .formula = &updateThermalTable});
}

void KVXESummaryConsoleTab::initPowerTable(std::span<const KVXEFixedRow> further) {
  const auto row = [](const std::string& text, KVXEFormula formula) {
    return KVXEFixedRow{.text = &text, .formula = formula, .unit = Unit::POWER_SHOW};
  };
  const KVXEFixedRow total[] = {row(m_totalStr, &updateTotalPower)};
  const KVXEFixedRow chip[] = {row(m_fpgaStr, &updateFpgaPower), row(m_activeStr, &updateFpgaPower),
                               row(m_staticStr, &updateFpgaPower)};
  KVXETable* table = createTable(&m_PowerTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(powerColumns);
  table->setIsHeaderHidden(true);
  for (const std::span<const KVXEFixedRow> rows :
       {std::span<const KVXEFixedRow>(total), further, std::span<const KVXEFixedRow>(chip)})
    kvxe::addFixedRows(*table, m_Key, m_Value, rows);
}

// Project.

void KVXESummaryConsoleTab::updateProjectName(const KVXEUID& uid) {
  if (isInTable(uid, m_ProjectTable)) uid.getCell()->markEngineClean();
}

void KVXESummaryConsoleTab::updateProjectStatus(const KVXEUID& uid) {
  if (isInTable(uid, m_ProjectTable)) keepOr(uid.getCell(), m_initialStatusStr);
}

void KVXESummaryConsoleTab::updateDesignState(const KVXEUID& uid) {
  if (!isInTable(uid, m_ProjectTable)) return;
  const bool isKnown = keepOr(uid.getCell(), m_emptyStateStr) != m_emptyStateStr;
  uid.getRow()->setVisibility(isKnown ? KVXEEnums::Visibility::EXTERNAL
                                      : KVXEEnums::Visibility::ALWAYS_HIDDEN);
}

// Temperatures and power.

void KVXESummaryConsoleTab::updateThermalTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_ThermalTable)) return;
  const std::string key = keyOf(uid);
  std::string shown;
  for (const ThermalRow& row : thermalRows) {
    if (*row.text != key) continue;
    KVXEBook* book = uid.getBook();
    KVXECell* source = row.isInEnvironment ? book->lookup<std::string>(
                                                 TabType::SUMMARY, &Summary::m_envTableHeader, key,
                                                 &Summary::m_envTypeColumn, &Summary::m_envValColumn, false)
                                           : Summary::summaryCell(uid, key);
    if (source) source->getValWithUnit(shown, true);
  }
  uid.getCell()->setValAndMarkEngineClean(shown);
}

void KVXESummaryConsoleTab::updateTotalPower(const KVXEUID& uid) {
  if (!isInTable(uid, m_PowerTable)) return;
  const float hbm = Summary::hasHbm() ? Summary::getHbmPower(uid) : 0.0f;
  uid.getCell()->setValAndMarkEngineClean(storedPower(uid, Summary::m_totalKeyStr) + hbm);
}

void KVXESummaryConsoleTab::updateFpgaPower(const KVXEUID& uid) {
  if (!isInTable(uid, m_PowerTable)) return;
  const std::string key = keyOf(uid);
  float watts = 0.0f;
  if (key != m_staticStr) watts += storedPower(uid, Summary::m_dynamicKeyStr);
  if (key != m_activeStr) watts += storedPower(uid, Summary::m_staticKeyStr);
  uid.getCell()->setValAndMarkEngineClean(watts);
}

void KVXESummaryConsoleTab::updatePercentage(const KVXEUID& uid) {
  if (!isInTable(uid, m_PowerTable)) return;
  KVXECell* total = uid.getTable()->getCellAt(1, &m_Value);
  float watts = 0.0f;
  float all = 0.0f;
  const bool isKnown =
      uid.getRow()->getCell(&m_Value)->getVal(watts, true) && total->getVal(all, true) && all > 0.0f;
  if (isKnown) return uid.getCell()->setValAndMarkEngineClean(watts / all);
  uid.getCell()->setBlankAndMarkEngineClean();
}
