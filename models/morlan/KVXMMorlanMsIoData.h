#pragma once

#include "models/catalogue/IoStandards.h"

/// The standards of these pins.
class KVXMMorlanMsIoData : public kvxm::IoQueries {
 public:
  static const KVXMMorlanMsIoData& getGlobal();

 private:
  KVXMMorlanMsIoData() : IoQueries(kvxm::IoBank::MorlanMsio) {}
};
