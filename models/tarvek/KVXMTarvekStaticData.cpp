#include "models/tarvek/KVXMTarvekStaticData.h"

const KVXMTarvekStaticData& KVXMTarvekStaticData::getGlobal() {
  static const KVXMTarvekStaticData instance;
  return instance;
}
