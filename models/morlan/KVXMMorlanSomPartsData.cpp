#include "models/morlan/KVXMMorlanSomPartsData.h"

#include <algorithm>

#include "models/catalogue/DeviceCatalogue.h"

namespace {

using kvxm::SomModule;

const kvxm::DeviceCatalogue& catalogue() {
  return kvxm::DeviceCatalogue::getGlobal();
}

std::string baseDevice(const SomModule& module) {
  const kvxm::Device* device = catalogue().findDevice(module.basePart);
  return device ? device->name : std::string();
}

std::string baseFamily(const SomModule& module) {
  const kvxm::Device* device = catalogue().findDevice(module.basePart);
  return device ? device->family : std::string();
}

struct Field {
  std::string_view name;
  std::string (*read)(const SomModule&);
};

constexpr Field fields[] = {
    {"FAMILY_NAME", [](const SomModule& module) { return module.family; }},
    {"BOARD_NAME", [](const SomModule& module) { return module.board; }},
    {"DEVICE_NAME", [](const SomModule& module) { return module.device; }},
    {"TALMOR_DEV_NAME", [](const SomModule& module) { return module.talmorDevice; }},
    {"GRADE", [](const SomModule& module) { return module.grade; }},
    {"TEMP_GRADE", [](const SomModule& module) { return module.temperature; }},
    {"BASE_FAMILY_NAME", baseFamily},
    {"BASE_DEVICE_NAME", baseDevice},
    {"BASE_PART_NAME", [](const SomModule& module) { return module.basePart; }},
    {"STATUS", [](const SomModule& module) { return module.status; }},
};

}  // namespace

const KVXMMorlanSomPartsData& KVXMMorlanSomPartsData::getGlobal() {
  static const KVXMMorlanSomPartsData instance;
  return instance;
}

std::vector<std::string> KVXMMorlanSomPartsData::getCfgKeys(const std::vector<std::string>& path,
                                                            bool sorted) const {
  std::vector<std::string> keys;
  if (path.size() == 2 && path[0] == "DEVICE_DATA") {
    if (const SomModule* module = catalogue().findModule(path[1])) keys.push_back(module->key);
    return keys;
  }
  if (path.size() != 1) return keys;
  if (path[0] == "DEVICE_DATA") {
    for (const SomModule& module : catalogue().modules()) keys.push_back(module.key);
  }
  if (path[0] == "DEVICE_TO_FAMILY_MAP") {
    for (const kvxm::Device& device : catalogue().devices()) {
      if (device.architecture == kvxm::Architecture::Som) keys.push_back(device.name);
    }
  }
  if (sorted) std::sort(keys.begin(), keys.end());
  return keys;
}

std::string KVXMMorlanSomPartsData::getDeviceData(const std::string& key, const std::string& field) const {
  const SomModule* module = catalogue().findModule(key);
  if (!module) return {};
  for (const Field& known : fields) {
    if (known.name == field) return known.read(*module);
  }
  return {};
}

std::string KVXMMorlanSomPartsData::getDeviceDefaults(const std::string& family) const {
  for (const SomModule& module : catalogue().modules()) {
    if (module.isDefault && module.family == family) return module.key;
  }
  return {};
}

std::string KVXMMorlanSomPartsData::getDeviceFamily(const std::string& keyOrDevice) const {
  const kvxm::Device* device = catalogue().findDevice(keyOrDevice);
  return device && device->architecture == kvxm::Architecture::Som ? device->family : std::string();
}

std::vector<std::pair<std::string, int>> KVXMMorlanSomPartsData::getResourceData(
    const std::string& keyOrDevice, const std::string& table) const {
  const kvxm::Device* device = catalogue().findDevice(keyOrDevice);
  if (!device || device->architecture != kvxm::Architecture::Som || table != "RESOURCE_DATA") return {};
  return device->resources;
}
