#include "engine/base/tabs/KVXEBramTab.h"

#include <algorithm>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/common/KVXMHelperUtils.h"

using Title = const KVXETitle;

Title KVXEBramTab::m_BramConfigTable("BRAM_CONFIGURATION", "Block RAM Settings");
Title KVXEBramTab::m_Name("NAME", "Name", "name");
Title KVXEBramTab::m_BramCount("BRAM_COUNT", "BRAMs", "count");
Title KVXEBramTab::m_CascadeGroupSize("CASCADE_GROUP_SIZE", "Cascade Group Size", "cascade");
Title KVXEBramTab::m_Mode("MODE", "Mode", "mode");
Title KVXEBramTab::m_ToggleRate("TOGGLE_RATE", "Toggle Rate", "toggleRate");
Title KVXEBramTab::m_PortAClock("PORT_A_CLOCK", "Port A Clock", "portAclockFreq");
Title KVXEBramTab::m_PortAEnableRate("PORT_A_ENABLE_RATE", "Port A Enable Rate", "portAenableRate");
Title KVXEBramTab::m_PortABitWidth("PORT_A_BIT_WIDTH", "Port A  Bit Width", "portAwidth");
Title KVXEBramTab::m_PortAWriteMode("PORT_A_WRITE_MODE", "Port A Write Mode", "portAwriteMode");
Title KVXEBramTab::m_PortAWriteEnable("PORT_A_WRITE_ENABLE", "Port A   Write Enable", "portAwriteRate");
Title KVXEBramTab::m_PortBClock("PORT_B_CLOCK", "Port B Clock", "portBclockFreq");
Title KVXEBramTab::m_PortBEnableRate("PORT_B_ENABLE_RATE", "Port B Enable Rate", "portBenableRate");
Title KVXEBramTab::m_PortBBitWidth("PORT_B_BIT_WIDTH", "Port B  Bit Width", "portBwidth");
Title KVXEBramTab::m_PortBWriteMode("PORT_B_WRITE_MODE", "Port B Write Mode", "portBwriteMode");
Title KVXEBramTab::m_PortBWriteEnable("PORT_B_WRITE_ENABLE", "Port B   Write Enable", "portBwriteRate");
Title KVXEBramTab::m_VccintPower("VCCINT_POWER", "VCCINT Power");
Title KVXEBramTab::m_VccRamPower("VCCRAM_POWER", "VCC_RAM Power");
Title KVXEBramTab::m_UserComments("USER_COMMENTS", "User Comments");

const std::string KVXEBramTab::m_bramStr = "BRAM";

// Columns.

