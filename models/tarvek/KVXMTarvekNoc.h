#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekNoc
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekNocParams.def"
#include "models/common/DeclareBlock.inc"
