#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEColumn.h"
#include "engine/base/workbook/KVXETab.h"
#include "models/catalogue/IoStandards.h"

/// The tab of the design's IO pins, one interface a row: signals of one standard on one clock. The standard
/// decides which VCCO rail the pins draw from. Power that a termination at the far end of a line burns is
/// drawn from a rail, but heats something else: it is kept apart, in a column and a table of its own.
class KVXEIoTab : public KVXETab {
 public:
  static const KVXETitle m_IoConfigTable;
  static const KVXETitle m_Name, m_IoType, m_IoStandard, m_Inputs, m_Outputs, m_Bidirs, m_TotalPins, m_Clock,
      m_ToggleRate, m_DataRate, m_OutputEnable, m_InputTermination, m_OutputTermination, m_TermDisable,
      m_LoadCapacitance, m_BankVoltage, m_UserComments;
  static const KVXETitle m_VccoRail, m_VccintPower, m_VccintioPower, m_VccauxPower, m_VccoPower,
      m_OffChipPower;
  static const KVXETitle m_OffChipPowerTable;  ///< m_InternalRailColumn and m_ActivePowerColumn, by VCCO rail

  static const std::string m_ioStr;  ///< the row of the utilization table for all pins together

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEIoTab"; }
  std::string getPlaceholderText() const override { return ""; }

  // Formulas.

  static void updateIoType(const KVXEUID& uid);
  static void updateIoStandard(const KVXEUID& uid);
  static void updateInputTermination(const KVXEUID& uid);
  static void updateOutputTermination(const KVXEUID& uid);
  static void updateTotalPins(const KVXEUID& uid);
  /// The rail of the row's bank and its voltage, by the standard.
  static void updateBankVoltage(const KVXEUID& uid);
  static void updateIoConfigPowerRow(const KVXEUID& uid);
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccintioActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccauxActivePowerInPowerTable(const KVXEUID& uid);
  /// Of a VCCO rail: what stays on the chip, and in the other table what leaves it.
  static void updateVccoActivePowerInPowerTable(const KVXEUID& uid);
  static void updateUtilizationTable(const KVXEUID& uid);

 protected:
  /// What a row that has power hands to the model of its bank.
  struct IoRow {
    std::string standard, inputTermination, outputTermination, dataRate;
    int inputs = 0;
    int outputs = 0;
    int bidirectionals = 0;
    float megahertz = 0.0f;
    float toggleRate = 0.125f;
    float outputEnable = 1.0f;
    float termDisable = 0.0f;
    float loadCapacitance = 5.0f;
    float vcco = 0.0f;
    float vccaux = 0.0f;
    float vccintio = 0.0f;
    float vccint = 0.0f;  ///< 0 leaves the nets of the fabric out
  };
  /// Watts.
  struct IoResult {
    float vccint = 0.0f;
    float vccintio = 0.0f;
    float vccaux = 0.0f;
    float vcco = 0.0f;
    float offChip = 0.0f;
  };
  /// A kind of banks: how the user calls it, what the device counts, and what the models know of it.
  struct Bank {
    std::string type;
    std::string resource;
    const kvxm::IoQueries* standards = nullptr;
    IoResult (*power)(const KVXEUID& uid, const IoRow& row) = nullptr;
  };
  /// The kinds of banks of the architecture; the device may lack some.
  virtual std::span<const Bank> banks() const = 0;
  /// The rail from which the comparators of inputs draw, by its internal name.
  virtual std::string auxiliaryRail() const = 0;
  /// Columns behind the standard that only this architecture has.
  virtual std::vector<KVXEColumn> bankColumns() const { return {}; }
  /// The formula of the pins of a row, which an architecture may check further.
  virtual KVXEFormula totalPinsFormula() const { return &updateTotalPins; }

  template <class Params, class Model>
  static IoResult calculatePins(const KVXEUID& uid, const IoRow& row) {
    using I = typename Params::IntEnum;
    using F = typename Params::FloatEnum;
    using S = typename Params::StringEnum;
    Params params;
    params[S::DEVICE] = kvxe::readDevice(uid);
    params[S::STANDARD] = row.standard;
    params[S::INPUT_TERMINATION] = row.inputTermination;
    params[S::OUTPUT_TERMINATION] = row.outputTermination;
    params[S::DATA_RATE] = row.dataRate;
    params[I::INPUTS] = row.inputs;
    params[I::OUTPUTS] = row.outputs;
    params[I::BIDIRS] = row.bidirectionals;
    params[F::FREQUENCY] = row.megahertz;
    params[F::TOGGLE_RATE] = row.toggleRate;
    params[F::OUTPUT_ENABLE] = row.outputEnable;
    params[F::TERM_DISABLE] = row.termDisable;
    params[F::LOAD_CAPACITANCE] = row.loadCapacitance;
    params[F::VCCO] = row.vcco;
    params[F::VCCAUX] = row.vccaux;
    params[F::VCCINTIO] = row.vccintio;
    params[F::VCCINT] = row.vccint;
    Model::getGlobal().calculate(params);
    return {params[F::VCCINT_POWER], params[F::VCCINTIO_POWER], params[F::VCCAUX_POWER],
            params[F::VCCO_POWER], params[F::OFF_CHIP_POWER]};
  }

  void initTables();

  static const std::string& readText(KVXERow* row, const KVXETitle& column);
  /// Gives the formula's cell a list of its own, or back the column's when that is the same.
  static void offerInCell(const KVXEUID& uid, const std::vector<std::string>& list);

 private:
  /// What the selected device has of the kinds of banks, and the lists that follow.
  struct Offer {
    std::uint32_t present = 0;  ///< a bit for each kind
    std::vector<const Bank*> banks;
    std::vector<std::string> types, standards;
  };
  /// Where the pins of a row are; null for nowhere.
  struct Place {
    const Bank* bank = nullptr;
    const kvxm::IoStandard* standard = nullptr;
  };
  struct RailSum {
    double onChip = 0.0;
    double offChip = 0.0;
  };

  void initIoConfigTable();
  void initPowerTable();
  void initOffChipPowerTable();
  void initUtilizationTable();

  static KVXEIoTab* tabOf(const KVXEUID& uid);
  /// Kept as long as the device has the same kinds of banks.
  const Offer& offer() const;
  std::vector<std::string> vccoRails() const;
  /// The first bank with the standard for a row without a type.
  Place findPlace(KVXERow* row) const;
  static Place findPlace(const KVXEUID& uid);
  static std::optional<float> countPinsOfBank(const KVXEUID& uid);
  /// The pins of all kinds of banks that the device has.
  static std::optional<float> availablePins(const KVXEUID& uid);
  static std::optional<IoRow> readIoRow(const KVXEUID& uid);
  void readVccoSums();
  void writeVccoSum(const KVXEUID& uid) const;

  mutable Offer m_offer;
  // The sums of all rails stand behind one cell: whoever evaluates it may read them, and no other cell comes
  // to depend on every row.
  KVXECell* m_vccoRun = nullptr;
  std::map<std::string, RailSum> m_vccoSums;
};
