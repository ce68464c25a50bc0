// The hidden tables of what the catalogue says of the present part.

#include <algorithm>

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"
#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/PartsQueries.h"

using namespace kvxe::powerdesign;
using enum KVXEEnums::CellType;
using KVXEEnums::Visibility;

namespace {

using Tab = KVXEPowerDesignTab;

const KVXEColumn intColumns[] = {
    {.title = &Tab::m_debugDeviceOptionColumn, .type = STRING},
    {.title = &Tab::m_debugDeviceSelectionColumn, .type = INT, .formula = &Tab::updateDebugDeviceTable},
};
const KVXEColumn strColumns[] = {
    {.title = &Tab::m_debugDeviceOptionColumn, .type = STRING},
    {.title = &Tab::m_debugDeviceSelectionColumn, .type = STRING, .formula = &Tab::updateDebugDeviceTable},
};
const KVXEColumn floatColumns[] = {
    {.title = &Tab::m_debugFloatOptionColumn, .type = STRING},
    {.title = &Tab::m_debugFloatSelectionColumn, .type = FLOAT, .formula = &Tab::updateDebugDeviceTable},
};

// Rows of the texts and of the numbers; the numbers go on with the nominal voltage of each rail.
const std::string deviceKey = "DEVICE";
const std::string packageKey = "PACKAGE";
const std::string gradeKey = "SUPPLY_GRADE";
const std::string statusKey = "STATUS";
const std::vector<std::string> strKeys = {deviceKey, packageKey, gradeKey, statusKey};
const std::string leakageKey = "MAX_PROCESS_LEAKAGE";
const std::string thetaJaKey = "THETA_JA";

/// Every resource that a device of the architecture has.
std::vector<std::string> resourceNames(kvxm::Architecture architecture) {
  std::vector<std::string> names;
  for (const kvxm::Device& device : kvxm::DeviceCatalogue::getGlobal().devices()) {
    if (device.architecture != architecture) continue;
    for (const auto& [name, count] : device.resources)
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

void createHiddenTable(KVXETab& tab, const KVXETitle& title, std::span<const KVXEColumn> columns,
                       const std::vector<std::string>& keys) {
  KVXETable* table = tab.createTable(&title, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  table->setVisibility(Visibility::DEVELOPER);
  for (const std::string& key : keys)
    table->getOrCreateRow(table->getRowCount())->getCell(columns[0].title)->setValAndMarkEngineClean(key);
}

}  // namespace

void KVXEPowerDesignTab::initDebugDeviceTables() {
  std::vector<std::string> floatKeys = {leakageKey, thetaJaKey};
  for (const std::string& category : getCategoryList())
    for (const kvxm::Supply* rail : railsOfCategory(category)) floatKeys.push_back(rail->rail);
  createHiddenTable(*this, m_debugIntDeviceTable, intColumns, resourceNames(architecture()));
  createHiddenTable(*this, m_debugStrDeviceTable, strColumns, strKeys);
  createHiddenTable(*this, m_debugFloatDeviceTable, floatColumns, floatKeys);
}

void KVXEPowerDesignTab::updateDebugDeviceTable(const KVXEUID& uid) {
  const KVXETitle* title = uid.getTable() ? uid.getTable()->getTableTitle() : nullptr;
  KVXECell* cell = uid.getCell();
  const kvxm::Device* device = deviceOf(uid);
  if (!device) return cell->setBlankAndMarkEngineClean();
  if (title == &m_debugIntDeviceTable) {
    const int count = device->resource(fixedTextOf(uid.getRow(), m_debugDeviceOptionColumn));
    cell->setValAndMarkEngineClean(count);
  } else if (title == &m_debugStrDeviceTable) {
    const std::string& key = fixedTextOf(uid.getRow(), m_debugDeviceOptionColumn);
    const std::string text = key == packageKey  ? getPkg(uid)
                             : key == gradeKey  ? gradeOf(uid)
                             : key == statusKey ? tabOf(uid)->staticData().getPartStatus(device->name, key)
                                                : device->name;
    cell->setValAndMarkEngineClean(text);
  } else if (isInTable(uid, m_debugFloatDeviceTable, "DebugFloatDeviceTable")) {
    const std::string& key = fixedTextOf(uid.getRow(), m_debugFloatOptionColumn);
    const float volts = getNomVoltage(uid, key);
    const float value = key == leakageKey   ? device->maxProcessLeakage
                        : key == thetaJaKey ? device->thetaJa
                                            : volts;
    if (value == 0.0f) return cell->setBlankAndMarkEngineClean();
    cell->setValAndMarkEngineClean(value);
  }
}
