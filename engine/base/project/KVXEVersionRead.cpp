#include <algorithm>
#include <map>

#include "engine/base/project/BackwardCompatibility.h"
#include "engine/base/project/ConfigTables.h"
#include "engine/base/project/KVXEVersion.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlOutline.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/tabs/KVXEPowerDesignTitles.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETitle.h"
#include "engine/wizard/base/KVXEWizardMgr.h"

using boost::property_tree::ptree;
using KVXEEnums::TitleType;
using KVXEEnums::ValueSource;

namespace {

using Row = KVXEVersion::Rows::value_type;

void tell(int line, int severity, const std::string& text) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("engine/base/project/KVXEVersion", line, severity, text);
}

std::string valueOr(const Row& attributes, const std::string& name) {
  const auto found = attributes.find(name);
  return found == attributes.end() ? std::string() : found->second;
}

/// Where a saved value came from, if from the user; what was computed comes back by calculation.
bool isSupplied(const std::string& sourceText, ValueSource& source) {
  KVXEEnums::string_to_enum(sourceText, source);
  return source == ValueSource::USER || source == ValueSource::XML || source == ValueSource::IP;
}

KVXETable* findTable(const TableId& id) {
  KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook(KVXEBookMgr::getLastArchName());
  if (!book) return nullptr;
  KVXEEnums::TabType type = KVXEEnums::TabType::NumItems;
  KVXEEnums::string_to_enum(id.m_tab, type);
  const KVXETab* tab = book->getTab(type);
  for (unsigned int i = 0; tab && i < tab->getTableCount(); ++i) {
    KVXETable* table = tab->getTable(i);
    if (table->getTableTitle() && table->getTableTitle()->getTag(TitleType::KVX) == id.m_table) return table;
  }
  return nullptr;
}

/// The data rows by what the column says.
std::multimap<std::string, unsigned int> rowsByValue(KVXETable* table, unsigned int column) {
  std::multimap<std::string, unsigned int> rows;
  for (unsigned int row = table->getHeaderRow()->getIndex() + 1; row < table->getRowCount(); ++row) {
    std::string value;
    if (KVXECell* cell = table->getCellAt(row, column); cell && cell->getVal(value, true))
      rows.emplace(value, row);
  }
  return rows;
}

void store(KVXECell* cell, const std::string& value, ValueSource source) {
  if (value.empty())
    cell->setBlankAndMarkEngineClean();
  else
    cell->setValAndMarkEngineClean(value);
  cell->setValueSource(source);
}

/// What comes from an IP is the IP's to change; what was imported into a configuration keeps its name.
void restrictEditing(KVXECell* cell, const KVXETable& table, const KVXETitle* column, ValueSource source) {
  if (source == ValueSource::IP) cell->setIsEditable(false);
  if (source == ValueSource::XML && kvxe::isConfigTable(table))
    cell->setIsEditable(!column || column->getTag(TitleType::DISPLAY) != "Name");
}

/// Pours the user's values of a saved row into the row of that index, which is made if it has any.
void populateRow(KVXETable* table, unsigned int index, const Row& attributes,
                 const std::unordered_map<std::string, unsigned int>& columns) {
  for (const auto& [key, saved] : attributes) {
    const auto sourceText = attributes.find(key + "_SOURCE");
    ValueSource source;
    if (sourceText == attributes.end() || !isSupplied(sourceText->second, source)) continue;
    const auto column = columns.find(key);
    if (column == columns.end()) continue;
    KVXECell* cell = table->getOrCreateRow(index)->getCell(column->second);
    if (!cell) continue;
    std::string value = saved;
    kvxe::BackwardCompatibility::patchCellValue(key, value, table);
    store(cell, value, source);
    restrictEditing(cell, *table, table->getHeaderRow()->getIndexToTitle(column->second), source);
  }
}

/// Gives a table whose rows the user may insert and delete as many as were saved: from `last` on, rows hold
/// what new rows do.
void resize(KVXETable* table, unsigned int last) {
  if (!table->getHasTableEditingFeatures() || last == table->getHeaderRow()->getIndex()) return;
  table->getOrCreateRow(last);
  while (table->getRowCount() > last + 1) table->deleteRow(table->getRowCount() - 1);
}

/// The cells that the saved rows of a table by position would add to the present ones.
std::size_t cellsToGrow(const KVXETable* table, const TableId& id, const kvxe::XmlOutline& outline) {
  if (!table || table->getPilotColumnTitle()) return 0;
  std::string path;
  id.getTableIdParamStr(path);
  const std::size_t rows = 1 + outline.count(path);
  return rows <= table->getRowCount() ? 0 : (rows - table->getRowCount()) * table->getColumnCount();
}

}  // namespace

bool KVXEVersion::read(const std::string& xmlPath) {
  const kvxe::XmlOutline outline = KVXEXmlReadWrite(fileOr(xmlPath)).outlineXml(true);
  std::vector<TableId> tables;
  std::vector<std::string> stack;
  getAllParamPaths(tables, outline.tree(), stack);
  if (!makeBookOf(readDevice(outline, tables))) return false;

  std::size_t growth = 0;
  std::vector<KVXETable*> targets;
  for (const TableId& table : tables) {
    targets.push_back(findTable(table));
    growth += cellsToGrow(targets.back(), table, outline);
  }
  if (growth > MaxCells) {
    tell(__LINE__, 3, "The project file asks for more rows than a book holds.");
    return false;
  }
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (!targets[i]) continue;
    const KVXEXmlReadWrite xml = outline.read(tables[i].getPath());
    std::string path;
    tables[i].getTableIdParamStr(path);
    populateTable(targets[i], xml.getVectorOfAttrMap(path, true), getPilotCol(xml, tables[i]));
  }
  readIPConfigurations(outline.read("Version._IpConfiguration"));
  return true;
}

