#include "clients/cli/EstimateCommand.h"

#include "clients/cli/Design.h"
#include "clients/cli/JsonEstimate.h"
#include "clients/cli/PrintEstimate.h"

namespace kvx {

std::optional<Estimate> estimateDesign(const EstimateRequest& request, Diagnostics& diagnostics) {
  const auto design = loadDesign(request.path, request.overrides, diagnostics);
  if (!design) return std::nullopt;
  Estimate estimate = estimateOf(*design);
  estimate.budget = request.budget;
  return estimate;
}

Outcome runEstimate(const EstimateRequest& request, Diagnostics& diagnostics) {
  const auto estimate = estimateDesign(request, diagnostics);
  if (!estimate) return {ExitStatus::BadInput, ""};
  const bool isBroken = estimate->isBudgetBroken() || estimate->hasErrors();
  return {isBroken ? ExitStatus::Broken : ExitStatus::Success,
          request.isJson ? jsonEstimate(*estimate) : printEstimate(*estimate, Style::forStandardOutput())};
}

}  // namespace kvx
