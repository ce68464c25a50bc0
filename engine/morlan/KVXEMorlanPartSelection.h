#pragma once

#include "engine/base/selection/KVXEPartSelection.h"

/// The choice of a Morlan device: seven drop-downs, without voltage and screen grades.
class KVXEMorlanPartSelection : public KVXEPartSelection {
 public:
  /// Whether the name begins like a device of this architecture.
  static bool hasValidArchPrefix(const std::string& name);

  std::string getArchName() const override { return m_morlanArchName; }

 protected:
  const kvxe::ArchitectureDescription& describe() const override;
  void resetConfiguration(KVXEBook* book) override;

  /// Temperature grades, which modules share.
  static const kvxe::GradeTable m_temperatures;
};
