#include "engine/base/config/PopulatePolicy.h"

#include "engine/base/workbook/KVXECell.h"

namespace kvxe::detail {

void DefaultEditable::operator()(KVXECell&, unsigned int) const {}

void ForceReadonly::operator()(KVXECell& cell, unsigned int) const {
  cell.setIsEditable(false);
}

void ForceEditable::operator()(KVXECell& cell, unsigned int) const {
  cell.setIsEditable(true);
}

void ForceEditableExceptName::operator()(KVXECell& cell, unsigned int column) const {
  cell.setIsEditable(column != 0);
}

}  // namespace kvxe::detail
