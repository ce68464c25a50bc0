// The tables of the summary, and what its formulas share.

#include "engine/base/tabs/KVXESummaryTab.h"

#include <algorithm>
#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/common/ParamsRecord.h"
#include "models/common/StaticPower.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

std::map<std::string, std::vector<std::string>> KVXESummaryTab::m_dynamicPowerSummaryMap;
std::map<std::string, std::vector<std::string>> KVXESummaryTab::m_staticPowerSummaryMap;
std::vector<std::string> KVXESummaryTab::m_categoryList;

KVXESummaryTab::~KVXESummaryTab() = default;

namespace {

struct WizardButton {
  const std::string* id;
  const char* text;
  const char* toolTip;
};
const WizardButton wizardButtons[] = {
    {&KVXESummaryTab::m_lvrImportButtonUid, "Import .lvr",
     "Import .lvr (LVR or Talmor Report Power generated) file into the current project"},
    {&KVXESummaryTab::m_exportPwrReportDialogLid, "Export KVX Project Data", "Export KVX Project Data"},
    {&KVXESummaryTab::m_resetToDefaultLid, "Reset to Defaults", "Reset to Defaults"},
};
constexpr unsigned int ZcfDialogWidth = 200;

}  // namespace

KVXESummaryTab::KVXESummaryTab(KVXEBook* book, TabType type) : KVXETab(book, type) {
  for (const WizardButton& button : wizardButtons)
    addButton(*button.id, button.text, button.toolTip, std::nullopt);
  if (KVXEBookMgr::getLastArchName() == KVXEPartSelection::m_arkeonArchName)
    addFileChooserButton(m_exportzcfWDialogLid, "Export ZCF", "Export ZCF constraints", "zcf",
                         ZcfDialogWidth);
}

// Tables.

namespace {

using Tab = KVXESummaryTab;

const KVXEColumn summaryColumns[] = {
    {.title = &Tab::m_summaryOptionColumn, .type = STRING},
    {.title = &Tab::m_summarySelectionColumn, .type = STRING},
};

const char* const overrideEntries[] = {"User Override OFF", "User Override ON"};

const KVXEColumn environmentColumns[] = {
    {.title = &Tab::m_envTypeColumn, .type = STRING},
    {.title = &Tab::m_envTempColumn, .type = STRING, .isDropdown = true, .entries = overrideEntries},
    {.title = &Tab::m_envValColumn, .type = FLOAT},
};

std::span<const KVXEFixedRow> environmentRows() {
  static const KVXEFixedRow rows[] = {
      {.text = &Tab::m_junctionTempStr,
       .toolTip =
           "Allow the user to force the junction temperature of the {} device to estimate the static power, "
           "in place of the temperature that follows from ambient temperature, Theta Ja and power.",
       .formula = &Tab::updateJunctionTemp,
       .unit = Unit::TEMPERATURE_SHOW,
       .isEditable = true,
       .number = Tab::getDefaultJunctionTemp()},
      {.text = &Tab::m_AmbientTempStr,
       .toolTip = "Enter the maximum supported Ambient temperature (oC) of the application, <br>Ta combined "
                  "with the "
                  "Theta Ja value entered will allow for an accurate Junction Temperature Estimate.",
       .formula = &Tab::updateAmbientTemp,
       .unit = Unit::TEMPERATURE_SHOW,
       .isEditable = true,
       .number = Tab::getDefaultAmbientTemp()},
      {.text = &Tab::m_thetaJaStr,
       .toolTip =
           "Enter the effective thermal resistance from the junction to the ambient air. It counts while the "
           "junction temperature is not forced.",
       .formula = &Tab::updateThetaJa,
       .unit = Unit::FIXED_THETAJA_SHOW,
       .number = 0.0},
      {.text = &Tab::m_maxJunctionTempStr,
       .toolTip = "Read-Only. Maximum Junction Temperature of the {} device selected.",
       .formula = &Tab::updateMaxJunctionTemp,
       .unit = Unit::TEMPERATURE_SHOW},
      {.text = &Tab::m_maxJunctionTempWithExcursionStr,
       .toolTip =
           "Read-Only. Maximum Junction Temperature with temperature excursion of the {} device selected.",
       .formula = &Tab::updateMaxJunctionTempWithExcursion,
       .unit = Unit::TEMPERATURE_SHOW},
      {.text = &Tab::m_PowerBudgetStr,
       .toolTip = "Enter the Power Budget for the device selected.",
       .formula = &Tab::updatePowerBudget,
       .unit = Unit::POWER_SHOW,
       .isEditable = true},
  };
  return rows;
}

std::span<const KVXEFixedRow> hbmEnvironmentRows() {
  static const KVXEFixedRow rows[] = {
      {.text = &Tab::m_hbmOnChipPowerStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmOnchipPower,
       .unit = Unit::POWER_SHOW},
      {.text = &Tab::m_staticOnChipPowerStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmStaticPower,
       .unit = Unit::POWER_SHOW},
      {.text = &Tab::m_dynamicOnChipPowerStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmDynamicPower,
       .unit = Unit::POWER_SHOW},
      {.text = &Tab::m_hbmJunctionTempStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmJunctionTemp,
       .unit = Unit::TEMPERATURE_SHOW},
      {.text = &Tab::m_hbmTjOverrideStr,
       .toolTip = "Allow the user to force the junction temperature of the HBM dies.",
       .formula = &Tab::updateHbmTjOverride,
       .unit = Unit::TEMPERATURE_SHOW,
       .isEditable = true},
      {.text = &Tab::m_AmbientTempStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmAmbientTemp,
       .unit = Unit::TEMPERATURE_SHOW},
      {.text = &Tab::m_thetaJaStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmThetaJa,
       .unit = Unit::FIXED_THETAJA_SHOW},
      {.text = &Tab::m_maxJunctionTempStr,
       .toolTip = KVXEFixedRow::SameAsText,
       .formula = &Tab::updateHbmMaxJunctionTemp,
       .unit = Unit::TEMPERATURE_SHOW},
  };
  return rows;
}

void startOverride(KVXERow* row, const std::string& choice) {
  KVXECell* cell = row->getCell(&Tab::m_envTempColumn);
  cell->setIsEditable(true);
  cell->setValAndState(choice, KVXEEnums::CellState::DIRTY_DISABLED);
  cell->setValueSource(KVXEEnums::ValueSource::DEFAULT);
}

}  // namespace

