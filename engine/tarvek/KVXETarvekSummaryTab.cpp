#include "engine/tarvek/KVXETarvekSummaryTab.h"

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/tarvek/KVXETarvekPowerDesignTab.h"
#include "models/tarvek/KVXMTarvekStatic.h"
#include "models/tarvek/KVXMTarvekStaticData.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using FloatEnum = KVXMTarvekStaticParams::FloatEnum;

namespace {

using Tab = KVXETarvekSummaryTab;

std::span<const KVXEFixedRow> summaryRows() {
  static const KVXEFixedRow rows[] = {
      {&Tab::m_onChipPowerStr, "Total On-Chip Power (APLX + HBM)", &Tab::updateTotalOnchipPower},
      {&Tab::m_aplxOnChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_staticOnChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_dynamicOnChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_junctionTempStr,
       "<html>The background is orange when the estimated junction temperature is outside of the valid range "
       "for the "
       "selected grade.\n\nEstimates are calculated up to the absolute maximum temperature after which point "
       "125+ is "
       "shown in red and the power and thermal estimates are no longer valid.<html>",
       &Tab::updateCalcJunctionTemp, KVXEEnums::Unit::TEMPERATURE_SHOW},
      {&Tab::m_thermalMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginC},
      {&Tab::m_thermalPowerMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginW},
      {&Tab::m_thermalPowerMarginWithExcursionStr, KVXEFixedRow::SameAsText,
       &Tab::updateThermalMarginWithExcursionW},
      {&Tab::m_characterizationStr, KVXEFixedRow::SameAsText, &Tab::updateCharacterizationLabel},
  };
  return rows;
}

const char* const rcxUsages[] = {
    "No RCX, or no RPs include NoC resources",
    "Classic SoC Boot mode",
    "RCX with 1 RP that includes NoC resources",
    "RCX with 2 or more RPs with NoC resources",
};

const char* const negativeExcursionMarginMsg =
    "<html>Thermal Margin is in excess of the maximum accepted range with temperature excursion for this "
    "device "
    "Grade.\n Thermal margin is negative when estimated junction temperature exceeds the maximum specified "
    "value with "
    "excursion.</html>";

}  // namespace

void KVXETarvekSummaryTab::init() {
  initSummaryMap();
  initDeviceSelectionTable();
  initSummaryTable(summaryRows());
  initEnvironmentTable();
  initHbmEnvironmentTable();
  initRcxTable();
  initOnchipStaticPowerTable();
  initOnchipDynamicPowerTable();
  initResourceTable();
  initPowerInfoTable();
  initUnitsTable();
}

void KVXETarvekSummaryTab::initRcxTable() {
  const KVXEColumn columns[] = {
      {.title = &m_rcxTypeColumn, .type = STRING},
      {.title = &m_rcxOptionColumn,
       .type = STRING,
       .isEditable = true,
       .text = rcxUsages[0],
       .isDropdown = true,
       .entries = rcxUsages},
  };
  KVXETable* table = createTable(&m_rcxTableHeader, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  table->setIsHeaderHidden(true);
  kvxe::addFixedRow(*table, m_rcxTypeColumn, m_rcxOptionColumn,
                    {.text = &m_rcxUsageStr, .toolTip = "RCX Usage.", .isEditable = true});
}

std::string KVXETarvekSummaryTab::partStatus(const std::string& part) const {
  return KVXMTarvekStaticData::getGlobal().getPartStatus(part, "STATUS");
}

std::unique_ptr<kvxm::Record> KVXETarvekSummaryTab::makeStaticParams() const {
  return std::make_unique<KVXMTarvekStaticParams>();
}

void KVXETarvekSummaryTab::calculateStatic(kvxm::Record& params) const {
  KVXMTarvekStaticModel::getGlobal().calculate(static_cast<KVXMTarvekStaticParams&>(params));
}

float KVXETarvekSummaryTab::staticScale(kvxm::Record& result) const {
  const auto& params = static_cast<KVXMTarvekStaticParams&>(result);
  return params[FloatEnum::DEVICE_SCALE] * params[FloatEnum::PROCESS_SCALE];
}

// Margin with excursion.

float KVXETarvekSummaryTab::excursionStaticPower(const KVXEUID& uid, float celsius) const {
  const auto result = calculateStaticAt(uid, celsius);
  const auto& params = static_cast<const KVXMTarvekStaticParams&>(*result);
  const float railPower =
      params[FloatEnum::VCCRAM_STATIC_CURRENT] * KVXEPowerDesignTab::getVoltage(uid, "VCCRAM") +
      params[FloatEnum::VCCINT_STATIC_CURRENT] * KVXEPowerDesignTab::getVoltage(uid, "VCCINT");
  return railPower + params[FloatEnum::PL_OTHER_STATIC_POWER] + params[FloatEnum::PS_PMC_STATIC_POWER] +
         params[FloatEnum::SYSTEM_STATIC_POWER] + params[FloatEnum::XCVR_STATIC_POWER];
}

/// In watts. Static power is that of the hottest junction, at which the margin is used up.
float KVXETarvekSummaryTab::excursionMargin(const KVXEUID& uid, float maxTemp) {
  const float thetaJa = getThetaJA(uid);
  if (isJunctionTempOverrideOn(uid)) {
    const float junction = getUserJunctionTemp(uid);
    return junction > 0.0f && thetaJa > 0.0f ? (maxTemp - junction) / thetaJa : 0.0f;
  }
  const float total = getPower(uid, m_totalKeyStr);
  const float ambient = getAmbientTemp(uid);
  if (thetaJa <= 0.0f || (maxTemp - (thetaJa * total + ambient)) / thetaJa + total < 0.0f) return 0.0f;
  const auto* tab = static_cast<const KVXETarvekSummaryTab*>(tabOf(uid));
  const float watts = getFpgaDynamicPower(uid) + tab->excursionStaticPower(uid, maxTemp);
  return (maxTemp - watts * thetaJa - ambient) / thetaJa;
}

void KVXETarvekSummaryTab::updateThermalMarginWithExcursionW(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_summaryTableHeader}, "Summary")) return;
  constexpr float DefaultExcursionTemp = 110.0f;
  const bool isSupported =
      dynamic_cast<KVXETarvekPowerDesignTab*>(uid.getBook()->getTab(TabType::POWER_DESIGN)) &&
      KVXEPowerDesignTab::isExcursionTempSupported(uid);
  setRowVisible(uid.getRow(), isSupported);
  if (!isSupported) {
    uid.getCell()->clearMsg();
    return uid.getCell()->setBlankAndMarkEngineClean();
  }
  const auto limit = readEntry(environmentCell(uid, m_maxJunctionTempWithExcursionStr, m_envValColumn));
  const float margin = excursionMargin(uid, limit.value_or(DefaultExcursionTemp));
  writeMargin(uid.getCell(), margin, wattsText(margin), negativeExcursionMarginMsg);
}
