#include "clients/cli/EnvironmentTable.h"

#include "clients/cli/BookSpelling.h"
#include "clients/cli/CellValue.h"
#include "engine/base/workbook/KVXECell.h"

namespace kvx {

std::string EnvironmentTable::keyOf(const std::string& text) {
  std::string key;
  for (const char c : text) {
    if (c == '.') continue;
    if (c == ' ')
      key += '_';
    else
      key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return key;
}

std::optional<EnvironmentTable> EnvironmentTable::find(const KVXEBook& book) {
  const KVXETab* summary = book.getTab(KVXEEnums::TabType::SUMMARY);
  EnvironmentTable found;
  found.table = summary ? findTable(*summary, "environment") : nullptr;
  if (!found.table) return std::nullopt;
  const auto type = findColumn(*found.table, "env_type");
  const auto choice = findColumn(*found.table, "env_temp");
  const auto value = findColumn(*found.table, "env_val");
  if (!type || !choice || !value) return std::nullopt;
  found.type = *type;
  found.choice = *choice;
  found.value = *value;
  return found;
}

unsigned int EnvironmentTable::row(std::string_view key) const {
  return findRow(*table, type, key);
}

std::vector<std::string> EnvironmentTable::keys() const {
  std::vector<std::string> keys = columnTexts(*table, type);
  for (std::string& key : keys) key = keyOf(key);
  return keys;
}

KVXECell* EnvironmentTable::cell(unsigned int row, unsigned int column) const {
  return table->getCellAt(row, column);
}

void EnvironmentTable::chooseOverride(std::string_view ending) const {
  KVXECell* choiceCell = cell(row(JunctionKey), choice);
  std::vector<std::string> entries;
  if (choiceCell) choiceCell->getDDVals(entries);
  for (const std::string& entry : entries)
    if (entry.ends_with(ending) && !holds(*choiceCell, entry)) writeAsUser(*choiceCell, entry);
}

}  // namespace kvx
