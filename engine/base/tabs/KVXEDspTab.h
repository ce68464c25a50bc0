#pragma once

#include <optional>
#include <span>
#include <string>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXEColumn.h"
#include "engine/base/workbook/KVXETab.h"

/// The tab of the DSP slices: one design module per row, which says how many slices it uses and which of
/// their stages. The architectures add what only their slices have.
class KVXEDspTab : public KVXETab {
 public:
  static const KVXETitle m_DspConfigTable;
  static const KVXETitle m_Name, m_Clock, m_ToggleRate, m_MultUsed, m_MultPipelineUsed, m_PreaddUsed,
      m_AdRegUsed, m_VccintPower, m_UserComments;

  /// The row of the utilization table.
  static const std::string m_dspStr;
  static const std::string m_yesStr, m_noStr;

  static constexpr float DefaultToggleRate = 0.125f;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEDspTab"; }
  std::string getPlaceholderText() const override { return ""; }

  /// The formula of the rail in the power table.
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);

 protected:
  /// What may be entered for a stage of the slice.
  enum class Stage {
    Unused,  ///< always "No"
    Used,    ///< always "Yes"
    Free     ///< what the user says
  };
  /// Brings a "Yes"/"No" cell in line: a fixed one shows its value and takes no entry, a free one keeps the
  /// user's entry and shows the column's default without one.
  static void applyStage(const KVXEUID& uid, Stage stage);
  static bool isUsed(const KVXEUID& uid, const KVXETitle& column);

  // The columns that the architectures share.
  static KVXEColumn nameColumn();
  static KVXEColumn countColumn(const KVXETitle& title, const char* toolTip);
  static KVXEColumn clockColumn();
  static KVXEColumn toggleRateColumn();
  static KVXEColumn multColumn(KVXEFormula formula);
  static KVXEColumn multPipelineColumn(KVXEFormula formula);
  static KVXEColumn preaddColumn(KVXEFormula formula, bool isEditable);
  static KVXEColumn adRegColumn(KVXEFormula formula);
  static KVXEColumn powerColumn(KVXEFormula formula);
  static KVXEColumn commentsColumn();

  // Readers of a row. Each gives nothing where the row lacks what it reads.

  /// Volts of the core rail.
  static std::optional<float> getVccintN(const KVXEUID& uid);
  /// MHz of the row's clock.
  static std::optional<float> getClockFreq(const KVXEUID& uid);
  /// Slices of the row, at least 1.
  static std::optional<int> getSliceCount(const KVXEUID& uid, const KVXETitle& column);
  /// Transitions per clock of the row's operands and results.
  static float getSignalRate(const KVXEUID& uid);

  /// What a row that has power uses.
  struct DspRow {
    int slices = 0;
    float megahertz = 0.0f;
    float volts = 0.0f;
    float toggleRate = 0.0f;
  };
  /// Nothing for a row without slices, clock frequency or voltage.
  static std::optional<DspRow> readDspRow(const KVXEUID& uid, const KVXETitle& countColumn);

  /// Fills the inputs that the records of all kinds of slices share.
  template <class Params>
  static void fillSlices(const KVXEUID& uid, const DspRow& use, Params& params) {
    using I = typename Params::IntEnum;
    using F = typename Params::FloatEnum;
    params[Params::StringEnum::DEVICE] = kvxe::readDevice(uid);
    params[I::SLICES] = use.slices;
    params[I::MULT_USED] = isUsed(uid, m_MultUsed);
    params[I::MREG_USED] = isUsed(uid, m_MultPipelineUsed);
    params[I::PREADD_USED] = isUsed(uid, m_PreaddUsed);
    params[I::ADREG_USED] = isUsed(uid, m_AdRegUsed);
    params[F::FREQUENCY] = use.megahertz;
    params[F::VCCINT] = use.volts;
    params[F::TOGGLE_RATE] = use.toggleRate;
  }

  /// The formula of the utilization table, given the column that counts slices.
  template <const KVXETitle& Count>
  static void updateUtilizationOf(const KVXEUID& uid) {
    static const kvxe::UtilizationRow row = utilizationRow(&kvxe::sumOfColumn<m_DspConfigTable, Count>);
    if (kvxe::isInTable(uid, m_UtilTable, "utilization of DSP slices")) kvxe::updateUtilizationCell(uid, row);
  }

  /// All tables of the tab.
  void initTables(std::span<const KVXEColumn> columns, KVXEFormula utilization);

 private:
  static kvxe::UtilizationRow utilizationRow(std::optional<float> (*countUsed)(const KVXEUID& uid));
};
