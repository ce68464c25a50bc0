// The voltages of the rails, and which supply feeds each.

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/RailGrouping.h"

using namespace kvxe::powerdesign;

// Groups.

std::string KVXEPowerDesignTab::railGroup(const std::string& consolidation, const kvxm::Supply& supply,
                                          float nominalVolts) const {
  return kvxm::railGroup(consolidation, supply.rail, supply.category, nominalVolts);
}

void KVXEPowerDesignTab::findRailGroups(const KVXEUID& uid) {
  const kvxm::Device* device = deviceOf(uid);
  const std::string consolidation = getPowerRailConsolidation(uid);
  const auto rule = [&](const kvxm::Supply& supply, float volts) -> std::optional<std::string> {
    if (!m_railRows.contains(supply.rail)) return std::nullopt;
    return railGroup(consolidation, supply, volts);
  };
  m_railGroups = device ? kvxe::RailGroups(*device, gradeOf(uid), rule) : kvxe::RailGroups();
  m_groupsOfRows.assign(m_groupsOfRows.size(), nullptr);
  for (const Group& group : m_railGroups.all())
    if (const auto row = m_supplyRows.find(group.name); row != m_supplyRows.end())
      m_groupsOfRows[row->second->getIndex()] = &group;
}

const kvxe::RailGroups& KVXEPowerDesignTab::railGroups() const {
  std::string none;
  m_groupsRun->getVal(none, true);
  return m_railGroups;
}

/// Applies the consolidation that is chosen: each rail of the part shows its supply.
void KVXEPowerDesignTab::updatePwrRailConsolidationTable(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  KVXEPowerDesignTab* tab = tabOf(uid);
  KVXECell* cell = uid.getCell();
  if (cell == tab->m_groupsRun) {
    tab->findRailGroups(uid);
    return cell->setBlankAndMarkEngineClean();
  }
  const Group* group = tab->railGroups().groupOf(railOf(uid));
  cell->setValAndMarkEngineClean(group ? group->name : std::string());
}

std::optional<float> KVXEPowerDesignTab::groupVoltage(const std::string& group) const {
  const auto found = m_supplyRows.find(group);
  float volts = 0.0f;
  if (found == m_supplyRows.end() || !found->second->getCell(&m_psdVoltageColumn)->getVal(volts, true))
    return std::nullopt;
  return volts;
}

// Voltages.

namespace {

/// Lets the user edit the voltage, or not. While not, what the user gave is kept in a hidden column, and put
/// back as soon as the rail is free again.
void handOver(KVXERow* row, bool isFree) {
  KVXECell* voltage = row->getCell(&KVXETab::m_voltageColumn);
  KVXECell* own = row->getCell(&KVXEPowerDesignTab::m_ownVoltageColumn);
  if (voltage->getIsEditable() != isFree) voltage->setIsEditable(isFree);
  float volts = 0.0f;
  if (!isFree) {
    if (!isGiven(*voltage) || !voltage->getVal(volts, false)) return;
    own->setValAndMarkEngineClean(volts);
    own->setValueSource(KVXEEnums::ValueSource::USER);  // so that a project keeps it
    return;
  }
  if (isGiven(*voltage) || !own->getVal(volts, true)) return;
  voltage->setValAndMarkEngineClean(volts);
  voltage->setValueSource(KVXEEnums::ValueSource::USER);
  own->setBlankAndMarkEngineClean();
}

}  // namespace

/// The user's voltage stays until it is blanked; any other is that of a shared supply or the nominal one of
/// the part. The value is in place before the checks run, since what they read may depend on it.
void KVXEPowerDesignTab::updateVoltage(const KVXEUID& uid) {
  if (!isInSupplyTable(uid)) return;
  KVXERow* row = uid.getRow();
  KVXECell* cell = uid.getCell();
  const std::string& rail = railOf(uid);
  if (rail.empty()) return cell->markEngineClean();
  const float nominal = getNomVoltage(uid, rail);
  const Group* group = tabOf(uid)->railGroups().groupOf(rail);
  const bool isShared = group && group->isShared();
  handOver(row, !isShared && nominal != 0.0f);
  cell->clearMsg();
  showRange(*cell, true);
  if (nominal == 0.0f) return cell->setBlankAndMarkEngineClean();

  float volts = nominal;
  if (isShared) {
    volts = tabOf(uid)->groupVoltage(group->name).value_or(nominal);
    cell->setValAndMarkEngineClean(volts);
  } else if (isGiven(*cell) && cell->getVal(volts, false)) {
    cell->markEngineClean();
  } else {
    volts = nominal;
    cell->setValAndMarkEngineClean(volts);
  }
  if (!isInLimits(row, volts)) {
    cell->setMsg(KvxSeverity::ERROR, outOfRangeMsg);
    showRange(*cell, false);
  }
  tabOf(uid)->checkVoltage(uid, rail, volts);
}
