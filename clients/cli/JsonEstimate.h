#pragma once

#include <string>

#include "clients/cli/Estimate.h"

namespace kvx {

/// The estimate as a JSON document of the shape "kvx-estimate/1" (docs/json.md), ending in a line end.
/// Numbers have the shortest text that reads back to the same value; members keep their order.
std::string jsonEstimate(const Estimate& estimate);

}  // namespace kvx
