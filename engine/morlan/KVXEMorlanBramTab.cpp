#include "engine/morlan/KVXEMorlanBramTab.h"

#include "models/morlan/KVXMMorlanBram.h"

void KVXEMorlanBramTab::updateBramConfigPowerRow(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_BramConfigTable, "power of block memories")) return;
  updatePowerRow<KVXMMorlanBramParams, KVXMMorlanBramModel>(
      uid, [](const KVXEUID&, const BramRow&, const KVXMMorlanBramParams& params) {
        return params[KVXMMorlanBramParams::FloatEnum::SIGNAL_POWER];
      });
}
