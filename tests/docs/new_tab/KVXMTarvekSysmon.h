#pragma once

#include "models/common/ParamsRecord.h"

#define KVXM_BLOCK KVXMTarvekSysmon
#define KVXM_SLOT_LIST "tests/docs/new_tab/KVXMTarvekSysmonParams.def"
#include "models/common/DeclareBlock.inc"
