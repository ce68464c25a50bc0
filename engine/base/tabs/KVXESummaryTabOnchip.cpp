// On-chip power by block. Each row computes itself from the sources that the architecture declares for it;
// the static rows share one run of the static model, which the first of them makes.

#include "engine/base/tabs/KVXESummaryTabOnchip.h"

#include <algorithm>
#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "models/common/ParamsRecord.h"

using enum KVXEEnums::CellType;
using kvxe::OnchipCategory;
using kvxe::OnchipComponent;
using kvxe::OnchipSource;
using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;
using Categories = std::span<const OnchipCategory>;

namespace {

const char* const onchipName = "Onchip summary Table";

/// The wide processing system comes with a family of devices, everything else is counted.
bool hasResource(const std::string& name) {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return false;
  return name == "PSW" ? selection->isArkeonNet() : selection->isResourceAvailable(name);
}

const OnchipCategory* findCategory(Categories categories, const std::string& text) {
  for (const OnchipCategory& category : categories)
    if (category.text == text) return &category;
  return nullptr;
}

const OnchipComponent* findComponent(Categories categories, const std::string& text) {
  for (const OnchipCategory& category : categories)
    for (const OnchipComponent& component : category.components)
      if (component.text == text) return &component;
  return nullptr;
}

}  // namespace

bool kvxe::isValidComp(const OnchipComponent& component) {
  const bool isPresent =
      component.needs.empty() || std::any_of(component.needs.begin(), component.needs.end(), &hasResource);
  return isPresent && std::none_of(component.lacks.begin(), component.lacks.end(), &hasResource);
}

bool kvxe::isValidCategory(const OnchipCategory& category, Categories all) {
  return std::any_of(category.components.begin(), category.components.end(),
                     [&](const OnchipComponent& component) {
                       const OnchipCategory* below =
                           component.text == category.text ? nullptr : findCategory(all, component.text);
                       return below ? isValidCategory(*below, all) : isValidComp(component);
                     });
}

// Lists.

namespace {

using SummaryMap = std::map<std::string, std::vector<std::string>>;

void fillSummaryMap(SummaryMap& map, std::vector<std::string>& headings, Categories categories) {
  map.clear();
  for (const OnchipCategory& category : categories) {
    for (const OnchipComponent& component : category.components) map[category.text].push_back(component.text);
    if (!category.isLoneRow()) headings.push_back(category.text);
  }
}

std::vector<std::string> keysOf(const SummaryMap& map) {
  std::vector<std::string> keys;
  for (const auto& [key, components] : map) keys.push_back(key);
  return keys;
}

std::vector<std::string> componentsOf(const SummaryMap& map, const std::string& category) {
  const auto found = map.find(category);
  if (found != map.end() && !found->second.empty()) return found->second;
  std::cout << "Error: Empty Comp Vector. Look at the m_dynamicPowerSummaryMap" << '\n';
  return {};
}

unsigned int rowsOf(const SummaryMap& map) {
  auto rows = static_cast<unsigned int>(map.size());
  for (const auto& [key, components] : map)
    for (const std::string& component : components) rows += map.count(component) == 0;
  return rows;
}

unsigned int indentLevelOf(const SummaryMap& map, const std::string& text) {
  if (map.count(text)) return 0;
  return std::any_of(map.begin(), map.end(), [&](const auto& entry) {
    return std::find(entry.second.begin(), entry.second.end(), text) != entry.second.end();
  });
}

}  // namespace

void KVXESummaryTab::initSummaryMap() {
  m_categoryList.clear();
  fillSummaryMap(m_dynamicPowerSummaryMap, m_categoryList, dynamicCategories());
  fillSummaryMap(m_staticPowerSummaryMap, m_categoryList, staticCategories());
}

std::vector<std::string> KVXESummaryTab::getStaticCompList() {
  return keysOf(m_staticPowerSummaryMap);
}
std::vector<std::string> KVXESummaryTab::getDynamicCompList() {
  return keysOf(m_dynamicPowerSummaryMap);
}
std::vector<std::string> KVXESummaryTab::getStaticCompList(const std::string& category) {
  return componentsOf(m_staticPowerSummaryMap, category);
}
std::vector<std::string> KVXESummaryTab::getDynamicCompList(const std::string& category) {
  return componentsOf(m_dynamicPowerSummaryMap, category);
}
unsigned int KVXESummaryTab::getStaticPowerSummaryListSize() {
  return rowsOf(m_staticPowerSummaryMap);
}
unsigned int KVXESummaryTab::getDynamicPowerSummaryListSize() {
  return rowsOf(m_dynamicPowerSummaryMap);
}
unsigned int KVXESummaryTab::getStaticIndentLevel(const std::string& text) {
  return indentLevelOf(m_staticPowerSummaryMap, text);
}
unsigned int KVXESummaryTab::getDynamicIndentLevel(const std::string& text) {
  return indentLevelOf(m_dynamicPowerSummaryMap, text);
}
bool KVXESummaryTab::isCategoryStr(const std::string& text) {
  return std::find(m_categoryList.begin(), m_categoryList.end(), text) != m_categoryList.end();
}

