// What other tabs read of the power design, and the input of the static model.

#include <algorithm>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/StaticPower.h"

using KVXEEnums::TabType;
using kvxm::StaticKey;

namespace {

constexpr float DefaultJunctionTemp = KVXESummaryTab::getDefaultJunctionTemp();
constexpr float ExcursionTemp = 110.0f;

// By the first letter that the temperature grade contains.
struct GradeLimit {
  char letter;
  float celsius;
};
constexpr GradeLimit gradeLimits[] = {{'C', 85.0f}, {'M', 125.0f}, {'Q', 125.0f}};

constexpr TabType logicTabs[] = {TabType::CLOCK, TabType::LOGIC, TabType::BRAM,
                                 TabType::WRAM,  TabType::MPRAM, TabType::DSP};

float maxJunctionOf(const std::string& grade) {
  for (const GradeLimit& limit : gradeLimits)
    if (grade.find(limit.letter) != std::string::npos) return limit.celsius;
  return KVXESummaryTab::getDefaultMaxJunctionTemp();
}

KVXECell* environmentCell(const KVXEUID& uid, const std::string& row, const KVXETitle& column) {
  KVXEBook* book = uid.getBook();
  return book ? book->lookup<std::string>(TabType::SUMMARY, &KVXESummaryTab::m_envTableHeader, row,
                                          &KVXESummaryTab::m_envTypeColumn, &column, false)
              : nullptr;
}

float& slot(kvxm::Record& params, int key) {
  return *params.findFloat(key);
}

}  // namespace

KVXEPowerDesignTab* KVXEPowerDesignTab::tabOf(const KVXEUID& uid) {
  const KVXEBook* book = uid.getBook();
  return book ? dynamic_cast<KVXEPowerDesignTab*>(book->getTab(TabType::POWER_DESIGN)) : nullptr;
}

// The part.

std::string KVXEPowerDesignTab::deviceSetting(const KVXEUID& uid, const std::string& option) {
  std::string text;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  if (!tab) return text;
  if (const auto found = tab->m_deviceCells.find(option); found != tab->m_deviceCells.end())
    found->second->getVal(text, true);
  return text;
}

std::string KVXEPowerDesignTab::getDevice(const KVXEUID& uid) {
  return deviceSetting(uid, "Device");
}
std::string KVXEPowerDesignTab::getPkg(const KVXEUID& uid) {
  return deviceSetting(uid, "Package");
}
std::string KVXEPowerDesignTab::getFamily(const KVXEUID& uid) {
  return deviceSetting(uid, "Family");
}
std::string KVXEPowerDesignTab::getProcess(const KVXEUID& uid) {
  return deviceSetting(uid, "Process");
}
std::string KVXEPowerDesignTab::getTempGrade(const KVXEUID& uid) {
  return deviceSetting(uid, "Temperature");
}
std::string KVXEPowerDesignTab::getSpeedGrade(const KVXEUID& uid) {
  return deviceSetting(uid, "Speed");
}

namespace {

/// The long text of a code; a code that the part selection does not know stays.
std::string inFull(const std::string& code,
                   std::string (KVXEPartSelection::*text)(const std::string&) const) {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const std::string full = selection ? (selection->*text)(code) : std::string();
  return full.empty() ? code : full;
}

}  // namespace

std::string KVXEPowerDesignTab::getSpeedGradeForDisplay(const KVXEUID& uid) {
  const std::string grade = getSpeedGrade(uid);
  return grade.empty() ? grade : "-" + grade;
}
std::string KVXEPowerDesignTab::getVoltageRangeForDisplay(const KVXEUID& uid) {
  return inFull(deviceSetting(uid, "VCCINT Voltage"), &KVXEPartSelection::getVoltageGradeStr);
}
std::string KVXEPowerDesignTab::getTempGradeForDisplay(const KVXEUID& uid) {
  return inFull(getTempGrade(uid), &KVXEPartSelection::getTempGradeStr);
}

const kvxm::Device* KVXEPowerDesignTab::deviceOf(const KVXEUID& uid) {
  return kvxm::DeviceCatalogue::getGlobal().findDevice(getDevice(uid));
}

const kvxm::Supply* KVXEPowerDesignTab::supplyOf(const KVXEUID& uid, const std::string& rail) {
  const kvxm::Device* device = deviceOf(uid);
  const int index = device ? kvxm::staticRailIndex(*device, rail) : -1;
  return index < 0 ? nullptr : &device->supplies[static_cast<size_t>(index)];
}

KVXECell* KVXEPowerDesignTab::railCell(const std::string& rail, const KVXETitle& column) const {
  const auto found = m_railRows.find(rail);
  return found == m_railRows.end() ? nullptr : found->second->getCell(&column);
}

