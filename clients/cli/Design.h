#pragma once

#include <optional>
#include <string>
#include <vector>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/Estimate.h"
#include "clients/cli/Sheet.h"

class KVXEBook;

namespace kvx {

/// A design in the current book, calculated.
struct Design {
  KVXEBook* book = nullptr;
  std::string name;  ///< the sheet's own, else that of the file
};

/// Reads a sheet or a project, whichever the path names, with overrides "path=value". Nothing if there are
/// mistakes, which are in the diagnostics then.
/// @throws std::exception for a failure of the machine.
std::optional<Design> loadDesign(const std::string& path, const std::vector<std::string>& overrides,
                                 Diagnostics& diagnostics);
/// As above for a sheet that is in memory.
std::optional<Design> loadSheet(const Sheet& sheet, Diagnostics& diagnostics);

/// The results of the design that was loaded last.
Estimate estimateOf(const Design& design);

}  // namespace kvx
