// The typed records of Morlan, and of the modules built on it.

#include "engine/base/config/BaseTables.h"
#include "engine/base/config/ConfigMgr.inl"
#include "models/morlan/KVXMMorlanClockMgrData.h"

namespace kvxe {

const kvxm::ClockManagerKinds& ArchTraits<Morlan>::getClockManagerKinds() {
  return KVXMMorlanClockMgrData::getGlobal();
}

template <>
void ConfigMgr::initIfcs<Morlan>(ConfigMgr& mgr) {
  mgr.constructClockIfcs<Morlan>();
  mgr.constructConfigIfc<Morlan, IoConfig>();
  mgr.constructConfigIfc<Morlan, BramConfig>();
  mgr.constructConfigIfc<Morlan, LogicConfig>();
}

template ConfigMgr& ConfigMgr::getGlobal<Morlan>();
template void ConfigMgr::reset<Morlan>(KVXEBook* book);

}  // namespace kvxe
