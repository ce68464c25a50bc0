#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekClock
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekClockParams.def"
#include "models/common/DeclareBlock.inc"
