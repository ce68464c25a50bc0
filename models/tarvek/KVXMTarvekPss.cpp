#include "models/tarvek/KVXMTarvekPss.h"

#include "models/tarvek/KVXMTarvekPssData.h"

void KVXMTarvekPssModel::calculate(KVXMTarvekPssParams& params) const {
  kvxm::calculateProcessor(KVXMTarvekPssData::getGlobal(), "Tarvek", params);
}
