#include "models/tarvek/KVXMTarvekFsyn.h"

#include "models/common/ClockManagerPower.h"

void KVXMTarvekFsynModel::calculate(KVXMTarvekFsynParams& params) const {
  kvxm::calculateFsyn("Tarvek", params);
}
