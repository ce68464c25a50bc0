#include "models/tarvek/KVXMTarvekCleLogic.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekCleLogicModel::calculate(KVXMTarvekCleLogicParams& params) const {
  using F = KVXMTarvekCleLogicParams::FloatEnum;
  using S = KVXMTarvekCleLogicParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  params[F::VCCINT_POWER] =
      toFloat(kvxm::logicPower(coefficients, kvxm::logicUse(params), used(params[F::VCCINT])));
}
