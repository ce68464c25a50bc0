#include "engine/tarvek/KVXETarvekPwrManagementTab.h"

#include "engine/base/config/ClockTag.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEFixedRows.h"
#include "engine/base/tabs/KVXEPsTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;

using Tab = KVXETarvekPwrManagementTab;
using Title = const KVXETitle;
using Text = const std::string;

Title Tab::m_PwrManagementTable("PWR_MANAGEMENT", "Power Management");
Title Tab::m_Domain("DOMAIN", "Domain");
Title Tab::m_DomainPower("POWER", "Dynamic Power");
Title Tab::m_ClockDomainPwrTable("CLK_DOMAIN_PWR", "Clock Domain Power");
Title Tab::m_ClockTag("CLOCK_TAG", "Clock");
Title Tab::m_GatedClock("GATED_CLOCK", "Gated Clock");
Title Tab::m_MinScaledFreq("MIN_SCALED_FREQUENCY", "Minimum Scaled Frequency (MHz)");
Title Tab::m_ClockPower("CLOCK_POWER", "Clock Power");
Title Tab::m_ManagedPower("MANAGED_POWER", "Managed Power");
Title Tab::m_GatingSaving("GATING_SAVING", "Gating Saving");
Title Tab::m_ScalingSaving("SCALING_SAVING", "Scaling Saving");
Title Tab::m_PotentialSavingsTable("POTENTIAL_SAVINGS", "Potential Savings");
Title Tab::m_Measure("MEASURE", "Measure");
Title Tab::m_Saving("SAVING", "Saving");

Text Tab::m_yesStr = "Yes";
Text Tab::m_noStr = "No";
Text Tab::m_pmcStr = "Platform Management Controller";
Text Tab::m_lpdStr = "Low Power Domain";
Text Tab::m_fpdStr = "Full Power Domain";
Text Tab::m_logicStr = "Programmable Logic";
Text Tab::m_gatingStr = "Clock gating";
Text Tab::m_scalingStr = "Frequency scaling";
Text Tab::m_totalStr = "Total";

namespace {

const char* const yesNo[] = {"No", "Yes"};

const KVXEColumn clockDomainColumns[] = {
    kvxe::column::clock(Tab::m_ClockTag, "<html>A clock, from the clock tab.</html>"),
    kvxe::column::choice(Tab::m_GatedClock, yesNo, "No",
                         "<html>Whether the design can stop this clock while nothing needs it.</html>"),
    {.title = &Tab::m_MinScaledFreq,
     .type = FLOAT,
     .isEditable = true,
     .unit = Unit::FREQUENCY_HIDE,
     .minimum = 0,
     .toolTip = "<html>The lowest frequency (MHz) to which the design can scale this clock.\nBlank for a "
                "clock that keeps its frequency.</html>"},
    kvxe::column::watts(Tab::m_ClockPower, &Tab::updateClockDomainRow,
                        "<html>The power of distributing this clock while it runs.</html>"),
    kvxe::column::watts(Tab::m_ManagedPower, &Tab::updateClockDomainRow,
                        "<html>What remains of the power while the clock is gated, or scaled to its minimum "
                        "frequency.</html>"),
    kvxe::column::watts(Tab::m_GatingSaving, &Tab::updateClockDomainRow,
                        "<html>What is saved while the clock is gated.</html>"),
    kvxe::column::watts(Tab::m_ScalingSaving, &Tab::updateClockDomainRow,
                        "<html>What is saved while the clock runs at its minimum frequency.\nA gated clock "
                        "saves all of its power by gating.</html>"),
};

KVXETable* createFixedTable(KVXETab& tab, const KVXETitle& title, const KVXETitle& text, const char* textTip,
                            const KVXETitle& watts, const char* wattsTip, KVXEFormula formula) {
  KVXETable* table = tab.createTable(&title, false, false, true, GridComponentType::TABLE);
  const KVXEColumn columns[] = {
      {.title = &text, .type = STRING, .toolTip = textTip},
      kvxe::column::watts(watts, formula, wattsTip),
  };
  table->addColumns(columns);
  return table;
}

}  // namespace

void KVXETarvekPwrManagementTab::init() {
  KVXETab::init();
  initPwrManagementTable();
  initClockDomainPwrTable();
  initPotentialSavingsTable();
}

void KVXETarvekPwrManagementTab::initPwrManagementTable() {
  KVXETable* table = createFixedTable(*this, m_PwrManagementTable, m_Domain, "A power domain.", m_DomainPower,
                                      "The present dynamic power of the domain.", &updateDomainPower);
  const KVXEFixedRow rows[] = {
      {&m_pmcStr, "The platform management controller.", &updateDomainPower, Unit::POWER_SHOW},
      {&m_lpdStr, "The low power domain of the processing system.", &updateDomainPower, Unit::POWER_SHOW},
      {&m_fpdStr, "The full power domain of the processing system.", &updateDomainPower, Unit::POWER_SHOW},
      {&m_logicStr, "Clocks, logic, memories and DSPs.", &updateDomainPower, Unit::POWER_SHOW},
  };
  kvxe::addFixedRows(*table, m_Domain, m_DomainPower, rows);
}

