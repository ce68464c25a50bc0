#pragma once

#include <boost/optional.hpp>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "engine/base/services/KVXEMsg.h"
#include "engine/base/workbook/KVXEColumn.h"
#include "engine/base/workbook/KVXEEnums.h"

class GenericTreeTableData;
class GenericTreeTablesData;
class KVXEChart;
class KVXEHeaderRow;
class KVXERow;
class KVXETab;
class KvxGridComponentData;
class KvxImageData;

/// Where a table stands in the grid of its tab.
struct KVXEGridConstraints {
  unsigned int row = 0;
  unsigned int column = 0;
  unsigned int rowSpan = 4;
  unsigned int columnSpan = 9;
};

/// A grid of cells. Row 0 is the header row, whose default cells are the template of every data row. Columns
/// are addressed by the address of a KVXETitle, rows by engine index. What the user sees is less: disabled
/// and hidden rows have no place on screen, and the table keeps the mapping between the two numberings.
class KVXETable {
 public:
  /// With `showRowIds` the table begins with the column of row numbers. The two grid options go out to the
  /// front end as they are.
  KVXETable(KVXETab* tab, unsigned int index, const KVXETitle* title, bool showRowIds, bool gridOptionA,
            bool gridOptionB);
  KVXETable(const KVXETable&) = delete;
  KVXETable& operator=(const KVXETable&) = delete;
  virtual ~KVXETable();

  virtual std::string className() const { return "KVXETable"; }
  virtual const KVXETitle* getTableTitle() const { return m_title; }
  virtual KVXEEnums::GridComponentType getPBGridViewType() { return KVXEEnums::GridComponentType::TABLE; }

  KVXETab* getTab() const { return m_tab; }
  unsigned int getIndex() const { return m_index; }
  KVXEGridConstraints& getGridConstraints() { return m_gridConstraints; }
  void initGrid() { m_gridConstraints = {}; }

  // Columns.

  /// Adds one column in front of any row; returns its index. `defaultValue` and `range` may be blank.
  template <class T>
  unsigned int addColumn(const KVXETitle& title, bool isEditable, KVXEEnums::CellType cellType,
                         KVXEFormula formula, KVXEEnums::Unit unit, bool isDropdownColumn,
                         const T& defaultValue, const std::pair<T, T>& range);
  /// Adds declared columns in order.
  void addColumns(std::span<const KVXEColumn> columns);
  /// Puts the tool tip on the head of a column.
  void setColumnToolTip(const KVXETitle* title, const std::string& text);

  /// The column of a title; an unknown one is reported and gives 0xFFFFFFFF.
  unsigned int getTitleToIndex(const KVXETitle* title) const;
  /// As above without a report.
  unsigned int findTitle(const KVXETitle* title) const;
  unsigned int getColumnCount() const;
  KVXEEnums::CellType getColumnType(unsigned int column) const;
  KVXEEnums::Visibility getColumnVisibility(unsigned int column) const;
  KVXEEnums::Visibility getColumnVisibility(const KVXETitle* title) const;
  void setColumnVisibility(unsigned int column, KVXEEnums::Visibility visibility);
  void setColumnVisibility(const KVXETitle* title, KVXEEnums::Visibility visibility);
  void setColumnHeaderText(const KVXETitle* title, const std::string& text);
  void setColumnHeaderMsg(const KVXETitle* title, const KvxSeverity& severity, const std::string& text);
  void clearColumnHeaderMsg(const KVXETitle* title);
  /// Blanks the column in every data row.
  void clearColumn(const KVXETitle* title);
  /// The column by whose texts saved rows find theirs again; null where they go by position.
  const KVXETitle* getPilotColumnTitle() const { return m_pilotColumnTitle; }
  void setPilotColumnTitle(const KVXETitle* title) { m_pilotColumnTitle = title; }

  // Rows.

