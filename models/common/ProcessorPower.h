#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/Characterisation.h"
#include "models/common/Effects.h"

/// Power of the processing system: processors, peripherals, PLLs and the memory interface. Both architectures
/// share these equations; what their processing systems are made of, they declare.
namespace kvxm {

enum class ProcessorGroup { Processor, Peripheral, Pll };

/// What a block of the processing system is, which supplies it draws from, and how much. A supply that is
/// empty is not drawn from.
struct ProcessorBlock {
  std::string_view name;
  ProcessorGroup group = ProcessorGroup::Peripheral;
  std::string_view domain;  ///< the power domain that switches it
  int most = 1;             ///< on a device
  float megahertz = 0.0f;   ///< that most designs run it at
  float limits[3] = {};     ///< MHz; what the speed grades 1, 2 and 3 reach
  std::string_view coreRail = {};
  std::optional<Coefficient> idle = {};  ///< energy per cycle of its clocks
  std::optional<Coefficient> work = {};  ///< energy per cycle that full load adds
  float size = 1.0f;                     ///< times those energies
  std::string_view padRail = {};
  int pads = 0;  ///< that switch at its frequency
  std::string_view biasRail = {};
  std::optional<Coefficient> bias = {};  ///< current while it is in use
  std::string_view resource = {};        ///< without which a device lacks the block; empty for every device
};

/// A kind of memory that the processing system's interface runs.
struct ProcessorMemory {
  std::string_view name;
  std::span<const int> widths;  ///< bits, rising
  std::span<const int> rates;   ///< Mb/s of a pin, rising
  float limits[3];              ///< Mb/s; what the speed grades 1, 2 and 3 reach
  double padVolts;              ///< at which the energy of its pads holds
  Coefficient pads;             ///< energy per bit of drivers and terminations on the chip
};

/// What the processing system of an architecture is made of. `speed` is a speed grade as part names write it
/// ("1", "2LV"); an unknown one counts as the slowest.
class ProcessorBlocks {
 public:
  constexpr ProcessorBlocks(std::span<const ProcessorBlock> blocks, std::span<const ProcessorMemory> memories)
      : m_blocks(blocks), m_memories(memories) {}

  std::span<const ProcessorBlock> getBlocks() const { return m_blocks; }
  /// Null for an unknown name.
  const ProcessorBlock* findBlock(std::string_view name) const;
  const ProcessorMemory* findMemory(std::string_view name) const;
  std::span<const ProcessorMemory> getMemories() const { return m_memories; }
  /// The entries of a choice of memory: "None" and what there is.
  std::vector<std::string> getMemoryTypes() const;

 private:
  std::span<const ProcessorBlock> m_blocks;
  std::span<const ProcessorMemory> m_memories;
};

/// What a speed grade reaches.
float limitOf(const float (&limits)[3], std::string_view speed);

/// How much of a block is used.
struct ProcessorUse {
  double count = 0.0;
  double hertz = 0.0;
  double load = 0.0;  ///< share of the cycles that do work
};

/// Watts of a block's logic and memories: its clocks run at any load, the rest follows the load. count *
/// f * (idle + load * work) * (V/Vn)^2. (Fan, Weber and Barroso, Power provisioning for a warehouse-sized
/// computer, ISCA 2007, for the linear law; C*V^2*f, Weste and Harris, CMOS VLSI Design, 5.2.)
double processorCorePower(const Characterisation& coefficients, const ProcessorBlock& block,
                          const ProcessorUse& use, double volts);

/// Watts of charging the lines at a block's pads, one transition of a line per cycle at full load:
/// 1/2 * load * C * V^2 * f * pads. (Weste and Harris, CMOS VLSI Design, 5.2.)
double processorPadPower(const Characterisation& coefficients, const ProcessorBlock& block,
                         const ProcessorUse& use, double volts);

/// Watts of a block's analogue parts, a constant current while it is in use: count * I * V. (Razavi, Design
/// of Analog CMOS Integrated Circuits, 15.)
double processorBiasPower(const Characterisation& coefficients, const ProcessorBlock& block,
                          const ProcessorUse& use, double volts);

/// How much of the memory interface is used.
struct ProcessorMemoryUse {
  double bits = 0.0;
  double transfersPerSecond = 0.0;  ///< of a pin
  double activity = 0.0;            ///< share of the time that data move
};

/// Watts of the controller and of the digital part of its pads, by the law of the hard memory controllers
/// (InterconnectPower.h).
double processorMemoryCorePower(const Characterisation& coefficients, const ProcessorMemoryUse& use,
                                double volts);

/// Watts of drivers and terminations on the chip: energy * bits per second * (V/Vn)^2. (Malladi et al.,
/// Towards energy-proportional datacenter memory with mobile DRAM, ISCA 2012.)
double processorMemoryPadPower(const Characterisation& coefficients, const ProcessorMemory& memory,
                               const ProcessorMemoryUse& use, double volts);

/// Calculates the record of a processing system: the block that it names, or the memory interface.
template <class Params>
void calculateProcessor(const ProcessorBlocks& blocks, std::string_view architecture, Params& params) {
  using F = typename Params::FloatEnum;
  using S = typename Params::StringEnum;
  const Characterisation& coefficients = characterisation(architecture, params[S::DEVICE]);
  const double count = used(params[Params::IntEnum::COUNT]);
  const double hertz = used(params[F::FREQUENCY]) * hertzPerMegahertz;
  const double load = used(params[F::LOAD]) < 1.0 ? used(params[F::LOAD]) : 1.0;
  const double core = used(params[F::CORE_VOLTAGE]), pad = used(params[F::PAD_VOLTAGE]);
  double power[3] = {};
  if (const ProcessorBlock* block = blocks.findBlock(params[S::BLOCK])) {
    const ProcessorUse use{count, hertz, load};
    power[0] = processorCorePower(coefficients, *block, use, core);
    power[1] = processorPadPower(coefficients, *block, use, pad);
    power[2] = processorBiasPower(coefficients, *block, use, used(params[F::BIAS_VOLTAGE]));
  } else if (const ProcessorMemory* memory = blocks.findMemory(params[S::BLOCK])) {
    const ProcessorMemoryUse use{count, hertz, load};
    power[0] = processorMemoryCorePower(coefficients, use, core);
    power[1] = processorMemoryPadPower(coefficients, *memory, use, pad);
  }
  params[F::CORE_POWER] = toFloat(power[0]);
  params[F::PAD_POWER] = toFloat(power[1]);
  params[F::BIAS_POWER] = toFloat(power[2]);
}

}  // namespace kvxm
