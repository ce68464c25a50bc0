#include "engine/morlan/KVXEMorlanClockTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXEClockManagers.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/morlan/KVXMMorlanClock.h"
#include "models/morlan/KVXMMorlanClockMgrData.h"
#include "models/morlan/KVXMMorlanFsyn.h"
#include "models/morlan/KVXMMorlanPll.h"

void KVXEMorlanClockTab::init() {
  KVXETab::init();
  initClockConfigTable({.name = &populateDefaultClkName,
                        .fanoutPerSite = &KVXECell::NoFormula,
                        .power = &updateClockConfigPowerRow});
  initClkMgrTable({.name = &populateDefaultClkmgrName,
                   .phaseShift = &updatePhaseShiftDropdown,
                   .power = &updateClockMgrPowerRow});
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
  initRefClockList();
}

/// The reference clock is chosen among the clocks' frequencies; a single cell keeps the list.
void KVXEMorlanClockTab::initRefClockList() {
  const KVXETable* managers = getTable(&m_ClkMgrTable);
  KVXECell* head = managers->getHeaderRow()->getDisplayCell(managers->getTitleToIndex(&m_RefClock));
  static_cast<KVXEHeaderCell*>(head)->setIsDropdownColumn(true);
  getTable(&m_ClockTagTable)->getCellAt(1, &m_RefClockCount)->assignFormula(&updateRefClockDropdown);
}

namespace {

constexpr unsigned int PllRow = 2;

}  // namespace

void KVXEMorlanClockTab::updateUtilizationTable(const KVXEUID& uid) {
  static const kvxe::UtilizationRow rows[] = {
      managerUtilizationRow<m_FsynStr>(),
      managerUtilizationRow<m_PllStr>(),
      clockUtilizationRow(),
  };
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of clocks")) return;
  const KVXETitle* column = uid.getTable()->getHeaderRow()->getIndexToTitle(uid.getColumnIndex());
  if (uid.getRowIndex() == PllRow && column == &m_AvailColumn) {
    // A PLL stands beside every FSYN in numbers of its own, which the catalogue does not list.
    const std::optional<int> fsyns = kvxe::availableCount(m_FsynStr);
    if (!fsyns) return uid.getCell()->setBlankAndMarkEngineClean();
    return uid.getCell()->setValAndMarkEngineClean(
        static_cast<float>(*fsyns * KVXMMorlanClockMgrData::PllsPerFsyn));
  }
  kvxe::updateUtilizationCell(uid, rows[uid.getRowIndex() - 1]);
}

void KVXEMorlanClockTab::populateDefaultClkName(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "name of a clock")) return;
  KVXECell* cell = uid.getCell();
  std::string name;
  float megahertz = 0.0f;
  const bool isClock = uid.getRow()->getCell(&m_ClockFreq)->getVal(megahertz, true);
  if (cell->getVal(name, false) || !isClock) return cell->markEngineClean();
  cell->setValAndMarkEngineClean(unusedName(uid.getTable(), m_Name, "clk_"));
}

void KVXEMorlanClockTab::populateDefaultClkmgrName(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClkMgrTable, "name of a clock manager")) return;
  KVXECell* cell = uid.getCell();
  std::string name, type;
  const bool isManager = uid.getRow()->getCell(&m_ClkMgrType)->getVal(type, true);
  if (cell->getVal(name, false) || !isManager) return cell->markEngineClean();
  cell->setValAndMarkEngineClean(unusedName(uid.getTable(), m_Name, "clkmgr_"));
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

// Clock managers.

std::vector<std::string> KVXEMorlanClockTab::getClockMgrTypes() const {
  return {m_FsynStr, m_PllStr};
}

std::optional<std::pair<float, float>> KVXEMorlanClockTab::getVcoLimits(const std::string& type) const {
  return kvxm::vcoLimits(KVXMMorlanClockMgrData::getGlobal().getVcoRanges(type, kvxe::readSpeedGrade()));
}

void KVXEMorlanClockTab::updateClockMgrPowerRow(const KVXEUID& uid) {
  using kvxe::ClockManagerModel, kvxe::ClockManagerRail, kvxe::runClockManager;
  static const ClockManagerRail rails[] = {{"VCCINT", 2, 21, &m_VccintPwr}, {"VCCAUX", 3, 24, &m_VccauxPwr}};
  // type, divide key, multiply key, outputs, rails, model
  static const ClockManagerModel models[] = {
      {m_FsynStr, 8, 9, 7, rails, &runClockManager<KVXMMorlanFsynParams, KVXMMorlanFsynModel>},
      {m_PllStr, 5, 6, 3, rails, &runClockManager<KVXMMorlanPllParams, KVXMMorlanPllModel>},
  };
  kvxe::updateClockManagerPower(uid, models);
}

void KVXEMorlanClockTab::updatePhaseShiftDropdown(const KVXEUID& uid) {
  auto* cell = dynamic_cast<KVXEStringCell*>(uid.getCell());
  if (!cell || !kvxe::isInTable(uid, m_ClkMgrTable, "phase shift of a clock manager")) return;
  std::vector<std::string> shifts = static_cast<KVXEStringCell*>(cell->getHeaderDefaultCell())->getDDVals();
  if (kvxe::readText(uid.getRow(), m_ClkMgrType) == m_PllStr) shifts.resize(1);  // the one for none
  kvxe::offerInCell(cell, shifts);
}

void KVXEMorlanClockTab::updateRefClockDropdown(const KVXEUID& uid) {
  const auto* tab = dynamic_cast<const KVXEMorlanClockTab*>(uid.getTab());
  if (!tab || !kvxe::isInTable(uid, m_ClockTagTable, "list of reference clocks")) return;
  KVXETable* clocks = tab->getTable(&m_ClockConfigTable);
  std::vector<float> list;
  for (unsigned int i = 1; i < clocks->getRowCount(); ++i) {
    std::string tag;
    float megahertz = 0.0f;
    if (!clocks->getCellAt(i, &m_ClockTag)->getVal(tag, true)) continue;
    if (!clocks->getCellAt(i, &m_ClockFreq)->getVal(megahertz, true)) continue;
    if (std::find(list.begin(), list.end(), megahertz) == list.end()) list.push_back(megahertz);
  }
  kvxe::offerInColumn(tab->getTable(&m_ClkMgrTable)->getHeaderRow()->getDefaultCell(&m_RefClock), list);
  uid.getCell()->setValAndMarkEngineClean(static_cast<int>(list.size()));
}
