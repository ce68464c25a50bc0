#include "clients/cli/Design.h"

#include <filesystem>

#include "clients/cli/BookEntries.h"
#include "clients/cli/PartChoice.h"
#include "clients/cli/ProjectFile.h"
#include "clients/cli/SheetBinder.h"
#include "clients/cli/SheetReader.h"
#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/ModelData.h"

namespace kvx {

namespace {

std::string stemOf(const std::string& path) {
  return std::filesystem::path(path).stem().string();
}

/// The sheet's own name, else that of its file.
std::string nameOf(const Sheet& sheet) {
  const std::string* name = sheet.name ? std::get_if<std::string>(&sheet.name->value) : nullptr;
  return name && !name->empty() ? *name : stemOf(sheet.place.source);
}

std::optional<Design> loadProject(const std::string& path, Diagnostics& diagnostics) {
  if (!readProject(path, diagnostics)) return std::nullopt;
  KVXECalculationMgr::getGlobal().fullCalculate();
  if (!diagnostics.isEmpty()) return std::nullopt;
  return Design{KVXEBookMgr::getGlobal().getCurrentBook(), stemOf(path)};
}

/// A project is overridden as the sheet that says the same.
std::optional<Sheet> readSheet(const std::string& path, Diagnostics& diagnostics) {
  if (!isProjectPath(path)) return readSheetFile(path, diagnostics);
  const auto design = loadProject(path, diagnostics);
  return design ? std::optional(makeSheet(readEntries(*design->book), path)) : std::nullopt;
}

}  // namespace

std::optional<Design> loadDesign(const std::string& path, const std::vector<std::string>& overrides,
                                 Diagnostics& diagnostics) {
  for (const std::string& line : kvxm::modelDataErrors()) diagnostics.addLine(line);
  if (overrides.empty() && isProjectPath(path)) return loadProject(path, diagnostics);
  auto sheet = readSheet(path, diagnostics);
  if (!sheet) return std::nullopt;
  for (const std::string& text : overrides) addOverride(text, *sheet, diagnostics);
  return loadSheet(*sheet, diagnostics);
}

std::optional<Design> loadSheet(const Sheet& sheet, Diagnostics& diagnostics) {
  const ChosenPart part = choosePart(sheet, diagnostics);
  if (!part.book) return std::nullopt;
  SheetBinder binder(*part.book, diagnostics);
  binder.bind(sheet, part.device->thetaJa);
  KVXECalculationMgr::getGlobal().fullCalculate();
  binder.verify();
  if (!diagnostics.isEmpty()) return std::nullopt;
  return Design{part.book, nameOf(sheet)};
}

Estimate estimateOf(const Design& design) {
  Estimate estimate = readEstimate(*design.book);
  const KVXEPartSelection& selection = *KVXEPartSelection::getGlobal();
  estimate.name = design.name;
  estimate.part = selection.getSelectedDeviceName();
  estimate.process = selection.getCurrentSetting(KVXEPartSelection::m_processStr);
  estimate.family = selection.getCurrentSetting(KVXEPartSelection::m_familyStr);
  if (const kvxm::Device* device = kvxm::DeviceCatalogue::getGlobal().findDevice(estimate.part))
    estimate.architecture = kvxm::architectureText(device->architecture);
  return estimate;
}

}  // namespace kvx
