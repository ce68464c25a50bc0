#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanPll
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanPllParams.def"
#include "models/common/DeclareBlock.inc"
