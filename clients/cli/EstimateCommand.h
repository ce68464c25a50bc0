#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/Estimate.h"
#include "clients/cli/ExitStatus.h"

namespace kvx {

/// What `kvx estimate` is told.
struct EstimateRequest {
  std::string path;                    ///< of a sheet or a project
  std::vector<std::string> overrides;  ///< "path=value"
  std::optional<double> budget;        ///< watts
  bool isJson = false;
};

/// Reads a design and its results. Nothing if the input has mistakes, which are in the diagnostics then.
std::optional<Estimate> estimateDesign(const EstimateRequest& request, Diagnostics& diagnostics);

/// `kvx estimate`: the status, and what goes to standard output.
Outcome runEstimate(const EstimateRequest& request, Diagnostics& diagnostics);

}  // namespace kvx
