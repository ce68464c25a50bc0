#pragma once

#include <string_view>

#include "models/common/BramInputs.h"
#include "models/common/FabricPower.h"

/// Reads the record of a wide memory, which the architectures have in common.
namespace kvxm {

/// The use of wide memories, of 288 kb each. In the mode "SDP" port A reads and port B writes; modes with
/// "ECC" in their name encode and decode.
template <class Params>
MemoryUse wramUse(const Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  const std::string_view mode = params[Params::StringEnum::MODE];
  const bool isSimple = mode.starts_with("SDP");
  const bool isCorrecting = mode.find("ECC") != mode.npos;
  const double hertz = used(params[F::FREQUENCY]) * hertzPerMegahertz;
  return {.count = used(params[I::COUNT]),
          .kilobits = 288.0,
          .toggleRate = used(params[F::OUTPUT_TOGGLE_RATE]),
          .groupSize = used(params[I::CASCADE_GROUP_SIZE]),
          .isEncoding = isCorrecting,
          .isDecoding = isCorrecting,
          .portA = {.hertz = hertz,
                    .enable = used(params[F::PORT_A_ENABLE]),
                    .write = isSimple ? 0.0 : used(params[F::PORT_A_WRITE]),
                    .width = used(params[I::PORT_A_WIDTH])},
          .portB = {.hertz = hertz,
                    .enable = used(params[F::PORT_B_ENABLE]),
                    .write = isSimple ? 1.0 : used(params[F::PORT_B_WRITE]),
                    .width = used(params[I::PORT_B_WIDTH])}};
}

/// The calculation of a wide memory.
template <class Params>
void calculateWram(std::string_view architecture, Params& params) {
  using F = typename Params::FloatEnum;
  const Characterisation& coefficients = characterisation(architecture, params[Params::StringEnum::DEVICE]);
  const MemoryUse use = wramUse(params);
  const double volts = used(params[F::VCCINT]);
  const double hertz = use.portA.hertz;
  const bool isSleeping = params[Params::StringEnum::AUTO_SLEEP] == "Yes";
  const double registers = used(params[Params::IntEnum::LATENCY]) - 1.0;  // the array itself takes one clock
  const MemoryPower power = memoryPower(coefficients, use, volts, used(params[F::VCCRAM]));
  const double idle =
      memoryIdlePower(coefficients, use, hertz, isSleeping ? used(params[F::SLEEP_RATE]) : 0.0,
                      isSleeping ? used(params[F::AVG_INACTIVE_CYCLES]) : 0.0, volts);
  const double pipeline = registers > 0.0 ? memoryPipelinePower(coefficients, use, registers, volts) : 0.0;
  params[F::VCCINT_POWER] = toFloat(power.core + idle + pipeline);
  params[F::VCCRAM_POWER] = toFloat(power.array);

  const double inputs =
      use.count * (use.portA.width + use.portB.width) * hertz * used(params[F::INPUT_TOGGLE_RATE]);
  const double outputs = memoryOutputActivity(use, use.portA) + memoryOutputActivity(use, use.portB);
  params[F::SIGNAL_POWER] =
      toFloat(netPower(coefficients, 1.0, inputs + outputs, mediumRoutingComplexity, volts));
}

}  // namespace kvxm
