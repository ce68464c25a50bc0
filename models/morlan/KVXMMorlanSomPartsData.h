#pragma once

#include <string>
#include <utility>
#include <vector>

/// The catalogue of modules built on Morlan devices.
class KVXMMorlanSomPartsData {
 public:
  static const KVXMMorlanSomPartsData& getGlobal();

  /// Keys below a path: {"DEVICE_DATA"} lists the module keys, {"DEVICE_DATA", module} the module's key if it
  /// exists, {"DEVICE_TO_FAMILY_MAP"} the module kinds.
  std::vector<std::string> getCfgKeys(const std::vector<std::string>& path, bool sorted) const;
  /// One field of a module, found by key or implementation tool's name: FAMILY_NAME, BOARD_NAME, DEVICE_NAME,
  /// TALMOR_DEV_NAME, GRADE ("Industrial"), TEMP_GRADE ("I"), BASE_FAMILY_NAME, BASE_DEVICE_NAME,
  /// BASE_PART_NAME, STATUS. Empty for an unknown module or field.
  std::string getDeviceData(const std::string& key, const std::string& field) const;
  /// Key of the family's default module.
  std::string getDeviceDefaults(const std::string& family) const;
  /// Family of a module (by key or name) or module kind.
  std::string getDeviceFamily(const std::string& keyOrDevice) const;
  /// Resource names and counts of a module kind or module, in catalogue order; table is "RESOURCE_DATA".
  std::vector<std::pair<std::string, int>> getResourceData(const std::string& keyOrDevice,
                                                           const std::string& table) const;

 private:
  KVXMMorlanSomPartsData() = default;
};
