// How tabs read: lookups, columns, totals, and the formulas that they share.

#include <iostream>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::TabType;

namespace {

std::string keyText(const std::string& key) {
  return key;
}
std::string keyText(int key) {
  return KVXMHelperUtils::ToString(key);
}
std::string keyText(float key) {
  return KVXMHelperUtils::ToString(key);
}

const std::string TotalRow = "TOTAL";

}  // namespace

template <class T>
bool KVXETab::lookup(const KVXETitle* table, T key, const KVXETitle* from, const KVXETitle* to,
                     std::vector<KVXECell*>& cells, bool useRegex) {
  cells.clear();
  KVXETable* found = getTable(table);
  return found && found->lookup(keyText(key), from, to, cells, useRegex, false);
}

template <class T>
KVXECell* KVXETab::lookup(const KVXETitle* table, T key, const KVXETitle* from, const KVXETitle* to,
                          bool useRegex) {
  KVXETable* found = getTable(table);
  std::vector<KVXECell*> cells;
  return found && found->lookup(keyText(key), from, to, cells, useRegex, true) ? cells.front() : nullptr;
}

template <class T>
KVXECell* KVXEBook::lookup(TabType type, const KVXETitle* table, T key, const KVXETitle* from,
                           const KVXETitle* to, bool useRegex) {
  KVXETab* tab = getTab(type);
  return tab ? tab->lookup<T>(table, std::move(key), from, to, useRegex) : nullptr;
}

template <class T>
void KVXETab::readColumn(const KVXETitle* table, const KVXETitle* column, std::vector<T>& values) {
  values.clear();
  KVXETable* found = getTable(table);
  if (!found) return;
  const unsigned int index = found->getTitleToIndex(column);
  values.reserve(found->getRowCount());
  for (unsigned int i = 1; i < found->getRowCount(); ++i)
    if (KVXECell* cell = found->getCellAt(i, index)) cell->getVal(values.emplace_back(), true);
}

#define KVXE_INSTANTIATE(T)                                                                                \
  template KVXECell* KVXETab::lookup<T>(const KVXETitle*, T, const KVXETitle*, const KVXETitle*, bool);    \
  template bool KVXETab::lookup<T>(const KVXETitle*, T, const KVXETitle*, const KVXETitle*,                \
                                   std::vector<KVXECell*>&, bool);                                         \
  template void KVXETab::readColumn<T>(const KVXETitle*, const KVXETitle*, std::vector<T>&);               \
  template KVXECell* KVXEBook::lookup<T>(TabType, const KVXETitle*, T, const KVXETitle*, const KVXETitle*, \
                                         bool);
KVXE_INSTANTIATE(int)
KVXE_INSTANTIATE(float)
KVXE_INSTANTIATE(std::string)
#undef KVXE_INSTANTIATE

float KVXETab::sumColumn(const KVXETitle* table, const KVXETitle* column) {
  KVXETable* found = getTable(table);
  if (!found) return 0.0f;
  const unsigned int index = found->getTitleToIndex(column);
  double sum = 0.0;  // a float loses the small rows of a long column
  for (unsigned int i = 1; i < found->getRowCount(); ++i) {
    KVXECell* cell = found->getCellAt(i, index);
    if (float value = 0.0f; cell && cell->getVal(value, true)) sum += value;
  }
  return static_cast<float>(sum);
}

// Totals of the tab.

bool KVXETab::getPowerTableTotal(const KVXETitle* column, float& watts) {
  if (!m_isEnabled || !getTable(&m_PowerTable)) return false;
  KVXECell* cell = lookup<std::string>(&m_PowerTable, TotalRow, &m_InternalRailColumn, column, false);
  return cell && cell->getVal(watts, true);
}

bool KVXETab::getTabTotalPower(float& watts) {
  return getPowerTableTotal(&m_TotalPowerColumn, watts);
}
bool KVXETab::getTabActivePower(float& watts) {
  return getPowerTableTotal(&m_ActivePowerColumn, watts);
}
bool KVXETab::getTabStaticPower(float& watts) {
  return getPowerTableTotal(&m_StaticPowerColumn, watts);
}

