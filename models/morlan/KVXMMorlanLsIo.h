#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanLsIo
#define KVXM_SLOT_LIST "models/common/IoSlots.def"
#include "models/common/DeclareBlock.inc"
