#pragma once

#include <memory>
#include <span>
#include <string>

#include "engine/morlan/KVXEMorlanSummaryTab.h"
#include "models/catalogue/SomBoard.h"

/// The summary of a module: power at the board's input, and where on the board it turns into heat. The device
/// is estimated as ever; its rails, with the interfaces that the user counts here, load the model of the
/// board. There are two kinds of board, with tables of their own; which one is decided when the tab is made.
class KVXESomMorlanSummaryTab : public KVXEMorlanSummaryTab {
 public:
  static const KVXETitle m_PowerSummaryTable, m_PowerSummaryOption, m_PowerSummarySelection;
  static const KVXETitle m_ThermalLoadingTable, m_ThermalLoadingTableSM4, m_ThermalLoadingComponent,
      m_ThermalLoadingPower;
  static const KVXETitle m_VCRequirementsTable, m_BankRail, m_BankVoltage, m_BankCurrent, m_BankVoltageRange;
  static const KVXETitle m_IoIntfTable, m_IoKey, m_IoValue;

  // Rows of the power summary that only a module has.
  static const std::string m_somTotalPowerStr, m_somJunctionTempStr;
  // Components of the boards.
  static const std::string m_sm6Str, m_sm4Str, m_ddr4Str, m_lpddr4Str, m_u170Str, m_u167Str, m_u166Str,
      m_u151Str, m_u165Str, m_pcbStr, m_emmcStr;
  // Supplies that the carrier card gives to the board.
  static const std::string m_vccSomStr, m_vccoHpaStr, m_vccoHpbStr, m_vccoHpcStr, m_vccoHdaStr, m_vccoHdbStr,
      m_vccoHdcStr, m_vccBattStr;
  // Interfaces that the user counts.
  static const std::string m_qspiStr, m_emmcSd0Str, m_spiStr, m_i2cStr, m_usbStr, m_gpiosStr, m_gpioLedsStr,
      m_dualGemStr, m_bank50xStr;

  using KVXEMorlanSummaryTab::KVXEMorlanSummaryTab;
  std::string className() const override { return "KVXESomMorlanSummaryTab"; }
  std::string getPBSuffix() override;
  void init() override;

  /// Whether the summary in the cell's book is that of an SM4 board; else it is an SM6.
  static bool isSM4(const KVXEUID& uid);
  /// Watts of all components, and of the battery domain of the processing system.
  static float getSomTotalPower(const KVXEUID& uid);
  /// What the percentages of the on-chip table relate to: the total of the table of totals.
  static float getTotalPower(const KVXEUID& uid);
  /// Whether a supply of the board is overloaded.
  static bool hasExceededLimits(const KVXEUID& uid);
  /// The text for a limit of the board, by the name of its slot ("U166_DA9130_OVERLIMIT"), that is exceeded
  /// by so much. False, with an empty text, for a limit without one.
  static bool getBoardViolationMessage(const std::string& key, float overByMilliwatts, std::string& message);
  static bool getBoardViolationMessageSM4(const std::string& key, float overByMilliwatts,
                                          std::string& message);

  // The input of the board's model, KVXMMorlanSM6Params or KVXMMorlanSM4Params.
  static void getSomParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateSomPlParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateSomPsParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateSomDdrParams(const KVXEUID& uid, kvxm::Record& params);
  static void updateSomEmmcParams(const KVXEUID& uid, kvxm::Record& params);

  // Formulas of the power summary.
  static void updateSomTotalPower(const KVXEUID& uid);
  static void updateSomCharacterizationLabel(const KVXEUID& uid);
  // Of the thermal loading.
  static void updateSomFpgaPower(const KVXEUID& uid);
  static void updateSomDdrPower(const KVXEUID& uid);
  static void updateU170Power(const KVXEUID& uid);
  static void updateU167Power(const KVXEUID& uid);
  static void updateU166Power(const KVXEUID& uid);
  static void updateU151Power(const KVXEUID& uid);
  static void updateU165Power(const KVXEUID& uid);
  static void updatePcbPower(const KVXEUID& uid);
  static void updateSomEmmcPower(const KVXEUID& uid);
  static void updateSomFpgaPowerSM4(const KVXEUID& uid);
  static void updateSomLpddrPower(const KVXEUID& uid);
  static void updateU170PowerSM4(const KVXEUID& uid);
  static void updateU167PowerSM4(const KVXEUID& uid);
  static void updatePcbPowerSM4(const KVXEUID& uid);
  static void updateSomEmmcPowerSM4(const KVXEUID& uid);
  // Of the voltage and current requirements.
  static void updateBankRail(const KVXEUID& uid);
  static void updateBankVoltage(const KVXEUID& uid);
  static void updateBankCurrent(const KVXEUID& uid);
  static void updateVoltageRange(const KVXEUID& uid);
  // Of the totals: TOTAL is the board's, DYNAMIC what the use of the device adds, STATIC the rest.
  static void updateSomPowerInfoTable(const KVXEUID& uid);

 protected:
  std::string productName() const override;
  SummaryPlace summaryPlace() const override;
  std::span<const kvxe::OnchipCategory> staticCategories() const override;
  std::span<const kvxe::OnchipStaticTerm> staticTerms() const override;
  float percentageBase(const KVXEUID& uid) override;

 private:
  void initPowerSummaryTable();
  void initThermalLoadingTable();
  void initThermalLoadingTableSM4();
  void fillThermalLoadingTable(const KVXETitle& title, std::span<const KVXEFixedRow> rows);
  void initVCRequirementsTable();
  void initIoInterfaceTable();
  static std::unique_ptr<kvxm::Record> runBoard(const KVXEUID& uid);
  /// The messages of the limits that the board exceeds, of one component's regulators or of all.
  static std::string violationsOf(const KVXEUID& uid, kvxm::Record& result,
                                  const kvxm::BoardComponent* component);
  static void updateHeat(const KVXEUID& uid, const KVXETitle& table, kvxm::BoardComponent component);
};
