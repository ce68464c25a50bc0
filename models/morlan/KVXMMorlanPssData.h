#pragma once

#include "models/common/ProcessorPower.h"

/// What the processing system of Morlan devices is made of.
class KVXMMorlanPssData : public kvxm::ProcessorBlocks {
 public:
  static const KVXMMorlanPssData& getGlobal();

 private:
  KVXMMorlanPssData();
};