namespace {

using Tab = KVXEBramTab;
using KVXEEnums::Visibility;

constexpr double DefaultToggleRate = 0.125;
constexpr double DefaultEnableRate = 0.25;

const char* const modes[] = {"BMEM18",
                             "BMEM36",
                             "BMEM18SDP",
                             "BMEM36SDP",
                             "BMEM36SDP_ECC",
                             "BMEM36SDP_ECC_ENCODE_ONLY",
                             "BMEM36SDP_ECC_DECODE_ONLY"};
const char* const writeModes[] = {"NO_CHANGE", "READ_FIRST", "WRITE_FIRST"};

const char* const widthsOfDefaultMode[] = {"9", "18"};

/// Text, though a number: the screen cannot show a blank entry of a number list.
KVXEColumn widthColumn(const KVXETitle& title, KVXEFormula formula, const char* toolTip) {
  return {.title = &title,
          .type = KVXEEnums::CellType::STRING,
          .isEditable = true,
          .formula = formula,
          .isDropdown = true,
          .entries = widthsOfDefaultMode,
          .toolTip = toolTip};
}

KVXEColumn cascadeColumn() {
  KVXEColumn column = kvxe::column::count(
      Tab::m_CascadeGroupSize,
      "<html>The number of BRAMs of this module that form one deep memory, up to 12.\nOnly one BRAM of a "
      "cascade is accessed at a time. Leave it blank for BRAMs that stand alone.</html>",
      4);
  column.formula = &Tab::updateCascadeGroupRange;
  return column;
}

// The formula of the results is the architecture's.
const KVXEColumn columns[] = {
    kvxe::column::name(Tab::m_Name, "<html>The name of this module.</html>"),
    kvxe::column::count(Tab::m_BramCount, "<html>The number of BRAMs that this module uses.</html>",
                        kvxe::largestCount),
    cascadeColumn(),
    kvxe::column::choice(Tab::m_Mode, modes, "BMEM18",
                         "<html>The size and the ports of the BRAMs: 18 or 36 Kb, true or simple dual port "
                         "(SDP), with or without error correction (ECC).\nIn SDP configurations PortA is the "
                         "read port and PortB is the write port.</html>"),
    kvxe::column::rate(Tab::m_ToggleRate, DefaultToggleRate,
                       "<html>The average rate at which the data outputs switch, relative to the accesses of "
                       "their port.</html>"),
    kvxe::column::clock(Tab::m_PortAClock,
                        "<html>The clock of PortA, from the clock tab.\nA port without a clock is not "
                        "used.</html>"),
    kvxe::column::rate(Tab::m_PortAEnableRate, DefaultEnableRate,
                       "<html>The percentage of the time that PortA is enabled.</html>"),
    widthColumn(Tab::m_PortABitWidth, &Tab::updateBitWidthADropdown,
                "<html>The width of PortA in bits, parity included.\nWhich widths there are follows from the "
                "mode and the width of PortB.</html>"),
    kvxe::column::choice(
        Tab::m_PortAWriteMode, writeModes, "NO_CHANGE",
        "<html>What the outputs of PortA show while it is being written to: what they showed "
        "before, the word that was stored, or the word that is written.\nNot used in SDP and "
        "FIFO configurations as PortA is the read port and PortB is the write port.</html>"),
    kvxe::column::rate(Tab::m_PortAWriteEnable, DefaultEnableRate,
                       "<html>The percentage of the time that PortA is being written to, independent of the "
                       "RAM enable. Read enable is (100% - Write Enable).\nNot used in SDP and FIFO "
                       "configurations as PortA is the read port and PortB is the write port.</html>"),
    kvxe::column::clock(Tab::m_PortBClock,
                        "<html>The clock of PortB, from the clock tab.\nA port without a clock is not "
                        "used.</html>"),
    kvxe::column::rate(Tab::m_PortBEnableRate, DefaultEnableRate,
                       "<html>The percentage of the time that PortB is enabled.</html>"),
    widthColumn(Tab::m_PortBBitWidth, &Tab::updateBitWidthBDropdown,
                "<html>The width of PortB in bits, parity included.\nWhich widths there are follows from the "
                "mode and the width of PortA.</html>"),
    kvxe::column::choice(
        Tab::m_PortBWriteMode, writeModes, "NO_CHANGE",
        "<html>What the outputs of PortB show while it is being written to: what they showed "
        "before, the word that was stored, or the word that is written.\nNot used in SDP and "
        "FIFO configurations as PortA is the read port and PortB is the write port.</html>"),
    kvxe::column::rate(Tab::m_PortBWriteEnable, DefaultEnableRate,
                       "<html>The percentage of the time that PortB is being written to, independent of the "
                       "RAM enable. Read enable is (100% - Write Enable).\nNot used in SDP and FIFO "
                       "configurations as PortA is the read port and PortB is the write port.</html>"),
    kvxe::column::watts(Tab::m_VccintPower, &KVXECell::NoFormula,
                        "Power that this module draws from the core supply.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_VccRamPower, &KVXECell::NoFormula,
                        "Power that this module draws from the supply of the memories.",
                        Visibility::INTERNAL),
    kvxe::column::watts(KVXETab::m_Power, &KVXECell::NoFormula,
                        "<html>The power of this module: its memories and the nets at their ports.</html>"),
    kvxe::column::comments(Tab::m_UserComments),
};

const KVXETitle* const results[] = {&Tab::m_VccintPower, &Tab::m_VccRamPower, &KVXETab::m_Power};

// Utilization.

/// A memory of 18 Kb is half of one.
std::optional<float> countUsedMemories(const KVXEUID& uid) {
  const KVXETable* table = uid.getTab()->getTable(&Tab::m_BramConfigTable);
  const unsigned int countColumn = table->findTitle(&Tab::m_BramCount);
  const unsigned int modeColumn = table->findTitle(&Tab::m_Mode);
  double used = 0.0;
  for (unsigned int i = 1; i < table->getRowCount(); ++i) {
    float count = 0.0f;
    if (!table->getCellAt(i, countColumn)->getVal(count, true)) continue;
    auto* mode = static_cast<KVXEStringCell*>(table->getCellAt(i, modeColumn));
    used += static_cast<double>(count) * (mode->readVal(true).starts_with("BMEM18") ? 0.5 : 1.0);
  }
  return static_cast<float>(used);
}

const kvxe::UtilizationRow utilization{
    .type = Tab::m_bramStr,
    .resource = "BRAM",
    .countUsed = &countUsedMemories,
    .overflow = "<html>Utilization exceeds 100%.\nPlease review the usage in BRAM table.</html>"};

}  // namespace

