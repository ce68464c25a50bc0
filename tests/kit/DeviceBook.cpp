#include "tests/kit/DeviceBook.h"

#include <limits>

DeviceBook::DeviceBook(const std::string& archName) {
  KVXEPartSelection::resetPartSelection();
  KVXEPartSelection::resetToArch(archName)->resetDeviceSelectionToDefault();
  KVXEPartSelection::getGlobal()->redrawTabs(true);
  settle();
}

DeviceBook::~DeviceBook() {
  KVXEBookMgr::getGlobal().closeProject();
  KVXEPartSelection::resetPartSelection();
}

KVXETable* DeviceBook::table(KVXEEnums::TabType type, const std::string& name) const {
  KVXETab* tab = book()->getTab(type);
  return tab ? tab->getTable(name) : nullptr;
}

KVXECell* DeviceBook::cell(KVXEEnums::TabType type, const KVXETitle& table, const std::string& row,
                           const KVXETitle& key, const KVXETitle& value) const {
  KVXECell* found = book()->lookup<std::string>(type, &table, row, &key, &value, false);
  if (!found) ADD_FAILURE() << "no row " << row << " in " << table.getDisplayTag(false);
  return found;
}

void DeviceBook::settle() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  KVXECellStateMgr::getGlobal().markGuiClean();
}

void DeviceBook::trim(unsigned int rows) {
  for (unsigned int i = 0; i < book()->getTabCount(); ++i) {
    KVXETab* tab = book()->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) {
      KVXETable* table = tab->getTable(j);
      if (!table->getHasTableEditingFeatures()) continue;
      while (table->getRowCount() > rows + 1) table->deleteRow(table->getRowCount() - 1);
    }
  }
  settle();
}

std::vector<std::string> DeviceBook::architectures() {
  return {KVXEPartSelection::m_arkeonArchName, KVXEPartSelection::m_morlanArchName,
          KVXEPartSelection::m_somVisionArchName};
}

float numberIn(KVXECell* cell) {
  float value = 0.0f;
  return cell && cell->getVal(value, false) ? value : std::numeric_limits<float>::quiet_NaN();
}

std::string textIn(KVXECell* cell) {
  std::string text;
  if (cell) cell->getVal(text, false);
  return text;
}
