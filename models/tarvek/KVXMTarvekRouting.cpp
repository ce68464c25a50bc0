#include "models/tarvek/KVXMTarvekRouting.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekRoutingModel::calculate(KVXMTarvekRoutingParams& params) const {
  using F = KVXMTarvekRoutingParams::FloatEnum;
  using S = KVXMTarvekRoutingParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const double transitionsPerSecond =
      used(params[F::TOGGLE_RATE]) * used(params[F::FREQUENCY]) * kvxm::hertzPerMegahertz;
  params[F::VCCINT_POWER] =
      toFloat(kvxm::netPower(coefficients, used(params[F::NETS]), transitionsPerSecond,
                             used(params[F::ROUTING_COMPLEXITY]), used(params[F::VCCINT])));
}
