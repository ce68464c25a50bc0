#include "models/common/IoPower.h"

#include <algorithm>

#include "models/common/FabricPower.h"

namespace kvxm {

namespace {

constexpr double amperesPerMilliampere = 1e-3;
constexpr double faradsPerPicofarad = 1e-12;
constexpr double mediumComplexity = 10.0;  // of the routing

/// What drivers and receivers take part in, in signals; a differential signal has two pins.
struct Signals {
  double driving = 0.0;
  double receiving = 0.0;
  double pinsOfOne = 1.0;
};

Signals signalsOf(const IoStandard& standard, const IoUse& use) {
  const double driven = std::min(use.outputEnable, 1.0);
  return {use.outputs + use.bidirectionals * driven, use.inputs + use.bidirectionals * (1.0 - driven),
          standard.isDifferential ? 2.0 : 1.0};
}

void addSwitching(const Characterisation& coefficients, const IoStandard& standard, const IoUse& use,
                  const IoVolts& volts, const Signals& signals, IoPower& power) {
  const double farads = use.loadFarads + coefficients[Coefficient::IoPadCapacitance] * faradsPerPicofarad;
  const double perPin = 0.5 * farads * standard.swing * volts.vcco * volts.vcco;
  power.vcco += signals.driving * signals.pinsOfOne * use.transitionsPerSecond * perPin;
  const double scale =
      voltageScale(volts.vccintio, coefficients[Coefficient::NominalVccintio]) * joulesPerFemtojoule;
  power.vccintio += use.transitionsPerSecond * scale *
                    (signals.driving * coefficients[Coefficient::IoDriverEnergy] +
                     signals.receiving * coefficients[Coefficient::IoReceiverEnergy]);
}

/// Drivers with a constant current, which a resistor between the pins of the far end carries.
void addCurrentDrivers(const IoStandard& standard, const IoUse& use, const IoVolts& volts,
                       const Signals& signals, IoPower& power) {
  const double amperes = standard.driverMilliamps * amperesPerMilliampere;
  const double drawn = signals.driving * amperes * volts.vcco;
  const double burnt = std::min(drawn, signals.driving * amperes * amperes * use.outputTerminationOhms);
  power.vcco += drawn - burnt;
  power.offChip += burnt;
}

/// Drivers into a termination: to half of VCCO they deliver or take a current all of the time, to VCCO they
/// take one while they drive low, half of the time.
void addTerminatedDrivers(const IoStandard& standard, const IoUse& use, const IoVolts& volts,
                          const Signals& signals, IoPower& power) {
  if (use.outputTerminationOhms <= 0.0) return;
  const bool isToSupply = standard.signalling == IoSignalling::TopReference;
  const double drop = (isToSupply ? 1.0 : 0.5) * volts.vcco;
  const double amperes = drop / (standard.driverOhms + use.outputTerminationOhms);
  const double lines = signals.driving * signals.pinsOfOne * (isToSupply ? 0.5 : 1.0);
  power.vcco += lines * amperes * amperes * standard.driverOhms;
  power.offChip += lines * amperes * amperes * use.outputTerminationOhms;
}

/// Terminations inside the chip. To half of VCCO they are two resistors of twice the value, one to each rail;
/// to VCCO they carry a current while the other end drives low, half of the time, and share the power with
/// the driver there.
void addReceiverTerminations(const IoStandard& standard, const IoUse& use, const IoVolts& volts,
                             const Signals& signals, IoPower& power) {
  const double ohms = use.inputTerminationOhms;
  if (ohms <= 0.0 || standard.signalling == IoSignalling::Current) return;  // the far end feeds that one
  const double lines = signals.receiving * signals.pinsOfOne * (1.0 - std::min(use.terminationDisable, 1.0));
  if (standard.signalling == IoSignalling::MidReference) {
    power.vcco += lines * volts.vcco * volts.vcco / (4.0 * ohms);
    return;
  }
  const double amperes = volts.vcco / (ohms + standard.driverOhms);
  power.vcco += lines * 0.5 * amperes * amperes * ohms;
  power.offChip += lines * 0.5 * amperes * amperes * standard.driverOhms;
}

}  // namespace

IoPower ioPower(const Characterisation& coefficients, const IoStandard& standard, const IoUse& use,
                const IoVolts& volts) {
  const Signals signals = signalsOf(standard, use);
  IoPower power;
  addSwitching(coefficients, standard, use, volts, signals, power);
  if (standard.signalling == IoSignalling::Current) {
    addCurrentDrivers(standard, use, volts, signals, power);
  } else {
    addTerminatedDrivers(standard, use, volts, signals, power);
  }
  addReceiverTerminations(standard, use, volts, signals, power);
  power.vccint =
      netPower(coefficients, signals.receiving, use.transitionsPerSecond, mediumComplexity, volts.vccint);
  power.vccaux += signals.receiving * standard.receiverMilliamps * amperesPerMilliampere * volts.vccaux;
  return power;
}

double ioTransitions(double hertz, double toggleRate, std::string_view dataRate) {
  if (dataRate == "Clock") return 2.0 * hertz;
  return hertz * toggleRate * (dataRate == "DDR" ? 2.0 : 1.0);
}

}  // namespace kvxm
