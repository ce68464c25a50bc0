#pragma once

#include <algorithm>

#include "engine/base/config/ClockRows.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "models/common/ClockManagerKinds.h"

namespace kvxe {

// Clocks.

template <class A>
std::unique_ptr<ClockConfig> ConfigImpl<A, ClockConfig>::findFromTag(const std::string& tag) const {
  const std::string name = ClockConfig::extractNameFromTag(tag);
  if (!name.empty()) return this->get(name);
  KVXERow* row = detail::findRow(getTable(), KVXEClockTab::m_ClockTag, tag);
  return row ? std::make_unique<ClockConfig>(createCfgFromRow(*row)) : nullptr;
}

template <class A>
bool ConfigImpl<A, ClockConfig>::connectClockMgr(const std::string& clockName, const std::string& mgrName) {
  KVXERow* row = this->findRowByName(clockName);
  if (!row || mgrName.empty() || mgrName.find(detail::ListSeparator) != std::string::npos) return false;
  detail::connectManager(*row, mgrName);
  return true;
}

template <class A>
bool ConfigImpl<A, ClockConfig>::disconnectClockMgr(const std::string& clockName,
                                                    const std::string& mgrName) {
  KVXERow* row = this->findRowByName(clockName);
  if (row) detail::disconnectManager(*row, mgrName);
  return row != nullptr;
}

template <class A>
bool ConfigImpl<A, ClockConfig>::isRemovableRow(KVXERow& row) const {
  return detail::hasNoLoads(row);
}

template <class A>
ClockConfig ConfigImpl<A, ClockConfig>::createCfgFromRow(KVXERow& row) const {
  ClockConfig cfg = ConfigImplBase<A, ClockConfig>::createCfgFromRow(row);
  cfg.clockMgrs = detail::managersOfRow(row);
  cfg.tag = cfg.constructClockTag();
  if (m_domains)
    if (const auto domain = m_domains->get(domainTag(row))) cfg.pwr = *domain;
  return cfg;
}

template <class A>
std::string ConfigImpl<A, ClockConfig>::domainTag(KVXERow& row) const {
  std::string tag = detail::tagOfRow(row);
  return m_domains && m_domains->exists(tag) ? tag : detail::calculatedTagOfRow(row);
}

template <class A>
bool LinkedConfigImpl<A, ClockConfig>::populate(const std::vector<ClockConfig>& cfgs, PopulatePolicy policy) {
  if (!cfgs.empty() && !this->canPopulate(cfgs.size(), policy)) return false;
  std::vector<ClockDomainPwrConfig> rows;
  for (const ClockConfig& cfg : cfgs) {
    ClockDomainPwrConfig row = cfg.pwr;
    row.clockTag = cfg.constructClockTag();
    if (!row.clockTag.empty()) rows.push_back(std::move(row));
  }
  if (this->domains() && !this->domains()->populate(rows, policy)) return false;
  return ConfigImpl<A, ClockConfig>::populate(cfgs, policy);
}

/// Brings the row of power management in step with a clock whose row is about to be overwritten.
template <class A>
bool LinkedConfigImpl<A, ClockConfig>::updateDomain(KVXERow& row, const ClockConfig& cfg) {
  ConfigIfc<ClockDomainPwrConfig>* domains = this->domains();
  if (!domains) return true;
  const std::string tag = this->domainTag(row);
  ClockDomainPwrConfig domain = cfg.pwr;
  domain.clockTag = cfg.constructClockTag();
  if (domain.clockTag.empty()) {
    domains->remove(tag);
    return true;
  }
  return domains->edit(tag, domain) || domains->populate(domain, PopulatePolicy::DefaultEditable);
}

template <class A>
bool LinkedConfigImpl<A, ClockConfig>::edit(const std::string& name, const ClockConfig& cfg) {
  KVXERow* row = this->findRowByName(name);
  if (!row || !updateDomain(*row, cfg)) return false;
  const std::string before = detail::storedText(this->cellOf(*row, KVXEClockTab::m_ClockFreq));
  if (m_mgrs && before != detail::StringConverter<float>::toText(cfg.frequency)) {
    // The managers that the clock feeds now, listed in the record or not, and those that it is to feed.
    std::vector<std::string> mgrs = detail::managersOfRow(*row);
    mgrs.insert(mgrs.end(), cfg.clockMgrs.begin(), cfg.clockMgrs.end());
    for (const std::string& mgr : mgrs) m_mgrs->setRefClockFreq(mgr, cfg.frequency);
  }
  this->assignCfgToRow(cfg, *row, PopulatePolicy::DefaultEditable);
  return true;
}

template <class A>
void LinkedConfigImpl<A, ClockConfig>::preDelete(KVXERow& row) {
  if (this->domains()) this->domains()->remove(this->domainTag(row));
}

// Clock managers.

template <class A>
std::vector<std::string> ConfigImpl<A, ClockMgrConfig>::getClockMgrTypes() const {
  return detail::managerTypes(m_table->getTab());
}

template <class A>
int ConfigImpl<A, ClockMgrConfig>::getNumOutputClocks(const std::string& type) const {
  return ArchTraits<A>::getClockManagerKinds().getOutputCount(type);
}

template <class A>
std::vector<std::string> ConfigImpl<A, ClockMgrConfig>::getVcoRangeList(const std::string& type) const {
  std::vector<std::string> names;
  for (const kvxm::VcoRange& range :
       ArchTraits<A>::getClockManagerKinds().getVcoRanges(type, readSpeedGrade()))
    names.push_back(range.name);
  return names;
}

template <class A>
std::string ConfigImpl<A, ClockMgrConfig>::getDefaultVcoRange(const std::string& type) const {
  return ArchTraits<A>::getClockManagerKinds().getDefaultVcoRange(type);
}

template <class A>
bool ConfigImpl<A, ClockMgrConfig>::setRefClockFreq(const std::string& name, float frequency) {
  KVXERow* row = this->findRowByName(name);
  if (!row) return false;
  detail::writeText(this->cellOf(*row, KVXEClockTab::m_RefClock),
                    detail::StringConverter<float>::toText(frequency));
  detail::fillOscillator(*row);
  return true;
}

/// The clock as it is, or only its name.
template <class A>
ClockConfig ConfigImpl<A, ClockMgrConfig>::clockOf(const std::string& name) const {
  const auto clock = m_clocks ? m_clocks->get(name) : nullptr;
  return clock ? *clock : ClockConfig{.name = name};
}

template <class A>
std::vector<std::string> ConfigImpl<A, ClockMgrConfig>::getOutputClockNames(KVXERow& row) const {
  return detail::outputsOfRow(row);
}

template <class A>
ClockMgrConfig ConfigImpl<A, ClockMgrConfig>::createCfgFromRow(KVXERow& row) const {
  ClockMgrConfig cfg = ConfigImplBase<A, ClockMgrConfig>::createCfgFromRow(row);
  cfg.inputClk = clockOf(cfg.inputClkName);
  cfg.outputClks.clear();
  for (const std::string& name : getOutputClockNames(row))
    cfg.outputClks.push_back({.clock = clockOf(name), .isInUse = true});
  return cfg;
}

template <class A>
void ConfigImpl<A, ClockMgrConfig>::assignCfgToRow(const ClockMgrConfig& cfg, KVXERow& row,
                                                   PopulatePolicy policy) {
  ConfigImplBase<A, ClockMgrConfig>::assignCfgToRow(cfg, row, policy);
  fillAutoCalculatedCells(cfg, row);
}

template <class A>
void ConfigImpl<A, ClockMgrConfig>::fillAutoCalculatedCells(const ClockMgrConfig&, KVXERow& row) {
  detail::fillOscillator(row);
}

namespace detail {

/// The clocks that come with new managers, and what of the managers follows from clocks.
class ManagerClocks {
 public:
  ManagerClocks(std::vector<ClockMgrConfig> mgrs, const ConfigIfc<ClockConfig>& clocks);

