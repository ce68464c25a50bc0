#pragma once

#include "engine/base/tabs/KVXESummaryTab.h"

/// The summary of a Morlan device. Modules that carry such a device build theirs on it.
class KVXEMorlanSummaryTab : public KVXESummaryTab {
 public:
  using KVXESummaryTab::KVXESummaryTab;
  std::string className() const override { return "KVXEMorlanSummaryTab"; }
  void init() override;

 protected:
  std::string productName() const override { return "Hexaline+"; }
  std::string partStatus(const std::string& part) const override;
  std::span<const kvxe::OnchipCategory> dynamicCategories() const override;
  std::span<const kvxe::OnchipCategory> staticCategories() const override;
  std::span<const kvxe::OnchipSource> dynamicSources() const override;
  std::span<const kvxe::OnchipStaticTerm> staticTerms() const override;
  std::unique_ptr<kvxm::Record> makeStaticParams() const override;
  void calculateStatic(kvxm::Record& params) const override;
};
