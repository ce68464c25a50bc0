#include "models/morlan/KVXMMorlanPowerLabelData.h"

#include "models/morlan/KVXMMorlanStaticData.h"

const KVXMMorlanPowerLabelData& KVXMMorlanPowerLabelData::getGlobal() {
  static const KVXMMorlanPowerLabelData instance;
  return instance;
}

std::string KVXMMorlanPowerLabelData::getPowerLabelInfo(const std::string& name) const {
  return KVXMMorlanStaticData::getGlobal().getPartStatus(name, "STATUS");
}
