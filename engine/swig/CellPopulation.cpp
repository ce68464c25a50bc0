// Cells as a table that goes out whole carries them.

#include <iostream>

#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/swig/CellLook.h"
#include "messages/generic_table.pb.h"

bool KVXECell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  data->set_iseditable(m_isEditable);
  addDDErrorMsgIfApplicable();
  addRangeErrorMsgIfApplicable();
  const auto [foreground, background] = getColor();
  data->set_foreground(static_cast<int>(foreground));
  data->set_background(static_cast<int>(background));
  if (m_msg && !m_msg->getDisplayText().empty()) data->set_message(m_msg->getDisplayText());
  data->set_uid(KVXEUID(this).getUId());
  m_sentLook = kvxe::lookOf(*this);
  markGuiClean();
  return true;
}

namespace {

template <class T>
constexpr const char* kindOf = "int";
template <>
constexpr const char* kindOf<float> = "float";

template <class T>
void warnOfBlankEntry(const KVXETemplateCell<T>& cell) {
  const char* article = std::is_same_v<T, int> ? "an " : "a ";
  std::cout << "Error: Trying to set a blank value for below " << kindOf<T>
            << " drop-down cell can make GUI unstable. Please make the cell type as string in init function "
               "if it's mandatory to show it as blank. You can still use it as if it's "
            << article << kindOf<T> << " cell everywhere else.\nCell: " << cell.describe(" -> ") << '\n';
}

/// Adds the cell's own list to the message in display units, and leaves it so in the cell.
template <class T>
std::vector<T> populateOwnList(KVXETemplateCell<T>& cell, GenericTreeTableCellData& data) {
  std::vector<T> entries = cell.getDDVals();
  for (T& entry : entries) {
    if (entry == kvxeBlank<T>) warnOfBlankEntry(cell);
    cell.unitAdjustment(entry, true);
    if constexpr (std::is_same_v<T, float>) {
      data.add_intdropdown(kvxeTruncated(entry));
    } else {
      data.add_intdropdown(entry);
    }
  }
  return entries;
}

template <class T>
void warnOfBlankValue(const KVXETemplateCell<T>& cell, bool isBlank) {
  if (!isBlank || cell.getDDVals().empty()) return;
  std::cout << "Error: Blank dropdown value is only supported for String type. Trying to set a blank value for "
               "int drop-down cell: "
            << cell.describe(" -> ") << '\n';
}

void populateUnit(const KVXECell& cell, GenericTreeTableCellData& data) {
  if (!cell.getUnitSuffix().empty()) data.set_unit(cell.getUnitSuffix());
}

}  // namespace

bool KVXEIntCell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  int value = 0;
  const bool hasValue = getVal(value, true);
  if (hasValue) {
    unitAdjustment(value, true);
    data->set_intvalue(value);
    populateUnit(*this, *data);
  }
  const auto [least, most] = getRange();
  if (least != kvxeBlank<int>) data->set_intmin(least);
  if (most != kvxeBlank<int>) data->set_intmax(most);
  if (hasOwnDDVals()) replaceOwnDDVals(populateOwnList(*this, *data));
  warnOfBlankValue(*this, !hasValue);
  return KVXECell::populate(data);
}

bool KVXEFloatCell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  float value = 0.0f;
  const bool hasValue = getVal(value, true);
  if (hasValue) {
    unitAdjustment(value, true);
    data->set_floatvalue(value);
    populateUnit(*this, *data);
  }
  const auto [least, most] = getRange();
  if (least != kvxeBlank<float>) data->set_min(least);
  if (most != kvxeBlank<float>) data->set_max(most);
  if (hasOwnDDVals()) replaceOwnDDVals(populateOwnList(*this, *data));
  warnOfBlankValue(*this, !hasValue);
  return KVXECell::populate(data);
}

bool KVXEStringCell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  if (const std::string& text = readVal(true); !text.empty()) {
    data->set_stringvalue(text);
    populateUnit(*this, *data);
  }
  if (const auto [least, most] = getRange(); !least.empty() || !most.empty())
    std::cout << "Error: string cell cannot have a data validation range limit. That is only supported for "
                 "float/int cells. "
              << describe(" -> ") << '\n';
  if (hasOwnDDVals())
    for (const std::string& entry : KVXETemplateCell<std::string>::getDDVals()) data->add_dropdown(entry);
  return KVXECell::populate(data);
}
