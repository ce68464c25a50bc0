#include "engine/som/KVXESomPsTab.h"

#include "engine/base/selection/KVXEPartSelection.h"

std::vector<std::string> KVXESomPsTab::memoryTypes() const {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const bool isSmall =
      selection && selection->getCurrentSetting(KVXEPartSelection::m_devStr).starts_with("SM4");
  return {"None", isSmall ? "LPDDR4" : "DDR4"};
}

std::string KVXESomPsTab::speedGrade() const {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  const std::string part = selection ? selection->getSelectedDeviceName() : std::string();
  const size_t mark = part.find('_');  // as in "SM6-CMRB900_2LV-I"
  return mark == std::string::npos ? std::string() : part.substr(mark + 1);
}
