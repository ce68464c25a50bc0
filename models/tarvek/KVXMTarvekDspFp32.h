#pragma once

#include "models/common/ParamsRecord.h"

// Slices that multiply and add single precision floating point numbers.
#define KVXM_BLOCK KVXMTarvekDspFp32
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspSlots.def"
#include "models/common/DeclareBlock.inc"
