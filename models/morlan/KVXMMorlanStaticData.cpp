#include "models/morlan/KVXMMorlanStaticData.h"

const KVXMMorlanStaticData& KVXMMorlanStaticData::getGlobal() {
  static const KVXMMorlanStaticData instance;
  return instance;
}
