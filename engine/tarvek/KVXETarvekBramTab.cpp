#include "engine/tarvek/KVXETarvekBramTab.h"

#include "models/tarvek/KVXMTarvekBram.h"
#include "models/tarvek/KVXMTarvekRouting.h"

namespace {

float routingPower(const KVXEUID& uid, float megahertz, float nets, float toggleRate, float volts) {
  using F = KVXMTarvekRoutingParams::FloatEnum;
  KVXMTarvekRoutingParams params;
  params[KVXMTarvekRoutingParams::StringEnum::DEVICE] = kvxe::readDevice(uid);
  params[F::NETS] = nets;
  params[F::VCCINT] = volts;
  params[F::TOGGLE_RATE] = toggleRate;
  params[F::FREQUENCY] = megahertz;
  KVXMTarvekRoutingModel::getGlobal().calculate(params);
  return params[F::VCCINT_POWER];
}

}  // namespace

void KVXETarvekBramTab::updateBramConfigPowerRow(const KVXEUID& uid) {
  using F = KVXMTarvekBramParams::FloatEnum;
  if (!kvxe::isInTable(uid, m_BramConfigTable, "power of block memories")) return;
  updatePowerRow<KVXMTarvekBramParams, KVXMTarvekBramModel>(
      uid, [](const KVXEUID& cell, const BramRow& row, const KVXMTarvekBramParams& params) {
        return routingPower(cell, row.portA.megahertz, params[F::PORT_A_NETS], row.toggleRate, row.vccint) +
               routingPower(cell, row.portB.megahertz, params[F::PORT_B_NETS], row.toggleRate, row.vccint);
      });
}
