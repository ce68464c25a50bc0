#include "models/common/DspPower.h"

namespace kvxm {

namespace {

/// An energy coefficient in joules at the given voltage.
double energy(const Characterisation& coefficients, Coefficient femtojoules, double volts) {
  return coefficients[femtojoules] * joulesPerFemtojoule *
         voltageScale(volts, coefficients[Coefficient::NominalVccint]);
}

/// Bits of the registers around the multiplier that are in use; without the multiplier nothing passes them.
double registerBits(const DspUse& use) {
  if (!use.isMultiplierUsed) return 0.0;
  const double behind = use.isMultiplierRegisterUsed ? use.products * (use.widthA + use.widthB) : 0.0;
  const double inFront = use.isPreadderRegisterUsed ? use.products * use.widthA : 0.0;
  return behind + inFront;
}

}  // namespace

double dspDataPower(const Characterisation& coefficients, const DspUse& use, const DspArithmetic& arithmetic,
                    double volts) {
  const auto joules = [&](Coefficient part) { return energy(coefficients, part, volts); };
  const bool isGlitching = use.isMultiplierUsed && !use.isMultiplierRegisterUsed;
  const double glitch =
      isGlitching ? combinationalActivity(1.0, coefficients[Coefficient::DspGlitchFactor]) : 1.0;
  const double multiply = use.isMultiplierUsed ? arithmetic.multiply * use.products * use.widthA *
                                                     use.widthB * joules(Coefficient::DspMultiplyEnergy)
                                               : 0.0;
  const double add = arithmetic.add * use.adderWidth * joules(Coefficient::DspAddEnergy);
  const double preadd = use.isMultiplierUsed && use.isPreadderUsed
                            ? use.products * use.widthA * joules(Coefficient::DspAddEnergy)
                            : 0.0;
  const double registers = registerBits(use) * joules(Coefficient::RegisterToggleEnergy);
  return use.slices * use.hertz * use.toggleRate * arithmetic.slice *
         (glitch * (multiply + add) + preadd + registers);
}

double dspClockPower(const Characterisation& coefficients, const DspUse& use, const DspArithmetic& arithmetic,
                     double volts) {
  const double perCycle = energy(coefficients, Coefficient::DspClockEnergy, volts) +
                          registerBits(use) * energy(coefficients, Coefficient::RegisterClockEnergy, volts);
  return use.slices * use.hertz * arithmetic.slice * perCycle;
}

}  // namespace kvxm
