#include "models/morlan/KVXMMorlanPll.h"

#include "models/common/ClockManagerPower.h"

void KVXMMorlanPllModel::calculate(KVXMMorlanPllParams& params) const {
  using F = KVXMMorlanPllParams::FloatEnum;
  kvxm::calculatePll("Morlan", params, F::VCCINT, F::VCCINT_POWER, kvxm::Coefficient::NominalVccint);
}