float KVXEPowerDesignTab::getVoltage(const KVXEUID& uid, const std::string& rail) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  KVXECell* cell = tab ? tab->railCell(rail, m_voltageColumn) : nullptr;
  float volts = 0.0f;
  return cell && cell->getVal(volts, true) ? volts : 0.0f;
}

float KVXEPowerDesignTab::getTpfSetting(const KVXEUID& uid) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  float factor = 1.0f;
  return tab && tab->m_tpf && tab->m_tpf->getVal(factor, true) ? factor : 1.0f;
}

std::string KVXEPowerDesignTab::getPowerRailConsolidation(const KVXEUID& uid) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  std::string choice;
  if (tab && tab->m_consolidation) tab->m_consolidation->getVal(choice, true);
  return choice;
}

// The environment.

std::optional<float> KVXEPowerDesignTab::environmentValue(const KVXEUID& uid, const std::string& row) {
  KVXECell* cell = environmentCell(uid, row, KVXESummaryTab::m_envValColumn);
  float value = 0.0f;
  constexpr float OldBlank = -1000.0f;
  if (!cell || !cell->getVal(value, true) || value == OldBlank) return std::nullopt;
  return value;
}

bool KVXEPowerDesignTab::isJunctionTempOverrideOn(const KVXEUID& uid) {
  return KVXESummaryTab::isJunctionTempOverrideOn(uid);
}
bool KVXEPowerDesignTab::isHbmJunctionTempOverrideOn(const KVXEUID& uid) {
  return KVXESummaryTab::isHbmJunctionTempOverrideOn(uid);
}
float KVXEPowerDesignTab::getThetaJA(const KVXEUID& uid) {
  return KVXESummaryTab::getThetaJA(uid);
}
float KVXEPowerDesignTab::getAmbientTemp(const KVXEUID& uid) {
  return KVXESummaryTab::getAmbientTemp(uid);
}
float KVXEPowerDesignTab::getUserJunctionTemp(const KVXEUID& uid) {
  return KVXESummaryTab::getUserJunctionTemp(uid);
}
float KVXEPowerDesignTab::getMaxJunctionTemp(const KVXEUID& uid) {
  return maxJunctionOf(getTempGrade(uid));
}

bool KVXEPowerDesignTab::isExcursionTempSupported(const KVXEUID& uid) {
  const kvxm::Device* device = deviceOf(uid);
  const std::string grade = getTempGrade(uid);
  return device && device->supportsExcursion && (grade == "E" || grade == "I");
}

float KVXEPowerDesignTab::getMaxJunctionToExcursionTemp(const KVXEUID& uid) {
  return environmentValue(uid, KVXESummaryTab::m_maxJunctionTempWithExcursionStr).value_or(ExcursionTemp);
}

// Results.

float KVXEPowerDesignTab::debugValue(const KVXEUID& uid, DebugRow row, float fallback) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const KVXETable* table = tab ? tab->getTable(&m_debugJunctionTempTable) : nullptr;
  KVXECell* cell = table ? table->getCellAt(row, &m_debugTempValueColumn) : nullptr;
  float value = fallback;
  return cell && cell->getVal(value, true) ? value : fallback;
}

float KVXEPowerDesignTab::getCalculatedJunctionTemp(const KVXEUID& uid) {
  return debugValue(uid, CalcJunctionTemp, DefaultJunctionTemp);
}
float KVXEPowerDesignTab::getInitialJunctionTemp(const KVXEUID& uid) {
  return debugValue(uid, InitialTemp, DefaultJunctionTemp);
}
float KVXEPowerDesignTab::getJunctionTempAt25(const KVXEUID& uid) {
  return debugValue(uid, TempAt25, DefaultJunctionTemp);
}
float KVXEPowerDesignTab::getNonIntLeakage(const KVXEUID& uid) {
  return debugValue(uid, NonIntLeakage, 0.0f);
}

/// A result of the static model at the junction temperature in force.
float KVXEPowerDesignTab::staticOutput(const KVXEUID& uid, int key) {
  getCalculatedJunctionTemp(uid);
  const KVXEPowerDesignTab* tab = tabOf(uid);
  return tab && tab->m_static ? slot(*tab->m_static, key) : 0.0f;
}

KVXEPowerDesignTab::JunctionStatus KVXEPowerDesignTab::getJunctionStatus(const KVXEUID& uid) {
  getCalculatedJunctionTemp(uid);
  const KVXEPowerDesignTab* tab = tabOf(uid);
  if (!tab || !tab->m_static) return JunctionStatus::Valid;
  return static_cast<JunctionStatus>(*tab->m_static->findInt(StaticKey::JUNCTION_STATUS));
}

float KVXEPowerDesignTab::getIntermediateJunctionTemperature(
    const KVXEUID& uid, float ambient, const std::map<std::string, float>& railCurrents) {
  if (isJunctionTempOverrideOn(uid)) return getUserJunctionTemp(uid);
  double watts = 0.0;
  for (const auto& [rail, amperes] : railCurrents) watts += double{amperes} * getVoltage(uid, rail);
  return static_cast<float>(ambient + watts * getThetaJA(uid));
}

