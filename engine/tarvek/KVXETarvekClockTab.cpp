#include "engine/tarvek/KVXETarvekClockTab.h"

#include <cmath>

#include "engine/base/tabs/KVXEClockManagers.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/tarvek/KVXMTarvekCleClk.h"
#include "models/tarvek/KVXMTarvekClkDist.h"
#include "models/tarvek/KVXMTarvekClock.h"
#include "models/tarvek/KVXMTarvekClockMgrData.h"
#include "models/tarvek/KVXMTarvekDpll.h"
#include "models/tarvek/KVXMTarvekFsyn.h"
#include "models/tarvek/KVXMTarvekIopll.h"
#include "models/tarvek/KVXMTarvekY7Pll.h"

using KVXEEnums::TabType;
using KVXEEnums::ValueSource;

void KVXETarvekClockTab::init() {
  KVXETab::init();
  initClockConfigTable({.name = &KVXECell::NoFormula,
                        .fanoutPerSite = &updateFanoutPerSite,
                        .power = &updateClockConfigPowerRow});
  initClkMgrTable(
      {.name = &KVXECell::NoFormula, .phaseShift = &KVXECell::NoFormula, .power = &updateClockMgrPowerRow});
  initPowerTable();
  initUtilizationTable();
  initClockTagTable();
}

void KVXETarvekClockTab::initPowerTable() {
  std::vector<PowerTableRow> rows{
      {"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCRAM", &updateVccramActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCINTIO", &updateVccintioActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCAUX", &updateVccauxActivePowerInPowerTable, &KVXECell::NoFormula},
  };
  initPowerTableRows(rows);
}

// Utilization.

namespace {

constexpr unsigned int IoPllRow = 3;

bool hasY7Pll() {
  return kvxe::availableCount(KVXEClockTab::m_Y7PllStr).value_or(0) > 0;
}

}  // namespace

void KVXETarvekClockTab::initUtilizationTable() {
  std::vector<UtilizationTableRow> rows;
  for (const std::string& type : {m_FsynStr, m_DpllStr, m_IopllStr, m_ClockStr})
    rows.push_back({type, &updateUtilizationTable});
  KVXETable* table = initUtilizationTableRows(rows);
  table->getCellAt(IoPllRow, &m_TypeColumn)->assignFormula(&updateIoPllType);
}

void KVXETarvekClockTab::updateIoPllType(const KVXEUID& uid) {
  uid.getCell()->setValAndMarkEngineClean(hasY7Pll() ? m_Y7PllStr : m_IopllStr);
}

void KVXETarvekClockTab::updateUtilizationTable(const KVXEUID& uid) {
  static const kvxe::UtilizationRow rows[] = {
      managerUtilizationRow<m_FsynStr>(),
      managerUtilizationRow<m_DpllStr>(),
      managerUtilizationRow<m_IopllStr>(),
      clockUtilizationRow(),
  };
  static const kvxe::UtilizationRow y7Pll = managerUtilizationRow<m_Y7PllStr>();
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of clocks")) return;
  const unsigned int row = uid.getRowIndex();
  kvxe::updateUtilizationCell(uid, row == IoPllRow && hasY7Pll() ? y7Pll : rows[row - 1]);
}

// Rows.

namespace {

/// Registers of a clock that share a site, by how full the device's registers are: 6.5 up to a third, then
/// growing to a site of 16 in a full device.
float fanoutPerSiteOfDesign(const KVXEUID& uid) {
  const float used = kvxe::readUsedCount(uid, TabType::LOGIC, KVXELogicTab::m_RegistersStr);
  const float share = kvxe::readUtilization(uid, TabType::LOGIC, KVXELogicTab::m_RegistersStr);
  if (used <= 0.0f) return KVXEClockTab::DefaultFanoutPerSite;
  constexpr float LargestShare = 60.0f;  // keeps the result finite
  return std::max(4.0f * std::exp(1.386f * std::min(share, LargestShare)),
                  KVXEClockTab::DefaultFanoutPerSite);
}

}  // namespace

void KVXETarvekClockTab::updateFanoutPerSite(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "fanout per site")) return;
  KVXECell* cell = uid.getCell();
  float own = 0.0f;
  if (cell->getVal(own, false) && kvxe::isGiven(*cell)) return cell->markEngineClean();
  // A row without a clock keeps its default, so that it still counts as a row in its default state.
  float megahertz = 0.0f;
  const bool isClock = uid.getRow()->getCell(&m_ClockFreq)->getVal(megahertz, true);
  cell->setValAndMarkEngineClean(isClock ? fanoutPerSiteOfDesign(uid) : DefaultFanoutPerSite);
  cell->setValueSource(ValueSource::DEFAULT);
}