void KVXESummaryTab::initDeviceSelectionTable() {
  createTable(&m_deviceSelectionTable, false, false, true, GridComponentType::DEVICE_SELECTION);
}

void KVXESummaryTab::initSummaryTable(std::span<const KVXEFixedRow> rows, const std::string& message) {
  KVXETable* table = createTable(&m_summaryTableHeader, false, false, true, GridComponentType::TABLE);
  table->addColumns(summaryColumns);
  table->setIsHeaderHidden(true);
  if (!message.empty()) table->setMsg(KvxSeverity::INFO, message);
  kvxe::addFixedRows(*table, m_summaryOptionColumn, m_summarySelectionColumn, rows);
}

void KVXESummaryTab::initEnvironmentTable(std::initializer_list<const std::string*> omitted) {
  KVXETable* table = createTable(&m_envTableHeader, false, false, true, GridComponentType::TABLE);
  table->addColumns(environmentColumns);
  table->setIsHeaderHidden(true);
  for (const KVXEFixedRow& declared : environmentRows()) {
    if (std::find(omitted.begin(), omitted.end(), declared.text) != omitted.end()) continue;
    KVXERow* row = kvxe::addFixedRow(*table, m_envTypeColumn, m_envValColumn, declared, productName());
    if (declared.text == &m_junctionTempStr) startOverride(row, m_userOverrideOnStr);
  }
}

