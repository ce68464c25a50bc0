#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/base/tabs/KVXERailPowerIndex.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXETab.h"

class KVXERow;

namespace kvxm {
class Record;
class StaticQueries;
struct Device;
struct Supply;
enum class Architecture;
}  // namespace kvxm

/// The device's electrical view: the part, its supply rails with voltages and currents, and the junction
/// temperature at which static and dynamic power settle. The rails and their limits are the catalogue's, the
/// powers the static model's; this class holds neither. The concrete tabs say which part settings and which
/// model belong to their architecture.
///
/// The readers take the UID of any cell of the book and answer with a default when the book has no power
/// design or no summary tab. They evaluate what they read, so a formula that calls them learns its
/// dependencies.
class KVXEPowerDesignTab : public KVXETab {
 public:
  static const KVXETitle m_powerSummaryTable;
  static const KVXETitle m_debugJunctionTempTable, m_debugTempOptionColumn, m_debugTempValueColumn;

  // Rows of the power summary and of the junction temperature table.
  static const std::string m_totalPowerCol, m_staticPowerCol, m_dynamicPowerCol;
  static const std::string m_initialTempStr, m_tempAt25Str, m_nonIntLeakageStr, m_calcJunctionTempStr,
      m_maxAmbientTempStr;
  // Keys of the rail categories, in the order of the supply table.
  static const std::string m_pmcStr, m_lpdStr, m_fpdStr, m_systemAuxStr, m_systemCoreStr, m_plCoreStr,
      m_ioStr, m_xcvraStr, m_xcvrdStr, m_xcvrcStr, m_hbmStr, m_batStr, m_otherStr;

  /// How the junction temperature was found.
  enum class JunctionStatus {
    Valid,       ///< it is the temperature at which the device settles, or the user's
    NoSolution,  ///< leakage heats faster than the path cools; given as the absolute maximum
    OutOfRange,  ///< above the absolute maximum; given as that when it was calculated
  };
  /// Degrees C beyond which estimates are no longer valid.
  static constexpr float AbsoluteMaxJunctionTemp = 125.0f;
  /// What the junction temperature cell says while the status is not valid.
  static const std::string m_invalidJunctionMsg;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEPowerDesignTab"; }
  void init() override;

  // The part, from the device table. The temperature grade is the short letter.
  static std::string getDevice(const KVXEUID& uid);
  static std::string getPkg(const KVXEUID& uid);
  static std::string getFamily(const KVXEUID& uid);
  static std::string getProcess(const KVXEUID& uid);
  static std::string getTempGrade(const KVXEUID& uid);
  static std::string getSpeedGrade(const KVXEUID& uid);

  /// The voltage of a rail by its internal name; 0 for a rail that the device lacks.
  static float getVoltage(const KVXEUID& uid, const std::string& rail);

  // Thermal environment, in degrees C and C/W, from the summary tab.
  static bool isJunctionTempOverrideOn(const KVXEUID& uid);
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

  // On-chip power in watts, without HBM.
  static float getOnChipStaticPower(const KVXEUID& uid);
  static float getOnChipDynamicPower(const KVXEUID& uid);
  static float getOnChipPower(const KVXEUID& uid);
  /// Static power of the HBM dies in watts at the junction temperature in force.
  static float getHbmStaticPower(const KVXEUID& uid);

  // Input of the static model of the architecture (KVXMTarvekStaticParams, KVXMMorlanStaticParams).
  /// All of it: voltages, device, block use, thermal environment.
  static void getStaticParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateVoltageParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateDeviceParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateBlockParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateThermalParams(const KVXEUID& uid, kvxm::Record& params);

  // What a rail supplies, by its internal name.
  static bool isVcuVoltage(const std::string& rail);
  static bool isXcvrAVoltage(const std::string& rail);
  static bool isXcvrDVoltage(const std::string& rail);
  static bool isXcvrCVoltage(const std::string& rail);
  static bool isXcvrBVoltage(const std::string& rail);
  static bool isPSIoVoltage(const std::string& rail);
  static bool isHbmVoltage(const std::string& rail);
  static bool isPsVoltage(const std::string& rail);
  static bool isPsBlockVoltage(const std::string& rail);
  static bool isHic5Voltage(const std::string& rail);
  static bool isPswVoltage(const std::string& rail);
  static bool isNicbVoltage(const std::string& rail);
  static bool isHic5nVoltage(const std::string& rail);
  static bool isIoVccoVoltage(const std::string& rail);
  static bool isArkeonNetVcco(const std::string& rail);

