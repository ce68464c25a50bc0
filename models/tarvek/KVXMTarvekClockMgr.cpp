#include "models/tarvek/KVXMTarvekClockMgr.h"

#include "models/common/Effects.h"
#include "models/tarvek/KVXMTarvekClockMgrData.h"

void KVXMTarvekClockMgrModel::calculate(KVXMTarvekClockMgrParams& params) const {
  using I = KVXMTarvekClockMgrParams::IntEnum;
  using F = KVXMTarvekClockMgrParams::FloatEnum;
  using S = KVXMTarvekClockMgrParams::StringEnum;
  const kvxm::CounterSetting setting = KVXMTarvekClockMgrData::getGlobal().chooseCounters(
      params[S::KIND], params[S::SPEED], kvxm::used(params[F::INPUT_FREQUENCY]));
  params[I::DIVIDE] = setting.divide;
  params[I::MULTIPLY] = setting.multiply;
  params[F::VCO_FREQUENCY] = kvxm::toFloat(setting.megahertz);
}
