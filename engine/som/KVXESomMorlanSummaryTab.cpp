// The tables of the module's summary, and its totals.

#include "engine/som/KVXESomMorlanSummaryTab.h"

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/som/KVXESomForeignCell.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/common/StaticPower.h"

using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;

namespace {

using Tab = KVXESomMorlanSummaryTab;

std::span<const KVXEFixedRow> powerSummaryRows() {
  static const KVXEFixedRow rows[] = {
      {&Tab::m_somTotalPowerStr,
       "Total power of the {} board at the 5V input, detailed component power numbers given in the Thermal "
       "Loading "
       "Table",
       &Tab::updateSomTotalPower},
      {&Tab::m_somJunctionTempStr,
       "Predicated Junction Temperature based on the Thermal Settings and the current power estimation.",
       &Tab::updateCalcJunctionTemp, Unit::TEMPERATURE_SHOW},
      {&Tab::m_thermalMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginC},
      {&Tab::m_thermalPowerMarginStr, KVXEFixedRow::SameAsText, &Tab::updateThermalMarginW},
      {&Tab::m_characterizationStr, KVXEFixedRow::SameAsText, &Tab::updateSomCharacterizationLabel},
  };
  return rows;
}

KVXEFixedRow loadingRow(const std::string& text, KVXEFormula formula) {
  return {&text, "Power dissipated in {}, based on the current estimation", formula, Unit::POWER_SHOW};
}

std::span<const KVXEFixedRow> loadingRows() {
  static const KVXEFixedRow rows[] = {
      loadingRow(Tab::m_sm6Str, &Tab::updateSomFpgaPower),
      loadingRow(Tab::m_ddr4Str, &Tab::updateSomDdrPower),
      loadingRow(Tab::m_u170Str, &Tab::updateU170Power),
      loadingRow(Tab::m_u167Str, &Tab::updateU167Power),
      loadingRow(Tab::m_u166Str, &Tab::updateU166Power),
      loadingRow(Tab::m_u151Str, &Tab::updateU151Power),
      loadingRow(Tab::m_u165Str, &Tab::updateU165Power),
      loadingRow(Tab::m_pcbStr, &Tab::updatePcbPower),
      loadingRow(Tab::m_emmcStr, &Tab::updateSomEmmcPower),
  };
  return rows;
}

std::span<const KVXEFixedRow> loadingRowsSM4() {
  static const KVXEFixedRow rows[] = {
      loadingRow(Tab::m_sm4Str, &Tab::updateSomFpgaPowerSM4),
      loadingRow(Tab::m_lpddr4Str, &Tab::updateSomLpddrPower),
      loadingRow(Tab::m_u170Str, &Tab::updateU170PowerSM4),
      loadingRow(Tab::m_u167Str, &Tab::updateU167PowerSM4),
      loadingRow(Tab::m_pcbStr, &Tab::updatePcbPowerSM4),
      loadingRow(Tab::m_emmcStr, &Tab::updateSomEmmcPowerSM4),
  };
  return rows;
}

/// Whether the selected module is an SM4.
bool isSM4Selected() {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return selection && selection->getCurrentSetting(KVXEPartSelection::m_devStr).starts_with(Tab::m_sm4Str);
}

// A row of static power says so in its text.
const char* const staticHeading = "Static";
const char* const plStaticRow = "PL Static";
const char* const psStaticRow = "PS Static";
const char* const xcvrStaticRow = "XCVRs Static";

}  // namespace

void KVXESomMorlanSummaryTab::init() {
  initSummaryMap();
  initPowerSummaryTable();
  if (isSM4Selected()) {
    initThermalLoadingTableSM4();
  } else {
    initThermalLoadingTable();
  }
  initVCRequirementsTable();
  initIoInterfaceTable();
  initEnvironmentTable({&m_maxJunctionTempWithExcursionStr, &m_PowerBudgetStr});
  initOnchipPowerTable();
  initResourceTable();
  initPowerInfoTable(&updateSomPowerInfoTable);
  initUnitsTable();
}

