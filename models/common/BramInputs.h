#pragma once

#include <string_view>

#include "models/common/FabricPower.h"
#include "models/common/MemoryPower.h"

/// Reads the record of a block memory, which the architectures have in common.
namespace kvxm {

inline constexpr double wattsPerKilowatt = 1000.0;
inline constexpr double mediumRoutingComplexity = 10.0;

/// What a mode of a block memory says.
struct BramMode {
  double kilobits = 18.0;
  bool isSimpleDualPort = false;  ///< port A reads and port B writes
  bool isEncoding = false;
  bool isDecoding = false;
};
BramMode bramMode(std::string_view mode);

/// A port whose writes show at its outputs what the write mode says: "NO_CHANGE" nothing, "READ_FIRST" the
/// word that was there, "WRITE_FIRST" the word that is written.
MemoryPort bramPort(double megahertz, double enable, double write, double width, std::string_view writeMode);

template <class Params>
MemoryUse bramUse(const Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  using S = typename Params::StringEnum;
  const BramMode mode = bramMode(params[S::MODE]);
  const auto writeShare = [&](F share, double simpleDualPort) {
    return mode.isSimpleDualPort ? simpleDualPort : used(params[share]);
  };
  return {.count = used(params[I::COUNT]),
          .kilobits = mode.kilobits,
          .toggleRate = used(params[F::TOGGLE_RATE]),
          .groupSize = used(params[I::CASCADE_GROUP_SIZE]),
          .isEncoding = mode.isEncoding,
          .isDecoding = mode.isDecoding,
          .portA = bramPort(used(params[F::PORT_A_CLOCK]), used(params[F::PORT_A_ENABLE]),
                            writeShare(F::PORT_A_WRITE, 0.0), used(params[I::PORT_A_WIDTH]),
                            params[S::PORT_A_WRITE_MODE]),
          .portB = bramPort(used(params[F::PORT_B_CLOCK]), used(params[F::PORT_B_ENABLE]),
                            writeShare(F::PORT_B_WRITE, 1.0), used(params[I::PORT_B_WIDTH]),
                            params[S::PORT_B_WRITE_MODE])};
}

/// The nets behind a port: its output activity over what its clock and toggle rate would give for one net.
double bramNets(const MemoryUse& use, const MemoryPort& port);

/// The calculation of a block memory: its own power and the nets that it drives.
template <class Params>
void calculateBram(std::string_view architecture, Params& params) {
  using F = typename Params::FloatEnum;
  const Characterisation& coefficients = characterisation(architecture, params[Params::StringEnum::DEVICE]);
  const MemoryUse use = bramUse(params);
  const MemoryPower power = memoryPower(coefficients, use, used(params[F::VCCINT]), used(params[F::VCCRAM]));
  params[F::VCCINT_POWER] = toFloat(power.core / wattsPerKilowatt);
  params[F::VCCRAM_POWER] = toFloat(power.array / wattsPerKilowatt);
  params[F::PORT_A_NETS] = toFloat(bramNets(use, use.portA));
  params[F::PORT_B_NETS] = toFloat(bramNets(use, use.portB));
  const double transitions = memoryOutputActivity(use, use.portA) + memoryOutputActivity(use, use.portB);
  params[F::SIGNAL_POWER] =
      toFloat(netPower(coefficients, 1.0, transitions, mediumRoutingComplexity, used(params[F::VCCINT])));
}

}  // namespace kvxm
