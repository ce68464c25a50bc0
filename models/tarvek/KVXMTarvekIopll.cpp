#include "models/tarvek/KVXMTarvekIopll.h"

#include "models/common/ClockManagerPower.h"

using kvxm::Coefficient;
using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekIopllModel::calculate(KVXMTarvekIopllParams& params) const {
  using F = KVXMTarvekIopllParams::FloatEnum;
  using S = KVXMTarvekIopllParams::StringEnum;
  constexpr int OutputCount = 3;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const kvxm::ClockManagerUse use = kvxm::clockManagerUse(params, OutputCount);
  const double volts = used(params[F::VCCINTIO]);
  const double watts = kvxm::oscillatorPower(coefficients, Coefficient::PllOscillatorEnergy, use, volts,
                                             Coefficient::NominalVccintio) +
                       kvxm::outputDividerPower(coefficients, Coefficient::PllOutputEnergy, use, volts,
                                                Coefficient::NominalVccintio);
  params[F::VCCINTIO_POWER] = toFloat(watts);
  params[F::VCCAUX_POWER] =
      toFloat(kvxm::biasPower(coefficients, Coefficient::PllBiasCurrent, use, used(params[F::VCCAUX])));
}
