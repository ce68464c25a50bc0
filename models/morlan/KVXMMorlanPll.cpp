#include "models/morlan/KVXMMorlanPll.h"

#include "models/common/ClockManagerPower.h"

using kvxm::Coefficient;
using kvxm::toFloat;
using kvxm::used;

void KVXMMorlanPllModel::calculate(KVXMMorlanPllParams& params) const {
  using F = KVXMMorlanPllParams::FloatEnum;
  using S = KVXMMorlanPllParams::StringEnum;
  constexpr int OutputCount = 3;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Morlan", params[S::DEVICE]);
  const kvxm::ClockManagerUse use = kvxm::clockManagerUse(params, OutputCount);
  const double volts = used(params[F::VCCINT]);
  const double watts = kvxm::oscillatorPower(coefficients, Coefficient::PllOscillatorEnergy, use, volts,
                                             Coefficient::NominalVccint) +
                       kvxm::outputDividerPower(coefficients, Coefficient::PllOutputEnergy, use, volts,
                                                Coefficient::NominalVccint);
  params[F::VCCINT_POWER] = toFloat(watts);
  params[F::VCCAUX_POWER] =
      toFloat(kvxm::biasPower(coefficients, Coefficient::PllBiasCurrent, use, used(params[F::VCCAUX])));
}
