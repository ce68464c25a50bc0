#pragma once

#include <string>

#include "engine/base/config/CellText.h"

namespace kvxe {

/// One interface of pins: a row of "IO_SETTINGS".
struct IoConfig {
  std::string name{};
  std::string ioType{};
  std::string ioStandard{};
  int inputs = blank;
  int outputs = blank;
  int bidirs = blank;
  int totalPins = blank;  ///< made of the three above, not written
  std::string clock{};    ///< a clock tag
  float toggleRate = blank;
  std::string dataRate{};
  float outputEnable = blank;  ///< share of the time, 0 to 1
  std::string inputTermination{};
  std::string outputTermination{};
  float termDisable = blank;      ///< share of the time, 0 to 1
  float loadCapacitance = blank;  ///< pF
  float bankVoltage = blank;      ///< V; follows from the standard, not written
  std::string userComments{};

  bool operator==(const IoConfig&) const = default;
};

}  // namespace kvxe
