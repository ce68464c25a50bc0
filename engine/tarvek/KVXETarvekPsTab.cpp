#include "engine/tarvek/KVXETarvekPsTab.h"

#include "models/tarvek/KVXMTarvekPmc.h"
#include "models/tarvek/KVXMTarvekPss.h"
#include "models/tarvek/KVXMTarvekPssData.h"

const kvxm::ProcessorBlocks& KVXETarvekPsTab::blocks() const {
  return KVXMTarvekPssData::getGlobal();
}

const std::vector<KVXEPsTab::Domain>& KVXETarvekPsTab::domains() const {
  static const std::vector<Domain> domains{
      {&m_pmcStr, {"VCCPMC", "VCCAUXPMC", "VCCAUXSMON", "VCCO500", "VCCO501", "VCCO503"}},
      {&m_lpdStr, {"VCCPSLP", "VCCO502"}},
      {&m_fpdStr, {"VCCPSFP"}, true},
  };
  return domains;
}

KVXEPsTab::BlockPower KVXETarvekPsTab::calculate(const std::string& device, std::string_view domain,
                                                 const BlockUse& use) const {
  if (domain == m_pmcStr) return runModel<KVXMTarvekPmcParams, KVXMTarvekPmcModel>(device, use);
  return runModel<KVXMTarvekPssParams, KVXMTarvekPssModel>(device, use);
}
