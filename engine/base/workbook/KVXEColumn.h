#pragma once

#include <limits>
#include <span>

#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXETitle.h"

/// The declaration of one column of a table. A tab hands a list of these to KVXETable::addColumns, so that a
/// table in code reads like the table in its documentation. All members but title and type have defaults:
/// a read-only, visible column without formula, unit, range or list, blank in a new row.
struct KVXEColumn {
  static constexpr double None = std::numeric_limits<double>::quiet_NaN();

  const KVXETitle* title;
  KVXEEnums::CellType type;
  bool isEditable = false;
  KVXEFormula formula = &KVXECell::NoFormula;
  KVXEEnums::Unit unit = KVXEEnums::Unit::NO_UNIT;
  double number = None;                   ///< default of an INT or FLOAT column; None is blank
  const char* text = "";                  ///< default of a STRING column
  double minimum = None, maximum = None;  ///< range of an INT or FLOAT column; None is none
  bool isDropdown = false;                ///< entries in `entries`, or set later by a formula
  std::span<const char* const> entries = {};
  const char* toolTip = "";  ///< plain text or `<html>`; empty for none
  KVXEEnums::Visibility visibility = KVXEEnums::Visibility::EXTERNAL;
};
