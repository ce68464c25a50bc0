// The formulas of the power design: the part, its totals, the shape of the rails and the junction
// temperature.

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"

#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/ParamsRecord.h"
#include "models/common/StaticPower.h"

using KVXEEnums::Visibility;
using kvxm::StaticKey;
using namespace kvxe::powerdesign;

// Part and totals.

void KVXEPowerDesignTab::updateDeviceTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_deviceTable, "DeviceTable")) return;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const std::string& option = fixedTextOf(uid.getRow(), m_optionColumn);
  for (const DeviceRow& row : tab->deviceRows())
    if (row.option == option) return uid.getCell()->setValAndMarkEngineClean(tab->partSetting(row));
  uid.getCell()->setBlankAndMarkEngineClean();
}

void KVXEPowerDesignTab::updatePowerSummaryTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_powerSummaryTable, "PowerSummaryTable")) return;
  const float leakage = getOnChipStaticPower(uid);
  const float dynamic = getOnChipDynamicPower(uid);
  const bool isWorstCase = getProcess(uid) == "Maximum";
  const float watts[] = {leakage + dynamic, leakage, dynamic};
  for (unsigned int i = 0; i < std::size(watts); ++i) {
    KVXECell* cell = uid.getTable()->getCellAt(i + 1, &m_selectionColumn);
    cell->setValAndMarkEngineClean(watts[i]);
    cell->setBackgroundColor(isWorstCase ? KVXECell::ReadOnlyBackground : OrangeBackground);
  }
}

// Rails.

bool KVXEPowerDesignTab::isValidVoltage(const KVXEUID& uid, const std::string& rail) {
  return supplyOf(uid, rail) != nullptr;
}

bool KVXEPowerDesignTab::isValidCategory(const KVXEUID& uid, const std::string& category) {
  const kvxm::Device* device = deviceOf(uid);
  if (!device) return false;
  for (const kvxm::Supply& supply : device->supplies)
    if (supply.category == category) return true;
  return false;
}

std::string KVXEPowerDesignTab::getInt2ExtVoltName(const KVXEUID& uid, const std::string& rail) {
  const kvxm::Supply* supply = supplyOf(uid, rail);
  return supply ? supply->displayName : rail;
}

namespace {

kvxm::VoltageRange rangeOf(const kvxm::Supply* supply, const std::string& grade) {
  return supply ? supply->rangeFor(grade) : kvxm::VoltageRange{};
}

}  // namespace

float KVXEPowerDesignTab::getMinVoltage(const KVXEUID& uid, const std::string& rail) {
  return rangeOf(supplyOf(uid, rail), gradeOf(uid)).min;
}
float KVXEPowerDesignTab::getNomVoltage(const KVXEUID& uid, const std::string& rail) {
  return rangeOf(supplyOf(uid, rail), gradeOf(uid)).nom;
}
float KVXEPowerDesignTab::getMaxVoltage(const KVXEUID& uid, const std::string& rail) {
  return rangeOf(supplyOf(uid, rail), gradeOf(uid)).max;
}

std::string KVXEPowerDesignTab::gradeOf(const KVXEUID& uid) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  return tab ? tab->supplyGrade(uid) : std::string();
}

void KVXEPowerDesignTab::updatePowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  KVXERow* row = uid.getRow();
  KVXECell* supply = row->getCell(&m_supplyColumn);
  KVXECell* minimum = row->getCell(&m_minVoltageColumn);
  KVXECell* maximum = row->getCell(&m_maxVoltageColumn);
  std::string heading;
  supply->getVal(heading, false);
  const std::string& rail = railOf(uid);
  if (isCategoryStr(heading)) {
    const bool isShown = isValidCategory(uid, getCategoryStr(heading));
    row->setVisibility(isShown ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  } else if (isValidVoltage(uid, rail)) {
    row->setVisibility(Visibility::EXTERNAL);
    supply->setValAndMarkEngineClean(getInt2ExtVoltName(uid, rail));
    minimum->setValAndMarkEngineClean(getMinVoltage(uid, rail));
    maximum->setValAndMarkEngineClean(getMaxVoltage(uid, rail));
    return;
  } else {
    row->setVisibility(Visibility::ALWAYS_HIDDEN);
  }
  for (KVXECell* cell : {supply, minimum, maximum}) cell->markEngineClean();
}

