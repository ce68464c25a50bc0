#pragma once

#include "models/common/ParamsRecord.h"

// Controllers as DDRMC5, which encrypt what they write.
#define KVXM_BLOCK KVXMTarvekDdrmc5C
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDdrmcSlots.def"
#include "models/common/DeclareBlock.inc"
