#pragma once

#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

class KVXETable;
class KvxHandshakeData;

/// What the front end's table menu offers: insert, delete, duplicate, paste, fill down and clear rows.
///
/// Tables are named by the numbers of tab and table in the current book, rows by their places on screen. An
/// operation returns an empty text, or one for the user beginning with "ERROR: "; what it did until it failed
/// stays done. There is no way back: the workbook keeps no history.
class KVXETableOperations {
 public:
  using Rows = std::vector<int>;

  static KVXETableOperations& getGlobal();

  /// Null when there is no such tab or table.
  KVXETable* getTablePtr(int tab, int table) const;
  bool hasTableEditingFeatures(int tab, int table) const;

  // Whether the menu offers the operation. One data row always stays: it is the pattern for the next.
  bool canInsertTableRow(int tab, int table, int row) const;
  bool canDeleteTableRows(int tab, int table, const Rows& rows) const;
  bool canDuplicateTableRows(int tab, int table, const Rows& rows) const;
  bool canPasteTableRows(int tab, int table, const Rows& rows, int destination) const;
  bool canFillDownTableRows(int tab, int table, const Rows& rows) const;
  bool canClearTableRows(int tab, int table, const Rows& rows) const;

  // The operations, by numbers and by table, without a calculation. By numbers they fail for a table without
  // editing features. insertTableRow succeeds whatever the row; deleteTableRows by numbers sorts `rows` in
  // descending order; duplicates stand behind the selection; pasteTableRows copies `rows` in their order to
  // the rows from `destination` on; fillDownTableRows copies the first of `rows` to as many rows right below
  // it as there are others.
  std::string insertTableRow(int tab, int table, int row);
  std::string insertTableRow(KVXETable* table, int row);
  std::string deleteTableRows(int tab, int table, Rows& rows);
  std::string deleteTableRows(KVXETable* table, Rows& rows);
  std::string duplicateTableRows(int tab, int table, Rows& rows);
  std::string duplicateTableRows(KVXETable* table, Rows& rows);
  std::string pasteTableRows(int tab, int table, Rows& rows, int destination);
  std::string pasteTableRows(KVXETable* table, Rows& rows, int destination);
  std::string fillDownTableRows(int tab, int table, Rows& rows);
  std::string fillDownTableRows(KVXETable* table, Rows& rows);
  std::string clearTableRows(int tab, int table, Rows& rows);
  std::string clearTableRows(KVXETable* table, Rows& rows);

  /// The one entry for the front end: the operation, and after a success the calculation. `row` is the place
  /// of an insertion and the destination of a paste. An unknown operation only calculates.
  std::string performTableOperation(KvxHandshakeData* data, KVXEEnums::TableOperation operation, int tab,
                                    int table, Rows& rows, int row);
  void runPostTableOperations(KvxHandshakeData* data, KVXEEnums::TableOperation operation) const;

  // The table as a message of its own: its size in bytes, 0 without a table, and its bytes, of which nothing
  // is written when they do not fit.
  void getGenericTreeTableData(KVXETable* table, unsigned char* buffer, int size) const;
  void getGenericTreeTableData(int tab, int table, unsigned char* buffer, int size) const;
  int getGenericTreeTableDataSize(KVXETable* table) const;
  int getGenericTreeTableDataSize(int tab, int table) const;

  /// Rows that an active operation inserts and deletes keep the graph in step by themselves: the calculation
  /// after it need not learn the graph anew.
  bool getIsTableOperationActive() const { return m_isTableOperationActive; }

  /// Marks an operation as active for as long as it lives.
  class Scope {
   public:
    Scope() : m_before(getGlobal().m_isTableOperationActive) { getGlobal().m_isTableOperationActive = true; }
    ~Scope() { getGlobal().m_isTableOperationActive = m_before; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    bool m_before;
  };

 private:
  KVXETableOperations() = default;
  KVXETable* getEditableTable(int tab, int table) const;
  std::string run(KVXEEnums::TableOperation operation, int tab, int table, Rows& rows, int row);

  bool m_isTableOperationActive = false;
};
