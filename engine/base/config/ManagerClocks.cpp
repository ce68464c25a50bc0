// The clocks that a new clock manager brings along.

#include <algorithm>

#include "engine/base/config/ClockConfigImpl.h"

namespace kvxe::detail {

ManagerClocks::ManagerClocks(std::vector<ClockMgrConfig> mgrs, const ConfigIfc<ClockConfig>& clocks)
    : m_mgrs(std::move(mgrs)) {
  for (ClockMgrConfig& mgr : m_mgrs) {
    addInput(mgr, clocks);
    addOutputs(mgr);
  }
}

namespace {

bool isOutputOf(const ClockMgrConfig& mgr, const std::string& clock) {
  return std::any_of(mgr.outputClks.begin(), mgr.outputClks.end(), [&](const OutputClockConfig& output) {
    return output.isInUse && output.clock.name == clock;
  });
}

}  // namespace

/// A clock that exists is taken as it is, and so is one that another of the new managers puts out.
void ManagerClocks::addInput(ClockMgrConfig& mgr, const ConfigIfc<ClockConfig>& clocks) {
  if (mgr.inputClkName.empty()) mgr.inputClkName = mgr.inputClk.name;
  if (mgr.inputClkName.empty()) return;
  const auto existing = clocks.get(mgr.inputClkName);
  const auto isSame = [&](const ClockConfig& clock) { return clock.name == mgr.inputClkName; };
  const bool isNew = !existing && std::none_of(m_newClocks.begin(), m_newClocks.end(), isSame) &&
                     std::none_of(m_mgrs.begin(), m_mgrs.end(), [&](const ClockMgrConfig& other) {
                       return isOutputOf(other, mgr.inputClkName);
                     });
  ClockConfig input = existing ? *existing : mgr.inputClk;
  if (mgr.refClock == kvxeBlank<float>) mgr.refClock = input.frequency;
  if (!isNew) return;
  input.name = mgr.inputClkName;
  if (input.frequency == kvxeBlank<float>) input.frequency = mgr.refClock;
  m_newClocks.push_back(std::move(input));
}

void ManagerClocks::addOutputs(const ClockMgrConfig& mgr) {
  for (const OutputClockConfig& output : mgr.outputClks) {
    if (!output.isInUse) continue;
    ClockConfig& clock = m_newClocks.emplace_back(output.clock);
    if (clock.source.empty()) clock.source = mgr.type + ":" + mgr.name + ":" + clock.name;
  }
}

}  // namespace kvxe::detail
