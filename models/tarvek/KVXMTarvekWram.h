#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekWram
#define KVXM_SLOT_LIST "models/common/WramSlots.def"
#include "models/common/DeclareBlock.inc"
