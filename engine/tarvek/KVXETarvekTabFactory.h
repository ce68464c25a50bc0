#pragma once

#include "engine/base/workbook/KVXETabFactory.h"

/// Makes the tabs of a Tarvek book.
class KVXETarvekTabFactory : public KVXETabFactory {
 public:
  using KVXETabFactory::KVXETabFactory;

  KVXETab* createTab(KVXEEnums::TabType type) override;
  std::string className() const override { return "KVXETarvekTabFactory"; }
};
