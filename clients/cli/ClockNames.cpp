#include "clients/cli/ClockNames.h"

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
  return m_tags.emplace(name, "").second;
}

void ClockNames::readTags(KVXEBook& book) {
  auto* tab = dynamic_cast<KVXEClockTab*>(book.getTab(KVXEEnums::TabType::CLOCK));
  std::vector<std::string> tags;
  if (tab) tab->getClockdropdown(tags);
  for (const std::string& tag : tags)
    if (const auto parsed = kvxe::ClockTag::parse(tag)) m_tags[std::string(parsed->name)] = tag;
}

std::optional<std::string> ClockNames::tagOf(const std::string& name) const {
  const auto find = [this](const std::string& clock) {
    const auto found = m_tags.find(clock);
    return found == m_tags.end() || found->second.empty() ? std::nullopt : std::optional(found->second);
  };
  if (const auto tag = find(name)) return tag;
  const auto parsed = kvxe::ClockTag::parse(name);
  const auto tag = parsed ? find(std::string(parsed->name)) : std::nullopt;
  return tag == name ? tag : std::nullopt;
}

std::vector<std::string> ClockNames::names() const {
  std::vector<std::string> names;
  for (const auto& [name, tag] : m_tags) names.push_back(name);
  return names;
}

}  // namespace kvx
