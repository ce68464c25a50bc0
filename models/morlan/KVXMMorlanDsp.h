#pragma once

#include "models/common/ParamsRecord.h"

// DSP slices with the nets at their results.
#define KVXM_BLOCK KVXMMorlanDsp
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanDspParams.def"
#include "models/common/DeclareBlock.inc"
