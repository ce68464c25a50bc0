#include "engine/som/KVXESomPartSelection.h"

#include "engine/base/selection/PartNameParser.h"
#include "models/morlan/KVXMMorlanSomPartsData.h"

namespace {

using kvxe::CascadeSetting;
using Order = CascadeSetting::Order;
using KVXEEnums::TabType;
using Selection = KVXESomPartSelection;

constexpr std::string_view starterKitMarker = "Starter Kit";

constexpr CascadeSetting cascade[] = {
    {&Selection::m_familyStr, Order::Alphabetic},
    {&Selection::m_devStr, Order::Natural},
    {&Selection::m_boardStr, Order::Catalogue},
    {&Selection::m_tempGradeStr, Order::Catalogue},
};
/// The fields of a catalogue row in the order of the cascade.
constexpr const char* cascadeFields[] = {"FAMILY_NAME", "DEVICE_NAME", "BOARD_NAME", "GRADE"};
static_assert(std::size(cascade) == std::size(cascadeFields));

constexpr TabType tabsOfEveryDevice[] = {TabType::SUMMARY_CONSOLE,
                                         TabType::SUMMARY,
                                         TabType::POWER_DESIGN,
                                         TabType::ESTIMATION,
                                         TabType::DSP,
                                         TabType::CLOCK,
                                         TabType::BRAM,
                                         TabType::LOGIC,
                                         TabType::PS,
                                         TabType::HARD_BLOCKS,
                                         TabType::PCIE,
                                         TabType::IO};

constexpr std::string_view ignoredResources[] = {"CLKCOLS", "CLKROWS", "MSIO", "LUT", "LUTRAM",
                                                 "HSIO",    "LSIO",    "DAC",  "ADC", "FSYN",
                                                 "HSRAM",   "IOPLL",   "DPLL", "FSR", "NUM_DIES"};

const KVXMMorlanSomPartsData& modules() {
  return KVXMMorlanSomPartsData::getGlobal();
}

}  // namespace

const kvxe::ArchitectureDescription& KVXESomPartSelection::describe() const {
  static const kvxe::ArchitectureDescription description{
      .architecture = kvxm::Architecture::Som,
      .cascade = cascade,
      .tabs = tabsOfEveryDevice,
      .ignoredResources = ignoredResources,
  };
  return description;
}

bool KVXESomPartSelection::hasValidArchPrefix(const std::string& name) {
  return kvxe::sharesLeadingLetters(name, modules().getCfgKeys({"DEVICE_TO_FAMILY_MAP"}, false));
}

const KVXEPartSelection::Settings& KVXESomPartSelection::getDefaultPartInfo() {
  static const Settings info{
      {m_familyStr, "Ludra"}, {m_boardStr, "Custom"}, {m_devStr, "SM6"}, {m_tempGradeStr, "Industrial"}};
  return info;
}

// The catalogue.

kvxe::PartCodes KVXESomPartSelection::getPartCodes(const std::string& part) const {
  if (!isPartSupported(part)) return {};
  kvxe::PartCodes codes;
  for (const char* field : cascadeFields) codes.push_back(modules().getDeviceData(part, field));
  return codes;
}

std::vector<kvxe::PartCodes> KVXESomPartSelection::getCatalogueCodes() const {
  std::vector<kvxe::PartCodes> parts;
  for (const std::string& key : modules().getCfgKeys({"DEVICE_DATA"}, false))
    parts.push_back(getPartCodes(key));
  return parts;
}

bool KVXESomPartSelection::isPartSupported(const std::string& part) const {
  return !modules().getCfgKeys({"DEVICE_DATA", part}, false).empty();
}

std::vector<std::string> KVXESomPartSelection::getAvailableParts() const {
  std::vector<std::string> parts = modules().getCfgKeys({"DEVICE_DATA"}, false);
  for (std::string& part : parts) part = modules().getDeviceData(part, "TALMOR_DEV_NAME");
  return parts;
}

std::string KVXESomPartSelection::getDevice2FamilyName(const std::string& device) const {
  return modules().getDeviceFamily(device);
}

std::string KVXESomPartSelection::getDefaultPart() const {
  for (const std::string& key : modules().getCfgKeys({"DEVICE_DATA"}, false)) {
    const kvxe::PartCodes codes = getPartCodes(key);
    bool isDefault = true;
    for (std::size_t i = 0; i < codes.size(); ++i)
      isDefault &= getDefaultPartInfo().at(*cascade[i].name) == codes[i];
    if (isDefault) return modules().getDeviceData(key, "TALMOR_DEV_NAME");
  }
  return {};
}

std::string KVXESomPartSelection::getFamilyToDefaultPart() const {
  const std::string key = modules().getDeviceDefaults(getFamily());
  return key.empty() ? getDefaultPart() : modules().getDeviceData(key, "TALMOR_DEV_NAME");
}

std::vector<std::string> KVXESomPartSelection::getPartTokens(const std::string& part) const {
  kvxe::PartCodes codes = getPartCodes(part);
  if (!codes.empty()) codes.erase(codes.begin());
  return codes;
}

std::string KVXESomPartSelection::getTempGrade(const std::string& part) const {
  return modules().getDeviceData(part, "TEMP_GRADE");
}

// The selected module.

std::string KVXESomPartSelection::selectedField(const std::string& field) const {
  const kvxe::PartCodes selected = getPatternBefore(std::size(cascade));
  for (const std::string& key : modules().getCfgKeys({"DEVICE_DATA"}, false)) {
    if (getPartCodes(key) == selected) return modules().getDeviceData(key, field);
  }
  return {};
}

std::string KVXESomPartSelection::getTalmorDeviceName() const {
  return selectedField("TALMOR_DEV_NAME");
}
std::string KVXESomPartSelection::getDeviceName() const {
  return selectedField("DEVICE_NAME");
}
std::string KVXESomPartSelection::getBaseDeviceName() const {
  return selectedField("BASE_DEVICE_NAME");
}
std::string KVXESomPartSelection::getBaseFamilyName() const {
  return selectedField("BASE_FAMILY_NAME");
}
std::string KVXESomPartSelection::getTempGrade() const {
  return selectedField("TEMP_GRADE");
}

int KVXESomPartSelection::setDeviceSelectionCurrentValue(unsigned int index, const std::string& value) {
  const std::vector<std::string> names = getDeviceSelectionList();
  if (index >= names.size() || !getCurrentSettings().contains(names[index])) return 0;
  store(names[index], value);
  return 1;
}

std::string KVXESomPartSelection::getDevicePkgTag() const {
  return getCurrentSetting(m_devStr) + "-" + getCurrentSetting(m_boardStr);
}

bool KVXESomPartSelection::isStarterKit() const {
  return getCurrentSetting(m_boardStr).find(starterKitMarker) != std::string::npos;
}

std::vector<std::pair<std::string, int>> KVXESomPartSelection::getResourceData(
    const std::string& part) const {
  return modules().getResourceData(part, "RESOURCE_DATA");
}
