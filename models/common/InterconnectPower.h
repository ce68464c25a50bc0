#pragma once

#include "models/catalogue/Characterisation.h"

/// Power of what moves data across the device and to memories beside it. All of it is linear in bandwidth,
/// frequency and count; energies are quadratic in voltage.
namespace kvxm {

/// What one connection through the network on chip carries.
struct NocUse {
  double bitsPerSecond = 0.0;  ///< in both directions
  double toggleRate = 0.0;  ///< share of the bits that change from one word to the next; 0.5 for random data
  double switches = 0.0;    ///< on the way
  double hertz = 0.0;       ///< clock of the switches
};

/// Watts that depend on the data: a bit costs the two endpoints once, and a switch with the link behind it at
/// each hop. (Dally and Towles, Principles and Practices of Interconnection Networks, 2004; Kahng, Li, Peh
/// and Samadi, ORION 2.0: a fast and accurate NoC power and area model, DATE 2009.)
double nocDataPower(const Characterisation& coefficients, const NocUse& use, double volts);

/// Watts of the clock buffers of the switches, which run whether data move or not.
double nocClockPower(const Characterisation& coefficients, const NocUse& use, double volts);

/// What a hard memory controller does.
struct MemoryInterfaceUse {
  double bitsPerSecond = 0.0;     ///< of the user's data, read and written
  double toggleRate = 0.0;        ///< as above
  double transfersPerPin = 0.0;   ///< per second, whether they carry data or not
  double dataPins = 0.0;          ///< of all channels, without those of the error correction
  double commandsPerBurst = 1.0;  ///< more than one when rows are opened for each burst
  double phyFactor = 1.0;         ///< the interface's energy relative to one without equalisers
  bool hasEcc = false;
  bool isEncrypted = false;
};

/// Watts by supply; the drivers of the pins are the IO banks' and not among them.
struct MemoryInterfacePower {
  double controller = 0.0;  ///< VCCSOC
  double phy = 0.0;         ///< VCCINTIO
  double bias = 0.0;        ///< VCCAUX
};

struct MemoryInterfaceVolts {
  double controller = 0.0;
  double phy = 0.0;
  double bias = 0.0;
};

/// A controller's bits and commands, the bits of its interface, and the clocks of both, which follow the data
/// rate and the width even while nothing is transferred. (Splitting power into background, commands and
/// transfers: Chandrasekar, Akesson and Goossens, Improved power modeling of DDR SDRAMs, DSD 2011.)
MemoryInterfacePower memoryInterfacePower(const Characterisation& coefficients, const MemoryInterfaceUse& use,
                                          const MemoryInterfaceVolts& volts);

}  // namespace kvxm
