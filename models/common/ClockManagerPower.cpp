#include "models/common/ClockManagerPower.h"

namespace kvxm {

namespace {

/// Watts of what takes an energy per cycle.
double cyclePower(const Characterisation& coefficients, Coefficient energy, double hertz, double volts,
                  Coefficient nominal) {
  return hertz * coefficients[energy] * joulesPerFemtojoule * voltageScale(volts, coefficients[nominal]);
}

constexpr double amperesPerMilliampere = 1e-3;

}  // namespace

double oscillatorPower(const Characterisation& coefficients, Coefficient energy, const ClockManagerUse& use,
                       double volts, Coefficient nominal) {
  return use.onShare * cyclePower(coefficients, energy, use.oscillatorHertz, volts, nominal);
}

double outputDividerPower(const Characterisation& coefficients, Coefficient energy,
                          const ClockManagerUse& use, double volts, Coefficient nominal) {
  return use.onShare * cyclePower(coefficients, energy, use.outputHertz, volts, nominal);
}

double phaseShifterPower(const Characterisation& coefficients, const ClockManagerUse& use, double volts) {
  return use.onShare * cyclePower(coefficients, Coefficient::PhaseShifterEnergy, use.oscillatorHertz, volts,
                                  Coefficient::NominalVccint);
}

double biasPower(const Characterisation& coefficients, Coefficient milliamperes, const ClockManagerUse& use,
                 double volts) {
  if (!(use.oscillatorHertz > 0.0)) return 0.0;
  return use.onShare * coefficients[milliamperes] * amperesPerMilliampere * volts;
}

}  // namespace kvxm
