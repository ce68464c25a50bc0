#pragma once

#include "models/common/ParamsRecord.h"

// Slices that work as the older slices with 48 bit adders do.
#define KVXM_BLOCK KVXMTarvekDspLegacy
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspSlots.def"
#include "models/common/DeclareBlock.inc"
