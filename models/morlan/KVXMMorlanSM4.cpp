#include "models/morlan/KVXMMorlanSM4.h"

#include "models/morlan/SomBoardPower.h"

void KVXMMorlanSM4Model::calculate(KVXMMorlanSM4Params& params) const {
  kvxm::calculateSomBoard(params, "SM4");
}
