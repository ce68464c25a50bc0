#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekPowerRailGrouping
#define KVXM_SLOT_LIST "models/tarvek/KVXMTarvekPowerRailGroupingParams.def"
#include "models/common/DeclareBlock.inc"