// Tables.

KVXETable* KVXESummaryTab::createOnchipTable(const KVXETitle& title, KVXEFormula power) {
  const KVXEColumn columns[] = {
      {.title = &m_onchipResourceColumn,
       .type = STRING,
       .toolTip = "The block, or what blocks have in common."},
      {.title = &m_onchipPowerColumn,
       .type = FLOAT,
       .formula = power,
       .unit = Unit::POWER_SHOW,
       .toolTip = "The power of the block."},
      {.title = &m_onchipPowerPercentageColumn,
       .type = FLOAT,
       .formula = &updateOnchipPowerInPercentageTable,
       .toolTip = "The share of the block in percent of the total on-chip power."},
  };
  KVXETable* table = createTable(&title, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  return table;
}

void KVXESummaryTab::createSummaryRow(KVXETable& table, const std::string& text) {
  if (text.empty()) return;
  table.getOrCreateRow(table.getRowCount())->getCell(&m_onchipResourceColumn)->setValAndMarkEngineClean(text);
}

void KVXESummaryTab::fillOnchipTable(KVXETable& table, Categories categories) {
  for (const OnchipCategory& category : categories) {
    createSummaryRow(table, category.text);
    for (const OnchipComponent& component : category.components)
      if (!findCategory(categories, component.text)) createSummaryRow(table, component.text);
  }
}

void KVXESummaryTab::initOnchipStaticPowerTable() {
  KVXETable* table = createOnchipTable(m_onchipStaticTableHeader, &updateOnchipStaticPowerInWattsTable);
  fillOnchipTable(*table, staticCategories());
  findStaticRunCell(m_onchipStaticTableHeader);
}

void KVXESummaryTab::findStaticRunCell(const KVXETitle& table) {
  const std::string runRow = staticTerms().empty() ? std::string() : staticTerms().front().row;
  m_staticRunCell = lookup<std::string>(&table, runRow, &m_onchipResourceColumn, &m_onchipPowerColumn, false);
}

void KVXESummaryTab::initOnchipDynamicPowerTable() {
  KVXETable* table = createOnchipTable(m_onchipDynamicTableHeader, &updateOnchipDynamicPowerInWattsTable);
  fillOnchipTable(*table, dynamicCategories());
}

void KVXESummaryTab::initOnchipPowerTable() {
  KVXETable* table = createOnchipTable(m_onchipTableHeader, &updateOnchipDynamicPowerInWattsTable);
  fillOnchipTable(*table, dynamicCategories());
  const unsigned int firstStaticRow = table->getRowCount();
  fillOnchipTable(*table, staticCategories());
  for (unsigned int i = firstStaticRow; i < table->getRowCount(); ++i)
    table->getCellAt(i, &m_onchipPowerColumn)->assignFormula(&updateOnchipStaticPowerInWattsTable);
  findStaticRunCell(m_onchipTableHeader);
}

// Dynamic power.

namespace {

/// The title of a column by its programmatic spelling; null when there is none.
const KVXETitle* findColumn(const KVXETable& table, const std::string& name) {
  const KVXEHeaderRow* header = table.getHeaderRow();
  for (unsigned int i = 0; header && i < header->getColumnCount(); ++i) {
    const KVXETitle* title = header->getIndexToTitle(i);
    if (title && title->getTag(KVXEEnums::TitleType::SW) == name) return title;
  }
  return nullptr;
}

std::optional<float> readSource(const KVXEBook& book, const OnchipSource& source) {
  KVXETab* tab = book.getTab(source.tab);
  float watts = 0.0f;
  if (!tab || !tab->getIsEnabled()) return std::nullopt;
  if (source.table.empty()) {
    if (!tab->getTabActivePower(watts)) return std::nullopt;
    return watts;
  }
  const KVXETable* table = tab->getTable(source.table);
  const KVXETitle* key = table ? findColumn(*table, source.keyColumn) : nullptr;
  const KVXETitle* value = key ? findColumn(*table, source.valueColumn) : nullptr;
  KVXECell* cell =
      value ? tab->lookup<std::string>(table->getTableTitle(), source.key, key, value, false) : nullptr;
  if (!cell || !cell->getVal(watts, true)) return std::nullopt;
  return watts;
}

}  // namespace

std::optional<float> KVXESummaryTab::readSources(const KVXEUID& uid, const std::string& row) const {
  std::optional<float> sum;
  for (const OnchipSource& source : dynamicSources()) {
    if (source.row != row || (sum && source.join == OnchipSource::Join::Else)) continue;
    if (const auto watts = readSource(*uid.getBook(), source)) sum = sum.value_or(0.0f) + *watts;
  }
  return sum;
}

/// Whether a row is a tab's own, so that there is nothing to show without the tab.
bool KVXESummaryTab::isWholeTabRow(const std::string& row) const {
  for (const OnchipSource& source : dynamicSources())
    if (source.row == row) return source.table.empty();
  return false;
}

void KVXESummaryTab::updateOnchipDynamicPowerInWattsTable(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_onchipDynamicTableHeader, &m_onchipTableHeader}, onchipName)) return;
  const KVXESummaryTab* tab = tabOf(uid);
  const std::string text = textInRow(uid, m_onchipResourceColumn);
  const Categories categories = tab->dynamicCategories();
  const OnchipComponent* component = findComponent(categories, text);
  const OnchipCategory* category = findCategory(categories, text);
  if (category && !category->isLoneRow()) {
    setRowVisible(uid.getRow(), isValidCategory(*category, categories));
    return uid.getCell()->setBlankAndMarkEngineClean();
  }
  if (!component || !isValidComp(*component)) {
    setRowVisible(uid.getRow(), false);
    return uid.getCell()->setBlankAndMarkEngineClean();
  }
  const std::optional<float> watts = tab->readSources(uid, text);
  const bool isWholeTab = tab->isWholeTabRow(text);
  setRowVisible(uid.getRow(), watts || !isWholeTab);
  if (watts || isWholeTab) return uid.getCell()->setValAndMarkEngineClean(watts.value_or(0.0f));
  uid.getCell()->setBlankAndMarkEngineClean();
}

