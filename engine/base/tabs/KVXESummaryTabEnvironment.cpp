// The thermal environment: what the user enters, and the limits that entries are held against.

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"

namespace {

const char* const environmentName = "Environment";

/// The limits that a letter of the temperature grade sets. Beyond the absolute maximum nothing is estimated.
struct GradeLimits {
  char letter;
  char unless;  ///< a letter that takes precedence; 0 for none
  float lowest;
  float highest;
};
constexpr float AbsoluteMaxTemp = KVXEPowerDesignTab::AbsoluteMaxJunctionTemp;
constexpr GradeLimits gradeLimits[] = {
    {'I', 0, -40.0f, 100.0f},          {'E', 'I', 0.0f, 100.0f},          {'C', 0, 0.0f, 85.0f},
    {'M', 0, -55.0f, AbsoluteMaxTemp}, {'Q', 0, -40.0f, AbsoluteMaxTemp},
};

const char* const outsideGradeMsg =
    "<html>User-entered junction temperature is outside of the valid range for the selected grade.<html>";
const char* const aboveMaximumMsg =
    "<html>User-entered junction temperature exceeds the maximum absolute temperature of 125 C.<html>";
const char* const overBudgetMsg =
    "<html>Total On-Chip Power exceeds the User-Entered Power Budget.\n Enter a new value.</html>";

bool contains(const std::string& text, char letter) {
  return letter != 0 && text.find(letter) != std::string::npos;
}

/// The lower limit is negative and stands behind a minus sign of the text's own: what is printed has both.
std::string ambientMsg() {
  using Tab = KVXESummaryTab;
  return "Ambient temperatures below -" + KVXMHelperUtils::formatFixed(Tab::getDefaultMinAmbientTemp(), 0) +
         "C or above " + KVXMHelperUtils::formatFixed(Tab::getDefaultMaxAmbientTemp(), 0) +
         "C are not allowed.";
}

}  // namespace

// Readers.

float KVXESummaryTab::getAmbientTemp(const KVXEUID& uid) {
  return readEntry(environmentCell(uid, m_AmbientTempStr, m_envValColumn)).value_or(getDefaultAmbientTemp());
}

float KVXESummaryTab::getMaxJunctionTemp(const KVXEUID& uid) {
  return readEntry(environmentCell(uid, m_maxJunctionTempStr, m_envValColumn)).value_or(0.0f);
}

float KVXESummaryTab::getUserJunctionTemp(const KVXEUID& uid) {
  return readEntry(environmentCell(uid, m_junctionTempStr, m_envValColumn))
      .value_or(getDefaultJunctionTemp());
}

float KVXESummaryTab::getThetaJA(const KVXEUID& uid) {
  return readEntry(environmentCell(uid, m_thetaJaStr, m_envValColumn)).value_or(getDefaultThetaJa());
}

bool KVXESummaryTab::isJunctionTempOverrideOn(const KVXEUID& uid) {
  KVXECell* cell = environmentCell(uid, m_junctionTempStr, m_envTempColumn);
  std::string choice;
  return cell && cell->getVal(choice, true) && choice == m_userOverrideOnStr;
}

// Formulas.

KVXESummaryTab::JunctionCheck KVXESummaryTab::checkJunctionTemp(const std::string& grade, float celsius) {
  JunctionCheck check;
  for (const GradeLimits& limits : gradeLimits) {
    if (!contains(grade, limits.letter) || contains(grade, limits.unless)) continue;
    if (celsius > AbsoluteMaxTemp) {
      check = {RedBackground, aboveMaximumMsg};
    } else if (celsius < limits.lowest || celsius > limits.highest) {
      check = {OrangeBackground, outsideGradeMsg};
    }
  }
  return check;
}

