#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanPss
#define KVXM_SLOT_LIST "models/common/ProcessorSlots.def"
#include "models/common/DeclareBlock.inc"
