// The [environment] of a sheet: the rows of the summary's environment table, addressed by their texts.

#include <algorithm>

#include "clients/cli/EnvironmentTable.h"
#include "clients/cli/SheetBinder.h"
#include "clients/cli/Spelling.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"

namespace kvx {

namespace {

using Environment = EnvironmentTable;

const Assignment* findKey(const std::vector<Assignment>& assignments, const char* key) {
  const auto found = std::find_if(assignments.begin(), assignments.end(),
                                  [key](const Assignment& each) { return isSameSpelling(each.key, key); });
  return found == assignments.end() ? nullptr : &*found;
}

}  // namespace

void SheetBinder::bindEnvironment(const Sheet& sheet, float startThetaJa) {
  const auto& assignments = sheet.environment;
  if (assignments.empty()) return;
  const auto environment = Environment::find(m_book);
  if (!environment)
    return fail(assignments.front().place, "the workbook of this device has no environment",
                "remove [environment]");
  const Assignment* junction = findKey(assignments, Environment::JunctionKey);
  const Assignment* theta = findKey(assignments, Environment::ThetaKey);
  if (junction && theta)
    return fail(std::max(junction, theta)->place,
                "the junction temperature cannot be both given and calculated from the thermal resistance",
                std::string("keep one of ") + Environment::JunctionKey + " and " + Environment::ThetaKey);
  if (junction)
    environment->chooseOverride(Environment::Given);
  else if (theta || findKey(assignments, Environment::AmbientKey))
    environment->chooseOverride(Environment::Calculated);
  for (const Assignment& assignment : assignments) {
    const unsigned int row = environment->row(assignment.key);
    if (row == 0) {
      fail(assignment.place, "the environment has no " + inQuotes(assignment.key),
           adviseName(assignment.key, environment->keys()));
    } else {
      write(*environment->cell(row, environment->value), assignment, false);
    }
  }
  const bool needsTheta = !junction && !theta && findKey(assignments, Environment::AmbientKey);
  const unsigned int thetaRow = needsTheta ? environment->row(Environment::ThetaKey) : 0;
  if (thetaRow > 0) writeAsUser(*environment->cell(thetaRow, environment->value), startThetaJa);
}

}  // namespace kvx
