#include "tests/docs/new_tab/KVXMTarvekSysmon.h"

#include "models/catalogue/Characterisation.h"
#include "models/common/Effects.h"

using namespace kvxm;

/// The clock pins of the registers of a monitor's filter. (Weste and Harris, CMOS VLSI Design, 5.2.)
void KVXMTarvekSysmonModel::calculate(KVXMTarvekSysmonParams& params) const {
  using P = KVXMTarvekSysmonParams;
  constexpr double filterBits = 640;
  const Characterisation& coefficient = characterisation("Tarvek", params[P::StringEnum::DEVICE]);
  const double joules =
      coefficient[Coefficient::RegisterClockEnergy] * joulesPerFemtojoule *
      voltageScale(used(params[P::FloatEnum::VCCINT]), coefficient[Coefficient::NominalVccint]);
  const double hertz = used(params[P::FloatEnum::FREQUENCY]) * hertzPerMegahertz;
  params[P::FloatEnum::VCCINT_POWER] =
      toFloat(used(params[P::IntEnum::MONITORS]) * filterBits * hertz * joules);
}
