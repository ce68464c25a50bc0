#pragma once

#include "models/common/ParamsRecord.h"

// Static power of a Morlan device by rail and block, and its junction temperature.
#define KVXM_BLOCK KVXMMorlanStatic
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanStaticParams.def"
#include "models/common/DeclareBlock.inc"