void KVXETarvekPwrManagementTab::initClockDomainPwrTable() {
  kvxe::createConfigTable(*this, m_ClockDomainPwrTable, clockDomainColumns, "Clock Domains");
}

void KVXETarvekPwrManagementTab::initPotentialSavingsTable() {
  KVXETable* table = createFixedTable(*this, m_PotentialSavingsTable, m_Measure, "How power is saved.",
                                      m_Saving, "The most that the measure saves.", &updateSaving);
  const KVXEFixedRow rows[] = {
      {&m_gatingStr, "While all clocks that can be gated are.", &updateSaving, Unit::POWER_SHOW},
      {&m_scalingStr, "While all clocks that can be scaled run at their minimum frequency.", &updateSaving,
       Unit::POWER_SHOW},
      {&m_totalStr, "By both.", &updateSaving, Unit::POWER_SHOW},
  };
  kvxe::addFixedRows(*table, m_Measure, m_Saving, rows);
}

// Clocks.

void KVXETarvekPwrManagementTab::updateClockDomainRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_ClockDomainPwrTable, "power of a clock domain")) return;
  static constexpr const KVXETitle* results[] = {&m_ClockPower, &m_ManagedPower, &m_GatingSaving,
                                                 &m_ScalingSaving};
  KVXERow* row = uid.getRow();
  KVXECell* managed = row->getCell(&m_ManagedPower);
  std::string tag;
  const bool hasTag = row->getCell(&m_ClockTag)->getVal(tag, true);
  KVXERow* clock = hasTag ? KVXEClockTab::findClockRow(uid, tag) : nullptr;
  const auto parsed = clock ? kvxe::ClockTag::parse(tag) : std::nullopt;
  managed->clearMsg();
  if (!parsed) return kvxe::blankResults(row, results);

  const float watts = kvxe::readNumber(clock, KVXETab::m_Power, 0.0f);
  const float megahertz = parsed->megahertz;
  const float scaled = kvxe::readNumber(row, m_MinScaledFreq, megahertz);
  if (scaled > megahertz)
    managed->setMsg(KvxSeverity::WARNING,
                    "Minimum Scaled Frequency can't be greater than the frequency of the clock.");
  const bool isGated = kvxe::readText(row, m_GatedClock) == m_yesStr;
  const bool isScaled = !isGated && scaled >= 0.0f && scaled < megahertz;
  const float gating = isGated ? watts : 0.0f;
  const float scaling = isScaled ? watts * (1.0f - scaled / megahertz) : 0.0f;
  kvxe::writeResult(row, m_ClockPower, watts);
  kvxe::writeResult(row, m_ManagedPower, watts - gating - scaling);
  kvxe::writeResult(row, m_GatingSaving, gating);
  kvxe::writeResult(row, m_ScalingSaving, scaling);
}

void KVXETarvekPwrManagementTab::updateSaving(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_PotentialSavingsTable, "potential savings")) return;
  const std::string measure = kvxe::readText(uid.getRow(), m_Measure);
  float watts = 0.0f;
  if (measure == m_gatingStr) watts = uid.getTab()->sumColumn(&m_ClockDomainPwrTable, &m_GatingSaving);
  if (measure == m_scalingStr) watts = uid.getTab()->sumColumn(&m_ClockDomainPwrTable, &m_ScalingSaving);
  if (measure == m_totalStr)  // of the rows above
    for (unsigned int i = 1; i < uid.getRowIndex(); ++i)
      watts += kvxe::readNumber(uid.getTable()->getRow(i), m_Saving, 0.0f);
  uid.getCell()->setValAndMarkEngineClean(watts);
}

// Domains.

namespace {

/// What the tabs of the programmable logic draw; one that is not there draws nothing.
float logicPower(const KVXEBook& book) {
  float sum = 0.0f;
  for (const TabType type :
       {TabType::CLOCK, TabType::LOGIC, TabType::BRAM, TabType::WRAM, TabType::MPRAM, TabType::DSP}) {
    KVXETab* tab = book.getTab(type);
    float watts = 0.0f;
    if (tab && tab->getIsEnabled() && tab->getTabActivePower(watts)) sum += watts;
  }
  return sum;
}

}  // namespace

void KVXETarvekPwrManagementTab::updateDomainPower(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_PwrManagementTable, "power of a domain")) return;
  const std::string domain = kvxe::readText(uid.getRow(), m_Domain);
  const KVXEBook& book = *uid.getBook();
  if (domain == m_logicStr) return uid.getCell()->setValAndMarkEngineClean(logicPower(book));
  KVXETab* tab = book.getTab(TabType::PS);
  KVXECell* power = tab && tab->getIsEnabled() && tab->getTable(&KVXEPsTab::m_PsStateSummaryTable)
                        ? tab->lookup<std::string>(&KVXEPsTab::m_PsStateSummaryTable, domain,
                                                   &KVXEPsTab::m_PsStateSummaryDomainCol,
                                                   &KVXEPsTab::m_PsStateSummaryPowerCol, false)
                        : nullptr;
  float watts = 0.0f;
  if (power && power->getVal(watts, true)) return uid.getCell()->setValAndMarkEngineClean(watts);
  uid.getCell()->setBlankAndMarkEngineClean();
}
