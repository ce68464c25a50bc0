#include "models/tarvek/KVXMTarvekClock.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;

void KVXMTarvekClockModel::calculate(KVXMTarvekClockParams& params) const {
  using F = KVXMTarvekClockParams::FloatEnum;
  const kvxm::ClockReach reach = kvxm::clockReach(kvxm::clockLoad(params));
  params[F::SLICE_LOADS] = toFloat(reach.registers);
  params[F::SLICE_SITES] = toFloat(reach.registerSites);
  params[F::RAM_SITES] = toFloat(reach.ramSites);
  params[F::HARD_SITES] = toFloat(reach.hardSites);
  params[F::REGIONS] = toFloat(reach.regions);
}