void KVXEVersion::getAllParamPaths(std::vector<TableId>& out, const ptree& node,
                                   std::vector<std::string>& stack) const {
  for (const auto& [name, child] : node) {
    if (name == "params") {
      out.emplace_back(stack);
      return;
    }
    if (child.empty()) continue;
    stack.push_back(name);
    getAllParamPaths(out, child, stack);
    stack.pop_back();
  }
}

std::string KVXEVersion::getCurrentSelectionTablePath(const std::vector<TableId>& tables) const {
  std::string path;
  for (const TableId& table : tables)
    if (table.m_tab == "POWER_DESIGN" && table.m_table == "CurrentSelection") table.getTableIdParamStr(path);
  return path;
}

std::string KVXEVersion::getPilotCol(const KVXEXmlReadWrite& xml, const TableId& table) const {
  std::string path;
  table.getTableIdConfigStr(path);
  return valueOr(xml.getAttrMap(path), "PilotCol");
}

// The device.

KVXEVersion::Settings KVXEVersion::readDevice(const kvxe::XmlOutline& outline,
                                              const std::vector<TableId>& tables) const {
  Settings settings;
  const std::string path = getCurrentSelectionTablePath(tables);
  const KVXEXmlReadWrite xml = outline.read(path.substr(0, path.rfind('.')));
  for (const Row& row : xml.getVectorOfAttrMap(path, true)) {
    const std::string option = valueOr(row, "Option");
    // The table's own row, which chooses a current, is no part of the device.
    if (!option.empty() && option != KVXEPowerDesignTitles::m_currentSelectionStr)
      settings[option] = valueOr(row, "Selection");
  }
  kvxe::BackwardCompatibility::patchDeviceSelectionMap(settings);
  return settings;
}

bool KVXEVersion::makeBookOf(Settings settings) const {
  const auto architecture = settings.find(KVXEPartSelection::m_archStr);
  if (architecture == settings.end() || !settings.contains(KVXEPartSelection::m_devStr)) return false;
  KVXEPartSelection::resetPartSelection();
  KVXEPartSelection* selection = KVXEPartSelection::resetToArch(architecture->second);
  if (!selection) {
    tell(__LINE__, 1, "The project file is not supported.");
    return false;
  }
  settings.erase(architecture);
  selection->insertSettings({settings.begin(), settings.end()});
  const bool isInCatalogue = !selection->getSelectedDeviceName().empty();
  const std::string device = selection->getDevicePkgTag();
  KVXEBookMgr::getGlobal().closeProject();  // another project's values would stay between this one's
  selection->redrawTabs(false);
  const bool isAsSaved = std::ranges::all_of(settings, [&](const auto& setting) {
    return setting.second.empty() || selection->getCurrentSetting(setting.first) == setting.second;
  });
  if (!isInCatalogue && !isAsSaved)
    tell(__LINE__, 2,
         "The device " + device + " of the project is not in the catalogue as it was chosen; " +
             selection->getSelectedDeviceName() + " takes its place.");
  return true;
}

// The tables.

void KVXEVersion::populateParams(const TableId& tableId, const Rows& rows, const std::string& pilotTag) {
  if (KVXETable* table = findTable(tableId)) populateTable(table, rows, pilotTag);
}

void KVXEVersion::populateTable(KVXETable* table, const Rows& rows, const std::string& pilotTag) const {
  if (!table->getHeaderRow() || (table->getPilotColumnTitle() && pilotTag.empty())) return;
  std::unordered_map<std::string, unsigned int> columns;
  table->getHeaderRow()->populateTagToIndex(TitleType::KVX, columns);
  if (pilotTag.empty()) {
    unsigned int index = table->getHeaderRow()->getIndex();
    for (const Row& row : rows) populateRow(table, ++index, row, columns);
    resize(table, index);
    return;
  }
  const auto pilot = columns.find(pilotTag);
  if (pilot == columns.end()) return;
  const auto present = rowsByValue(table, pilot->second);
  for (const Row& row : rows) {
    const auto value = row.find(pilotTag);
    if (value == row.end()) continue;
    if (const auto match = present.find(value->second); match != present.end())
      populateRow(table, match->second, row, columns);
  }
}

// The configurations of IP.

void KVXEVersion::readIPConfigurations(const KVXEXmlReadWrite& xml) const {
  KVXEWizardMgr& wizards = KVXEWizardMgr::getGlobal();
  KVXEWizardMgr::clearAllSavedIPConfigs();
  for (Row& row : xml.getVectorOfAttrMap("Version._IpConfiguration.ip", true)) {
    const auto uid = row.find("_ipUid");
    if (uid == row.end()) continue;
    const std::string key = uid->second;
    row.erase(uid);
    wizards.saveConfig(key, {row.begin(), row.end()});
  }
}
