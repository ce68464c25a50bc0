#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanFsyn
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanFsynParams.def"
#include "models/common/DeclareBlock.inc"
