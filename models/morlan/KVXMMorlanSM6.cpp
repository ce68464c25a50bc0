#include "models/morlan/KVXMMorlanSM6.h"

#include "models/morlan/SomBoardPower.h"

void KVXMMorlanSM6Model::calculate(KVXMMorlanSM6Params& params) const {
  kvxm::calculateSomBoard(params, "SM6");
}