void KVXESummaryTab::initHbmEnvironmentTable() {
  KVXETable* table = createTable(&m_hbmEnvTableHeader, false, false, true, GridComponentType::TABLE);
  table->addColumns(environmentColumns);
  table->setIsHeaderHidden(true);
  table->setVisibility(hasHbm() ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  for (const KVXEFixedRow& declared : hbmEnvironmentRows()) {
    KVXERow* row = kvxe::addFixedRow(*table, m_envTypeColumn, m_envValColumn, declared);
    if (declared.text == &m_hbmTjOverrideStr) startOverride(row, m_userOverrideOffStr);
  }
}

// What formulas share.

KVXESummaryTab* KVXESummaryTab::tabOf(const KVXEUID& uid) {
  const KVXEBook* book = uid.getBook();
  return book ? dynamic_cast<KVXESummaryTab*>(book->getTab(TabType::SUMMARY)) : nullptr;
}

bool KVXESummaryTab::isInTable(const KVXEUID& uid, std::initializer_list<const KVXETitle*> tables,
                               const char* what) {
  for (const KVXETitle* title : tables)
    if (uid.getTable() && uid.getTable()->getTableTitle() == title) return true;
  std::cout << "Error: error occured in updating " << what << "." << '\n';
  return false;
}

std::string KVXESummaryTab::textInRow(const KVXEUID& uid, const KVXETitle& column) {
  std::string text;
  uid.getRow()->getCell(&column)->getVal(text, true);
  return text;
}

namespace {

KVXECell* cellOf(const KVXEUID& uid, const KVXETitle& table, const std::string& row, const KVXETitle& key,
                 const KVXETitle& value) {
  KVXEBook* book = uid.getBook();
  return book ? book->lookup<std::string>(TabType::SUMMARY, &table, row, &key, &value, false) : nullptr;
}

}  // namespace

KVXESummaryTab::SummaryPlace KVXESummaryTab::summaryPlace() const {
  return {&m_summaryTableHeader, &m_summaryOptionColumn, &m_summarySelectionColumn, "Summary",
          &m_junctionTempStr};
}

bool KVXESummaryTab::isInSummary(const KVXEUID& uid) {
  const auto* tab = dynamic_cast<const KVXESummaryTab*>(uid.getTab());
  return tab ? isInTable(uid, {tab->summaryPlace().table}, tab->summaryPlace().name)
             : isInTable(uid, {}, "Summary");
}

KVXECell* KVXESummaryTab::summaryCell(const KVXEUID& uid, const std::string& row) {
  const KVXESummaryTab* tab = tabOf(uid);
  if (!tab) return nullptr;
  const SummaryPlace place = tab->summaryPlace();
  return cellOf(uid, *place.table, row == m_junctionTempStr ? *place.junction : row, *place.option,
                *place.selection);
}

KVXECell* KVXESummaryTab::environmentCell(const KVXEUID& uid, const std::string& row,
                                          const KVXETitle& column) {
  return cellOf(uid, m_envTableHeader, row, m_envTypeColumn, column);
}

KVXECell* KVXESummaryTab::hbmEnvironmentCell(const KVXEUID& uid, const std::string& row,
                                             const KVXETitle& column) {
  return cellOf(uid, m_hbmEnvTableHeader, row, m_envTypeColumn, column);
}

std::optional<float> KVXESummaryTab::readEntry(KVXECell* cell) {
  float value = 0.0f;
  if (!cell || !cell->getVal(value, true) || value == OldBlankTemp) return std::nullopt;
  return value;
}

std::string KVXESummaryTab::temperatureGrade(const KVXEUID& uid) {
  const std::string grade = KVXEPowerDesignTab::getTempGrade(uid);
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return grade.empty() && selection ? selection->getTempGrade() : grade;
}

std::string KVXESummaryTab::wattsText(float watts) {
  return KVXMHelperUtils::formatFixed(watts, 3) + " W";
}

void KVXESummaryTab::copyJunctionBackground(const KVXEUID& uid, KVXECell* cell) {
  KVXECell* junction = environmentCell(uid, m_junctionTempStr, m_envValColumn);
  KVXECell::Color background = KVXECell::White;
  if (junction) {
    readEntry(junction);  // its colour follows its value
    background = junction->getColor().second;
  }
  cell->setBackgroundColor(background == KVXECell::White ? KVXECell::ReadOnlyBackground : background);
}

void KVXESummaryTab::setRowVisible(KVXERow* row, bool isVisible) {
  row->setVisibility(isVisible ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
}

std::unique_ptr<kvxm::Record> KVXESummaryTab::makeStaticParams() const {
  return nullptr;
}

std::unique_ptr<kvxm::Record> KVXESummaryTab::calculateStaticAt(const KVXEUID& uid, float celsius) const {
  std::unique_ptr<kvxm::Record> params = makeStaticParams();
  if (!params) return nullptr;
  KVXEPowerDesignTab::updateVoltageParams(uid, *params);
  KVXEPowerDesignTab::updateDeviceParams(uid, *params);
  KVXEPowerDesignTab::updateBlockParams(uid, *params);
  *params->findFloat(kvxm::StaticKey::JUNCTION_TEMP) = celsius;
  calculateStatic(*params);
  return params;
}
