#include "models/tarvek/KVXMTarvekLsIo.h"

#include "models/common/IoPower.h"
#include "models/tarvek/KVXMTarvekLsIoData.h"

void KVXMTarvekLsIoModel::calculate(KVXMTarvekLsIoParams& params) const {
  kvxm::calculateIo("Tarvek", kvxm::IoBank::TarvekLsio, params);
}

const KVXMTarvekLsIoData& KVXMTarvekLsIoData::getGlobal() {
  static const KVXMTarvekLsIoData data;
  return data;
}
