#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "engine/swig/KVXEGuiInterface.h"

using KVXEEnums::TableOperation;

// The small questions beside the handshake.

// The choice of the device. A negative index is beyond the end as an unsigned one.

void KVXEGuiInterface::resetDeviceSelectionDropDowns() {
  if (KVXEPartSelection* selection = KVXEPartSelection::getGlobal())
    selection->resetDeviceSelectionToDefault();
}

void KVXEGuiInterface::getDeviceSelectionDropDownsList(StringVector& list) {
  if (const KVXEPartSelection* selection = KVXEPartSelection::getGlobal())
    list = selection->getDeviceSelectionList();
}

int KVXEGuiInterface::getDeviceSelectionDropDownValues(int index, StringVector& list) {
  KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return selection ? selection->getDeviceSelectionValues(static_cast<unsigned int>(index), list) : -1;
}

void KVXEGuiInterface::setDeviceSelectionDropDownCurrentValue(int index, const std::string& value) {
  if (KVXEPartSelection* selection = KVXEPartSelection::getGlobal())
    selection->setDeviceSelectionCurrentValue(static_cast<unsigned int>(index), value);
}

std::string KVXEGuiInterface::getSelectedDeviceName() {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  return selection ? selection->getSelectedDeviceName() : std::string();
}

std::string KVXEGuiInterface::getSelectedDeviceToolTip() {
  return "Selected Device Tooltip";
}

void KVXEGuiInterface::getArchitectureDropDownsList(StringVector& list) {
  list.push_back("Architecture");
}

int KVXEGuiInterface::getArchitectureDropDownValues(int, StringVector& list) {
  list.insert(list.end(), {KVXEPartSelection::m_arkeonArchName, KVXEPartSelection::m_somVisionArchName,
                           KVXEPartSelection::m_morlanArchName});
  return 0;
}

void KVXEGuiInterface::setArchitectureDropDownCurrentValue(int, const std::string& value) {
  KVXEPartSelection::resetToArch(value);
}

bool KVXEGuiInterface::hasPartForSelectedArchitecture() {
  return true;
}

// The project.

std::string KVXEGuiInterface::getProjectPath() {
  return KVXEPrjMgr::getGlobal().getProjectPath();
}

std::string KVXEGuiInterface::getProjectFileName() {
  return KVXEPrjMgr::getGlobal().getProjectFileName();
}

std::string KVXEGuiInterface::getProjectName() {
  return KVXEPrjMgr::getGlobal().getProjectName();
}

std::string KVXEGuiInterface::getCurrentDesignName() {
  return "KVX";
}

// Edits of table rows.

namespace {

KVXETableOperations& tableOperations() {
  return KVXETableOperations::getGlobal();
}

}  // namespace

std::string KVXEGuiInterface::performTableOperation(TableOperation operation, int tab, int table,
                                                    IntVector& rows, int extra) {
  return tableOperations().performTableOperation(m_handshakeData.get(), operation, tab, table, rows, extra);
}

bool KVXEGuiInterface::hasTableEditingFeatures(int tab, int table) {
  return tableOperations().hasTableEditingFeatures(tab, table);
}

bool KVXEGuiInterface::canInsertTableRow(int tab, int table, int row) {
  return tableOperations().canInsertTableRow(tab, table, row);
}

std::string KVXEGuiInterface::insertTableRow(int tab, int table, int row) {
  IntVector none;
  return performTableOperation(TableOperation::INSERT, tab, table, none, row);
}

bool KVXEGuiInterface::canDeleteTableRows(int tab, int table, IntVector& rows) {
  return tableOperations().canDeleteTableRows(tab, table, rows);
}

std::string KVXEGuiInterface::deleteTableRows(int tab, int table, IntVector& rows) {
  return performTableOperation(TableOperation::DELETE, tab, table, rows, 0);
}

bool KVXEGuiInterface::canDuplicateTableRows(int tab, int table, IntVector& rows) {
  return tableOperations().canDuplicateTableRows(tab, table, rows);
}

std::string KVXEGuiInterface::duplicateTableRows(int tab, int table, IntVector& rows) {
  return performTableOperation(TableOperation::DUPLICATE, tab, table, rows, 0);
}

bool KVXEGuiInterface::canPasteTableRows(int tab, int table, IntVector& rows, int target) {
  return tableOperations().canPasteTableRows(tab, table, rows, target);
}

std::string KVXEGuiInterface::pasteTableRows(int tab, int table, IntVector& rows, int target) {
  return performTableOperation(TableOperation::PASTE, tab, table, rows, target);
}

bool KVXEGuiInterface::canFillDownTableRows(int tab, int table, IntVector& rows) {
  return tableOperations().canFillDownTableRows(tab, table, rows);
}

std::string KVXEGuiInterface::fillDownTableRows(int tab, int table, IntVector& rows) {
  return performTableOperation(TableOperation::FILL_DOWN, tab, table, rows, 0);
}

bool KVXEGuiInterface::canClearTableRows(int tab, int table, IntVector& rows) {
  return tableOperations().canClearTableRows(tab, table, rows);
}

std::string KVXEGuiInterface::clearTableRows(int tab, int table, IntVector& rows) {
  return performTableOperation(TableOperation::CLEAR, tab, table, rows, 0);
}

int KVXEGuiInterface::getGenericTreeTableDataSize(int tab, int table) {
  return tableOperations().getGenericTreeTableDataSize(tab, table);
}

void KVXEGuiInterface::getGenericTreeTableData(int tab, int table, unsigned char* bytes, int length) {
  tableOperations().getGenericTreeTableData(tab, table, bytes, length);
}

bool KVXEGuiInterface::canUndoLastEditOperation() {
  return false;
}

std::string KVXEGuiInterface::undoLastEditOperation() {
  return {};
}

bool KVXEGuiInterface::canRedoLastUndo() {
  return canUndoLastEditOperation();
}

std::string KVXEGuiInterface::redoLastUndo() {
  return undoLastEditOperation();
}
