#pragma once

#include "engine/base/workbook/KVXETabFactory.h"

/// Makes the tabs of a book of a module: the board's own tabs, and the Morlan ones for its device.
class KVXESomMorlanTabFactory : public KVXETabFactory {
 public:
  using KVXETabFactory::KVXETabFactory;

  KVXETab* createTab(KVXEEnums::TabType type) override;
  std::string className() const override { return "KVXESomMorlanTabFactory"; }
};
