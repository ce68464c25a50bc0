#pragma once

#include <string>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/ExitStatus.h"

namespace kvx {

/// `kvx check`: whether a project file is whole, and what is inside.
/// @throws std::exception for a failure of the machine.
Outcome runCheck(const std::string& path, Diagnostics& diagnostics);

}  // namespace kvx
