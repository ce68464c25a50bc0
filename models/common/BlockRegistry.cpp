#include "models/common/BlockRegistry.h"

#include "models/morlan/KVXMMorlanBram.h"
#include "models/morlan/KVXMMorlanClock.h"
#include "models/morlan/KVXMMorlanClockMgr.h"
#include "models/morlan/KVXMMorlanDsp.h"
#include "models/morlan/KVXMMorlanFsyn.h"
#include "models/morlan/KVXMMorlanLogicAbstract.h"
#include "models/morlan/KVXMMorlanLsIo.h"
#include "models/morlan/KVXMMorlanMsIo.h"
#include "models/morlan/KVXMMorlanPll.h"
#include "models/morlan/KVXMMorlanPss.h"
#include "models/morlan/KVXMMorlanSM4.h"
#include "models/morlan/KVXMMorlanSM6.h"
#include "models/morlan/KVXMMorlanStatic.h"
#include "models/morlan/KVXMMorlanWram.h"
#include "models/tarvek/KVXMTarvekBram.h"
#include "models/tarvek/KVXMTarvekCleClk.h"
#include "models/tarvek/KVXMTarvekCleLogic.h"
#include "models/tarvek/KVXMTarvekClkDist.h"
#include "models/tarvek/KVXMTarvekClock.h"
#include "models/tarvek/KVXMTarvekClockMgr.h"
#include "models/tarvek/KVXMTarvekDdrmc.h"
#include "models/tarvek/KVXMTarvekDdrmc5.h"
#include "models/tarvek/KVXMTarvekDdrmc5C.h"
#include "models/tarvek/KVXMTarvekDpll.h"
#include "models/tarvek/KVXMTarvekDspConfig.h"
#include "models/tarvek/KVXMTarvekDspCplx.h"
#include "models/tarvek/KVXMTarvekDspFp32.h"
#include "models/tarvek/KVXMTarvekDspInt24.h"
#include "models/tarvek/KVXMTarvekDspInt8.h"
#include "models/tarvek/KVXMTarvekDspLegacy.h"
#include "models/tarvek/KVXMTarvekFsyn.h"
#include "models/tarvek/KVXMTarvekHsIo.h"
#include "models/tarvek/KVXMTarvekHsRam.h"
#include "models/tarvek/KVXMTarvekIopll.h"
#include "models/tarvek/KVXMTarvekLsIo.h"
#include "models/tarvek/KVXMTarvekNoc.h"
#include "models/tarvek/KVXMTarvekPmc.h"
#include "models/tarvek/KVXMTarvekPowerRailGrouping.h"
#include "models/tarvek/KVXMTarvekPss.h"
#include "models/tarvek/KVXMTarvekRouting.h"
#include "models/tarvek/KVXMTarvekSignal.h"
#include "models/tarvek/KVXMTarvekStatic.h"
#include "models/tarvek/KVXMTarvekWram.h"
#include "models/tarvek/KVXMTarvekY7Pll.h"

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
    KVXM_DESCRIBE(KVXMTarvekBram),
    KVXM_DESCRIBE(KVXMTarvekCleClk),
    KVXM_DESCRIBE(KVXMTarvekCleLogic),
    KVXM_DESCRIBE(KVXMTarvekClkDist),
    KVXM_DESCRIBE(KVXMTarvekClock),
    KVXM_DESCRIBE(KVXMTarvekClockMgr),
    KVXM_DESCRIBE(KVXMTarvekDdrmc),
    KVXM_DESCRIBE(KVXMTarvekDdrmc5),
    KVXM_DESCRIBE(KVXMTarvekDdrmc5C),
    KVXM_DESCRIBE(KVXMTarvekDpll),
    KVXM_DESCRIBE(KVXMTarvekDspConfig),
    KVXM_DESCRIBE(KVXMTarvekDspCplx),
    KVXM_DESCRIBE(KVXMTarvekDspFp32),
    KVXM_DESCRIBE(KVXMTarvekDspInt24),
    KVXM_DESCRIBE(KVXMTarvekDspInt8),
    KVXM_DESCRIBE(KVXMTarvekDspLegacy),
    KVXM_DESCRIBE(KVXMTarvekFsyn),
    KVXM_DESCRIBE(KVXMTarvekHsIo),
    KVXM_DESCRIBE(KVXMTarvekHsRam),
    KVXM_DESCRIBE(KVXMTarvekIopll),
    KVXM_DESCRIBE(KVXMTarvekLsIo),
    KVXM_DESCRIBE(KVXMTarvekNoc),
    KVXM_DESCRIBE(KVXMTarvekPmc),
    KVXM_DESCRIBE(KVXMTarvekPowerRailGrouping),
    KVXM_DESCRIBE(KVXMTarvekPss),
    KVXM_DESCRIBE(KVXMTarvekRouting),
    KVXM_DESCRIBE(KVXMTarvekSignal),
    KVXM_DESCRIBE(KVXMTarvekStatic),
    KVXM_DESCRIBE(KVXMTarvekWram),
    KVXM_DESCRIBE(KVXMTarvekY7Pll),
    KVXM_DESCRIBE(KVXMMorlanBram),
    KVXM_DESCRIBE(KVXMMorlanClock),
    KVXM_DESCRIBE(KVXMMorlanClockMgr),
    KVXM_DESCRIBE(KVXMMorlanDsp),
    KVXM_DESCRIBE(KVXMMorlanFsyn),
    KVXM_DESCRIBE(KVXMMorlanLogicAbstract),
    KVXM_DESCRIBE(KVXMMorlanLsIo),
    KVXM_DESCRIBE(KVXMMorlanMsIo),
    KVXM_DESCRIBE(KVXMMorlanPll),
    KVXM_DESCRIBE(KVXMMorlanPss),
    KVXM_DESCRIBE(KVXMMorlanSM4),
    KVXM_DESCRIBE(KVXMMorlanSM6),
    KVXM_DESCRIBE(KVXMMorlanStatic),
    KVXM_DESCRIBE(KVXMMorlanWram),
};
// clang-format on

#undef KVXM_DESCRIBE

}  // namespace

std::span<const BlockDescription> allBlocks() {
  return blocks;
}

}  // namespace kvxm
