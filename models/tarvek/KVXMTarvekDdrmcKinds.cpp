// The three kinds of hard memory controllers. The later ones equalise what they receive, and the last one can
// encrypt.

#include "models/common/Effects.h"
#include "models/common/InterconnectPower.h"
#include "models/tarvek/KVXMTarvekDdrmc.h"
#include "models/tarvek/KVXMTarvekDdrmc5.h"
#include "models/tarvek/KVXMTarvekDdrmc5C.h"

using kvxm::toFloat;
using kvxm::used;

namespace {

constexpr double bitsPerMegabyte = 8e6;
constexpr double transfersPerMegabit = 1e6;  // of one pin
constexpr double commandsOfOpenRow = 1;
constexpr double commandsOfClosedRow = 3;  // activate, read or write, precharge

struct Kind {
  bool hasEqualisers = false;
  bool canEncrypt = false;
};

template <class Params>
kvxm::MemoryInterfaceUse readUse(const Params& params, const Kind& kind,
                                 const kvxm::Characterisation& coefficients) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  return {.bitsPerSecond =
              (used(params[I::READ_BAND_WIDTH]) + used(params[I::WRITE_BAND_WIDTH])) * bitsPerMegabyte,
          .toggleRate = used(params[F::TOGGLE_RATE]),
          .transfersPerPin = used(params[F::DATA_RATE]) * transfersPerMegabit,
          .dataPins = used(params[I::NUM_CHANNELS]) * used(params[I::DATA_WIDTH]),
          .commandsPerBurst = used(params[I::RANDOM_ACCESS]) > 0.0 ? commandsOfClosedRow : commandsOfOpenRow,
          .phyFactor = kind.hasEqualisers ? coefficients[kvxm::Coefficient::McEqualiserFactor] : 1.0,
          .hasEcc = used(params[I::ECC_USAGE]) > 0.0,
          .isEncrypted = kind.canEncrypt && used(params[I::ENCRYPTION]) > 0.0};
}

/// Without a data rate or a data pin there is no interface, so nothing is drawn.
template <class Params>
void calculateController(Params& params, const Kind& kind) {
  using F = typename Params::FloatEnum;
  const auto& coefficients = kvxm::characterisation("Tarvek", params[Params::StringEnum::DEVICE]);
  const kvxm::MemoryInterfaceUse use = readUse(params, kind, coefficients);
  kvxm::MemoryInterfacePower power;
  if (use.dataPins > 0.0 && use.transfersPerPin > 0.0)
    power = kvxm::memoryInterfacePower(
        coefficients, use, {used(params[F::VCCSOC]), used(params[F::VCCINTIO]), used(params[F::VCCAUX])});
  params[F::VCCSOC_POWER] = toFloat(power.controller);
  params[F::VCCINTIO_POWER] = toFloat(power.phy);
  params[F::VCCAUX_POWER] = toFloat(power.bias);
}

}  // namespace

void KVXMTarvekDdrmcModel::calculate(KVXMTarvekDdrmcParams& params) const {
  calculateController(params, {});
}

void KVXMTarvekDdrmc5Model::calculate(KVXMTarvekDdrmc5Params& params) const {
  calculateController(params, {.hasEqualisers = true});
}

void KVXMTarvekDdrmc5CModel::calculate(KVXMTarvekDdrmc5CParams& params) const {
  calculateController(params, {.hasEqualisers = true, .canEncrypt = true});
}