void KVXEBramTab::initTables(KVXEFormula power) {
  KVXETab::init();
  std::vector<KVXEColumn> declared(std::begin(columns), std::end(columns));
  for (KVXEColumn& column : declared)
    if (std::find(std::begin(results), std::end(results), column.title) != std::end(results))
      column.formula = power;
  kvxe::createConfigTable(*this, m_BramConfigTable, declared, "BRAM");
  std::vector<PowerTableRow> rails{
      {"VCCINT", &updateVccintActivePowerInPowerTable, &KVXECell::NoFormula},
      {"VCCRAM", &updateVccramActivePowerInPowerTable, &KVXECell::NoFormula},
  };
  initPowerTableRows(rails);
  std::vector<UtilizationTableRow> used{{m_bramStr, &updateUtilizationTable}};
  initUtilizationTableRows(used);
}

void KVXEBramTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_BramConfigTable, m_VccintPower>(uid);
}
void KVXEBramTab::updateVccramActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_BramConfigTable, m_VccRamPower>(uid);
}

void KVXEBramTab::updateUtilizationTable(const KVXEUID& uid) {
  if (kvxe::isInTable(uid, m_UtilTable, "utilization of block memories"))
    kvxe::updateUtilizationCell(uid, utilization);
}

float KVXEBramTab::updateTotalLogicPower(const KVXEUID& uid) {
  return uid.getTab()->sumColumn(&m_BramConfigTable, &m_Power);
}

// Widths of the ports.

namespace {

std::string modeOf(const KVXEUID& uid) {
  std::string mode;
  uid.getRow()->getCell(&Tab::m_Mode)->getVal(mode, true);
  return mode;
}

/// The width that the user chose. It is read as it stands: the formulas of the two ports read each other's
/// width, and neither writes one.
int widthOf(KVXERow* row, const KVXETitle& column) {
  int width = 0;
  return row->getCell(&column)->getVal(width, false) ? width : 0;
}

/// A port of a simple dual port memory is narrow only next to one of the full width.
std::vector<int> widthsOf(const std::string& mode, int otherWidth) {
  if (mode == "BMEM18") return {9, 18};
  if (mode == "BMEM36") return {9, 18, 36};
  if (mode == "BMEM18SDP") return otherWidth > 35 ? std::vector{9, 18, 36} : std::vector{36};
  if (mode == "BMEM36SDP") return otherWidth > 71 ? std::vector{9, 18, 36, 72} : std::vector{72};
  if (mode.find("ECC") != std::string::npos) return {72};
  return {0};
}

void updateBitWidths(const KVXEUID& uid, const KVXETitle& otherPort) {
  if (!kvxe::isInTable(uid, Tab::m_BramConfigTable, "bit width of a port")) return;
  std::vector<std::string> texts;
  for (const int width : widthsOf(modeOf(uid), widthOf(uid.getRow(), otherPort)))
    texts.push_back(KVXMHelperUtils::ToString(width));
  kvxe::offerInCell(uid.getCell(), texts);
  uid.getCell()->addDDErrorMsgIfApplicable();
}

}  // namespace

