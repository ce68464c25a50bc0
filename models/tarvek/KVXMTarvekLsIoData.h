#pragma once

#include "models/catalogue/IoStandards.h"

/// The standards of these pins.
class KVXMTarvekLsIoData : public kvxm::IoQueries {
 public:
  static const KVXMTarvekLsIoData& getGlobal();

 private:
  KVXMTarvekLsIoData() : IoQueries(kvxm::IoBank::TarvekLsio) {}
};
