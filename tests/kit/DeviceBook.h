#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"

/// The real book of a device, as a client makes and drives it.
class DeviceBook {
 public:
  /// The default part of the architecture.
  explicit DeviceBook(const std::string& archName);
  ~DeviceBook();
  DeviceBook(const DeviceBook&) = delete;
  DeviceBook& operator=(const DeviceBook&) = delete;

  KVXEBook* book() const { return KVXEBookMgr::getGlobal().getCurrentBook(); }
  KVXETable* table(KVXEEnums::TabType type, const std::string& name) const;
  /// The cell of the first row whose `key` column reads `row`; fails the test when there is none.
  KVXECell* cell(KVXEEnums::TabType type, const KVXETitle& table, const std::string& row,
                 const KVXETitle& key, const KVXETitle& value) const;

  template <class T>
  void put(KVXECell* cell, const T& value) {
    cell->setValAndState(value, KVXEEnums::CellState::DIRTY_DIRTY);
    cell->setValueSource(KVXEEnums::ValueSource::USER);
  }
  template <class T>
  void edit(KVXECell* cell, const T& value) {
    put(cell, value);
    KVXECalculationMgr::getGlobal().incrCalculate();
  }
  /// Calculates in full; what follows is incremental.
  void settle();
  /// Cuts every table that the user may edit to `rows` data rows, so that a test that verifies often stays
  /// quick.
  void trim(unsigned int rows);

  static std::vector<std::string> architectures();
};

/// The number in a cell; not a number when it is blank.
float numberIn(KVXECell* cell);
/// The text in a cell.
std::string textIn(KVXECell* cell);
