#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kvxm {
struct Device;
struct Supply;
}  // namespace kvxm

namespace kvxe {

/// The rails of a part by the physical supply that feeds them: each rail is in exactly one group. The rails
/// of a group have one nominal voltage; a rail that shares with no other is a group of its own.
class RailGroups {
 public:
  struct Group {
    std::string name;  ///< the rule's for rails that share, else the rail's as the data sheet has it
    float nominalVolts = 0.0f;
    std::vector<std::string> rails;     ///< by internal name, in catalogue order
    std::vector<std::string> supplies;  ///< the same rails as the data sheet names them

    bool isShared() const { return rails.size() > 1; }
  };
  /// The group that a rail may go to at its nominal voltage: blank for one of its own, nothing for a rail
  /// that is left out.
  using Rule = std::function<std::optional<std::string>(const kvxm::Supply& supply, float nominalVolts)>;

  RailGroups() = default;
  /// The groups of a part by device and supply grade (see kvxm::Part::supplyGrade).
  RailGroups(const kvxm::Device& device, const std::string& grade, const Rule& rule);

  const std::vector<Group>& all() const { return m_groups; }
  /// Null for a rail that is left out.
  const Group* groupOf(const std::string& rail) const;

 private:
  std::vector<Group> m_groups;
};

}  // namespace kvxe
