#include "engine/base/tabs/KVXEClockTab.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include "engine/base/services/KVXEParamControlMgr.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

// Tables.

namespace {

using Tab = KVXEClockTab;

const char* const clockSources[] = {"External", "Internal"};

// What the architectures differ in is assigned when the table is made.
const KVXEColumn clockColumns[] = {
    kvxe::column::name(
        Tab::m_Name,
        "<html>The name of this clock.\nProviding a name is mandatory, as other tabs refer to the "
        "clock by its name and frequency.</html>"),
    kvxe::column::choice(
        Tab::m_Source, clockSources, "",
        "<html>Select the source of the clock:\nUse External for IO driven clocks.\nUser Internal "
        "for clocks driven by some instance.\nIn case of a Clock Manager output clock, the field "
        "will be auto populated.</html>",
        &Tab::updateClockSource),
    {.title = &Tab::m_ClockFreq,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::clockFreqChanged,
     .unit = Unit::FREQUENCY_HIDE,
     .minimum = 0,
     .toolTip = "<html>The frequency of this clock (MHz).</html>"},
    kvxe::column::count(
        Tab::m_Fanout,
        "<html>The number of loads that this clock drives: registers, memories, DSPs and IOs.\nA "
        "clock without loads has no power.</html>"),
    {.title = &Tab::m_FanoutPerSite,
     .type = FLOAT,
     .isEditable = true,
     .number = Tab::DefaultFanoutPerSite,
     .minimum = 0,
     .toolTip = "<html>The average number of registers of this clock that share a site.\nThe fuller the "
                "device, the more share one; a value entered here stands.</html>"},
    kvxe::column::rate(
        Tab::m_ClkBufEnable, 1.0,
        "<html>The percentage of the time that the buffer which drives this clock is enabled.</html>"),
    kvxe::column::rate(
        Tab::m_SliceClkEnable, 0.5,
        "<html>The average percentage of the time that the clock is enabled at the slices:\n100% - "
        "(%_FFs_with_CE * %disabled), where %_FFs_with_CE is the percentage of flip-flops that have "
        "a clock enable\nand %disabled the percentage of the time that it is off.</html>"),
    kvxe::column::watts(Tab::m_VccintPwr, &KVXECell::NoFormula,
                        "Power that this clock draws from the core supply.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccramPwr, &KVXECell::NoFormula,
                        "Power that this clock draws from the supply of the memories.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_Power, &KVXECell::NoFormula,
                        "<html>The power of distributing this clock to its loads.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
    {.title = &Tab::m_ClockMgr,
     .type = STRING,
     .toolTip = "The clock managers that this clock is connected to.",
     .visibility = Visibility::INTERNAL},
    {.title = &Tab::m_ClockTag,
     .type = STRING,
     .formula = &Tab::updateClockTagRow,
     .toolTip = "The text by which other tabs refer to this clock.",
     .visibility = Visibility::INTERNAL},
};

const KVXEColumn clockTagColumns[] = {
    {.title = &Tab::m_TagCount,
     .type = INT,
     .formula = &Tab::updateClockTagList,
     .toolTip = "Clocks that can be referred to."},
    {.title = &Tab::m_ClockColumnCount,
     .type = INT,
     .formula = &Tab::updateClockDropdownLists,
     .toolTip = "Columns of this book that offer the clocks."},
    {.title = &Tab::m_RefClockCount,
     .type = INT,
     .toolTip = "Frequencies that clock managers are offered as their reference."},
};

}  // namespace

void KVXEClockTab::initClockConfigTable(const ClockFormulas& formulas) {
  KVXETable* table = createTable(&m_ClockConfigTable, true, false, true, GridComponentType::TABLE);
  table->addColumns(clockColumns);
  const auto assign = [table](const KVXETitle& column, KVXEFormula formula) {
    table->getHeaderRow()->getDefaultCell(&column)->assignFormula(formula);
  };
  assign(m_Name, formulas.name);
  assign(m_FanoutPerSite, formulas.fanoutPerSite);
  for (const KVXETitle* result : {&m_VccintPwr, &m_VccramPwr, &m_Power}) assign(*result, formulas.power);
  table->setTabWidgetTitle("Clock");
  table->setHasTableEditingFeatures(true);
  table->getOrCreateRow(RowCount);
}

void KVXEClockTab::initClockTagTable() {
  KVXETable* table = createTable(&m_ClockTagTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(clockTagColumns);
  table->setVisibility(Visibility::ALWAYS_HIDDEN);
  table->getOrCreateRow(1);
}

// What a row hands to the models.

std::optional<KVXEClockTab::ClockRow> KVXEClockTab::readClockRow(const KVXEUID& uid) {
  KVXERow* row = uid.getRow();
  ClockRow clock;
  if (!row->getCell(&m_ClockFreq)->getVal(clock.megahertz, true)) return std::nullopt;
  if (!row->getCell(&m_Fanout)->getVal(clock.fanout, true) || clock.fanout <= 0) return std::nullopt;
  const std::optional<float> volts = kvxe::readVoltage(uid, "VCCINT");
  if (!volts) return std::nullopt;
  clock.volts = *volts;
  row->getCell(&m_ClockTag)->getVal(clock.tag, true);
  clock.fanoutPerSite = kvxe::readNumber(row, m_FanoutPerSite, clock.fanoutPerSite);
  clock.bufferEnable = kvxe::readNumber(row, m_ClkBufEnable, clock.bufferEnable);
  clock.sliceEnable = kvxe::readNumber(row, m_SliceClkEnable, clock.sliceEnable);
  return clock;
}

namespace {

/// Clock regions of the device; 0 when its catalogue does not tell.
int availableRegions() {
  const auto count = [](const char* resource) { return kvxe::availableCount(resource).value_or(0); };
  const int regions = count("FSR");
  return regions > 0 ? regions : count("CLKROWS") * count("CLKCOLS");
}

}  // namespace

/// The regions that a design occupies are the share of the device that its logic fills, rounded up: placement
/// keeps a design together, and a region is clocked or not.
KVXEClockTab::DesignUse KVXEClockTab::readDesignUse(const KVXEUID& uid) {
  constexpr float MostUsed = 4e8f;  // an int holds a few of it; counts are sums of what users enter
  const auto used = [&](TabType tab, const std::string& type) {
    return static_cast<int>(std::clamp(kvxe::readUsedCount(uid, tab, type), 0.0f, MostUsed));
  };
  const auto share = [&](const std::string& type) {
    return kvxe::readUtilization(uid, TabType::LOGIC, type);
  };
  const float filled = std::max(share(KVXELogicTab::m_RegistersStr), share(KVXELogicTab::m_LutsStr));
  const float regions = static_cast<float>(availableRegions());
  return {.regions = static_cast<int>(std::ceil(std::clamp(filled, 0.0f, 1.0f) * regions)),
          .registers = used(TabType::LOGIC, KVXELogicTab::m_RegistersStr),
          .blockRams = used(TabType::BRAM, "BRAM"),
          .wideRams = used(TabType::WRAM, "WRAM"),
          .dsps = used(TabType::DSP, "DSP"),
          .ios = used(TabType::IO, "IO") + used(TabType::Y7IO, "IO")};
}

void KVXEClockTab::logDetails(const ClockRow& clock, float vccintWatts, float vccramWatts) {
  int isOn = 0;
  if (!KVXEParamControlMgr::getGlobal().getParam("LOG_CLOCK_DETAILS", isOn) || isOn == 0) return;
  const auto line = [](const char* name, float value) {
    std::cout << "  " << name << " = " << KVXMHelperUtils::formatFixed(value, 6) << '\n';
  };
  std::cout << "Clock " << clock.tag << '\n' << "  fanout = " << clock.fanout << '\n';
  line("fanout per site", clock.fanoutPerSite);
  line("buffer enable", clock.bufferEnable);
  line("slice enable", clock.sliceEnable);
  line("VCCINT (V)", clock.volts);
  line("VCCINT power (W)", vccintWatts);
  line("VCCRAM power (W)", vccramWatts);
}

// Power by rail.

namespace {

/// Writes the sum of one column over the tables of clocks and of clock managers; a table that the tab does
/// not have, or that has no such column, adds nothing.
void writeSumOfTables(const KVXEUID& uid, const KVXETitle& column) {
  if (!kvxe::isInTable(uid, KVXETab::m_PowerTable, "power of the clock tab")) return;
  float watts = 0.0f;
  for (const KVXETitle* title : {&KVXEClockTab::m_ClockConfigTable, &KVXEClockTab::m_ClkMgrTable}) {
    const KVXETable* table = uid.getTab()->getTable(title);
    if (table && table->findTitle(&column) < table->getColumnCount())
      watts += uid.getTab()->sumColumn(title, &column);
  }
  uid.getCell()->setValAndMarkEngineClean(watts);
}

}  // namespace

void KVXEClockTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  writeSumOfTables(uid, m_VccintPwr);
}
void KVXEClockTab::updateVccramActivePowerInPowerTable(const KVXEUID& uid) {
  writeSumOfTables(uid, m_VccramPwr);
}
void KVXEClockTab::updateVccintioActivePowerInPowerTable(const KVXEUID& uid) {
  writeSumOfTables(uid, m_VccioPwr);
}
void KVXEClockTab::updateVccauxActivePowerInPowerTable(const KVXEUID& uid) {
  writeSumOfTables(uid, m_VccauxPwr);
}

// Utilization.

kvxe::UtilizationRow KVXEClockTab::clockUtilizationRow() {
  return {.type = m_ClockStr,
          .resource = "",
          .sumPower =
              [](const KVXEUID& uid) {
                return std::optional(uid.getTab()->sumColumn(&m_ClockConfigTable, &m_Power));
              },
          .overflow = ""};
}

std::string KVXEClockTab::managerOverflowText(const std::string& type) {
  return "<html>" + type +
         " utilization exceeds 100%.\nPlease review the usage in Clock Managers table.</html>";
}
