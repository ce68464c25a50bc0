#pragma once

#include <string>

#include "clients/cli/DesignDifference.h"
#include "clients/cli/Diagnostics.h"
#include "clients/cli/ExitStatus.h"
#include "clients/cli/Style.h"

namespace kvx {

/// What `kvx diff` is told: each a sheet or a project.
struct DiffRequest {
  std::string a, b;
  bool isJson = false;
};

/// `kvx diff`: what two designs do not share, with status Broken if there is anything.
/// @throws std::exception for a failure of the machine.
Outcome runDiff(const DiffRequest& request, Diagnostics& diagnostics);

/// The differences for people, side by side, and as the document "kvx-diff/1" (docs/json.md).
std::string printDifference(const DiffRequest& request, const DesignDifference& difference,
                            const Style& style);
std::string jsonDifference(const DiffRequest& request, const DesignDifference& difference);

}  // namespace kvx
