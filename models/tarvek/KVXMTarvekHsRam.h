#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekHsRam
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekHsRamParams.def"
#include "models/common/DeclareBlock.inc"
