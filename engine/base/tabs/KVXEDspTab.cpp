#include "engine/base/tabs/KVXEDspTab.h"

#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::ValueSource;

using Title = const KVXETitle;

Title KVXEDspTab::m_DspConfigTable("DSP_CONFIG_MAP", "DSP Settings", "DSP_CONFIGURATION");
Title KVXEDspTab::m_Name("NAME", "Name", "name");
Title KVXEDspTab::m_Clock("CLOCK", "Clock", "clockFreq");
Title KVXEDspTab::m_ToggleRate("TOGGLE_RATE", "Toggle Rate", "toggleRate");
Title KVXEDspTab::m_MultUsed("MULT_USED", "Mult Used ?");
Title KVXEDspTab::m_MultPipelineUsed("MREG_USED", "Multiplier Pipeline Used ?", "mregUsed");
Title KVXEDspTab::m_PreaddUsed("PREADD_USED", "Pre-add Used ?");
Title KVXEDspTab::m_AdRegUsed("ADREG_USED", "AD Reg Used ?", "inputPipelineUsed");
Title KVXEDspTab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title KVXEDspTab::m_UserComments("USER_COMMENTS", "User Comments");

const std::string KVXEDspTab::m_dspStr = "DSP";
const std::string KVXEDspTab::m_yesStr = "Yes";
const std::string KVXEDspTab::m_noStr = "No";

// Columns.

namespace {

const char* const yesNo[] = {"Yes", "No"};

KVXEColumn stage(const KVXETitle& title, const char* start, KVXEFormula formula, const char* toolTip) {
  return kvxe::column::choice(title, yesNo, start, toolTip, formula);
}

}  // namespace

KVXEColumn KVXEDspTab::nameColumn() {
  return kvxe::column::name(m_Name, "<html>The name of this module.</html>");
}
KVXEColumn KVXEDspTab::countColumn(const KVXETitle& title, const char* toolTip) {
  return kvxe::column::count(title, toolTip);
}
KVXEColumn KVXEDspTab::clockColumn() {
  return kvxe::column::clock(m_Clock,
                             "<html>The clock of this module, from the clock tab.\nA module without a clock "
                             "has no dynamic power.</html>");
}
KVXEColumn KVXEDspTab::toggleRateColumn() {
  return kvxe::column::rate(
      m_ToggleRate, DefaultToggleRate,
      "<html>The average rate at which the operands and results of this module switch, relative to the "
      "clock.\n100% is one transition in each clock cycle; random data make 50%, most designs 12.5%.</html>");
}
KVXEColumn KVXEDspTab::multColumn(KVXEFormula formula) {
  return stage(m_MultUsed, "Yes", formula,
               "<html>Whether the multiplier of the slices is used.\nWithout it a slice adds, compares or "
               "counts.</html>");
}
KVXEColumn KVXEDspTab::multPipelineColumn(KVXEFormula formula) {
  return stage(m_MultPipelineUsed, "Yes", formula,
               "<html>Whether the register behind the multiplier (MREG) is used.\nIt keeps the multiplier's "
               "glitches from the adder and lowers the power of all but slow data.</html>");
}
KVXEColumn KVXEDspTab::preaddColumn(KVXEFormula formula, bool isEditable) {
  KVXEColumn column = stage(m_PreaddUsed, "No", formula,
                            "<html>Whether the adder in front of the multiplier is used.</html>");
  column.isEditable = isEditable;
  return column;
}
KVXEColumn KVXEDspTab::adRegColumn(KVXEFormula formula) {
  return stage(m_AdRegUsed, "No", formula,
               "<html>Whether the register between pre-adder and multiplier (ADREG) is used.</html>");
}
KVXEColumn KVXEDspTab::powerColumn(KVXEFormula formula) {
  return kvxe::column::watts(m_VccintPower, formula,
                             "<html>The power that this module draws from the core supply: its slices and "
                             "the nets that they drive.</html>");
}
KVXEColumn KVXEDspTab::commentsColumn() {
  return kvxe::column::comments(m_UserComments);
}

// Tables.

void KVXEDspTab::initTables(std::span<const KVXEColumn> columns, KVXEFormula utilization) {
  KVXETab::init();
  kvxe::createConfigTable(*this, m_DspConfigTable, columns, "DSP");
  std::vector<PowerTableRow> power{{"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula}};
  initPowerTableRows(power);
  std::vector<UtilizationTableRow> used{{m_dspStr, utilization}};
  initUtilizationTableRows(used);
}

void KVXEDspTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_DspConfigTable, m_VccintPower>(uid);
}

kvxe::UtilizationRow KVXEDspTab::utilizationRow(std::optional<float> (*countUsed)(const KVXEUID& uid)) {
  return {.type = m_dspStr,
          .resource = "DSP",
          .countUsed = countUsed,
          .overflow = "<html>Utilization exceeds 100%.\nPlease review the usage in DSP table.</html>"};
}

// Stages of the slice.

void KVXEDspTab::applyStage(const KVXEUID& uid, Stage stage) {
  KVXECell* cell = uid.getCell();
  cell->setIsEditable(stage == Stage::Free);
  if (stage != Stage::Free) return cell->setValAndMarkEngineClean(stage == Stage::Used ? m_yesStr : m_noStr);
  std::string text;
  if (cell->getVal(text, false) && kvxe::isGiven(*cell)) return cell->markEngineClean();
  cell->getHeaderDefaultCell()->getVal(text, false);
  cell->setValAndMarkEngineClean(text);
  cell->setValueSource(ValueSource::DEFAULT);
}

bool KVXEDspTab::isUsed(const KVXEUID& uid, const KVXETitle& column) {
  return kvxe::readText(uid.getRow(), column) == m_yesStr;
}

// Readers of a row.

std::optional<float> KVXEDspTab::getVccintN(const KVXEUID& uid) {
  return kvxe::readVoltage(uid, "VCCINT");
}

std::optional<float> KVXEDspTab::getClockFreq(const KVXEUID& uid) {
  return kvxe::readClockFrequency(uid.getRow(), m_Clock);
}

std::optional<int> KVXEDspTab::getSliceCount(const KVXEUID& uid, const KVXETitle& column) {
  const int slices = kvxe::readCount(uid.getRow(), column);
  return slices > 0 ? std::optional(slices) : std::nullopt;
}

float KVXEDspTab::getSignalRate(const KVXEUID& uid) {
  return kvxe::readNumber(uid.getRow(), m_ToggleRate, DefaultToggleRate);
}

std::optional<KVXEDspTab::DspRow> KVXEDspTab::readDspRow(const KVXEUID& uid, const KVXETitle& countColumn) {
  const std::optional<int> slices = getSliceCount(uid, countColumn);
  const std::optional<float> megahertz = getClockFreq(uid);
  if (!slices || !megahertz) return std::nullopt;
  const std::optional<float> volts = getVccintN(uid);
  if (!volts) return std::nullopt;
  return DspRow{*slices, *megahertz, *volts, getSignalRate(uid)};
}
