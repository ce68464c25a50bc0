#include "clients/cli/PartsCommand.h"

#include <algorithm>
#include <charconv>

#include "clients/cli/JsonTypes.h"
#include "clients/cli/Spelling.h"
#include "clients/cli/TextTable.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/ModelData.h"

namespace kvx {

namespace {

/// A part or module of the catalogue, as the list shows it.
struct CatalogueEntry {
  std::string name, architecture, family, device, package, grade, speed, voltage, temperature, screen, status;
  const kvxm::Device* resources = nullptr;
};

/// A field: the head of its column, its width, the member in JSON, and the option that filters by it.
struct Field {
  const char* head;
  std::size_t width;
  const char* key;
  std::string CatalogueEntry::*text;
  const char* option;
  const char* help;
};

constexpr Field Fields[] = {
    {"Part", 26, "name", &CatalogueEntry::name, "--part", "only this part"},
    {"", 0, "architecture", &CatalogueEntry::architecture, "--arch",
     "only this architecture: Tarvek, Morlan or Som"},
    {"Family", 24, "family", &CatalogueEntry::family, "--family", "only this family"},
    {"Device", 8, "device", &CatalogueEntry::device, "--device", "only this device or module kind"},
    {"Package", 10, "package", &CatalogueEntry::package, "--package", "only this package or board"},
    {"Gr", 3, "grade", &CatalogueEntry::grade, "--grade",
     "only this device grade: QC, QQ (defence), QA (automotive)"},
    {"Spd", 5, "speed", &CatalogueEntry::speed, "--speed", "only this speed"},
    {"Volt", 5, "voltage", &CatalogueEntry::voltage, "--voltage", "only this voltage grade"},
    {"T", 2, "temperature", &CatalogueEntry::temperature, "--temperature",
     "only this temperature grade, by its letter"},
    {"S", 2, "screen", &CatalogueEntry::screen, "--screen", "only this static screen: S or L"},
    {"Status", 12, "status", &CatalogueEntry::status, "--status", "only this status of the characterisation"},
};

/// Defence and automotive devices have a prefix of their own.
std::string deviceGrade(const std::string& device) {
  if (device.find("QQ") != std::string::npos) return "QQ";
  if (device.find("QA") != std::string::npos) return "QA";
  return "QC";
}

std::vector<CatalogueEntry> listCatalogue() {
  const kvxm::DeviceCatalogue& catalogue = kvxm::DeviceCatalogue::getGlobal();
  std::vector<CatalogueEntry> entries;
  for (const kvxm::Device& device : catalogue.devices()) {
    const std::string architecture(kvxm::architectureText(device.architecture));
    for (const kvxm::Part& part : device.parts)
      entries.push_back({part.name, architecture, device.family, device.name, part.package,
                         deviceGrade(device.name), part.speed, part.voltage, part.temperature, part.screen,
                         part.status, &device});
  }
  for (const kvxm::SomModule& module : catalogue.modules()) {
    const kvxm::Device* device = catalogue.findDevice(module.device);
    entries.push_back({module.talmorDevice, "Som", module.family, module.device, module.board,
                       deviceGrade(module.device), "", "", module.temperature, "", module.status, device});
  }
  return entries;
}

/// "NAME" or "NAME>=COUNT".
struct ResourceFilter {
  std::string name;
  int count = 1;
};

ResourceFilter readResourceFilter(const std::string& text, const std::vector<CatalogueEntry>& entries,
                                  Diagnostics& diagnostics) {
  const Place place{"--has " + text, 0};
  ResourceFilter filter{text.substr(0, text.find(">=")), 1};
  if (const std::size_t at = text.find(">="); at != std::string::npos) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + at + 2, end, filter.count);
    if (error != std::errc() || stop != end)
      diagnostics.add(place, inQuotes(text.substr(at + 2)) + " is no count", "write NAME or NAME>=COUNT");
  }
  std::vector<std::string> known;
  for (const CatalogueEntry& entry : entries)
    for (const auto& [name, count] : entry.resources->resources) {
      if (isSameSpelling(name, filter.name)) {
        filter.name = name;
        return filter;
      }
      if (std::find(known.begin(), known.end(), name) == known.end()) known.push_back(name);
    }
  diagnostics.add(place, "no device has a resource " + inQuotes(filter.name), adviseName(filter.name, known));
  return filter;
}

/// Keeps the entries whose field reads so; a value that no part has is a mistake.
void filterBy(const Field& field, const std::string& value, const std::vector<CatalogueEntry>& all,
              std::vector<CatalogueEntry>& entries, Diagnostics& diagnostics) {
  std::vector<std::string> known;
  bool isKnown = false;
  for (const CatalogueEntry& entry : all) {
    const std::string& text = entry.*field.text;
    isKnown |= isSameSpelling(text, value);
    if (!text.empty() && std::find(known.begin(), known.end(), text) == known.end()) known.push_back(text);
  }
  if (!isKnown)
    return diagnostics.add({field.option + std::string(" ") + value, 0}, "no part has " + inQuotes(value),
                           adviseName(value, known));
  std::erase_if(entries,
                [&](const CatalogueEntry& entry) { return !isSameSpelling(entry.*field.text, value); });
}

std::string printEntries(const std::vector<CatalogueEntry>& entries) {
  const auto printLine = [](auto textOf) {
    std::string line;
    for (const Field& field : Fields)
      if (field.width > 0) line += padRight(textOf(field), field.width);
    return line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  };
  std::string text = printLine([](const Field& field) { return std::string(field.head); });
  for (const CatalogueEntry& entry : entries)
    text += printLine([&entry](const Field& field) { return entry.*field.text; });
  return text;
}

std::string jsonEntries(const std::vector<CatalogueEntry>& entries) {
  Json parts = Json::array();
  for (const CatalogueEntry& entry : entries) {
    Json part;
    for (const Field& field : Fields) {
      const std::string& text = entry.*field.text;
      part[field.key] = text.empty() ? Json(nullptr) : Json(text);
    }
    Json resources = Json::object();
    for (const auto& [name, count] : entry.resources->resources) resources[name] = count;
    part["resources"] = resources;
    parts.push_back(part);
  }
  return toText({{"schema", "kvx-parts/1"}, {"parts", parts}});
}

}  // namespace

const std::vector<PartFilter>& partFilters() {
  static const std::vector<PartFilter> filters = [] {
    std::vector<PartFilter> list;
    for (const Field& field : Fields) list.push_back({field.option, field.help});
    return list;
  }();
  return filters;
}

Outcome runParts(const PartsRequest& request, Diagnostics& diagnostics) {
  for (const std::string& line : kvxm::modelDataErrors()) diagnostics.addLine(line);
  const std::vector<CatalogueEntry> all = listCatalogue();
  std::vector<CatalogueEntry> entries = all;
  for (const Field& field : Fields) {
    const auto value = request.filters.find(field.option);
    if (value != request.filters.end() && !value->second.empty())
      filterBy(field, value->second, all, entries, diagnostics);
  }
  for (const std::string& text : request.resources) {
    const ResourceFilter filter = readResourceFilter(text, all, diagnostics);
    std::erase_if(entries, [&](const CatalogueEntry& entry) {
      return entry.resources->resource(filter.name) < filter.count;
    });
  }
  if (!diagnostics.isEmpty()) return {ExitStatus::BadInput, ""};
  return {ExitStatus::Success, request.isJson ? jsonEntries(entries) : printEntries(entries)};
}

}  // namespace kvx
