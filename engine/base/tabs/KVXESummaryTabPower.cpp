// The rows of the summary table, and the power and temperature that others read of it.

#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"

using KVXEEnums::TabType;
using KVXEEnums::Unit;

namespace {

using PowerDesign = KVXEPowerDesignTab;

}  // namespace

// Readers.

namespace {

enum class Share { Static, Dynamic };

/// Power of a table that lists static and dynamic power in one: a row is static when its text says so.
float sumMarkedRows(const KVXETable& table, Share share) {
  double sum = 0.0;
  for (unsigned int i = 1; i < table.getRowCount(); ++i) {
    std::string text;
    table.getCellAt(i, &KVXESummaryTab::m_onchipResourceColumn)->getVal(text, true);
    if ((text.find("Static") != std::string::npos) != (share == Share::Static)) continue;
    float watts = 0.0f;
    if (table.getCellAt(i, &KVXESummaryTab::m_onchipPowerColumn)->getVal(watts, true)) sum += watts;
  }
  return static_cast<float>(sum);
}

std::optional<float> onchipPower(KVXETab* tab, Share share) {
  if (!tab) return std::nullopt;
  const KVXETitle* own = share == Share::Static ? &KVXESummaryTab::m_onchipStaticTableHeader
                                                : &KVXESummaryTab::m_onchipDynamicTableHeader;
  if (tab->getTable(own)) return tab->sumColumn(own, &KVXESummaryTab::m_onchipPowerColumn);
  if (const KVXETable* table = tab->getTable(&KVXESummaryTab::m_onchipTableHeader))
    return sumMarkedRows(*table, share);
  return std::nullopt;
}

float orReport(std::optional<float> watts, const char* reader) {
  if (!watts) std::cout << "Error: error occured in KVXESummaryTab::" << reader << "." << '\n';
  return watts.value_or(0.0f);
}

}  // namespace

float KVXESummaryTab::getFpgaStaticPower(const KVXEUID& uid) {
  return orReport(onchipPower(tabOf(uid), Share::Static), "getFpgaStaticPower");
}

float KVXESummaryTab::getFpgaDynamicPower(const KVXEUID& uid) {
  return orReport(onchipPower(tabOf(uid), Share::Dynamic), "getFpgaDynamicPower");
}

float KVXESummaryTab::getFpgaTotalPower(const KVXEUID& uid) {
  std::optional<float> total = onchipPower(tabOf(uid), Share::Static);
  if (const auto dynamic = onchipPower(tabOf(uid), Share::Dynamic); total && dynamic) *total += *dynamic;
  return orReport(total, "getFpgaTotalPower");
}

float KVXESummaryTab::getPower(const KVXEUID& uid, const std::string& key) {
  KVXEBook* book = uid.getBook();
  return readEntry(book ? book->lookup<std::string>(TabType::SUMMARY, &m_StoreInfoTable, key, &m_KeyCol,
                                                    &m_ValueCol, false)
                        : nullptr)
      .value_or(0.0f);
}

float KVXESummaryTab::getMaxAmbientTemp(const KVXEUID& uid) {
  KVXEBook* book = uid.getBook();
  return readEntry(book ? book->lookup<std::string>(
                              TabType::POWER_DESIGN, &PowerDesign::m_debugJunctionTempTable,
                              PowerDesign::m_maxAmbientTempStr, &PowerDesign::m_debugTempOptionColumn,
                              &PowerDesign::m_debugTempValueColumn, false)
                        : nullptr)
      .value_or(0.0f);
}

float KVXESummaryTab::getCalculatedJunctionTemp(const KVXEUID& uid) {
  const float celsius = PowerDesign::getCalculatedJunctionTemp(uid);
  return celsius == 0.0f ? getDefaultJunctionTemp() : celsius;
}

float KVXESummaryTab::getThermalMarginC(const KVXEUID& uid) {
  return getMaxJunctionTemp(uid) - getCalculatedJunctionTemp(uid);
}

bool KVXESummaryTab::hasHbm() {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return selection && (selection->isArkeonHbm() || selection->isResourceAvailable("HBM"));
}

// Formulas.

namespace {

void describeTotal(KVXECell* option, bool hasHbm) {
  const KVXEMsg msg(KvxSeverity::INFO, hasHbm ? KVXESummaryTab::m_onChipPowerStr + " (APLX + HBM)"
                                              : KVXESummaryTab::m_onChipPowerStr);
  if (!option->getMsg() || !(*option->getMsg() == msg))
    option->setMsg(msg.getSeverity(), msg.getDisplayText());
}

}  // namespace

void KVXESummaryTab::updateTotalOnchipPower(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  const std::string option = textInRow(uid, m_summaryOptionColumn);
  const bool isWithHbm = hasHbm();
  float watts = 0.0f;
  if (option == m_staticOnChipPowerStr) {
    watts = getFpgaStaticPower(uid);
  } else if (option == m_dynamicOnChipPowerStr) {
    watts = getFpgaDynamicPower(uid);
  } else {
    watts = getFpgaTotalPower(uid);
  }
  if (option == m_onChipPowerStr) {
    if (isWithHbm) watts += getHbmPower(uid);
    describeTotal(uid.getRow()->getCell(&m_summaryOptionColumn), isWithHbm);
  }
  if (option == m_aplxOnChipPowerStr) setRowVisible(uid.getRow(), isWithHbm);
  uid.getCell()->setValAndMarkEngineClean(wattsText(watts));
  copyJunctionBackground(uid, uid.getCell());
}

