#pragma once

#include <string>

#include "engine/base/config/CellText.h"

namespace kvxe {

/// One hard memory controller: a row of "DDRMC_CONFIG".
struct DdrmcConfig {
  std::string name{};
  std::string dramType{};
  std::string controller{};  ///< the kind that serves the DRAM type, not written
  std::string standard{};
  int channels = blank;
  float datarate = blank;  ///< Mb/s of a pin
  int dataWidth = blank;
  std::string ecc{};
  std::string crypto{};
  int readBandWidth = blank;  ///< MB/s, as the next
  int writeBandWidth = blank;
  std::string accessPattern{};
  float toggleRate = blank;
  std::string userComments{};

  bool operator==(const DdrmcConfig&) const = default;
};

}  // namespace kvxe
