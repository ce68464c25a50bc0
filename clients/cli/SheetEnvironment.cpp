// The [environment] of a sheet: the rows of the summary's environment table, addressed by their texts.

#include <algorithm>

#include "clients/cli/BookSpelling.h"
#include "clients/cli/SheetBinder.h"
#include "clients/cli/Spelling.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"

namespace kvx {

namespace {

constexpr const char* JunctionKey = "junction_temperature";
constexpr const char* AmbientKey = "ambient_temperature";
constexpr const char* ThetaKey = "effective_theta_ja";

/// The environment table of a book.
struct EnvironmentTable {
  KVXETable* table = nullptr;
  unsigned int type = 0, choice = 0, value = 0;  // columns

  static std::optional<EnvironmentTable> find(const KVXEBook& book) {
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

  unsigned int row(std::string_view key) const { return findRow(*table, type, key); }
  KVXECell* cell(unsigned int row, unsigned int column) const { return table->getCellAt(row, column); }

  /// Chooses whether the junction temperature is the user's or calculated, by the entry that ends so.
  void chooseOverride(const std::string& ending) const {
    KVXECell* choiceCell = cell(row(JunctionKey), choice);
    std::vector<std::string> entries;
    if (choiceCell) choiceCell->getDDVals(entries);
    for (const std::string& entry : entries)
      if (entry.ends_with(ending)) writeAsUser(*choiceCell, entry);
  }

  /// The rows' keys as a sheet writes them.
  std::vector<std::string> keys() const {
    std::vector<std::string> keys = columnTexts(*table, type);
    for (std::string& key : keys) {
      std::erase_if(key, [](char c) { return c == '.'; });
      std::replace(key.begin(), key.end(), ' ', '_');
      std::transform(key.begin(), key.end(), key.begin(),
                     [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    }
    return keys;
  }
};

const Assignment* findKey(const std::vector<Assignment>& assignments, const char* key) {
  const auto found = std::find_if(assignments.begin(), assignments.end(),
                                  [key](const Assignment& each) { return isSameSpelling(each.key, key); });
  return found == assignments.end() ? nullptr : &*found;
}

}  // namespace

void SheetBinder::bindEnvironment(const Sheet& sheet, float startThetaJa) {
  const auto& assignments = sheet.environment;
  if (assignments.empty()) return;
  const auto environment = EnvironmentTable::find(m_book);
  if (!environment)
    return fail(assignments.front().place, "the workbook of this device has no environment",
                "remove [environment]");
  const Assignment* junction = findKey(assignments, JunctionKey);
  const Assignment* theta = findKey(assignments, ThetaKey);
  if (junction && theta)
    return fail(std::max(junction, theta)->place,
                "the junction temperature cannot be both given and calculated from the thermal resistance",
                std::string("keep one of ") + JunctionKey + " and " + ThetaKey);
  if (junction)
    environment->chooseOverride(" ON");
  else if (theta || findKey(assignments, AmbientKey))
    environment->chooseOverride(" OFF");
  for (const Assignment& assignment : assignments) {
    const unsigned int row = environment->row(assignment.key);
    if (row == 0) {
      fail(assignment.place, "the environment has no " + inQuotes(assignment.key),
           adviseName(assignment.key, environment->keys()));
    } else {
      write(*environment->cell(row, environment->value), assignment, false);
    }
  }
  const bool needsTheta = !junction && !theta && findKey(assignments, AmbientKey);
  const unsigned int thetaRow = needsTheta ? environment->row(ThetaKey) : 0;
  if (thetaRow > 0) writeAsUser(*environment->cell(thetaRow, environment->value), startThetaJa);
}

}  // namespace kvx
