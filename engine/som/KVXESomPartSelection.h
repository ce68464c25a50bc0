#pragma once

#include "engine/morlan/KVXEMorlanPartSelection.h"

/// The choice of a module: five drop-downs over the catalogue of modules. A part is named by its catalogue
/// key ("SM6_CUSTOM_I") or by the name that the implementation tool uses.
class KVXESomPartSelection : public KVXEMorlanPartSelection {
 public:
  /// Whether the name begins like a device of this architecture.
  static bool hasValidArchPrefix(const std::string& name);
  /// The settings with which a choice of module starts.
  static const Settings& getDefaultPartInfo();

  // Of the selected module; empty while the settings name none.
  std::string getTalmorDeviceName() const;
  std::string getDeviceName() const;
  std::string getBaseDeviceName() const;
  std::string getBaseFamilyName() const;

  int setDeviceSelectionCurrentValue(unsigned int index, const std::string& value) override;
  std::string getSelectedDeviceName() const override { return getTalmorDeviceName(); }
  std::string getDevice2FamilyName(const std::string& device) const override;
  std::string getDefaultPart() const override;
  std::string getFamilyToDefaultPart() const override;
  /// Device "-" board: a module has no package of its own.
  std::string getDevicePkgTag() const override;
  std::string getArchName() const override { return m_somVisionArchName; }
  bool isStarterKit() const override;
  bool isPartSupported(const std::string& part) const override;
  std::vector<std::string> getAvailableParts() const override;
  std::string getTempGrade() const override;
  std::string getTempGrade(const std::string& part) const override;
  std::string getTempGradeStr(const std::string& code) const override { return m_temperatures.textOf(code); }
  std::string getTempGradeFromStr(const std::string& text) const override {
    return m_temperatures.codeOf(text);
  }
  /// Device, board and grade.
  std::vector<std::string> getPartTokens(const std::string& part) const override;

 protected:
  const kvxe::ArchitectureDescription& describe() const override;
  std::vector<kvxe::PartCodes> getCatalogueCodes() const override;
  kvxe::PartCodes getPartCodes(const std::string& part) const override;
  std::vector<std::pair<std::string, int>> getResourceData(const std::string& part) const override;

 private:
  std::string selectedField(const std::string& field) const;
};
