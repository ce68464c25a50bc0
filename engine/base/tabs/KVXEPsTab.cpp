#include "engine/base/tabs/KVXEPsTab.h"

#include <iostream>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"

using enum KVXEEnums::CellType;
using KVXEEnums::CellState;
using KVXEEnums::Unit;
using KVXEEnums::ValueSource;
using KVXEEnums::Visibility;
using kvxm::ProcessorBlock;
using kvxm::ProcessorGroup;

using Tab = KVXEPsTab;

// Tables.

namespace {

constexpr double startLoad = 0.5;
constexpr const char* states[] = {"ON", "OFF"};

const KVXEColumn stateColumns[] = {
    {.title = &Tab::m_PsStateSummaryDomainCol, .type = STRING, .toolTip = "A power domain."},
    kvxe::column::choice(Tab::m_PsStateSummaryStateCol, states, "ON",
                         "<html>Whether the domain is supplied.\nWhat stands in a domain that is off has no "
                         "dynamic power.</html>"),
    kvxe::column::watts(Tab::m_PsStateSummaryPowerCol, &Tab::updateDomainPower,
                        "<html>The dynamic power from the supplies of the domain.</html>"),
};

const KVXEColumn blockColumns[] = {
    {.title = &Tab::m_Block, .type = STRING, .toolTip = "A part of the processing system."},
    {.title = &Tab::m_Count,
     .type = INT,
     .isEditable = true,
     .formula = &Tab::checkCount,
     .number = 0,
     .isDropdown = true,
     .toolTip = "<html>How many of the block are in use; 0 for none.</html>"},
    {.title = &Tab::m_Frequency,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::updateFrequency,
     .unit = Unit::FREQUENCY_HIDE,
     .minimum = 0,
     .toolTip = "<html>The clock of the block (MHz); of a PLL that of its oscillator.</html>"},
    kvxe::column::rate(Tab::m_Load, startLoad,
                       "<html>The average share of the time that the block works rather than waits.</html>"),
    kvxe::column::watts(KVXETab::m_Power, &Tab::updateBlockRow,
                        "<html>The dynamic power of the block.</html>"),
    kvxe::column::watts(Tab::m_CorePower, &Tab::updateBlockRow, "Power of the block's logic.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_PadPower, &Tab::updateBlockRow, "Power of the block's pads.",
                        Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_BiasPower, &Tab::updateBlockRow, "Power of the block's analogue parts.",
                        Visibility::INTERNAL),
};

KVXEPsTab* psTabOf(const KVXEUID& uid) {
  return dynamic_cast<KVXEPsTab*>(uid.getTab());
}

void start(KVXECell* cell, const auto& value) {
  cell->setValAndState(value, CellState::DIRTY_DISABLED);
  cell->setValueSource(ValueSource::DEFAULT);
}

}  // namespace

void KVXEPsTab::init() {
  KVXETab::init();
  initStateTable();
  initBlockTable(m_PsProcessorTable, ProcessorGroup::Processor, "Processors");
  if (!blocks().getMemories().empty()) initMemoryTable();
  initBlockTable(m_PsPeripheralTable, ProcessorGroup::Peripheral, "Peripherals");
  initBlockTable(m_PsPllTable, ProcessorGroup::Pll, "PLLs");
  initPowerTable();
}

