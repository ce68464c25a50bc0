#include "clients/cli/Estimate.h"

#include <algorithm>
#include <map>

#include "clients/cli/BookSpelling.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/common/ParamsRecord.h"

namespace kvx {

double Estimate::dynamicWatts() const {
  double sum = 0;
  for (const Block& block : blocks) sum += block.isStatic ? 0.0 : static_cast<double>(block.watts);
  return sum;
}

double Estimate::staticWatts() const {
  double sum = 0;
  for (const Block& block : blocks) sum += block.isStatic ? static_cast<double>(block.watts) : 0.0;
  return sum;
}

std::optional<double> Estimate::boardWatts() const {
  if (components.empty()) return std::nullopt;
  double sum = 0;
  for (const Component& component : components) sum += static_cast<double>(component.watts);
  return sum;
}

bool Estimate::hasErrors() const {
  return std::any_of(messages.begin(), messages.end(),
                     [](const Message& message) { return message.severity == KvxSeverity::ERROR; });
}

namespace {

using KVXEEnums::TabType;
using KVXEEnums::Visibility;
using Summary = KVXESummaryTab;
using SummaryMap = std::map<std::string, std::vector<std::string>>;

std::string textAt(KVXERow* row, const KVXETitle& column) {
  KVXECell* cell = row->getCell(&column);
  std::string text;
  if (cell) cell->getVal(text, true);
  return text;
}

std::optional<float> numberAt(KVXERow* row, const KVXETitle& column) {
  KVXECell* cell = row->getCell(&column);
  float number = 0;
  if (!cell || !cell->getVal(number, true)) return std::nullopt;
  return number;
}

/// Calls `visit(row)` for the rows of a table that the user sees.
template <class Visit>
void forEachShownRow(const KVXETable* table, Visit visit) {
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i)
    if (table->getRow(i)->hasPlaceOnScreen()) visit(table->getRow(i));
}

/// The category that a component stands below; empty for one that is its own.
std::string categoryOf(const SummaryMap& map, const std::string& component) {
  for (const auto& [category, components] : map)
    if (category != component &&
        std::find(components.begin(), components.end(), component) != components.end())
      return category;
  return "";
}

bool isStaticText(const std::string& text) {
  return text.find("Static") != std::string::npos;
}

/// `isStatic` tells for a row's text; the heading of the whole table is no category.
template <class IsStatic>
void readBlocks(const KVXETable* table, const SummaryMap& map, IsStatic isStatic,
                std::vector<Estimate::Block>& blocks) {
  forEachShownRow(table, [&](KVXERow* row) {
    std::string name = textAt(row, Summary::m_onchipResourceColumn);
    const auto watts = numberAt(row, Summary::m_onchipPowerColumn);
    if (!watts || name.empty()) return;
    std::string category = categoryOf(map, name);
    if (isStaticText(category)) category.clear();
    const bool isStaticBlock = isStatic(name);
    KVXMHelperUtils::trim(name);
    blocks.push_back({name, category, isStaticBlock, *watts});
  });
}

void readOnchipTables(const KVXETab& summary, std::vector<Estimate::Block>& blocks) {
  readBlocks(summary.getTable(&Summary::m_onchipTableHeader), Summary::m_dynamicPowerSummaryMap, isStaticText,
             blocks);
  readBlocks(
      summary.getTable(&Summary::m_onchipDynamicTableHeader), Summary::m_dynamicPowerSummaryMap,
      [](const std::string&) { return false; }, blocks);
  readBlocks(
      summary.getTable(&Summary::m_onchipStaticTableHeader), Summary::m_staticPowerSummaryMap,
      [](const std::string&) { return true; }, blocks);
}

/// The memory dies in the package have tables of their own.
void addHbm(const KVXEUID& uid, std::vector<Estimate::Block>& blocks) {
  if (!Summary::hasHbm()) return;
  const float dynamic = Summary::getHbmDynamicPower(uid);
  blocks.push_back({"HBM", "", false, dynamic});
  blocks.push_back({"HBM", "", true, Summary::getHbmPower(uid) - dynamic});
}

std::vector<Estimate::Rail> readRails(const KVXEBook& book) {
  std::vector<Estimate::Rail> rails;
  forEachShownRow(book.getTable(TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable), [&rails](KVXERow* row) {
    const auto volts = numberAt(row, KVXETab::m_voltageColumn);
    if (!volts) return;
    const auto amperes = [row](const KVXETitle& column) { return numberAt(row, column).value_or(0.0f); };
    rails.push_back({textAt(row, KVXETab::m_supplyColumn), *volts, amperes(KVXETab::m_dynamicCurrentColumn),
                     amperes(KVXETab::m_staticCurrentColumn), amperes(KVXETab::m_totalCurrentColumn),
                     numberAt(row, KVXETab::m_powerupCurrentColumn), numberAt(row, KVXETab::m_stepLoadColumn),
                     textAt(row, KVXETab::m_powerRailGroupColumn)});
  });
  return rails;
}

/// The rows of groups that are not in use have no place on screen.
std::vector<Estimate::Supply> readSupplies(const KVXEBook& book, const std::vector<Estimate::Rail>& rails) {
  using Design = KVXEPowerDesignTab;
  std::vector<Estimate::Supply> supplies;
  forEachShownRow(book.getTable(TabType::POWER_DESIGN, &Design::m_powerSupplyDesignTable), [&](KVXERow* row) {
    Estimate::Supply supply;
    supply.group = textAt(row, KVXETab::m_powerRailGroupColumn);
    supply.schematicName = textAt(row, Design::m_schematicNameColumn);
    for (const Estimate::Rail& rail : rails)
      if (rail.group == supply.group) supply.rails.push_back(rail.name);
    supply.volts = numberAt(row, Design::m_psdVoltageColumn).value_or(0.0f);
    supply.availableAmperes = numberAt(row, Design::m_psdCurrentColumn);
    supply.estimatedAmperes = numberAt(row, Design::m_psdEstimatedCurrentColumn).value_or(0.0f);
    supply.stepLoadAmperes = numberAt(row, Design::m_psdStepLoadColumn).value_or(0.0f);
    supply.marginAmperes = numberAt(row, Design::m_psdMarginColumn);
    supplies.push_back(std::move(supply));
  });
  return supplies;
}

std::vector<Estimate::Resource> readResources(const KVXEBook& book) {
  std::vector<Estimate::Resource> resources;
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    if (!tab || !tab->getIsEnabled()) continue;
    forEachShownRow(tab->getTable(&KVXETab::m_UtilTable), [&](KVXERow* row) {
      const auto used = numberAt(row, KVXETab::m_UsedColumn);
      const auto available = numberAt(row, KVXETab::m_AvailColumn);
      if (!used || !available || (*available <= 0 && *used <= 0)) return;
      resources.push_back({tab->getPBTitle(), textAt(row, KVXETab::m_TypeColumn), static_cast<double>(*used),
                           static_cast<double>(*available)});
    });
  }
  return resources;
}

