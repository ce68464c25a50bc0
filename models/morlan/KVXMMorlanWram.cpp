#include "models/morlan/KVXMMorlanWram.h"

#include "models/common/WramInputs.h"

void KVXMMorlanWramModel::calculate(KVXMMorlanWramParams& params) const {
  kvxm::calculateWram("Morlan", params);
}
