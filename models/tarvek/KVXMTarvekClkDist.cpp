#include "models/tarvek/KVXMTarvekClkDist.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekClkDistModel::calculate(KVXMTarvekClkDistParams& params) const {
  using F = KVXMTarvekClkDistParams::FloatEnum;
  using S = KVXMTarvekClkDistParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const kvxm::ClockActivity activity = kvxm::clockActivity(params);
  const kvxm::ClockReach reach{.registerSites = used(params[F::SLICE_SITES]),
                               .ramSites = used(params[F::RAM_SITES]),
                               .hardSites = used(params[F::HARD_SITES]),
                               .regions = used(params[F::REGIONS])};
  params[F::VCCINT_POWER] =
      toFloat(kvxm::clockDistributionPower(coefficients, reach, activity, used(params[F::VCCINT])));
  params[F::VCCRAM_POWER] =
      toFloat(kvxm::ramClockPower(coefficients, reach.ramSites, activity, used(params[F::VCCRAM])));
}
