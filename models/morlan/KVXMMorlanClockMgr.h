#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanClockMgr
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanClockMgrParams.def"
#include "models/common/DeclareBlock.inc"
