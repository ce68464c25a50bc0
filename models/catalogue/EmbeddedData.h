#pragma once

#include <span>
#include <string_view>

namespace kvxm {

/// A data file as it was when the library was built.
struct EmbeddedFile {
  std::string_view path;  ///< below models/data: "tarvek/devices.csv"
  std::string_view text;
};

/// Every file of models/data. Defined in a source that the build generates.
std::span<const EmbeddedFile> embeddedFiles();

}  // namespace kvxm
