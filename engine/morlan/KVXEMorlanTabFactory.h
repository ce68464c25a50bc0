#pragma once

#include "engine/base/workbook/KVXETabFactory.h"

/// Makes the tabs of a Morlan book.
class KVXEMorlanTabFactory : public KVXETabFactory {
 public:
  using KVXETabFactory::KVXETabFactory;

  KVXETab* createTab(KVXEEnums::TabType type) override;
  std::string className() const override { return "KVXEMorlanTabFactory"; }
};
