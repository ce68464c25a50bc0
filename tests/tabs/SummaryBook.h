#pragma once

#include <gmock/gmock.h>

#include <cstring>
#include <memory>
#include <string>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryConsoleTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Captured.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"

/// The book of a device with short tables, and its summary by row.
class SummaryBook : public ::testing::Test {
 protected:
  using Summary = KVXESummaryTab;
  using TabType = KVXEEnums::TabType;

  void SetUp() override { build(KVXEPartSelection::m_arkeonArchName); }

  void build(const std::string& architecture) {
    m_device.reset();
    m_device = std::make_unique<DeviceBook>(architecture);
    m_device->trim(2);
  }
  /// The first part whose printed name begins like this, in the book as it stands.
  void select(const std::string& start) {
    KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
    for (const std::string& part : selection->getAvailableParts()) {
      if (!part.starts_with(start)) continue;
      ASSERT_TRUE(selection->selectPart(part, KVXEPartSelection::m_typStr)) << part;
      selection->redrawTabs(false);
      return m_device->settle();
    }
    FAIL() << "no part " << start;
  }

  KVXEBook* book() { return m_device->book(); }
  KVXETab* tab() { return book()->getTab(TabType::SUMMARY); }
  KVXETable* table(const KVXETitle& title) { return tab()->getTable(&title); }
  KVXEUID uid() { return KVXEUID(summary(Summary::m_onChipPowerStr)); }

  KVXECell* summary(const std::string& row, const KVXETitle& column = Summary::m_summarySelectionColumn) {
    return m_device->cell(TabType::SUMMARY, Summary::m_summaryTableHeader, row,
                          Summary::m_summaryOptionColumn, column);
  }
  KVXECell* environment(const std::string& row, const KVXETitle& column = Summary::m_envValColumn) {
    return m_device->cell(TabType::SUMMARY, Summary::m_envTableHeader, row, Summary::m_envTypeColumn, column);
  }
  KVXECell* hbm(const std::string& row, const KVXETitle& column = Summary::m_envValColumn) {
    return m_device->cell(TabType::SUMMARY, Summary::m_hbmEnvTableHeader, row, Summary::m_envTypeColumn,
                          column);
  }
  KVXECell* onchip(const KVXETitle& table, const std::string& row,
                   const KVXETitle& column = Summary::m_onchipPowerColumn) {
    return m_device->cell(TabType::SUMMARY, table, row, Summary::m_onchipResourceColumn, column);
  }
  KVXECell* dynamic(const std::string& row) { return onchip(Summary::m_onchipDynamicTableHeader, row); }
  KVXECell* leakage(const std::string& row) { return onchip(Summary::m_onchipStaticTableHeader, row); }
  KVXECell* unitChoice(KVXEEnums::Unit unit) {
    return table(KVXETab::m_UnitsTable)->getCellAt(static_cast<unsigned int>(unit), &KVXETab::m_UnitsSuffix);
  }

  static bool isShown(KVXECell* cell) {
    return cell->getRow()->getVisibility() == KVXEEnums::Visibility::EXTERNAL;
  }
  static KVXECell::Color background(KVXECell* cell) { return cell->getColor().second; }
  /// Without the tags around it.
  static std::string message(KVXECell* cell) {
    std::string text = cell->getMsg() ? cell->getMsg()->getDisplayText() : "";
    for (const char* tag : {"<html>", "</html>"})
      for (size_t at = text.find(tag); at != std::string::npos; at = text.find(tag))
        text.erase(at, strlen(tag));
    return text;
  }
  static std::string shown(KVXECell* cell) {
    std::string text;
    cell->getValWithUnit(text, false);
    return text;
  }

  /// A user's edit; what it changes equals what a full calculation finds.
  template <class T>
  void edit(KVXECell* cell, const T& value) {
    m_device->edit(cell, value);
    expectConsistent();
  }
  void blank(KVXECell* cell) {
    cell->setBlankAndState(KVXEEnums::CellState::DIRTY_DIRTY);
    calculateEdits();
  }
  void setOverride(bool isOn) {
    edit(environment(Summary::m_junctionTempStr, Summary::m_envTempColumn),
         isOn ? Summary::m_userOverrideOnStr : Summary::m_userOverrideOffStr);
  }
  /// Power that hangs on neither temperature nor device: some clocked logic.
  void useLogic() {
    KVXETable* clocks = book()->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
    m_device->put(clocks->getCellAt(1, &KVXEClockTab::m_Name), std::string("sys"));
    m_device->put(clocks->getCellAt(1, &KVXEClockTab::m_ClockFreq), 400.0f);
    m_device->put(clocks->getCellAt(1, &KVXEClockTab::m_Fanout), 100000);
    KVXETable* logic = book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
    m_device->put(logic->getCellAt(1, &KVXELogicTab::m_Clock), std::string("400.000 MHz (sys)"));
    m_device->put(logic->getCellAt(1, &KVXELogicTab::m_LutAsLogic), 200000);
    m_device->put(logic->getCellAt(1, &KVXELogicTab::m_Registers), 200000);
    KVXECalculationMgr::getGlobal().incrCalculate();
    expectConsistent();
  }

  std::unique_ptr<DeviceBook> m_device;
};