void KVXEPsTab::initStateTable() {
  KVXETable* table =
      createTable(&m_PsStateSummaryTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(stateColumns);
  for (const Domain& domain : domains()) {
    KVXERow* row = table->getOrCreateRow(table->getRowCount());
    row->getCell(&m_PsStateSummaryDomainCol)->setValAndMarkEngineClean(*domain.name);
    KVXECell* state = row->getCell(&m_PsStateSummaryStateCol);
    state->setIsEditable(domain.canBeOff);
    m_domainStates[*domain.name] = state;
  }
}

void KVXEPsTab::initBlockTable(const KVXETitle& title, ProcessorGroup group, const std::string& widgetTitle) {
  KVXETable* table = createTable(&title, false, false, true, KVXEEnums::GridComponentType::TABLE);
  std::vector<KVXEColumn> columns(std::begin(blockColumns), std::end(blockColumns));
  if (group == ProcessorGroup::Pll)  // runs, or does not
    std::erase_if(columns, [](const KVXEColumn& column) { return column.title == &m_Load; });
  table->addColumns(columns);
  table->setTabWidgetTitle(widgetTitle);
  for (const ProcessorBlock& block : blocks().getBlocks())
    if (block.group == group) addBlockRow(*table, block);
}

void KVXEPsTab::addBlockRow(KVXETable& table, const ProcessorBlock& block) {
  KVXERow* row = table.getOrCreateRow(table.getRowCount());
  row->getCell(&m_Block)->setValAndMarkEngineClean(std::string(block.name));
  std::vector<int> counts;
  for (int count = 0; count <= block.most; ++count) counts.push_back(count);
  row->getCell(&m_Count)->setDDValsAndMarkEngineClean(counts);
  start(row->getCell(&m_Frequency), block.megahertz);
  drawFrom(block.coreRail, row->getCell(&m_CorePower));
  drawFrom(block.padRail, row->getCell(&m_PadPower));
  drawFrom(block.biasRail, row->getCell(&m_BiasPower));
}

void KVXEPsTab::drawFrom(std::string_view rail, KVXECell* cell) {
  if (!rail.empty()) m_drawn[std::string(rail)].push_back(cell);
}

void KVXEPsTab::initPowerTable() {
  std::vector<PowerTableRow> rows;
  for (const Domain& domain : domains())
    for (const std::string& rail : domain.rails) rows.push_back({rail, &updateRail, &KVXECell::NoFormula});
  initPowerTableRows(rows);
}

// Power of a block.

const ProcessorBlock* KVXEPsTab::blockOf(const KVXEUID& uid) const {
  const bool isOfBlocks = uid.getTable()->findTitle(&m_Block) < uid.getTable()->getColumnCount();
  if (!isOfBlocks) {
    std::cout
        << "Error: error occured in updating the power of a block: the formula stands in another table\n";
    return nullptr;
  }
  return blocks().findBlock(static_cast<const KVXEStringCell*>(uid.getRow()->getCell(&m_Block))->peekVal());
}

std::string KVXEPsTab::speedGrade() const {
  return kvxe::readSpeedGrade();
}

bool KVXEPsTab::isDomainOn(std::string_view domain) const {
  const auto found = m_domainStates.find(domain);
  std::string state;
  return found == m_domainStates.end() || !found->second->getVal(state, true) || state != m_offStr;
}

std::optional<KVXEPsTab::BlockUse> KVXEPsTab::readBlock(const KVXEUID& uid,
                                                        const ProcessorBlock& block) const {
  KVXERow* row = uid.getRow();
  BlockUse use{.block = std::string(block.name),
               .count = kvxe::readCount(row, m_Count),
               .megahertz = kvxe::readNumber(row, m_Frequency, 0.0f),
               .load = 1.0f};
  if (use.count <= 0 || use.count > block.most || !(use.megahertz > 0.0f)) return std::nullopt;
  if (row->getTable()->findTitle(&m_Load) < row->getColumnCount())
    use.load = kvxe::readNumber(row, m_Load, static_cast<float>(startLoad));
  for (const auto& [rail, volts] : {std::pair{block.coreRail, &use.coreVolts},
                                    {block.padRail, &use.padVolts},
                                    {block.biasRail, &use.biasVolts}}) {
    if (rail.empty()) continue;
    const std::optional<float> supplied = kvxe::readVoltage(uid, rail);
    if (!supplied) return std::nullopt;
    *volts = *supplied;
  }
  return use;
}

/// Writes the row's results. One that its table lacks was not asked for.
void KVXEPsTab::writeRow(const KVXEUID& uid, const std::optional<BlockPower>& power) const {
  KVXERow* row = uid.getRow();
  const auto write = [&](const KVXETitle& column, float watts) {
    if (row->getTable()->findTitle(&column) < row->getColumnCount())
      kvxe::writeResult(row, column, power ? std::optional(watts) : std::nullopt);
  };
  const BlockPower parts = power.value_or(BlockPower());
  write(m_CorePower, parts.core);
  write(m_PadPower, parts.pad);
  write(m_BiasPower, parts.bias);
  write(m_Power, parts.core + parts.pad + parts.bias);
}

void KVXEPsTab::updateBlockRow(const KVXEUID& uid) {
  KVXEPsTab* tab = psTabOf(uid);
  const ProcessorBlock* block = tab ? tab->blockOf(uid) : nullptr;
  if (!block) return uid.getCell()->setBlankAndMarkEngineClean();
  const bool isPresent =
      block->resource.empty() || kvxe::availableCount(std::string(block->resource)).value_or(0) > 0;
  uid.getRow()->setVisibility(isPresent ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  const std::optional<BlockUse> use = isPresent ? tab->readBlock(uid, *block) : std::nullopt;
  KVXECell* power = uid.getRow()->getCell(&m_Power);
  if (use && !tab->isDomainOn(block->domain)) {
    tab->writeRow(uid, BlockPower());
    return power->setMsg(KvxSeverity::WARNING,
                         std::string(block->name) +
                             " cannot be used while the domain is off: " + std::string(block->domain) + ".");
  }
  power->clearMsg();
  if (!use) return tab->writeRow(uid, std::nullopt);
  tab->writeRow(uid, tab->calculate(kvxe::readDevice(uid), block->domain, *use));
}

void KVXEPsTab::checkCount(const KVXEUID& uid) {
  uid.getCell()->addDDErrorMsgIfApplicable();
  uid.getCell()->markEngineClean();
}

void KVXEPsTab::updateFrequency(const KVXEUID& uid) {
  KVXEPsTab* tab = psTabOf(uid);
  auto* cell = static_cast<KVXEFloatCell*>(uid.getCell());
  const ProcessorBlock* block = tab ? tab->blockOf(uid) : nullptr;
  const float limit = block ? kvxm::limitOf(block->limits, tab->speedGrade()) : 0.0f;
  std::optional<std::string> warning;
  if (block && !cell->isBlank() && cell->readVal(false) > limit)
    warning = std::string(block->name) + " of the selected speed grade run at " +
              KVXMHelperUtils::ToString(limit) + " MHz at most.";
  kvxe::showWarning(cell, warning);
  cell->markEngineClean();
}

// Memory interface.

namespace {

const char* const activities[] = {"0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1"};
constexpr const char* noMemory = "None";
constexpr std::string_view memoryCoreRail = "VCCPSINTFP";
constexpr std::string_view memoryPadRail = "VCCOPSDDR";

const KVXEColumn memoryColumns[] = {
    {.title = &Tab::m_MemoryOption, .type = STRING, .toolTip = "What is chosen for the memory interface."},
    kvxe::column::choice(Tab::m_MemorySelection, {}, "", "The choice.", &Tab::updateMemoryOption),
    kvxe::column::watts(KVXETab::m_Power, &KVXECell::NoFormula,
                        "<html>The dynamic power of the memory interface, without the memories.</html>"),
    kvxe::column::watts(Tab::m_CorePower, &KVXECell::NoFormula,
                        "Power of the controller and of the logic beside the pads.", Visibility::INTERNAL),
    kvxe::column::watts(Tab::m_PadPower, &KVXECell::NoFormula, "Power of the pads.", Visibility::INTERNAL),
};

struct MemoryRow {
  const std::string* option;
  const char* toolTip;
  const char* start;
};
const MemoryRow memoryRows[] = {
    {&Tab::m_memoryTypeStr, "The kind of the memories; None when the interface is not used.", noMemory},
    {&Tab::m_dataWidthStr, "The bits of the interface.", "0"},
    {&Tab::m_dataRateStr, "The data rate of a pin in Mb/s.", "0"},
    {&Tab::m_activityStr, "The share of the time that data move, from 0 to 1.", "0.5"},
};

std::vector<std::string> textsOf(std::span<const int> numbers, float limit) {
  std::vector<std::string> texts;
  for (const int number : numbers)
    if (static_cast<float>(number) <= limit) texts.push_back(KVXMHelperUtils::ToString(number));
  return texts;
}

}  // namespace

void KVXEPsTab::initMemoryTable() {
  KVXETable* table = createTable(&m_PsMemoryTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(memoryColumns);
  table->setTabWidgetTitle("Memory");
  for (const MemoryRow& declared : memoryRows) {
    KVXERow* row = table->getOrCreateRow(table->getRowCount());
    KVXECell* option = row->getCell(&m_MemoryOption);
    option->setValAndMarkEngineClean(*declared.option);
    option->setMsg(KvxSeverity::INFO, declared.toolTip);
    start(row->getCell(&m_MemorySelection), std::string(declared.start));
  }
  KVXERow* row = table->getRow(1);
  for (const KVXETitle* column : {&m_Power, &m_CorePower, &m_PadPower})
    row->getCell(column)->assignFormula(&updateMemoryRow);
  drawFrom(memoryCoreRail, row->getCell(&m_CorePower));
  drawFrom(memoryPadRail, row->getCell(&m_PadPower));
}

std::string KVXEPsTab::memoryOption(const KVXETable& table, const std::string& option) const {
  std::string text;
  for (unsigned int i = 0; i < std::size(memoryRows); ++i)
    if (*memoryRows[i].option == option) table.getCellAt(i + 1, &m_MemorySelection)->getVal(text, true);
  return text;
}

void KVXEPsTab::updateMemoryOption(const KVXEUID& uid) {
  KVXEPsTab* tab = psTabOf(uid);
  if (!tab || !kvxe::isInTable(uid, m_PsMemoryTable, "memory interface")) return;
  const std::string& option = *memoryRows[uid.getRowIndex() - 1].option;
  std::vector<std::string> list(std::begin(activities), std::end(activities));
  bool followsType = false;
  if (option == m_memoryTypeStr) {
    list = tab->memoryTypes();
  } else if (option != m_activityStr) {
    const kvxm::ProcessorMemory* memory =
        tab->blocks().findMemory(tab->memoryOption(*uid.getTable(), m_memoryTypeStr));
    list = {"0"};
    if (memory && option == m_dataWidthStr)
      list = textsOf(memory->widths, static_cast<float>(memory->widths.back()));
    if (memory && option == m_dataRateStr)
      list = textsOf(memory->rates, kvxm::limitOf(memory->limits, tab->speedGrade()));
    followsType = true;
  }
  KVXECell* cell = uid.getCell();
  if (followsType && !kvxe::isGiven(*cell)) cell->setValAndMarkEngineClean(list.back());
  kvxe::offerInCell(cell, list);
  cell->addDDErrorMsgIfApplicable();
}

std::optional<KVXEPsTab::BlockUse> KVXEPsTab::readMemory(const KVXEUID& uid) const {
  const KVXETable& table = *uid.getTable();
  BlockUse use{.block = memoryOption(table, m_memoryTypeStr)};
  if (!blocks().findMemory(use.block)) return std::nullopt;
  use.count = KVXMHelperUtils::s2i(memoryOption(table, m_dataWidthStr));
  use.megahertz = KVXMHelperUtils::s2f(memoryOption(table, m_dataRateStr));
  use.load = KVXMHelperUtils::s2f(memoryOption(table, m_activityStr));
  const std::optional<float> core = kvxe::readVoltage(uid, memoryCoreRail);
  const std::optional<float> pad = kvxe::readVoltage(uid, memoryPadRail);
  if (use.count <= 0 || !(use.megahertz > 0.0f) || !core || !pad) return std::nullopt;
  use.coreVolts = *core;
  use.padVolts = *pad;
  return use;
}

void KVXEPsTab::updateMemoryRow(const KVXEUID& uid) {
  KVXEPsTab* tab = psTabOf(uid);
  if (!tab || !kvxe::isInTable(uid, m_PsMemoryTable, "power of the memory interface")) return;
  const std::optional<BlockUse> use = tab->readMemory(uid);
  if (!use) return tab->writeRow(uid, std::nullopt);
  if (!tab->isDomainOn(m_fpdStr)) return tab->writeRow(uid, BlockPower());
  tab->writeRow(uid, tab->calculate(kvxe::readDevice(uid), m_fpdStr, *use));
}

// Supplies and domains.

void KVXEPsTab::updateRail(const KVXEUID& uid) {
  const KVXEPsTab* tab = psTabOf(uid);
  if (!tab || !kvxe::isInTable(uid, m_PowerTable, "active power of a rail")) return;
  const auto* rail = static_cast<const KVXEStringCell*>(uid.getRow()->getCell(&m_InternalRailColumn));
  double sum = 0.0;
  if (const auto found = tab->m_drawn.find(rail->peekVal()); found != tab->m_drawn.end())
    for (KVXECell* cell : found->second)
      if (float watts = 0.0f; cell->getVal(watts, true)) sum += static_cast<double>(watts);
  uid.getCell()->setValAndMarkEngineClean(static_cast<float>(sum));
}

void KVXEPsTab::updateDomainPower(const KVXEUID& uid) {
  KVXEPsTab* tab = psTabOf(uid);
  if (!tab || !kvxe::isInTable(uid, m_PsStateSummaryTable, "power of a domain")) return;
  double sum = 0.0;
  for (const std::string& rail : tab->domains().at(uid.getRowIndex() - 1).rails) {
    KVXECell* cell =
        tab->lookup<std::string>(&m_PowerTable, rail, &m_InternalRailColumn, &m_ActivePowerColumn, false);
    if (float watts = 0.0f; cell && cell->getVal(watts, true)) sum += static_cast<double>(watts);
  }
  uid.getCell()->setValAndMarkEngineClean(static_cast<float>(sum));
}
