#include "engine/base/tabs/KVXEPowerRailGroups.h"

#include <algorithm>

#include "models/catalogue/DeviceCatalogue.h"

namespace kvxe {

RailGroups::RailGroups(const kvxm::Device& device, const std::string& grade, const Rule& rule) {
  for (const kvxm::Supply& supply : device.supplies) {
    const float nominal = supply.rangeFor(grade).nom;
    const auto name = rule(supply, nominal);
    if (!name) continue;
    auto group = name->empty() ? m_groups.end() : std::ranges::find(m_groups, *name, &Group::name);
    if (group == m_groups.end()) group = m_groups.insert(group, {*name, nominal, {}, {}});
    group->rails.push_back(supply.rail);
    group->supplies.push_back(supply.displayName);
  }
  for (Group& group : m_groups)
    if (!group.isShared()) group.name = group.supplies.front();
}

const RailGroups::Group* RailGroups::groupOf(const std::string& rail) const {
  for (const Group& group : m_groups)
    if (std::find(group.rails.begin(), group.rails.end(), rail) != group.rails.end()) return &group;
  return nullptr;
}

}  // namespace kvxe
