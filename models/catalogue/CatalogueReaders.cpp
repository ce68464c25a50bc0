// What one row of each CSV file of the catalogue means.

#include <algorithm>

#include "models/catalogue/CatalogueBuilder.h"
#include "models/catalogue/PartName.h"

namespace kvxm {
namespace {

const std::vector<std::string_view>& statusCodes() {
  static const std::vector<std::string_view> codes{"PRODUCTION", "PRELIMINARY", "PREVIEW", "ADVANCE"};
  return codes;
}

/// Replaces the element for which same() holds, or appends.
template <class Record, class Same>
void put(std::vector<Record>& records, Record record, Same same) {
  const auto found = std::find_if(records.begin(), records.end(), same);
  if (found == records.end()) {
    records.push_back(std::move(record));
  } else {
    *found = std::move(record);
  }
}

void putByFirst(std::vector<std::pair<std::string, int>>& pairs, std::string_view first, int second) {
  put(pairs, {std::string(first), second}, [&](const auto& pair) { return pair.first == first; });
}

/// Words of a cell that must each be a known code, at least one.
std::vector<std::string> codes(CsvRow& row, std::string_view column,
                               const std::vector<std::string_view>& known) {
  std::vector<std::string> words = row.words(column);
  if (words.empty()) row.wrong(column, "blank", expectedOneOf({}, known));
  for (const std::string& word : words) {
    if (std::find(known.begin(), known.end(), word) == known.end()) {
      row.wrong(column, quoted(word), expectedOneOf(word, known));
    }
  }
  return words;
}

constexpr float lowestBeta = 0.012f, highestBeta = 0.040f;  // per kelvin, see docs/model-data.md
constexpr float lowestSpread = 1.5f, highestSpread = 2.5f;  // maximum process leakage over typical

}  // namespace

void CatalogueBuilder::read(const DataFile& file) {
  using Reader = void (CatalogueBuilder::*)(CsvRow&, const DataFile&);
  struct RowFile {
    DataKind kind;
    std::vector<std::string_view> columns;
    Reader reader;
    std::string_view directory = {};  ///< blank for any
  };
  static const RowFile rowFiles[] = {
      {DataKind::Families, {"family", "internal", "default_part"}, &CatalogueBuilder::readFamily},
      {DataKind::Devices,
       {"device", "family", "excursion", "max_process_leakage", "theta_ja"},
       &CatalogueBuilder::readDevice},
      {DataKind::Modules,
       {"module", "family", "board", "device", "grade", "temperature", "talmor_device", "base_part", "status",
        "default"},
       &CatalogueBuilder::readModule},
      {DataKind::Supplies,
       {"rail", "display", "category", "requires", "grades", "devices", "min_v", "nom_v", "max_v", "beta",
        "exponent"},
       &CatalogueBuilder::readSupply},
      {DataKind::Packages, {"device", "package", "max_vccint_a"}, &CatalogueBuilder::readPackage},
      {DataKind::Parts,
       {"device", "package", "speed", "voltage", "temperature", "screen", "status"},
       &CatalogueBuilder::readParts,
       "tarvek"},
      {DataKind::Parts,
       {"device", "package", "speed", "temperature", "status"},
       &CatalogueBuilder::readParts,
       "morlan"},
      {DataKind::Parameters, {"name", "type", "default", "meaning"}, &CatalogueBuilder::readParameter},
      {DataKind::Aliases, {"alias", "device"}, &CatalogueBuilder::readAlias},
  };
  CsvTable table(file, m_problems);
  if (file.kind == DataKind::Resources) return readResources(table);
  if (file.kind == DataKind::Leakage) return readLeakage(table);
  for (const RowFile& rowFile : rowFiles) {
    if (rowFile.kind != file.kind) continue;
    if (!rowFile.directory.empty() && rowFile.directory != file.directory) continue;
    if (!table.checkColumns(rowFile.columns)) return;
    for (const CsvTable::Row& cells : table.rows()) {
      CsvRow row(table, cells);
      (this->*rowFile.reader)(row, file);
    }
  }
}

void CatalogueBuilder::readFamily(CsvRow& row, const DataFile& file) {
  Family family;
  family.architecture = architectureOf(file);
  family.name = row.required("family");
  family.internalName = row.required("internal");
  family.defaultPart = row.required("default_part");
  if (!firstInLayer(row, file, "family", family.name) || !row.ok()) return;
  noteOrigin("family " + family.name, file, row.line());
  const std::string name = family.name;
  put(families, std::move(family), [&](const Family& known) { return known.name == name; });
}

void CatalogueBuilder::readDevice(CsvRow& row, const DataFile& file) {
  const Architecture architecture = architectureOf(file);
  const std::string name = row.required("device");
  if (!isDeviceName(architecture, name)) {
    row.wrong("device", quoted(name), deviceNameForm(architecture));
  }
  const std::string family = row.choice("family", familyNames(architecture));
  const bool excursion = row.yesNo("excursion");
  const float spread = row.number("max_process_leakage", 1, 10);
  const float thetaJa = row.number("theta_ja", 0.01f, 100);
  if (!firstInLayer(row, file, "device", name) || !row.ok()) return;
  if (spread < lowestSpread || spread > highestSpread) {
    m_problems.warning(file, row.line(), "max_process_leakage", numberText(spread), "expected 1.5 to 2.5");
  }
  const auto other = std::find_if(devices.begin(), devices.end(), [&](const Device& known) {
    return known.name == name && known.architecture != architecture;
  });
  if (other != devices.end()) {
    return row.wrong("device", quoted(name) + " exists in another architecture", "expected a new name");
  }
  Device* device = findDevice(architecture, name);
  if (!device) device = &devices.emplace_back();
  device->architecture = architecture;
  device->name = name;
  device->family = family;
  device->supportsExcursion = excursion;
  device->maxProcessLeakage = spread;
  device->thetaJa = thetaJa;
  noteOrigin("device " + name, file, row.line());
}

void CatalogueBuilder::readModule(CsvRow& row, const DataFile& file) {
  SomModule module;
  module.key = row.required("module");
  module.family = row.required("family");
  module.board = row.required("board");
  module.device = row.required("device");
  module.grade = row.choice("grade", {"Industrial", "Commercial"});
  module.temperature = row.choice("temperature", {"I", "C"});
  module.talmorDevice = row.required("talmor_device");
  module.basePart = row.required("base_part");
  module.status = row.choice("status", statusCodes());
  module.isDefault = row.yesNo("default");
  if (!isDeviceName(Architecture::Som, module.device)) {
    row.wrong("device", quoted(module.device), deviceNameForm(Architecture::Som));
  }
  if (module.isDefault) firstInLayer(row, file, "default", "default of " + module.family);
  if (!firstInLayer(row, file, "module", module.key) || !row.ok()) return;
  for (SomModule& known : modules) {
    if (module.isDefault && known.family == module.family) known.isDefault = false;
  }
  noteOrigin("module " + module.key, file, row.line());
  if (!findDevice(Architecture::Som, module.device)) {
    Device device;
    device.architecture = Architecture::Som;
    device.family = module.family;
    device.name = module.device;
    noteOrigin("device " + device.name, file, row.line());
    devices.push_back(std::move(device));
  }
  const std::string key = module.key;
  put(modules, std::move(module), [&](const SomModule& known) { return known.key == key; });
}

void CatalogueBuilder::readResources(CsvTable& table) {
  const auto set = [&](Device& device, std::string_view resource, std::string_view cell, int line) {
    int count = 0;
    if (!parseNumber(cell, count) || count < 0) {
      return m_problems.error(table.file(), line, device.name, quoted(cell),
                              "expected a whole number of at least 0");
    }
    if (count > 0) return putByFirst(device.resources, resource, count);
    std::erase_if(device.resources, [&](const auto& known) { return known.first == resource; });
  };
  readMatrix(table, "resource", knownResources(architectureOf(table.file())), set);
}

void CatalogueBuilder::readLeakage(CsvTable& table) {
  constexpr float mostWatts = 1000;
  const auto set = [&](Device& device, std::string_view rail, std::string_view cell, int line) {
    float watts = 0;
    if (!parseNumber(cell, watts) || watts < 0 || watts > mostWatts) {
      return m_problems.error(table.file(), line, device.name, quoted(cell), "expected watts from 0 to 1000");
    }
    m_leakage[device.name][std::string(rail)] = watts;
  };
  readMatrix(table, "rail", railNames(architectureOf(table.file())), set);
}

template <class Set>
void CatalogueBuilder::readMatrix(CsvTable& table, std::string_view nameColumn,
                                  const std::vector<std::string_view>& names, Set set) {
  const DataFile& file = table.file();
  if (table.columns().empty()) return;
  if (table.columns().front() != nameColumn) {
    return m_problems.error(file, table.headerLine(), table.columns().front(), "first column",
                            "expected " + quoted(nameColumn));
  }
  std::vector<Device*> columnDevices{nullptr};
  for (std::size_t i = 1; i < table.columns().size(); ++i) {
    const std::string_view name = table.columns()[i];
    columnDevices.push_back(findDevice(architectureOf(file), name));
    if (columnDevices.back()) continue;
    m_problems.error(file, table.headerLine(), name, "unknown device",
                     expectedOneOf(name, deviceNames(architectureOf(file))));
  }
  for (const CsvTable::Row& cells : table.rows()) {
    CsvRow row(table, cells);
    const std::string name = row.choice(nameColumn, names);
    if (!row.ok() || !firstInLayer(row, file, nameColumn, name)) continue;
    for (std::size_t i = 1; i < cells.cells.size(); ++i) {
      if (columnDevices[i] && !cells.cells[i].empty()) {
        set(*columnDevices[i], name, cells.cells[i], cells.line);
      }
    }
  }
}

void CatalogueBuilder::readSupply(CsvRow& row, const DataFile& file) {
  static const std::vector<std::string> anyCode{"*"};
  SupplyRule rule{architectureOf(file), row.words("devices"), {}};
  Supply& supply = rule.supply;
  supply.rail = row.required("rail");
  supply.displayName = row.required("display");
  supply.category = row.choice("category", supplyCategories());
  supply.requiredResources = row.words("requires");
  GradedVoltageRange range{row.words("grades"), {}};
  range.volts.min = row.number("min_v", 0, 10);
  range.volts.nom = row.number("nom_v", 0.1f, 10);
  range.volts.max = row.number("max_v", 0.1f, 10);
  supply.beta = row.number("beta", 0, 0.2f);
  supply.voltageExponent = row.number("exponent", 0, 10);
  if (range.volts.min > range.volts.nom || range.volts.nom > range.volts.max) {
    row.wrong("nom_v", "limits out of order", "expected min_v <= nom_v <= max_v");
  }
  if (!rule.supply.requiredResources.empty()) codes(row, "requires", knownResources(rule.architecture));
  if (!range.grades.empty()) {
    codes(row, "grades",
          rule.architecture == Architecture::Tarvek ? voltageCodes() : speedCodes(rule.architecture));
  }
  if (!rule.scope.empty()) codes(row, "devices", deviceNames(rule.architecture));
  for (const std::string& device : rule.scope.empty() ? anyCode : rule.scope) {
    for (const std::string& grade : range.grades.empty() ? anyCode : range.grades) {
      firstInLayer(row, file, "rail", supply.rail + " " + grade + " " + device);
    }
  }
  if (!row.ok()) return;
  if (supply.beta < lowestBeta || supply.beta > highestBeta) {
    m_problems.warning(file, row.line(), "beta", numberText(supply.beta),
                       "expected 0.012 to 0.040 per kelvin");
  }
  const std::vector<std::string> grades = range.grades;
  supply.ranges.push_back(std::move(range));
  const auto same = [&, rail = supply.rail, scope = rule.scope,
                     architecture = rule.architecture](const SupplyRule& known) {
    return known.architecture == architecture && known.scope == scope && known.supply.rail == rail &&
           known.supply.ranges.front().grades == grades;
  };
  put(m_supplyRules, std::move(rule), same);
}

void CatalogueBuilder::readPackage(CsvRow& row, const DataFile& file) {
  Device* device = knownDevice(row, file, "device");
  const std::string package = row.required("package");
  if (!isPackageName(package)) {
    row.wrong("package", quoted(package), "expected four capital letters and three or four digits");
  }
  const int amperes = row.integer("max_vccint_a", 0);
  const std::string key = std::string(row.text("device")) + " " + package;
  if (!firstInLayer(row, file, "package", key) || !row.ok()) return;
  putByFirst(device->maxVccintCurrent, package, amperes);
}

void CatalogueBuilder::readParts(CsvRow& row, const DataFile& file) {
  static const std::vector<std::string> none{std::string()};
  const Architecture architecture = architectureOf(file);
  const bool isTarvek = architecture == Architecture::Tarvek;
  Device* device = knownDevice(row, file, "device");
  const std::vector<std::string> packages = row.words("package");
  if (packages.empty()) row.wrong("package", "blank", "expected package names");
  for (const std::string& package : packages) {
    if (isPackageName(package)) continue;
    row.wrong("package", quoted(package), "expected four capital letters and three or four digits");
  }
  const auto speeds = codes(row, "speed", speedCodes(architecture));
  const auto voltages = isTarvek ? codes(row, "voltage", voltageCodes()) : none;
  const auto temperatures = codes(row, "temperature", temperatureCodes(architecture));
  const auto screens = isTarvek ? codes(row, "screen", screenCodes()) : none;
  const std::string status = row.choice("status", statusCodes());
  if (!row.ok()) return;
  for (const auto& package : packages) {
    for (const auto& speed : speeds) {
      for (const auto& voltage : voltages) {
        for (const auto& temperature : temperatures) {
          for (const auto& screen : screens) {
            Part part{{}, {}, device->name, package, speed, voltage, temperature, screen, status};
            composeNames(part, architecture);
            if (firstInLayer(row, file, "device", part.key)) addPart(*device, file, std::move(part));
          }
        }
      }
    }
  }
}

void CatalogueBuilder::addPart(Device& device, const DataFile& file, Part part) {
  if (std::find(device.packages.begin(), device.packages.end(), part.package) == device.packages.end()) {
    device.packages.push_back(part.package);
  }
  const std::string key = part.key;
  if (!overridesBuiltIn(file, key)) return device.parts.push_back(std::move(part));
  put(device.parts, std::move(part), [&](const Part& known) { return known.key == key; });
}

void CatalogueBuilder::readParameter(CsvRow& row, const DataFile& file) {
  using Kind = ParameterDefault::Kind;
  ParameterDefault parameter;
  parameter.name = row.required("name");
  const std::string type = row.choice("type", {"int", "float", "string"});
  parameter.kind = type == "int" ? Kind::Int : type == "float" ? Kind::Float : Kind::String;
  parameter.text = row.text("default");
  float number = 0;
  int integer = 0;
  if (parameter.kind == Kind::Int ? !parseNumber(parameter.text, integer)
                                  : parameter.kind == Kind::Float && !parseNumber(parameter.text, number)) {
    row.wrong("default", quoted(parameter.text), "expected a value of the type " + type);
  }
  if (!firstInLayer(row, file, "name", parameter.name) || !row.ok()) return;
  const std::string name = parameter.name;
  put(parameters, std::move(parameter), [&](const ParameterDefault& known) { return known.name == name; });
}

void CatalogueBuilder::readAlias(CsvRow& row, const DataFile& file) {
  const std::string alias = row.required("alias");
  const std::string device = row.required("device");
  const bool known = std::any_of(devices.begin(), devices.end(),
                                 [&](const Device& candidate) { return candidate.name == device; });
  if (!known) row.wrong("device", "unknown device " + quoted(device), "expected a device of devices.csv");
  if (!firstInLayer(row, file, "alias", alias) || !row.ok()) return;
  put(aliases, {alias, device}, [&](const auto& pair) { return pair.first == alias; });
}

}  // namespace kvxm