namespace {

/// Whether temperatures are shown in degrees Celsius, in which they are kept.
bool showsCelsius(const KVXEUID& uid) {
  const KVXETable* units = uid.getBook()->getTable(TabType::SUMMARY, &KVXETab::m_UnitsTable);
  KVXECell* suffix =
      units ? units->getCellAt(static_cast<unsigned int>(Unit::TEMPERATURE_SHOW), &KVXETab::m_UnitsSuffix)
            : nullptr;
  std::string text;
  return !suffix || !suffix->getVal(text, true) || text == "C";
}

}  // namespace

/// A text is shown as it stands, whatever unit is chosen: it leaves the suffix to the unit only while both
/// agree.
void KVXESummaryTab::updateCalcJunctionTemp(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  KVXECell* cell = uid.getCell();
  JunctionCheck check;
  std::string text;
  if (isJunctionTempOverrideOn(uid)) {
    const float celsius = getUserJunctionTemp(uid);
    check = checkJunctionTemp(temperatureGrade(uid), celsius);
    text = KVXMHelperUtils::ToString(celsius);
  } else if (PowerDesign::getJunctionStatus(uid) != PowerDesign::JunctionStatus::Valid) {
    check.background = RedBackground;
    text = "125+";
  } else {
    const float celsius = getCalculatedJunctionTemp(uid);
    check = checkJunctionTemp(temperatureGrade(uid), celsius);
    text = KVXMHelperUtils::ToString(KVXMHelperUtils::ROUND(celsius, 3));
  }
  const bool isUnitTrue = showsCelsius(uid);
  cell->setUnit(isUnitTrue ? Unit::TEMPERATURE_SHOW : Unit::NO_UNIT);
  cell->updateUnitInfo(uid);
  cell->setValAndMarkEngineClean(isUnitTrue ? text : text + " C");
  cell->setBackgroundColor(check.background == KVXECell::White ? KVXECell::ReadOnlyBackground
                                                               : check.background);
}

void KVXESummaryTab::writeMargin(KVXECell* cell, float margin, const std::string& text, const char* message) {
  cell->setValAndMarkEngineClean(text);
  if (margin < 0.0f) return cell->setMsg(KvxSeverity::INFO, message);
  cell->clearMsg();
}

void KVXESummaryTab::updateThermalMarginC(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  const float margin = getThermalMarginC(uid);
  writeMargin(uid.getCell(), margin, KVXMHelperUtils::formatFixed(margin, 0) + " C", m_negativeMarginMsg);
  copyJunctionBackground(uid, uid.getCell());
}

/// With a forced junction temperature, the power that heats from there to the maximum. Otherwise the power by
/// which the environment might be hotter, as long as the device settles at all.
void KVXESummaryTab::updateThermalMarginW(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  const float thetaJa = getThetaJA(uid);
  float margin = 0.0f;
  if (isJunctionTempOverrideOn(uid)) {
    const float junction = getUserJunctionTemp(uid);
    if (junction > 0.0f && thetaJa > 0.0f) margin = (getMaxJunctionTemp(uid) - junction) / thetaJa;
  } else if (thetaJa > 0.0f && getThermalMarginC(uid) / thetaJa + getPower(uid, m_totalKeyStr) >= 0.0f) {
    margin = (getMaxAmbientTemp(uid) - getAmbientTemp(uid)) / thetaJa;
  }
  writeMargin(uid.getCell(), margin, margin == 0.0f ? "0" : wattsText(margin), m_negativeMarginMsg);
}

namespace {

struct StatusLabel {
  std::string_view status;
  const char* text;
};
constexpr StatusLabel statusLabels[] = {
    {"PRODUCTION", "Production (+/- 15% accuracy)"},
    {"PRELIMINARY", "Preliminary (+/- 20% accuracy)"},
    {"PREVIEW", "Preview (+/- 30% accuracy)"},
};
const char* const otherStatusLabel = "Advance (+/- 25% accuracy)";
const std::string genericPartMarker = "-X-X-X-X-X";

}  // namespace

void KVXESummaryTab::updateCharacterizationLabel(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const KVXESummaryTab* tab = tabOf(uid);
  std::string part = selection ? selection->getSelectedDeviceName() : std::string();
  if (const size_t marker = part.find(genericPartMarker); marker != std::string::npos) part.resize(marker);
  const std::string status = tab && !part.empty() ? tab->partStatus(part) : std::string();
  std::string label = otherStatusLabel;
  for (const StatusLabel& known : statusLabels)
    if (status == known.status) label = known.text;
  uid.getCell()->setValAndMarkEngineClean(label);
}
