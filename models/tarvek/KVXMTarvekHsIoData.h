#pragma once

#include "models/catalogue/IoStandards.h"

/// The standards of these pins.
class KVXMTarvekHsIoData : public kvxm::IoQueries {
 public:
  static const KVXMTarvekHsIoData& getGlobal();

 private:
  KVXMTarvekHsIoData() : IoQueries(kvxm::IoBank::TarvekHsio) {}
};
