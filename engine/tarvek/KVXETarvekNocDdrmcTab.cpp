// The tables that the controllers and the network have in common: supplies and use.

#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::Visibility;

using Tab = KVXETarvekNocDdrmcTab;

void KVXETarvekNocDdrmcTab::init() {
  KVXETab::init();
  initNocConfigTable();
  initDdrmcConfigTable();
  initPowerTable();
  initUtilizationTable();
}

void KVXETarvekNocDdrmcTab::finishChecked(const KVXEUID& uid, bool isExceeded, const std::string& warning) {
  kvxe::showWarning(uid.getCell(), isExceeded ? std::optional(warning) : std::nullopt);
  uid.getCell()->markEngineClean();
}

// Supplies.

namespace {

/// The network's and the controllers' watts on one rail.
void updateVccsoc(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, KVXETab::m_PowerTable, "active power of a rail")) return;
  uid.getCell()->setValAndMarkEngineClean(
      uid.getTab()->sumColumn(&Tab::m_NocConfigTable, &Tab::m_Power) +
      uid.getTab()->sumColumn(&Tab::m_DdrmcConfigTable, &Tab::m_VccsocPower));
}

}  // namespace

void KVXETarvekNocDdrmcTab::initPowerTable() {
  std::vector<PowerTableRow> rows{
      {"VCCSOC", &updateVccsoc, &KVXECell::NoFormula},
      {"VCCINTIO", &kvxe::sumIntoRail<m_DdrmcConfigTable, m_VccintioPower>, &KVXECell::NoFormula},
      {"VCCAUX", &kvxe::sumIntoRail<m_DdrmcConfigTable, m_VccauxPower>, &KVXECell::NoFormula},
  };
  initPowerTableRows(rows);
}

// Use.

namespace {

std::optional<float> countConnections(const KVXEUID& uid) {
  std::vector<float> watts;
  uid.getTab()->readColumn(&Tab::m_NocConfigTable, &Tab::m_Power, watts);
  return static_cast<float>(
      std::count_if(watts.begin(), watts.end(), [](float w) { return w != kvxeBlank<float>; }));
}

/// The controllers of a kind, by the cells of a column in their rows.
template <const std::string& Kind>
std::vector<KVXECell*> controllers(const KVXEUID& uid, const KVXETitle& column) {
  std::vector<KVXECell*> cells;
  uid.getTab()->lookup<std::string>(&Tab::m_DdrmcConfigTable, Kind, &Tab::m_Controller, &column, cells,
                                    false);
  return cells;
}

template <const std::string& Kind>
std::optional<float> countControllers(const KVXEUID& uid) {
  return static_cast<float>(controllers<Kind>(uid, Tab::m_Controller).size());
}

template <const std::string& Kind>
std::optional<float> powerOfControllers(const KVXEUID& uid) {
  double watts = 0.0;
  for (KVXECell* cell : controllers<Kind>(uid, Tab::m_Power))
    if (float value = 0.0f; cell->getVal(value, true)) watts += value;
  return static_cast<float>(watts);
}

template <const std::string& Kind>
kvxe::UtilizationRow controllerRow(const std::string& resource) {
  return {
      Kind, resource, &countControllers<Kind>, &powerOfControllers<Kind>,
      "<html>" + Kind + " utilization exceeds 100%.\nPlease review the usage in " + Kind + " table.</html>"};
}

const std::vector<kvxe::UtilizationRow>& utilizationRows() {
  // type, resource, used, watts
  static const std::vector<kvxe::UtilizationRow> rows{
      {Tab::m_NocStr, "", &countConnections, &kvxe::sumOfColumn<Tab::m_NocConfigTable, Tab::m_NocPower>, ""},
      {Tab::m_ClockBufferStr, "", nullptr, &kvxe::sumOfColumn<Tab::m_NocConfigTable, Tab::m_ClockBufferPower>,
       ""},
      controllerRow<Tab::m_HardMcStr>("HMC"),
      controllerRow<Tab::m_Ddrmc5Str>("DDRMC5"),
      controllerRow<Tab::m_Ddrmc5CStr>("DDRMC5C"),
      {Tab::m_HbmmcStr, "HBM2E", nullptr, nullptr, ""},
  };
  return rows;
}

}  // namespace

void KVXETarvekNocDdrmcTab::initUtilizationTable() {
  auto rows = kvxe::toTableRows(utilizationRows(), &updateUtilizationTable);
  initUtilizationTableRows(rows);
}

void KVXETarvekNocDdrmcTab::updateUtilizationTable(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of network and memory controllers")) return;
  const kvxe::UtilizationRow& row = utilizationRows().at(uid.getRowIndex() - 1);
  // The summary takes the first kind of controller whose power is not blank.
  const bool exists = row.resource.empty() || kvxe::availableCount(row.resource).value_or(0) > 0;
  uid.getRow()->setVisibility(exists ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  if (exists) return kvxe::updateUtilizationCell(uid, row);
  uid.getCell()->clearMsg();
  uid.getCell()->setBlankAndMarkEngineClean();
}
