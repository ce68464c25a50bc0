#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekIopll
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekIopllParams.def"
#include "models/common/DeclareBlock.inc"
