#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekY7Pll
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekY7PllParams.def"
#include "models/common/DeclareBlock.inc"
