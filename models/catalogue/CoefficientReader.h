#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "models/catalogue/Characterisation.h"
#include "models/catalogue/DataFile.h"
#include "models/catalogue/DeviceCatalogue.h"

namespace kvxm {

/// The coefficients of one architecture as written: for all devices, then the overrides of families and
/// devices. Later files override earlier ones entry by entry.
struct CoefficientSets {
  using Values = std::map<std::size_t, float>;  ///< by index of Coefficient
  Values all;
  std::map<std::string, Values, std::less<>> families;
  std::map<std::string, Values, std::less<>> devices;

  /// The set in force for a device; blank names for the architecture's default.
  Characterisation setFor(std::string_view family, std::string_view device) const;
};

/// Names that sections may carry.
struct SectionNames {
  std::vector<std::string_view> families;
  std::vector<std::string_view> devices;
};

/// Reads one coefficients.toml: flat keys, [family."NAME"] and [device.NAME] with the same keys.
void readCoefficients(const DataFile& file, const SectionNames& names, CoefficientSets& sets,
                      Problems& problems);

/// Reports the coefficients that have no value for all devices.
void checkComplete(const DataFile& file, const CoefficientSets& sets, Problems& problems);

}  // namespace kvxm
