#pragma once

#include "engine/base/tabs/KVXEPsTab.h"

/// The processing system of Morlan devices.
class KVXEMorlanPsTab : public KVXEPsTab {
 public:
  using KVXEPsTab::KVXEPsTab;
  std::string className() const override { return "KVXEMorlanPsTab"; }

 protected:
  const kvxm::ProcessorBlocks& blocks() const override;
  const std::vector<Domain>& domains() const override;
  BlockPower calculate(const std::string& device, std::string_view domain,
                       const BlockUse& use) const override;
};
