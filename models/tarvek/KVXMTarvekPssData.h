#pragma once

#include "models/common/ProcessorPower.h"

/// What the processing system of Tarvek devices is made of, its platform management controller included.
class KVXMTarvekPssData : public kvxm::ProcessorBlocks {
 public:
  static const KVXMTarvekPssData& getGlobal();

 private:
  KVXMTarvekPssData();
};
