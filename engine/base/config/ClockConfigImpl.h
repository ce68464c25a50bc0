#pragma once

#include "engine/base/config/Architectures.h"
#include "engine/base/config/ClockMgrConfig.h"
#include "engine/base/config/ConfigProxy.h"
#include "engine/base/tabs/KVXEClockTab.h"

/// The rules of clocks, clock managers and the clocks' rows of power management, which keep each other in
/// step: a clock with a tag has a row of power management, a manager creates the clocks that it puts out,
/// and the frequency of a clock travels to the managers that it feeds.
namespace kvxe {

using ClockDomains = std::shared_ptr<ConfigIfc<ClockDomainPwrConfig>>;  ///< null on a device without
using Clocks = std::shared_ptr<ConfigIfc<ClockConfig>>;
using ClockMgrs = std::shared_ptr<ConfigIfc<ClockMgrConfig>>;

template <class A>
struct TableTraits<A, ClockConfig>
    : TableOf<KVXEEnums::TabType::CLOCK, KVXEClockTab::m_ClockConfigTable, KVXEClockTab::m_Name,
              KVXEClockTab::m_ClockMgr, KVXEClockTab::m_ClockFreq, KVXEClockTab::m_ClockTag,
              KVXEClockTab::m_Source, KVXEClockTab::m_Fanout, KVXEClockTab::m_FanoutPerSite,
              KVXEClockTab::m_ClkBufEnable, KVXEClockTab::m_SliceClkEnable, KVXEClockTab::m_UserComments> {};

template <class A>
struct TableTraits<A, ClockMgrConfig>
    : TableOf<KVXEEnums::TabType::CLOCK, KVXEClockTab::m_ClkMgrTable, KVXEClockTab::m_Name,
              KVXEClockTab::m_ClkMgrType, KVXEClockTab::m_RefClock, KVXEClockTab::m_PhaseShift,
              KVXEClockTab::m_DivideCounter, KVXEClockTab::m_MultiplyCounter, KVXEClockTab::m_VcoFreq,
              KVXEClockTab::m_VcoRange, KVXEClockTab::m_Clk0Divide, KVXEClockTab::m_Clk1Divide,
              KVXEClockTab::m_Clk2Divide, KVXEClockTab::m_Clk3Divide, KVXEClockTab::m_Clk4Divide,
              KVXEClockTab::m_Clk5Divide, KVXEClockTab::m_Clk6Divide, KVXEClockTab::m_Clk0FanoutRow,
              KVXEClockTab::m_Clk1FanoutRow, KVXEClockTab::m_Clk2FanoutRow, KVXEClockTab::m_Clk3FanoutRow,
              KVXEClockTab::m_Clk4FanoutRow, KVXEClockTab::m_Clk5FanoutRow, KVXEClockTab::m_Clk6FanoutRow,
              KVXEClockTab::m_InputClkName, KVXEClockTab::m_OutputClkNames, KVXEClockTab::m_PowerDown> {};

// Clocks.

template <class A>
class ConfigImpl<A, ClockConfig> : public ConfigImplBase<A, ClockConfig> {
 public:
  ConfigImpl(KVXETable* table, ClockDomains domains) : m_table(table), m_domains(std::move(domains)) {}

  std::unique_ptr<ClockConfig> findFromTag(const std::string& tag) const;
  bool connectClockMgr(const std::string& clockName, const std::string& mgrName);
  bool disconnectClockMgr(const std::string& clockName, const std::string& mgrName);
  bool isRemovabilityDefined() const override { return true; }

 protected:
  KVXETable& getTable() const override { return *m_table; }
  bool isRemovableRow(KVXERow& row) const override;
  ClockConfig createCfgFromRow(KVXERow& row) const override;

  ConfigIfc<ClockDomainPwrConfig>* domains() const { return m_domains.get(); }
  /// The tag of the clock in power management, which may not know yet of a frequency that the user changed.
  std::string domainTag(KVXERow& row) const;

 private:
  KVXETable* m_table;
  ClockDomains m_domains;
};

template <class A>
class LinkedConfigImpl<A, ClockConfig> final : public ConfigImpl<A, ClockConfig> {
 public:
  LinkedConfigImpl(KVXETable* table, ClockDomains domains, ClockMgrs mgrs)
      : ConfigImpl<A, ClockConfig>(table, std::move(domains)), m_mgrs(std::move(mgrs)) {}