float KVXEPowerDesignTab::getOnChipStaticPower(const KVXEUID& uid) {
  return staticOutput(uid, StaticKey::STATIC_POWER);
}
float KVXEPowerDesignTab::getHbmStaticPower(const KVXEUID& uid) {
  return staticOutput(uid, StaticKey::HBM_STATIC_POWER);
}

float KVXEPowerDesignTab::getOnChipDynamicPower(const KVXEUID& uid) {
  KVXEPowerDesignTab* tab = tabOf(uid);
  return tab ? tab->onChipDynamicPower(uid) : 0.0f;
}

float KVXEPowerDesignTab::getOnChipPower(const KVXEUID& uid) {
  return getOnChipStaticPower(uid) + getOnChipDynamicPower(uid);
}

float KVXEPowerDesignTab::getBlockDynamicPower(const KVXEUID& uid, TabType tabType) {
  KVXETab* tab = uid.getBook() ? uid.getBook()->getTab(tabType) : nullptr;
  float watts = 0.0f;
  return tab && tab->getTabActivePower(watts) ? watts : 0.0f;
}

float KVXEPowerDesignTab::getPlDynamicPower(const KVXEUID& uid) {
  double watts = 0.0;
  for (const TabType tab : logicTabs) watts += getBlockDynamicPower(uid, tab);
  return static_cast<float>(watts);
}

float KVXEPowerDesignTab::getOffChipPower(const KVXEUID& uid) {
  KVXEPowerDesignTab* tab = tabOf(uid);
  return tab ? tab->m_railPower.offChipPower(*uid.getBook()) : 0.0f;
}

/// The summary's list of blocks; without one, what the tabs themselves say.
float KVXEPowerDesignTab::onChipDynamicPower(const KVXEUID& uid) {
  KVXEBook* book = uid.getBook();
  KVXETab* summary = book->getTab(TabType::SUMMARY);
  if (summary && summary->getTable(&KVXESummaryTab::m_onchipDynamicTableHeader))
    return summary->sumColumn(&KVXESummaryTab::m_onchipDynamicTableHeader,
                              &KVXESummaryTab::m_onchipPowerColumn);
  double watts = 0.0;
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    float active = 0.0f;
    if (KVXETab* tab = book->getTab(i); tab && tab->getTabActivePower(active)) watts += active;
  }
  return static_cast<float>(watts);
}

// The static model's input.

void KVXEPowerDesignTab::getStaticParams(const KVXEUID& uid, kvxm::Record& params) {
  updateVoltageParams(uid, params);
  updateDeviceParams(uid, params);
  updateBlockParams(uid, params);
  updateThermalParams(uid, params);
}

void KVXEPowerDesignTab::updateVoltageParams(const KVXEUID& uid, kvxm::Record& params) {
  const kvxm::Device* device = deviceOf(uid);
  if (!device) return;
  const size_t count = std::min(device->supplies.size(), kvxm::mostStaticRails);
  for (size_t i = 0; i < count; ++i)  // the model takes a negative voltage for none given
    slot(params, StaticKey::RAIL_VOLTAGE_0 + static_cast<int>(i)) =
        std::max(0.0f, getVoltage(uid, device->supplies[i].rail));
}

void KVXEPowerDesignTab::updateDeviceParams(const KVXEUID& uid, kvxm::Record& params) {
  *params.findString(StaticKey::DEVICE) = getDevice(uid);
  *params.findString(StaticKey::PROCESS) = getProcess(uid);
  slot(params, StaticKey::TYPICAL_PROCESS_FACTOR) = getTpfSetting(uid);
  if (const KVXEPowerDesignTab* tab = tabOf(uid)) tab->fillDeviceParams(uid, params);
}

void KVXEPowerDesignTab::updateBlockParams(const KVXEUID& uid, kvxm::Record& params) {
  updateBlockUtilization(uid, params);
}

void KVXEPowerDesignTab::updateBlockUtilization(const KVXEUID& uid, kvxm::Record& params) {
  if (const KVXEPowerDesignTab* tab = tabOf(uid)) tab->fillBlockParams(uid, params);
}

void KVXEPowerDesignTab::updateThermalParams(const KVXEUID& uid, kvxm::Record& params) {
  slot(params, StaticKey::THETA_JA) = getThetaJA(uid);
  slot(params, StaticKey::AMBIENT_TEMP) = getAmbientTemp(uid);
  const bool isOverridden = isJunctionTempOverrideOn(uid);
  slot(params, StaticKey::JUNCTION_TEMP) =
      isOverridden ? getUserJunctionTemp(uid) : getCalculatedJunctionTemp(uid);
  *params.findInt(StaticKey::JUNCTION_OVERRIDE) = isOverridden;
}
