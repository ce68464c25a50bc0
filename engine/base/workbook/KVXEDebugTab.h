#pragma once

#include "engine/base/workbook/KVXETab.h"

/// A developer's sheet: a small table that shows how columns, lists, units and formulas are declared.
class KVXEDebugTab : public KVXETab {
 public:
  static const KVXETitle m_APIDemoTable, m_DemoName, m_DemoChoice, m_DemoInput, m_DemoResult;

  using KVXETab::KVXETab;

  std::string className() const override { return "KVXEDebugTab"; }
  void init() override;
  /// From the demo's input: 3 for 0, 2 below 1001, else 0.
  int getTabSeverity() override;

 private:
  static void updateDemoResult(const KVXEUID& uid);
};
