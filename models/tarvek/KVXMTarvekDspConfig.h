#pragma once

#include "models/common/ParamsRecord.h"

// What a configuration of the DSP slices stands for.
#define KVXM_BLOCK KVXMTarvekDspConfig
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDspConfigParams.def"
#include "models/common/DeclareBlock.inc"
