// The formulas of the power design.

#include <iostream>

#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/PartsQueries.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/common/ParamsRecord.h"
#include "models/common/StaticPower.h"

using KVXEEnums::ValueSource;
using KVXEEnums::Visibility;
using kvxm::StaticKey;

namespace {

constexpr KVXECell::Color OrangeBackground = 0xffc000;
constexpr KVXECell::Color RedBackground = 0xff0000;

constexpr float PartialStepLoad = 0.33f;
constexpr float FullStepLoad = 1.0f;

const char* const outOfRangeMsg = "The Voltage value is out of valid range.";

std::string maxCurrentMsg(int amperes) {
  return "<html>Estimated current exceeds the maximum limit of the selected package.\n Maximum Current: " +
         KVXMHelperUtils::ToString(amperes) + " (A).</html>";
}

bool isInTable(const KVXEUID& uid, const KVXETitle& table, const char* updated) {
  if (uid.getTable() && uid.getTable()->getTableTitle() == &table) return true;
  std::cout << "Error: error occured in updating " << updated << "." << '\n';
  return false;
}

bool isInSupplyTable(const KVXEUID& uid) {
  return isInTable(uid, KVXETab::m_powerSupplyTable, "PowerSupplyTable");
}

std::string textOf(KVXERow* row, const KVXETitle& column) {
  std::string text;
  row->getCell(&column)->getVal(text, true);
  return text;
}

/// Blank for a row that heads a category.
std::string railOf(const KVXEUID& uid) {
  return textOf(uid.getRow(), KVXETab::m_internalSupplyColumn);
}

}  // namespace

// Part and totals.

void KVXEPowerDesignTab::updateDeviceTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_deviceTable, "DeviceTable")) return;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const std::string option = textOf(uid.getRow(), m_optionColumn);
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
  const std::string rail = railOf(uid);
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

/// The user's voltage stays until it is blanked; any other is the nominal one of the part. The value is in
/// place before the checks run, since what they read may depend on it.
void KVXEPowerDesignTab::updateVoltage(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  KVXECell* cell = uid.getCell();
  const std::string rail = railOf(uid);
  if (rail.empty()) return cell->markEngineClean();
  const float nominal = getNomVoltage(uid, rail);
  const ValueSource source = cell->getValueSource();
  float volts = nominal;
  const bool isGiven =
      (source == ValueSource::USER || source == ValueSource::XML) && cell->getVal(volts, false);
  if (nominal == 0.0f) {
    cell->setBlankAndMarkEngineClean();
  } else if (isGiven) {
    cell->markEngineClean();
  } else {
    volts = nominal;
    cell->setValAndMarkEngineClean(volts);
  }
  cell->clearMsg();
  if (nominal == 0.0f) return;
  const float minimum = kvxe::readNumber(uid.getRow(), m_minVoltageColumn, 0.0f);
  const float maximum = kvxe::readNumber(uid.getRow(), m_maxVoltageColumn, 0.0f);
  const bool isInRange = volts >= minimum && volts <= maximum;
  if (minimum > 0.0f && maximum > 0.0f && !isInRange) cell->setMsg(KvxSeverity::ERROR, outOfRangeMsg);
  tabOf(uid)->checkVoltage(uid, rail, volts);
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
  const std::string rail = railOf(uid);
  if (rail.empty()) return uid.getCell()->markEngineClean();
  uid.getCell()->setValAndMarkEngineClean(hasFullStepLoad(rail) ? FullStepLoad : PartialStepLoad);
}

// Currents.

/// Fills one column of currents for all rails from a single run of the static model at a temperature: the
/// cells of the column share their formula, and whichever is evaluated first writes them all. `shown` says
/// what a row shows of the current that its rail leaks; nothing leaves its cell blank.
void KVXEPowerDesignTab::writeLeakageCurrents(const KVXEUID& uid, const KVXETitle& column, float celsius,
                                              std::optional<float> (*shown)(KVXERow* row, float amperes)) {
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const kvxm::Device* device = deviceOf(uid);
  const auto params = tab->makeStaticParams();
  updateVoltageParams(uid, *params);
  updateDeviceParams(uid, *params);
  updateBlockParams(uid, *params);
  *params->findFloat(StaticKey::JUNCTION_TEMP) = celsius;
  tab->calculateStatic(*params);
  for (unsigned int i = 1; i < uid.getTable()->getRowCount(); ++i) {
    KVXERow* row = uid.getTable()->getRow(i);
    const int index = device ? kvxm::staticRailIndex(*device, textOf(row, m_internalSupplyColumn)) : -1;
    const auto amperes =
        index < 0 ? std::nullopt : shown(row, *params->findFloat(StaticKey::RAIL_CURRENT_0 + index));
    if (amperes) {
      row->getCell(&column)->setValAndMarkEngineClean(*amperes);
    } else {
      row->getCell(&column)->setBlankAndMarkEngineClean();
    }
  }
}

