#include "engine/base/selection/ArchitectureDescription.h"

#include <algorithm>

namespace kvxe {
namespace {

bool agrees(const PartCodes& part, const PartCodes& pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (!pattern[i].empty() && (i >= part.size() || part[i] != pattern[i])) return false;
  }
  return true;
}

}  // namespace

std::vector<std::string> distinctCodes(const std::vector<PartCodes>& parts, const PartCodes& pattern,
                                       std::size_t column) {
  std::vector<std::string> codes;
  for (const PartCodes& part : parts) {
    if (column >= part.size() || !agrees(part, pattern)) continue;
    if (std::find(codes.begin(), codes.end(), part[column]) == codes.end()) codes.push_back(part[column]);
  }
  return codes;
}

std::size_t ArchitectureDescription::columnOf(std::string_view settingName) const {
  const auto found =
      std::find_if(cascade.begin(), cascade.end(),
                   [settingName](const CascadeSetting& setting) { return *setting.name == settingName; });
  return static_cast<std::size_t>(found - cascade.begin());
}

std::size_t ArchitectureDescription::columnOf(std::string kvxm::Part::*field) const {
  const auto found = std::find_if(cascade.begin(), cascade.end(),
                                  [field](const CascadeSetting& setting) { return setting.field == field; });
  return static_cast<std::size_t>(found - cascade.begin());
}

const GradeTable& ArchitectureDescription::gradesAt(std::size_t column) const {
  return column < cascade.size() ? *cascade[column].grades : plainCodes;
}

}  // namespace kvxe
