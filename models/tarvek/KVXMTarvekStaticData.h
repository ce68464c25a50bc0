#pragma once

#include "models/catalogue/PartsQueries.h"

/// Status, current limits and supplies of Tarvek devices.
class KVXMTarvekStaticData : public kvxm::StaticQueries {
 public:
  static const KVXMTarvekStaticData& getGlobal();

 private:
  KVXMTarvekStaticData() = default;
};
