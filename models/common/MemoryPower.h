#pragma once

#include "models/catalogue/Characterisation.h"
#include "models/common/Effects.h"

/// Power of memory blocks: block, wide and multi-port memories of both architectures differ by capacity,
/// ports and coefficients, not by equation. All of it is linear in count, frequency and accesses, and
/// quadratic in the voltage of the rail that it is drawn from.
namespace kvxm {

/// How a port of a memory is used.
struct MemoryPort {
  double hertz = 0.0;
  double enable = 0.0;          ///< share of the clocks with an access
  double write = 0.0;           ///< share of the accesses that write
  double width = 0.0;           ///< bits of an access
  double readsInWrite = 0.0;    ///< reads of the array that a write brings with it
  double outputsInWrite = 0.0;  ///< shares of the written words that appear at the outputs
};

/// What the memories of one row do.
struct MemoryUse {
  double count = 0.0;
  double kilobits = 18.0;   ///< capacity of one memory
  double toggleRate = 0.0;  ///< transitions per access of an output
  double groupSize = 1.0;   ///< memories in a cascade; 0 counts as 1
  bool isEncoding = false;  ///< of an error correction code, in writes
  bool isDecoding = false;  ///< in reads
  MemoryPort portA, portB;
};

/// Watts by rail.
struct MemoryPower {
  double core = 0.0;   ///< of decoders, outputs and error correction
  double array = 0.0;  ///< of word and bit lines
};

/// The energy of an access is that of a word line and its decoder, which grows with the square root of the
/// capacity, and that of each bit line pair that is sensed or driven. (Muralimanohar, Balasubramonian and
/// Jouppi, CACTI 6.0, 2009; Horowitz, Computing's energy problem, ISSCC 2014.) In a cascade
/// one memory of a group is accessed, and its output runs through the multiplexers of the others.
MemoryPower memoryPower(const Characterisation& coefficients, const MemoryUse& use, double coreVolts,
                        double arrayVolts);

/// Watts of the clocked periphery of memories that are not asleep, and of waking up.
/// `inactiveCycles` is how long one sleep lasts on average; 0 for memories that do not sleep.
double memoryIdlePower(const Characterisation& coefficients, const MemoryUse& use, double hertz,
                       double sleepShare, double inactiveCycles, double coreVolts);

/// Watts of `stages` registers behind each output bit of the ports.
double memoryPipelinePower(const Characterisation& coefficients, const MemoryUse& use, double stages,
                           double coreVolts);

/// Transitions per second of all outputs of all memories, which the nets behind them carry on.
double memoryOutputActivity(const MemoryUse& use, const MemoryPort& port);

}  // namespace kvxm
