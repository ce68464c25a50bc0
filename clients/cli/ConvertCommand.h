#pragma once

#include <string>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/ExitStatus.h"

namespace kvx {

/// What `kvx convert` is told.
struct ConvertRequest {
  std::string source, target;  ///< one a sheet, the other a project; the target "-" is standard output
  bool isForced = false;       ///< a file of the target's name is replaced
};

/// `kvx convert`: a sheet to a project, or back. What is written reads back to the same design, or nothing is
/// written.
/// @throws std::exception for a failure of the machine.
Outcome runConvert(const ConvertRequest& request, Diagnostics& diagnostics);

}  // namespace kvx
