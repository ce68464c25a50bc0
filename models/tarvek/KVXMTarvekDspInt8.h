#pragma once

#include "models/common/ParamsRecord.h"

// Slices that add up products of small integers.
#define KVXM_BLOCK KVXMTarvekDspInt8
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspSlots.def"
#include "models/common/DeclareBlock.inc"
