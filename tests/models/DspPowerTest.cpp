#include "models/common/DspPower.h"

#include <set>

#include "models/morlan/KVXMMorlanDsp.h"
#include "models/tarvek/KVXMTarvekDspConfig.h"
#include "models/tarvek/KVXMTarvekDspConfigData.h"
#include "models/tarvek/KVXMTarvekDspCplx.h"
#include "models/tarvek/KVXMTarvekDspFp32.h"
#include "models/tarvek/KVXMTarvekDspInt24.h"
#include "models/tarvek/KVXMTarvekDspInt8.h"
#include "models/tarvek/KVXMTarvekDspLegacy.h"

namespace {

struct Slice {
  double volts = 0.0;  ///< 0: the record's own
  double megahertz = 400;
  double toggleRate = 0.125;
  int count = 100;
  bool mult = true, mreg = true, preadd = false, adreg = false;
  int widthA = 18, widthB = 18, products = 1, slicesPerUse = 1, adder = 0;
};

template <class Params, class Model>
double watts(const Slice& slice) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  Params params;
  params[I::SLICES] = slice.count;
  params[I::MULT_USED] = slice.mult;
  params[I::MREG_USED] = slice.mreg;
  params[I::PREADD_USED] = slice.preadd;
  params[I::ADREG_USED] = slice.adreg;
  if constexpr (requires { I::WIDTH_A; }) {
    params[I::WIDTH_A] = slice.widthA;
    params[I::WIDTH_B] = slice.widthB;
    params[I::PRODUCTS] = slice.products;
    params[I::SLICES_PER_USE] = slice.slicesPerUse;
    params[I::ADDER_WIDTH] = slice.adder;
  }
  params[F::FREQUENCY] = static_cast<float>(slice.megahertz);
  params[F::TOGGLE_RATE] = static_cast<float>(slice.toggleRate);
  if (slice.volts > 0.0) params[F::VCCINT] = static_cast<float>(slice.volts);
  Model::getGlobal().calculate(params);
  return static_cast<double>(params[F::DATA_POWER]) + static_cast<double>(params[F::CLOCK_POWER]);
}

constexpr auto int24 = watts<KVXMTarvekDspInt24Params, KVXMTarvekDspInt24Model>;
constexpr auto cplx = watts<KVXMTarvekDspCplxParams, KVXMTarvekDspCplxModel>;
constexpr auto fp32 = watts<KVXMTarvekDspFp32Params, KVXMTarvekDspFp32Model>;
constexpr auto int8 = watts<KVXMTarvekDspInt8Params, KVXMTarvekDspInt8Model>;
constexpr auto legacy = watts<KVXMTarvekDspLegacyParams, KVXMTarvekDspLegacyModel>;
constexpr auto older = watts<KVXMMorlanDspParams, KVXMMorlanDspModel>;

const struct {
  const char* name;
  double (*watts)(const Slice&);
} kinds[] = {{"INT24", int24}, {"CPLX", cplx},     {"FP32", fp32},
             {"INT8", int8},   {"LEGACY", legacy}, {"Morlan", older}};

double picojoules(double slicesWatts) {
  return slicesWatts / (100 * 400e6) * 1e12;
}

TEST(DspPower, EnergiesLieWherePublishedOnesDo) {
  EXPECT_NEAR(picojoules(int24({})), 0.94, 0.1);
  EXPECT_NEAR(picojoules(int24({.widthA = 36, .widthB = 36})), 3.7, 0.8);
  EXPECT_NEAR(picojoules(older({})), 1.7 * 27 / 18, 0.5) << "a wider product, and an adder of 48 bits";
}

