#pragma once

#include "models/common/ParamsRecord.h"

// Slices that multiply and add integers.
#define KVXM_BLOCK KVXMTarvekDspInt24
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspSlots.def"
#include "models/common/DeclareBlock.inc"
