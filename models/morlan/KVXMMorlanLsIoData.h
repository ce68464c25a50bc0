#pragma once

#include "models/catalogue/IoStandards.h"

/// The standards of these pins.
class KVXMMorlanLsIoData : public kvxm::IoQueries {
 public:
  static const KVXMMorlanLsIoData& getGlobal();

 private:
  KVXMMorlanLsIoData() : IoQueries(kvxm::IoBank::MorlanLsio) {}
};
