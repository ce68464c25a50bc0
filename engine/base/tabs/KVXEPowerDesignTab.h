#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/base/tabs/KVXEPowerDesignTitles.h"
#include "engine/base/tabs/KVXEPowerRailGroups.h"
#include "engine/base/tabs/KVXEPowerRailNames.h"
#include "engine/base/tabs/KVXEPowerXcvrCounts.h"
#include "engine/base/tabs/KVXERailPowerIndex.h"
#include "engine/base/workbook/KVXETab.h"

class KVXERow;

namespace kvxm {
class Record;
class StaticQueries;
struct Device;
struct Supply;
enum class Architecture;
}  // namespace kvxm

/// The device's electrical view: the part, its supply rails with voltages and currents, the physical supplies
/// that feed them, and the junction temperature at which static and dynamic power settle. The rails and
/// their limits are the catalogue's, the powers the static model's, the sharing the grouping model's; this
/// class holds none of them. The concrete tabs say which part settings and models belong to their
/// architecture.
///
/// The readers take the UID of any cell of the book and answer with a default when the book has no power
/// design or no summary tab. They evaluate what they read, so a formula that calls them learns its
/// dependencies.
class KVXEPowerDesignTab : public KVXETab,
                           public KVXEPowerDesignTitles,
                           public KVXEPowerRailNames,
                           public KVXEPowerXcvrCounts {
 public:
  /// How the junction temperature was found.
  enum class JunctionStatus {
    Valid,       ///< it is the temperature at which the device settles, or the user's
    NoSolution,  ///< leakage heats faster than the path cools; given as the absolute maximum
    OutOfRange,  ///< above the absolute maximum; given as that when it was calculated
  };
  /// Degrees C beyond which estimates are no longer valid.
  static constexpr float AbsoluteMaxJunctionTemp = 125.0f;

  KVXEPowerDesignTab(KVXEBook* book, KVXEEnums::TabType type);
  ~KVXEPowerDesignTab() override;
  std::string className() const override { return "KVXEPowerDesignTab"; }
  void init() override;

  // The part, from the device table. Grades are short codes; for display they are given in full.
  static std::string getDevice(const KVXEUID& uid);
  static std::string getPkg(const KVXEUID& uid);
  static std::string getFamily(const KVXEUID& uid);
  static std::string getProcess(const KVXEUID& uid);
  static std::string getTempGrade(const KVXEUID& uid);
  static std::string getSpeedGrade(const KVXEUID& uid);
  static std::string getSpeedGradeForDisplay(const KVXEUID& uid);
  static std::string getVoltageRangeForDisplay(const KVXEUID& uid);
  static std::string getTempGradeForDisplay(const KVXEUID& uid);

  // Choices of this tab.
  /// Leakage of a typical part over that of the catalogue.
  static float getTpfSetting(const KVXEUID& uid);
  /// "Full Power Management" or "Minimum Rails".
  static std::string getPowerRailConsolidation(const KVXEUID& uid);

  /// The voltage of a rail by its internal name; 0 for a rail that the device lacks.
  static float getVoltage(const KVXEUID& uid, const std::string& rail);

  // Thermal environment, in degrees C and C/W, from the summary tab.
  static bool isJunctionTempOverrideOn(const KVXEUID& uid);
  static bool isHbmJunctionTempOverrideOn(const KVXEUID& uid);
  static float getThetaJA(const KVXEUID& uid);
  static float getAmbientTemp(const KVXEUID& uid);
  static float getMaxJunctionTemp(const KVXEUID& uid);
  static float getUserJunctionTemp(const KVXEUID& uid);
  /// Whether the part may exceed its maximum junction temperature up to 110 C for a share of its life.
  static bool isExcursionTempSupported(const KVXEUID& uid);
  static float getMaxJunctionToExcursionTemp(const KVXEUID& uid);

  // Results, from the junction temperature table. The calculated temperature is the one in force: the user's
  // while the override is on, else where the device settles, at most AbsoluteMaxJunctionTemp.
  static float getCalculatedJunctionTemp(const KVXEUID& uid);
  static float getInitialJunctionTemp(const KVXEUID& uid);
  static float getJunctionTempAt25(const KVXEUID& uid);
  static float getNonIntLeakage(const KVXEUID& uid);
  static JunctionStatus getJunctionStatus(const KVXEUID& uid);
  /// The junction temperature to which currents, in amperes by rail, heat the die; the user's while the
  /// override is on.
  static float getIntermediateJunctionTemperature(const KVXEUID& uid, float ambient,
                                                  const std::map<std::string, float>& railCurrents);

  // On-chip power in watts, without HBM. Static power is that at the junction temperature in force.
  static float getOnChipStaticPower(const KVXEUID& uid);
  static float getOnChipDynamicPower(const KVXEUID& uid);
  static float getOnChipPower(const KVXEUID& uid);
  static float getHbmStaticPower(const KVXEUID& uid);
  /// Of the tab of a block; 0 without such a tab.
  static float getBlockDynamicPower(const KVXEUID& uid, KVXEEnums::TabType tabType);
  /// Of all blocks of the programmable logic: clocks, logic, memories and DSP.
  static float getPlDynamicPower(const KVXEUID& uid);
  /// What the rails supply beyond on-chip power, since it leaves the chip through external terminations.
  static float getOffChipPower(const KVXEUID& uid);

  // Input of the static model of the architecture (KVXMTarvekStaticParams, KVXMMorlanStaticParams).
  /// All of it: voltages, device, block use, thermal environment.
  static void getStaticParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateVoltageParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateDeviceParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateBlockParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateThermalParams(const KVXEUID& uid, kvxm::Record& params);
  /// How the design uses the device, as far as leakage follows from it.
  static void updateBlockUtilization(const KVXEUID& uid, kvxm::Record& params);

  // A rail by its internal name, as the present part has it; volts are 0 and the name stays when it lacks the
  // rail.
  static bool isValidVoltage(const KVXEUID& uid, const std::string& rail);
  static std::string getInt2ExtVoltName(const KVXEUID& uid, const std::string& rail);
  static float getMinVoltage(const KVXEUID& uid, const std::string& rail);
  static float getNomVoltage(const KVXEUID& uid, const std::string& rail);
  static float getMaxVoltage(const KVXEUID& uid, const std::string& rail);
  /// Whether the present device has a rail of the category.
  static bool isValidCategory(const KVXEUID& uid, const std::string& category);

  // Formulas.
  static void updateDeviceTable(const KVXEUID& uid);
  static void updatePowerSummaryTable(const KVXEUID& uid);
  static void updatePowerSupplyTable(const KVXEUID& uid);
  static void updatePwrRailConsolidationTable(const KVXEUID& uid);
  static void updateVoltage(const KVXEUID& uid);
  static void updateStepLoad(const KVXEUID& uid);
  static void updateStaticCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updateDynamicCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updateTotalCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updatePowerSupplyDesignTable(const KVXEUID& uid);
  static void updateSupplyDesignVoltage(const KVXEUID& uid);
  static void updateSupplyDesignStepLoad(const KVXEUID& uid);
  static void updatePowerDeliveryMargin(const KVXEUID& uid);
  static void updateDebugDeviceTable(const KVXEUID& uid);
  static void updateDebugJunctionTempTable(const KVXEUID& uid);

 protected:
  /// A row of the device table: its text, and the part setting that it shows.
  struct DeviceRow {
    std::string option;
    std::string setting;
  };

  // What the architectures differ in.
  virtual std::span<const DeviceRow> deviceRows() const = 0;
  virtual kvxm::Architecture architecture() const = 0;
  virtual const kvxm::StaticQueries& staticData() const = 0;
  virtual std::unique_ptr<kvxm::Record> makeStaticParams() const = 0;
  virtual void calculateStatic(kvxm::Record& params) const = 0;
  /// The code by which supply limits differ between parts: the voltage grade, or the speed field.
  virtual std::string supplyGrade(const KVXEUID& uid) const = 0;
  /// The group that a rail goes to under a consolidation; blank for none.
  virtual std::string railGroup(const std::string& consolidation, const kvxm::Supply& supply,
                                float nominalVolts) const;
  /// What a row of the device table shows.
  virtual std::string partSetting(const DeviceRow& row) const;
  /// The architecture's own inputs of the static model.
  virtual void fillDeviceParams(const KVXEUID&, kvxm::Record&) const {}
  virtual void fillBlockParams(const KVXEUID&, kvxm::Record&) const {}
  /// Watts that heat the die besides leakage; must not depend on temperature or static power.
  virtual float onChipDynamicPower(const KVXEUID& uid);
  /// Checks of a voltage that only this architecture has; they run behind the check of its range.
  virtual void checkVoltage(const KVXEUID&, const std::string& /*rail*/, float /*volts*/) const {}

  /// The power design tab of the cell's book; null when there is none.
  static KVXEPowerDesignTab* tabOf(const KVXEUID& uid);
  /// The selection of a row of the device table.
  static std::string deviceSetting(const KVXEUID& uid, const std::string& option);
  /// The present device in the catalogue; null for an unknown one.
  static const kvxm::Device* deviceOf(const KVXEUID& uid);
  /// The rail as the present device has it; null when the device lacks it.
  static const kvxm::Supply* supplyOf(const KVXEUID& uid, const std::string& rail);
  /// A float cell of the summary tab's environment table; nothing when it is missing or blank.
  static std::optional<float> environmentValue(const KVXEUID& uid, const std::string& row);

 private:
  enum DebugRow : unsigned int { InitialTemp = 1, TempAt25, NonIntLeakage, CalcJunctionTemp, MaxAmbientTemp };
  using Group = kvxe::RailGroups::Group;

  void initDeviceTable();
  void initPowerSummaryTable();
  void initPwrSupplyDesignTable();
  void initPowerSupplyTable();
  void initPowerRailConsolidationTable();
  void initCurrentSelectionTable();
  void initInternalScalingTable();
  void initDebugDeviceTables();
  void initDebugJunctionTempTable();

  void createVoltageRow(const std::string& category);
  void createRailRow(const std::string& rail);
  std::vector<const kvxm::Supply*> railsOfCategory(const std::string& category) const;
  std::vector<std::string> possibleGroups() const;
  KVXERow* createSupplyRow(const std::string& name);
  KVXECell* railCell(const std::string& rail, const KVXETitle& column) const;
  void writeJunction(kvxm::Record& params);
  static std::string gradeOf(const KVXEUID& uid);
  static float staticOutput(const KVXEUID& uid, int key);
  static float debugValue(const KVXEUID& uid, DebugRow row, float fallback);
  void runStartup(const KVXEUID& uid);
  std::optional<float> startupCurrent(const KVXEUID& uid, const std::string& rail) const;

  // Supplies.
  void findRailGroups(const KVXEUID& uid);
  const kvxe::RailGroups& railGroups() const;
  const Group* groupOfRow(const KVXERow& row) const;
  std::optional<float> groupVoltage(const std::string& group) const;
  void showVoltage(KVXECell& cell, const Group& group, float volts) const;
  float sumOfRails(const Group& group, const KVXETitle& column) const;
  float worstCurrent(const Group& group) const;
  float stepLoad(const Group& group) const;
  float updateCurrentSelectionTable(const Group& group) const;

  std::unordered_map<std::string, KVXERow*> m_railRows;  ///< by rail, whether or not the device has it
  std::unordered_map<std::string, KVXERow*>
      m_supplyRows;  ///< of the delivery design, by group or single rail
  std::unordered_map<std::string, KVXECell*> m_deviceCells;  ///< selections of the device table by option
  KVXECell* m_consolidation = nullptr;
  KVXECell* m_currentSelection = nullptr;
  KVXECell* m_tpf = nullptr;
  kvxe::RailPowerIndex m_railPower;

  // Results that many formulas read, each behind a cell that stands for it: whoever evaluates that cell may
  // read the result, and depends on what went into it.
  std::unique_ptr<kvxm::Record> m_static;    ///< of the static model, behind the calculated temperature
  std::unique_ptr<kvxm::Record> m_startup;   ///< at the highest temperature, behind m_startupRun
  kvxe::RailGroups m_railGroups;             ///< behind m_groupsRun
  std::vector<const Group*> m_groupsOfRows;  ///< by row of the delivery design, behind m_groupsRun
  KVXECell* m_startupRun = nullptr;
  KVXECell* m_groupsRun = nullptr;
};
