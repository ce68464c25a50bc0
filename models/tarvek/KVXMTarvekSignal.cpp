#include "models/tarvek/KVXMTarvekSignal.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekSignalModel::calculate(KVXMTarvekSignalParams& params) const {
  using F = KVXMTarvekSignalParams::FloatEnum;
  using S = KVXMTarvekSignalParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  params[F::VCCINT_POWER] = toFloat(kvxm::signalPower(
      coefficients, kvxm::logicUse(params), used(params[F::ROUTING_COMPLEXITY]), used(params[F::VCCINT])));
}
