#include "engine/base/selection/KVXEPartSelection.h"

#include <iostream>

#include "engine/base/selection/PartNameParser.h"
#include "models/catalogue/PartName.h"

const std::string KVXEPartSelection::m_archStr = "Architecture";
const std::string KVXEPartSelection::m_boardStr = "Board";
const std::string KVXEPartSelection::m_familyStr = "Family";
const std::string KVXEPartSelection::m_devStr = "Device";
const std::string KVXEPartSelection::m_pkgStr = "Package";
const std::string KVXEPartSelection::m_deviceGradeStr = "Device Grade";
const std::string KVXEPartSelection::m_spdGradeStr = "Speed";
const std::string KVXEPartSelection::m_voltageRangeStr = "Voltage Range";
const std::string KVXEPartSelection::m_tempGradeStr = "Grade";
const std::string KVXEPartSelection::m_staticScreenStr = "Static Screen";
const std::string KVXEPartSelection::m_coreVoltageStr = "Core Voltage";
const std::string KVXEPartSelection::m_processStr = "Process";

const std::string KVXEPartSelection::m_typStr = "Typical";
const std::string KVXEPartSelection::m_maxStr = "Maximum";
const std::string KVXEPartSelection::m_qcDeviceGradeStr(kvxe::qcDeviceGrade);
const std::string KVXEPartSelection::m_qqDeviceGradeStr(kvxe::qqDeviceGrade);
const std::string KVXEPartSelection::m_qaDeviceGradeStr(kvxe::qaDeviceGrade);

const std::string KVXEPartSelection::m_arkeonArchName = "Arkeon";
const std::string KVXEPartSelection::m_morlanArchName = "Hexaline+";
const std::string KVXEPartSelection::m_somVisionArchName = "Ludra";

std::unique_ptr<KVXEPartSelection> KVXEPartSelection::m_partSelection;

namespace {

constexpr std::string_view netFamilyMarker = "Net";
constexpr std::string_view hbmFamilyMarker = "HBM";

}  // namespace

KVXEPartSelection::~KVXEPartSelection() = default;

void KVXEPartSelection::resetPartSelection() {
  m_partSelection.reset();
}

void KVXEPartSelection::resetToDefaultPart() {
  resetPartSelection();
  resetToArch(m_arkeonArchName)->resetDeviceSelectionToDefault();
}

const kvxe::ArchitectureDescription& KVXEPartSelection::describe() const {
  static const kvxe::ArchitectureDescription none;
  return none;
}

// Settings.

std::string KVXEPartSelection::getCurrentSetting(const std::string& name) const {
  const auto found = m_currentSettings.find(name);
  return found == m_currentSettings.end() ? std::string() : found->second;
}

void KVXEPartSelection::store(const std::string& setting, const std::string& value) {
  m_currentSettings[setting] = value;
  m_resources.reset();
}

void KVXEPartSelection::insertSettings(const Settings& settings) {
  m_currentSettings.insert(settings.begin(), settings.end());
  m_resources.reset();
  rememberPart();
}

void KVXEPartSelection::setCurrentPart(const std::string& part) {
  m_currentPart = part;
}

void KVXEPartSelection::rememberPart() {
  const std::string part = getSelectedDeviceName();
  if (!part.empty()) setCurrentPart(part);
}

const kvxe::GradeTable& KVXEPartSelection::gradesOf(const std::string& setting) const {
  return describe().gradesAt(describe().columnOf(setting));
}

const kvxe::GradeTable& KVXEPartSelection::gradesOf(std::string kvxm::Part::*field) const {
  return describe().gradesAt(describe().columnOf(field));
}

std::string KVXEPartSelection::codeOf(const std::string& setting) const {
  const std::string value = getCurrentSetting(setting);
  return value.empty() ? value : gradesOf(setting).codeOf(value);
}

std::string KVXEPartSelection::codeOf(std::string kvxm::Part::*field) const {
  const std::size_t column = describe().columnOf(field);
  return column < describe().cascade.size() ? codeOf(*describe().cascade[column].name) : std::string();
}

