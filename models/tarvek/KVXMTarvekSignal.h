#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekSignal
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekSignalParams.def"
#include "models/common/DeclareBlock.inc"
