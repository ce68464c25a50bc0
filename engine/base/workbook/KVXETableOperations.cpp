#include "engine/base/workbook/KVXETableOperations.h"

#include <limits>

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "messages/generic_table.pb.h"

using KVXEEnums::TableOperation;

namespace {

std::string failureOf(const char* operation) {
  return std::string("ERROR: Could not complete the ") + operation + " operation";
}

/// The row at a place on screen, or null.
KVXERow* rowAt(const KVXETable& table, int place) {
  unsigned int index = 0;
  return table.guiToEngineIndex(place, index) ? table.getRow(index) : nullptr;
}

bool insertAt(KVXETable& table, int place) {
  unsigned int index = 0;
  return table.guiToEngineIndex(place, index) && table.insertRow(index);
}

}  // namespace

KVXETableOperations& KVXETableOperations::getGlobal() {
  static KVXETableOperations operations;
  return operations;
}

KVXETable* KVXETableOperations::getTablePtr(int tab, int table) const {
  KVXEBookMgr& books = KVXEBookMgr::getGlobal();
  const KVXEBook* book = books.getOrCreateCurrentBook(KVXEBookMgr::getLastArchName());
  const KVXETab* found = book ? book->getTab(static_cast<unsigned int>(tab)) : nullptr;
  return found ? found->getTable(static_cast<unsigned int>(table)) : nullptr;
}

bool KVXETableOperations::hasTableEditingFeatures(int tab, int table) const {
  return getEditableTable(tab, table);
}

/// The table of an operation of the front end. A table whose rows are the engine's own is none: formulas know
/// its rows by their places.
KVXETable* KVXETableOperations::getEditableTable(int tab, int table) const {
  KVXETable* found = getTablePtr(tab, table);
  return found && found->getHasTableEditingFeatures() ? found : nullptr;
}

// What the menu offers.

bool KVXETableOperations::canInsertTableRow(int tab, int table, int) const {
  const KVXETable* found = getTablePtr(tab, table);
  return found && found->getRowCount() >= 2;
}

bool KVXETableOperations::canDeleteTableRows(int tab, int table, const Rows& rows) const {
  const KVXETable* found = getTablePtr(tab, table);
  return found && !rows.empty() && found->getRowCount() >= rows.size() + 2;
}

bool KVXETableOperations::canDuplicateTableRows(int tab, int table, const Rows& rows) const {
  return getTablePtr(tab, table) && !rows.empty();
}

bool KVXETableOperations::canPasteTableRows(int tab, int table, const Rows&, int) const {
  return getTablePtr(tab, table);
}

bool KVXETableOperations::canFillDownTableRows(int, int, const Rows& rows) const {
  return rows.size() >= 2;
}

bool KVXETableOperations::canClearTableRows(int tab, int table, const Rows& rows) const {
  return canDuplicateTableRows(tab, table, rows);
}

// The operations.

std::string KVXETableOperations::insertTableRow(int tab, int table, int row) {
  return insertTableRow(getEditableTable(tab, table), row);
}

std::string KVXETableOperations::insertTableRow(KVXETable* table, int row) {
  if (!table) return failureOf("insert");
  insertAt(*table, row);
  return {};
}

std::string KVXETableOperations::deleteTableRows(int tab, int table, Rows& rows) {
  std::sort(rows.begin(), rows.end(), std::greater<>());  // no row moves before its turn
  return deleteTableRows(getEditableTable(tab, table), rows);
}

std::string KVXETableOperations::deleteTableRows(KVXETable* table, Rows& rows) {
  if (!table || rows.empty()) return failureOf("delete");
  for (const int place : rows) {
    unsigned int index = 0;
    if (!table->guiToEngineIndex(place, index) || !table->deleteRow(index)) return failureOf("delete");
  }
  return {};
}

std::string KVXETableOperations::duplicateTableRows(int tab, int table, Rows& rows) {
  return duplicateTableRows(getEditableTable(tab, table), rows);
}

