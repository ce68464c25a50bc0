#pragma once

#include "models/common/ParamsRecord.h"

// Slices that multiply complex integers.
#define KVXM_BLOCK KVXMTarvekDspCplx
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspSlots.def"
#include "models/common/DeclareBlock.inc"
