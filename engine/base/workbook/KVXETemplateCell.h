#pragma once

#include <limits>

#include "engine/base/workbook/KVXECell.h"

class GenericTreeTableColumnData;

/// The value that stands for a blank cell of each type.
template <class T>
inline const T kvxeBlank{};
template <>
inline constexpr int kvxeBlank<int> = 0x7FFFFFFE;
template <>
inline constexpr float kvxeBlank<float> = std::numeric_limits<float>::max();

/// Truncation toward zero that has a result for every float: the nearest int beyond the range, 0 for NaN.
int kvxeTruncated(float value);

/// The typed half of a cell: value, range and drop-down list of one type, and the conversions from the
/// others.
template <class T>
class KVXETemplateCell : public KVXECell {
 public:
  void copyAssignElements(KVXECell* target) const override;
  bool isEquivalentElements(KVXECell* other) override;
  std::string className() const override { return "KVXETemplateCell"; }

  void setValAndState(const int& value, KVXEEnums::CellState state) override;
  void setValAndState(const float& value, KVXEEnums::CellState state) override;
  void setValAndState(const std::string& value, KVXEEnums::CellState state) override;
  void setValAndMarkEngineClean(const int& value) override;
  void setValAndMarkEngineClean(const float& value) override;
  void setValAndMarkEngineClean(const std::string& value) override;
  void setDDValsAndMarkEngineClean(const std::vector<int>& values) override;
  void setDDValsAndMarkEngineClean(const std::vector<float>& values) override;
  void setDDValsAndMarkEngineClean(const std::vector<std::string>& values) override;
  void setRange(const std::pair<int, int>& range) override;
  void setRange(const std::pair<float, float>& range) override;
  void setRange(const std::pair<std::string, std::string>& range) override;

  bool getVal(int& value, bool evaluateIfDirty) override;
  bool getVal(float& value, bool evaluateIfDirty) override;
  bool getVal(std::string& value, bool evaluateIfDirty) override;
  bool getValWithUnit(std::string& text, bool evaluateIfDirty) override;
  void unitAdjustment(int& value, bool toDisplay) override;
  void unitAdjustment(float& value, bool toDisplay) override;
  void unitAdjustment(std::string& value, bool toDisplay) override;
  bool getDDVals(std::vector<std::string>& values) override;
  void addDDErrorMsgIfApplicable() override;
  void addRangeErrorMsgIfApplicable() override;

  /// The drop-down entries: the cell's own, or those of its column's default cell.
  virtual const std::vector<T>& getDDVals() const;
  /// (minimum, maximum), both blank without a range.
  virtual std::pair<T, T> getRange() const {
    return m_range ? *m_range : std::pair<T, T>{kvxeBlank<T>, kvxeBlank<T>};
  }

  /// As getVal without a copy: reports the read, evaluates if asked, and gives the stored value.
  const T& readVal(bool evaluateIfDirty);
  /// The stored value, without a report: for what keeps the cells, not for formulas.
  const T& peekVal() const { return m_val; }
  /// Whether the cell has a list that is not its column's.
  bool hasOwnDDVals() const { return m_ddVals != nullptr; }
  bool isBlank() const { return m_val == kvxeBlank<T>; }

 protected:
  /// Replaces the cell's own list, unseen by the calculation.
  void replaceOwnDDVals(std::vector<T> values) {
    m_ddVals = std::make_shared<const std::vector<T>>(std::move(values));
  }

 private:
  // Lists and ranges are the same for a whole column, so cells share them.
  using List = std::shared_ptr<const std::vector<T>>;
  using Range = std::shared_ptr<const std::pair<T, T>>;

  template <class U>
  void store(const U& value);
  template <class U>
  void storeList(const std::vector<U>& values);
  template <class U>
  void storeRange(const std::pair<U, U>& range);
  /// The default cell of the column, whose list stands in for the cell's own; null in a header row.
  KVXETemplateCell* columnCell() const;
  /// The list of that cell, or null.
  List columnList() const;

  T m_val = kvxeBlank<T>;
  Range m_range;
  List m_ddVals;
};

extern template class KVXETemplateCell<int>;
extern template class KVXETemplateCell<float>;
extern template class KVXETemplateCell<std::string>;

class KVXEIntCell final : public KVXETemplateCell<int> {
 public:
  std::string className() const override { return "KVXEIntCell"; }
  bool populate(GenericTreeTableCellData* data) override;
  KVXEEnums::CellType getCellType() const override { return KVXEEnums::CellType::INT; }
};

class KVXEFloatCell final : public KVXETemplateCell<float> {
 public:
  std::string className() const override { return "KVXEFloatCell"; }
  bool populate(GenericTreeTableCellData* data) override;
  KVXEEnums::CellType getCellType() const override { return KVXEEnums::CellType::FLOAT; }
};

class KVXEStringCell : public KVXETemplateCell<std::string> {
 public:
  std::string className() const override { return "KVXEStringCell"; }
  bool populate(GenericTreeTableCellData* data) override;
  KVXEEnums::CellType getCellType() const override { return KVXEEnums::CellType::STRING; }
};

/// The head of a column: its text, whether it is a drop-down column, and who sees it.
class KVXEHeaderCell final : public KVXEStringCell {
 public:
  std::string className() const override { return "KVXEHeaderCell"; }
  using KVXEStringCell::populate;
  /// Fills the column of a table that goes out whole.
  bool populate(GenericTreeTableColumnData* data);
  KVXEEnums::CellType getCellType() const override { return KVXEEnums::CellType::HEADER; }
  void copyAssignElements(KVXECell* target) const override;

  bool getIsDropdownColumn() const { return m_isDropdownColumn; }
  void setIsDropdownColumn(bool isDropdown) { m_isDropdownColumn = isDropdown; }
  KVXEEnums::Visibility getVisibility() const { return m_visibility; }
  void setVisibility(KVXEEnums::Visibility visibility);

  /// The default cell of this column.
  KVXECell* getDefaultCell() const;
  /// The list of the column's cells as the screen shows it.
  std::vector<std::string> getShownColumnList() const;
  /// The class of the column for the front end, from the default cell's type.
  int getPBColumnClass() const;

 private:
  bool m_isDropdownColumn = false;
  KVXEEnums::Visibility m_visibility = KVXEEnums::Visibility::EXTERNAL;
};