// Static power.

/// The row that comes first in the architecture's list runs the model; every other row depends on its cell,
/// so that the results behind it are never older than what they were computed from.
void KVXESummaryTab::runStaticModel(const KVXEUID& uid) {
  if (uid.getCell() != m_staticRunCell) {
    float watts = 0.0f;
    if (m_staticRunCell) m_staticRunCell->getVal(watts, true);
    return;
  }
  m_static = makeStaticParams();
  if (!m_static) return;
  KVXEPowerDesignTab::getStaticParams(uid, *m_static);
  calculateStatic(*m_static);
}

float KVXESummaryTab::staticWatts(const std::string& row) const {
  double watts = 0.0;
  if (!m_static) return 0.0f;
  for (const kvxe::OnchipStaticTerm& term : staticTerms()) {
    if (row != term.row) continue;
    for (const auto& product : term.products) {
      double factor = product.front() ? 1.0 : 0.0;
      for (const int key : product)
        if (const float* result = key ? m_static->findFloat(key) : nullptr) factor *= *result;
      watts += factor;
    }
    if (term.isScaled) watts *= staticScale(*m_static);
  }
  return static_cast<float>(watts);
}

void KVXESummaryTab::updateOnchipStaticPowerInWattsTable(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_onchipStaticTableHeader, &m_onchipTableHeader}, onchipName)) return;
  KVXESummaryTab* tab = tabOf(uid);
  const std::string text = textInRow(uid, m_onchipResourceColumn);
  if (findCategory(tab->staticCategories(), text)) return uid.getCell()->setBlankAndMarkEngineClean();
  const OnchipComponent* component = findComponent(tab->staticCategories(), text);
  const bool isShown = component && isValidComp(*component);
  setRowVisible(uid.getRow(), isShown);
  if (!isShown) return uid.getCell()->setBlankAndMarkEngineClean();
  tab->runStaticModel(uid);
  uid.getCell()->setValAndMarkEngineClean(tab->staticWatts(text));
}

// Percentages.

float KVXESummaryTab::percentageBase(const KVXEUID& uid) {
  return readEntry(summaryCell(uid, m_onChipPowerStr)).value_or(0.0f);
}

void KVXESummaryTab::updateOnchipPowerInPercentageTable(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_onchipStaticTableHeader, &m_onchipDynamicTableHeader, &m_onchipTableHeader},
                 onchipName))
    return;
  const auto watts = readEntry(uid.getRow()->getCell(&m_onchipPowerColumn));
  if (!watts) return uid.getCell()->setBlankAndMarkEngineClean();
  const float total = tabOf(uid)->percentageBase(uid);
  uid.getCell()->setValAndMarkEngineClean(total > 0.0f ? *watts / total * 100.0f : 0.0f);
}
