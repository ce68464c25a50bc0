// The tables of the power design.

#include "engine/base/tabs/KVXEPowerDesignTab.h"

#include <algorithm>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/ParamsRecord.h"
#include "models/common/RailGrouping.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

namespace {

using Tab = KVXEPowerDesignTab;

const KVXEColumn deviceColumns[] = {
    {.title = &Tab::m_optionColumn, .type = STRING, .toolTip = "A setting of the selected part."},
    {.title = &Tab::m_selectionColumn,
     .type = STRING,
     .formula = &Tab::updateDeviceTable,
     .toolTip = "What the part selection says for the setting; grades are given by their short codes."},
};

const KVXEColumn powerSummaryColumns[] = {
    {.title = &Tab::m_optionColumn, .type = STRING, .toolTip = "A share of the on-chip power."},
    {.title = &Tab::m_selectionColumn,
     .type = FLOAT,
     .formula = &Tab::updatePowerSummaryTable,
     .unit = Unit::POWER_SHOW,
     .toolTip = "Total On-Chip Power = Core Dynamic + I/O + Transceiver + Device Static\n\nAlso referred to "
                "as 'Thermal power'. Includes power dissipated on-chip from all supply sources.It does not "
                "include power supplied to off-chip devices.\nThis is operating power and not startup "
                "power.\nCell background turns orange when process or power mode are not configured for "
                "worst case power estimation."},
};

const KVXEColumn supplyColumns[] = {
    {.title = &Tab::m_supplyColumn,
     .type = STRING,
     .formula = &Tab::updatePowerSupplyTable,
     .toolTip = "The supply rail, as the data sheet names it."},
    {.title = &Tab::m_internalSupplyColumn,
     .type = STRING,
     .toolTip = "The supply rail, as the models name it.",
     .visibility = Visibility::INTERNAL},
    {.title = &Tab::m_voltageColumn,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::updateVoltage,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip =
         "<html>Actual voltage for each source. Values are range checked and the orange background "
         "\nindicates the value is not within spec for the selected part.  A gray background indicates "
         "\nread only and voltage can only be changed for the power rail group in the table below.</html>"},
    {.title = &Tab::m_minVoltageColumn,
     .type = FLOAT,
     .formula = &Tab::updatePowerSupplyTable,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip = "The lowest voltage at which the selected part works."},
    {.title = &Tab::m_maxVoltageColumn,
     .type = FLOAT,
     .formula = &Tab::updatePowerSupplyTable,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip = "The highest voltage at which the selected part works."},
    {.title = &Tab::m_stepLoadColumn,
     .type = FLOAT,
     .formula = &Tab::updateStepLoad,
     .unit = Unit::PERCENTAGE_SHOW,
     .toolTip = "Step load assumptions are 33% for all rails EXCEPT VCCAUX_PMC, VCCAUX_SMON, VCCO_XP, "
                "VCCO_HD, and VCCO_500/501/502/503, which are 100%."},
    {.title = &Tab::m_staticCurrentColumn,
     .type = FLOAT,
     .formula = &Tab::updateStaticCurrentPowerSupplyTable,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "The current that the rail draws without any activity, at the junction temperature."},
    {.title = &Tab::m_dynamicCurrentColumn,
     .type = FLOAT,
     .formula = &Tab::updateDynamicCurrentPowerSupplyTable,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "The current that the use of the blocks adds on the rail."},
    {.title = &Tab::m_totalCurrentColumn,
     .type = FLOAT,
     .formula = &Tab::updateTotalCurrentPowerSupplyTable,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "For Maximum Process, the sum of rail-wise power will not match the Total On-Chip Power as "
                "there are various other factors which affect the currents."},
    {.title = &Tab::m_powerupCurrentColumn,
     .type = FLOAT,
     .formula = &Tab::updateTotalCurrentPowerSupplyTable,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "The startup current, shown when the process is Maximum and the startup current exceeds the "
                "calculated operating current: what the rail draws before any activity with the junction at "
                "its maximum."},
    {.title = &Tab::m_powerRailGroupColumn,
     .type = STRING,
     .formula = &Tab::updatePwrRailConsolidationTable,
     .visibility = Visibility::ALWAYS_HIDDEN},
    {.title = &Tab::m_voltageFromLvrColumn, .type = FLOAT, .visibility = Visibility::ALWAYS_HIDDEN},
    {.title = &Tab::m_ownVoltageColumn, .type = FLOAT, .visibility = Visibility::ALWAYS_HIDDEN},
};

const char* const consolidations[] = {kvxm::fullPowerManagement, kvxm::minimumRails};
const KVXEColumn consolidationColumns[] = {
    {.title = &Tab::m_optionColumn, .type = STRING, .toolTip = "What is chosen."},
    {.title = &Tab::m_selectionColumn,
     .type = STRING,
     .isEditable = true,
     .text = kvxm::fullPowerManagement,
     .isDropdown = true,
     .entries = consolidations,
     .toolTip = "Select the type of power rail consolidation."},
};

const char* const currents[] = {"Total", "Static", "Dynamic", "Powerup"};
const KVXEColumn currentSelectionColumns[] = {
    {.title = &Tab::m_optionColumn, .type = STRING, .toolTip = "What is chosen."},
    {.title = &Tab::m_selectionColumn,
     .type = STRING,
     .isEditable = true,
     .text = currents[0],
     .isDropdown = true,
     .entries = currents,
     .toolTip = "Select the current that the Power Delivery Design shows for each supply: the operating "
                "current, its static or dynamic part, or what the rails need at most when startup counts."},
};

const KVXEColumn scalingColumns[] = {
    {.title = &Tab::m_optionColumn, .type = STRING, .toolTip = "A scaling factor."},
    {.title = &Tab::m_selectionColumn,
     .type = FLOAT,
     .isEditable = true,
     .number = 1.0,
     .minimum = 0.0,
     .maximum = 10.0,
     .toolTip = "TPF multiplies the leakage of the typical process."},
};

const KVXEColumn debugJunctionColumns[] = {
    {.title = &Tab::m_debugTempOptionColumn, .type = STRING},
    {.title = &Tab::m_debugTempValueColumn, .type = FLOAT, .formula = &Tab::updateDebugJunctionTempTable},
};

/// Creates one row for each text, the text in the given column.
void createTextRows(KVXETable& table, const KVXETitle& column, std::span<const std::string* const> texts) {
  for (const std::string* text : texts)
    table.getOrCreateRow(table.getRowCount())->getCell(&column)->setValAndMarkEngineClean(*text);
}

}  // namespace

