#pragma once

#include <vector>

#include "engine/base/workbook/KVXETemplateCell.h"

/// Drop-down lists that formulas keep, where what is offered follows from the device or from other cells.
/// Neither touches a cell that shows the list already.
namespace kvxe {

/// Offers the list in a whole column, given its default cell, and says whether it had another one. A column's
/// list reaches the front end with its header.
template <class T>
bool offerInColumn(KVXECell* columnDefault, const std::vector<T>& list) {
  auto* column = static_cast<KVXETemplateCell<T>*>(columnDefault);
  if (column->getDDVals() == list) return false;
  column->setDDValsAndMarkEngineClean(list);
  if (column->getState() == KVXEEnums::CellState::HEADER_CLEAN)
    column->setState(KVXEEnums::CellState::HEADER_DIRTY);
  return true;
}

/// Offers the list in one cell and keeps its value. The column's own list is left to the column, so that the
/// cell follows it when it changes.
template <class T>
void offerInCell(KVXECell* cell, const std::vector<T>& list) {
  auto* typed = static_cast<KVXETemplateCell<T>*>(cell);
  if (typed->getDDVals() != list) {
    const auto* column = static_cast<KVXETemplateCell<T>*>(typed->getHeaderDefaultCell());
    typed->setDDValsAndMarkEngineClean(list == column->getDDVals() ? std::vector<T>() : list);
  }
  typed->markEngineClean();
}

}  // namespace kvxe
