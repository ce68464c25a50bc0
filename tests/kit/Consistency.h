#pragma once

#include <gtest/gtest.h>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "tests/kit/Captured.h"

/// Checks that the last edits left what a full calculation finds.
inline void expectConsistent() {
  Captured captured;
  const bool isSame = KVXECalculationMgr::getGlobal().verifyIncrVsFull();
  KVXECellStateMgr::getGlobal().markGuiClean();
  EXPECT_TRUE(isSame) << captured.text();
}

/// Calculates what was put in, and checks that a full calculation finds the same.
inline void calculateEdits() {
  KVXECalculationMgr::getGlobal().incrCalculate();
  expectConsistent();
}
