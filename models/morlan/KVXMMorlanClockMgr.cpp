#include "models/morlan/KVXMMorlanClockMgr.h"

#include "models/common/Effects.h"
#include "models/morlan/KVXMMorlanClockMgrData.h"

void KVXMMorlanClockMgrModel::calculate(KVXMMorlanClockMgrParams& params) const {
  using I = KVXMMorlanClockMgrParams::IntEnum;
  using F = KVXMMorlanClockMgrParams::FloatEnum;
  using S = KVXMMorlanClockMgrParams::StringEnum;
  const kvxm::CounterSetting setting = KVXMMorlanClockMgrData::getGlobal().chooseCounters(
      params[S::KIND], params[S::SPEED], kvxm::used(params[F::INPUT_FREQUENCY]));
  params[I::DIVIDE] = setting.divide;
  params[I::MULTIPLY] = setting.multiply;
  params[F::VCO_FREQUENCY] = kvxm::toFloat(setting.megahertz);
}
