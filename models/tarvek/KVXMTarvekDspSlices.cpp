// The five kinds of arithmetic of a DSP slice. They differ in what an operation costs relative to integers of
// the same width.

#include "models/common/DspPower.h"
#include "models/tarvek/KVXMTarvekDspCplx.h"
#include "models/tarvek/KVXMTarvekDspFp32.h"
#include "models/tarvek/KVXMTarvekDspInt24.h"
#include "models/tarvek/KVXMTarvekDspInt8.h"
#include "models/tarvek/KVXMTarvekDspLegacy.h"

using kvxm::Coefficient;
using kvxm::toFloat;
using kvxm::used;

namespace {

template <class Params>
kvxm::DspUse readUse(const Params& params) {
  using I = typename Params::IntEnum;
  kvxm::DspUse use = kvxm::dspUse(params);
  use.widthA = used(params[I::WIDTH_A]);
  use.widthB = used(params[I::WIDTH_B]);
  use.adderWidth = used(params[I::ADDER_WIDTH]);
  const double slicesPerUse = used(params[I::SLICES_PER_USE]);
  use.products = slicesPerUse > 0.0 ? used(params[I::PRODUCTS]) / slicesPerUse : 0.0;
  return use;
}

/// `arithmeticOf` gives the kind's DspArithmetic of the device's coefficients.
template <class Params, class ArithmeticOf>
void calculateSlices(Params& params, ArithmeticOf arithmeticOf) {
  using F = typename Params::FloatEnum;
  const kvxm::Characterisation& coefficients =
      kvxm::characterisation("Tarvek", params[Params::StringEnum::DEVICE]);
  const kvxm::DspUse use = readUse(params);
  const kvxm::DspArithmetic arithmetic = arithmeticOf(coefficients);
  const double volts = used(params[F::VCCINT]);
  params[F::DATA_POWER] = toFloat(kvxm::dspDataPower(coefficients, use, arithmetic, volts));
  params[F::CLOCK_POWER] = toFloat(kvxm::dspClockPower(coefficients, use, arithmetic, volts));
}

kvxm::DspArithmetic integers(const kvxm::Characterisation&) {
  return {};
}

/// Alignment, normalisation and rounding come on top of the mantissas' arithmetic.
kvxm::DspArithmetic floatingPoint(const kvxm::Characterisation& coefficients) {
  return {.multiply = coefficients[Coefficient::DspFloatMultiplyFactor],
          .add = coefficients[Coefficient::DspFloatAddFactor]};
}

kvxm::DspArithmetic legacy(const kvxm::Characterisation& coefficients) {
  return {.slice = coefficients[Coefficient::DspLegacyFactor]};
}

}  // namespace

void KVXMTarvekDspInt24Model::calculate(KVXMTarvekDspInt24Params& params) const {
  calculateSlices(params, integers);
}
void KVXMTarvekDspCplxModel::calculate(KVXMTarvekDspCplxParams& params) const {
  calculateSlices(params, integers);
}
void KVXMTarvekDspFp32Model::calculate(KVXMTarvekDspFp32Params& params) const {
  calculateSlices(params, floatingPoint);
}
void KVXMTarvekDspInt8Model::calculate(KVXMTarvekDspInt8Params& params) const {
  calculateSlices(params, integers);
}
void KVXMTarvekDspLegacyModel::calculate(KVXMTarvekDspLegacyParams& params) const {
  calculateSlices(params, legacy);
}
