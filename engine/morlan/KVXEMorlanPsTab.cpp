#include "engine/morlan/KVXEMorlanPsTab.h"

#include "models/morlan/KVXMMorlanPss.h"
#include "models/morlan/KVXMMorlanPssData.h"

const kvxm::ProcessorBlocks& KVXEMorlanPsTab::blocks() const {
  return KVXMMorlanPssData::getGlobal();
}

const std::vector<KVXEPsTab::Domain>& KVXEMorlanPsTab::domains() const {
  static const std::vector<Domain> domains{
      {&m_lpdStr, {"VCCPSINTLP", "VCCPSAUX", "VCCPSPLL", "VCCOPSIO"}},
      {&m_fpdStr, {"VCCPSINTFP", "VCCOPSDDR", "VPSMXCVRAVCC", "VPSMXCVRAVTT"}, true},
      {&m_batteryStr, {"VCCBATT"}},
  };
  return domains;
}

KVXEPsTab::BlockPower KVXEMorlanPsTab::calculate(const std::string& device, std::string_view,
                                                 const BlockUse& use) const {
  return runModel<KVXMMorlanPssParams, KVXMMorlanPssModel>(device, use);
}
