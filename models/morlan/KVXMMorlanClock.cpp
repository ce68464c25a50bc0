#include "models/morlan/KVXMMorlanClock.h"

#include "models/common/FabricInputs.h"

using kvxm::toFloat;
using kvxm::used;

void KVXMMorlanClockModel::calculate(KVXMMorlanClockParams& params) const {
  using F = KVXMMorlanClockParams::FloatEnum;
  using S = KVXMMorlanClockParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Morlan", params[S::DEVICE]);
  const double volts = used(params[F::VCCINT]);
  const kvxm::ClockActivity activity = kvxm::clockActivity(params);
  const kvxm::ClockReach reach = kvxm::clockReach(kvxm::clockLoad(params));
  params[F::VCCINT_POWER] = toFloat(kvxm::clockDistributionPower(coefficients, reach, activity, volts) +
                                    kvxm::registerClockPower(coefficients, reach.registers, activity, volts));
}
