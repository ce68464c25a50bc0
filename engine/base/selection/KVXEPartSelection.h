#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/base/selection/ArchitectureDescription.h"
#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXETab;

/// The user's choice of one device: named settings, kept consistent with the catalogue as a cascade of
/// drop-downs, joined to one part name, and turned into the tabs of the book. One object exists per process;
/// its class belongs to the architecture, and what differs between architectures is declared in its
/// kvxe::ArchitectureDescription.
///
/// The settings hold the short codes of grades ("MP", "I"); the lists for the user hold their long texts.
/// Code that has only a value from a list may store it too: both forms are understood.
class KVXEPartSelection {
 public:
  using Settings = std::map<std::string, std::string>;

  // Names of settings. An architecture whose name differs hides the member with its own.
  static const std::string m_archStr, m_boardStr, m_familyStr, m_devStr, m_pkgStr, m_deviceGradeStr,
      m_spdGradeStr, m_voltageRangeStr, m_tempGradeStr, m_staticScreenStr, m_coreVoltageStr, m_processStr;
  // Values.
  static const std::string m_typStr, m_maxStr, m_qcDeviceGradeStr, m_qqDeviceGradeStr, m_qaDeviceGradeStr;
  // Names of architectures.
  static const std::string m_arkeonArchName, m_morlanArchName, m_somVisionArchName;

  /// The selection, null before the first device.
  static KVXEPartSelection* getGlobal() { return m_partSelection.get(); }
  /// Makes the selection that of the architecture; the same architecture keeps its settings. Null and no
  /// selection for an unknown name.
  static KVXEPartSelection* resetToArch(const std::string& archName);
  static void resetPartSelection();
  /// A new selection of the default part of the first architecture.
  static void resetToDefaultPart();
  /// The architecture by the leading letters of a device or part name; empty when none has such devices.
  static std::string getArchNameFromDeviceStr(const std::string& name);
  /// A part of engineering samples.
  static bool isEsPart(const std::string& part) { return part.find("es") != std::string::npos; }
  /// The names ordered so that numbers inside them compare as numbers.
  static std::vector<std::string> getNaturalSorted(std::vector<std::string> names);

  KVXEPartSelection(const KVXEPartSelection&) = delete;
  KVXEPartSelection& operator=(const KVXEPartSelection&) = delete;

  /// The names of the drop-downs; their positions are the indices of the operations below.
  virtual std::vector<std::string> getDeviceSelectionList() const;
  /// The values of a drop-down as getValidSettings gives them; -1 for an index without a drop-down.
  virtual int getDeviceSelectionValues(unsigned int index, std::vector<std::string>& values);
  /// Stores the user's choice without a check: the next run through the drop-downs repairs what no longer
  /// fits. A new family blanks all that depends on it. 0 when there is no such setting yet, else 1.
  virtual int setDeviceSelectionCurrentValue(unsigned int index, const std::string& value);
  virtual void resetDeviceSelectionToDefault();
  /// The printed name of the selected part; empty while the settings do not name a part of the catalogue.
  virtual std::string getSelectedDeviceName() const;
  /// The family of a device or part, empty if unknown.
  virtual std::string getDevice2FamilyName(const std::string& device) const;
  /// The texts that the setting may take under the settings before it; returns the position of the one to
  /// show and stores that, so that reading the drop-downs from first to last makes the settings consistent.
  virtual int getValidSettings(const std::string& setting, std::vector<std::string>& values);
  virtual std::string getDefaultPart() const;
  virtual std::string getDefaultFamily() const;
  /// The part with which the current family starts.
  virtual std::string getFamilyToDefaultPart() const;
  /// Whether the drop-down lists the value now; changes nothing.
  virtual bool isCurrentSettingValid(unsigned int index, const std::string& value) const;
  /// Device "-" package of the settings.
  virtual std::string getDevicePkgTag() const;
  /// Resource names and counts of the selected part. One without data is reported and has none.
  virtual void getResources(std::map<std::string, int>& resources) const;
  /// Makes the tabs of the book those of the selected device; with `deleteTabs` they are all built anew.
  virtual void redrawTabs(bool deleteTabs);
  /// A setting's value, empty when it has none.
  virtual std::string getCurrentSetting(const std::string& name) const;
  virtual std::string getArchName() const = 0;
  virtual bool isStarterKit() const { return false; }
  virtual bool isArkeonNet() const;
  virtual bool isArkeonHbm() const;
  virtual bool hasDdrmc5c() const { return isResourceAvailable("DDRMC5C"); }
  virtual ~KVXEPartSelection();
  /// Selects a part by its printed name or catalogue key in any letter case, process "Maximum" or "Typical".
  /// False, with the settings as they were, for anything that the catalogue does not have.
  virtual bool selectPart(const std::string& partName, const std::string& process);
  virtual bool isPartSupported(const std::string& part) const;
  /// Printed names in catalogue order.
  virtual std::vector<std::string> getAvailableParts() const;
  virtual std::vector<std::string> getAvailablePartsForSelectedFamily() const;
  /// The letter of the temperature grade, of the selection or of a part; empty if unknown.
  virtual std::string getTempGrade() const;
  virtual std::string getTempGrade(const std::string& part) const;
  // Between the codes of grades and their texts; a code, too, has itself for a code.
  virtual std::string getTempGradeStr(const std::string& code) const;
  virtual std::string getTempGradeFromStr(const std::string& text) const;
  virtual std::string getVoltageGradeStr(const std::string& code) const;
  virtual std::string getVoltageGradeFromStr(const std::string& text) const;
  virtual std::string getCoreVoltageFromVoltageGradeStr(const std::string& grade) const;
  virtual std::string getDeviceGradeStr(const std::string& part) const;
  virtual std::string getDeviceGradeStr() const;
  /// What a setting is for a part; empty for an empty or malformed part.
  virtual std::string getPartSetting(const std::string& setting, const std::string& part) const;

