#pragma once

#include "engine/morlan/KVXEMorlanPsTab.h"

/// The processing system of the device on a module, whose board carries one kind of memory.
class KVXESomPsTab : public KVXEMorlanPsTab {
 public:
  using KVXEMorlanPsTab::KVXEMorlanPsTab;
  std::string className() const override { return "KVXESomPsTab"; }

 protected:
  std::vector<std::string> memoryTypes() const override;
  /// That of the device on the module.
  std::string speedGrade() const override;
};
