#include "models/tarvek/KVXMTarvekIopll.h"

#include "models/common/ClockManagerPower.h"

void KVXMTarvekIopllModel::calculate(KVXMTarvekIopllParams& params) const {
  using F = KVXMTarvekIopllParams::FloatEnum;
  kvxm::calculatePll("Tarvek", params, F::VCCINTIO, F::VCCINTIO_POWER, kvxm::Coefficient::NominalVccintio);
}
