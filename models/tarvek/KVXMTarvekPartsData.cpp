#include "models/tarvek/KVXMTarvekPartsData.h"

KVXMTarvekPartsData::KVXMTarvekPartsData() : PartsQueries(kvxm::Architecture::Tarvek) {}

const KVXMTarvekPartsData& KVXMTarvekPartsData::getGlobal() {
  static const KVXMTarvekPartsData instance;
  return instance;
}
