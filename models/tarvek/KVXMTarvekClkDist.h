#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekClkDist
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekClkDistParams.def"
#include "models/common/DeclareBlock.inc"
