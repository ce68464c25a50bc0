#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanClock
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanClockParams.def"
#include "models/common/DeclareBlock.inc"
