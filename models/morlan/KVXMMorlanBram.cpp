#include "models/morlan/KVXMMorlanBram.h"

#include "models/common/BramInputs.h"

void KVXMMorlanBramModel::calculate(KVXMMorlanBramParams& params) const {
  kvxm::calculateBram("Morlan", params);
}
