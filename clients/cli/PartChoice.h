#pragma once

#include <string>

#include "clients/cli/Diagnostics.h"
#include "clients/cli/Sheet.h"

class KVXEBook;

namespace kvxm {
struct Device;
}

namespace kvx {

/// The part of a sheet, selected in the engine.
struct ChosenPart {
  KVXEBook* book = nullptr;  ///< with the tabs of the part, not calculated; null if there was a mistake
  const kvxm::Device* device = nullptr;  ///< the part's device in the catalogue
  std::string architecture;              ///< "Tarvek", "Morlan" or "Som"
};

/// Selects the sheet's part and process, and makes the book.
ChosenPart choosePart(const Sheet& sheet, Diagnostics& diagnostics);

}  // namespace kvx
