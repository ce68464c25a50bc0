#include "models/tarvek/KVXMTarvekBram.h"

#include "models/common/BramInputs.h"

void KVXMTarvekBramModel::calculate(KVXMTarvekBramParams& params) const {
  kvxm::calculateBram("Tarvek", params);
}
