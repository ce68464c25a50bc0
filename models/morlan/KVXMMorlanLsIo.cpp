#include "models/morlan/KVXMMorlanLsIo.h"

#include "models/common/IoPower.h"
#include "models/morlan/KVXMMorlanLsIoData.h"

void KVXMMorlanLsIoModel::calculate(KVXMMorlanLsIoParams& params) const {
  kvxm::calculateIo("Morlan", kvxm::IoBank::MorlanLsio, params);
}

const KVXMMorlanLsIoData& KVXMMorlanLsIoData::getGlobal() {
  static const KVXMMorlanLsIoData data;
  return data;
}
