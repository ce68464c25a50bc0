#include "models/morlan/KVXMMorlanMsIo.h"

#include "models/common/IoPower.h"
#include "models/morlan/KVXMMorlanMsIoData.h"

void KVXMMorlanMsIoModel::calculate(KVXMMorlanMsIoParams& params) const {
  kvxm::calculateIo("Morlan", kvxm::IoBank::MorlanMsio, params);
}

const KVXMMorlanMsIoData& KVXMMorlanMsIoData::getGlobal() {
  static const KVXMMorlanMsIoData data;
  return data;
}
