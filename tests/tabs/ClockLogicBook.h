#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "tests/kit/Captured.h"
#include "tests/kit/Consistency.h"

/// A book of a real device with its clock and its logic tab, and supply voltages of the test's choice.
class ClockLogicBook : public ::testing::Test {
 protected:
  using Clock = KVXEClockTab;
  using Logic = KVXELogicTab;

  void SetUp() override { build("Arkeon", "AK1080-VSVA1024-1MP-E-S"); }
  void TearDown() override {
    KVXEBookMgr::getGlobal().closeProject();
    KVXEPartSelection::resetPartSelection();
  }

  void build(const std::string& architecture, const std::string& preferredPart) {
    KVXEBookMgr::getGlobal().closeProject();
    KVXEPartSelection* selection = KVXEPartSelection::resetToArch(architecture);
    ASSERT_TRUE(selection);
    const bool isKnown = selection->selectPart(preferredPart, KVXEPartSelection::m_typStr) ||
                         selection->selectPart(selection->getDefaultPart(), KVXEPartSelection::m_typStr);
    ASSERT_TRUE(isKnown);
    book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook(architecture);
    for (const auto type : {KVXEEnums::TabType::CLOCK, KVXEEnums::TabType::LOGIC}) {
      KVXETable* power = book->getOrCreateTab(type)->getTable(&KVXETab::m_PowerTable);
      ASSERT_TRUE(power);
      for (unsigned int i = 1; i + 1 < power->getRowCount(); ++i) {
        power->getCellAt(i, &KVXETab::m_RailColumn)->assignFormula(&KVXECell::NoFormula);
        power->getCellAt(i, &KVXETab::m_VoltageColumn)->assignFormula(&KVXECell::NoFormula);
      }
    }
    setVolts(0.8f);
  }

  KVXETab* clockTab() { return book->getTab(KVXEEnums::TabType::CLOCK); }
  KVXETab* logicTab() { return book->getTab(KVXEEnums::TabType::LOGIC); }
  KVXETable* clocks() { return clockTab()->getTable(&Clock::m_ClockConfigTable); }
  KVXETable* modules() { return logicTab()->getTable(&Logic::m_LogicConfigTable); }
  KVXECell* clock(unsigned int row, const KVXETitle& column) { return clocks()->getCellAt(row, &column); }
  KVXECell* module(unsigned int row, const KVXETitle& column) { return modules()->getCellAt(row, &column); }

  static std::string text(KVXECell* cell) {
    std::string value;
    cell->getVal(value, false);
    return value;
  }
  static float number(KVXECell* cell) {
    float value = 0.0f;
    return cell->getVal(value, false) ? value : -1.0f;  // no result of these tabs is negative
  }
  std::string tagOf(unsigned int moduleRow) { return text(module(moduleRow, Logic::m_Clock)); }

  /// What a user enters.
  template <class T>
  void put(KVXECell* cell, const T& value) {
    cell->setValAndState(value, KVXEEnums::CellState::DIRTY_DIRTY);
    cell->setValueSource(KVXEEnums::ValueSource::USER);
  }
  void clear(KVXECell* cell) { cell->setBlankAndState(KVXEEnums::CellState::DIRTY_DIRTY); }
  void addClock(unsigned int row, const std::string& name, float megahertz, int fanout = 1000) {
    put(clock(row, Clock::m_Name), name);
    put(clock(row, Clock::m_ClockFreq), megahertz);
    put(clock(row, Clock::m_Fanout), fanout);
  }
  void addModule(unsigned int row, const std::string& tag, int luts = 100, int registers = 200) {
    put(module(row, Logic::m_Clock), tag);
    put(module(row, Logic::m_LutAsLogic), luts);
    put(module(row, Logic::m_Registers), registers);
  }
  void setVolts(float volts) {
    for (KVXETab* tab : {clockTab(), logicTab()}) {
      KVXETable* power = tab->getTable(&KVXETab::m_PowerTable);
      for (unsigned int i = 1; i + 1 < power->getRowCount(); ++i)
        put(power->getCellAt(i, &KVXETab::m_VoltageColumn), volts);
    }
  }

  /// Calculates in full and tells the states that the front end has everything, so that edits are
  /// incremental.
  void settle() {
    KVXECalculationMgr::getGlobal().fullCalculate();
    KVXECellStateMgr::getGlobal().markGuiClean();
  }
  /// Calculates what was put in, and checks that a full calculation finds the same.
  void calculate() {
    KVXECalculationMgr& mgr = KVXECalculationMgr::getGlobal();
    const bool isTableOperation = KVXETableOperations::getGlobal().getIsTableOperationActive();
    EXPECT_TRUE(isTableOperation || !mgr.getIsGraphStale()) << "the edit is meant to be incremental";
    calculateEdits();
  }

  KVXECell* utilization(KVXETab* tab, const std::string& type, const KVXETitle& column) {
    return tab->lookup<std::string>(&KVXETab::m_UtilTable, type, &KVXETab::m_TypeColumn, &column, false);
  }
  KVXECell* railPower(KVXETab* tab, const std::string& rail) {
    return tab->lookup<std::string>(&KVXETab::m_PowerTable, rail, &KVXETab::m_InternalRailColumn,
                                    &KVXETab::m_ActivePowerColumn, false);
  }
  std::vector<std::string> offeredClocks(unsigned int moduleRow) {
    std::vector<std::string> list;
    module(moduleRow, Logic::m_Clock)->getDDVals(list);
    return list;
  }

  KVXEBook* book = nullptr;
};
