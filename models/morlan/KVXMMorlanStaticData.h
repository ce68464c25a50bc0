#pragma once

#include "models/catalogue/PartsQueries.h"

/// Status, current limits and supplies of Morlan devices.
class KVXMMorlanStaticData : public kvxm::StaticQueries {
 public:
  static const KVXMMorlanStaticData& getGlobal();

 private:
  KVXMMorlanStaticData() = default;
};