/// The rail of a current cell, if the device has it; nothing, with the cell blank, for any other row.
std::optional<std::string> KVXEPowerDesignTab::beginCurrent(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return std::nullopt;
  std::string rail = railOf(uid);
  if (!rail.empty() && isValidVoltage(uid, rail)) return rail;
  uid.getCell()->clearMsg();
  uid.getCell()->setBlankAndMarkEngineClean();
  return std::nullopt;
}

void KVXEPowerDesignTab::updateStaticCurrentPowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  writeLeakageCurrents(uid, m_staticCurrentColumn, getCalculatedJunctionTemp(uid),
                       [](KVXERow*, float amperes) { return std::optional(amperes); });
}

void KVXEPowerDesignTab::updateDynamicCurrentPowerSupplyTable(const KVXEUID& uid) {
  const auto rail = beginCurrent(uid);
  if (!rail) return;
  const float volts = getVoltage(uid, *rail);
  const float watts = tabOf(uid)->m_railPower.activePower(*uid.getBook(), *rail);
  uid.getCell()->setValAndMarkEngineClean(volts > 0.0f ? watts / volts : 0.0f);
}

void KVXEPowerDesignTab::updateTotalCurrentPowerSupplyTable(const KVXEUID& uid) {
  const auto rail = beginCurrent(uid);
  if (!rail) return;
  KVXECell* cell = uid.getCell();
  const float total = kvxe::readNumber(uid.getRow(), m_staticCurrentColumn, 0.0f) +
                      kvxe::readNumber(uid.getRow(), m_dynamicCurrentColumn, 0.0f);
  cell->setValAndMarkEngineClean(total);
  cell->clearMsg();
  if (*rail != "VCCINT") return;
  const int limit = tabOf(uid)->staticData().getMaxCurrent(getDevice(uid) + "_" + getPkg(uid));
  if (limit >= 1 && total > static_cast<float>(limit)) cell->setMsg(KvxSeverity::ERROR, maxCurrentMsg(limit));
}

void KVXEPowerDesignTab::updatePowerupCurrentPowerSupplyTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  if (getProcess(uid) != "Maximum") return uid.getCell()->setBlankAndMarkEngineClean();
  writeLeakageCurrents(uid, m_powerupCurrentColumn, getMaxJunctionTemp(uid), [](KVXERow* row, float startup) {
    const float total = kvxe::readNumber(row, m_totalCurrentColumn, 0.0f);
    return startup > total ? std::optional(startup) : std::nullopt;
  });
}

// Junction temperature.

void KVXEPowerDesignTab::updateDebugJunctionTempTable(const KVXEUID& uid) {
  if (!isInTable(uid, m_debugJunctionTempTable, "DebugJunctionTempTable")) return;
  KVXEPowerDesignTab* tab = tabOf(uid);
  const auto params = tab->makeStaticParams();
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
  tab->writeJunction(*params);
}

void KVXEPowerDesignTab::writeJunction(kvxm::Record& params) {
  static constexpr std::pair<DebugRow, int> results[] = {
      {InitialTemp, StaticKey::INITIAL_TEMP},        {TempAt25, StaticKey::TEMP_AT_25},
      {NonIntLeakage, StaticKey::NON_INT_LEAKAGE},   {CalcJunctionTemp, StaticKey::JUNCTION_RESULT},
      {MaxAmbientTemp, StaticKey::MAX_AMBIENT_TEMP},
  };
  const KVXETable* table = getTable(&m_debugJunctionTempTable);
  m_junctionStatus = static_cast<JunctionStatus>(*params.findInt(StaticKey::JUNCTION_STATUS));
  for (const auto& [row, key] : results)
    table->getCellAt(row, &m_debugTempValueColumn)->setValAndMarkEngineClean(*params.findFloat(key));
  KVXECell* junction = table->getCellAt(CalcJunctionTemp, &m_debugTempValueColumn);
  const bool isValid = m_junctionStatus == JunctionStatus::Valid;
  junction->setBackgroundColor(isValid ? KVXECell::ReadOnlyBackground : RedBackground);
  if (isValid) return junction->clearMsg();
  junction->setMsg(KvxSeverity::INFO, m_invalidJunctionMsg);
}
