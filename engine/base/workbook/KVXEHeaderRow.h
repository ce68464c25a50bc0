#pragma once

#include <boost/unordered/unordered_flat_map.hpp>
#include <unordered_map>
#include <vector>

#include "engine/base/workbook/KVXERow.h"

class GenericTreeTableHeaderData;

/// The header row: per column a default cell, the template of the column's cells, at `2 * column`, and a
/// display cell, the head of the column, at `2 * column + 1`.
class KVXEHeaderRow : public KVXERow {
 public:
  KVXEHeaderRow(KVXETable* table, unsigned int index);

  std::string className() const override { return "KVXEHeaderRow"; }
  KVXECell* getCell(unsigned int column) override { return getDisplayCell(column); }
  KVXECell* getCell(const KVXETitle* title) override;
  unsigned int getColumnCount() const override { return getChildCount() / 2; }
  /// Adds a column: its default cell of that type and its display cell. Returns the column's index.
  unsigned int addCell(KVXEEnums::CellType type) override;
  unsigned int addCell(const KVXECell* source) override;
  void setIndex(unsigned int index) override;

  virtual KVXECell* getDefaultCell(unsigned int column) { return getPairCell(column, 0); }
  virtual KVXECell* getDefaultCell(const KVXETitle* title);
  virtual KVXECell* getDisplayCell(unsigned int column) { return getPairCell(column, 1); }

  /// Names a column. A title that the table has already keeps its first column, and is reported.
  void assignHeaderToIndex(const KVXETitle* title, unsigned int index);
  /// The column of a title; an unknown one is reported and gives 0xFFFFFFFF.
  unsigned int getTitleToIndex(const KVXETitle* title) const;
  /// As above without a report.
  unsigned int findTitle(const KVXETitle* title) const;
  /// The title of a column, or null.
  const KVXETitle* getIndexToTitle(unsigned int index) const;
  /// Fills a map from the given spelling to the column, and the reverse.
  void populateTagToIndex(KVXEEnums::TitleType type,
                          std::unordered_map<std::string, unsigned int>& map) const;
  void populateIndexToTag(KVXEEnums::TitleType type,
                          std::unordered_map<unsigned int, std::string>& map) const;

  using KVXERow::populate;
  /// Fills the head of a table that goes out whole. False for a null message.
  bool populate(GenericTreeTableHeaderData* data);

 protected:
  KVXECell* getContentCell(unsigned int column) override { return getDefaultCell(column); }

 private:
  KVXECell* getPairCell(unsigned int column, unsigned int place) const {
    return column < getChildCount() ? getChild(2 * column + place) : nullptr;
  }

  boost::unordered_flat_map<const KVXETitle*, unsigned int> m_titleToIndex;
  std::vector<const KVXETitle*> m_indexToTitle;  ///< null for a column without a title
};