  KVXEHeaderRow* getHeaderRow() const;
  KVXEHeaderRow* getOrCreateHeaderRow();
  /// Null beyond the end.
  KVXERow* getRow(unsigned int index) const { return index < m_rows.size() ? m_rows[index] : nullptr; }
  /// Creates rows from the template up to `index`.
  KVXERow* getOrCreateRow(unsigned int index);
  unsigned int getRowCount() const { return static_cast<unsigned int>(m_rows.size()); }
  KVXECell* getCellAt(unsigned int row, unsigned int column) const;
  KVXECell* getCellAt(unsigned int row, const KVXETitle* title) const;
  /// Inserts a row from the template, with its vertices in the graph. Null, with a report for an index
  /// beyond the end, when nothing was inserted: a table without a data row takes no insertion.
  KVXERow* insertRow(unsigned int index);
  /// Removes a row with its cells and their edges. False, with a report, for an index beyond the end and for
  /// a row whose formula is running; the header row is never a target.
  bool deleteRow(unsigned int index);
  /// Drops the row's contents and moves those below it up by one; no row is created or destroyed.
  void moveDownStreamRowsUpByOneRow(KVXERow* row);
  void moveDownStreamRowsUpByOneRow(unsigned int index);
  /// Clears data rows `from` to `to` to what new rows would hold.
  void resetDefaults(unsigned int from, unsigned int to);
  bool isDefaultRow(KVXERow* row, bool externalOnly) const;
  /// The first data row equal to the template; the row count when there is none, 1 without data rows.
  unsigned int getFirstRowIDWithDefaults(bool externalOnly) const;
  /// The last data row that differs from the template; 0 when there is none.
  unsigned int getLastRowIDWithoutDefaults() const;
  void setIsEnabled(bool isEnabled);

  /// Engine indices of the rows inserted and removed since the table last went out. What insertRow and
  /// deleteRow did is kept so that it can be replayed: the removed rows by the indices that they had then,
  /// the inserted ones by those that they have now.
  void addRowIndices(unsigned int index);
  void deleteRowIndices(unsigned int index);
  const std::set<unsigned int>& getAddedRowIndices() const { return m_addedRowIndices; }
  const std::set<unsigned int>& getDeletedRowIndices() const { return m_deletedRowIndices; }
  /// The front end knows the rows as they are.
  void clearRowIndices();

  // Screen.

  /// (data rows, columns).
  std::pair<unsigned int, unsigned int> getPrintableArea() const;
  /// Screen row to engine row. False for a row that is not on screen.
  bool guiToEngineIndex(int gui, unsigned int& engine) const;
  /// Engine row to screen row. False for the header row and for rows without a place on screen.
  bool engineToGuiIndex(unsigned int engine, int& gui) const;
  /// Rebuilds the mapping and the row numbers.
  void populateIndexMapping();
  void fillRowIDs();
  /// Rebuilds the mapping of a table that has rows for some viewers only: the viewer changed.
  void refreshForViewer();

  KVXEEnums::Visibility getVisibility() const { return m_visibility; }
  void setVisibility(KVXEEnums::Visibility visibility);
  const boost::optional<std::string>& getTabWidgetTitle() const { return m_tabWidgetTitle; }
  /// The sub-tab in which the table stands.
  void setTabWidgetTitle(const std::string& title);
  bool getShowRowIds() const { return m_showRowIds; }
  /// The first column that holds contents: the one behind the row numbers, which tell where a row stands.
  unsigned int getFirstContentColumn() const { return m_showRowIds ? 1 : 0; }
  bool getGridOptionA() const { return m_gridOptionA; }
  bool getGridOptionB() const { return m_gridOptionB; }
  bool getHasTableEditingFeatures() const { return m_hasTableEditingFeatures; }
  /// Whether the user may insert, delete, duplicate, paste, fill and clear rows.
  void setHasTableEditingFeatures(bool hasFeatures) { m_hasTableEditingFeatures = hasFeatures; }
  bool getIsChartOnly() const { return m_isChartOnly; }
  void setIsChartOnly(bool isChartOnly) { m_isChartOnly = isChartOnly; }
  /// The header row is not shown.
  bool getIsHeaderHidden() const { return m_isHeaderHidden; }
  void setIsHeaderHidden(bool isHidden) { m_isHeaderHidden = isHidden; }
  /// The table's chart, made on first use; `isSecondKind` picks kind 2 over kind 1.
  KVXEChart* getOrCreateChartView(bool isSecondKind);
  KVXEChart* getChart() const { return m_chart.get(); }
  unsigned int getChartViewKind() const { return m_chartViewKind; }

