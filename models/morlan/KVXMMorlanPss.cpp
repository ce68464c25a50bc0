#include "models/morlan/KVXMMorlanPss.h"

#include "models/morlan/KVXMMorlanPssData.h"

void KVXMMorlanPssModel::calculate(KVXMMorlanPssParams& params) const {
  kvxm::calculateProcessor(KVXMMorlanPssData::getGlobal(), "Morlan", params);
}