  // A rail by its internal name, as the present part has it; volts are 0 and the name stays when it lacks the
  // rail.
  static bool isValidVoltage(const KVXEUID& uid, const std::string& rail);
  static std::string getInt2ExtVoltName(const KVXEUID& uid, const std::string& rail);
  static float getMinVoltage(const KVXEUID& uid, const std::string& rail);
  static float getNomVoltage(const KVXEUID& uid, const std::string& rail);
  static float getMaxVoltage(const KVXEUID& uid, const std::string& rail);

  // Categories of rails.
  /// Whether the present device has a rail of the category.
  static bool isValidCategory(const KVXEUID& uid, const std::string& category);
  /// Whether a supply text heads a category rather than names a rail.
  static bool isCategoryStr(const std::string& supply);
  /// The keys of all categories, in the order of the supply table.
  static std::vector<std::string> getCategoryList();
  /// The key of a category from its shown text, and the shown text from the key; blank for any other text.
  static std::string getCategoryStr(const std::string& detailed);
  static std::string getCategoryDetailedStr(const std::string& key);
  /// Text and background colour of a power domain: "PMC", "SYSTEM", "LPD", "FPD", "PL", "IO", "BATT".
  static KVXECell::Colors getPowerDomainColorCode(const std::string& domain);

  // Formulas.
  static void updateDeviceTable(const KVXEUID& uid);
  static void updatePowerSummaryTable(const KVXEUID& uid);
  static void updatePowerSupplyTable(const KVXEUID& uid);
  static void updateVoltage(const KVXEUID& uid);
  static void updateStepLoad(const KVXEUID& uid);
  static void updateStaticCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updateDynamicCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updateTotalCurrentPowerSupplyTable(const KVXEUID& uid);
  static void updatePowerupCurrentPowerSupplyTable(const KVXEUID& uid);
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
  /// What a row of the device table shows.
  virtual std::string partSetting(const DeviceRow& row) const;
  /// The architecture's own inputs of the static model.
  virtual void fillDeviceParams(const KVXEUID&, kvxm::Record&) const {}
  virtual void fillBlockParams(const KVXEUID&, kvxm::Record&) const {}
  /// Watts that heat the die besides leakage; must not depend on temperature or static power.
  virtual float onChipDynamicPower(const KVXEUID& uid);
  /// Checks of a voltage that only this architecture has; they run behind the check of its range.
  virtual void checkVoltage(const KVXEUID&, const std::string& /*rail*/, float /*volts*/) const {}

  void initDeviceTable();
  void initPowerSummaryTable();
  void initPowerSupplyTable();
  void initDebugJunctionTempTable();

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

  static std::string domainOfCategory(const std::string& key);
  void createVoltageRow(const std::string& category);
  void createRailRow(const std::string& rail);
  std::vector<std::string> railsOfCategory(const std::string& category) const;
  void writeJunction(kvxm::Record& params);
  static std::string gradeOf(const KVXEUID& uid);
  static std::optional<std::string> beginCurrent(const KVXEUID& uid);
  static float staticOutput(const KVXEUID& uid, int key);
  static void writeLeakageCurrents(const KVXEUID& uid, const KVXETitle& column, float celsius,
                                   std::optional<float> (*shown)(KVXERow* row, float amperes));
  static float debugValue(const KVXEUID& uid, DebugRow row, float fallback);

  std::unordered_map<std::string, KVXECell*> m_voltageCells;  ///< by rail, whether or not the device has it
  std::unordered_map<std::string, KVXECell*>
      m_deviceSettings;  ///< selection cells of the device table by option
  kvxe::RailPowerIndex m_railPower;
  JunctionStatus m_junctionStatus = JunctionStatus::Valid;  ///< written with the temperature, read behind it
};