  /// The texts of a setting among the parts that agree with the pattern.
  virtual std::vector<std::string> getValidValues(const std::string& setting,
                                                  const kvxe::PartCodes& pattern) const;
  /// The family's name as tools write it into files; an unknown name stays.
  virtual std::string getFamilyExternal2InternalStr(const std::string& family) const;
  /// Takes every setting from the part, the family from the default if the part has none.
  virtual void resetDeviceSelection(const std::string& part);
  /// The position of the setting's value in a list of texts, 0 if absent. A blank setting first takes its
  /// value from the family's default part.
  virtual int getDisplayIndex(const std::string& setting, const std::vector<std::string>& values);
  virtual std::string getFamily() const { return getCurrentSetting(m_familyStr); }
  /// As text: "0.80 V".
  virtual std::string getCoreVoltage() const { return getCurrentSetting(m_coreVoltageStr); }
  virtual std::string getCoreVoltage(const std::string& part) const;

  /// Cheap enough for formulas: the resources are kept until a setting changes.
  int getAvailResources(const std::string& name) const;
  bool isResourceAvailable(const std::string& name) const { return getAvailResources(name) != 0; }
  /// The fields of a part name in its own order; none for a malformed name.
  virtual std::vector<std::string> getPartTokens(const std::string& part) const;

  /// The last complete choice, which stays while the settings are being rewritten.
  const std::string& getCurrentPart() const { return m_currentPart; }
  void setCurrentPart(const std::string& part);
  /// The tag of the device for which the tabs were drawn last.
  const std::string& getDevicePkg() const { return m_devicePkg; }
  void setDevicePkg() { m_devicePkg = getDevicePkgTag(); }
  const Settings& getCurrentSettings() const { return m_currentSettings; }
  /// Takes over settings from a file; one that is there already keeps its value.
  void insertSettings(const Settings& settings);

 protected:
  KVXEPartSelection() = default;

  virtual const kvxe::ArchitectureDescription& describe() const;
  /// Every part of the catalogue, as codes in the order of the cascade.
  virtual std::vector<kvxe::PartCodes> getCatalogueCodes() const;
  /// One part as such codes; empty for an unknown form.
  virtual kvxe::PartCodes getPartCodes(const std::string& part) const;
  /// Resource names and counts of a part; none for an unknown one.
  virtual std::vector<std::pair<std::string, int>> getResourceData(const std::string& part) const;
  /// The tabs that the device has whatever its resources.
  virtual std::vector<KVXEEnums::TabType> getTabsToShow() const;
  /// Makes the typed records of the architecture those of the tables that the book has now.
  virtual void resetConfiguration(KVXEBook* book) = 0;
  /// Has the front end fetch the tab as a whole: what it shows hangs on the device.
  void refreshViews(KVXETab* tab);

  /// The settings as a pattern up to, and without, a column of the cascade.
  kvxe::PartCodes getPatternBefore(std::size_t column) const;
  void store(const std::string& setting, const std::string& value);
  /// The code of a setting's value; blank for a blank one.
  std::string codeOf(const std::string& setting) const;
  std::string codeOf(std::string kvxm::Part::*field) const;

 private:
  std::vector<std::string> listCodes(const std::string& setting) const;
  const kvxe::GradeTable& gradesOf(const std::string& setting) const;
  const kvxe::GradeTable& gradesOf(std::string kvxm::Part::*field) const;
  bool isSetting(const std::string& name) const;
  bool isVoltageGrade(const std::string& setting) const;
  void updateDerived(const std::string& setting);
  void rememberPart();
  void readAllDropDowns();

  static std::unique_ptr<KVXEPartSelection> m_partSelection;

  Settings m_currentSettings;
  std::string m_currentPart;
  std::string m_devicePkg;
  mutable std::optional<std::map<std::string, int>> m_resources;  // of the present settings
};
