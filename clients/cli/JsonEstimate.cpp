#include "clients/cli/JsonEstimate.h"

#include "clients/cli/JsonTypes.h"

namespace kvx {

namespace {

template <class T>
Json orNull(const std::optional<T>& value) {
  return value ? Json(static_cast<float>(*value)) : Json(nullptr);
}

Json textOrNull(const std::string& text) {
  return text.empty() ? Json(nullptr) : Json(text);
}

Json thermal(const Estimate& estimate) {
  return {{"junction_c", estimate.junction},
          {"junction_given", estimate.isJunctionGiven},
          {"junction_valid", estimate.isJunctionValid},
          {"junction_max_c", estimate.junctionMax},
          {"ambient_c", estimate.ambient},
          {"theta_ja_c_per_w", orNull(estimate.thetaJa)},
          {"margin_c", estimate.marginDegrees},
          {"margin_w", orNull(estimate.marginWatts)}};
}

Json block(const Estimate::Block& block) {
  return {{"name", block.name},
          {"category", textOrNull(block.category)},
          {"kind", block.isStatic ? "static" : "dynamic"},
          {"power_w", block.watts}};
}

Json rail(const Estimate::Rail& rail) {
  return {{"name", rail.name},
          {"voltage_v", rail.volts},
          {"dynamic_a", rail.dynamicAmperes},
          {"static_a", rail.staticAmperes},
          {"total_a", rail.amperes},
          {"power_w", static_cast<float>(rail.watts())},
          {"powerup_a", orNull(rail.powerupAmperes)},
          {"step_load", orNull(rail.stepLoad)},
          {"group", textOrNull(rail.group)}};
}

Json supply(const Estimate::Supply& supply) {
  return {{"group", supply.group},
          {"schematic_name", textOrNull(supply.schematicName)},
          {"rails", supply.rails},
          {"voltage_v", supply.volts},
          {"available_a", orNull(supply.availableAmperes)},
          {"estimated_a", supply.estimatedAmperes},
          {"step_load_a", supply.stepLoadAmperes},
          {"margin_a", orNull(supply.marginAmperes)}};
}

Json resource(const Estimate::Resource& resource) {
  return {{"tab", resource.tab},
          {"name", resource.name},
          {"used", static_cast<float>(resource.used)},
          {"available", static_cast<float>(resource.available)}};
}

Json component(const Estimate::Component& component) {
  return {{"name", component.name}, {"power_w", component.watts}};
}

Json message(const Estimate::Message& message) {
  return {{"severity", message.severity == KvxSeverity::ERROR ? "error" : "warning"},
          {"tab", message.tab},
          {"table", message.table},
          {"row", textOrNull(message.row)},
          {"column", textOrNull(message.column)},
          {"text", message.text}};
}

template <class T>
Json list(const std::vector<T>& items, Json (*convert)(const T&)) {
  Json array = Json::array();
  for (const T& item : items) array.push_back(convert(item));
  return array;
}

}  // namespace

std::string jsonEstimate(const Estimate& estimate) {
  Json document;
  document["schema"] = "kvx-estimate/1";
  document["name"] = estimate.name;
  document["part"] = {{"name", estimate.part},
                      {"architecture", estimate.architecture},
                      {"family", estimate.family},
                      {"process", estimate.process},
                      {"characterization", textOrNull(estimate.characterization)}};
  document["power_w"] = {{"total", static_cast<float>(estimate.totalWatts())},
                         {"dynamic", static_cast<float>(estimate.dynamicWatts())},
                         {"static", static_cast<float>(estimate.staticWatts())},
                         {"board", orNull(estimate.boardWatts())},
                         {"off_chip", estimate.offChipWatts}};
  document["thermal"] = thermal(estimate);
  document["budget"] = estimate.budget ? Json{{"limit_w", static_cast<float>(*estimate.budget)},
                                              {"met", !estimate.isBudgetBroken()}}
                                       : Json(nullptr);
  document["blocks"] = list(estimate.blocks, block);
  document["components"] = list(estimate.components, component);
  document["rails"] = list(estimate.rails, rail);
  document["consolidation"] = textOrNull(estimate.consolidation);
  document["supplies"] = list(estimate.supplies, supply);
  document["resources"] = list(estimate.resources, resource);
  document["messages"] = list(estimate.messages, message);
  return toText(document);
}

}  // namespace kvx
