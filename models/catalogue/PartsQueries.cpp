#include "models/catalogue/PartsQueries.h"

#include <algorithm>
#include <charconv>

namespace kvxm {
namespace {

std::string voltsText(float volts) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, volts, std::chars_format::fixed, 2).ptr;
  return std::string(buffer, end) + " V";
}

const DeviceCatalogue& catalogue() {
  return DeviceCatalogue::getGlobal();
}

}  // namespace

const Device* PartsQueries::find(const std::string& deviceOrPart) const {
  const Device* device = catalogue().findDevice(deviceOrPart);
  return device && device->architecture == m_architecture ? device : nullptr;
}

std::vector<std::string> PartsQueries::getCfgKeys(const std::vector<std::string>& path, bool sorted) const {
  std::vector<std::string> keys;
  if (path.size() == 2 && path[0] == "DEVICE_DATA") {
    const Part* part = find(path[1]) ? catalogue().findPart(path[1]) : nullptr;
    if (part) keys.push_back(part->key);
    return keys;
  }
  if (path.size() != 1) return keys;
  for (const Device& device : catalogue().devices()) {
    if (device.architecture != m_architecture) continue;
    if (path[0] == "DEVICE_TO_FAMILY_MAP") keys.push_back(device.name);
    if (path[0] != "DEVICE_DATA") continue;
    for (const Part& part : device.parts) keys.push_back(part.key);
  }
  if (sorted) std::sort(keys.begin(), keys.end());
  return keys;
}

std::string PartsQueries::getDeviceToFamilyMap(const std::string& device) const {
  const Device* known = find(device);
  return known ? known->family : std::string();
}

std::string PartsQueries::getDeviceCoreVoltageMap(const std::string& part) const {
  const Device* device = find(part);
  const Part* known = device ? catalogue().findPart(part) : nullptr;
  const Supply* core = known ? device->supply("VCCINT") : nullptr;
  return core ? voltsText(core->rangeFor(known->supplyGrade()).nom) : std::string();
}

std::vector<std::pair<std::string, int>> PartsQueries::getResourceData(const std::string& deviceOrPart,
                                                                       const std::string& table) const {
  const Device* device = table == "RESOURCE_DATA" ? find(deviceOrPart) : nullptr;
  return device ? device->resources : std::vector<std::pair<std::string, int>>();
}

std::string PartsQueries::getFamilyToDefaultDevice(const std::string& family) const {
  const Family* known = catalogue().findFamily(family);
  return known && known->architecture == m_architecture ? known->defaultPart : std::string();
}

std::string StaticQueries::getPartStatus(const std::string& name, const std::string& field) const {
  if (field != "STATUS") return {};
  if (const Part* part = catalogue().findPart(name)) return part->status;
  if (const SomModule* module = catalogue().findModule(name)) return module->status;
  const Device* device = catalogue().findDevice(name);
  if (!device) return {};
  if (!device->parts.empty()) return device->parts.front().status;
  for (const SomModule& module : catalogue().modules()) {
    if (module.device == device->name) return module.status;
  }
  return {};
}

int StaticQueries::getMaxCurrent(const std::string& devicePackage) const {
  const std::size_t separator = devicePackage.find_last_of("_-");
  if (separator == std::string::npos) return 0;
  const Device* device = catalogue().findDevice(devicePackage.substr(0, separator));
  return device ? device->maxCurrent(std::string_view(devicePackage).substr(separator + 1)) : 0;
}

std::vector<std::string> StaticQueries::getSupplyList(const std::string& deviceOrPart) const {
  std::vector<std::string> rails;
  if (const Device* device = catalogue().findDevice(deviceOrPart)) {
    for (const Supply& supply : device->supplies) rails.push_back(supply.rail);
  }
  return rails;
}

VoltageRange StaticQueries::getVoltageRange(const std::string& deviceOrPart, const std::string& rail) const {
  const Device* device = catalogue().findDevice(deviceOrPart);
  const Supply* supply = device ? device->supply(rail) : nullptr;
  if (!supply) return {};
  const SomModule* module = catalogue().findModule(deviceOrPart);
  const Part* part = catalogue().findPart(module ? std::string_view(module->basePart) : deviceOrPart);
  return part ? supply->rangeFor(part->supplyGrade()) : supply->ranges.front().volts;
}

}  // namespace kvxm