bool KVXESummaryTab::updateOverride(const KVXEUID& uid, KVXECell* (*seed)(const KVXEUID&)) {
  KVXECell* cell = uid.getCell();
  cell->clearMsg();
  if (textInRow(uid, m_envTempColumn) == m_userOverrideOffStr) {
    cell->setIsEditable(false);
    cell->setBlankAndMarkEngineClean();
    return false;
  }
  cell->setIsEditable(true);
  if (float kept = 0.0f; cell->getVal(kept, false) && kept != OldBlankTemp) {
    cell->markEngineClean();
    return true;
  }
  // Where the estimate stood before the override: its cell must not be evaluated, since it follows this one.
  KVXECell* estimate = seed(uid);
  float celsius = 0.0f;
  const bool isKnown = estimate && estimate->getVal(celsius, false);
  cell->setValAndMarkEngineClean(isKnown ? celsius : getDefaultJunctionTemp());
  cell->setValueSource(KVXEEnums::ValueSource::USER);  // an entry from now on, which a saved project keeps
  return true;
}

void KVXESummaryTab::updateJunctionTemp(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  const bool isOn = updateOverride(uid, [](const KVXEUID& u) { return summaryCell(u, m_junctionTempStr); });
  float celsius = 0.0f;
  if (!isOn || !uid.getCell()->getVal(celsius, false)) return;
  const JunctionCheck check = checkJunctionTemp(temperatureGrade(uid), celsius);
  uid.getCell()->setBackgroundColor(check.background);
  if (*check.message) uid.getCell()->setMsg(KvxSeverity::INFO, check.message);
}

void KVXESummaryTab::updateAmbientTemp(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  KVXECell* cell = uid.getCell();
  float celsius = 0.0f;
  const bool isOutside = cell->getVal(celsius, false) &&
                         (celsius < getDefaultMinAmbientTemp() || celsius > getDefaultMaxAmbientTemp());
  cell->markEngineClean();
  if (isOutside) return cell->setMsg(KvxSeverity::ERROR, ambientMsg());
  cell->clearMsg();
}

void KVXESummaryTab::updateThetaJa(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  KVXECell* choice = environmentCell(uid, m_junctionTempStr, m_envTempColumn);
  std::string text;
  const bool counts = choice && choice->getVal(text, true) && text == m_userOverrideOffStr;
  uid.getCell()->setIsEditable(counts);
  if (counts) return uid.getCell()->markEngineClean();
  uid.getCell()->setValAndMarkEngineClean(0.0f);
}

void KVXESummaryTab::updateMaxJunctionTemp(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const std::string grade = selection ? selection->getTempGrade() : std::string();
  float celsius = getDefaultMaxJunctionTemp();
  if (contains(grade, 'C')) {
    celsius = 85.0f;
  } else if (contains(grade, 'M') || contains(grade, 'Q')) {
    celsius = 125.0f;
  }
  uid.getCell()->setValAndMarkEngineClean(celsius);
}

void KVXESummaryTab::updateMaxJunctionTempWithExcursion(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  constexpr float ExcursionTemp = 110.0f;
  const bool isSupported = KVXEPowerDesignTab::isExcursionTempSupported(uid);
  setRowVisible(uid.getRow(), isSupported);
  if (isSupported) return uid.getCell()->setValAndMarkEngineClean(ExcursionTemp);
  uid.getCell()->setBlankAndMarkEngineClean();
}

void KVXESummaryTab::updatePowerBudget(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_envTableHeader}, environmentName)) return;
  KVXECell* cell = uid.getCell();
  KVXECell* total = summaryCell(uid, m_onChipPowerStr);
  float watts = 0.0f;
  const bool hasTotal = total && total->getVal(watts, true);
  std::string budget;
  const bool isExceeded =
      cell->getVal(budget, false) && hasTotal && watts > KVXMHelperUtils::s2fStrict(budget);
  cell->markEngineClean();
  if (isExceeded) return cell->setMsg(KvxSeverity::ERROR, overBudgetMsg);
  cell->clearMsg();
}