void KVXETarvekClockTab::updateClockConfigPowerRow(const KVXEUID& uid) {
  using Loads = KVXMTarvekClockParams::FloatEnum;
  using Dist = KVXMTarvekClkDistParams::FloatEnum;
  using Pins = KVXMTarvekCleClkParams::FloatEnum;
  static const KVXETitle* const results[] = {&m_VccintPwr, &m_VccramPwr, &m_Power};
  if (!kvxe::isInTable(uid, m_ClockConfigTable, "power of clocks")) return;
  const std::optional<ClockRow> clock = readClockRow(uid);
  if (!clock) return kvxe::blankResults(uid.getRow(), results);
  const std::string device = kvxe::readDevice(uid);

  KVXMTarvekClockParams loads;
  loads[KVXMTarvekClockParams::StringEnum::DEVICE] = device;
  fillLoads(uid, *clock, loads);
  KVXMTarvekClockModel::getGlobal().calculate(loads);

  KVXMTarvekClkDistParams distribution;
  distribution[KVXMTarvekClkDistParams::StringEnum::DEVICE] = device;
  fillActivity(*clock, distribution);
  distribution[Dist::VCCRAM] = kvxe::readVoltage(uid, "VCCRAM").value_or(0.0f);
  distribution[Dist::SLICE_SITES] = loads[Loads::SLICE_SITES];
  distribution[Dist::RAM_SITES] = loads[Loads::RAM_SITES];
  distribution[Dist::HARD_SITES] = loads[Loads::HARD_SITES];
  distribution[Dist::REGIONS] = loads[Loads::REGIONS];
  KVXMTarvekClkDistModel::getGlobal().calculate(distribution);

  KVXMTarvekCleClkParams pins;
  pins[KVXMTarvekCleClkParams::StringEnum::DEVICE] = device;
  fillActivity(*clock, pins);
  pins[Pins::SLICE_LOADS] = loads[Loads::SLICE_LOADS];
  KVXMTarvekCleClkModel::getGlobal().calculate(pins);

  const float vccint = distribution[Dist::VCCINT_POWER] + pins[Pins::VCCINT_POWER];
  const float vccram = distribution[Dist::VCCRAM_POWER];
  logDetails(*clock, vccint, vccram);
  kvxe::writeResult(uid.getRow(), m_VccintPwr, vccint);
  kvxe::writeResult(uid.getRow(), m_VccramPwr, vccram);
  kvxe::writeResult(uid.getRow(), m_Power, vccint + vccram);
}

// Clock managers.

std::vector<std::string> KVXETarvekClockTab::getClockMgrTypes() const {
  return {m_FsynStr, hasY7Pll() ? m_Y7PllStr : m_IopllStr, m_DpllStr};
}

std::optional<std::pair<float, float>> KVXETarvekClockTab::getVcoLimits(const std::string& type) const {
  return kvxm::vcoLimits(KVXMTarvekClockMgrData::getGlobal().getVcoRanges(type, kvxe::readSpeedGrade()));
}

void KVXETarvekClockTab::updateClockMgrPowerRow(const KVXEUID& uid) {
  using kvxe::ClockManagerModel, kvxe::ClockManagerRail, kvxe::runClockManager;
  static const ClockManagerRail fsynRails[] = {{"VCCINT", 2, 21, &m_VccintPwr},
                                               {"VCCAUX", 3, 24, &m_VccauxPwr}};
  static const ClockManagerRail dpllRails[] = {
      {"VCCINT", 2, 21, &m_VccintPwr}, {"VCCRAM", 3, 22, &m_VccramPwr}, {"VCCAUX", 4, 24, &m_VccauxPwr}};
  static const ClockManagerRail bankPllRails[] = {{"VCCINTIO", 2, 23, &m_VccioPwr},
                                                  {"VCCAUX", 3, 24, &m_VccauxPwr}};
  // type, divide key, multiply key, outputs, rails, model
  static const ClockManagerModel models[] = {
      {m_FsynStr, 8, 9, 7, fsynRails, &runClockManager<KVXMTarvekFsynParams, KVXMTarvekFsynModel>},
      {m_DpllStr, 5, 6, 4, dpllRails, &runClockManager<KVXMTarvekDpllParams, KVXMTarvekDpllModel>},
      {m_IopllStr, 5, 6, 3, bankPllRails, &runClockManager<KVXMTarvekIopllParams, KVXMTarvekIopllModel>},
      {m_Y7PllStr, 5, 6, 3, bankPllRails, &runClockManager<KVXMTarvekY7PllParams, KVXMTarvekY7PllModel>},
  };
  kvxe::updateClockManagerPower(uid, models);
}