TEST(DspPower, ScalesAsItsInputsDo) {
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const double before = kind.watts({.volts = 0.8});
    EXPECT_GT(before, 0.0);
    EXPECT_NEAR(kind.watts({.volts = 0.8, .megahertz = 800}) / before, 2.0, 1e-5);
    EXPECT_NEAR(kind.watts({.volts = 0.8, .count = 300}) / before, 3.0, 1e-5);
    EXPECT_NEAR(kind.watts({.volts = 0.88}) / before, 1.21, 1e-5);
    const double idle = kind.watts({.volts = 0.8, .toggleRate = 0});
    EXPECT_GT(idle, 0.02 * before) << "the clock runs on";
    EXPECT_LT(idle, 0.5 * before);
    EXPECT_NEAR(kind.watts({.volts = 0.8, .toggleRate = 0.25}) - idle, 2.0 * (before - idle), 1e-5 * before);
    EXPECT_EQ(kind.watts({.count = 0}), 0.0);
    EXPECT_EQ(kind.watts({.megahertz = 0}), 0.0);
  }
}

TEST(DspPower, EachStageHasItsPrice) {
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const double before = kind.watts({});
    EXPECT_GT(kind.watts({.preadd = true}), before);
    EXPECT_GT(kind.watts({.adreg = true}), before);
    EXPECT_LT(kind.watts({.mult = false}), before);
    EXPECT_GT(kind.watts({.mreg = false}), before) << "glitches run on";
    EXPECT_LT(kind.watts({.toggleRate = 0, .mreg = false}), kind.watts({.toggleRate = 0})) << "no clock pins";
    EXPECT_EQ(kind.watts({.mult = false, .mreg = true, .preadd = true, .adreg = true}),
              kind.watts({.mult = false, .mreg = false}))
        << "nothing passes the stages around an idle multiplier";
  }
}

TEST(DspPower, KindsOfArithmeticDifferAsPublished) {
  EXPECT_NEAR(cplx({.products = 4, .slicesPerUse = 2}), int24({.products = 2}), 1e-9);
  EXPECT_GT(int24({.adder = 58}), int24({}));
  const double product = int24({.widthA = 24, .widthB = 24});
  EXPECT_GT(fp32({.widthA = 24, .widthB = 24}), 1.3 * product);
  EXPECT_LT(fp32({.widthA = 24, .widthB = 24}), 2.2 * product);
  const double extra = legacy({}) / int24({});
  EXPECT_GT(extra, 1.0);
  EXPECT_LT(extra, 1.2) << "slightly more";
}

TEST(DspConfigurations, AreSound) {
  const auto& data = KVXMTarvekDspConfigData::getGlobal();
  const auto texts = data.getDspConfigMap();
  std::set<std::string> displays, modes;
  for (const auto& [key, text] : texts) {
    SCOPED_TRACE(key);
    displays.insert(text);
    const kvxm::DspConfiguration* found = data.getDspConfigData(key);
    ASSERT_TRUE(found);
    EXPECT_EQ(data.getDspConfigData(text), found);
    modes.emplace(found->mode);
    EXPECT_EQ(key.starts_with("48"), found->mode == "LEGACY");
    EXPECT_EQ(found->products > 0, found->widthA * found->widthB > 0);
    EXPECT_TRUE(found->products > 0 || found->adderWidth > 0) << "does nothing";
    EXPECT_TRUE(found->adderWidth > 0 || found->isDerived) << "nothing is left without the multiplier";
    EXPECT_TRUE(found->products > 0 || (found->isDerived && !found->hasPreadder && !found->hasAdReg));
    EXPECT_GT(found->outputWidth, 0);
    EXPECT_GE(found->slices, 1);
  }
  EXPECT_EQ(displays.size(), texts.size()) << "a text stands for two configurations";
  EXPECT_EQ(modes, (std::set<std::string>{"INT24", "CPLX", "FP32", "INT8", "LEGACY"}));
  EXPECT_THAT(displays,
              testing::IsSupersetOf({"12x12", "18x18", "18x18 + 58", "18x18 + 58 Dynamic", "27x24 + 58"}));
}

TEST(DspConfigurations, AnUnknownOneHasNoMode) {
  KVXMTarvekDspConfigParams params;
  params[KVXMTarvekDspConfigParams::StringEnum::CONFIGURATION] = "9x9";
  KVXMTarvekDspConfigModel::getGlobal().calculate(params);
  EXPECT_EQ(params[KVXMTarvekDspConfigParams::StringEnum::MODE], "");
  EXPECT_EQ(params[KVXMTarvekDspConfigParams::IntEnum::SLICES_PER_USE], 0);
}

}  // namespace
