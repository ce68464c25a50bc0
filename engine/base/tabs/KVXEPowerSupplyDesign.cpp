// The power delivery design: the physical supplies that feed the rails, and whether they give enough.

#include <algorithm>
#include <set>

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/RailGrouping.h"

using namespace kvxe::powerdesign;
using enum KVXEEnums::CellType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

namespace {

using Tab = KVXEPowerDesignTab;

const char* const shortOfCurrentMsg = "The supply gives less current than its rails may draw.";

const KVXEColumn supplyDesignColumns[] = {
    {.title = &Tab::m_powerRailGroupColumn,
     .type = STRING,
     .toolTip =
         "The supply: a group of rails that share it under the power rail consolidation that is chosen, "
         "or the rail that has it for itself."},
    {.title = &Tab::m_schematicNameColumn,
     .type = STRING,
     .isEditable = true,
     .toolTip =
         "The name of the supply in your schematic. The name of its group or rail stands in for a blank "
         "one."},
    {.title = &Tab::m_psdSuppliesColumn,
     .type = STRING,
     .formula = &Tab::updatePowerSupplyDesignTable,
     .toolTip = "The rails that the supply feeds."},
    {.title = &Tab::m_psdVoltageColumn,
     .type = FLOAT,
     .isEditable = true,
     .formula = &Tab::updateSupplyDesignVoltage,
     .unit = Unit::VOLTAGE_SHOW,
     .toolTip = "The voltage of the supply, and so of all rails of the group. It starts at the nominal one; "
                "the orange background indicates that it is out of the range of a rail. A gray background "
                "indicates that the supply feeds a single rail: change the voltage there."},
    {.title = &Tab::m_psdCurrentColumn,
     .type = FLOAT,
     .isEditable = true,
     .unit = Unit::CURRENT_SHOW,
     .minimum = 0,
     .toolTip = "The current that the supply on your board can give."},
    {.title = &Tab::m_psdEstimatedCurrentColumn,
     .type = FLOAT,
     .formula = &Tab::updatePowerDeliveryMargin,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "The current of all rails of the supply, as the current selection says."},
    {.title = &Tab::m_psdStepLoadColumn,
     .type = FLOAT,
     .formula = &Tab::updateSupplyDesignStepLoad,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "The current that may switch at once: of each rail the step load share of its dynamic "
                "current."},
    {.title = &Tab::m_psdMarginColumn,
     .type = FLOAT,
     .formula = &Tab::updatePowerDeliveryMargin,
     .unit = Unit::CURRENT_SHOW,
     .toolTip = "What is left of the available current when all rails of the supply draw the larger of their "
                "operating and startup current. The orange background indicates that it is not enough."},
};

/// The grades for which the supplies of a device have limits of their own; a blank one for all others.
std::set<std::string> gradesOf(const kvxm::Device& device) {
  std::set<std::string> grades{""};
  for (const kvxm::Supply& supply : device.supplies)
    for (const kvxm::GradedVoltageRange& range : supply.ranges)
      grades.insert(range.grades.begin(), range.grades.end());
  return grades;
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

bool isInSupplyDesignTable(const KVXEUID& uid) {
  return isInTable(uid, Tab::m_powerSupplyDesignTable, "PowerSupplyDesignTable");
}

}  // namespace

/// A row for every group that some part of the architecture may have, and behind them one for every rail,
/// which feeds that rail while it shares with no other. So what the user says of a supply stays while another
/// part or consolidation has no use for it.
void KVXEPowerDesignTab::initPwrSupplyDesignTable() {
  KVXETable* table =
      createTable(&m_powerSupplyDesignTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(supplyDesignColumns);
  for (const std::string& group : possibleGroups()) createSupplyRow(group);
  for (const std::string& category : getCategoryList())
    for (const kvxm::Supply* rail : railsOfCategory(category))
      createSupplyRow(rail->displayName)->getCell(&m_psdVoltageColumn)->setIsEditable(false);
  m_groupsOfRows.resize(table->getRowCount());
}

KVXERow* KVXEPowerDesignTab::createSupplyRow(const std::string& name) {
  KVXETable* table = getTable(&m_powerSupplyDesignTable);
  KVXERow* row = table->getOrCreateRow(table->getRowCount());
  row->getCell(&m_powerRailGroupColumn)->setValAndMarkEngineClean(name);
  m_supplyRows[name] = row;
  return row;
}

std::vector<std::string> KVXEPowerDesignTab::possibleGroups() const {
  std::vector<std::string> names;
  for (const char* consolidation : {kvxm::fullPowerManagement, kvxm::minimumRails}) {
    const auto rule = [&](const kvxm::Supply& supply, float volts) {
      return railGroup(consolidation, supply, volts);
    };
    for (const kvxm::Device& device : kvxm::DeviceCatalogue::getGlobal().devices()) {
      if (device.architecture != architecture()) continue;
      for (const std::string& grade : gradesOf(device)) {
        const kvxe::RailGroups groups(device, grade, rule);
        for (const Group& group : groups.all())
          if (group.isShared() && std::find(names.begin(), names.end(), group.name) == names.end())
            names.push_back(group.name);
      }
    }
  }
  return names;
}

/// The rails of a supply; null while the part and the consolidation have no such supply. Then its row depends
/// on nothing else.
const kvxe::RailGroups::Group* KVXEPowerDesignTab::groupOfRow(const KVXERow& row) const {
  railGroups();
  return m_groupsOfRows[row.getIndex()];
}

void KVXEPowerDesignTab::updatePowerSupplyDesignTable(const KVXEUID& uid) {
  if (!isInSupplyDesignTable(uid)) return;
  const Group* group = tabOf(uid)->groupOfRow(*uid.getRow());
  uid.getRow()->setVisibility(group ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  uid.getCell()->setValAndMarkEngineClean(group ? joined(group->supplies) : std::string());
}

/// The user's voltage of a shared supply stays until it is blanked, even while the supply is not in use. That
/// of a single rail is the rail's: the user changes it there.
void KVXEPowerDesignTab::updateSupplyDesignVoltage(const KVXEUID& uid) {
  if (!isInSupplyDesignTable(uid)) return;
  KVXECell* cell = uid.getCell();
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const Group* group = tab->groupOfRow(*uid.getRow());
  float given = 0.0f;
  const bool isKept = cell->getIsEditable() && isGiven(*cell) && cell->getVal(given, false);
  float volts = isKept || !group ? given : group->nominalVolts;
  const bool isKnown =
      group && (group->isShared() || tab->railCell(group->rails[0], m_voltageColumn)->getVal(volts, true));
  if (isKept) {
    cell->markEngineClean();
  } else if (isKnown) {
    cell->setValAndMarkEngineClean(volts);
  } else {
    cell->setBlankAndMarkEngineClean();
  }
  cell->clearMsg();
  showRange(*cell, true);
  if (isKnown) tab->showVoltage(*cell, *group, volts);
}

/// The message about the voltage of a single rail stands at the rail.
void KVXEPowerDesignTab::showVoltage(KVXECell& cell, const Group& group, float volts) const {
  const bool isInRange = std::all_of(group.rails.begin(), group.rails.end(), [&](const std::string& rail) {
    return isInLimits(m_railRows.at(rail), volts);
  });
  showRange(cell, isInRange);
  if (!isInRange && group.isShared()) cell.setMsg(KvxSeverity::ERROR, outOfRangeMsg);
}

// Currents. Each supply reads the cells of its own rails and no other.

float KVXEPowerDesignTab::sumOfRails(const Group& group, const KVXETitle& column) const {
  double amperes = 0.0;
  for (const std::string& rail : group.rails) amperes += kvxe::readNumber(m_railRows.at(rail), column, 0.0f);
  return static_cast<float>(amperes);
}

/// The rails may start together, each with its startup current where that is more than the operating one.
float KVXEPowerDesignTab::worstCurrent(const Group& group) const {
  double amperes = 0.0;
  for (const std::string& rail : group.rails) {
    KVXERow* row = m_railRows.at(rail);
    amperes += std::max(kvxe::readNumber(row, m_totalCurrentColumn, 0.0f),
                        kvxe::readNumber(row, m_powerupCurrentColumn, 0.0f));
  }
  return static_cast<float>(amperes);
}

/// Leakage does not switch, so that the step is a share of the dynamic current.
float KVXEPowerDesignTab::stepLoad(const Group& group) const {
  double amperes = 0.0;
  for (const std::string& rail : group.rails) {
    KVXERow* row = m_railRows.at(rail);
    amperes += double{kvxe::readNumber(row, m_stepLoadColumn, 0.0f)} *
               kvxe::readNumber(row, m_dynamicCurrentColumn, 0.0f);
  }
  return static_cast<float>(amperes);
}

/// Applies the current selection: the estimated current of a supply.
float KVXEPowerDesignTab::updateCurrentSelectionTable(const Group& group) const {
  std::string choice;
  m_currentSelection->getVal(choice, true);
  if (choice == m_powerupCurrentStr) return worstCurrent(group);
  if (choice == m_staticCurrentStr) return sumOfRails(group, m_staticCurrentColumn);
  if (choice == m_dynamicCurrentStr) return sumOfRails(group, m_dynamicCurrentColumn);
  return sumOfRails(group, m_totalCurrentColumn);
}

/// Apart from the other currents: what leaks does not switch, so that a change of temperature has nothing to
/// do here.
void KVXEPowerDesignTab::updateSupplyDesignStepLoad(const KVXEUID& uid) {
  if (!isInSupplyDesignTable(uid)) return;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  const Group* group = tab->groupOfRow(*uid.getRow());
  kvxe::writeResult(uid.getRow(), m_psdStepLoadColumn,
                    group ? std::optional(tab->stepLoad(*group)) : std::nullopt);
}

/// Fills the estimated current of a supply and what is left of the available one.
void KVXEPowerDesignTab::updatePowerDeliveryMargin(const KVXEUID& uid) {
  if (!isInSupplyDesignTable(uid)) return;
  const KVXEPowerDesignTab* tab = tabOf(uid);
  KVXERow* row = uid.getRow();
  KVXECell* margin = row->getCell(&m_psdMarginColumn);
  std::optional<float> estimated, left;
  if (const Group* group = tab->groupOfRow(*row)) {
    estimated = tab->updateCurrentSelectionTable(*group);
    float available = 0.0f;
    if (row->getCell(&m_psdCurrentColumn)->getVal(available, true))
      left = available - tab->worstCurrent(*group);
  }
  kvxe::writeResult(row, m_psdEstimatedCurrentColumn, estimated);
  kvxe::writeResult(row, m_psdMarginColumn, left);
  const bool isEnough = !left || *left >= 0.0f;
  showRange(*margin, isEnough);
  if (isEnough) return margin->clearMsg();
  margin->setMsg(KvxSeverity::WARNING, shortOfCurrentMsg);
}
