#include "clients/cli/EstimateCommand.h"

#include <filesystem>

#include "clients/cli/JsonEstimate.h"
#include "clients/cli/PartChoice.h"
#include "clients/cli/PrintEstimate.h"
#include "clients/cli/SheetBinder.h"
#include "clients/cli/SheetReader.h"
#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/ModelData.h"

namespace kvx {

namespace {

/// The sheet's own name, else that of its file.
std::string nameOf(const Sheet& sheet) {
  const std::string* name = sheet.name ? std::get_if<std::string>(&sheet.name->value) : nullptr;
  if (name && !name->empty()) return *name;
  return std::filesystem::path(sheet.place.source).stem().string();
}

std::optional<Sheet> readRequest(const EstimateRequest& request, Diagnostics& diagnostics) {
  auto sheet = readSheetFile(request.sheet, diagnostics);
  if (!sheet) return std::nullopt;
  for (const std::string& text : request.overrides) addOverride(text, *sheet, diagnostics);
  return sheet;
}

}  // namespace

std::optional<Estimate> estimateSheet(const EstimateRequest& request, Diagnostics& diagnostics) {
  for (const std::string& line : kvxm::modelDataErrors()) diagnostics.addLine(line);
  const auto sheet = readRequest(request, diagnostics);
  if (!sheet) return std::nullopt;
  const ChosenPart part = choosePart(*sheet, diagnostics);
  if (!part.book) return std::nullopt;
  SheetBinder binder(*part.book, diagnostics);
  binder.bind(*sheet, part.device->thetaJa);
  KVXECalculationMgr::getGlobal().fullCalculate();
  binder.verify();
  if (!diagnostics.isEmpty()) return std::nullopt;
  Estimate estimate = readEstimate(*part.book);
  const KVXEPartSelection& selection = *KVXEPartSelection::getGlobal();
  estimate.name = nameOf(*sheet);
  estimate.part = selection.getSelectedDeviceName();
  estimate.process = selection.getCurrentSetting(KVXEPartSelection::m_processStr);
  estimate.family = selection.getCurrentSetting(KVXEPartSelection::m_familyStr);
  estimate.architecture = part.architecture;
  estimate.budget = request.budget;
  return estimate;
}

Outcome runEstimate(const EstimateRequest& request, Diagnostics& diagnostics) {
  const auto estimate = estimateSheet(request, diagnostics);
  if (!estimate) return {ExitStatus::BadInput, ""};
  const bool isBroken = estimate->isBudgetBroken() || estimate->hasErrors();
  return {isBroken ? ExitStatus::Broken : ExitStatus::Success,
          request.isJson ? jsonEstimate(*estimate) : printEstimate(*estimate, Style::forStandardOutput())};
}

}  // namespace kvx
