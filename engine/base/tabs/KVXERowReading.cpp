#include "engine/base/tabs/KVXERowReading.h"

#include <iostream>

#include "engine/base/config/ClockTag.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEParamControlMgr.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"

namespace kvxe {

bool isInTable(const KVXEUID& uid, const KVXETitle& table, const char* updated) {
  if (uid.getTable() && uid.getTable()->getTableTitle() == &table) return true;
  std::cout << "Error: error occured in updating " << updated << ": the formula stands in another table than "
            << table.getDisplayTag(false) << '\n';
  return false;
}

float readNumber(KVXERow* row, const KVXETitle& column, float ifBlank) {
  KVXECell* cell = row->getCell(&column);
  float value = 0.0f;
  return cell && cell->getVal(value, true) ? value : ifBlank;
}

int readCount(KVXERow* row, const KVXETitle& column) {
  int count = 0;
  return row->getCell(&column)->getVal(count, true) ? count : 0;
}

std::string readText(KVXERow* row, const KVXETitle& column) {
  std::string text;
  row->getCell(&column)->getVal(text, true);
  return text;
}

bool isGiven(const KVXECell& cell) {
  using KVXEEnums::ValueSource;
  const ValueSource source = cell.getValueSource();
  return source == ValueSource::USER || source == ValueSource::XML || source == ValueSource::IP;
}

std::optional<float> readClockFrequency(KVXERow* row, const KVXETitle& column) {
  KVXECell* cell = row->getCell(&column);
  if (!cell || cell->getCellType() != KVXEEnums::CellType::STRING) return std::nullopt;
  const std::optional<ClockTag> tag = ClockTag::parse(static_cast<KVXEStringCell*>(cell)->readVal(true));
  if (!tag) return std::nullopt;
  return tag->megahertz;
}

std::string readDevice(const KVXEUID& uid) {
  return KVXEPowerDesignTab::getDevice(uid);
}

std::string readSpeedGrade() {
  const auto* selection = KVXEPartSelection::getGlobal();
  return selection ? selection->getCurrentSetting(KVXEPartSelection::m_spdGradeStr) : std::string();
}

std::optional<float> readVoltage(const KVXEUID& uid, std::string_view rail) {
  const KVXETable* table = uid.getTab()->getTable(&KVXETab::m_PowerTable);
  const unsigned int railColumn = table ? table->findTitle(&KVXETab::m_InternalRailColumn) : 0;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    const auto* key = static_cast<const KVXEStringCell*>(table->getCellAt(i, railColumn));
    if (key->peekVal() != rail) continue;
    float volts = 0.0f;
    if (!table->getCellAt(i, &KVXETab::m_VoltageColumn)->getVal(volts, true)) return std::nullopt;
    return volts;
  }
  return std::nullopt;
}

namespace {

float readUtilizationTable(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type,
                           const KVXETitle& column) {
  // What stands on a tab that the device does not have uses nothing.
  const KVXETab* owner = uid.getBook()->getTab(tab);
  if (!owner || !owner->getIsEnabled() || !owner->getTable(&KVXETab::m_UtilTable)) return 0.0f;
  KVXECell* cell = uid.getBook()->lookup<std::string>(tab, &KVXETab::m_UtilTable, type,
                                                      &KVXETab::m_TypeColumn, &column, false);
  float value = 0.0f;
  return cell && cell->getVal(value, true) ? value : 0.0f;
}

}  // namespace

float readUsedCount(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type) {
  return readUtilizationTable(uid, tab, type, KVXETab::m_UsedColumn);
}

float readUtilization(const KVXEUID& uid, KVXEEnums::TabType tab, const std::string& type) {
  return readUtilizationTable(uid, tab, type, KVXETab::m_UtilColumn);
}

bool isSignalPowerDisabled() {
  bool isDisabled = false;
  return KVXEParamControlMgr::getGlobal().getParam("DISABLE_SIGNAL_POWER", isDisabled) && isDisabled;
}

void writeResult(KVXERow* row, const KVXETitle& column, std::optional<float> value) {
  KVXECell* cell = row->getCell(&column);
  if (value) return cell->setValAndMarkEngineClean(*value);
  cell->setBlankAndMarkEngineClean();
}

void blankResults(KVXERow* row, std::span<const KVXETitle* const> columns) {
  for (const KVXETitle* column : columns) row->getCell(column)->setBlankAndMarkEngineClean();
}

void showWarning(KVXECell* cell, const std::optional<std::string>& warning) {
  if (warning) return cell->setMsg(KvxSeverity::WARNING, *warning);
  cell->clearMsg();
}

}  // namespace kvxe
