#include "models/catalogue/CatalogueBuilder.h"

#include <algorithm>

namespace kvxm {
namespace {

template <class Records, class Name>
std::vector<std::string_view> namesOf(const Records& records, Architecture architecture, Name name) {
  std::vector<std::string_view> names;
  for (const auto& record : records) {
    if (record.architecture == architecture) names.push_back(name(record));
  }
  return names;
}

bool contains(const std::vector<std::string>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// Removes the grades from the ranges, and the ranges that lose all.
void takeGrades(std::vector<GradedVoltageRange>& ranges, const std::vector<std::string>& grades) {
  for (auto range = ranges.begin(); range != ranges.end();) {
    const auto lost =
        std::erase_if(range->grades, [&](const auto& grade) { return contains(grades, grade); });
    range = lost > 0 && range->grades.empty() ? ranges.erase(range) : range + 1;
  }
}

std::string layerKey(const DataFile& file, bool isUser, const std::string& key) {
  const std::string kind = std::to_string(static_cast<int>(file.kind));
  return (isUser ? "user " : "built-in ") + file.directory + " " + kind + " " + key;
}

}  // namespace

const std::vector<std::string_view>& knownResources(Architecture architecture) {
  static const std::vector<std::string_view> tarvek{
      "LUT",   "FF",    "LUTRAM", "SRL",   "BRAM",  "WRAM",  "MPRAM",  "DSP",     "PS",    "PSW",  "MXE",
      "MXE2",  "NICB",  "HSIO",   "LSIO",  "Y7IO",  "IO",    "XCVRA",  "XCVRC",   "XCVRD", "HIC",  "HIC5",
      "HIC5N", "PCIE",  "PCIE5",  "EMMAC", "EBMAC", "ILKN",  "FEC",    "CRE",     "VDU",   "FSYN", "DPLL",
      "IOPLL", "Y7PLL", "HSRAM",  "HMC",   "FSR",   "HBM2E", "DDRMC5", "DDRMC5C", "SLR",   "DAC",  "ADC"};
  static const std::vector<std::string_view> morlan{
      "LUT",   "FF",    "LUTRAM", "BRAM", "WRAM",   "DSP",     "PS",      "MSIO",    "LSIO",
      "XCVRA", "XCVRB", "XCVRC",  "HBM",  "PCIE",   "PCIEC",   "EAMAC",   "ILMAC",   "FEC",
      "VCU",   "FSYN",  "ADC",    "DAC",  "SYSMON", "CLKROWS", "CLKCOLS", "NUM_DIES"};
  static const std::vector<std::string_view> som{"LUT",  "LUTRAM", "BRAM",    "WRAM",    "DSP",     "PS",
                                                 "MSIO", "LSIO",   "HSIO",    "XCVRB",   "XCVRC",   "PCIE",
                                                 "VCU",  "FSYN",   "HSRAM",   "DPLL",    "IOPLL",   "FSR",
                                                 "ADC",  "DAC",    "CLKROWS", "CLKCOLS", "NUM_DIES"};
  return architecture == Architecture::Tarvek ? tarvek : architecture == Architecture::Morlan ? morlan : som;
}

const std::vector<std::string_view>& supplyCategories() {
  static const std::vector<std::string_view> keys{"PMC",     "LPD",  "FPD",   "SYSTEM_AUX", "SYSTEM_CORE",
                                                  "PL_CORE", "IO",   "XCVRA", "XCVRD",      "XCVRC",
                                                  "HBM",     "BATT", "OTHER"};
  return keys;
}

Architecture architectureOf(const DataFile& file) {
  if (file.directory == "morlan") return Architecture::Morlan;
  return file.directory == "som" ? Architecture::Som : Architecture::Tarvek;
}

std::vector<std::string_view> CatalogueBuilder::deviceNames(Architecture architecture) const {
  return namesOf(devices, architecture, [](const Device& device) -> std::string_view { return device.name; });
}

std::vector<std::string_view> CatalogueBuilder::familyNames(Architecture architecture) const {
  return namesOf(families, architecture,
                 [](const Family& family) -> std::string_view { return family.name; });
}

std::vector<std::string_view> CatalogueBuilder::railNames(Architecture architecture) const {
  return namesOf(m_supplyRules, architecture,
                 [](const SupplyRule& rule) -> std::string_view { return rule.supply.rail; });
}

bool CatalogueBuilder::firstInLayer(CsvRow& row, const DataFile& file, std::string_view column,
                                    const std::string& key) {
  if (m_seen.insert(layerKey(file, file.isUser, key)).second) return true;
  row.wrong(column, "duplicate " + quoted(key), "expected it once");
  return false;
}

bool CatalogueBuilder::overridesBuiltIn(const DataFile& file, const std::string& key) const {
  return file.isUser && m_seen.contains(layerKey(file, false, key));
}

void CatalogueBuilder::noteOrigin(const std::string& key, const DataFile& file, int line) {
  m_origins[key] = {{file.kind, file.directory, file.path, {}, file.isUser}, line};
}

void CatalogueBuilder::lack(const std::string& key, std::string_view what, std::string_view expected) {
  const Origin& origin = m_origins[key];
  m_problems.error(origin.file, origin.line, key.substr(key.find(' ') + 1), what, expected);
}

Device* CatalogueBuilder::findDevice(Architecture architecture, std::string_view name) {
  for (Device& device : devices) {
    if (device.architecture == architecture && device.name == name) return &device;
  }
  return nullptr;
}

Device* CatalogueBuilder::knownDevice(CsvRow& row, const DataFile& file, std::string_view column) {
  const std::string_view name = row.text(column);
  Device* device = findDevice(architectureOf(file), name);
  if (!device) {
    row.wrong(column, "unknown device " + quoted(name),
              expectedOneOf(name, deviceNames(architectureOf(file))));
  }
  return device;
}

/// A row replaces the limits of the grades that it names; a row for some devices that names no grade replaces
/// all limits of the rail there. Where the row's limits come first, its law of leakage holds for the rail.
void CatalogueBuilder::applyRule(Device& device, const SupplyRule& rule) {
  const auto found = std::find_if(device.supplies.begin(), device.supplies.end(),
                                  [&](const Supply& supply) { return supply.rail == rule.supply.rail; });
  if (found == device.supplies.end()) {
    device.supplies.push_back(rule.supply);
    return;
  }
  const GradedVoltageRange& range = rule.supply.ranges.front();
  std::vector<GradedVoltageRange>& ranges = found->ranges;
  if (range.grades.empty() && !rule.scope.empty()) ranges.clear();
  const auto same = std::find_if(ranges.begin(), ranges.end(), [&](const GradedVoltageRange& known) {
    return known.grades == range.grades;
  });
  if (same != ranges.end()) {
    *same = range;
  } else {
    takeGrades(ranges, range.grades);
    ranges.push_back(range);
  }
  if (ranges.front().grades != range.grades) return;
  found->beta = rule.supply.beta;
  found->voltageExponent = rule.supply.voltageExponent;
}

/// Rules for all devices come first, then those that name the device, which win.
void CatalogueBuilder::resolveSupplies(Device& device) {
  device.supplies.clear();
  for (const bool general : {true, false}) {
    for (const SupplyRule& rule : m_supplyRules) {
      if (rule.architecture != device.architecture || rule.scope.empty() != general) continue;
      if (general || contains(rule.scope, device.name)) applyRule(device, rule);
    }
  }
  std::erase_if(device.supplies, [&](const Supply& supply) {
    return !supply.requiredResources.empty() &&
           std::none_of(supply.requiredResources.begin(), supply.requiredResources.end(),
                        [&](const std::string& resource) { return device.resource(resource) > 0; });
  });
  const auto group = [](const Supply& supply) {
    return std::find(supplyCategories().begin(), supplyCategories().end(), supply.category);
  };
  std::stable_sort(device.supplies.begin(), device.supplies.end(),
                   [&](const Supply& a, const Supply& b) { return group(a) < group(b); });
  const auto leakage = m_leakage.find(device.name);
  if (leakage == m_leakage.end()) return;
  for (Supply& supply : device.supplies) {
    const auto watts = leakage->second.find(supply.rail);
    if (watts != leakage->second.end()) supply.leakageWatts = watts->second;
  }
}

/// A module has the rails and limits of the device that it carries.
void CatalogueBuilder::adoptBaseDevices() {
  for (const SomModule& module : modules) {
    const std::string key = "module " + module.key;
    const Device* base = nullptr;
    const Part* basePart = nullptr;
    for (const Device& device : devices) {
      for (const Part& part : device.parts) {
        if (part.name != module.basePart) continue;
        base = &device;
        basePart = &part;
      }
    }
    if (!base) {
      lack(key, "unknown base part " + quoted(module.basePart), "expected a part of morlan/parts.csv");
      continue;
    }
    Device& kind = *findDevice(Architecture::Som, module.device);
    kind.baseDevice = base->name;
    kind.supplies = base->supplies;
    kind.supportsExcursion = base->supportsExcursion;
    kind.maxProcessLeakage = base->maxProcessLeakage;
    kind.thetaJa = base->thetaJa;
    kind.packages = {basePart->package};
    kind.maxVccintCurrent = base->maxVccintCurrent;
  }
}

void CatalogueBuilder::checkFamilies() {
  for (const Family& family : families) {
    const bool exists = std::any_of(devices.begin(), devices.end(), [&](const Device& device) {
      return device.family == family.name &&
             std::any_of(device.parts.begin(), device.parts.end(),
                         [&](const Part& part) { return part.name == family.defaultPart; });
    });
    if (exists) continue;
    lack("family " + family.name, "unknown default part " + quoted(family.defaultPart),
         "expected the printed name of a part of the family, as AK1080-VSVA1024_2-MP-E-S");
  }
}

void CatalogueBuilder::checkDevice(const Device& device) {
  const std::string key = "device " + device.name;
  if (device.parts.empty() && device.architecture != Architecture::Som) {
    lack(key, "no parts", "expected rows in parts.csv");
  }
  if (device.resources.empty()) lack(key, "no resources", "expected a column in resources.csv");
  if (device.supplies.empty()) lack(key, "no supplies", "expected rows in supplies.csv");
  if (device.architecture != Architecture::Som && !m_leakage.contains(device.name)) {
    lack(key, "no leakage", "expected a column in leakage.csv");
  }
  const bool hasLimit =
      std::any_of(device.packages.begin(), device.packages.end(),
                  [&](const std::string& package) { return device.maxCurrent(package) > 0; });
  if (!hasLimit) lack(key, "no maximum current", "expected a package of the device in packages.csv");
}

void CatalogueBuilder::finish() {
  for (Device& device : devices) resolveSupplies(device);
  adoptBaseDevices();
  checkFamilies();
  for (const Device& device : devices) checkDevice(device);
  for (const SomModule& module : modules) {
    const auto known = [&](const Family& family) { return family.name == module.family; };
    const auto family = std::find_if(families.begin(), families.end(), known);
    if (family == families.end()) {
      families.push_back({Architecture::Som, module.family, module.family, module.talmorDevice});
    } else if (module.isDefault) {
      family->defaultPart = module.talmorDevice;
    }
  }
}

}  // namespace kvxm
