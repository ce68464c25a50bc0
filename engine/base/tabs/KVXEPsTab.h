#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXETab.h"
#include "models/common/ProcessorPower.h"

/// The tab of the processing system: what of it is used, and what its power domains draw. Its rows are those
/// that the architecture's data declare; in a new book nothing is in use.
///
/// Which supply a result is drawn from follows from its row, and the rows never change, so the cells are kept
/// by supply: a supply's formula reads its own cells, and a domain's formula those of its supplies.
class KVXEPsTab : public KVXETab {
 public:
  static const KVXETitle m_PsStateSummaryTable, m_PsStateSummaryDomainCol, m_PsStateSummaryStateCol,
      m_PsStateSummaryPowerCol;
  static const KVXETitle m_PsProcessorTable, m_PsPeripheralTable, m_PsPllTable;
  // Of the three; the last are the parts of the power by what the supplies feed.
  static const KVXETitle m_Block, m_Count, m_Frequency, m_Load, m_CorePower, m_PadPower, m_BiasPower;
  static const KVXETitle m_PsMemoryTable, m_MemoryOption, m_MemorySelection;

  // Domains.
  static const std::string m_pmcStr, m_lpdStr, m_fpdStr, m_batteryStr;
  // States of a domain.
  static const std::string m_onStr, m_offStr;
  // Rows of the memory interface.
  static const std::string m_memoryTypeStr, m_dataWidthStr, m_dataRateStr, m_activityStr;

  using KVXETab::KVXETab;
  std::string className() const override { return "KVXEPsTab"; }
  std::string getPlaceholderText() const override { return ""; }
  void init() override;

  // Formulas.

  /// The parts of the power of a row's block and their sum; blank when it is not in use. A block of a domain
  /// that is off draws nothing.
  static void updateBlockRow(const KVXEUID& uid);
  /// Puts the engine's message on a count that is not offered; its row then has no power.
  static void checkCount(const KVXEUID& uid);
  /// Warns of a frequency that the speed grade does not reach.
  static void updateFrequency(const KVXEUID& uid);
  /// As for a block, of the memory interface.
  static void updateMemoryRow(const KVXEUID& uid);
  /// The lists of the memory interface, and the values of what the user leaves open.
  static void updateMemoryOption(const KVXEUID& uid);
  static void updateRail(const KVXEUID& uid);
  static void updateDomainPower(const KVXEUID& uid);

 protected:
  /// A power domain and its supplies.
  struct Domain {
    const std::string* name;
    std::vector<std::string> rails;
    bool canBeOff = false;
  };
  /// What a block draws, by what the supplies feed: logic, pads, analogue parts.
  struct BlockPower {
    float core = 0.0f;
    float pad = 0.0f;
    float bias = 0.0f;
  };
  /// What a record needs besides the device.
  struct BlockUse {
    std::string block;  ///< or the kind of memory
    int count = 0;
    float megahertz = 0.0f;
    float load = 0.0f;
    float coreVolts = 0.0f;
    float padVolts = 0.0f;
    float biasVolts = 0.0f;
  };

  virtual const kvxm::ProcessorBlocks& blocks() const = 0;
  /// In the order of the summary.
  virtual const std::vector<Domain>& domains() const = 0;
  virtual std::vector<std::string> memoryTypes() const { return blocks().getMemoryTypes(); }
  /// As part names write it.
  virtual std::string speedGrade() const;
  /// Runs the architecture's model; `domain` tells which of several.
  virtual BlockPower calculate(const std::string& device, std::string_view domain,
                               const BlockUse& use) const = 0;

  /// Fills a record, runs its model and gives the results.
  template <class Params, class Model>
  static BlockPower runModel(const std::string& device, const BlockUse& use) {
    using F = typename Params::FloatEnum;
    Params params;
    params[Params::StringEnum::DEVICE] = device;
    params[Params::StringEnum::BLOCK] = use.block;
    params[Params::IntEnum::COUNT] = use.count;
    params[F::FREQUENCY] = use.megahertz;
    params[F::LOAD] = use.load;
    params[F::CORE_VOLTAGE] = use.coreVolts;
    params[F::PAD_VOLTAGE] = use.padVolts;
    params[F::BIAS_VOLTAGE] = use.biasVolts;
    Model::getGlobal().calculate(params);
    return {params[F::CORE_POWER], params[F::PAD_POWER], params[F::BIAS_POWER]};
  }

 private:
  void initStateTable();
  void initBlockTable(const KVXETitle& title, kvxm::ProcessorGroup group, const std::string& widgetTitle);
  void addBlockRow(KVXETable& table, const kvxm::ProcessorBlock& block);
  void initMemoryTable();
  void initPowerTable();
  /// Notes that the cell holds a power from the supply; an empty one is none.
  void drawFrom(std::string_view rail, KVXECell* cell);
  /// The block of the formula's row; null, with a report, in a table without blocks.
  const kvxm::ProcessorBlock* blockOf(const KVXEUID& uid) const;
  bool isDomainOn(std::string_view domain) const;
  void writeRow(const KVXEUID& uid, const std::optional<BlockPower>& power) const;
  std::optional<BlockUse> readBlock(const KVXEUID& uid, const kvxm::ProcessorBlock& block) const;
  std::optional<BlockUse> readMemory(const KVXEUID& uid) const;
  std::string memoryOption(const KVXETable& table, const std::string& option) const;

  std::map<std::string, std::vector<KVXECell*>, std::less<>> m_drawn;  ///< by supply
  std::map<std::string, KVXECell*, std::less<>> m_domainStates;
};
