#pragma once

#include <string>

#include "engine/base/config/CellText.h"

namespace kvxe {

/// One module of logic: a row of "LOGIC_CONFIGURATION".
struct LogicConfig {
  std::string name{};
  std::string clock{};  ///< a clock tag
  int lutAsLogic = blank;
  int lutAsSrl = blank;
  int lutAsDram = blank;
  int registers = blank;
  float toggleRate = blank;
  float routingComplexity = blank;
  std::string userComments{};

  bool operator==(const LogicConfig&) const = default;
};

}  // namespace kvxe
