#pragma once

#include "models/common/Effects.h"
#include "models/common/FabricPower.h"

/// Readers of the inputs that several blocks of the fabric name alike.
namespace kvxm {

/// The cells of a logic record: LUT counts by kind, registers, toggle rate, frequency.
template <class Params>
LogicUse logicUse(const Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  return {.luts = used(params[I::LUT_LOGIC]),
          .shiftRegisters = used(params[I::LUT_SRL]),
          .distributedRams = used(params[I::LUT_RAM]),
          .registers = used(params[I::REGISTERS]),
          .toggleRate = used(params[F::TOGGLE_RATE]),
          .hertz = used(params[F::FREQUENCY]) * hertzPerMegahertz};
}

/// The loads of a clock record: its fanout and what the design uses.
template <class Params>
ClockLoad clockLoad(const Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  return {.fanout = used(params[I::FANOUT]),
          .fanoutPerSite = used(params[F::FANOUT_PER_SITE]),
          .regionsUsed = used(params[I::FSR_USED]),
          .registersUsed = used(params[I::FF_USED]),
          .ramsUsed = used(params[I::BRAM_USED]) + used(params[I::WRAM_USED]),
          .hardBlocksUsed = used(params[I::DSP_USED]) + used(params[I::IO_USED])};
}

/// How often a clock record's network switches.
template <class Params>
ClockActivity clockActivity(const Params& params) {
  using F = typename Params::FloatEnum;
  return {.hertz = used(params[F::FREQUENCY]) * hertzPerMegahertz,
          .bufferEnable = used(params[F::BUFFER_ENABLE]),
          .siteEnable = used(params[F::SLICE_ENABLE])};
}

}  // namespace kvxm
