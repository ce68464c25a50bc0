#pragma once

#include "models/catalogue/PartsQueries.h"

/// Devices, parts, families and resources of the Tarvek architecture.
class KVXMTarvekPartsData : public kvxm::PartsQueries {
 public:
  static const KVXMTarvekPartsData& getGlobal();

 private:
  KVXMTarvekPartsData();
};
