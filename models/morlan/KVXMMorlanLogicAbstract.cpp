#include "models/morlan/KVXMMorlanLogicAbstract.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMMorlanLogicAbstractModel::calculate(KVXMMorlanLogicAbstractParams& params) const {
  using F = KVXMMorlanLogicAbstractParams::FloatEnum;
  using S = KVXMMorlanLogicAbstractParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Morlan", params[S::DEVICE]);
  const double volts = used(params[F::VCCINT]);
  const kvxm::LogicUse use = kvxm::logicUse(params);
  const double logic = kvxm::logicPower(coefficients, use, volts);
  const double signal = kvxm::signalPower(coefficients, use, used(params[F::ROUTING_COMPLEXITY]), volts);
  params[F::LOGIC_POWER] = toFloat(logic);
  params[F::SIGNAL_POWER] = toFloat(signal);
  params[F::VCCINT_POWER] = toFloat(logic + signal);
}