// The selected part.

std::string KVXEPartSelection::getSelectedDeviceName() const {
  if (!describe().parts) return {};
  kvxm::Part part;
  for (const kvxe::CascadeSetting& setting : describe().cascade) {
    if (setting.field) part.*setting.field = codeOf(*setting.name);
  }
  kvxm::composeNames(part, describe().architecture);
  return isPartSupported(part.key) ? part.name : std::string();
}

bool KVXEPartSelection::selectPart(const std::string& partName, const std::string& process) {
  if (process != m_maxStr && process != m_typStr) return false;
  const kvxe::PartCodes codes = getPartCodes(partName);
  if (codes.empty() || !isPartSupported(partName)) return false;
  for (std::size_t column = 0; column < codes.size(); ++column) {
    store(*describe().cascade[column].name, codes[column]);
  }
  store(m_processStr, process);
  if (describe().hasCoreVoltage) store(m_coreVoltageStr, getCoreVoltage(partName));
  rememberPart();
  return true;
}

bool KVXEPartSelection::isPartSupported(const std::string& part) const {
  return describe().parts && !describe().parts->getCfgKeys({"DEVICE_DATA", part}, false).empty();
}

std::string KVXEPartSelection::getDevicePkgTag() const {
  return getCurrentSetting(m_devStr) + "-" + getCurrentSetting(m_pkgStr);
}

void KVXEPartSelection::getResources(std::map<std::string, int>& resources) const {
  resources.clear();
  const std::string part = getSelectedDeviceName();
  for (const auto& [name, count] : getResourceData(part)) resources[name] = count;
  if (!resources.empty()) return;
  std::cout << "ERROR: Device resource data is missing for: "
            << (part.empty() ? getCurrentSetting(m_devStr) : part) << '\n';
}

std::vector<std::pair<std::string, int>> KVXEPartSelection::getResourceData(const std::string& part) const {
  if (!describe().parts) return {};
  return describe().parts->getResourceData(part, "RESOURCE_DATA");
}

int KVXEPartSelection::getAvailResources(const std::string& name) const {
  if (!m_resources) {
    std::map<std::string, int> resources;
    getResources(resources);
    m_resources = std::move(resources);
  }
  const auto found = m_resources->find(name);
  return found == m_resources->end() ? 0 : found->second;
}

bool KVXEPartSelection::isArkeonNet() const {
  return getFamily().find(netFamilyMarker) != std::string::npos;
}

bool KVXEPartSelection::isArkeonHbm() const {
  return getFamily().find(hbmFamilyMarker) != std::string::npos;
}

// Parts and families of the catalogue.

std::string KVXEPartSelection::getDefaultPart() const {
  return std::string(describe().defaultPart);
}

std::string KVXEPartSelection::getDefaultFamily() const {
  return getDevice2FamilyName(getDefaultPart());
}

std::string KVXEPartSelection::getFamilyToDefaultPart() const {
  const std::string family = getFamily();
  const std::string part = describe().parts && !family.empty()
                               ? describe().parts->getFamilyToDefaultDevice(family)
                               : std::string();
  return part.empty() ? getDefaultPart() : part;
}

std::string KVXEPartSelection::getDevice2FamilyName(const std::string& device) const {
  return describe().parts ? describe().parts->getDeviceToFamilyMap(device) : std::string();
}

std::string KVXEPartSelection::getFamilyExternal2InternalStr(const std::string& family) const {
  const kvxm::Family* known = kvxm::DeviceCatalogue::getGlobal().findFamily(family);
  return known ? known->internalName : family;
}

std::vector<std::string> KVXEPartSelection::getAvailableParts() const {
  std::vector<std::string> parts;
  if (!describe().parts) return parts;
  for (const std::string& key : describe().parts->getCfgKeys({"DEVICE_DATA"}, false)) {
    if (const auto part = kvxe::parsePartName(describe().architecture, key)) parts.push_back(part->name);
  }
  return parts;
}

