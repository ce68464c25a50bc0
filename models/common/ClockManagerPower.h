#pragma once

#include <algorithm>
#include <string_view>

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

/// The model of an FSYN, the synthesizer that shifts phases: all but its bias is drawn from the core rail.
template <class Params>
void calculateFsyn(std::string_view architecture, Params& params) {
  using F = typename Params::FloatEnum;
  using S = typename Params::StringEnum;
  constexpr int outputCount = 7;
  const Characterisation& coefficients = characterisation(architecture, params[S::DEVICE]);
  const ClockManagerUse use = clockManagerUse(params, outputCount);
  const double volts = used(params[F::VCCINT]);
  double watts =
      oscillatorPower(coefficients, Coefficient::FsynOscillatorEnergy, use, volts,
                      Coefficient::NominalVccint) +
      outputDividerPower(coefficients, Coefficient::FsynOutputEnergy, use, volts, Coefficient::NominalVccint);
  if (params[S::PHASE_SHIFT] == "Dynamic") watts += phaseShifterPower(coefficients, use, volts);
  params[F::VCCINT_POWER] = toFloat(watts);
  params[F::VCCAUX_POWER] =
      toFloat(biasPower(coefficients, Coefficient::FsynBiasCurrent, use, used(params[F::VCCAUX])));
}

/// The model of a plain PLL. All but its bias is drawn from one rail, which depends on where the PLL stands:
/// the slots of its voltage and watts, and its nominal voltage.
template <class Params>
void calculatePll(std::string_view architecture, Params& params, typename Params::FloatEnum voltage,
                  typename Params::FloatEnum power, Coefficient nominal) {
  using F = typename Params::FloatEnum;
  constexpr int outputCount = 3;
  const Characterisation& coefficients = characterisation(architecture, params[Params::StringEnum::DEVICE]);
  const ClockManagerUse use = clockManagerUse(params, outputCount);
  const double volts = used(params[voltage]);
  params[power] =
      toFloat(oscillatorPower(coefficients, Coefficient::PllOscillatorEnergy, use, volts, nominal) +
              outputDividerPower(coefficients, Coefficient::PllOutputEnergy, use, volts, nominal));
  params[F::VCCAUX_POWER] =
      toFloat(biasPower(coefficients, Coefficient::PllBiasCurrent, use, used(params[F::VCCAUX])));
}

}  // namespace kvxm
