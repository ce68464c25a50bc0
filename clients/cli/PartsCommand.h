#pragma once

#include <map>
#include <string>
#include <vector>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/ExitStatus.h"

namespace kvx {

/// A field by which the catalogue is filtered: the option of the command line and its help.
struct PartFilter {
  const char* option;
  const char* help;
};
const std::vector<PartFilter>& partFilters();

/// What `kvx parts` is told.
struct PartsRequest {
  std::map<std::string, std::string> filters;  ///< value by option; an empty value filters nothing
  std::vector<std::string> resources;          ///< "NAME" or "NAME>=COUNT"
  bool isJson = false;
};

/// `kvx parts`: lists the parts of the catalogue that pass all filters.
Outcome runParts(const PartsRequest& request, Diagnostics& diagnostics);

}  // namespace kvx
