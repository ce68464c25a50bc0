#include "models/tarvek/KVXMTarvekPowerRailGrouping.h"

#include "models/common/RailGrouping.h"

void KVXMTarvekPowerRailGroupingModel::calculate(KVXMTarvekPowerRailGroupingParams& params) const {
  using F = KVXMTarvekPowerRailGroupingParams::FloatEnum;
  using S = KVXMTarvekPowerRailGroupingParams::StringEnum;
  params[S::GROUP] = kvxm::railGroup(params[S::CONSOLIDATION], params[S::RAIL], params[S::CATEGORY],
                                     params[F::NOMINAL_VOLTAGE]);
}