/// Modules tell where on the board heat arises.
std::vector<Estimate::Component> readComponents(const KVXETab& summary) {
  std::vector<Estimate::Component> components;
  const KVXETable* table = findTable(summary, "thermal loading");
  const auto name = table ? findColumn(*table, "component") : std::nullopt;
  const auto power = table ? findColumn(*table, "power") : std::nullopt;
  if (!name || !power) return components;
  forEachShownRow(table, [&](KVXERow* row) {
    std::string text;
    float watts = 0;
    row->getCell(*name)->getVal(text, true);
    if (row->getCell(*power)->getVal(watts, true)) components.push_back({text, watts});
  });
  return components;
}

// Messages.

/// The text without markup, on one line.
std::string plainText(const std::string& html) {
  std::string plain;
  bool isTag = false;
  for (const char c : html) {
    if (c == '<') isTag = true;
    const bool isBlank = c == '\n' || c == '\t' || c == '\r' || c == ' ' || c == '>';
    if (!isTag && !isBlank) plain += c;
    if ((isBlank || c == '<') && !plain.empty() && plain.back() != ' ') plain += ' ';
    if (c == '>') isTag = false;
  }
  KVXMHelperUtils::trim(plain);
  return plain;
}

void readMessages(const KVXETab& tab, const KVXETable& table, std::vector<Estimate::Message>& messages) {
  const auto add = [&](const KVXEMsg* msg, const std::string& row, const std::string& column) {
    if (!msg || !raisesSeverity(msg->getSeverity())) return;
    messages.push_back({msg->getSeverity(), tab.getPBTitle(),
                        table.getTableTitle()->getTag(KVXEEnums::TitleType::DISPLAY), row, column,
                        plainText(msg->getDisplayText())});
  };
  add(table.getMsg(), "", "");
  forEachShownRow(&table, [&](KVXERow* row) {
    for (unsigned int column = 0; column < row->getColumnCount(); ++column) {
      const KVXEMsg* msg = row->getCell(column)->getMsg();
      if (msg && table.getColumnVisibility(column) == Visibility::EXTERNAL)
        add(msg, rowName(table, row->getIndex()), columnTitle(table, column));
    }
  });
}

