#include "engine/morlan/KVXEMorlanSummaryTab.h"

#include "models/common/StaticPower.h"
#include "models/morlan/KVXMMorlanPowerLabelData.h"
#include "models/morlan/KVXMMorlanStatic.h"

using enum KVXEEnums::TabType;
using Join = kvxe::OnchipSource::Join;

namespace {

using Tab = KVXEMorlanSummaryTab;

std::span<const KVXEFixedRow> summaryRows() {
  static const KVXEFixedRow rows[] = {
      {&Tab::m_onChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_staticOnChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_dynamicOnChipPowerStr, KVXEFixedRow::SameAsText, &Tab::updateTotalOnchipPower},
      {&Tab::m_junctionTempStr,
       "Predicated Junction Temperature based on the Thermal Settings and the current power estimation.",
       &Tab::updateCalcJunctionTemp, KVXEEnums::Unit::TEMPERATURE_SHOW},
      {&Tab::m_thermalMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginC},
      {&Tab::m_thermalPowerMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginW},
      {&Tab::m_characterizationStr, KVXEFixedRow::SameAsText, &Tab::updateCharacterizationLabel},
  };
  return rows;
}

}  // namespace

void KVXEMorlanSummaryTab::init() {
  initSummaryMap();
  initDeviceSelectionTable();
  initSummaryTable(summaryRows(), "Summary table of the Morlan ower estimation.");
  initEnvironmentTable({&m_maxJunctionTempWithExcursionStr});
  initHbmEnvironmentTable();
  initOnchipStaticPowerTable();
  initOnchipDynamicPowerTable();
  initResourceTable();
  initPowerInfoTable();
  initUnitsTable();
}

std::string KVXEMorlanSummaryTab::partStatus(const std::string& part) const {
  return KVXMMorlanPowerLabelData::getGlobal().getPowerLabelInfo(part);
}

std::unique_ptr<kvxm::Record> KVXEMorlanSummaryTab::makeStaticParams() const {
  return std::make_unique<KVXMMorlanStaticParams>();
}

void KVXEMorlanSummaryTab::calculateStatic(kvxm::Record& params) const {
  KVXMMorlanStaticModel::getGlobal().calculate(static_cast<KVXMMorlanStaticParams&>(params));
}

// Blocks.

std::span<const kvxe::OnchipCategory> KVXEMorlanSummaryTab::dynamicCategories() const {
  // text, resources of which it needs any
  static const kvxe::OnchipCategory categories[] = {
      {"PS", {{"LPD", {"PS"}}, {"FPD", {"PS"}}}},
      {"Programmable Logic", {{"Clocking"}, {"Logic "}, {"BRAM"}, {"WRAM", {"WRAM"}}, {"DSP"}, {"Other"}}},
      {"I/O", {{"IO"}}},
      {"Transceiver", {{"XCVRA", {"XCVRA"}}, {"XCVRB", {"XCVRB"}}, {"XCVRC", {"XCVRC"}}}},
      {"Hard IP", {{"PCIE", {"PCIE"}}, {"EAMAC", {"EAMAC"}}, {"VCU", {"VCU"}}}},
  };
  return categories;
}

std::span<const kvxe::OnchipSource> KVXEMorlanSummaryTab::dynamicSources() const {
  // row, tab, table, row of the table, its key column, its value column, how it joins the row's other sources
  static const kvxe::OnchipSource sources[] = {
      {"LPD", PS, "PS_STATE_SUMMARY", "Low Power Domain", "DOMAIN", "POWER"},
      {"FPD", PS, "PS_STATE_SUMMARY", "Full Power Domain", "DOMAIN", "POWER"},
      {"Clocking", CLOCK},
      {"Logic ", LOGIC},
      {"BRAM", BRAM},
      {"WRAM", WRAM},
      {"DSP", DSP},
      {"Other", OTHER},
      {"IO", IO},
      {"XCVRA", XCVRA},
      {"XCVRB", XCVRB},
      {"XCVRC", XCVRC},
      {"PCIE", PCIE},
      {"EAMAC", EAMAC},
      {"VCU", VCU},
      {"HBMMC", NOC_DDRMC, "UTILIZATION", "HBMMC", "TYPE", "POWER"},
      {.row = "HBMMC", .tab = HBM, .join = Join::Else},
  };
  return sources;
}

std::span<const kvxe::OnchipCategory> KVXEMorlanSummaryTab::staticCategories() const {
  static const kvxe::OnchipCategory categories[] = {
      {"Static", {{"PL"}, {"PS", {"PS"}}, {"XCVRs"}}},
      {"XCVRs", {{"XCVRA", {"XCVRA"}}, {"XCVRB", {"XCVRB"}}, {"XCVRC", {"XCVRC"}}}},
  };
  return categories;
}

std::span<const kvxe::OnchipStaticTerm> KVXEMorlanSummaryTab::staticTerms() const {
  using Key = kvxm::StaticKey;
  static const kvxe::OnchipStaticTerm terms[] = {
      {"PL", {{{Key::PL_STATIC_POWER}}}},       {"PS", {{{Key::PS_STATIC_POWER}}}},
      {"XCVRA", {{{Key::XCVRA_STATIC_POWER}}}}, {"XCVRB", {{{Key::XCVRB_STATIC_POWER}}}},
      {"XCVRC", {{{Key::XCVRC_STATIC_POWER}}}},
  };
  return terms;
}
