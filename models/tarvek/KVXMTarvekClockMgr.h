#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekClockMgr
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekClockMgrParams.def"
#include "models/common/DeclareBlock.inc"