void KVXESomMorlanSummaryTab::initPowerSummaryTable() {
  const KVXEColumn columns[] = {
      {.title = &m_PowerSummaryOption, .type = KVXEEnums::CellType::STRING},
      {.title = &m_PowerSummarySelection, .type = KVXEEnums::CellType::STRING},
  };
  KVXETable* table = createTable(&m_PowerSummaryTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  table->setIsHeaderHidden(true);
  table->setMsg(KvxSeverity::INFO, "Summary table of the " + productName() + " power estimation.");
  kvxe::addFixedRows(*table, m_PowerSummaryOption, m_PowerSummarySelection, powerSummaryRows(),
                     productName());
}

void KVXESomMorlanSummaryTab::initThermalLoadingTable() {
  fillThermalLoadingTable(m_ThermalLoadingTable, loadingRows());
}

void KVXESomMorlanSummaryTab::initThermalLoadingTableSM4() {
  fillThermalLoadingTable(m_ThermalLoadingTableSM4, loadingRowsSM4());
}

void KVXESomMorlanSummaryTab::fillThermalLoadingTable(const KVXETitle& title,
                                                      std::span<const KVXEFixedRow> rows) {
  const KVXEColumn columns[] = {
      {.title = &m_ThermalLoadingComponent, .type = KVXEEnums::CellType::STRING},
      {.title = &m_ThermalLoadingPower, .type = KVXEEnums::CellType::FLOAT, .unit = Unit::POWER_SHOW},
  };
  KVXETable* table = createTable(&title, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  for (const KVXEFixedRow& row : rows)
    kvxe::addFixedRow(*table, m_ThermalLoadingComponent, m_ThermalLoadingPower, row, *row.text);
}

std::string KVXESomMorlanSummaryTab::productName() const {
  return isSM4Selected() ? m_sm4Str : m_sm6Str;
}

KVXESummaryTab::SummaryPlace KVXESomMorlanSummaryTab::summaryPlace() const {
  return {&m_PowerSummaryTable, &m_PowerSummaryOption, &m_PowerSummarySelection, "Som Summary Table",
          &m_somJunctionTempStr};
}

bool KVXESomMorlanSummaryTab::isSM4(const KVXEUID& uid) {
  const KVXESummaryTab* tab = tabOf(uid);
  return tab && tab->getTable(&m_ThermalLoadingTableSM4);
}

// Totals.

float KVXESomMorlanSummaryTab::getSomTotalPower(const KVXEUID& uid) {
  KVXESummaryTab* tab = tabOf(uid);
  if (!tab) return 0.0f;
  const KVXETitle* loading = isSM4(uid) ? &m_ThermalLoadingTableSM4 : &m_ThermalLoadingTable;
  static constexpr kvxe::ForeignCell battery{TabType::PS, "PS_STATE_SUMMARY", "Battery Power Domain",
                                             "DOMAIN", "POWER"};
  return tab->sumColumn(loading, &m_ThermalLoadingPower) +
         readEntry(kvxe::findCell(*uid.getBook(), battery)).value_or(0.0f);
}

float KVXESomMorlanSummaryTab::getTotalPower(const KVXEUID& uid) {
  return getPower(uid, m_totalKeyStr);
}

float KVXESomMorlanSummaryTab::percentageBase(const KVXEUID& uid) {
  return getTotalPower(uid);
}

std::string KVXESomMorlanSummaryTab::getPBSuffix() {
  const float watts = getSomTotalPower(KVXEUID(this));
  return "( " + KVXMHelperUtils::ToString(KVXMHelperUtils::ROUND(watts, 3)) + " W )";
}

void KVXESomMorlanSummaryTab::updateSomTotalPower(const KVXEUID& uid) {
  if (!isInSummary(uid)) return;
  uid.getCell()->setValAndMarkEngineClean(wattsText(getSomTotalPower(uid)));
  copyJunctionBackground(uid, uid.getCell());
}

void KVXESomMorlanSummaryTab::updateSomCharacterizationLabel(const KVXEUID& uid) {
  if (isInSummary(uid)) uid.getCell()->setValAndMarkEngineClean(std::string("Preliminary(+/- 20% accuracy)"));
}

void KVXESomMorlanSummaryTab::updateSomPowerInfoTable(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_StoreInfoTable}, "Som Summary Table")) return;
  const std::string key = textInRow(uid, m_KeyCol);
  float watts = 0.0f;
  if (key == m_totalKeyStr) {
    watts = getSomTotalPower(uid);
  } else if (key == m_dynamicKeyStr) {
    watts = getFpgaDynamicPower(uid);
  } else {
    watts = getPower(uid, m_totalKeyStr) - getPower(uid, m_dynamicKeyStr);
  }
  uid.getCell()->setValAndMarkEngineClean(watts);
}

// Static power by block.

std::span<const kvxe::OnchipCategory> KVXESomMorlanSummaryTab::staticCategories() const {
  static const kvxe::OnchipCategory categories[] = {
      {staticHeading, {{plStaticRow}, {psStaticRow, {"PS"}}, {xcvrStaticRow}}},
  };
  return categories;
}

std::span<const kvxe::OnchipStaticTerm> KVXESomMorlanSummaryTab::staticTerms() const {
  using Key = kvxm::StaticKey;
  static const kvxe::OnchipStaticTerm terms[] = {
      {plStaticRow, {{{Key::PL_STATIC_POWER}}}},
      {psStaticRow, {{{Key::PS_STATIC_POWER}}}},
      {xcvrStaticRow, {{{Key::XCVRA_STATIC_POWER}, {Key::XCVRB_STATIC_POWER}, {Key::XCVRC_STATIC_POWER}}}},
  };
  return terms;
}
