#pragma once

#include <ostream>

#include "clients/cli/ExitStatus.h"

namespace kvx {

/// Runs the command `kvx`. Mistakes are printed on `errors`; what goes to standard output is returned. While
/// it runs, what the engine prints on std::cout goes to `errors`, too, so that standard output carries
/// results only.
Outcome runCommandLine(int argc, const char* const* argv, std::ostream& errors);

}  // namespace kvx
