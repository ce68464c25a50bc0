// The currents of the rails.

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEBook.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/PartsQueries.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/common/ParamsRecord.h"
#include "models/common/StaticPower.h"

using kvxm::StaticKey;
using namespace kvxe::powerdesign;

namespace {

std::string maxCurrentMsg(int amperes) {
  return "<html>Estimated current exceeds the maximum limit of the selected package.\n Maximum Current: " +
         KVXMHelperUtils::ToString(amperes) + " (A).</html>";
}

float railCurrent(kvxm::Record& params, size_t rail) {
  return *params.findFloat(StaticKey::RAIL_CURRENT_0 + static_cast<int>(rail));
}

}  // namespace

/// The currents of all rails stand in one run of the static model, so whichever rail is evaluated first
/// writes them all. Rows without such a current only blank their own cell.
void KVXEPowerDesignTab::updateStaticCurrentPowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const kvxm::Device* device = deviceOf(uid);
  if (!device || kvxm::staticRailIndex(*device, railOf(uid)) < 0)
    return uid.getCell()->setBlankAndMarkEngineClean();
  getCalculatedJunctionTemp(uid);
  const size_t count = std::min(device->supplies.size(), kvxm::mostStaticRails);
  for (size_t i = 0; i < count; ++i)
    if (KVXECell* cell = tab->railCell(device->supplies[i].rail, m_staticCurrentColumn))
      cell->setValAndMarkEngineClean(railCurrent(*tab->m_static, i));
}

void KVXEPowerDesignTab::updateDynamicCurrentPowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  const std::string& rail = railOf(uid);
  if (rail.empty() || !isValidVoltage(uid, rail)) return uid.getCell()->setBlankAndMarkEngineClean();
  const float volts = getVoltage(uid, rail);
  const float watts = tabOf(uid)->m_railPower.drawnPower(*uid.getBook(), rail);
  uid.getCell()->setValAndMarkEngineClean(volts > 0.0f ? watts / volts : 0.0f);
}

// Startup: what the rails draw before any activity with the junction at its maximum. It hangs on voltages and
// part alone, so one cell keeps it and the rows only compare.

void KVXEPowerDesignTab::runStartup(const KVXEUID& uid) {
  m_startup.reset();
  if (getProcess(uid) != "Maximum") return;
  m_startup = makeStaticParams();
  updateVoltageParams(uid, *m_startup);
  updateDeviceParams(uid, *m_startup);
  updateBlockParams(uid, *m_startup);
  *m_startup->findFloat(StaticKey::JUNCTION_TEMP) = getMaxJunctionTemp(uid);
  calculateStatic(*m_startup);
}

std::optional<float> KVXEPowerDesignTab::startupCurrent(const KVXEUID& uid, const std::string& rail) const {
  float none = 0.0f;
  m_startupRun->getVal(none, true);
  const kvxm::Device* device = m_startup ? deviceOf(uid) : nullptr;
  const int index = device ? kvxm::staticRailIndex(*device, rail) : -1;
  if (index < 0) return std::nullopt;
  return railCurrent(*m_startup, static_cast<size_t>(index));
}

/// Fills total and startup current of a row. Only rails that the device has show a static current.
void KVXEPowerDesignTab::updateTotalCurrentPowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  KVXEPowerDesignTab* tab = tabOf(uid);
  KVXERow* row = uid.getRow();
  KVXECell* cell = row->getCell(&m_totalCurrentColumn);
  float total = 0.0f;
  if (uid.getCell() == tab->m_startupRun) tab->runStartup(uid);
  if (!row->getCell(&m_staticCurrentColumn)->getVal(total, true)) {
    uid.getCell()->clearMsg();
    return uid.getCell()->setBlankAndMarkEngineClean();
  }
  total += kvxe::readNumber(row, m_dynamicCurrentColumn, 0.0f);
  cell->setValAndMarkEngineClean(total);
  cell->clearMsg();
  const std::string& rail = railOf(uid);
  const auto startup = tab->startupCurrent(uid, rail);
  kvxe::writeResult(row, m_powerupCurrentColumn, startup && *startup > total ? startup : std::nullopt);
  if (rail != "VCCINT") return;
  const int limit = tab->staticData().getMaxCurrent(getDevice(uid) + "_" + getPkg(uid));
  if (limit >= 1 && total > static_cast<float>(limit)) cell->setMsg(KvxSeverity::ERROR, maxCurrentMsg(limit));
}
