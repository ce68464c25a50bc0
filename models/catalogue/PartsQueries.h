#pragma once

#include <string>
#include <utility>
#include <vector>

#include "models/catalogue/DeviceCatalogue.h"

namespace kvxm {

/// The catalogue of one architecture as the part selection asks for it. Part names are taken as printed or as
/// keys; an unknown name gives an empty answer.
class PartsQueries {
 public:
  explicit PartsQueries(Architecture architecture) : m_architecture(architecture) {}

  /// Keys below a path: {"DEVICE_DATA"} lists the part keys, {"DEVICE_DATA", part} the part's key if the part
  /// exists, {"DEVICE_TO_FAMILY_MAP"} the devices. In catalogue order, or sorted by text.
  std::vector<std::string> getCfgKeys(const std::vector<std::string>& path, bool sorted) const;
  /// Family of a device or part.
  std::string getDeviceToFamilyMap(const std::string& device) const;
  /// Core voltage of a part as text: "0.80 V".
  std::string getDeviceCoreVoltageMap(const std::string& part) const;
  /// Resource names and counts of a device or part, in catalogue order; table is "RESOURCE_DATA".
  std::vector<std::pair<std::string, int>> getResourceData(const std::string& deviceOrPart,
                                                           const std::string& table) const;
  /// The printed name of the part that a family starts with.
  std::string getFamilyToDefaultDevice(const std::string& family) const;

 private:
  const Device* find(const std::string& deviceOrPart) const;

  Architecture m_architecture;
};

/// Status, limits and supplies of the devices of one architecture.
class StaticQueries {
 public:
  /// "PRODUCTION", "PRELIMINARY", "PREVIEW" or "ADVANCE" of a part, or of a device's first part; field is
  /// "STATUS". Empty for an unknown name.
  std::string getPartStatus(const std::string& name, const std::string& field) const;
  /// Maximum VCCINT current in amperes by device, "_" and package; 0 when none is known.
  int getMaxCurrent(const std::string& devicePackage) const;
  /// Internal names of the rails that a device or part has, in the order of the power design.
  std::vector<std::string> getSupplyList(const std::string& deviceOrPart) const;
  /// Limits of a rail, for a part those of its grade; all zero for an unknown device or rail.
  VoltageRange getVoltageRange(const std::string& deviceOrPart, const std::string& rail) const;
};

}  // namespace kvxm
