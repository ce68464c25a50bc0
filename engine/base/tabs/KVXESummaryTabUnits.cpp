// The display units of the whole book: one row for each unit, at the index that is the unit's number. The
// user picks a suffix for a quantity; every cell with a unit reads its multiplier, offset and suffix here.
// The cells of this table have no units themselves.

#include <iostream>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXERow.h"

using enum KVXEEnums::CellType;
using KVXEEnums::GridComponentType;
using KVXEEnums::Unit;
using KVXEEnums::Visibility;

namespace {

struct Scale {
  const char* suffix;
  float multiplier;
  float offset;
};

/// Units that differ in showing their suffix or not share the part of their names before "_SHOW" and "_HIDE".
struct Quantity {
  std::string_view stem;
  const char* name;
  std::vector<Scale> scales;  ///< that of the stored values first
};

const Quantity quantities[] = {
    {"POWER", "Power", {{"W", 1.0f, 0.0f}, {"mW", 1000.0f, 0.0f}}},
    {"CURRENT", "Current", {{"A", 1.0f, 0.0f}, {"mA", 1000.0f, 0.0f}}},
    {"VOLTAGE", "Voltage", {{"V", 1.0f, 0.0f}, {"mV", 1000.0f, 0.0f}}},
    {"PERCENTAGE", "Percentage", {{"%", 100.0f, 0.0f}, {" ", 1.0f, 0.0f}}},
    {"FREQUENCY", "Frequency", {{"MHz", 1.0f, 0.0f}, {"kHz", 1000.0f, 0.0f}, {"GHz", 0.001f, 0.0f}}},
    {"TEMPERATURE", "Temperature", {{"C", 1.0f, 0.0f}, {"F", 1.8f, 32.0f}}},
    {"POWER_FIXED_mW", "Fixed mW", {{"mW", 1000.0f, 0.0f}}},
    {"CURRENT_FIXED_mA", "Fixed mA", {{"mA", 1000.0f, 0.0f}}},
    {"FIXED_THETAJA", "Fixed C/W", {{"C/W", 1.0f, 0.0f}}},
    {"FIXED_Mbps", "Fixed Mbps", {{"Mbps", 1.0f, 0.0f}}},
    {"FIXED_Gbps", "Fixed Gbps", {{"Gbps", 1.0f, 0.0f}}},
};

/// A unit taken apart by its name.
struct UnitName {
  std::string_view stem;
  bool isShown = false;
  bool isFixed = false;  ///< scaled by nothing

  explicit UnitName(std::string_view name) : stem(name), isFixed(name.starts_with("FIXED_")) {
    constexpr std::string_view show = "_SHOW", hide = "_HIDE";
    isShown = name.ends_with(show);
    if (isShown || name.ends_with(hide)) stem.remove_suffix(show.size());
  }
};

const Quantity* findQuantity(std::string_view stem) {
  for (const Quantity& quantity : quantities)
    if (quantity.stem == stem) return &quantity;
  return nullptr;
}

const Scale* findScale(const Quantity* quantity, const std::string& suffix) {
  if (!quantity) return nullptr;
  for (const Scale& scale : quantity->scales)
    if (suffix == scale.suffix) return &scale;
  return nullptr;
}

/// The row in which the user picks the suffix of the quantity; that of the units that show it.
KVXERow* choiceRow(const KVXEUID& uid, const UnitName& name) {
  if (name.isShown) return uid.getRow();
  Unit shown = Unit::NumItems;
  KVXEEnums::string_to_enum(std::string(name.stem) + "_SHOW", shown);
  return uid.getTable()->getRow(static_cast<unsigned int>(shown));
}

}  // namespace

std::map<std::string, std::pair<float, float>> KVXESummaryTab::getUnitToMultMap(const std::string& unit) {
  std::map<std::string, std::pair<float, float>> map;
  for (const Quantity& quantity : quantities) {
    if (unit != quantity.scales.front().suffix) continue;
    for (const Scale& scale : quantity.scales) map[scale.suffix] = {scale.multiplier, scale.offset};
  }
  return map;
}

void KVXESummaryTab::initUnitsTable() {
  const KVXEColumn columns[] = {
      {.title = &m_UnitsQuantity, .type = STRING},
      {.title = &m_UnitsSuffix, .type = STRING, .isDropdown = true},
      {.title = &m_UnitsEnum, .type = STRING},
      {.title = &m_UnitsMultiplier, .type = FLOAT, .formula = &updateUnitMultiplierOffset},
      {.title = &m_UnitsOffset, .type = FLOAT, .formula = &updateUnitMultiplierOffset},
  };
  KVXETable* table = createTable(&m_UnitsTable, false, false, true, GridComponentType::TABLE);
  table->addColumns(columns);
  table->setVisibility(Visibility::ALWAYS_HIDDEN);
  for (Unit unit = Unit::NO_UNIT; unit != Unit::NumItems; ++unit) {
    const std::string enumerator = KVXEEnums::nameOf(unit);
    const UnitName name(enumerator);
    const Quantity* quantity = findQuantity(name.stem);
    KVXERow* row = table->getOrCreateRow(static_cast<unsigned int>(unit));
    row->getCell(&m_UnitsEnum)->setValAndMarkEngineClean(enumerator);
    if (!quantity) continue;
    row->getCell(&m_UnitsQuantity)->setValAndMarkEngineClean(std::string(quantity->name));
    if (!name.isShown) continue;
    std::vector<std::string> suffixes;
    for (const Scale& scale : quantity->scales) suffixes.emplace_back(scale.suffix);
    KVXECell* choice = row->getCell(&m_UnitsSuffix);
    choice->setIsEditable(true);
    choice->setDDValsAndMarkEngineClean(suffixes);
    choice->setValAndMarkEngineClean(suffixes.front());
    choice->setValueSource(KVXEEnums::ValueSource::DEFAULT);
  }
}

void KVXESummaryTab::updateUnitMultiplierOffset(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_UnitsTable}, "Summary table")) return;
  float multiplier = 1.0f;
  float offset = 0.0f;
  const std::string enumerator = textInRow(uid, m_UnitsEnum);
  const UnitName name(enumerator);
  if (const Quantity* quantity = findQuantity(name.stem); quantity && !name.isFixed) {
    std::string suffix;
    if (KVXERow* row = choiceRow(uid, name)) row->getCell(&m_UnitsSuffix)->getVal(suffix, true);
    const Scale* scale = findScale(quantity, suffix);
    if (!scale && name.isShown)
      std::cout << "Error: Selected unit is not present in multiplier map : "
                << uid.getCell()->describe(" -> ") << '\n';
    if (!scale) scale = &quantity->scales.front();
    multiplier = scale->multiplier;
    offset = scale->offset;
  }
  uid.getRow()->getCell(&m_UnitsMultiplier)->setValAndMarkEngineClean(multiplier);
  uid.getRow()->getCell(&m_UnitsOffset)->setValAndMarkEngineClean(offset);
}
