#include "engine/base/tabs/KVXEClockManagers.h"

#include <algorithm>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXERow.h"

namespace kvxe {

namespace {

using Tab = KVXEClockTab;

const KVXETitle* const results[] = {&Tab::m_VccioPwr, &Tab::m_VccintPwr, &Tab::m_VccauxPwr, &Tab::m_VccramPwr,
                                    &Tab::m_Power};
const KVXETitle* const outputDivides[] = {&Tab::m_Clk0Divide, &Tab::m_Clk1Divide, &Tab::m_Clk2Divide,
                                          &Tab::m_Clk3Divide, &Tab::m_Clk4Divide, &Tab::m_Clk5Divide,
                                          &Tab::m_Clk6Divide};

// Slots that the records of all types have.
enum TextKey { DeviceKey = 1, StateKey = 2, PhaseShiftKey = 3 };
enum FloatKey { RefClockKey = 1, PowerDownKey = 7 };
constexpr int FirstOutputKey = 1;

}  // namespace

bool fillClockManager(const ClockManagerModel& model, const KVXEUID& uid, kvxm::Record& record) {
  KVXERow* row = uid.getRow();
  for (const ClockManagerRail& rail : model.rails) {
    const std::optional<float> volts = readVoltage(uid, rail.rail);
    if (!volts) return false;
    *record.findFloat(rail.voltageKey) = *volts;
  }
  const float reference = readNumber(row, Tab::m_RefClock, 0.0f);
  const int divide = readCount(row, Tab::m_DivideCounter);
  const int multiply = readCount(row, Tab::m_MultiplyCounter);
  if (!(reference > 0.0f) || divide <= 0 || multiply <= 0) return false;
  *record.findString(DeviceKey) = readDevice(uid);
  *record.findString(StateKey) = "ON";
  if (std::string* shift = record.findString(PhaseShiftKey)) *shift = readText(row, Tab::m_PhaseShift);
  *record.findFloat(RefClockKey) = reference;
  *record.findFloat(PowerDownKey) = readNumber(row, Tab::m_PowerDown, 0.0f);
  *record.findInt(model.divideKey) = divide;
  *record.findInt(model.multiplyKey) = multiply;
  for (int i = 0; i < model.outputCount; ++i)
    *record.findInt(FirstOutputKey + i) = readCount(row, *outputDivides[i]);
  return true;
}

void writeClockManagerPower(const ClockManagerModel& model, const KVXEUID& uid, kvxm::Record& record) {
  float sum = 0.0f;
  for (const KVXETitle* column : results) {
    if (column == &Tab::m_Power) continue;
    const auto rail = std::find_if(model.rails.begin(), model.rails.end(),
                                   [&](const ClockManagerRail& r) { return r.column == column; });
    const float watts = rail == model.rails.end() ? 0.0f : *record.findFloat(rail->powerKey);
    writeResult(uid.getRow(), *column, watts);
    sum += watts;
  }
  writeResult(uid.getRow(), Tab::m_Power, sum);
}

void blankClockManagerPower(const KVXEUID& uid) {
  blankResults(uid.getRow(), results);
}

void updateClockManagerPower(const KVXEUID& uid, std::span<const ClockManagerModel> models) {
  if (!isInTable(uid, Tab::m_ClkMgrTable, "power of clock managers")) return;
  const std::string type = readText(uid.getRow(), Tab::m_ClkMgrType);
  const auto model =
      std::find_if(models.begin(), models.end(), [&](const auto& m) { return m.type == type; });
  if (model == models.end()) return blankClockManagerPower(uid);
  model->run(*model, uid);
}

}  // namespace kvxe
