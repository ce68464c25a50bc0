#pragma once

#include <string>

#include "engine/base/config/CellText.h"

namespace kvxe {

/// One connection through the network on chip: a row of "NOC_TABLE".
struct NocConfig {
  std::string moduleName{};
  float nocClock = blank;  ///< MHz
  int nocSwitches = blank;
  int readBandWidth = blank;  ///< MB/s, as the next
  int writeBandWidth = blank;
  float toggleRate = blank;
  std::string userComments{};

  bool operator==(const NocConfig&) const = default;
};

}  // namespace kvxe
