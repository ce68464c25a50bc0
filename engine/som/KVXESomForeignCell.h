#pragma once

#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXECell;

namespace kvxe {

/// A cell of another tab, named by the programmatic spellings of table and columns, so that a tab that is not
/// built yet can be named.
struct ForeignCell {
  KVXEEnums::TabType tab;
  const char* table;
  const char* key;
  const char* keyColumn;
  const char* valueColumn;
};

/// Null while the book lacks the tab, the table, a column or the row, or shows the tab disabled.
KVXECell* findCell(const KVXEBook& book, const ForeignCell& place);

}  // namespace kvxe
