#pragma once

#include "engine/base/tabs/KVXESummaryConsoleTab.h"

/// The console panel of a Morlan book.
class KVXEMorlanSummaryConsoleTab : public KVXESummaryConsoleTab {
 public:
  using KVXESummaryConsoleTab::KVXESummaryConsoleTab;
  std::string className() const override { return "KVXEMorlanSummaryConsoleTab"; }
  void init() override;
};
