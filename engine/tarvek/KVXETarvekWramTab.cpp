#include "engine/tarvek/KVXETarvekWramTab.h"

#include "models/tarvek/KVXMTarvekWram.h"

void KVXETarvekWramTab::updateWramConfigPowerRow(const KVXEUID& uid) {
  updatePowerRow<KVXMTarvekWramParams, KVXMTarvekWramModel>(uid);
}
