#pragma once

#include <string>

#include "clients/cli/Estimate.h"
#include "clients/cli/Style.h"

namespace kvx {

/// The estimate for people: summary, blocks, rails and messages, at most 100 columns wide. Printed parts add
/// up to the printed totals.
std::string printEstimate(const Estimate& estimate, const Style& style);

}  // namespace kvx