std::vector<Estimate::Message> readMessages(const KVXEBook& book) {
  std::vector<Estimate::Message> messages;
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    if (!tab || !tab->getIsEnabled() || tab->getVisibility() != Visibility::EXTERNAL) continue;
    for (unsigned int j = 0; j < tab->getTableCount(); ++j)
      if (tab->getTable(j)->getVisibility() == Visibility::EXTERNAL)
        readMessages(*tab, *tab->getTable(j), messages);
  }
  return messages;
}

/// A row of the summary by its text, as the screen shows it. A module has a summary table of its own.
std::string readSummaryRow(const KVXETab& summary, const std::string& row) {
  const KVXETable* table = summary.getTable(&Summary::m_summaryTableHeader);
  if (!table) table = findTable(summary, "power summary");
  std::string text;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    table->getCellAt(i, 0u)->getVal(text, true);
    if (text != row) continue;
    table->getCellAt(i, 1u)->getVal(text, true);
    return text;
  }
  return "";
}

void readThermal(const KVXETab& summary, const KVXEUID& uid, Estimate& estimate) {
  estimate.isJunctionGiven = Summary::isJunctionTempOverrideOn(uid);
  estimate.junction = Summary::getCalculatedJunctionTemp(uid);
  estimate.junctionMax = Summary::getMaxJunctionTemp(uid);
  estimate.ambient = Summary::getAmbientTemp(uid);
  if (!estimate.isJunctionGiven) estimate.thetaJa = Summary::getThetaJA(uid);
  estimate.marginDegrees = estimate.junctionMax - estimate.junction;
  estimate.isJunctionValid =
      KVXEPowerDesignTab::getJunctionStatus(uid) == KVXEPowerDesignTab::JunctionStatus::Valid;
  const std::string watts = readSummaryRow(summary, Summary::m_thermalPowerMarginStr);
  if (!watts.empty()) estimate.marginWatts = KVXMHelperUtils::s2f(watts);
}

/// The workbook only colours the cell; an estimate without a valid temperature must not pass a pipeline.
Estimate::Message invalidJunction(const KVXETable& environment, const KVXEUID& uid) {
  const bool isRunaway =
      KVXEPowerDesignTab::getJunctionStatus(uid) == KVXEPowerDesignTab::JunctionStatus::NoSolution;
  return {
      KvxSeverity::ERROR,
      environment.getTab()->getPBTitle(),
      environment.getTableTitle()->getTag(KVXEEnums::TitleType::DISPLAY),
      Summary::m_junctionTempStr,
      "",
      isRunaway
          ? "Leakage heats the device faster than it is cooled: there is no temperature at which it settles."
          : "Above 125 C the power and thermal estimates are no longer valid."};
}

/// What rests on absurd entries adds up to no number, or to none that a device could dissipate.
bool isBelievable(double watts) {
  constexpr double Largest = 1e6;
  return watts >= 0 && watts < Largest;
}

Estimate::Message unbelievablePower(const KVXETab& summary) {
  return {KvxSeverity::ERROR,
          summary.getPBTitle(),
          "Power",
          "",
          "",
          "The power is beyond any that can be estimated; check frequencies, counts and voltages."};
}

}  // namespace

Estimate readEstimate(KVXEBook& book) {
  Estimate estimate;
  KVXETab* summary = book.getTab(TabType::SUMMARY);
  KVXETable* environment = summary ? summary->getTable(&Summary::m_envTableHeader) : nullptr;
  if (!environment) return estimate;
  const KVXEUID uid(environment->getCellAt(1, &Summary::m_envValColumn));
  readOnchipTables(*summary, estimate.blocks);
  addHbm(uid, estimate.blocks);
  std::stable_partition(estimate.blocks.begin(), estimate.blocks.end(),
                        [](const Estimate::Block& block) { return !block.isStatic; });
  estimate.rails = readRails(book);
  estimate.consolidation = KVXEPowerDesignTab::getPowerRailConsolidation(uid);
  estimate.supplies = readSupplies(book, estimate.rails);
  estimate.offChipWatts = KVXEPowerDesignTab::getOffChipPower(uid);
  estimate.resources = readResources(book);
  estimate.components = readComponents(*summary);
  estimate.characterization = readSummaryRow(*summary, Summary::m_characterizationStr);
  readThermal(*summary, uid, estimate);
  estimate.messages = readMessages(book);
  if (!estimate.isJunctionValid)
    estimate.messages.insert(estimate.messages.begin(), invalidJunction(*environment, uid));
  if (!isBelievable(estimate.boardWatts().value_or(0) + estimate.totalWatts()))
    estimate.messages.insert(estimate.messages.begin(), unbelievablePower(*summary));
  return estimate;
}

}  // namespace kvx
