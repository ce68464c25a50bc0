#include "engine/base/config/ClockConfig.h"

#include <cmath>

#include "engine/base/config/ClockMgrConfig.h"
#include "engine/base/config/ClockTag.h"

namespace kvxe {

std::string ClockConfig::constructClockTag(const std::string& name, float frequency) {
  const bool isClock = !name.empty() && std::isfinite(frequency) && frequency != kvxeBlank<float>;
  return isClock ? ClockTag::construct(name, frequency) : std::string();
}

bool ClockConfig::extractNameAndFreqFromTag(std::string& name, float& frequency, const std::string& tag) {
  const std::optional<ClockTag> parsed = ClockTag::parse(tag);
  if (!parsed) return false;
  const float megahertz = parsed->megahertz;
  name = std::string(parsed->name);  // last but for the number: `name` may be `tag`
  frequency = megahertz;
  return true;
}

std::string ClockConfig::extractNameFromTag(const std::string& tag) {
  const std::optional<ClockTag> parsed = ClockTag::parse(tag);
  return parsed ? std::string(parsed->name) : std::string();
}

float ClockConfig::extractFreqFromTag(const std::string& tag) {
  const std::optional<ClockTag> parsed = ClockTag::parse(tag);
  return parsed ? parsed->megahertz : 0.0f;
}

namespace detail {

std::vector<OutputClockConfig> StringConverter<std::vector<OutputClockConfig>>::convert(
    const std::string& text) {
  std::vector<OutputClockConfig> outputs;
  for (std::string& name : splitList(text))
    outputs.push_back({.clock = {.name = std::move(name)}, .isInUse = true});
  return outputs;
}

std::string StringConverter<std::vector<OutputClockConfig>>::toText(
    const std::vector<OutputClockConfig>& outputs) {
  std::vector<std::string> names;
  for (const OutputClockConfig& output : outputs)
    if (output.isInUse) names.push_back(output.clock.name);
  return joinList(names);
}

}  // namespace detail
}  // namespace kvxe
