#pragma once

#include "models/catalogue/Characterisation.h"
#include "models/catalogue/IoStandards.h"
#include "models/common/Effects.h"

/// Power of IO pins. What a rail delivers and what heats the die are two sums: a termination at the far end
/// of a line burns what the rail delivers, but elsewhere.
namespace kvxm {

/// The signals of one interface.
struct IoUse {
  double inputs = 0.0;
  double outputs = 0.0;
  double bidirectionals = 0.0;
  double transitionsPerSecond = 0.0;  ///< of one signal
  double outputEnable = 1.0;          ///< share of the time that bidirectional signals are driven
  double terminationDisable = 0.0;    ///< share of the time that terminations inside are off
  double loadFarads = 0.0;
  double inputTerminationOhms = 0.0;   ///< 0 for none
  double outputTerminationOhms = 0.0;  ///< 0 for none
};

/// The voltages that an interface draws from.
struct IoVolts {
  double vcco = 0.0;
  double vccaux = 0.0;
  double vccintio = 0.0;
  double vccint = 0.0;
};

/// Watts by rail.
struct IoPower {
  double vccint = 0.0;
  double vccintio = 0.0;
  double vccaux = 0.0;
  double vcco = 0.0;     ///< on the chip
  double offChip = 0.0;  ///< drawn from VCCO too
};

/// An input drives a net of the fabric; an output is driven by one that is its source's. Charging a load
/// costs 1/2 * C * V_swing * VCCO a transition, all of it in the driver, whatever it drives. (Weste and
/// Harris, CMOS VLSI Design, 5.2 and 13.6.) A driver into a termination to half of VCCO delivers a current
/// for half of the time and takes one for the other half; from VCCO comes I^2 * (R_driver + R_termination),
/// of which the driver burns the first and the far end the second part. With a termination to VCCO the
/// current is twice that and flows for half of the time. (Johnson and Graham, High-Speed Digital Design, 6.)
IoPower ioPower(const Characterisation& coefficients, const IoStandard& standard, const IoUse& use,
                const IoVolts& volts);

/// Transitions per second: a clock makes two a cycle, data one per bit times the toggle rate.
double ioTransitions(double hertz, double toggleRate, std::string_view dataRate);

/// The calculation of the pins of a bank.
template <class Params>
void calculateIo(std::string_view architecture, IoBank bank, Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  using S = typename Params::StringEnum;
  IoPower power;
  if (const IoStandard* standard = findIoStandard(bank, params[S::STANDARD])) {
    constexpr double faradsPerPicofarad = 1e-12;
    const IoUse use{
        .inputs = used(params[I::INPUTS]),
        .outputs = used(params[I::OUTPUTS]),
        .bidirectionals = used(params[I::BIDIRS]),
        .transitionsPerSecond = ioTransitions(used(params[F::FREQUENCY]) * hertzPerMegahertz,
                                              used(params[F::TOGGLE_RATE]), params[S::DATA_RATE]),
        .outputEnable = used(params[F::OUTPUT_ENABLE]),
        .terminationDisable = used(params[F::TERM_DISABLE]),
        .loadFarads = used(params[F::LOAD_CAPACITANCE]) * faradsPerPicofarad,
        .inputTerminationOhms = offeredOhms(standard->inputTerminations, params[S::INPUT_TERMINATION]),
        .outputTerminationOhms = offeredOhms(standard->outputTerminations, params[S::OUTPUT_TERMINATION])};
    power = ioPower(
        characterisation(architecture, params[S::DEVICE]), *standard, use,
        {used(params[F::VCCO]), used(params[F::VCCAUX]), used(params[F::VCCINTIO]), used(params[F::VCCINT])});
  }
  params[F::VCCINT_POWER] = toFloat(power.vccint);
  params[F::VCCINTIO_POWER] = toFloat(power.vccintio);
  params[F::VCCAUX_POWER] = toFloat(power.vccaux);
  params[F::VCCO_POWER] = toFloat(power.vcco);
  params[F::OFF_CHIP_POWER] = toFloat(power.offChip);
}

}  // namespace kvxm
