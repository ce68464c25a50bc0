#pragma once

#include "models/common/ParamsRecord.h"

// Static power of a Tarvek device by rail and block, and its junction temperature.
#define KVXM_BLOCK KVXMTarvekStatic
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekStaticParams.def"
#include "models/common/DeclareBlock.inc"
