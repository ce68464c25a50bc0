#include "engine/morlan/KVXEMorlanIoTab.h"

#include "models/morlan/KVXMMorlanLsIo.h"
#include "models/morlan/KVXMMorlanLsIoData.h"
#include "models/morlan/KVXMMorlanMsIo.h"
#include "models/morlan/KVXMMorlanMsIoData.h"

std::span<const KVXEIoTab::Bank> KVXEMorlanIoTab::banks() const {
  static const Bank all[] = {
      {"HP", "MSIO", &KVXMMorlanMsIoData::getGlobal(),
       &calculatePins<KVXMMorlanMsIoParams, KVXMMorlanMsIoModel>},
      {"HD", "LSIO", &KVXMMorlanLsIoData::getGlobal(),
       &calculatePins<KVXMMorlanLsIoParams, KVXMMorlanLsIoModel>},
  };
  return all;
}
