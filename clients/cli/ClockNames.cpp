#include "clients/cli/ClockNames.h"

#include <algorithm>

#include "clients/cli/BookSpelling.h"
#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/workbook/KVXECell.h"

namespace kvx {

bool ClockNames::isClockColumn(const KVXETable& table, unsigned int column) {
  return columnCell(table, column)->getFormula() == &KVXEClockTab::updateClockDropdown;
}

bool ClockNames::isNameColumn(const KVXETable& table, unsigned int column) {
  return table.getTableTitle() == &KVXEClockTab::m_ClockConfigTable &&
         column == table.findTitle(&KVXEClockTab::m_Name);
}

bool ClockNames::declare(const std::string& name) {
  return m_tags.try_emplace(name).second;
}

void ClockNames::readTags(KVXEBook& book) {
  auto* tab = dynamic_cast<KVXEClockTab*>(book.getTab(KVXEEnums::TabType::CLOCK));
  std::vector<std::string> tags;
  if (tab) tab->getClockdropdown(tags);
  for (const std::string& tag : tags)
    if (const auto parsed = kvxe::ClockTag::parse(tag)) m_tags[std::string(parsed->name)].push_back(tag);
}

std::optional<std::string> ClockNames::tagOf(const std::string& name) const {
  if (const auto parsed = kvxe::ClockTag::parse(name)) {
    const auto clock = m_tags.find(std::string(parsed->name));
    if (clock != m_tags.end() && std::ranges::find(clock->second, name) != clock->second.end()) return name;
  }
  const auto clock = m_tags.find(name);
  return clock != m_tags.end() && clock->second.size() == 1 ? std::optional(clock->second.front())
                                                            : std::nullopt;
}

bool ClockNames::isAmbiguous(const std::string& name) const {
  const auto clock = m_tags.find(name);
  return clock != m_tags.end() && clock->second.size() > 1;
}

std::optional<std::string> ClockNames::nameIn(const std::string& tag) {
  const auto parsed = kvxe::ClockTag::parse(tag);
  return parsed ? std::optional(std::string(parsed->name)) : std::nullopt;
}

std::vector<std::string> ClockNames::names() const {
  std::vector<std::string> names;
  for (const auto& [name, tags] : m_tags) names.push_back(name);
  return names;
}

}  // namespace kvx
