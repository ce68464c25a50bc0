#include "models/common/BlockRegistry.h"

#include "models/morlan/KVXMMorlanClock.h"
#include "models/morlan/KVXMMorlanLogicAbstract.h"
#include "models/morlan/KVXMMorlanSM4.h"
#include "models/morlan/KVXMMorlanSM6.h"
#include "models/morlan/KVXMMorlanStatic.h"
#include "models/tarvek/KVXMTarvekCleClk.h"
#include "models/tarvek/KVXMTarvekCleLogic.h"
#include "models/tarvek/KVXMTarvekClkDist.h"
#include "models/tarvek/KVXMTarvekClock.h"
#include "models/tarvek/KVXMTarvekRouting.h"
#include "models/tarvek/KVXMTarvekSignal.h"
#include "models/tarvek/KVXMTarvekStatic.h"

namespace kvxm {

namespace {

template <class Slots, class Params, class Model>
constexpr BlockDescription describe() {
  return {Slots::name, Slots::slots, [] { return std::unique_ptr<Record>(std::make_unique<Params>()); },
          [](Record& params) { Model::getGlobal().calculate(static_cast<Params&>(params)); }};
}

#define KVXM_DESCRIBE(block) describe<block##Slots, block##Params, block##Model>()

// clang-format off
constexpr BlockDescription blocks[] = {
    KVXM_DESCRIBE(KVXMTarvekCleClk),
    KVXM_DESCRIBE(KVXMTarvekCleLogic),
    KVXM_DESCRIBE(KVXMTarvekClkDist),
    KVXM_DESCRIBE(KVXMTarvekClock),
    KVXM_DESCRIBE(KVXMTarvekRouting),
    KVXM_DESCRIBE(KVXMTarvekSignal),
    KVXM_DESCRIBE(KVXMTarvekStatic),
    KVXM_DESCRIBE(KVXMMorlanClock),
    KVXM_DESCRIBE(KVXMMorlanLogicAbstract),
    KVXM_DESCRIBE(KVXMMorlanSM4),
    KVXM_DESCRIBE(KVXMMorlanSM6),
    KVXM_DESCRIBE(KVXMMorlanStatic),
};
// clang-format on

#undef KVXM_DESCRIBE

}  // namespace

std::span<const BlockDescription> allBlocks() {
  return blocks;
}

}  // namespace kvxm
