#include "models/catalogue/DeviceCatalogue.h"

#include <algorithm>
#include <array>

#include "models/catalogue/ModelDataStore.h"

namespace kvxm {
namespace {

struct ArchitectureName {
  Architecture architecture;
  std::string_view name;
  std::string_view productName;
};

constexpr std::array<ArchitectureName, 3> architectureNames{{
    {Architecture::Tarvek, "Tarvek", "Arkeon"},
    {Architecture::Morlan, "Morlan", "Hexaline+"},
    {Architecture::Som, "Som", "Ludra"},
}};

constexpr std::string_view genericPartMarker = "-X-X-X-X-X";

/// Printed names and keys differ in separators only.
std::string indexForm(std::string_view name) {
  std::string form;
  form.reserve(name.size());
  for (const char c : name) {
    if (c == '-' || c == '_' || c == ' ') continue;
    form += (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return form;
}

}  // namespace

std::string_view architectureText(Architecture architecture) {
  return architectureNames[static_cast<std::size_t>(architecture)].name;
}

Architecture architectureFromText(std::string_view text) {
  for (const ArchitectureName& entry : architectureNames) {
    if (text == entry.name || text == entry.productName) return entry.architecture;
  }
  return Architecture::Tarvek;
}

const VoltageRange& Supply::rangeFor(std::string_view grade) const {
  const GradedVoltageRange* fallback = nullptr;
  for (const GradedVoltageRange& range : ranges) {
    if (std::find(range.grades.begin(), range.grades.end(), grade) != range.grades.end()) return range.volts;
    if (range.grades.empty() && !fallback) fallback = &range;
  }
  return fallback ? fallback->volts : ranges.front().volts;
}

int Device::resource(std::string_view resourceName) const {
  for (const auto& [known, count] : resources) {
    if (known == resourceName) return count;
  }
  return 0;
}

const Supply* Device::supply(std::string_view railName) const {
  for (const Supply& candidate : supplies) {
    if (candidate.rail == railName || candidate.displayName == railName) return &candidate;
  }
  return nullptr;
}

int Device::maxCurrent(std::string_view package) const {
  for (const auto& [known, amperes] : maxVccintCurrent) {
    if (known == package) return amperes;
  }
  return 0;
}

const DeviceCatalogue& DeviceCatalogue::getGlobal() {
  return ModelDataStore::current().catalogue;
}

DeviceCatalogue::DeviceCatalogue(std::vector<Family> families, std::vector<Device> devices,
                                 std::vector<SomModule> modules)
    : m_families(std::move(families)), m_devices(std::move(devices)), m_modules(std::move(modules)) {
  for (std::size_t d = 0; d < m_devices.size(); ++d) {
    m_index.emplace(indexForm(m_devices[d].name), Entry{d, 0});
    for (std::size_t p = 0; p < m_devices[d].parts.size(); ++p) {
      m_index.emplace(indexForm(m_devices[d].parts[p].key), Entry{d, p + 1});
    }
  }
  for (std::size_t m = 0; m < m_modules.size(); ++m) {
    const auto kind = m_index.find(indexForm(m_modules[m].device));
    if (kind == m_index.end()) continue;
    const std::size_t device = kind->second.device;
    m_index.emplace(indexForm(m_modules[m].key), Entry{device, m + 1});
    m_index.emplace(indexForm(m_modules[m].talmorDevice), Entry{device, m + 1});
  }
}

const DeviceCatalogue::Entry* DeviceCatalogue::find(std::string_view name) const {
  const auto found = m_index.find(indexForm(name));
  return found == m_index.end() ? nullptr : &found->second;
}

const Device* DeviceCatalogue::findDevice(std::string_view deviceOrPart) const {
  if (const std::size_t marker = deviceOrPart.find(genericPartMarker); marker != std::string_view::npos) {
    deviceOrPart = deviceOrPart.substr(0, std::min(marker, deviceOrPart.find_first_of("-_")));
  }
  const Entry* entry = find(deviceOrPart);
  return entry ? &m_devices[entry->device] : nullptr;
}

const Part* DeviceCatalogue::findPart(std::string_view nameOrKey) const {
  const Entry* entry = find(nameOrKey);
  if (!entry || entry->part == 0) return nullptr;
  const Device& device = m_devices[entry->device];
  return device.architecture == Architecture::Som ? nullptr : &device.parts[entry->part - 1];
}

const SomModule* DeviceCatalogue::findModule(std::string_view keyOrName) const {
  const Entry* entry = find(keyOrName);
  if (!entry || entry->part == 0) return nullptr;
  return m_devices[entry->device].architecture == Architecture::Som ? &m_modules[entry->part - 1] : nullptr;
}

const Family* DeviceCatalogue::findFamily(std::string_view name) const {
  for (const Family& family : m_families) {
    if (family.name == name || family.internalName == name) return &family;
  }
  return nullptr;
}

}  // namespace kvxm
