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

template <class T>
void warnOfBlankValue(const KVXETemplateCell<T>& cell) {
  if (!cell.hasOwnDDVals()) return;
  std::cout
      << "Error: Blank dropdown value is only supported for String type. Trying to set a blank value for "
         "int drop-down cell: "
      << cell.describe(" -> ") << '\n';
}

void populateUnit(const KVXECell& cell, GenericTreeTableCellData& data) {
  if (!cell.getUnitSuffix().empty()) data.set_unit(cell.getUnitSuffix());
}

// The fields of either kind of number.
// clang-format off
void setValue(GenericTreeTableCellData& data, int value) { data.set_intvalue(value); }
void setValue(GenericTreeTableCellData& data, float value) { data.set_floatvalue(value); }
void setLeast(GenericTreeTableCellData& data, int bound) { data.set_intmin(bound); }
void setLeast(GenericTreeTableCellData& data, float bound) { data.set_min(bound); }
void setMost(GenericTreeTableCellData& data, int bound) { data.set_intmax(bound); }
void setMost(GenericTreeTableCellData& data, float bound) { data.set_max(bound); }
void addEntry(GenericTreeTableCellData& data, int entry) { data.add_intdropdown(entry); }
void addEntry(GenericTreeTableCellData& data, float entry) { data.add_intdropdown(kvxeTruncated(entry)); }
// clang-format on

template <class T>
void populateValue(KVXETemplateCell<T>& cell, GenericTreeTableCellData& data) {
  T value{};
  if (cell.getVal(value, true)) {
    cell.unitAdjustment(value, true);
    setValue(data, value);
    populateUnit(cell, data);
  } else {
    warnOfBlankValue(cell);
  }
  const auto [least, most] = cell.getRange();
  if (least != kvxeBlank<T>) setLeast(data, least);
  if (most != kvxeBlank<T>) setMost(data, most);
}

/// Adds the cell's own list to the message and returns it, in display units.
template <class T>
std::vector<T> populateOwnList(KVXETemplateCell<T>& cell, GenericTreeTableCellData& data) {
  std::vector<T> entries = cell.getDDVals();
  for (T& entry : entries) {
    if (entry == kvxeBlank<T>) warnOfBlankEntry(cell);
    cell.unitAdjustment(entry, true);
    addEntry(data, entry);
  }
  return entries;
}

}  // namespace

// A list that went out stays in display units, and goes out once more adjusted the next time: lists of
// numbers are for cells without a unit, where that makes no difference.

bool KVXEIntCell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  populateValue(*this, *data);
  if (hasOwnDDVals()) replaceOwnDDVals(populateOwnList(*this, *data));
  return KVXECell::populate(data);
}

bool KVXEFloatCell::populate(GenericTreeTableCellData* data) {
  if (!data) return false;
  populateValue(*this, *data);
  if (hasOwnDDVals()) replaceOwnDDVals(populateOwnList(*this, *data));
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
