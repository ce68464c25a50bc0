// What the user is told about an overloaded supply of the board.

#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/morlan/SomBoardPower.h"

using kvxm::BoardOutput;

namespace {

/// A limit by its key, with its text for each kind of board; null where the board says nothing about it.
struct Violation {
  BoardOutput output;
  const char* key;
  const char* sm6;
  const char* sm4;
};

// Texts that both boards share.
const char* const xcvreLdoMsg = "Power exceeded on the XCVRE rails by %.3f mW. Reduce XCVRE usage.";
const char* const psIoMsg =
    "Power exceeded on the Processing Subsystem/eMMC/QSPI/TPM/EEPRAM rails by %.3f mW.\n\nReduce PSIO or "
    "eMMC/QSPI/TPM/EEPRAM usage.";
const char* const xcvrbMsg = "Power exceeded on the XCVRB rails by %.3f mW. Reduce XCVRB usage.";
const char* const bramMsg =
    "Power exceeded on the PL IO and BRAM Rail by %.3f mW. Reduce MSIO power or BRAM power.";
const char* const emmcMsg = "Power exceeded on the eMMC rail by %.3f mW. Reduce eMMC usage.";
const char* const auxMsg =
    "Power exceeded on the PL IO/CLKMGR/XCVRB rail by %.3f mW. Reduce Clock Manager Usage, PLIO usage or "
    "XCVRB "
    "power.";
const char* const psMsg =
    "Power exceeded on the PS Rail by %.3f mW. Reduce PS Processor, Memory or Peripheral power.";

const Violation violations[] = {
    {BoardOutput::U170_DA9062_LDO1, "U170_DA9062_LDO1_OVERLIMIT", xcvreLdoMsg, xcvreLdoMsg},
    {BoardOutput::U170_DA9062_LDO2, "U170_DA9062_LDO2_OVERLIMIT", psIoMsg, psIoMsg},
    {BoardOutput::U170_DA9062_LDO3, "U170_DA9062_LDO3_OVERLIMIT", nullptr, nullptr},
    {BoardOutput::U170_DA9062_LDO4, "U170_DA9062_LDO4_OVERLIMIT",
     "Current exceeded on the DDR4 interface by %.3f mW. Reduce interface width or speed.",
     "Current exceeded on the LPDDR4 interface by %.3f mW. Reduce interface width or speed."},
    {BoardOutput::U170_DA9062_BUCK1, "U170_DA9062_BUCK1_OVERLIMIT", xcvrbMsg, xcvrbMsg},
    {BoardOutput::U170_DA9062_BUCK2, "U170_DA9062_BUCK2_OVERLIMIT", bramMsg, bramMsg},
    {BoardOutput::U170_DA9062_BUCK3, "U170_DA9062_BUCK3_OVERLIMIT", emmcMsg, emmcMsg},
    {BoardOutput::U170_DA9062_BUCK4, "U170_DA9062_BUCK4_OVERLIMIT", auxMsg, auxMsg},
    {BoardOutput::U166_DA9130, "U166_DA9130_OVERLIMIT",
     "Power exceeded on the SM6 Core rail by %.3f mW. Reduce power for the SM6 Logic/Routing/Clock/BRAM/DSP "
     "resources.",
     nullptr},
    {BoardOutput::U167_DA9131_CH1, "U167_DA9131_CH1_OVERLIMIT", psMsg, psMsg},
    {BoardOutput::U167_DA9131_CH2, "U167_DA9131_CH2_OVERLIMIT",
     "Power exceeded on the Video Codec (VCU) Rail by %.3f mW. Reduce VCU power.",
     "Power exceeded on the SM4 Core rail by %.3f mW. Reduce power for the SM4 Logic/Routing/Clock/BRAM/DSP "
     "resources."},
    {BoardOutput::U165_MPS3805A_A, "U165_MPS3805A_A_OVERLIMIT",
     "Power exceeded on the XCVRE rails by %.3f mW reduce XCVRE usage.", nullptr},
    {BoardOutput::U151_MPS3805A_B, "U151_MPS3805A_B_OVERLIMIT", xcvrbMsg, nullptr},
    {BoardOutput::U21_TPS51200DRCT, "U21_TPS51200DRCT_OVERLIMIT",
     "Power exceeded on the DDR4 Rail by %.3f mW. Reduce DDR4 power.",
     "Power exceeded on the LPDDR4 Rail by %.3f mW. Reduce LPDDR4 power."},
};

std::string withNumber(std::string text, float milliwatts) {
  const std::string place = "%.3f";
  return text.replace(text.find(place), place.size(), KVXMHelperUtils::formatFixed(milliwatts, 3));
}

bool findMessage(const std::string& key, const char* Violation::*board, float milliwatts,
                 std::string& message) {
  message.clear();
  for (const Violation& violation : violations)
    if (key == violation.key && violation.*board) message = withNumber(violation.*board, milliwatts);
  return !message.empty();
}

}  // namespace

bool KVXESomMorlanSummaryTab::getBoardViolationMessage(const std::string& key, float overByMilliwatts,
                                                       std::string& message) {
  return findMessage(key, &Violation::sm6, overByMilliwatts, message);
}

bool KVXESomMorlanSummaryTab::getBoardViolationMessageSM4(const std::string& key, float overByMilliwatts,
                                                          std::string& message) {
  return findMessage(key, &Violation::sm4, overByMilliwatts, message);
}

std::string KVXESomMorlanSummaryTab::violationsOf(const KVXEUID& uid, kvxm::Record& result,
                                                  const kvxm::BoardComponent* component) {
  const bool isSmall = isSM4(uid);
  const kvxm::SomBoard* board = kvxm::findSomBoard(isSmall ? m_sm4Str : m_sm6Str);
  std::string all;
  if (!board) return all;
  for (const Violation& violation : violations) {
    const float milliwatts = *result.findFloat(kvxm::BoardKey::overlimitOf(violation.output));
    if (milliwatts <= 0.0f || (component && board->heatedBy(violation.output) != *component)) continue;
    std::string message;
    const bool isTold = isSmall ? getBoardViolationMessageSM4(violation.key, milliwatts, message)
                                : getBoardViolationMessage(violation.key, milliwatts, message);
    if (isTold) all += (all.empty() ? "" : "\n") + message;
  }
  return all;
}

bool KVXESomMorlanSummaryTab::hasExceededLimits(const KVXEUID& uid) {
  const KVXESummaryTab* tab = tabOf(uid);
  const KVXETable* table =
      tab ? tab->getTable(isSM4(uid) ? &m_ThermalLoadingTableSM4 : &m_ThermalLoadingTable) : nullptr;
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    KVXECell* cell = table->getCellAt(i, &m_ThermalLoadingPower);
    readEntry(cell);  // its message follows its value
    if (cell->getSeverity() == KvxSeverity::ERROR) return true;
  }
  return false;
}