namespace {

/// IO and always-on auxiliary rails may see their whole load switch at once.
bool hasFullStepLoad(const std::string& rail) {
  return rail == "VCCAUXPMC" || rail == "VCCAUXSMON" || KVXEPowerDesignTab::isIoVccoVoltage(rail) ||
         KVXEPowerDesignTab::isPSIoVoltage(rail);
}

}  // namespace

void KVXEPowerDesignTab::updateStepLoad(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  constexpr float partial = 0.33f;
  const std::string& rail = railOf(uid);
  if (rail.empty()) return uid.getCell()->markEngineClean();
  uid.getCell()->setValAndMarkEngineClean(hasFullStepLoad(rail) ? 1.0f : partial);
}

// Junction temperature.

/// The one run of the static model on which the book rests: it finds the temperature, and the currents and
/// powers of its record hold there.
void KVXEPowerDesignTab::updateDebugJunctionTempTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_debugJunctionTempTable, "DebugJunctionTempTable")) return;
  KVXEPowerDesignTab* tab = tabOf(uid);
  auto params = tab->makeStaticParams();
  updateVoltageParams(uid, *params);
  updateDeviceParams(uid, *params);
  updateBlockParams(uid, *params);
  const bool isOverridden = isJunctionTempOverrideOn(uid);
  const float userTemp = isOverridden ? getUserJunctionTemp(uid) : 0.0f;
  *params->findInt(StaticKey::SOLVE_JUNCTION) = 1;
  *params->findInt(StaticKey::JUNCTION_OVERRIDE) = isOverridden;
  *params->findFloat(StaticKey::JUNCTION_TEMP) = userTemp;
  *params->findFloat(StaticKey::THETA_JA) = getThetaJA(uid);
  *params->findFloat(StaticKey::AMBIENT_TEMP) = getAmbientTemp(uid);
  *params->findFloat(StaticKey::DYNAMIC_POWER) = tab->onChipDynamicPower(uid);
  *params->findFloat(StaticKey::MAX_JUNCTION_TEMP) = getMaxJunctionTemp(uid);
  tab->calculateStatic(*params);
  if (isOverridden) *params->findFloat(StaticKey::JUNCTION_RESULT) = userTemp;
  tab->m_static = std::move(params);
  tab->writeJunction(*tab->m_static);
}

void KVXEPowerDesignTab::writeJunction(kvxm::Record& params) {
  static constexpr std::pair<DebugRow, int> results[] = {
      {InitialTemp, StaticKey::INITIAL_TEMP},        {TempAt25, StaticKey::TEMP_AT_25},
      {NonIntLeakage, StaticKey::NON_INT_LEAKAGE},   {CalcJunctionTemp, StaticKey::JUNCTION_RESULT},
      {MaxAmbientTemp, StaticKey::MAX_AMBIENT_TEMP},
  };
  const KVXETable* table = getTable(&m_debugJunctionTempTable);
  for (const auto& [row, key] : results)
    table->getCellAt(row, &m_debugTempValueColumn)->setValAndMarkEngineClean(*params.findFloat(key));
  KVXECell* junction = table->getCellAt(CalcJunctionTemp, &m_debugTempValueColumn);
  const auto status = static_cast<JunctionStatus>(*params.findInt(StaticKey::JUNCTION_STATUS));
  const bool isValid = status == JunctionStatus::Valid;
  junction->setBackgroundColor(isValid ? KVXECell::ReadOnlyBackground : RedBackground);
  if (isValid) return junction->clearMsg();
  junction->setMsg(KvxSeverity::INFO, m_invalidJunctionMsg);
}