KVXEPowerDesignTab::KVXEPowerDesignTab(KVXEBook* book, KVXEEnums::TabType type) : KVXETab(book, type) {}

KVXEPowerDesignTab::~KVXEPowerDesignTab() = default;

void KVXEPowerDesignTab::init() {
  KVXETab::init();
  initDeviceTable();
  initPowerSummaryTable();
  initPwrSupplyDesignTable();
  initPowerSupplyTable();
  initPowerRailConsolidationTable();
  initCurrentSelectionTable();
  initInternalScalingTable();
  initDebugDeviceTables();
  initDebugJunctionTempTable();
}

void KVXEPowerDesignTab::initDeviceTable() {
  KVXETable* table = createTable(&m_deviceTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(deviceColumns);
  table->getOrCreateHeaderRow();
  for (const DeviceRow& deviceRow : deviceRows()) {
    KVXERow* row = table->getOrCreateRow(table->getRowCount());
    row->getCell(&m_optionColumn)->setValAndMarkEngineClean(deviceRow.option);
    m_deviceCells[deviceRow.option] = row->getCell(&m_selectionColumn);
  }
}

void KVXEPowerDesignTab::initPowerSummaryTable() {
  KVXETable* table = createTable(&m_powerSummaryTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(powerSummaryColumns);
  const std::string* const rows[] = {&m_totalPowerCol, &m_staticPowerCol, &m_dynamicPowerCol};
  createTextRows(*table, m_optionColumn, rows);
}

void KVXEPowerDesignTab::initPowerSupplyTable() {
  KVXETable* table = createTable(&m_powerSupplyTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(supplyColumns);
  table->setPilotColumnTitle(&m_internalSupplyColumn);  // devices and releases differ in their rails
  for (const std::string& category : getCategoryList()) createVoltageRow(category);
  // A row that heads a category has no currents and no group, so its cells may stand for all rails.
  m_startupRun = table->getCellAt(1, &m_powerupCurrentColumn);
  m_groupsRun = table->getCellAt(1, &m_powerRailGroupColumn);
}

namespace {

/// A table with one row, of one choice; returns the cell of the choice.
KVXECell* createChoiceTable(KVXETab& tab, const KVXETitle& title, std::span<const KVXEColumn> columns,
                            const std::string& option) {
  KVXETable* table = tab.createTable(&title, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  KVXERow* row = table->getOrCreateRow(1);
  row->getCell(&Tab::m_optionColumn)->setValAndMarkEngineClean(option);
  return row->getCell(&Tab::m_selectionColumn);
}

}  // namespace

void KVXEPowerDesignTab::initPowerRailConsolidationTable() {
  m_consolidation = createChoiceTable(*this, m_powerRailConsolidationTable, consolidationColumns,
                                      m_powerRailConsolidationStr);
}

void KVXEPowerDesignTab::initCurrentSelectionTable() {
  m_currentSelection =
      createChoiceTable(*this, m_currentSelectionTable, currentSelectionColumns, m_currentSelectionStr);
}

void KVXEPowerDesignTab::initInternalScalingTable() {
  m_tpf = createChoiceTable(*this, m_internalScalingTable, scalingColumns, m_tpfStr);
  getTable(&m_internalScalingTable)->setVisibility(Visibility::DEVELOPER);
}

void KVXEPowerDesignTab::initDebugJunctionTempTable() {
  KVXETable* table = createTable(&m_debugJunctionTempTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(debugJunctionColumns);
  table->setVisibility(Visibility::DEVELOPER);
  const std::string* const rows[] = {&m_initialTempStr, &m_tempAt25Str, &m_nonIntLeakageStr,
                                     &m_calcJunctionTempStr, &m_maxAmbientTempStr};
  createTextRows(*table, m_debugTempOptionColumn, rows);
}

/// The row that heads a category, and a row for each rail that any device of the architecture has in it.
void KVXEPowerDesignTab::createVoltageRow(const std::string& category) {
  KVXETable* table = getTable(&m_powerSupplyTable);
  KVXERow* row = table->getOrCreateRow(table->getRowCount());
  const std::string detailed = getCategoryDetailedStr(category);
  KVXECell* supply = row->getCell(&m_supplyColumn);
  row->setIsEditable(false);
  supply->setValAndMarkEngineClean(detailed.empty() ? category : detailed);
  supply->setColor(getPowerDomainColorCode(domainOfCategory(category)));
  for (const kvxm::Supply* rail : railsOfCategory(category)) createRailRow(rail->rail);
}

void KVXEPowerDesignTab::createRailRow(const std::string& rail) {
  KVXETable* table = getTable(&m_powerSupplyTable);
  KVXERow* row = table->getOrCreateRow(table->getRowCount());
  row->getCell(&m_supplyColumn)->setValAndMarkEngineClean(rail);
  row->getCell(&m_internalSupplyColumn)->setValAndMarkEngineClean(rail);
  m_railRows[rail] = row;
}

/// Devices differ in their rails but agree on the order: a rail goes behind the one before it on its device.
std::vector<const kvxm::Supply*> KVXEPowerDesignTab::railsOfCategory(const std::string& category) const {
  std::vector<const kvxm::Supply*> rails;
  for (const kvxm::Device& device : kvxm::DeviceCatalogue::getGlobal().devices()) {
    if (device.architecture != architecture()) continue;
    auto place = rails.begin();
    for (const kvxm::Supply& supply : device.supplies) {
      if (supply.category != category) continue;
      auto known = std::find_if(rails.begin(), rails.end(),
                                [&](const kvxm::Supply* rail) { return rail->rail == supply.rail; });
      if (known == rails.end()) known = rails.insert(place, &supply);
      place = known + 1;
    }
  }
  return rails;
}

std::string KVXEPowerDesignTab::partSetting(const DeviceRow& row) const {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return {};
  return row.option == "Temperature" ? selection->getTempGrade() : selection->getCurrentSetting(row.setting);
}
