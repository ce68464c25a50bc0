#pragma once

#include <boost/unordered/unordered_flat_map.hpp>
#include <string>
#include <utility>
#include <vector>

#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXETab.h"

/// The tab of the design's clocks, from which every other estimation tab takes its clock frequencies.
///
/// A tab refers to a clock by its tag, "250.000 MHz (sys_clk)" (kvxe::ClockTag), which it holds as the text
/// of a cell of its own; the power of its rows reads the frequency from that text and nothing else of this
/// tab. A column is a clock column when its formula is updateClockDropdown: that alone gives it the list of
/// all tags, makes it follow a clock that is renamed, and links its cells to the clocks they name.
///
/// How it fits together, one cell at a time, so that no formula reads a column for each of many rows:
///  - the tag cell of a clock row makes the tag of its name and frequency;
///  - the single cell of m_ClockTagTable that reads all tags carries renamed tags into the clock columns, and
///    holds the tags by row for those who look for one;
///  - the cell beside it hands the tags to the clock columns as their drop-down list;
///  - a cell of a clock column reads the one tag that it names.
class KVXEClockTab : public KVXETab {
 public:
  static const KVXETitle m_ClockConfigTable, m_ClkMgrTable;
  static const KVXETitle m_Name, m_Source, m_ClockFreq, m_Fanout, m_FanoutPerSite, m_ClkBufEnable,
      m_SliceClkEnable, m_VccintPwr, m_VccramPwr, m_ClockMgr, m_ClockTag, m_UserComments;
  // Of the clock manager table.
  static const KVXETitle m_ClkMgrType, m_RefClock, m_PhaseShift, m_DivideCounter, m_MultiplyCounter,
      m_VcoFreq, m_VcoRange, m_VccioPwr, m_VccauxPwr, m_InputClkName, m_OutputClkNames, m_PowerDown;
  static const KVXETitle m_Clk0Divide, m_Clk1Divide, m_Clk2Divide, m_Clk3Divide, m_Clk4Divide, m_Clk5Divide,
      m_Clk6Divide;
  static const KVXETitle m_Clk0FanoutRow, m_Clk1FanoutRow, m_Clk2FanoutRow, m_Clk3FanoutRow, m_Clk4FanoutRow,
      m_Clk5FanoutRow, m_Clk6FanoutRow;
  static const KVXETitle m_ClockTagTable, m_TagCount, m_ClockColumnCount, m_RefClockCount;  // hidden, one row

  static const std::string m_FsynStr, m_PllStr, m_DpllStr, m_IopllStr, m_Y7PllStr, m_ClockStr;

  /// Fanout per site of a design that hardly fills the device.
  static constexpr float DefaultFanoutPerSite = 6.5f;
  static constexpr unsigned int RowCount = 500;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEClockTab"; }
  std::string getPlaceholderText() const override { return ""; }

  /// The types of clock managers that the selected device has, in the order of their drop-down list.
  virtual std::vector<std::string> getClockMgrTypes() const { return {}; }
  /// The frequency in MHz (least, most) of the oscillator of a type; nothing for an unknown type.
  virtual std::optional<std::pair<float, float>> getVcoLimits(const std::string& type) const;

  /// The tag of the clock with that name; empty when there is none.
  std::string getClockTag(const std::string& name);
  /// Replaces the contents of `list` by the tags of all clocks in the order of their rows.
  void getClockdropdown(std::vector<std::string>& list);
  /// The row of a clock table that has this name; null when there is none.
  static KVXERow* getRowIfClockExisting(const std::string& name, KVXETable* table);
  /// Watts of the clock managers of one type, 0 when there are none.
  static float getClkMgrPower(const KVXEUID& uid, const std::string& type);
  /// Clock managers of one type, which are the rows of that type that have a name.
  static int getNumClkMgrsUsed(const KVXEUID& uid, const std::string& type);

  /// The row of the first clock with that tag, null when there is none. The formula that asks depends on the
  /// list of tags, so that it follows when a clock comes or goes.
  static KVXERow* findClockRow(const KVXEUID& uid, const std::string& tag);

  // Formulas.

  /// The formula of every clock column of every tab. The cell keeps the text that was put into it.
  static void updateClockDropdown(const KVXEUID& uid);
  /// A clock that a manager puts out has a source beside those that the list offers.
  static void updateClockSource(const KVXEUID& uid);
  static void clockFreqChanged(const KVXEUID& uid);
  static void updateClockTagRow(const KVXEUID& uid);
  static void updateClockTagList(const KVXEUID& uid);
  static void updateClockDropdownLists(const KVXEUID& uid);
  /// Offers the types of the selected device.
  static void updateClkMgrType(const KVXEUID& uid);
  /// The frequency of the oscillator, with a warning when the type cannot run at it.
  static void updateVCOFreq(const KVXEUID& uid);
  static void updateVccintActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccramActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccintioActivePowerInPowerTable(const KVXEUID& uid);
  static void updateVccauxActivePowerInPowerTable(const KVXEUID& uid);

