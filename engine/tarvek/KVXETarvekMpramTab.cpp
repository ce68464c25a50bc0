#include "engine/tarvek/KVXETarvekMpramTab.h"

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/tarvek/KVXMTarvekHsRam.h"

using Title = const KVXETitle;

Title KVXETarvekMpramTab::m_ConfigTable("MPRAM_CONFIGURATION", "MPRAM Configuration");
Title KVXETarvekMpramTab::m_Name("MPRAM_NAME", "Name");
Title KVXETarvekMpramTab::m_IntfClkFreq("MPRAM_INT_CLK_FREQ", "Interface Clock Frequency (MHz)");
Title KVXETarvekMpramTab::m_ToggleRate("MPRAM_TOGGLE_RATE", "Toggle Rate");
Title KVXETarvekMpramTab::m_AvgDutyCycle("MPRAM_AVG_DUTY_CYCLE", "Avg Active Duty Cycle");
Title KVXETarvekMpramTab::m_NumMemory("MPRAM_NUM_MEMORY", "Number of RAMs");
Title KVXETarvekMpramTab::m_VccintPower("MPRAM_VCCINT_POWER", "Vccint Power (W)");
Title KVXETarvekMpramTab::m_UserComments("USER_COMMENTS", "User Comments");

const std::string KVXETarvekMpramTab::m_mpramStr = "MPRAM";

namespace {

using Tab = KVXETarvekMpramTab;

constexpr double DefaultToggleRate = 0.125;
constexpr double DefaultDutyCycle = 0.5;

const KVXEColumn columns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
    {.title = &Tab::m_IntfClkFreq,
     .type = KVXEEnums::CellType::FLOAT,
     .isEditable = true,
     .unit = KVXEEnums::Unit::FREQUENCY_HIDE,
     .minimum = 0,
     .toolTip = "<html>The frequency of the clock at the interface of the RAMs (MHz).</html>"},
    kvxe::column::rate(Tab::m_ToggleRate, DefaultToggleRate,
                       "<html>The average rate at which the data outputs switch, relative to the "
                       "accesses.</html>"),
    kvxe::column::rate(Tab::m_AvgDutyCycle, DefaultDutyCycle,
                       "<html>The percentage of the time that the RAMs are accessed.</html>"),
    kvxe::column::count(Tab::m_NumMemory, "<html>The number of RAMs that this module uses.</html>",
                        kvxe::largestCount),
    kvxe::column::watts(Tab::m_VccintPower, &Tab::updateMpramConfigPowerRow,
                        "<html>The power that this module draws from the core supply.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

const kvxe::UtilizationRow utilization{
    .type = Tab::m_mpramStr,
    .resource = "MPRAM",
    .countUsed = &kvxe::sumOfColumn<Tab::m_ConfigTable, Tab::m_NumMemory>,
    .overflow = "<html>Utilization exceeds 100%.\nPlease review the usage in MPRAM table.</html>"};

}  // namespace

void KVXETarvekMpramTab::init() {
  KVXETab::init();
  kvxe::createConfigTable(*this, m_ConfigTable, columns, "MPRAM");
  std::vector<PowerTableRow> rails{{"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula}};
  initPowerTableRows(rails);
  std::vector<UtilizationTableRow> used{{m_mpramStr, &updateUtilizationTable}};
  initUtilizationTableRows(used);
}

void KVXETarvekMpramTab::updateMpramConfigPowerRow(const KVXEUID& uid) {
  using F = KVXMTarvekHsRamParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_ConfigTable, "power of multi-port memories")) return;
  KVXERow* row = uid.getRow();
  const int count = kvxe::readCount(row, m_NumMemory);
  const float megahertz = kvxe::readNumber(row, m_IntfClkFreq, 0.0f);
  const auto volts = kvxe::readVoltage(uid, "VCCINT");
  if (count <= 0 || !(megahertz > 0.0f) || !volts) return uid.getCell()->setBlankAndMarkEngineClean();
  KVXMTarvekHsRamParams params;
  params[KVXMTarvekHsRamParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[KVXMTarvekHsRamParams::IntEnum::NUM_MEMORY] = count;
  params[F::FREQUENCY] = megahertz;
  params[F::VCCINT] = *volts;
  params[F::TOGGLE_RATE] = kvxe::readNumber(row, m_ToggleRate, static_cast<float>(DefaultToggleRate));
  params[F::DUTY_CYCLE] = kvxe::readNumber(row, m_AvgDutyCycle, static_cast<float>(DefaultDutyCycle));
  KVXMTarvekHsRamModel::getGlobal().calculate(params);
  uid.getCell()->setValAndMarkEngineClean(params[F::VCCINT_POWER]);
}

void KVXETarvekMpramTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_ConfigTable, m_VccintPower>(uid);
}

void KVXETarvekMpramTab::updateUtilizationTable(const KVXEUID& uid) {
  if (kvxe::isInTable(uid, m_UtilTable, "utilization of multi-port memories"))
    kvxe::updateUtilizationCell(uid, utilization);
}