std::vector<std::string> KVXEPartSelection::getAvailablePartsForSelectedFamily() const {
  std::vector<std::string> parts = getAvailableParts();
  std::erase_if(parts, [this](const std::string& part) { return getDevice2FamilyName(part) != getFamily(); });
  return parts;
}

kvxe::PartCodes KVXEPartSelection::getPartCodes(const std::string& part) const {
  const auto fields = kvxe::parsePartName(describe().architecture, part);
  kvxe::PartCodes codes;
  if (!fields || !describe().parts) return codes;
  for (const kvxe::CascadeSetting& setting : describe().cascade) {
    if (setting.field)
      codes.push_back((*fields).*setting.field);
    else if (setting.name == &m_familyStr)
      codes.push_back(getDevice2FamilyName(fields->device));
    else
      codes.push_back(getDeviceGradeStr(fields->device));
  }
  return codes;
}

std::vector<kvxe::PartCodes> KVXEPartSelection::getCatalogueCodes() const {
  std::vector<kvxe::PartCodes> parts;
  if (!describe().parts) return parts;
  for (const std::string& key : describe().parts->getCfgKeys({"DEVICE_DATA"}, false)) {
    kvxe::PartCodes codes = getPartCodes(key);
    if (!codes.empty()) parts.push_back(std::move(codes));
  }
  return parts;
}

std::vector<std::string> KVXEPartSelection::getPartTokens(const std::string& part) const {
  const auto fields = kvxe::parsePartName(describe().architecture, part);
  if (!fields) return {};
  std::vector<std::string> tokens{fields->device,  fields->package,     fields->speed,
                                  fields->voltage, fields->temperature, fields->screen};
  std::erase(tokens, std::string());
  return tokens;
}

std::string KVXEPartSelection::getPartSetting(const std::string& setting, const std::string& part) const {
  const kvxe::PartCodes codes = getPartCodes(part);
  const std::size_t column = describe().columnOf(setting);
  return column < codes.size() ? codes[column] : std::string();
}

// Grades.

std::string KVXEPartSelection::getTempGrade() const {
  return codeOf(&kvxm::Part::temperature);
}

std::string KVXEPartSelection::getTempGrade(const std::string& part) const {
  const auto fields = kvxe::parsePartName(describe().architecture, part);
  return fields ? fields->temperature : std::string();
}

std::string KVXEPartSelection::getTempGradeStr(const std::string& code) const {
  return gradesOf(&kvxm::Part::temperature).textOf(code);
}

std::string KVXEPartSelection::getTempGradeFromStr(const std::string& text) const {
  return gradesOf(&kvxm::Part::temperature).codeOf(text);
}

std::string KVXEPartSelection::getVoltageGradeStr(const std::string& code) const {
  return gradesOf(&kvxm::Part::voltage).textOf(code);
}

std::string KVXEPartSelection::getVoltageGradeFromStr(const std::string& text) const {
  return gradesOf(&kvxm::Part::voltage).codeOf(text);
}

std::string KVXEPartSelection::getCoreVoltageFromVoltageGradeStr(const std::string& grade) const {
  if (grade.find('L') != std::string::npos) return "0.70 V";
  if (grade.find('M') != std::string::npos) return "0.80 V";
  return "0.88 V";
}

std::string KVXEPartSelection::getCoreVoltage(const std::string& part) const {
  return describe().parts ? describe().parts->getDeviceCoreVoltageMap(part) : std::string();
}

std::string KVXEPartSelection::getDeviceGradeStr(const std::string& part) const {
  if (part.empty()) return {};
  return kvxe::deviceGrades.codeOf(kvxe::upperCase(part.substr(0, part.find_first_of("-_"))));
}

std::string KVXEPartSelection::getDeviceGradeStr() const {
  return getCurrentSetting(m_deviceGradeStr);
}
