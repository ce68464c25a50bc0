#include "models/morlan/KVXMMorlanDsp.h"

#include "models/common/DspPower.h"
#include "models/common/FabricPower.h"

using kvxm::toFloat;
using kvxm::used;

namespace {

constexpr double multiplierWidthA = 27.0, multiplierWidthB = 18.0, adderWidth = 48.0;
constexpr double mediumComplexity = 10.0;  // of the routing at the results

}  // namespace

void KVXMMorlanDspModel::calculate(KVXMMorlanDspParams& params) const {
  using F = KVXMMorlanDspParams::FloatEnum;
  using S = KVXMMorlanDspParams::StringEnum;
  const kvxm::Characterisation& coefficients = kvxm::characterisation("Morlan", params[S::DEVICE]);
  kvxm::DspUse use = kvxm::dspUse(params);
  use.widthA = multiplierWidthA;
  use.widthB = multiplierWidthB;
  use.products = 1.0;
  use.adderWidth = adderWidth;
  const double volts = used(params[F::VCCINT]);
  params[F::DATA_POWER] = toFloat(kvxm::dspDataPower(coefficients, use, {}, volts));
  params[F::CLOCK_POWER] = toFloat(kvxm::dspClockPower(coefficients, use, {}, volts));
  params[F::SIGNAL_POWER] = toFloat(kvxm::netPower(coefficients, use.slices * adderWidth,
                                                   use.toggleRate * use.hertz, mediumComplexity, volts));
}
