#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekCleClk
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekCleClkParams.def"
#include "models/common/DeclareBlock.inc"