  // Messages.

  const KVXEMsg* getMsg() const { return m_msg.get(); }
  void setMsg(const KvxSeverity& severity, const std::string& text);
  void clearMsg() { m_msg.reset(); }
  void registerMsgCell(KVXECell* cell);
  void unregisterMsgCell(KVXECell* cell);
  /// The gravest severity among the cells that the present viewer sees; 0 for none.
  int getTableSeverity() const;

  // Lookup.

  /// Finds the rows whose `from` cell reads `key` (with `useRegex`: fully matches it as a std::regex, whose
  /// errors pass through) and gives their `to` cells; with `stopAtFirst` only the first.
  bool lookup(const std::string& key, const KVXETitle* from, const KVXETitle* to, std::vector<KVXECell*>& out,
              bool useRegex, bool stopAtFirst);

  // What goes out to the front end; false for a null message.

  /// The table's place on its tab, with the table itself.
  virtual bool populate(KvxGridComponentData* component);
  /// The table, unless it has no rows or no columns.
  bool populate(GenericTreeTablesData* tables);
  bool populate(GenericTreeTableData* data);
  /// Only an image is one: false for any other table.
  virtual bool populate(KvxImageData* image);

  /// The first breach of the table's invariants in words, or an empty text.
  std::string checkInvariants() const;

 protected:
  /// The part of a component that all kinds have: where it stands.
  void populatePlace(KvxGridComponentData* component) const;

 private:
  friend class KVXETab;

  KVXEHeaderCell* getDisplayCell(unsigned int column) const;
  KVXERow* appendRow(KVXEHeaderRow* header);
  void appendToScreen(KVXERow* row);
  void renumberRowsFrom(unsigned int index);
  void markFirstRowDirty(unsigned int firstColumn);
  void detachFromGraphAndMessages(KVXERow* row);
  void refreshScreenNumbers();
  void requestRedrawUnlessPlain();
  void recordInsertion(unsigned int index);
  void recordDeletion(unsigned int index);

  KVXEGridConstraints m_gridConstraints;
  std::unique_ptr<KVXEMsg> m_msg;
  KVXETab* m_tab;
  unsigned int m_index;
  const KVXETitle* m_title;
  const KVXETitle* m_pilotColumnTitle = nullptr;
  std::vector<KVXERow*> m_rows;  // owned
  std::vector<unsigned int> m_guiToEngine;
  bool m_isMappingHeld = false;
  bool m_isChartOnly = false;
  bool m_isHeaderHidden = false;
  bool m_showRowIds;
  bool m_hasTableEditingFeatures = false;
  bool m_gridOptionA;
  bool m_gridOptionB;
  KVXEEnums::Visibility m_visibility = KVXEEnums::Visibility::EXTERNAL;
  boost::optional<std::string> m_tabWidgetTitle;
  std::set<unsigned int> m_addedRowIndices;
  std::set<unsigned int> m_deletedRowIndices;
  std::unordered_set<KVXECell*> m_msgCells;
  unsigned int m_chartViewKind = 0;
  std::unique_ptr<KVXEChart> m_chart;
};

/// A table that only takes room.
class KVXESpacerTable final : public KVXETable {
 public:
  KVXESpacerTable(KVXETab* tab, unsigned int index, const KVXETitle* title)
      : KVXETable(tab, index, title, false, false, true) {}
  std::string className() const override { return "KVXESpacerTable"; }
  KVXEEnums::GridComponentType getPBGridViewType() override { return KVXEEnums::GridComponentType::SPACER; }
};

/// The table in which the front end shows the choice of the device.
class KVXEDeviceSelectionTable final : public KVXETable {
 public:
  KVXEDeviceSelectionTable(KVXETab* tab, unsigned int index, const KVXETitle* title)
      : KVXETable(tab, index, title, false, false, true) {}
  std::string className() const override { return "KVXEDeviceSelectionTable"; }
  KVXEEnums::GridComponentType getPBGridViewType() override {
    return KVXEEnums::GridComponentType::DEVICE_SELECTION;
  }
};
