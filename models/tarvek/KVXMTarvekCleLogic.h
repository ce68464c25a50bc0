#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekCleLogic
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekCleLogicParams.def"
#include "models/common/DeclareBlock.inc"