std::string KVXETab::getPercentOfTotalChipPowerStr(float watts) {
  KVXECell* cell = m_book ? m_book->lookup<std::string>(TabType::SUMMARY, &m_StoreInfoTable, TotalRow,
                                                        &m_KeyCol, &m_ValueCol, false)
                          : nullptr;
  float total = 0.0f;
  const bool isKnown = cell && cell->getVal(total, true) && total > 0.0f;
  const float percent = isKnown ? watts / total * 100.0f : 0.0f;
  return KVXMHelperUtils::ToString(KVXMHelperUtils::ROUND(percent, 2));
}

bool KVXETab::isResourceAvailable(TabType type, std::string name) {
  KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook(KVXEBookMgr::getLastArchName());
  if (!book || !book->getTable(type, &m_UtilTable)) return false;
  const auto count = [&](const KVXETitle* column) {
    KVXECell* cell = book->lookup<std::string>(type, &m_UtilTable, name, &m_TypeColumn, column, false);
    int value = 0;
    return cell && cell->getVal(value, false) ? value : 0;
  };
  return count(&m_AvailColumn) > count(&m_UsedColumn);
}

// The device, from the power design tab.

std::string KVXETab::getDeviceName(const KVXEUID& uid) {
  KVXEBook* book = uid.getBook();
  KVXECell* cell = book ? book->lookup<std::string>(TabType::POWER_DESIGN, &m_deviceTable, "Device",
                                                    &m_optionColumn, &m_selectionColumn, false)
                        : nullptr;
  std::string name;
  if (cell) cell->getVal(name, true);
  return name;
}

std::string KVXETab::getInternalDeviceName(const KVXEUID& uid) {
  return getDeviceName(uid);
}

// Power and utilization tables.

