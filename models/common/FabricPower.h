#pragma once

#include "models/catalogue/Characterisation.h"

/// Power of the programmable fabric: logic, the nets between it, and the clock networks. Both architectures
/// share these equations and differ by their coefficients. All of it is linear in frequency, counts and
/// activity, quadratic in voltage, and 0 when nothing is used.
namespace kvxm {

/// What one row of a logic table uses.
struct LogicUse {
  double luts = 0.0;
  double shiftRegisters = 0.0;   ///< LUTs as shift registers
  double distributedRams = 0.0;  ///< LUTs as memory
  double registers = 0.0;
  double toggleRate = 0.0;  ///< transitions per clock
  double hertz = 0.0;
};

/// Watts inside the cells and their local interconnect.
double logicPower(const Characterisation& coefficients, const LogicUse& use, double volts);

/// Watts of the nets that the cells' outputs drive. `routingComplexity` is 10 for a medium design; the length
/// of a net is taken as proportional to it.
double signalPower(const Characterisation& coefficients, const LogicUse& use, double routingComplexity,
                   double volts);

/// Watts of `nets` routed nets that make `transitionsPerSecond` each. (Routing is about half of the dynamic
/// power of programmable logic: Poon, Wilton and Yan, A detailed power model for field-programmable gate
/// arrays, TODAES 2005.)
double netPower(const Characterisation& coefficients, double nets, double transitionsPerSecond,
                double routingComplexity, double volts);

/// What a clock drives and what the whole design uses.
struct ClockLoad {
  double fanout = 0.0;         ///< loads of this clock
  double fanoutPerSite = 0.0;  ///< registers that share a site; below 1 counts as 1
  double regionsUsed = 0.0;    ///< clock regions that the design occupies
  double registersUsed = 0.0;
  double ramsUsed = 0.0;        ///< block and wide RAMs
  double hardBlocksUsed = 0.0;  ///< DSPs and IO pins
};

/// Where a clock's loads sit. A clock is taken to drive the same mix of loads as the design has, and as large
/// a share of the design's regions as of its loads.
struct ClockReach {
  double registers = 0.0;
  double registerSites = 0.0;
  double ramSites = 0.0;
  double hardSites = 0.0;
  double regions = 0.0;
};

ClockReach clockReach(const ClockLoad& load);

/// How often a clock network switches.
struct ClockActivity {
  double hertz = 0.0;
  double bufferEnable = 1.0;  ///< share of the time that the clock buffer is enabled
  double siteEnable = 0.5;    ///< share of the time that the sites' clocks are enabled
};

/// Watts of the clock spines, the tracks to the sites and the sites' leaf buffers.
double clockDistributionPower(const Characterisation& coefficients, const ClockReach& reach,
                              const ClockActivity& activity, double volts);
/// Watts of the clock inputs of RAMs, on the RAM rail.
double ramClockPower(const Characterisation& coefficients, double ramSites, const ClockActivity& activity,
                     double ramVolts);
/// Watts of the clock pins of registers.
double registerClockPower(const Characterisation& coefficients, double registers,
                          const ClockActivity& activity, double volts);

}  // namespace kvxm
