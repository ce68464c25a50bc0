#pragma once

#include <algorithm>

#include "models/catalogue/Characterisation.h"
#include "models/common/Effects.h"

/// Power of the clock managers: an oscillator with its feedback divider, its bias, and the output dividers
/// with the drivers behind them. All kinds and both architectures share these equations.
namespace kvxm {

/// How a clock manager runs.
struct ClockManagerUse {
  double oscillatorHertz = 0.0;
  double outputHertz = 0.0;  ///< sum over the outputs
  double onShare = 1.0;      ///< share of the time that it is not powered down
};

/// The coefficients of one kind.
struct ClockManagerEnergies {
  Coefficient oscillator;
  Coefficient output;
  Coefficient bias;
};

/// Watts of the oscillator and the counters that follow it, which switch once per period: energy * (V/Vn)^2
/// * f. (C*V^2*f, Weste and Harris, CMOS VLSI Design, 5.2; a ring oscillator of given stages draws the same,
/// Razavi, Design of Analog CMOS Integrated Circuits, 14.)
double oscillatorPower(const Characterisation& coefficients, Coefficient energy, const ClockManagerUse& use,
                       double volts, Coefficient nominal);

/// Watts of the output dividers, each of which switches at its output's frequency: as above.
double outputDividerPower(const Characterisation& coefficients, Coefficient energy,
                          const ClockManagerUse& use, double volts, Coefficient nominal);

/// Watts of the phase shifter, which interpolates between the oscillator's phases in every period: as above.
double phaseShifterPower(const Characterisation& coefficients, const ClockManagerUse& use, double volts);

/// Watts of the bias of charge pump and oscillator, a constant current while it runs: V * I. (Razavi, Design
/// of Analog CMOS Integrated Circuits, 15.)
double biasPower(const Characterisation& coefficients, Coefficient milliamperes, const ClockManagerUse& use,
                 double volts);

/// Reads how the manager of a record runs; nothing runs unless its state is "ON". The dividers of the outputs
/// stand in the int slots from 1 to `outputCount`; one that is off has no output.
template <class Params>
ClockManagerUse clockManagerUse(const Params& params, int outputCount) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  ClockManagerUse use;
  if (params[Params::StringEnum::STATE] != "ON") return use;
  use.oscillatorHertz =
      hertzPerMegahertz *
      oscillatorFrequency(used(params[F::REF_CLOCK]), used(params[I::MULTIPLY]), used(params[I::DIVIDE]));
  for (int key = 1; key <= outputCount; ++key) {
    const double divide = used(params[static_cast<I>(key)]);
    if (divide > 0.0) use.outputHertz += use.oscillatorHertz / divide;
  }
  use.onShare = 1.0 - std::min(used(params[F::POWER_DOWN]), 1.0);
  return use;
}

}  // namespace kvxm
