#include "models/morlan/KVXMMorlanPartsData.h"

KVXMMorlanPartsData::KVXMMorlanPartsData() : PartsQueries(kvxm::Architecture::Morlan) {}

const KVXMMorlanPartsData& KVXMMorlanPartsData::getGlobal() {
  static const KVXMMorlanPartsData instance;
  return instance;
}
