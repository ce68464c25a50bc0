#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekFsyn
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekFsynParams.def"
#include "models/common/DeclareBlock.inc"
