#include "models/tarvek/KVXMTarvekHsIo.h"

#include "models/common/IoPower.h"
#include "models/tarvek/KVXMTarvekHsIoData.h"

void KVXMTarvekHsIoModel::calculate(KVXMTarvekHsIoParams& params) const {
  kvxm::calculateIo("Tarvek", kvxm::IoBank::TarvekHsio, params);
}

const KVXMTarvekHsIoData& KVXMTarvekHsIoData::getGlobal() {
  static const KVXMTarvekHsIoData data;
  return data;
}
