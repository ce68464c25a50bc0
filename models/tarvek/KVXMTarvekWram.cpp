#include "models/tarvek/KVXMTarvekWram.h"

#include "models/common/WramInputs.h"

void KVXMTarvekWramModel::calculate(KVXMTarvekWramParams& params) const {
  kvxm::calculateWram("Tarvek", params);
}
