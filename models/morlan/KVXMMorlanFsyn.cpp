#include "models/morlan/KVXMMorlanFsyn.h"

#include "models/common/ClockManagerPower.h"

void KVXMMorlanFsynModel::calculate(KVXMMorlanFsynParams& params) const {
  kvxm::calculateFsyn("Morlan", params);
}
