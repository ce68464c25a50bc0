#include "clients/cli/DesignDifference.h"

#include <map>

#include "clients/cli/EnvironmentTable.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvx {

namespace {

/// Named values in groups, in the order in which they were added.
class NamedValues {
 public:
  void add(const std::string& group, const std::string& name, const std::string& value) {
    // Blocks, like rows, may share a name.
    std::string unique = name;
    for (int number = 2; m_values.contains({group, unique}); ++number)
      unique = name + " (" + std::to_string(number) + ")";
    m_values.emplace(std::pair{group, unique}, value);
    m_order.emplace_back(group, unique);
  }

  std::vector<Difference> compare(const NamedValues& other) const {
    std::vector<Difference> differences;
    for (const Key& key : merge(other)) {
      const auto a = find(key);
      const auto b = other.find(key);
      if (a != b) differences.push_back({key.first, key.second, a, b});
    }
    return differences;
  }

 private:
  using Key = std::pair<std::string, std::string>;

  std::optional<std::string> find(const Key& key) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
  }

  /// All keys in the order of this; those of the other alone stand behind what is in front of them there.
  std::vector<Key> merge(const NamedValues& other) const {
    std::map<Key, std::vector<Key>> followers;
    Key last;
    for (const Key& key : other.m_order) {
      if (m_values.contains(key))
        last = key;
      else
        followers[last].push_back(key);
    }
    std::vector<Key> keys = followers[Key()];
    for (const Key& key : m_order) {
      keys.push_back(key);
      if (const auto found = followers.find(key); found != followers.end())
        keys.insert(keys.end(), found->second.begin(), found->second.end());
    }
    return keys;
  }

  std::map<Key, std::string> m_values;
  std::vector<Key> m_order;
};

std::string show(const SheetValue& value) {
  const auto* number = std::get_if<double>(&value);
  if (number) return KVXMHelperUtils::ToString(static_cast<float>(*number));
  const auto* text = std::get_if<std::string>(&value);
  return text && !text->empty() ? *text : describeValue(value);
}

/// Rows of the same name are told apart by their order.
std::string rowGroup(const TableEntry& table, const RowEntry& row, std::map<std::string, int>& counts) {
  const std::string path = table.isMain ? table.tab : table.tab + "." + table.table;
  const int count = ++counts[row.name];
  return path + ": " + row.name + (count > 1 ? " (" + std::to_string(count) + ")" : "");
}

NamedValues settingsOf(const Snapshot& snapshot) {
  NamedValues values;
  values.add("", "part", snapshot.entries.part);
  values.add("", "process", snapshot.entries.process);
  for (const TableEntry& table : snapshot.entries.tables) {
    std::map<std::string, int> counts;
    for (const RowEntry& row : table.rows) {
      const std::string group = rowGroup(table, row, counts);
      for (const CellEntry& cell : row.cells) {
        const bool isSetting = cell.column == table.environmentColumn && row.key;
        values.add(isSetting ? "environment" : group,
                   isSetting ? EnvironmentTable::keyOf(row.key->text) : cell.column, show(cell.value));
      }
    }
  }
  for (const IpConfiguration& ip : snapshot.entries.ipConfigurations)
    for (const auto& [name, value] : ip.properties) values.add("ip_configuration: " + ip.uid, name, value);
  return values;
}

// Results.

std::string show(double number, unsigned int decimals, const char* unit) {
  return KVXMHelperUtils::formatFixed(number, decimals) + " " + unit;
}

std::string show(float number, unsigned int decimals, const char* unit) {
  return show(static_cast<double>(number), decimals, unit);
}

void addSummary(const Estimate& estimate, NamedValues& values) {
  const std::string group = "Summary";
  if (const auto board = estimate.boardWatts()) values.add(group, "Total board power", show(*board, 3, "W"));
  values.add(group, "Total on-chip power", show(estimate.totalWatts(), 3, "W"));
  values.add(group, "Dynamic", show(estimate.dynamicWatts(), 3, "W"));
  values.add(group, "Static", show(estimate.staticWatts(), 3, "W"));
  values.add(group, "Off-chip power", show(estimate.offChipWatts, 3, "W"));
  values.add(group, "Junction temperature", show(estimate.junction, 1, "C"));
  values.add(group, "Thermal margin", show(estimate.marginDegrees, 1, "C"));
  if (estimate.marginWatts) values.add(group, "Thermal margin, power", show(*estimate.marginWatts, 3, "W"));
}

NamedValues resultsOf(const Estimate& estimate) {
  NamedValues values;
  addSummary(estimate, values);
  for (const Estimate::Block& block : estimate.blocks)
    values.add(block.isStatic ? "Static power" : "Dynamic power", block.name, show(block.watts, 3, "W"));
  for (const Estimate::Component& component : estimate.components)
    values.add("Board", component.name, show(component.watts, 3, "W"));
  for (const Estimate::Rail& rail : estimate.rails) {
    values.add("Rail current", rail.name, show(rail.amperes, 3, "A"));
    values.add("Rail voltage", rail.name, show(rail.volts, 3, "V"));
  }
  for (const Estimate::Supply& supply : estimate.supplies)
    if (supply.marginAmperes) values.add("Supply margin", supply.group, show(*supply.marginAmperes, 3, "A"));
  for (const Estimate::Resource& resource : estimate.resources)
    values.add("Utilization", resource.tab + " " + resource.name,
               KVXMHelperUtils::ToString(static_cast<float>(resource.used)) + " of " +
                   KVXMHelperUtils::ToString(static_cast<float>(resource.available)));
  for (const Estimate::Message& message : estimate.messages)
    values.add(message.severity == KvxSeverity::ERROR ? "Errors" : "Warnings",
               message.tab + " " + message.table + (message.row.empty() ? "" : " " + message.row),
               message.text);
  return values;
}

}  // namespace

DesignDifference compareDesigns(const Snapshot& a, const Snapshot& b) {
  return {settingsOf(a).compare(settingsOf(b)), resultsOf(a.estimate).compare(resultsOf(b.estimate))};
}

}  // namespace kvx
