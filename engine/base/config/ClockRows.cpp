#include "engine/base/config/ClockRows.h"

#include <algorithm>

#include "engine/base/config/CellText.h"
#include "engine/base/config/ClockConfig.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETable.h"
#include "models/common/Effects.h"

namespace kvxe::detail {

namespace {

using Tab = KVXEClockTab;

std::string textOf(KVXERow& row, const KVXETitle& column) {
  return storedText(*row.getCell(&column));
}

float numberOf(KVXERow& row, const KVXETitle& column) {
  return StringConverter<float>::convert(textOf(row, column));
}

bool hasLineBreak(std::string_view text) {
  return text.find_first_of("\r\n") != std::string_view::npos;
}

/// The parts that `partOf` finds in a column of a table of the same tab. The column's default is blank, so a
/// row in which a part is found is no default row.
template <class PartOf>
std::vector<std::string> partsOfColumn(KVXERow& row, const KVXETitle& title, const KVXETitle& column,
                                       const PartOf& partOf) {
  std::vector<std::string> parts;
  KVXETable* table = row.getTable()->getTab()->getTable(&title);
  const unsigned int index = table ? table->findTitle(&column) : 0;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    const std::string text = storedText(*table->getCellAt(i, index));
    if (const std::string_view part = partOf(text); !part.empty()) parts.emplace_back(part);
  }
  return parts;
}

}  // namespace

std::string_view managerBefore(std::string_view text, std::string_view clock) {
  if (clock.empty() || text.size() <= clock.size() || !text.ends_with(clock)) return {};
  text.remove_suffix(clock.size());
  if (!text.ends_with(':')) return {};
  text.remove_suffix(1);
  return hasLineBreak(text) ? std::string_view() : text;
}

std::string_view outputOfSource(std::string_view source) {
  const size_t last = source.rfind(':');
  const bool hasTwo =
      last != std::string_view::npos && last > 0 && source.rfind(':', last - 1) != source.npos;
  return hasTwo && !hasLineBreak(source) ? source.substr(last + 1) : std::string_view();
}

std::string tagOfRow(KVXERow& clock) {
  return ClockConfig::constructClockTag(textOf(clock, Tab::m_Name), numberOf(clock, Tab::m_ClockFreq));
}

std::string calculatedTagOfRow(KVXERow& clock) {
  return textOf(clock, Tab::m_ClockTag);
}

std::vector<std::string> managersOfRow(KVXERow& clock) {
  std::vector<std::string> managers = splitList(textOf(clock, Tab::m_ClockMgr));
  if (!managers.empty()) return managers;
  const std::string name = textOf(clock, Tab::m_Name);
  return partsOfColumn(clock, Tab::m_ClkMgrTable, Tab::m_Name,
                       [&](std::string_view text) { return managerBefore(text, name); });
}

void connectManager(KVXERow& clock, const std::string& manager) {
  KVXECell& cell = *clock.getCell(&Tab::m_ClockMgr);
  std::vector<std::string> managers = splitList(storedText(cell));
  if (std::find(managers.begin(), managers.end(), manager) != managers.end()) return;
  managers.push_back(manager);
  writeText(cell, joinList(managers));
}

void disconnectManager(KVXERow& clock, const std::string& manager) {
  KVXECell& cell = *clock.getCell(&Tab::m_ClockMgr);
  std::vector<std::string> managers = splitList(storedText(cell));
  if (std::erase(managers, manager) > 0) writeText(cell, joinList(managers));
}

void disconnectFromClocks(KVXERow& manager) {
  const std::string name = textOf(manager, Tab::m_Name);
  KVXETable* clocks = manager.getTable()->getTab()->getTable(&Tab::m_ClockConfigTable);
  for (unsigned int i = 1; clocks && i < clocks->getRowCount(); ++i)
    disconnectManager(*clocks->getRow(i), name);
}

std::vector<std::string> outputsOfRow(KVXERow& manager) {
  std::vector<std::string> outputs = splitList(textOf(manager, Tab::m_OutputClkNames));
  if (!outputs.empty()) return outputs;
  return partsOfColumn(manager, Tab::m_ClockConfigTable, Tab::m_Source, &outputOfSource);
}

bool hasNoLoads(KVXERow& clock) {
  const std::string text = textOf(clock, Tab::m_Fanout);
  return text.empty() || StringConverter<float>::convert(text) == 0.0f;
}

void fillOscillator(KVXERow& manager) {
  const auto factor = [&](const KVXETitle& column) {
    const float number = numberOf(manager, column);
    return number == kvxeBlank<float> ? 0.0f : number;
  };
  const double megahertz = kvxm::oscillatorFrequency(factor(Tab::m_RefClock), factor(Tab::m_MultiplyCounter),
                                                     factor(Tab::m_DivideCounter));
  const bool isRunning = megahertz > 0.0 && megahertz < kvxeBlank<float>;
  KVXECell& cell = *manager.getCell(&Tab::m_VcoFreq);
  if (isRunning) {
    cell.setValAndState(static_cast<float>(megahertz), KVXEEnums::CellState::DIRTY_DIRTY);
  } else {
    cell.setBlankAndState(KVXEEnums::CellState::DIRTY_DIRTY);
  }
}

std::vector<std::string> managerTypes(const KVXETab* tab) {
  const auto* clockTab = dynamic_cast<const KVXEClockTab*>(tab);
  return clockTab ? clockTab->getClockMgrTypes() : std::vector<std::string>();
}

}  // namespace kvxe::detail
