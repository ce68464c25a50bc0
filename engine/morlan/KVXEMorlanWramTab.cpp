#include "engine/morlan/KVXEMorlanWramTab.h"

#include "models/morlan/KVXMMorlanWram.h"

void KVXEMorlanWramTab::updateWramConfigPowerRow(const KVXEUID& uid) {
  updatePowerRow<KVXMMorlanWramParams, KVXMMorlanWramModel>(uid);
}
