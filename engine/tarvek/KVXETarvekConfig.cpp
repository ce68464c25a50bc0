// The typed records of Tarvek.

#include "engine/base/config/BaseTables.h"
#include "engine/base/config/ConfigMgr.inl"
#include "engine/base/config/DdrmcConfig.h"
#include "engine/base/config/NocConfig.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"
#include "engine/tarvek/KVXETarvekPwrManagementTab.h"
#include "models/tarvek/KVXMTarvekClockMgrData.h"

namespace kvxe {

using Noc = KVXETarvekNocDdrmcTab;
using Pwr = KVXETarvekPwrManagementTab;

template <>
struct TableTraits<Tarvek, ClockDomainPwrConfig>
    : TableOf<KVXEEnums::TabType::POWER_MANAGEMENT, Pwr::m_ClockDomainPwrTable, Pwr::m_ClockTag,
              Pwr::m_GatedClock, Pwr::m_MinScaledFreq> {};

template <>
struct TableTraits<Tarvek, NocConfig>
    : TableOf<KVXEEnums::TabType::NOC_DDRMC, Noc::m_NocConfigTable, Noc::m_ModuleName, Noc::m_NocClock,
              Noc::m_NocSwitches, Noc::m_ReadBandWidth, Noc::m_WriteBandWidth, Noc::m_ToggleRate,
              Noc::m_UserComments> {
  /// A connection that was made for a module keeps the module's name and its bandwidths; how it crosses the
  /// device stays open.
  static std::vector<bool> getEditableFlags(PopulatePolicy) {
    return {false, true, true, false, false, true, true};
  }
};

template <>
struct TableTraits<Tarvek, DdrmcConfig>
    : TableOf<KVXEEnums::TabType::NOC_DDRMC, Noc::m_DdrmcConfigTable, Noc::m_Name, Noc::m_DramType,
              Noc::m_Controller, Noc::m_Standard, Noc::m_Channels, Noc::m_Datarate, Noc::m_DataWidth,
              Noc::m_Ecc, Noc::m_Crypto, Noc::m_ReadBandWidth, Noc::m_WriteBandWidth, Noc::m_AccessPattern,
              Noc::m_ToggleRate, Noc::m_UserComments> {};

const kvxm::ClockManagerKinds& ArchTraits<Tarvek>::getClockManagerKinds() {
  return KVXMTarvekClockMgrData::getGlobal();
}

template <>
void ConfigMgr::initIfcs<Tarvek>(ConfigMgr& mgr) {
  mgr.constructConfigIfc<Tarvek, ClockDomainPwrConfig>();
  mgr.constructClockIfcs<Tarvek>();
  mgr.constructConfigIfc<Tarvek, IoConfig>();
  mgr.constructConfigIfc<Tarvek, NocConfig>();
  mgr.constructConfigIfc<Tarvek, DdrmcConfig>();
  mgr.constructConfigIfc<Tarvek, BramConfig>();
  mgr.constructConfigIfc<Tarvek, LogicConfig>();
}

template ConfigMgr& ConfigMgr::getGlobal<Tarvek>();
template void ConfigMgr::reset<Tarvek>(KVXEBook* book);

}  // namespace kvxe
