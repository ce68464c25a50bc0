#pragma once

#include "models/common/ParamsRecord.h"

// Controllers of DDR4 and LPDDR4 memories.
#define KVXM_BLOCK KVXMTarvekDdrmc
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDdrmcSlots.def"
#include "models/common/DeclareBlock.inc"
