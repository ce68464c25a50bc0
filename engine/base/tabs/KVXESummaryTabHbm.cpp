// The HBM dies: their power, and their junction temperature, which an override, the chip's override or the
// thermal path gives.

#include <algorithm>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/ParamsRecord.h"
#include "models/common/StaticPower.h"

namespace {

constexpr float HbmAbsoluteMaxTemp = 125.0f;
constexpr float HbmMaxTemp = 105.0f;
constexpr float HbmRefreshTemp = 85.0f;  // above it the dies refresh more often

constexpr KVXECell::Color RefreshBackground = 0xfff2cc;
constexpr KVXECell::Color OutOfRangeBackground = 0xffd9d9;
const char* const refreshMsg =
    "<html>Additional Refresh cycle required for operation between 85 C -105 C. Check Datasheet for "
    "details.<html>";
const char* const outOfRangeMsg =
    "<html>HBM Junction temeperature is out of range. Check Datasheet for details.<html>";

const std::string memoryControllerStr = "HBMMC";

}  // namespace

// Readers.

float KVXESummaryTab::getHbmPower(const KVXEUID& uid) {
  return readEntry(hbmEnvironmentCell(uid, m_hbmOnChipPowerStr, m_envValColumn)).value_or(0.0f);
}

float KVXESummaryTab::getHbmDynamicPower(const KVXEUID& uid) {
  return readEntry(hbmEnvironmentCell(uid, m_dynamicOnChipPowerStr, m_envValColumn)).value_or(0.0f);
}

float KVXESummaryTab::getHbmUserJunctionTemp(const KVXEUID& uid) {
  return readEntry(hbmEnvironmentCell(uid, m_hbmTjOverrideStr, m_envValColumn)).value_or(0.0f);
}

float KVXESummaryTab::getHbmJunctionTemp(const KVXEUID& uid) {
  return readEntry(hbmEnvironmentCell(uid, m_hbmJunctionTempStr, m_envValColumn)).value_or(0.0f);
}

bool KVXESummaryTab::isHbmJunctionTempOverrideOn(const KVXEUID& uid) {
  KVXECell* cell = hbmEnvironmentCell(uid, m_hbmTjOverrideStr, m_envTempColumn);
  std::string choice;
  return cell && cell->getVal(choice, true) && choice == m_userOverrideOnStr;
}

float KVXESummaryTab::hbmStaticPowerAt(const KVXEUID& uid, float celsius) {
  const KVXESummaryTab* tab = tabOf(uid);
  const auto result = tab ? tab->calculateStaticAt(uid, celsius) : nullptr;
  return result ? *result->findFloat(kvxm::StaticKey::HBM_STATIC_POWER) : 0.0f;
}

float KVXESummaryTab::getInitialHbmStaticPower(const KVXEUID& uid) {
  return hbmStaticPowerAt(uid, getDefaultJunctionTemp());
}

// Formulas.

/// False, with the cell blank and the table hidden, when there is nothing to compute.
bool KVXESummaryTab::beginHbm(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_hbmEnvTableHeader}, "Environment")) return false;
  using KVXEEnums::Visibility;
  uid.getTable()->setVisibility(hasHbm() ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  if (hasHbm()) return true;
  uid.getCell()->clearMsg();
  uid.getCell()->setBlankAndMarkEngineClean();
  return false;
}

void KVXESummaryTab::updateHbmOnchipPower(const KVXEUID& uid) {
  if (!beginHbm(uid)) return;
  const auto leakage = readEntry(hbmEnvironmentCell(uid, m_staticOnChipPowerStr, m_envValColumn));
  uid.getCell()->setValAndMarkEngineClean(leakage.value_or(0.0f) + getHbmDynamicPower(uid));
}

void KVXESummaryTab::updateHbmStaticPower(const KVXEUID& uid) {
  if (!beginHbm(uid)) return;
  uid.getCell()->setValAndMarkEngineClean(hbmStaticPowerAt(uid, getHbmJunctionTemp(uid)));
}

void KVXESummaryTab::updateHbmDynamicPower(const KVXEUID& uid) {
  if (!beginHbm(uid)) return;
  uid.getCell()->setValAndMarkEngineClean(tabOf(uid)->readSources(uid, memoryControllerStr).value_or(0.0f));
}

void KVXESummaryTab::updateHbmJunctionTemp(const KVXEUID& uid) {
  if (!beginHbm(uid)) return;
  KVXECell* cell = uid.getCell();
  cell->setIsEditable(false);
  cell->clearMsg();
  if (isHbmJunctionTempOverrideOn(uid)) {
    const float celsius = getHbmUserJunctionTemp(uid);
    cell->setValAndMarkEngineClean(celsius);
    if (celsius <= HbmRefreshTemp) return;
    const bool isOutOfRange = celsius > HbmMaxTemp;
    cell->setBackgroundColor(isOutOfRange ? OutOfRangeBackground : RefreshBackground);
    cell->setMsg(KvxSeverity::INFO, isOutOfRange ? outOfRangeMsg : refreshMsg);
    return;
  }
  if (isJunctionTempOverrideOn(uid)) return cell->setValAndMarkEngineClean(getUserJunctionTemp(uid));
  const float watts = getHbmDynamicPower(uid) + getInitialHbmStaticPower(uid);
  cell->setValAndMarkEngineClean(std::min(getThetaJA(uid) * watts + getAmbientTemp(uid), HbmAbsoluteMaxTemp));
}

void KVXESummaryTab::updateHbmTjOverride(const KVXEUID& uid) {
  if (!beginHbm(uid)) return;
  updateOverride(
      uid, [](const KVXEUID& u) { return hbmEnvironmentCell(u, m_hbmJunctionTempStr, m_envValColumn); });
}

void KVXESummaryTab::updateHbmAmbientTemp(const KVXEUID& uid) {
  if (beginHbm(uid)) uid.getCell()->setValAndMarkEngineClean(getAmbientTemp(uid));
}

void KVXESummaryTab::updateHbmThetaJa(const KVXEUID& uid) {
  if (beginHbm(uid)) uid.getCell()->setValAndMarkEngineClean(getThetaJA(uid));
}

void KVXESummaryTab::updateHbmMaxJunctionTemp(const KVXEUID& uid) {
  if (beginHbm(uid)) uid.getCell()->setValAndMarkEngineClean(HbmMaxTemp);
}