std::string KVXETableOperations::duplicateTableRows(KVXETable* table, Rows& rows) {
  if (!table || rows.empty()) return failureOf("duplicate");
  const auto distance = static_cast<long long>(rows.size());
  for (const int place : rows) {
    const long long copy = place + distance;
    if (copy > std::numeric_limits<int>::max() || !insertAt(*table, static_cast<int>(copy)))
      return failureOf("duplicate");
    Rows original{place};
    if (const std::string failure = pasteTableRows(table, original, static_cast<int>(copy)); !failure.empty())
      return failure;
  }
  return {};
}

std::string KVXETableOperations::pasteTableRows(int tab, int table, Rows& rows, int destination) {
  return pasteTableRows(getEditableTable(tab, table), rows, destination);
}

std::string KVXETableOperations::pasteTableRows(KVXETable* table, Rows& rows, int destination) {
  if (!table) return failureOf("paste");
  unsigned int target = 0;
  table->guiToEngineIndex(destination, target);
  for (const int place : rows) {
    KVXERow* source = rowAt(*table, place);
    KVXERow* copy = table->getRow(target++);
    if (!source || !copy) return failureOf("paste");
    source->copyAssignElements(copy);
  }
  return {};
}

std::string KVXETableOperations::fillDownTableRows(int tab, int table, Rows& rows) {
  return fillDownTableRows(getEditableTable(tab, table), rows);
}

std::string KVXETableOperations::fillDownTableRows(KVXETable* table, Rows& rows) {
  if (!table || rows.size() < 2 || rows.front() == std::numeric_limits<int>::max())
    return failureOf("fill down");
  Rows copies(rows.size() - 1, rows.front());
  return pasteTableRows(table, copies, rows.front() + 1);
}

std::string KVXETableOperations::clearTableRows(int tab, int table, Rows& rows) {
  return clearTableRows(getEditableTable(tab, table), rows);
}

std::string KVXETableOperations::clearTableRows(KVXETable* table, Rows& rows) {
  if (!table || rows.empty()) return failureOf("clear");
  for (const int place : rows) {
    KVXERow* row = rowAt(*table, place);
    if (!row) return failureOf("clear");
    row->resetDefaults();
  }
  return {};
}

// The entry for the front end.

std::string KVXETableOperations::run(TableOperation operation, int tab, int table, Rows& rows, int row) {
  switch (operation) {
    case TableOperation::INSERT:
      return insertTableRow(tab, table, row);
    case TableOperation::DELETE:
      return deleteTableRows(tab, table, rows);
    case TableOperation::DUPLICATE:
      return duplicateTableRows(tab, table, rows);
    case TableOperation::PASTE:
      return pasteTableRows(tab, table, rows, row);
    case TableOperation::FILL_DOWN:
      return fillDownTableRows(tab, table, rows);
    case TableOperation::CLEAR:
      return clearTableRows(tab, table, rows);
  }
  return {};
}

std::string KVXETableOperations::performTableOperation(KvxHandshakeData* data, TableOperation operation,
                                                       int tab, int table, Rows& rows, int row) {
  const Scope active;
  std::string failure = run(operation, tab, table, rows, row);
  if (failure.empty()) runPostTableOperations(data, operation);
  return failure;
}

void KVXETableOperations::runPostTableOperations(KvxHandshakeData*, TableOperation) const {
  KVXECalculationMgr::getGlobal().incrCalculate();
}

// The table as a message.

namespace {

GenericTreeTableData messageOf(KVXETable* table) {
  GenericTreeTableData data;
  if (table) table->populate(&data);
  return data;
}

}  // namespace

void KVXETableOperations::getGenericTreeTableData(KVXETable* table, unsigned char* buffer, int size) const {
  if (table && buffer && size > 0) messageOf(table).SerializeToArray(buffer, size);
}

void KVXETableOperations::getGenericTreeTableData(int tab, int table, unsigned char* buffer, int size) const {
  getGenericTreeTableData(getTablePtr(tab, table), buffer, size);
}

int KVXETableOperations::getGenericTreeTableDataSize(KVXETable* table) const {
  return static_cast<int>(messageOf(table).ByteSizeLong());
}

int KVXETableOperations::getGenericTreeTableDataSize(int tab, int table) const {
  return getGenericTreeTableDataSize(getTablePtr(tab, table));
}
