#include "engine/morlan/KVXEMorlanClockTab.h"

#include <unordered_set>

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/morlan/KVXMMorlanClock.h"

void KVXEMorlanClockTab::init() {
  KVXETab::init();
  initClockConfigTable({.name = &populateDefaultClkName,
                        .fanoutPerSite = &KVXECell::NoFormula,
                        .power = &updateClockConfigPowerRow});
  std::vector<PowerTableRow> rails{
      {"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCAUX", &updateVccauxActivePowerInPowerTable, &KVXECell::NoFormula},
  };
  initPowerTableRows(rails);
  std::vector<UtilizationTableRow> types;
  for (const std::string& type : {m_FsynStr, m_PllStr, m_ClockStr})
    types.push_back({type, &updateUtilizationTable});
  initUtilizationTableRows(types);
  initClockTagTable();
}

void KVXEMorlanClockTab::updateUtilizationTable(const KVXEUID& uid) {
  static const kvxe::UtilizationRow rows[] = {
      managerUtilizationRow<m_FsynStr>(),
      managerUtilizationRow<m_PllStr>(),
      clockUtilizationRow(),
  };
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of clocks")) return;
  kvxe::updateUtilizationCell(uid, rows[uid.getRowIndex() - 1]);
}

void KVXEMorlanClockTab::populateDefaultClkName(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "name of a clock")) return;
  KVXECell* cell = uid.getCell();
  std::string name;
  float megahertz = 0.0f;
  const bool isClock = uid.getRow()->getCell(&m_ClockFreq)->getVal(megahertz, true);
  if (cell->getVal(name, false) || !isClock) return cell->markEngineClean();
  cell->setValAndMarkEngineClean(unusedClockName(uid.getTable()));
}

std::string KVXEMorlanClockTab::unusedClockName(KVXETable* table) {
  const std::vector<std::string> names = peekColumn(table, m_Name);
  const std::unordered_set<std::string> used(names.begin(), names.end());
  for (int number = 1;; ++number) {
    std::string name = "clk_" + KVXMHelperUtils::ToString(number);
    if (!used.contains(name)) return name;
  }
}

void KVXEMorlanClockTab::updateClockConfigPowerRow(const KVXEUID& uid) {
  using F = KVXMMorlanClockParams::FloatEnum;
  static const KVXETitle* const results[] = {&m_VccintPwr, &m_VccramPwr, &m_Power};
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "power of clocks")) return;
  kvxe::blankResults(uid.getRow(), results);
  const std::optional<ClockRow> clock = readClockRow(uid);
  if (!clock) return;
  KVXMMorlanClockParams params;
  params[KVXMMorlanClockParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  fillLoads(uid, *clock, params);
  fillActivity(*clock, params);
  KVXMMorlanClockModel::getGlobal().calculate(params);
  logDetails(*clock, params[F::VCCINT_POWER], 0.0f);
  kvxe::writeResult(uid.getRow(), m_VccintPwr, params[F::VCCINT_POWER]);
  kvxe::writeResult(uid.getRow(), m_Power, params[F::VCCINT_POWER]);
}
