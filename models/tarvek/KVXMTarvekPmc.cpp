#include "models/tarvek/KVXMTarvekPmc.h"

#include "models/tarvek/KVXMTarvekPssData.h"

void KVXMTarvekPmcModel::calculate(KVXMTarvekPmcParams& params) const {
  kvxm::calculateProcessor(KVXMTarvekPssData::getGlobal(), "Tarvek", params);
}
