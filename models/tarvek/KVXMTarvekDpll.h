#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekDpll
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekDpllParams.def"
#include "models/common/DeclareBlock.inc"
