#include "models/tarvek/KVXMTarvekNoc.h"

#include "models/common/Effects.h"
#include "models/common/InterconnectPower.h"

using kvxm::toFloat;
using kvxm::used;

namespace {

constexpr double bitsPerMegabyte = 8e6;

}  // namespace

void KVXMTarvekNocModel::calculate(KVXMTarvekNocParams& params) const {
  using I = KVXMTarvekNocParams::IntEnum;
  using F = KVXMTarvekNocParams::FloatEnum;
  const auto& coefficients =
      kvxm::characterisation("Tarvek", params[KVXMTarvekNocParams::StringEnum::DEVICE]);
  const kvxm::NocUse use{
      .bitsPerSecond =
          (used(params[I::READ_BAND_WIDTH]) + used(params[I::WRITE_BAND_WIDTH])) * bitsPerMegabyte,
      .toggleRate = used(params[F::TOGGLE_RATE]),
      .switches = used(params[I::SWITCHES]),
      .hertz = used(params[F::FREQUENCY]) * kvxm::hertzPerMegahertz};
  const double volts = used(params[F::VCCSOC]);
  params[F::DATA_POWER] = toFloat(kvxm::nocDataPower(coefficients, use, volts));
  params[F::CLOCK_POWER] = toFloat(kvxm::nocClockPower(coefficients, use, volts));
}
