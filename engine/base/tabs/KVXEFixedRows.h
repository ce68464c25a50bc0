#pragma once

#include <span>
#include <string>

#include "engine/base/workbook/KVXEColumn.h"

class KVXERow;
class KVXETable;

/// The declaration of one row whose text is fixed, such as a line of a summary: what it is called, what its
/// tool tip says and how its value comes about.
struct KVXEFixedRow {
  static constexpr const char* SameAsText = nullptr;  ///< a tool tip with the words of the row

  const std::string* text;   ///< of the text column, and the key by which others find the row
  const char* toolTip = "";  ///< empty for none
  KVXEFormula formula = &KVXECell::NoFormula;  ///< of the value cell
  KVXEEnums::Unit unit = KVXEEnums::Unit::NO_UNIT;
  bool isEditable = false;
  double number = KVXEColumn::None;  ///< start value of the value cell; None is blank
};

namespace kvxe {

/// Appends one such row; the text goes into one column, the value's part of the declaration to another. `{}`
/// in a tool tip is replaced by `product`.
KVXERow* addFixedRow(KVXETable& table, const KVXETitle& textColumn, const KVXETitle& valueColumn,
                     const KVXEFixedRow& declaration, const std::string& product = {});

/// Appends declared rows in order.
void addFixedRows(KVXETable& table, const KVXETitle& textColumn, const KVXETitle& valueColumn,
                  std::span<const KVXEFixedRow> rows, const std::string& product = {});

}  // namespace kvxe
