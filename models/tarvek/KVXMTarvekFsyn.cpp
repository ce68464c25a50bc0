#include "models/tarvek/KVXMTarvekFsyn.h"

#include "models/common/ClockManagerPower.h"

using kvxm::Coefficient;
using kvxm::toFloat;
using kvxm::used;

void KVXMTarvekFsynModel::calculate(KVXMTarvekFsynParams& params) const {
  using F = KVXMTarvekFsynParams::FloatEnum;
  using S = KVXMTarvekFsynParams::StringEnum;
  constexpr int OutputCount = 7;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Tarvek", params[S::DEVICE]);
  const kvxm::ClockManagerUse use = kvxm::clockManagerUse(params, OutputCount);
  const double volts = used(params[F::VCCINT]);
  double watts = kvxm::oscillatorPower(coefficients, Coefficient::FsynOscillatorEnergy, use, volts,
                                       Coefficient::NominalVccint) +
                 kvxm::outputDividerPower(coefficients, Coefficient::FsynOutputEnergy, use, volts,
                                          Coefficient::NominalVccint);
  if (params[S::PHASE_SHIFT] == "Dynamic") watts += kvxm::phaseShifterPower(coefficients, use, volts);
  params[F::VCCINT_POWER] = toFloat(watts);
  params[F::VCCAUX_POWER] =
      toFloat(kvxm::biasPower(coefficients, Coefficient::FsynBiasCurrent, use, used(params[F::VCCAUX])));
}
