#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanBram
#define KVXM_SLOT_LIST "models/common/BramSlots.def"
#include "models/common/DeclareBlock.inc"
