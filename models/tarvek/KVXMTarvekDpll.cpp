#include "models/tarvek/KVXMTarvekDpll.h"

#include "models/common/ClockManagerPower.h"

using kvxm::Coefficient;
using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekDpllModel::calculate(KVXMTarvekDpllParams& params) const {
  using F = KVXMTarvekDpllParams::FloatEnum;
  using S = KVXMTarvekDpllParams::StringEnum;
  constexpr int OutputCount = 4;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const kvxm::ClockManagerUse use = kvxm::clockManagerUse(params, OutputCount);
  params[F::VCCRAM_POWER] =
      toFloat(kvxm::oscillatorPower(coefficients, Coefficient::DpllOscillatorEnergy, use,
                                    used(params[F::VCCRAM]), Coefficient::NominalVccram));
  params[F::VCCINT_POWER] = toFloat(kvxm::outputDividerPower(
      coefficients, Coefficient::DpllOutputEnergy, use, used(params[F::VCCINT]), Coefficient::NominalVccint));
  params[F::VCCAUX_POWER] =
      toFloat(kvxm::biasPower(coefficients, Coefficient::DpllBiasCurrent, use, used(params[F::VCCAUX])));
}
