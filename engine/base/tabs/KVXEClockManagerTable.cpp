// The clock manager table of the clock tab: its columns, the lists that it offers, the frequency of the
// oscillators, and what the other tables read of it.

#include <algorithm>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/Effects.h"
#include "models/common/KVXMHelperUtils.h"

using enum KVXEEnums::CellType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

// Columns.

namespace {

using Tab = KVXEClockTab;

constexpr double LargestDivide = 128;
constexpr double LargestMultiply = 64;

const char* const phaseShifts[] = {"None", "Fixed", "Dynamic"};

// What the architectures differ in is assigned when the table is made, here and below.
const KVXEColumn managerColumns[] = {
    kvxe::column::name(Tab::m_Name,
                       "The name of this clock manager instance. Providing a name for the instance is "
                       "mandatory as it gets used while referring to this clock manager in clock "
                       "configuration table."),
    kvxe::column::choice(Tab::m_ClkMgrType, {}, "", "", &Tab::updateClkMgrType),
    {.title = &Tab::m_RefClock,
     .type = FLOAT,
     .isEditable = true,
     .unit = Unit::FREQUENCY_HIDE,
     .minimum = 0,
     .toolTip = "<html>The reference clock used for input to the clock manager. Please define an "
                "external/internal clock in clock configuration table to use it here. </html>"},
    {.title = &Tab::m_VcoFreq,
     .type = FLOAT,
     .formula = &Tab::updateVCOFreq,
     .unit = Unit::FREQUENCY_HIDE,
     .toolTip = "<html>The operating frequency of the Voltage Controlled Oscillator(VCO).</html>"},
    {.title = &Tab::m_DivideCounter,
     .type = INT,
     .isEditable = true,
     .minimum = 1,
     .maximum = LargestDivide,
     .toolTip = "<html>The divide counter value [1-128]. Set the value to blank to denote Off.</html>"},
    {.title = &Tab::m_MultiplyCounter,
     .type = INT,
     .isEditable = true,
     .minimum = 1,
     .maximum = LargestMultiply,
     .toolTip = "<html>The multiply counter value [1-64]. Set the value to blank to denote Off.</html>"},
    kvxe::column::watts(Tab::m_VccioPwr, &KVXECell::NoFormula,
                        "Power that this clock manager draws from the supply of the IO banks' logic.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccintPwr, &KVXECell::NoFormula,
                        "Power that this clock manager draws from the core supply.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccauxPwr, &KVXECell::NoFormula,
                        "Power that this clock manager draws from the auxiliary supply.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccramPwr, &KVXECell::NoFormula,
                        "Power that this clock manager draws from the supply of the memories.",
                        Visibility::INTERNAL),
    kvxe::column::watts(
        Tab::m_Power, &KVXECell::NoFormula,
        "<html>The power of this clock manager: its oscillator, bias and output dividers.</html>"),
    kvxe::column::choice(
        Tab::m_PhaseShift, phaseShifts, "None",
        "<html>Is the FSYN clock phase shifting dynamic, fixed or not shifted?<br>When PSCLK is used "
        "the phase shift should be set to dynamic.</html>"),
};

/// The titles of one output.
struct Output {
  const KVXETitle* divide;
  const KVXETitle* fanoutRow;
};
const Output outputs[] = {
    {&Tab::m_Clk0Divide, &Tab::m_Clk0FanoutRow}, {&Tab::m_Clk1Divide, &Tab::m_Clk1FanoutRow},
    {&Tab::m_Clk2Divide, &Tab::m_Clk2FanoutRow}, {&Tab::m_Clk3Divide, &Tab::m_Clk3FanoutRow},
    {&Tab::m_Clk4Divide, &Tab::m_Clk4FanoutRow}, {&Tab::m_Clk5Divide, &Tab::m_Clk5FanoutRow},
    {&Tab::m_Clk6Divide, &Tab::m_Clk6FanoutRow},
};
constexpr int OutputsOfEveryType = 3;

// How a manager and the clocks of the clock table belong together.
const KVXEColumn linkColumns[] = {
    {.title = &Tab::m_InputClkName,
     .type = STRING,
     .toolTip = "The clock that is the reference.",
     .visibility = Visibility::INTERNAL},
    {.title = &Tab::m_OutputClkNames,
     .type = STRING,
     .toolTip = "The clocks that this clock manager puts out.",
     .visibility = Visibility::INTERNAL},
    kvxe::column::rate(Tab::m_PowerDown, 0.0,
                       "<html>The percentage of the time that this clock manager is powered down.</html>"),
    {.title = &Tab::m_VcoRange,
     .type = STRING,
     .toolTip = "The range that was asked for of the oscillator.",
     .visibility = Visibility::INTERNAL},
};

void addOutputColumns(KVXETable* table) {
  for (const Output& output : outputs) {
    const int number = static_cast<int>(&output - outputs);
    const std::string toolTip = "<html>The Clock " + KVXMHelperUtils::ToString(number) +
                                " output divide value [1-128]. Set the value to blank to denote Off." +
                                (number < OutputsOfEveryType ? "" : " This is only applicable to FSYN.") +
                                "</html>";
    const KVXEColumn divide{.title = output.divide,
                            .type = INT,
                            .isEditable = true,
                            .minimum = 1,
                            .maximum = LargestDivide,
                            .toolTip = toolTip.c_str()};
    table->addColumns({&divide, 1});
  }
  for (const Output& output : outputs) {
    const KVXEColumn fanoutRow{.title = output.fanoutRow,
                               .type = INT,
                               .toolTip = "The row of the clock that this output is.",
                               .visibility = Visibility::INTERNAL};
    table->addColumns({&fanoutRow, 1});
  }
}

}  // namespace

