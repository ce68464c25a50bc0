#include "tests/docs/new_tab/KVXETarvekSysmonTab.h"

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"
#include "tests/docs/new_tab/KVXMTarvekSysmon.h"

using Tab = KVXETarvekSysmonTab;
using Title = const KVXETitle;

Title Tab::m_SysmonTable("SYSMON_CONFIGURATION", "System Monitor Settings");
Title Tab::m_Name("NAME", "Name");
Title Tab::m_Monitors("MONITORS", "Monitors");
Title Tab::m_Clock("CLOCK", "Clock");
Title Tab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title Tab::m_UserComments("USER_COMMENTS", "User Comments");

namespace {

const KVXEColumn columns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
    kvxe::column::count(Tab::m_Monitors, "<html>The number of monitors that this module uses.</html>"),
    kvxe::column::clock(Tab::m_Clock, "<html>The clock of the monitors, from the clock tab.</html>"),
    kvxe::column::watts(Tab::m_VccintPower, &Tab::updatePowerRow,
                        "<html>The power that the monitors draw from the core supply.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

}  // namespace

void KVXETarvekSysmonTab::init() {
  KVXETab::init();
  kvxe::createConfigTable(*this, m_SysmonTable, columns, "System Monitor");
  std::vector<PowerTableRow> rails{
      {"VCCINT", &kvxe::sumIntoRail<m_SysmonTable, m_VccintPower>, &KVXECell::NoFormula}};
  initPowerTableRows(rails);
  std::vector<UtilizationTableRow> used{{"Monitors", &updateUtilization}};
  initUtilizationTableRows(used);
}

void KVXETarvekSysmonTab::updatePowerRow(const KVXEUID& uid) {
  using F = KVXMTarvekSysmonParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_SysmonTable, "power of monitors")) return;
  KVXMTarvekSysmonParams params;
  const auto megahertz = kvxe::readClockFrequency(uid.getRow(), m_Clock);
  const auto volts = kvxe::readVoltage(uid, "VCCINT");
  int& monitors = params[KVXMTarvekSysmonParams::IntEnum::MONITORS];
  const bool isUsed = uid.getRow()->getCell(&m_Monitors)->getVal(monitors, true) && monitors > 0;
  if (!isUsed || !megahertz || !volts) return uid.getCell()->setBlankAndMarkEngineClean();
  params[KVXMTarvekSysmonParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[F::FREQUENCY] = *megahertz;
  params[F::VCCINT] = *volts;
  KVXMTarvekSysmonModel::getGlobal().calculate(params);
  uid.getCell()->setValAndMarkEngineClean(params[F::VCCINT_POWER]);
}

void KVXETarvekSysmonTab::updateUtilization(const KVXEUID& uid) {
  static const kvxe::UtilizationRow row{
      .type = "Monitors",
      .resource = "FSR",
      .countUsed = &kvxe::sumOfColumn<m_SysmonTable, m_Monitors>,
      .sumPower = &kvxe::sumOfColumn<m_SysmonTable, m_VccintPower>,
      .overflow = "<html>Utilization exceeds 100%.\nPlease review the system monitors.</html>"};
  if (kvxe::isInTable(uid, m_UtilTable, "use of monitors")) kvxe::updateUtilizationCell(uid, row);
}
