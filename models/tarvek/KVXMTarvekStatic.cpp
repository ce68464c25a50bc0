#include "models/tarvek/KVXMTarvekStatic.h"

#include <span>

#include "models/common/Effects.h"
#include "models/common/StaticPower.h"

using FloatEnum = KVXMTarvekStaticParams::FloatEnum;
using StringEnum = KVXMTarvekStaticParams::StringEnum;
using kvxm::StaticBlock;

namespace {

constexpr kvxm::StaticBlockRule blockRules[] = {
    {"", "VCCME", StaticBlock::VectorEngine},    {"PMC", "", StaticBlock::ProcessingSystem},
    {"LPD", "", StaticBlock::ProcessingSystem},  {"FPD", "", StaticBlock::ProcessingSystem},
    {"BATT", "", StaticBlock::ProcessingSystem}, {"SYSTEM_CORE", "", StaticBlock::NetworkOnChip},
    {"XCVRA", "", StaticBlock::XcvrA},           {"XCVRC", "", StaticBlock::XcvrC},
    {"XCVRD", "", StaticBlock::XcvrD},           {"HBM", "", StaticBlock::Hbm},
    {"", "", StaticBlock::ProgrammableLogic},
};

/// The isolation cells at the NoC ports of regions that are reconfigured leak on the NoC's rail.
struct RcxLeakage {
  std::string_view usage;
  double factor;
};
constexpr RcxLeakage rcxLeakages[] = {
    {"RCX with 1 RP that includes NoC resources", 1.02},
    {"RCX with 2 or more RPs with NoC resources", 1.04},
};

double rcxFactor(std::string_view usage) {
  for (const RcxLeakage& leakage : rcxLeakages) {
    if (leakage.usage == usage) return leakage.factor;
  }
  return 1.0;
}

struct SupplySlots {
  FloatEnum current;
  FloatEnum voltage;
};
using enum kvxm::KVXMTarvekStaticSlots::FloatEnum;
constexpr SupplySlots xcvraSlots[] = {{XCVRA_AVCC_CURRENT, XCVRA_AVCC_VOLTAGE},
                                      {XCVRA_AVTT_CURRENT, XCVRA_AVTT_VOLTAGE},
                                      {XCVRA_AUX_CURRENT, XCVRA_AUX_VOLTAGE}};
constexpr SupplySlots xcvrcSlots[] = {{XCVRC_AVCC_CURRENT, XCVRC_AVCC_VOLTAGE},
                                      {XCVRC_AVTT_CURRENT, XCVRC_AVTT_VOLTAGE},
                                      {XCVRC_AUX_CURRENT, XCVRC_AUX_VOLTAGE},
                                      {XCVRC_CORE_CURRENT, XCVRC_CORE_VOLTAGE}};
constexpr SupplySlots xcvrdSlots[] = {{XCVRD_AVCC_CURRENT, XCVRD_AVCC_VOLTAGE},
                                      {XCVRD_AVTT_CURRENT, XCVRD_AVTT_VOLTAGE},
                                      {XCVRD_AUX_CURRENT, XCVRD_AUX_VOLTAGE}};

/// Rails of one transceiver kind take its slots in catalogue order; what is left over is added to the last
/// slot, so that the kind's power stays whole.
void writeSupplies(KVXMTarvekStaticParams& params, const kvxm::StaticResult& result, StaticBlock block,
                   std::span<const SupplySlots> slots) {
  for (const SupplySlots& slot : slots) params[slot.current] = params[slot.voltage] = 0.0f;
  std::size_t next = 0;
  for (const kvxm::LeakingRail& rail : result.used()) {
    if (rail.block != block) continue;
    const bool isLeftOver = next == slots.size();
    const SupplySlots& slot = slots[isLeftOver ? next - 1 : next++];
    if (!isLeftOver) params[slot.voltage] = static_cast<float>(rail.volts);
    const double watts = rail.volts * rail.amps;
    if (params[slot.voltage] > 0.0f) params[slot.current] += kvxm::toFloat(watts / params[slot.voltage]);
  }
}

}  // namespace

void KVXMTarvekStaticModel::calculate(KVXMTarvekStaticParams& params) const {
  const kvxm::StaticAdjustment adjustment{.isLowScreen = params[StringEnum::STATIC_SCREEN] == "L",
                                          .scaledRail = "VCCSOC",
                                          .railFactor = rcxFactor(params[StringEnum::RCX_USAGE])};
  const kvxm::StaticResult result = kvxm::calculateStatic(params, blockRules, adjustment);
  params[MXE_STATIC_POWER] = result.watts(StaticBlock::VectorEngine);
  params[NOC_STATIC_POWER] = result.watts(StaticBlock::NetworkOnChip);
  params[DEVICE_SCALE] = params[PROCESS_SCALE] =
      1.0f;  // the leakage of each rail holds for device and process
  writeSupplies(params, result, StaticBlock::XcvrA, xcvraSlots);
  writeSupplies(params, result, StaticBlock::XcvrC, xcvrcSlots);
  writeSupplies(params, result, StaticBlock::XcvrD, xcvrdSlots);

  params[VCCRAM_STATIC_CURRENT] = result.amps("VCCRAM");
  params[VCCINT_STATIC_CURRENT] = result.amps("VCCINT");
  double otherLogic = 0.0;
  for (const kvxm::LeakingRail& rail : result.used()) {
    const bool isOther = rail.supply->rail != "VCCRAM" && rail.supply->rail != "VCCINT";
    if (rail.block == StaticBlock::ProgrammableLogic && isOther) otherLogic += rail.volts * rail.amps;
  }
  params[PL_OTHER_STATIC_POWER] = kvxm::toFloat(otherLogic);
  params[PS_PMC_STATIC_POWER] = result.watts(StaticBlock::ProcessingSystem);
  params[SYSTEM_STATIC_POWER] = params[MXE_STATIC_POWER] + params[NOC_STATIC_POWER];
  params[XCVR_STATIC_POWER] =
      result.watts(StaticBlock::XcvrA) + result.watts(StaticBlock::XcvrC) + result.watts(StaticBlock::XcvrD);
}