void KVXEBramTab::updateBitWidthADropdown(const KVXEUID& uid) {
  updateBitWidths(uid, m_PortBBitWidth);
}
void KVXEBramTab::updateBitWidthBDropdown(const KVXEUID& uid) {
  updateBitWidths(uid, m_PortABitWidth);
}

// Cascades.

void KVXEBramTab::updateCascadeGroupRange(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_BramConfigTable, "cascade group size")) return;
  auto* cell = static_cast<KVXEIntCell*>(uid.getCell());
  int count = 0;
  const bool isCounted = uid.getRow()->getCell(&m_BramCount)->getVal(count, true);
  const int largest = std::clamp(count, 0, LargestCascadeGroup);
  const auto range =
      isCounted ? std::pair(0, largest) : static_cast<KVXEIntCell*>(cell->getHeaderDefaultCell())->getRange();
  if (cell->getRange() != range) cell->setRange(range);
  if (isCounted && !cell->isBlank() && cell->peekVal() > largest) {
    cell->setMsg(KvxSeverity::ERROR, "<html>Cascade group size can not be greater than BRAM count.</html>");
  } else {
    cell->clearMsg();
  }
  cell->markEngineClean();
}

// Power.

namespace {

/// The width of a port that does not say: the largest that its mode has.
int widthOrLargest(KVXERow* row, const KVXETitle& column, const std::string& mode) {
  if (const int width = widthOf(row, column); width > 0) return width;
  constexpr int Widest = 72;
  return widthsOf(mode, Widest).back();
}

}  // namespace

std::optional<KVXEBramTab::BramRow> KVXEBramTab::readBramRow(const KVXEUID& uid) {
  KVXERow* row = uid.getRow();
  BramRow use;
  if (!row->getCell(&m_BramCount)->getVal(use.count, true) || use.count <= 0) return std::nullopt;
  const auto clockA = kvxe::readClockFrequency(row, m_PortAClock);
  const auto clockB = kvxe::readClockFrequency(row, m_PortBClock);
  if (!clockA && !clockB) return std::nullopt;
  const auto vccint = kvxe::readVoltage(uid, "VCCINT");
  const auto vccram = kvxe::readVoltage(uid, "VCCRAM");
  if (!vccint || !vccram) return std::nullopt;
  use.vccint = *vccint;
  use.vccram = *vccram;
  use.mode = kvxe::readText(row, m_Mode);
  row->getCell(&m_CascadeGroupSize)->getVal(use.cascadeGroup, true);
  use.toggleRate = kvxe::readNumber(row, m_ToggleRate, static_cast<float>(DefaultToggleRate));
  constexpr auto Rate = static_cast<float>(DefaultEnableRate);
  use.portA = {clockA.value_or(0.0f), kvxe::readNumber(row, m_PortAEnableRate, Rate),
               kvxe::readNumber(row, m_PortAWriteEnable, Rate),
               widthOrLargest(row, m_PortABitWidth, use.mode), kvxe::readText(row, m_PortAWriteMode)};
  use.portB = {clockB.value_or(0.0f), kvxe::readNumber(row, m_PortBEnableRate, Rate),
               kvxe::readNumber(row, m_PortBWriteEnable, Rate),
               widthOrLargest(row, m_PortBBitWidth, use.mode), kvxe::readText(row, m_PortBWriteMode)};
  return use;
}

void KVXEBramTab::blankPower(const KVXEUID& uid) {
  kvxe::blankResults(uid.getRow(), results);
}

void KVXEBramTab::writePower(const KVXEUID& uid, float vccint, float vccram) {
  kvxe::writeResult(uid.getRow(), m_VccintPower, vccint);
  kvxe::writeResult(uid.getRow(), m_VccRamPower, vccram);
  kvxe::writeResult(uid.getRow(), m_Power, vccint + vccram);
}
