#pragma once

#include "models/common/ParamsRecord.h"

// What the board of module SM6 dissipates, component by component, and which of its supplies are overloaded.
#define KVXM_BLOCK KVXMMorlanSM6
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanSM6Params.def"
#include "models/common/DeclareBlock.inc"
