#pragma once

#include <string>

namespace kvx {

/// Where the user wrote something.
struct Place {
  std::string source;     ///< a file, or the option of the command line
  unsigned int line = 0;  ///< from 1; 0 when the source has no lines
};

}  // namespace kvx
