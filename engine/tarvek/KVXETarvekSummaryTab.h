#pragma once

#include "engine/base/tabs/KVXESummaryTab.h"

/// The summary of a Tarvek device: with the use of reconfigurable regions, and with the limits and the margin
/// of parts that may exceed their maximum junction temperature for a share of their life.
class KVXETarvekSummaryTab : public KVXESummaryTab {
 public:
  using KVXESummaryTab::KVXESummaryTab;
  std::string className() const override { return "KVXETarvekSummaryTab"; }
  void init() override;

  static void updateThermalMarginWithExcursionW(const KVXEUID& uid);

 protected:
  std::string productName() const override { return "Arkeon"; }
  std::string partStatus(const std::string& part) const override;
  std::span<const kvxe::OnchipCategory> dynamicCategories() const override;
  std::span<const kvxe::OnchipCategory> staticCategories() const override;
  std::span<const kvxe::OnchipSource> dynamicSources() const override;
  std::span<const kvxe::OnchipStaticTerm> staticTerms() const override;
  float staticScale(kvxm::Record& result) const override;
  std::unique_ptr<kvxm::Record> makeStaticParams() const override;
  void calculateStatic(kvxm::Record& params) const override;

 private:
  void initRcxTable();
  static float excursionMargin(const KVXEUID& uid, float maxTemp);
  float excursionStaticPower(const KVXEUID& uid, float celsius) const;
};
