#pragma once

#include "models/catalogue/PartsQueries.h"

/// Devices, parts, families and resources of the Morlan architecture.
class KVXMMorlanPartsData : public kvxm::PartsQueries {
 public:
  static const KVXMMorlanPartsData& getGlobal();

 private:
  KVXMMorlanPartsData();
};
