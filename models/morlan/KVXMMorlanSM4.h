#pragma once

#include "models/common/ParamsRecord.h"

// What the board of module SM4 dissipates, component by component, and which of its supplies are overloaded.
#define KVXM_BLOCK KVXMMorlanSM4
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanSM4Params.def"
#include "models/common/DeclareBlock.inc"
