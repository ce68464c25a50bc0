#include <algorithm>
#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "models/common/KVXMHelperUtils.h"

namespace {

using Order = kvxe::CascadeSetting::Order;

void arrange(std::vector<std::string>& codes, Order order) {
  if (order == Order::Alphabetic) std::sort(codes.begin(), codes.end());
  if (order == Order::Natural) codes = KVXEPartSelection::getNaturalSorted(std::move(codes));
}

int positionOf(const std::string& value, const std::vector<std::string>& values) {
  const auto found = std::find(values.begin(), values.end(), value);
  return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

}  // namespace

// Lists.

std::vector<std::string> KVXEPartSelection::getDeviceSelectionList() const {
  std::vector<std::string> names;
  for (const kvxe::CascadeSetting& setting : describe().cascade) names.push_back(*setting.name);
  if (!names.empty()) names.push_back(m_processStr);
  return names;
}

bool KVXEPartSelection::isSetting(const std::string& name) const {
  if (describe().columnOf(name) < describe().cascade.size() || name == m_processStr) return true;
  return describe().hasCoreVoltage && name == m_coreVoltageStr;
}

kvxe::PartCodes KVXEPartSelection::getPatternBefore(std::size_t column) const {
  kvxe::PartCodes pattern;
  for (const kvxe::CascadeSetting& setting : describe().cascade.first(column))
    pattern.push_back(codeOf(*setting.name));
  return pattern;
}

std::vector<std::string> KVXEPartSelection::listCodes(const std::string& setting) const {
  if (setting == m_processStr) {
    return getCurrentSetting(setting) == m_typStr ? std::vector<std::string>{m_typStr, m_maxStr}
                                                  : std::vector<std::string>{m_maxStr, m_typStr};
  }
  if (setting == m_coreVoltageStr) {
    const std::string volts = getCoreVoltage(getSelectedDeviceName());
    return volts.empty() ? std::vector<std::string>() : std::vector<std::string>{volts};
  }
  const std::size_t column = describe().columnOf(setting);
  if (column >= describe().cascade.size()) return {};
  std::vector<std::string> codes = kvxe::distinctCodes(getCatalogueCodes(), getPatternBefore(column), column);
  arrange(codes, describe().cascade[column].order);
  return codes;
}

std::vector<std::string> KVXEPartSelection::getValidValues(const std::string& setting,
                                                           const kvxe::PartCodes& pattern) const {
  const std::size_t column = describe().columnOf(setting);
  if (column >= describe().cascade.size()) return {};
  std::vector<std::string> texts = kvxe::distinctCodes(getCatalogueCodes(), pattern, column);
  arrange(texts, describe().cascade[column].order);
  for (std::string& text : texts) text = gradesOf(setting).textOf(text);
  KVXMHelperUtils::UNIQUE(texts);
  return texts;
}

bool KVXEPartSelection::isCurrentSettingValid(unsigned int index, const std::string& value) const {
  const std::vector<std::string> names = getDeviceSelectionList();
  if (index >= names.size()) return false;
  const std::vector<std::string> codes = listCodes(names[index]);
  return std::any_of(codes.begin(), codes.end(),
                     [&](const std::string& code) { return gradesOf(names[index]).textOf(code) == value; });
}

// Reading the drop-downs, which repairs the settings.

int KVXEPartSelection::getDeviceSelectionValues(unsigned int index, std::vector<std::string>& values) {
  values.clear();
  const std::vector<std::string> names = getDeviceSelectionList();
  return index < names.size() ? getValidSettings(names[index], values) : -1;
}

int KVXEPartSelection::getDisplayIndex(const std::string& setting, const std::vector<std::string>& values) {
  if (getCurrentSetting(setting).empty()) store(setting, getPartSetting(setting, getFamilyToDefaultPart()));
  return std::max(positionOf(gradesOf(setting).textOf(codeOf(setting)), values), 0);
}

int KVXEPartSelection::getValidSettings(const std::string& setting, std::vector<std::string>& values) {
  values.clear();
  if (!isSetting(setting)) {
    std::cout << "setting str: " << setting << '\n';
    return 0;
  }
  const kvxe::GradeTable& grades = gradesOf(setting);
  const std::vector<std::string> codes = listCodes(setting);
  for (const std::string& code : codes) values.push_back(grades.textOf(code));
  KVXMHelperUtils::UNIQUE(values);

  const int index = getDisplayIndex(setting, values);
  if (values.empty()) return index;
  // Codes may share a text: the current one stays if the catalogue has it here, or else its text finds
  // another.
  const std::string& shown = values[static_cast<std::size_t>(index)];
  std::string code = codeOf(setting);
  if (positionOf(code, codes) < 0) {
    code = *std::find_if(codes.begin(), codes.end(),
                         [&](const std::string& candidate) { return grades.textOf(candidate) == shown; });
  }
  store(setting, code);
  updateDerived(setting);
  rememberPart();
  return index;
}

/// Whether the core voltage follows the setting.
bool KVXEPartSelection::isVoltageGrade(const std::string& setting) const {
  return describe().hasCoreVoltage &&
         describe().columnOf(setting) == describe().columnOf(&kvxm::Part::voltage);
}

void KVXEPartSelection::updateDerived(const std::string& setting) {
  if (!isVoltageGrade(setting)) return;
  const std::string volts = getCoreVoltage(getSelectedDeviceName());
  store(m_coreVoltageStr,
        volts.empty() ? getCoreVoltageFromVoltageGradeStr(getCurrentSetting(setting)) : volts);
}

void KVXEPartSelection::readAllDropDowns() {
  std::vector<std::string> values;
  for (const std::string& name : getDeviceSelectionList()) getValidSettings(name, values);
}

// The user's choice.

int KVXEPartSelection::setDeviceSelectionCurrentValue(unsigned int index, const std::string& value) {
  const std::vector<std::string> names = getDeviceSelectionList();
  if (index >= names.size() || !m_currentSettings.contains(names[index])) return 0;
  const std::string& setting = names[index];
  if (setting == m_familyStr && value != getFamily()) resetDeviceSelection("");
  store(setting, gradesOf(setting).codeOf(value));
  if (isVoltageGrade(setting))
    store(m_coreVoltageStr, getCoreVoltageFromVoltageGradeStr(getCurrentSetting(setting)));
  return 1;
}

void KVXEPartSelection::resetDeviceSelection(const std::string& part) {
  for (const kvxe::CascadeSetting& setting : describe().cascade)
    store(*setting.name, getPartSetting(*setting.name, part));
  if (getFamily().empty()) store(m_familyStr, getDefaultFamily());
  store(m_processStr, m_maxStr);
  if (describe().hasCoreVoltage) store(m_coreVoltageStr, getCoreVoltage(part));
  rememberPart();
}

void KVXEPartSelection::resetDeviceSelectionToDefault() {
  resetDeviceSelection(getDefaultPart());
}
