#pragma once

// For the one source file of each architecture that binds its tables.

#include <iostream>

#include "engine/base/config/ClockConfigImpl.h"
#include "engine/base/config/ConfigMgr.h"
#include "engine/base/config/ConfigProxy.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXETitle.h"

namespace kvxe {

template <class A>
ConfigMgr& ConfigMgr::getGlobal() {
  static std::once_flag once;
  static std::unique_ptr<ConfigMgr> manager;
  std::call_once(once, [] {
    manager.reset(new ConfigMgr);
    manager->reset<A>(KVXEBookMgr::getGlobal().getOrCreateCurrentBook(KVXEBookMgr::NoArchName));
  });
  return *manager;
}

template <class A>
void ConfigMgr::reset(KVXEBook* book) {
  setBook(book);
  initIfcs<A>(*this);
}

namespace detail {

/// Whether the table has every column that its records name; what is missing is reported.
inline bool hasColumns(const KVXETable& table, const std::vector<const KVXETitle*>& titles,
                       const std::string& record) {
  bool hasAll = true;
  for (const KVXETitle* title : titles) {
    if (table.findTitle(title) < table.getColumnCount()) continue;
    std::cout << "Error: the table " << table.getTableTitle()->getTag(KVXEEnums::TitleType::SW)
              << " lacks the column " << title->getTag(KVXEEnums::TitleType::SW) << " of " << record << ".\n";
    hasAll = false;
  }
  return hasAll;
}

}  // namespace detail

template <class A, class T, IfcPolicy Policy, class... Extra>
void ConfigMgr::constructConfigIfc(const Extra&... extra) {
  using Traits = TableTraits<A, T>;
  using Impl = std::conditional_t<Policy == IfcPolicy::Linked, LinkedConfigImpl<A, T>, ConfigImpl<A, T>>;
  KVXETable* table = findTable(Traits::getTabType(), Traits::getTableTitle());
  if (!table || !detail::hasColumns(*table, Traits::getTitles(), ConfigTypeTraits<T>::getName())) return;
  std::shared_ptr<ConfigIfc<T>> ifc =
      std::make_shared<ConfigProxy<A, T>>(std::make_unique<Impl>(table, extra...));
  m_bindings[typeid(T)] = {std::move(ifc), Traits::getTabType(), &Traits::getTableTitle(), table};
}

/// In two passes: clocks need their managers to follow a change of frequency, managers need clocks that keep
/// their other tables in step.
template <class A>
void ConfigMgr::constructClockIfcs() {
  const auto domains = getConfigIfc<ClockDomainPwrConfig>();
  constructConfigIfc<A, ClockConfig>(domains);
  constructConfigIfc<A, ClockMgrConfig>(getConfigIfc<ClockConfig>());
  constructConfigIfc<A, ClockConfig, IfcPolicy::Linked>(domains, getConfigIfc<ClockMgrConfig>());
  constructConfigIfc<A, ClockMgrConfig, IfcPolicy::Linked>(getConfigIfc<ClockConfig>());
}

}  // namespace kvxe
