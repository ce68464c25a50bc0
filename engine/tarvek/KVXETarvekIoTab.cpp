#include "engine/tarvek/KVXETarvekIoTab.h"

#include "models/tarvek/KVXMTarvekHsIo.h"
#include "models/tarvek/KVXMTarvekHsIoData.h"
#include "models/tarvek/KVXMTarvekLsIo.h"
#include "models/tarvek/KVXMTarvekLsIoData.h"

std::span<const KVXEIoTab::Bank> KVXETarvekIoTab::banks() const {
  static const Bank all[] = {
      {"HSIO", "HSIO", &KVXMTarvekHsIoData::getGlobal(),
       &calculatePins<KVXMTarvekHsIoParams, KVXMTarvekHsIoModel>},
      {"LSIO", "LSIO", &KVXMTarvekLsIoData::getGlobal(),
       &calculatePins<KVXMTarvekLsIoParams, KVXMTarvekLsIoModel>},
  };
  return all;
}