KVXETable* KVXEClockTab::initClkMgrTable(const ManagerFormulas& formulas) {
  KVXETable* table = createTable(&m_ClkMgrTable, true, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(managerColumns);
  addOutputColumns(table);
  table->addColumns(linkColumns);
  const auto assign = [table](const KVXETitle& column, KVXEFormula formula) {
    table->getHeaderRow()->getDefaultCell(&column)->assignFormula(formula);
  };
  assign(m_Name, formulas.name);
  assign(m_PhaseShift, formulas.phaseShift);
  for (const KVXETitle* result : {&m_VccioPwr, &m_VccintPwr, &m_VccauxPwr, &m_VccramPwr, &m_Power})
    assign(*result, formulas.power);
  offerClkMgrTypes(table);
  table->setTabWidgetTitle("Clock Manager");
  table->setHasTableEditingFeatures(true);
  table->getOrCreateRow(RowCount);
  return table;
}

// Types.

namespace {

std::string typeToolTip(const std::vector<std::string>& types) {
  std::string list;
  for (std::size_t i = 0; i < types.size(); ++i) {
    const bool isLast = i + 1 == types.size();
    if (i > 0) list += isLast ? " or " : ", ";
    list += types[i];
  }
  return "<html>The clock manager type: " + list + "</html>";
}

}  // namespace

void KVXEClockTab::offerClkMgrTypes(KVXETable* table) const {
  const std::vector<std::string> types = getClockMgrTypes();
  if (kvxe::offerInColumn(table->getHeaderRow()->getDefaultCell(&m_ClkMgrType), types))
    table->setColumnToolTip(&m_ClkMgrType, typeToolTip(types));
}

void KVXEClockTab::updateClkMgrType(const KVXEUID& uid) {
  const auto* tab = dynamic_cast<const KVXEClockTab*>(uid.getTab());
  if (!tab || !kvxe::isInTable(uid, m_ClkMgrTable, "type of a clock manager")) return;
  // The list is the column's: the first row that is evaluated after a change of the device brings it.
  tab->offerClkMgrTypes(uid.getTable());
  uid.getCell()->markEngineClean();
}

// The oscillator.

std::optional<std::pair<float, float>> KVXEClockTab::getVcoLimits(const std::string&) const {
  return std::nullopt;
}

namespace {

/// f_ref * M / D; nothing while one of them is blank or 0.
std::optional<float> oscillatorFrequency(KVXERow* row) {
  const float reference = kvxe::readNumber(row, Tab::m_RefClock, 0.0f);
  const float multiply = kvxe::readNumber(row, Tab::m_MultiplyCounter, 0.0f);
  const float divide = kvxe::readNumber(row, Tab::m_DivideCounter, 0.0f);
  const double megahertz = kvxm::oscillatorFrequency(reference, multiply, divide);
  if (!(megahertz > 0.0) || megahertz >= kvxeBlank<float>) return std::nullopt;
  return static_cast<float>(megahertz);
}

std::string vcoLimitsText(const std::string& type, const std::pair<float, float>& limits) {
  const auto number = [](float megahertz) { return KVXMHelperUtils::formatFixed(megahertz, 0); };
  return "<html>The VCO frequency of " + type + " must be between " + number(limits.first) + " and " +
         number(limits.second) +
         " MHz.\nPlease review the reference clock, the divide counter and the multiply counter.</html>";
}

}  // namespace

void KVXEClockTab::updateVCOFreq(const KVXEUID& uid) {
  const auto* tab = dynamic_cast<const KVXEClockTab*>(uid.getTab());
  if (!tab || !kvxe::isInTable(uid, m_ClkMgrTable, "VCO frequency")) return;
  const std::string type = kvxe::readText(uid.getRow(), m_ClkMgrType);
  const std::optional<float> megahertz = oscillatorFrequency(uid.getRow());
  const auto limits = tab->getVcoLimits(type);
  const bool isOutside = megahertz && limits && (*megahertz < limits->first || *megahertz > limits->second);
  kvxe::showWarning(uid.getCell(), isOutside ? std::optional(vcoLimitsText(type, *limits)) : std::nullopt);
  kvxe::writeResult(uid.getRow(), m_VcoFreq, megahertz);
}

// What the utilization table reads.

float KVXEClockTab::getClkMgrPower(const KVXEUID& uid, const std::string& type) {
  std::vector<KVXECell*> cells;
  if (!uid.getTab()->getTable(&m_ClkMgrTable)) return 0.0f;
  uid.getTab()->lookup<std::string>(&m_ClkMgrTable, type, &m_ClkMgrType, &m_Power, cells, false);
  double watts = 0.0;
  for (KVXECell* cell : cells)
    if (float value = 0.0f; cell->getVal(value, true)) watts += value;
  return static_cast<float>(watts);
}

int KVXEClockTab::getNumClkMgrsUsed(const KVXEUID& uid, const std::string& type) {
  std::vector<KVXECell*> names;
  if (!uid.getTab()->getTable(&m_ClkMgrTable)) return 0;
  uid.getTab()->lookup<std::string>(&m_ClkMgrTable, type, &m_ClkMgrType, &m_Name, names, false);
  return static_cast<int>(std::count_if(names.begin(), names.end(), [](KVXECell* cell) {
    std::string name;
    return cell->getVal(name, true);
  }));
}
