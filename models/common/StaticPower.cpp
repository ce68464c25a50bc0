#include "models/common/StaticPower.h"

#include <algorithm>
#include <cmath>

#include "models/common/Effects.h"
#include "models/common/ThermalSolver.h"

namespace kvxm {
namespace {

constexpr double absoluteZero = -273.15;
// A rail this far above its reference voltage is a typing error; the law is held there so that results stay
// finite.
constexpr double mostOvervoltage = 4.0;
// Share of the spread between typical and maximum process that parts selected for low static power keep.
constexpr double lowScreenSpread = 0.5;

double clampedTemperature(double temperature) {
  if (std::isnan(temperature)) return 25.0;
  return std::clamp(temperature, absoluteZero, absoluteMaximumJunction);
}

StaticBlock blockOf(const Supply& supply, std::span<const StaticBlockRule> rules) {
  for (const StaticBlockRule& rule : rules) {
    const bool fits = (rule.category.empty() || rule.category == supply.category) &&
                      supply.rail.starts_with(rule.railPrefix);
    if (fits) return rule.block;
  }
  return StaticBlock::ProgrammableLogic;
}

/// The maximum process is a bound that no typical part changes.
double processCorner(const Device& device, std::string_view process, bool isLowScreen, double typical) {
  if (process != "Maximum") return typical;
  const double spread = device.maxProcessLeakage - 1.0;
  return 1.0 + (isLowScreen ? lowScreenSpread * spread : spread);
}

double voltsOf(Record& params, std::size_t rail, const Supply& supply) {
  const float given = *params.findFloat(StaticKey::RAIL_VOLTAGE_0 + static_cast<int>(rail));
  return given < 0.0f ? supply.referenceVolts() : used(given);
}

StaticResult railsOf(Record& params, const Device& device, std::span<const StaticBlockRule> rules,
                     const StaticAdjustment& adjustment) {
  StaticResult result;
  result.railCount = std::min(device.supplies.size(), mostStaticRails);
  const double corner = processCorner(device, *params.findString(StaticKey::PROCESS), adjustment.isLowScreen,
                                      used(*params.findFloat(StaticKey::TYPICAL_PROCESS_FACTOR)));
  for (std::size_t i = 0; i < result.railCount; ++i) {
    const Supply& supply = device.supplies[i];
    const double factor = supply.rail == adjustment.scaledRail ? adjustment.railFactor : 1.0;
    result.rails[i] = {&supply, blockOf(supply, rules), voltsOf(params, i, supply), corner * factor, 0.0f};
  }
  return result;
}

/// HBM dies are heated and accounted for on their own.
double deviceLeakage(const StaticResult& result, double temperature) {
  double watts = 0.0;
  for (const LeakingRail& rail : result.used()) {
    if (rail.block != StaticBlock::Hbm) watts += rail.watts(temperature);
  }
  return watts;
}

ThermalPath pathOf(Record& params) {
  return {.ambient = *params.findFloat(StaticKey::AMBIENT_TEMP),
          .thetaJa = *params.findFloat(StaticKey::THETA_JA),
          .dynamicWatts = *params.findFloat(StaticKey::DYNAMIC_POWER),
          .highestTemperature = absoluteMaximumJunction};
}

/// The temperature at which the powers are given. Beyond the absolute maximum it stays there, with a status.
double junctionOf(Record& params, const StaticResult& result) {
  int& status = *params.findInt(StaticKey::JUNCTION_STATUS);
  const bool isSolved =
      *params.findInt(StaticKey::SOLVE_JUNCTION) && !*params.findInt(StaticKey::JUNCTION_OVERRIDE);
  ThermalResult thermal{ThermalStatus::Converged, *params.findFloat(StaticKey::JUNCTION_TEMP)};
  if (isSolved) {
    thermal = solveJunctionTemperature(pathOf(params), [&](double t) { return deviceLeakage(result, t); });
  } else if (!(thermal.temperature <= absoluteMaximumJunction)) {
    thermal.status = ThermalStatus::OutOfRange;
  }
  status = static_cast<int>(thermal.status);
  const bool isValid = thermal.status == ThermalStatus::Converged;
  return isValid ? clampedTemperature(thermal.temperature) : absoluteMaximumJunction;
}

/// The highest ambient at which the junction settles no higher than `highest`. The ambient that belongs to a
/// junction temperature, T - theta * (Pd + leakage(T)), rises up to the point where leakage heats as fast as
/// the path cools and falls behind it: that point decides where it lies below `highest`.
double maxAmbient(const ThermalPath& path, const StaticResult& result, double highest) {
  const auto ambientOf = [&](double t) {
    return t - path.thetaJa * (path.dynamicWatts + deviceLeakage(result, t));
  };
  constexpr double step = 0.01;
  const auto rises = [&](double t) { return ambientOf(t) >= ambientOf(t - step); };
  if (rises(highest)) return ambientOf(highest);
  double low = absoluteZero;
  double high = highest;
  while (high - low > step) {
    const double middle = (low + high) / 2;
    (rises(middle) ? low : high) = middle;
  }
  return ambientOf(low);
}

/// What the leakage says about the junction besides its temperature.
void describeJunction(Record& params, const StaticResult& result, double junction) {
  const ThermalPath path = pathOf(params);
  const auto heated = [&](double watts) { return toFloat(path.ambient + path.thetaJa * watts); };
  double nonInt = 0.0;
  for (const LeakingRail& rail : result.used()) {
    if (rail.block != StaticBlock::Hbm && rail.supply->rail != "VCCINT") nonInt += rail.watts(junction);
  }
  const double highest = clampedTemperature(*params.findFloat(StaticKey::MAX_JUNCTION_TEMP));
  *params.findFloat(StaticKey::INITIAL_TEMP) = heated(path.dynamicWatts);
  *params.findFloat(StaticKey::TEMP_AT_25) = heated(path.dynamicWatts + deviceLeakage(result, 25.0));
  *params.findFloat(StaticKey::NON_INT_LEAKAGE) = toFloat(nonInt);
  *params.findFloat(StaticKey::MAX_AMBIENT_TEMP) = toFloat(maxAmbient(path, result, highest));
}

/// Currents, blocks and total. Powers are volts times the current as stored, so that rails add up to blocks.
void sumUp(Record& params, StaticResult& result, double junction) {
  std::array<double, static_cast<std::size_t>(StaticBlock::Count)> watts{};
  for (std::size_t i = 0; i < result.railCount; ++i) {
    LeakingRail& rail = result.rails[i];
    rail.amps = rail.volts > 0.0 ? toFloat(rail.watts(junction) / rail.volts) : 0.0f;
    *params.findFloat(StaticKey::RAIL_CURRENT_0 + static_cast<int>(i)) = rail.amps;
    watts[static_cast<std::size_t>(rail.block)] += rail.volts * rail.amps;
  }
  double total = 0.0;
  for (std::size_t i = 0; i < watts.size(); ++i) {
    result.blockWatts[i] = toFloat(watts[i]);
    if (static_cast<StaticBlock>(i) != StaticBlock::Hbm) total += result.blockWatts[i];
  }
  static constexpr std::pair<int, StaticBlock> outputs[] = {
      {StaticKey::PL_STATIC_POWER, StaticBlock::ProgrammableLogic},
      {StaticKey::PS_STATIC_POWER, StaticBlock::ProcessingSystem},
      {StaticKey::XCVRA_STATIC_POWER, StaticBlock::XcvrA},
      {StaticKey::XCVRB_STATIC_POWER, StaticBlock::XcvrB},
      {StaticKey::XCVRC_STATIC_POWER, StaticBlock::XcvrC},
      {StaticKey::XCVRD_STATIC_POWER, StaticBlock::XcvrD},
      {StaticKey::HBM_STATIC_POWER, StaticBlock::Hbm},
  };
  for (const auto& [key, block] : outputs) *params.findFloat(key) = result.watts(block);
  *params.findFloat(StaticKey::STATIC_POWER) = toFloat(total);
}

}  // namespace

int staticRailIndex(const Device& device, std::string_view rail) {
  const std::size_t count = std::min(device.supplies.size(), mostStaticRails);
  for (std::size_t i = 0; i < count; ++i) {
    if (device.supplies[i].rail == rail) return static_cast<int>(i);
  }
  return -1;
}

double LeakingRail::watts(double temperature) const {
  const double reference = supply->referenceVolts();
  const LeakageLaw law{.watts = supply->leakageWatts,
                       .nominalVolts = reference,
                       .voltageExponent = supply->voltageExponent,
                       .perKelvin = supply->beta};
  return leakagePower(law, std::min(volts, mostOvervoltage * reference), temperature, corner);
}

float StaticResult::amps(std::string_view rail) const {
  for (const LeakingRail& candidate : used()) {
    if (candidate.supply->rail == rail) return candidate.amps;
  }
  return 0.0f;
}

StaticResult calculateStatic(Record& params, std::span<const StaticBlockRule> rules,
                             const StaticAdjustment& adjustment) {
  static const Device unknown;
  for (std::size_t i = 0; i < mostStaticRails; ++i) {
    *params.findFloat(StaticKey::RAIL_CURRENT_0 + static_cast<int>(i)) = 0.0f;
  }
  const Device* device = DeviceCatalogue::getGlobal().findDevice(*params.findString(StaticKey::DEVICE));
  StaticResult result = railsOf(params, device ? *device : unknown, rules, adjustment);
  const double junction = junctionOf(params, result);
  sumUp(params, result, junction);
  *params.findFloat(StaticKey::JUNCTION_RESULT) = toFloat(junction);
  if (*params.findInt(StaticKey::SOLVE_JUNCTION)) describeJunction(params, result, junction);
  return result;
}

}  // namespace kvxm
