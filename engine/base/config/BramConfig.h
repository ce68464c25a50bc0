#pragma once

#include <string>

#include "engine/base/config/CellText.h"

namespace kvxe {

/// One module of block memories: a row of "BRAM_CONFIGURATION".
struct BramConfig {
  std::string name{};
  int bramCount = blank;
  int cascadeGroupSize = blank;
  std::string mode{};
  float toggleRate = blank;
  std::string portAClock{};  ///< a clock tag
  float portAEnableRate = blank;
  int portABitWidth = blank;
  std::string portAWriteMode{};
  float portAWriteEnable = blank;
  std::string portBClock{};
  float portBEnableRate = blank;
  int portBBitWidth = blank;
  std::string portBWriteMode{};
  float portBWriteEnable = blank;
  std::string userComments{};

  bool operator==(const BramConfig&) const = default;
};

}  // namespace kvxe
