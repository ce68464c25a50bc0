#include "models/tarvek/KVXMTarvekCleClk.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekCleClkModel::calculate(KVXMTarvekCleClkParams& params) const {
  using F = KVXMTarvekCleClkParams::FloatEnum;
  using S = KVXMTarvekCleClkParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const double registers = used(params[F::SLICE_LOADS]);
  params[F::VCCINT_POWER] = toFloat(kvxm::registerClockPower(
      coefficients, registers, kvxm::clockActivity(params), used(params[F::VCCINT])));
}
