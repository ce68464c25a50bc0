#include "models/tarvek/KVXMTarvekY7Pll.h"

#include "models/common/ClockManagerPower.h"

void KVXMTarvekY7PllModel::calculate(KVXMTarvekY7PllParams& params) const {
  using F = KVXMTarvekY7PllParams::FloatEnum;
  kvxm::calculatePll("Tarvek", params, F::VCCINTIO, F::VCCINTIO_POWER, kvxm::Coefficient::NominalVccintio);
}
