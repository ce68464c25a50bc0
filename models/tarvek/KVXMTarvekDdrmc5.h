#pragma once

#include "models/common/ParamsRecord.h"

// Controllers of DDR5 and LPDDR5 memories.
#define KVXM_BLOCK KVXMTarvekDdrmc5
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDdrmcSlots.def"
#include "models/common/DeclareBlock.inc"