namespace {

using enum KVXEEnums::CellType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

const KVXEColumn PowerColumns[] = {
    {.title = &KVXETab::m_RailColumn,
     .type = STRING,
     .formula = &KVXETab::updateRailAndVoltage,
     .toolTip = "The supply rail, as the data sheet names it."},
    {.title = &KVXETab::m_InternalRailColumn, .type = STRING, .visibility = Visibility::ALWAYS_HIDDEN},
    {.title = &KVXETab::m_VoltageColumn,
     .type = FLOAT,
     .formula = &KVXETab::updateRailAndVoltage,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip = "The voltage of the rail, from the power design tab."},
    {.title = &KVXETab::m_ActivePowerColumn,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Power that the use of the blocks costs on this rail."},
    {.title = &KVXETab::m_StaticPowerColumn,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Power that the rail costs without any activity."},
    {.title = &KVXETab::m_TotalPowerColumn,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Active and static power of the rail."},
};

const KVXEColumn UtilizationColumns[] = {
    {.title = &KVXETab::m_TypeColumn, .type = STRING, .toolTip = "The kind of resource."},
    {.title = &KVXETab::m_UsedColumn, .type = FLOAT, .toolTip = "How many the design uses."},
    {.title = &KVXETab::m_AvailColumn, .type = FLOAT, .toolTip = "How many the device has."},
    {.title = &KVXETab::m_UtilColumn,
     .type = FLOAT,
     .unit = Unit::PERCENTAGE_SHOW,
     .toolTip = "The used share of what the device has."},
    {.title = &KVXETab::m_BlockPowerColumn,
     .type = FLOAT,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Dynamic power of the used resources."},
};

}  // namespace

KVXETable* KVXETab::initPowerTableRows(std::vector<PowerTableRow>& rows) {
  KVXETable* table = createTable(&m_PowerTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(PowerColumns);
  const auto totalRow = static_cast<unsigned int>(rows.size() + 1);
  table->getOrCreateRow(totalRow);
  for (unsigned int i = 1; i < totalRow; ++i) {
    const PowerTableRow& row = rows[i - 1];
    table->getCellAt(i, &m_RailColumn)->setValAndMarkEngineClean(row.rail);
    table->getCellAt(i, &m_InternalRailColumn)->setValAndMarkEngineClean(row.rail);
    table->getCellAt(i, &m_ActivePowerColumn)->assignFormula(row.activeFormula);
    table->getCellAt(i, &m_StaticPowerColumn)->assignFormula(row.staticFormula);
    table->getCellAt(i, &m_TotalPowerColumn)->assignFormula(&updateTotalPowerColumn);
  }
  for (const KVXETitle* title : {&m_RailColumn, &m_VoltageColumn})
    table->getCellAt(totalRow, title)->assignFormula(&KVXECell::NoFormula);
  table->getCellAt(totalRow, &m_RailColumn)->setValAndMarkEngineClean(std::string("Total"));
  table->getCellAt(totalRow, &m_InternalRailColumn)->setValAndMarkEngineClean(TotalRow);
  for (const KVXETitle* title : {&m_ActivePowerColumn, &m_StaticPowerColumn, &m_TotalPowerColumn})
    table->getCellAt(totalRow, title)->assignFormula(&updateColumnTotal);
  return table;
}

KVXETable* KVXETab::initUtilizationTableRows(std::vector<UtilizationTableRow>& rows) {
  KVXETable* table = createTable(&m_UtilTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(UtilizationColumns);
  for (unsigned int i = 1; i <= rows.size(); ++i) {
    KVXERow* row = table->getOrCreateRow(i);
    row->getCell(&m_TypeColumn)->setValAndMarkEngineClean(rows[i - 1].type);
    for (const KVXETitle* title : {&m_AvailColumn, &m_UsedColumn, &m_UtilColumn, &m_BlockPowerColumn})
      row->getCell(title)->assignFormula(rows[i - 1].formula);
  }
  return table;
}

void KVXETab::updateColumnTotal(const KVXEUID& uid) {
  double sum = 0.0;
  for (unsigned int i = 1; i < uid.getRowIndex(); ++i) {
    KVXERow* row = uid.getTable()->getRow(i);
    if (row->getVisibility() != Visibility::EXTERNAL) continue;
    float value = 0.0f;
    if (row->getCell(uid.getColumnIndex())->getVal(value, true)) sum += value;
  }
  uid.getCell()->setValAndMarkEngineClean(static_cast<float>(sum));
}

void KVXETab::updateTotalPowerColumn(const KVXEUID& uid) {
  float sum = 0.0f;
  for (const KVXETitle* title : {&m_ActivePowerColumn, &m_StaticPowerColumn}) {
    float value = 0.0f;
    if (uid.getRow()->getCell(title)->getVal(value, true)) sum += value;
  }
  uid.getCell()->setValAndMarkEngineClean(sum);
}

void KVXETab::updateRailAndVoltage(const KVXEUID& uid) {
  std::string internalRail;
  uid.getRow()->getCell(&m_InternalRailColumn)->getVal(internalRail, true);
  const auto supply = [&](const KVXETitle* column) -> KVXECell* {
    return uid.getBook()
               ? uid.getBook()->lookup<std::string>(TabType::POWER_DESIGN, &m_powerSupplyTable, internalRail,
                                                    &m_internalSupplyColumn, column, false)
               : nullptr;
  };
  std::string rail;
  KVXECell* name = supply(&m_supplyColumn);
  if (!name || !name->getVal(rail, true)) rail = internalRail;
  uid.getRow()->getCell(&m_RailColumn)->setValAndMarkEngineClean(rail);
  KVXECell* voltageCell = uid.getRow()->getCell(&m_VoltageColumn);
  KVXECell* source = supply(&m_voltageColumn);
  if (float volts = 0.0f; source && source->getVal(volts, true)) {
    voltageCell->setValAndMarkEngineClean(volts);
  } else {
    voltageCell->setBlankAndMarkEngineClean();
  }
}
