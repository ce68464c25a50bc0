#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/ParamsRecord.h"

/// Static power of a device: what its rails leak at their voltages and the junction temperature, and the
/// junction temperature that leakage and dynamic power settle at. The architectures' static models are this
/// calculation with slots of their own.
namespace kvxm {

/// The keys of the shared slots by name, for code that fills the record of any architecture.
struct StaticKey {
#define KVXM_INT(key, slot, ...) static constexpr int slot = key;
#define KVXM_FLOAT(key, slot, ...) static constexpr int slot = key;
#define KVXM_STRING(key, slot, ...) static constexpr int slot = key;
#include "models/common/StaticSlots.def"
#undef KVXM_INT
#undef KVXM_FLOAT
#undef KVXM_STRING
};

inline constexpr std::size_t mostStaticRails = 64;

/// Above this junction temperature, in degrees Celsius, no leakage is characterised.
inline constexpr double absoluteMaximumJunction = 125.0;

/// The blocks into which static power is split. Every rail belongs to one.
enum class StaticBlock {
  ProgrammableLogic,
  ProcessingSystem,
  VectorEngine,
  NetworkOnChip,
  XcvrA,
  XcvrB,
  XcvrC,
  XcvrD,
  Hbm,
  Count
};

/// One line of the table that gives a rail its block: the first that fits counts. A blank part fits every
/// rail.
struct StaticBlockRule {
  std::string_view category;
  std::string_view railPrefix;
  StaticBlock block;
};

/// The place of a rail among the supplies of a device, -1 if the device lacks it.
int staticRailIndex(const Device& device, std::string_view rail);

/// One rail under leakage.
struct LeakingRail {
  const Supply* supply = nullptr;
  StaticBlock block = StaticBlock::ProgrammableLogic;
  double volts = 0.0;
  double corner = 1.0;  ///< leakage over that of the typical process
  float amps = 0.0f;    ///< at the junction temperature of the result

  double watts(double temperature) const;
};

/// What the shared calculation found, for the slots of one architecture.
struct StaticResult {
  std::array<LeakingRail, mostStaticRails> rails;
  std::size_t railCount = 0;
  std::array<float, static_cast<std::size_t>(StaticBlock::Count)> blockWatts{};

  std::span<const LeakingRail> used() const { return {rails.data(), railCount}; }
  float watts(StaticBlock block) const { return blockWatts[static_cast<std::size_t>(block)]; }
  /// Static current of a rail by name, 0 without it.
  float amps(std::string_view rail) const;
};

/// What makes a device leak more or less than its process says.
struct StaticAdjustment {
  bool isLowScreen = false;          ///< parts selected for low static power
  std::string_view scaledRail = {};  ///< a rail whose leakage is multiplied
  double railFactor = 1.0;
};

/// Reads the shared input slots of a static record and writes its shared output slots. An unknown device
/// leaks nothing. Every result is finite.
StaticResult calculateStatic(Record& params, std::span<const StaticBlockRule> rules,
                             const StaticAdjustment& adjustment = {});

}  // namespace kvxm
