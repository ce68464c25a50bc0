#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekRouting
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekRoutingParams.def"
#include "models/common/DeclareBlock.inc"
