#pragma once

#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

class GenericTreeTableRowData;
class KVXECell;
class KVXETable;
class KVXETitle;

/// A row of a table; it owns its cells. Row 0 of every table is its header row (KVXEHeaderRow).
class KVXERow {
 public:
  /// A new row without cells, a KVXEHeaderRow for index 0. The table becomes its owner.
  static KVXERow* createRow(KVXETable* table, unsigned int index);

  KVXERow(KVXETable* table, unsigned int index) : m_table(table), m_index(index) {}
  KVXERow(const KVXERow&) = delete;
  KVXERow& operator=(const KVXERow&) = delete;
  virtual ~KVXERow();

  virtual std::string className() const { return "KVXERow"; }
  /// The cell of a column; null when there is none. A header row answers with its display cell.
  virtual KVXECell* getCell(unsigned int column);
  virtual KVXECell* getCell(const KVXETitle* title);
  virtual unsigned int getColumnCount() const { return static_cast<unsigned int>(m_cells.size()); }
  /// Appends a blank cell of that type; returns its index.
  virtual unsigned int addCell(KVXEEnums::CellType type);
  /// Appends a copy of a cell; returns its index.
  virtual unsigned int addCell(const KVXECell* source);
  virtual void setIndex(unsigned int index);

  KVXETable* getTable() const { return m_table; }
  unsigned int getIndex() const { return m_index; }
  /// The cell at that place of the vector, whatever the type of the row; null beyond the end.
  KVXECell* getChild(unsigned int index) const { return index < m_cells.size() ? m_cells[index] : nullptr; }
  unsigned int getChildCount() const { return static_cast<unsigned int>(m_cells.size()); }
  /// The row's cell under that column, for formulas.
  KVXECell* getHeaderToCell(const KVXETitle* title) { return getCell(title); }

  /// Clears the row to what a new row would hold. Here and below its number is no part of what it holds.
  void resetDefaults();
  void setIsEditable(bool isEditable);
  bool getIsEnabled() const { return m_isEnabled; }
  /// A disabled row has no place on screen, and its cells are disabled.
  void setIsEnabled(bool isEnabled);
  KVXEEnums::Visibility getVisibility() const { return m_visibility; }
  /// Who sees the row.
  void setVisibility(KVXEEnums::Visibility visibility);
  /// Enabled, and visible to the present viewer.
  bool hasPlaceOnScreen() const;

  /// Copies every cell to the other row, which must have as many columns. A header side uses its defaults.
  void copyAssignElements(KVXERow* target);
  /// Same contents; with `externalOnly` the texts of the columns that the outside sees, 0 equal to blank.
  bool isEquivalentElements(KVXERow* other, bool externalOnly);
  /// The row holds what a new row would hold.
  bool isEquivalentToDefault(bool externalOnly);

  /// Fills the row of a table that goes out whole. False for a null message.
  bool populate(GenericTreeTableRowData* data);

 protected:
  /// The cell that stands for the column's contents: a data row's cell, a header row's default cell.
  virtual KVXECell* getContentCell(unsigned int column) { return KVXERow::getCell(column); }
  unsigned int append(KVXECell* cell);

  std::vector<KVXECell*> m_cells;  // owned

 private:
  KVXETable* m_table;
  unsigned int m_index;
  KVXEEnums::Visibility m_visibility = KVXEEnums::Visibility::EXTERNAL;
  bool m_isEnabled = true;
};
