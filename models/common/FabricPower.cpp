#include "models/common/FabricPower.h"

#include <algorithm>

#include "models/common/Effects.h"

namespace kvxm {

namespace {

/// An energy coefficient in joules at the given voltage.
double energy(const Characterisation& coefficients, Coefficient femtojoules, double volts,
              Coefficient nominal = Coefficient::NominalVccint) {
  return coefficients[femtojoules] * joulesPerFemtojoule * voltageScale(volts, coefficients[nominal]);
}

constexpr double mediumComplexity = 10.0;

}  // namespace

double logicPower(const Characterisation& coefficients, const LogicUse& use, double volts) {
  const double glitched = combinationalActivity(use.toggleRate, coefficients[Coefficient::GlitchFactor]);
  const auto joules = [&](Coefficient cell) { return energy(coefficients, cell, volts); };
  return use.hertz * (glitched * use.luts * joules(Coefficient::LutToggleEnergy) +
                      use.toggleRate * (use.shiftRegisters * joules(Coefficient::ShiftRegisterToggleEnergy) +
                                        use.distributedRams * joules(Coefficient::LutRamToggleEnergy) +
                                        use.registers * joules(Coefficient::RegisterToggleEnergy)));
}

double signalPower(const Characterisation& coefficients, const LogicUse& use, double routingComplexity,
                   double volts) {
  const double glitched = combinationalActivity(use.toggleRate, coefficients[Coefficient::GlitchFactor]);
  const double clocked = use.shiftRegisters + use.distributedRams + use.registers;
  return netPower(coefficients, use.luts, glitched * use.hertz, routingComplexity, volts) +
         netPower(coefficients, clocked, use.toggleRate * use.hertz, routingComplexity, volts);
}

double netPower(const Characterisation& coefficients, double nets, double transitionsPerSecond,
                double routingComplexity, double volts) {
  return nets * transitionsPerSecond * (routingComplexity / mediumComplexity) *
         energy(coefficients, Coefficient::NetToggleEnergy, volts);
}

ClockReach clockReach(const ClockLoad& load) {
  const double loads = load.registersUsed + load.ramsUsed + load.hardBlocksUsed;
  const double perLoad = loads > 0.0 ? load.fanout / loads : 0.0;
  ClockReach reach;
  reach.registers = loads > 0.0 ? perLoad * load.registersUsed : load.fanout;
  reach.registerSites = reach.registers / std::max(load.fanoutPerSite, 1.0);
  reach.ramSites = perLoad * load.ramsUsed;
  reach.hardSites = perLoad * load.hardBlocksUsed;
  reach.regions = load.regionsUsed * std::min(perLoad, 1.0);
  return reach;
}

double clockDistributionPower(const Characterisation& coefficients, const ClockReach& reach,
                              const ClockActivity& activity, double volts) {
  const auto joules = [&](Coefficient part) { return energy(coefficients, part, volts); };
  const double sites = reach.registerSites + reach.ramSites + reach.hardSites;
  const double perCycle = reach.regions * joules(Coefficient::ClockSpineEnergy) +
                          sites * joules(Coefficient::ClockTrackEnergy) +
                          activity.siteEnable * sites * joules(Coefficient::ClockLeafEnergy);
  return activity.hertz * activity.bufferEnable * perCycle;
}

double ramClockPower(const Characterisation& coefficients, double ramSites, const ClockActivity& activity,
                     double ramVolts) {
  return activity.hertz * activity.bufferEnable * activity.siteEnable * ramSites *
         energy(coefficients, Coefficient::RamClockEnergy, ramVolts, Coefficient::NominalVccram);
}

double registerClockPower(const Characterisation& coefficients, double registers,
                          const ClockActivity& activity, double volts) {
  return activity.hertz * activity.bufferEnable * activity.siteEnable * registers *
         energy(coefficients, Coefficient::RegisterClockEnergy, volts);
}

}  // namespace kvxm
