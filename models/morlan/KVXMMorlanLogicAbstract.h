#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMMorlanLogicAbstract
#define KVXM_SLOT_LIST "models/morlan/KVXMMorlanLogicAbstractParams.def"
#include "models/common/DeclareBlock.inc"
