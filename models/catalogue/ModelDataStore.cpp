#include "models/catalogue/ModelDataStore.h"

#include <algorithm>
#include <memory>

#include "models/catalogue/CatalogueBuilder.h"
#include "models/catalogue/CoefficientReader.h"
#include "models/catalogue/IoStandardReader.h"
#include "models/catalogue/ModelData.h"
#include "models/catalogue/SomBoardReader.h"
#include "platform/wyr_common/NDUEnv.h"

namespace kvxm {
namespace {

const CoefficientSets& setsOf(const std::array<CoefficientSets, 2>& sets, Architecture architecture) {
  return sets[architecture == Architecture::Tarvek ? 0 : 1];  // modules share the sets of their base devices
}

CharacterisationIndex indexSets(const std::array<CoefficientSets, 2>& sets,
                                const DeviceCatalogue& catalogue) {
  CharacterisationIndex index;
  for (const auto architecture : {Architecture::Tarvek, Architecture::Morlan, Architecture::Som}) {
    index.defaults[static_cast<std::size_t>(architecture)] = setsOf(sets, architecture).setFor({}, {});
  }
  for (const Device& device : catalogue.devices()) {
    const Device* base = device.baseDevice.empty() ? &device : catalogue.findDevice(device.baseDevice);
    std::vector<std::string> names{device.name};
    for (const Part& part : device.parts) names.insert(names.end(), {part.name, part.key});
    for (const SomModule& module : catalogue.modules()) {
      if (module.device == device.name) names.insert(names.end(), {module.key, module.talmorDevice});
    }
    if (base) index.add(setsOf(sets, device.architecture).setFor(base->family, base->name), names);
  }
  return index;
}

/// Builds everything from the files; mistakes go to the problems.
std::unique_ptr<ModelDataStore> build(std::vector<DataFile> files, Problems& problems) {
  std::stable_sort(files.begin(), files.end(), [](const DataFile& a, const DataFile& b) {
    return std::pair(a.kind, a.isUser) < std::pair(b.kind, b.isUser);
  });
  CatalogueBuilder builder(problems);
  SomBoardReader boardReader(problems);
  IoStandardReader ioReader(problems);
  std::array<CoefficientSets, 2> sets;
  for (const DataFile& file : files) {
    if (file.kind == DataKind::BoardRegulators || file.kind == DataKind::BoardConsumers) {
      boardReader.read(file, builder.deviceNames(Architecture::Som));
      continue;
    }
    if (file.kind == DataKind::IoStandards) {
      ioReader.read(file, builder.railNames(architectureOf(file)));
      continue;
    }
    if (file.kind != DataKind::Coefficients) {
      builder.read(file);
      continue;
    }
    const Architecture architecture = architectureOf(file);
    CoefficientSets& own = sets[architecture == Architecture::Tarvek ? 0 : 1];
    readCoefficients(file, {builder.familyNames(architecture), builder.deviceNames(architecture)}, own,
                     problems);
    if (!file.isUser) checkComplete(file, own, problems);
  }
  builder.finish();
  boardReader.finish();
  ioReader.finish(builder.devices);
  auto store = std::make_unique<ModelDataStore>();
  store->catalogue =
      DeviceCatalogue(std::move(builder.families), std::move(builder.devices), std::move(builder.modules));
  store->boards = std::move(boardReader.boards);
  store->ioBanks = std::move(ioReader.banks);
  store->characterisations = indexSets(sets, store->catalogue);
  store->parameters = std::move(builder.parameters);
  store->aliases = std::move(builder.aliases);
  return store;
}

std::unique_ptr<ModelDataStore> load() {
  Problems builtInProblems;
  auto builtIn = build(builtInDataFiles(), builtInProblems);
  builtIn->errors = std::move(builtInProblems.errors);
  builtIn->warnings = std::move(builtInProblems.warnings);
  const char* directory = NDUEnv::getEnv("KVX_MODEL_DATA");
  if (!directory || !*directory) return builtIn;

  Problems problems;
  std::vector<DataFile> files = builtInDataFiles();
  for (DataFile& file : readDataDirectory(directory, problems)) files.push_back(std::move(file));
  auto combined = build(std::move(files), problems);
  combined->warnings = std::move(problems.warnings);
  if (problems.errors.empty()) return combined;
  builtIn->errors = std::move(problems.errors);
  builtIn->warnings = std::move(combined->warnings);
  return builtIn;
}

std::unique_ptr<ModelDataStore>& instance() {
  static std::unique_ptr<ModelDataStore> store = load();
  return store;
}

}  // namespace

const ModelDataStore& ModelDataStore::current() {
  return *instance();
}

void ModelDataStore::reload() {
  instance() = load();
}

std::vector<std::string> modelDataErrors() {
  return ModelDataStore::current().errors;
}

std::vector<std::string> modelDataWarnings() {
  return ModelDataStore::current().warnings;
}

void reloadModelData() {
  ModelDataStore::reload();
}

}  // namespace kvxm