  using ConfigImplBase<A, ClockConfig>::populate;
  using ConfigImplBase<A, ClockConfig>::edit;
  bool populate(const std::vector<ClockConfig>& cfgs, PopulatePolicy policy) override;
  bool edit(const std::string& name, const ClockConfig& cfg) override;

 protected:
  void preDelete(KVXERow& row) override;

 private:
  bool updateDomain(KVXERow& row, const ClockConfig& cfg);

  ClockMgrs m_mgrs;
};

// Clock managers.

template <class A>
class ConfigImpl<A, ClockMgrConfig> : public ConfigImplBase<A, ClockMgrConfig> {
 public:
  ConfigImpl(KVXETable* table, Clocks clocks) : m_table(table), m_clocks(std::move(clocks)) {}

  std::vector<std::string> getClockMgrTypes() const;
  int getNumOutputClocks(const std::string& type) const;
  std::vector<std::string> getVcoRangeList(const std::string& type) const;
  std::string getDefaultVcoRange(const std::string& type) const;
  bool setRefClockFreq(const std::string& name, float frequency);

 protected:
  KVXETable& getTable() const override { return *m_table; }
  ClockMgrConfig createCfgFromRow(KVXERow& row) const override;
  void assignCfgToRow(const ClockMgrConfig& cfg, KVXERow& row, PopulatePolicy policy) override;
  /// The outputs that the row lists, or else those that the sources of clocks name.
  std::vector<std::string> getOutputClockNames(KVXERow& row) const;
  /// What follows from the columns that were written.
  void fillAutoCalculatedCells(const ClockMgrConfig& cfg, KVXERow& row);

  ConfigIfc<ClockConfig>* clocks() const { return m_clocks.get(); }

 private:
  ClockConfig clockOf(const std::string& name) const;

  KVXETable* m_table;
  Clocks m_clocks;
};

template <class A>
class LinkedConfigImpl<A, ClockMgrConfig> final : public ConfigImpl<A, ClockMgrConfig> {
 public:
  using ConfigImpl<A, ClockMgrConfig>::ConfigImpl;
  using ConfigImplBase<A, ClockMgrConfig>::populate;
  using ConfigImplBase<A, ClockMgrConfig>::edit;
  /// With its input clock, unless that is there, and the outputs in use; all or none.
  bool populate(const std::vector<ClockMgrConfig>& cfgs, PopulatePolicy policy) override;
  bool edit(const std::string& name, const ClockMgrConfig& cfg) override;

 protected:
  void preDelete(KVXERow& row) override;
};

// What clients get.

template <class A>
class ConfigProxy<A, ClockDomainPwrConfig> final : public ConfigProxyBase<A, ClockDomainPwrConfig> {
 public:
  using Base = ConfigProxyBase<A, ClockDomainPwrConfig>;
  using Base::Base;
  using Base::edit;
  bool edit(const std::string& clockTag, const ClockDomainPwrConfig& cfg) override {
    return this->impl().edit(clockTag, cfg);
  }
};

template <class A>
class ConfigProxy<A, ClockConfig> final : public ConfigProxyBase<A, ClockConfig> {
 public:
  using ConfigProxyBase<A, ClockConfig>::ConfigProxyBase;
  std::unique_ptr<ClockConfig> findFromTag(const std::string& tag) const override {
    return this->impl().findFromTag(tag);
  }
  bool connectClockMgr(const std::string& clockName, const std::string& mgrName) override {
    return this->impl().connectClockMgr(clockName, mgrName);
  }
  bool disconnectClockMgr(const std::string& clockName, const std::string& mgrName) override {
    return this->impl().disconnectClockMgr(clockName, mgrName);
  }
};

template <class A>
class ConfigProxy<A, ClockMgrConfig> final : public ConfigProxyBase<A, ClockMgrConfig> {
 public:
  using ConfigProxyBase<A, ClockMgrConfig>::ConfigProxyBase;
  std::vector<std::string> getClockMgrTypes() const override { return this->impl().getClockMgrTypes(); }
  int getNumOutputClocks(const std::string& type) const override {
    return this->impl().getNumOutputClocks(type);
  }
  std::vector<std::string> getVcoRangeList(const std::string& type) const override {
    return this->impl().getVcoRangeList(type);
  }
  std::string getDefaultVcoRange(const std::string& type) const override {
    return this->impl().getDefaultVcoRange(type);
  }
  bool setRefClockFreq(const std::string& name, float frequency) override {
    return this->impl().setRefClockFreq(name, frequency);
  }
};

}  // namespace kvxe

#include "engine/base/config/ClockConfigImpl.inl"
