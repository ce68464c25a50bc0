#pragma once

#include "engine/base/selection/KVXEPartSelection.h"

/// The choice of a Tarvek device: nine drop-downs, and a core voltage that follows the voltage grade.
class KVXETarvekPartSelection : public KVXEPartSelection {
 public:
  static const std::string m_voltageRangeStr, m_tempGradeStr, m_staticScreenStr;

  /// Whether the name begins like a device of this architecture.
  static bool hasValidArchPrefix(const std::string& name);

  std::string getArchName() const override { return m_arkeonArchName; }
  /// "L" for a text with "Low", else "S".
  virtual std::string getStaticScreenFromStr(const std::string& text) const;

 protected:
  const kvxe::ArchitectureDescription& describe() const override;
  void resetConfiguration(KVXEBook* book) override;
  std::vector<KVXEEnums::TabType> getTabsToShow() const override;
};
