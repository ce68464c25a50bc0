#pragma once

#include "engine/base/tabs/KVXESummaryConsoleTab.h"

/// The console panel of a Tarvek book.
class KVXETarvekSummaryConsoleTab : public KVXESummaryConsoleTab {
 public:
  using KVXESummaryConsoleTab::KVXESummaryConsoleTab;
  std::string className() const override { return "KVXETarvekSummaryConsoleTab"; }
  void init() override;
};
