#include "models/tarvek/KVXMTarvekHsRam.h"

#include "models/common/MemoryPower.h"

using kvxm::used;

namespace {

constexpr double kilobitsOfMemory = 1024.0;
constexpr double bitsOfPort = 128.0;

}  // namespace

/// Both ports are taken to be busy alike, one reading and one writing. The memory has no rail of its own for
/// its array, so that both parts are drawn from VCCINT.
void KVXMTarvekHsRamModel::calculate(KVXMTarvekHsRamParams& params) const {
  using F = KVXMTarvekHsRamParams::FloatEnum;
  const kvxm::Characterisation& coefficients =
      kvxm::characterisation("Tarvek", params[KVXMTarvekHsRamParams::StringEnum::DEVICE]);
  kvxm::MemoryUse use;
  use.count = used(params[KVXMTarvekHsRamParams::IntEnum::NUM_MEMORY]);
  use.kilobits = kilobitsOfMemory;
  use.toggleRate = used(params[F::TOGGLE_RATE]);
  use.portA = {.hertz = used(params[F::FREQUENCY]) * kvxm::hertzPerMegahertz,
               .enable = used(params[F::DUTY_CYCLE]),
               .width = bitsOfPort};
  use.portB = use.portA;
  use.portB.write = 1.0;
  const double volts = used(params[F::VCCINT]);
  const kvxm::MemoryPower power = kvxm::memoryPower(coefficients, use, volts, volts);
  const double idle = kvxm::memoryIdlePower(coefficients, use, use.portA.hertz, 0.0, 0.0, volts);
  params[F::VCCINT_POWER] = kvxm::toFloat(power.core + power.array + idle);
}