 protected:
  /// What the architectures' clock tables differ in.
  struct ClockFormulas {
    KVXEFormula name;
    KVXEFormula fanoutPerSite;
    KVXEFormula power;
  };

  /// What a clock row that has power hands to the models.
  struct ClockRow {
    std::string tag;
    float megahertz = 0.0f;
    float volts = 0.0f;  ///< of the core rail
    int fanout = 0;
    float fanoutPerSite = DefaultFanoutPerSite;
    float bufferEnable = 1.0f;
    float sliceEnable = 0.5f;
  };
  /// Nothing for a row without a frequency, without loads or without a voltage.
  static std::optional<ClockRow> readClockRow(const KVXEUID& uid);
  /// Fills the fanout of a clock record, and what the whole design uses, from the other tabs' utilization
  /// tables.
  template <class Params>
  static void fillLoads(const KVXEUID& uid, const ClockRow& clock, Params& params) {
    using I = typename Params::IntEnum;
    const DesignUse use = readDesignUse(uid);
    params[Params::StringEnum::CLOCK_TAG] = clock.tag;
    params[I::FANOUT] = clock.fanout;
    params[Params::FloatEnum::FANOUT_PER_SITE] = clock.fanoutPerSite;
    params[I::FSR_USED] = use.regions;
    params[I::FF_USED] = use.registers;
    params[I::BRAM_USED] = use.blockRams;
    params[I::WRAM_USED] = use.wideRams;
    params[I::DSP_USED] = use.dsps;
    params[I::IO_USED] = use.ios;
  }
  /// Fills how often the network of a clock switches.
  template <class Params>
  static void fillActivity(const ClockRow& clock, Params& params) {
    using F = typename Params::FloatEnum;
    params[F::FREQUENCY] = clock.megahertz;
    params[F::BUFFER_ENABLE] = clock.bufferEnable;
    params[F::SLICE_ENABLE] = clock.sliceEnable;
    params[F::VCCINT] = clock.volts;
  }

  /// Prints what went into the models and what came out, while the parameter LOG_CLOCK_DETAILS is on.
  static void logDetails(const ClockRow& clock, float vccintWatts, float vccramWatts);

  /// The stored texts of a column without a dependency for the formula that asks, for what is decided once.
  static std::vector<std::string> peekColumn(KVXETable* table, const KVXETitle& column);

  /// A name of the prefix and the lowest number that the column does not hold yet.
  static std::string unusedName(KVXETable* table, const KVXETitle& column, const std::string& prefix);

  /// What the architectures' clock manager tables differ in.
  struct ManagerFormulas {
    KVXEFormula name;
    KVXEFormula phaseShift;
    KVXEFormula power;
  };

  void initClockConfigTable(const ClockFormulas& formulas);
  KVXETable* initClkMgrTable(const ManagerFormulas& formulas);
  void initClockTagTable();

  /// The row of the utilization table for the clocks themselves.
  static kvxe::UtilizationRow clockUtilizationRow();
  /// The row for the clock managers that `Type` names.
  template <const std::string& Type>
  static kvxe::UtilizationRow managerUtilizationRow() {
    return {
        .type = Type,
        .resource = Type,
        .countUsed = [](const KVXEUID& uid) { return std::optional(float(getNumClkMgrsUsed(uid, Type))); },
        .sumPower = [](const KVXEUID& uid) { return std::optional(getClkMgrPower(uid, Type)); },
        .overflow = managerOverflowText(Type)};
  }

 private:
  /// A tag that was made anew, changed or not.
  struct TagChange {
    std::string from, to;
    const KVXECell* cell;  ///< the tag's, to tell it by: it may be gone with its row
  };
  /// The first row that holds a tag, and how many rows do.
  struct TagRows {
    unsigned int first = 0;
    unsigned int count = 0;
  };
  using TagIndex = boost::unordered_flat_map<std::string, TagRows>;
  using Renames = boost::unordered_flat_map<std::string, std::string>;

  /// Counts over the whole design; a tab that is missing counts as none.
  struct DesignUse {
    int regions = 0;
    int registers = 0;
    int blockRams = 0;
    int wideRams = 0;
    int dsps = 0;
    int ios = 0;
  };
  static DesignUse readDesignUse(const KVXEUID& uid);

  /// Gives the column of the manager's type its list and its tool tip.
  void offerClkMgrTypes(KVXETable* table) const;
  static std::string managerOverflowText(const std::string& type);
  void readClockTags();
  Renames findRenames(const std::vector<TagChange>& changes) const;
  std::vector<KVXECell*> cellsThatMayName(const std::vector<TagChange>& changes);
  void carryRenames(const Renames& renames, const std::vector<TagChange>& changes);
  /// Brings the index of tags up to date without a dependency for the formula that asks.
  void refreshTagIndex();

  TagIndex m_tagRows;
  std::vector<std::string> m_tags;      // distinct, in the order of the rows
  std::vector<TagChange> m_tagChanges;  // since the index was made
};