  const std::vector<ClockMgrConfig>& mgrs() const { return m_mgrs; }
  const std::vector<ClockConfig>& newClocks() const { return m_newClocks; }

 private:
  void addInput(ClockMgrConfig& mgr, const ConfigIfc<ClockConfig>& clocks);
  void addOutputs(const ClockMgrConfig& mgr);

  std::vector<ClockMgrConfig> m_mgrs;
  std::vector<ClockConfig> m_newClocks;
};

}  // namespace detail

template <class A>
bool LinkedConfigImpl<A, ClockMgrConfig>::populate(const std::vector<ClockMgrConfig>& cfgs,
                                                   PopulatePolicy policy) {
  if (!this->clocks()) return ConfigImpl<A, ClockMgrConfig>::populate(cfgs, policy);
  if (!cfgs.empty() && !this->canPopulate(cfgs.size(), policy)) return false;
  const detail::ManagerClocks linked(cfgs, *this->clocks());
  if (!this->clocks()->populate(linked.newClocks(), policy)) return false;
  for (const ClockMgrConfig& mgr : linked.mgrs()) this->clocks()->connectClockMgr(mgr.inputClkName, mgr.name);
  return ConfigImpl<A, ClockMgrConfig>::populate(linked.mgrs(), policy);
}

template <class A>
bool LinkedConfigImpl<A, ClockMgrConfig>::edit(const std::string& name, const ClockMgrConfig& cfg) {
  const auto before = this->get(name);
  if (!ConfigImpl<A, ClockMgrConfig>::edit(name, cfg)) return false;
  if (!this->clocks() || before->inputClkName == cfg.inputClkName) return true;
  this->clocks()->disconnectClockMgr(before->inputClkName, name);
  this->clocks()->connectClockMgr(cfg.inputClkName, cfg.name);
  return true;
}

template <class A>
void LinkedConfigImpl<A, ClockMgrConfig>::preDelete(KVXERow& row) {
  if (this->clocks()) detail::disconnectFromClocks(row);
}

}  // namespace kvxe
