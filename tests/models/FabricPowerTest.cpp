#include "models/common/BlockRegistry.h"
#include "models/common/Effects.h"
#include "models/morlan/KVXMMorlanClock.h"
#include "models/morlan/KVXMMorlanLogicAbstract.h"
#include "models/tarvek/KVXMTarvekCleClk.h"
#include "models/tarvek/KVXMTarvekCleLogic.h"
#include "models/tarvek/KVXMTarvekClkDist.h"
#include "models/tarvek/KVXMTarvekClock.h"
#include "models/tarvek/KVXMTarvekRouting.h"
#include "models/tarvek/KVXMTarvekSignal.h"

namespace {

/// An operating point of the fabric. One structure feeds every calculation, so that a property is stated
/// once.
struct Point {
  double volts = 0.8;
  double megahertz = 300;
  double toggleRate = 0.125;
  double complexity = 10;
  double siteEnable = 0.5;
  double bufferEnable = 1;
  int count = 100000;
};

struct Calculation {
  const char* name;
  double (*watts)(const Point&);
};

template <class Params>
void setCells(Params& params, const Point& point) {
  for (const char* kind : {"LUT_LOGIC", "LUT_SRL", "LUT_RAM", "REGISTERS"}) {
    params[Params::string_to_int_enum(kind)] = point.count;
  }
}

template <class Params>
void setFloats(Params& params, const Point& point) {
  const std::pair<const char*, double> values[] = {{"FREQUENCY", point.megahertz},
                                                   {"VCCINT", point.volts},
                                                   {"VCCRAM", point.volts},
                                                   {"TOGGLE_RATE", point.toggleRate},
                                                   {"ROUTING_COMPLEXITY", point.complexity},
                                                   {"BUFFER_ENABLE", point.bufferEnable},
                                                   {"SLICE_ENABLE", point.siteEnable}};
  std::vector<std::string> names;
  Params::getFloatUserInputNames(names);
  for (const auto& [name, value] : values) {
    if (std::find(names.begin(), names.end(), name) == names.end()) continue;
    params[Params::string_to_float_enum(name)] = static_cast<float>(value);
  }
}

template <class Params>
void setDesign(Params& params, const Point& point) {
  using I = typename Params::IntEnum;
  params[I::FANOUT] = point.count;
  params[I::FSR_USED] = 12;
  params[I::FF_USED] = 900000;
  params[I::BRAM_USED] = 600;
  params[I::WRAM_USED] = 200;
  params[I::DSP_USED] = 1200;
  params[I::IO_USED] = 300;
}

template <class Params, class Model>
double cellWatts(const Point& point) {
  Params params;
  setCells(params, point);
  setFloats(params, point);
  Model::getGlobal().calculate(params);
  return params[Params::FloatEnum::VCCINT_POWER];
}

double routingWatts(const Point& point) {
  KVXMTarvekRoutingParams params;
  setFloats(params, point);
  params[KVXMTarvekRoutingParams::FloatEnum::NETS] = static_cast<float>(kvxm::used(point.count));
  KVXMTarvekRoutingModel::getGlobal().calculate(params);
  return params[KVXMTarvekRoutingParams::FloatEnum::VCCINT_POWER];
}

KVXMTarvekClockParams tarvekReach(const Point& point) {
  KVXMTarvekClockParams params;
  setDesign(params, point);
  KVXMTarvekClockModel::getGlobal().calculate(params);
  return params;
}

KVXMTarvekClkDistParams tarvekDistribution(const Point& point) {
  using F = KVXMTarvekClkDistParams::FloatEnum;
  using From = KVXMTarvekClockParams::FloatEnum;
  const KVXMTarvekClockParams reach = tarvekReach(point);
  KVXMTarvekClkDistParams params;
  setFloats(params, point);
  params[F::SLICE_SITES] = reach[From::SLICE_SITES];
  params[F::RAM_SITES] = reach[From::RAM_SITES];
  params[F::HARD_SITES] = reach[From::HARD_SITES];
  params[F::REGIONS] = reach[From::REGIONS];
  KVXMTarvekClkDistModel::getGlobal().calculate(params);
  return params;
}

double distributionWatts(const Point& point) {
  return tarvekDistribution(point)[KVXMTarvekClkDistParams::FloatEnum::VCCINT_POWER];
}

double ramClockWatts(const Point& point) {
  return tarvekDistribution(point)[KVXMTarvekClkDistParams::FloatEnum::VCCRAM_POWER];
}

double clockPinWatts(const Point& point) {
  using F = KVXMTarvekCleClkParams::FloatEnum;
  KVXMTarvekCleClkParams params;
  setFloats(params, point);
  params[F::SLICE_LOADS] = tarvekReach(point)[KVXMTarvekClockParams::FloatEnum::SLICE_LOADS];
  KVXMTarvekCleClkModel::getGlobal().calculate(params);
  return params[F::VCCINT_POWER];
}

double morlanClockWatts(const Point& point) {
  KVXMMorlanClockParams params;
  setDesign(params, point);
  setFloats(params, point);
  KVXMMorlanClockModel::getGlobal().calculate(params);
  return params[KVXMMorlanClockParams::FloatEnum::VCCINT_POWER];
}

constexpr auto tarvekLogic = cellWatts<KVXMTarvekCleLogicParams, KVXMTarvekCleLogicModel>;
constexpr auto tarvekSignal = cellWatts<KVXMTarvekSignalParams, KVXMTarvekSignalModel>;
constexpr auto morlanLogic = cellWatts<KVXMMorlanLogicAbstractParams, KVXMMorlanLogicAbstractModel>;

const std::vector<Calculation> dataCalculations = {{"Tarvek logic", tarvekLogic},
                                                   {"Tarvek signal", tarvekSignal},
                                                   {"Tarvek routing", routingWatts},
                                                   {"Morlan logic", morlanLogic}};
const std::vector<Calculation> clockCalculations = {{"Tarvek distribution", distributionWatts},
                                                    {"Tarvek RAM clocks", ramClockWatts},
                                                    {"Tarvek clock pins", clockPinWatts},
                                                    {"Morlan clock", morlanClockWatts}};

std::vector<Calculation> allCalculations() {
  std::vector<Calculation> all = dataCalculations;
  all.insert(all.end(), clockCalculations.begin(), clockCalculations.end());
  return all;
}

void expectRatio(const Calculation& calculation, const Point& changed, double ratio, const char* what) {
  const double before = calculation.watts({});
  ASSERT_GT(before, 0.0) << calculation.name;
  EXPECT_NEAR(calculation.watts(changed) / before, ratio, 1e-5 * ratio) << calculation.name << ": " << what;
}

TEST(FabricPower, FollowsTheSwitchingLaw) {
  for (const Calculation& calculation : allCalculations()) {
    expectRatio(calculation, {.megahertz = 900}, 3, "linear in frequency");
    expectRatio(calculation, {.count = 250000}, 2.5, "linear in count");
    expectRatio(calculation, {.volts = 0.88}, 1.21, "quadratic in voltage");
  }
  for (const Calculation& calculation : dataCalculations) {
    expectRatio(calculation, {.toggleRate = 0.25}, 2, "linear in activity");
  }
  for (const Calculation& calculation : clockCalculations) {
    expectRatio(calculation, {.bufferEnable = 0.25}, 0.25, "linear in the buffer's enable");
    EXPECT_GT(calculation.watts({.siteEnable = 0.6}), calculation.watts({})) << calculation.name;
  }
  expectRatio({"Tarvek signal", tarvekSignal}, {.complexity = 12}, 1.2, "longer nets");
  expectRatio({"Tarvek logic", tarvekLogic}, {.complexity = 12}, 1.0, "cells have no routing");
}

TEST(FabricPower, NothingUsedDrawsExactlyNothing) {
  const Point idle[] = {
      {.volts = 0}, {.megahertz = 0}, {.count = 0}, {.count = 0x7FFFFFFE}, {.megahertz = -5}};
  for (const Calculation& calculation : allCalculations()) {
    for (const Point& point : idle) EXPECT_EQ(calculation.watts(point), 0.0) << calculation.name;
  }
  for (const Calculation& calculation : dataCalculations) {
    EXPECT_EQ(calculation.watts({.toggleRate = 0}), 0.0) << calculation.name;
  }
}

TEST(FabricPower, TwoRowsMergedEqualTheirSum) {
  for (const Calculation& calculation : allCalculations()) {
    const double apart = calculation.watts({.count = 30000}) + calculation.watts({.count = 12345});
    EXPECT_NEAR(calculation.watts({.count = 42345}), apart, 1e-6 * apart) << calculation.name;
  }
}

/// Femtojoules of one LUT output transition with its net, as far as the transition is not a glitch.
template <class Params, class... Models>
double lutTransitionEnergy(double volts) {
  Params params;
  params[Params::IntEnum::LUT_LOGIC] = 100000;
  setFloats(params, {.volts = volts});
  (Models::getGlobal().calculate(params), ...);
  return params[Params::FloatEnum::VCCINT_POWER] / (100000 * 300e6 * 0.125) * 1e15;
}

TEST(FabricPower, EnergiesLieWherePublishedOnesDo) {
  const double cell = lutTransitionEnergy<KVXMTarvekCleLogicParams, KVXMTarvekCleLogicModel>(0.8);
  const double net = lutTransitionEnergy<KVXMTarvekSignalParams, KVXMTarvekSignalModel>(0.8);
  EXPECT_GT(cell + net, 5);
  EXPECT_LT(cell + net, 50);
  EXPECT_NEAR(net / (cell + net), 0.5, 0.15) << "routing is about half";
  const double older = lutTransitionEnergy<KVXMMorlanLogicAbstractParams, KVXMMorlanLogicAbstractModel>(0.85);
  EXPECT_GT(older, 10);
  EXPECT_LT(older, 100);
  EXPECT_NEAR(older / (cell + net), 0.136 / 0.064, 0.6) << "scaling from 16 nm to 7 nm";

  const double pin = clockPinWatts({.siteEnable = 1, .count = 100000}) / (100000 * 300e6) * 1e15;
  EXPECT_GT(pin, 0.6);
  EXPECT_LT(pin, 6);
  const double clock = distributionWatts({}) + clockPinWatts({});
  EXPECT_GT(clock, 0.02) << "100,000 loads at 300 MHz";
  EXPECT_LT(clock, 1.0);
}

TEST(ClockReach, ALoadIsCountedOnce) {
  using F = KVXMTarvekClockParams::FloatEnum;
  KVXMTarvekClockParams params = tarvekReach({});
  const float loads = params[F::SLICE_LOADS] + params[F::RAM_SITES] + params[F::HARD_SITES];
  EXPECT_NEAR(loads, 100000, 1);
  EXPECT_NEAR(params[F::SLICE_SITES], params[F::SLICE_LOADS] / 6.5, 0.1);
  EXPECT_LE(params[F::REGIONS], 12.0f);

  KVXMTarvekClockParams alone;  // nothing else is known of the design
  alone[KVXMTarvekClockParams::IntEnum::FANOUT] = 65;
  KVXMTarvekClockModel::getGlobal().calculate(alone);
  EXPECT_EQ(alone[F::SLICE_LOADS], 65.0f);
  EXPECT_EQ(alone[F::SLICE_SITES], 10.0f);
}

TEST(Effects, CapacitanceAndEnergyFormsAgree) {
  const double energyAtNominal = 0.5 * 20e-15 * 0.8 * 0.8;
  EXPECT_NEAR(kvxm::switchingPower(0.125, 20e-15, 0.9, 300e6, 1000),
              energyAtNominal * kvxm::voltageScale(0.9, 0.8) * 0.125 * 300e6 * 1000, 1e-12);
}

TEST(Effects, LeakageFollowsTemperatureVoltageAndCorner) {
  const kvxm::LeakageLaw law{.watts = 2, .nominalVolts = 0.8, .voltageExponent = 3, .perKelvin = 0.03};
  EXPECT_DOUBLE_EQ(kvxm::leakagePower(law, 0.8, 25, 1), 2.0);
  EXPECT_NEAR(kvxm::leakagePower(law, 0.8, 25 + std::log(2.0) / 0.03, 1), 4.0, 1e-9) << "doubles in 23 C";
  EXPECT_NEAR(kvxm::leakagePower(law, 0.88, 25, 1), 2 * std::pow(1.1, 4), 1e-9) << "current and one more V";
  EXPECT_DOUBLE_EQ(kvxm::leakagePower(law, 0.8, 25, 1.8), 3.6);
  EXPECT_EQ(kvxm::leakagePower(law, 0.0, 125, 1), 0.0);
}

TEST(Effects, OscillatorOfAClockManager) {
  EXPECT_DOUBLE_EQ(kvxm::oscillatorFrequency(100, 48, 4), 1200);
  EXPECT_EQ(kvxm::oscillatorFrequency(100, 48, 0), 0.0);
}

}  // namespace
