#include "models/common/ProcessorPower.h"

#include <set>

#include "models/morlan/KVXMMorlanPss.h"
#include "models/morlan/KVXMMorlanPssData.h"
#include "models/tarvek/KVXMTarvekPmc.h"
#include "models/tarvek/KVXMTarvekPss.h"
#include "models/tarvek/KVXMTarvekPssData.h"

using namespace ::testing;

namespace {

struct Use {
  std::string block;
  int count = 1;
  float megahertz = 100.0f;
  float load = 1.0f;
  float core = 0.8f, pad = 1.8f, bias = 1.2f;
};

struct Power {
  double core, pad, bias;
  double total() const { return core + pad + bias; }
};

template <class Params, class Model>
Power run(const Use& use) {
  using F = typename Params::FloatEnum;
  Params params;
  params[Params::StringEnum::BLOCK] = use.block;
  params[Params::IntEnum::COUNT] = use.count;
  params[F::FREQUENCY] = use.megahertz;
  params[F::LOAD] = use.load;
  params[F::CORE_VOLTAGE] = use.core;
  params[F::PAD_VOLTAGE] = use.pad;
  params[F::BIAS_VOLTAGE] = use.bias;
  Model::getGlobal().calculate(params);
  return {params[F::CORE_POWER], params[F::PAD_POWER], params[F::BIAS_POWER]};
}

struct Architecture {
  const char* name;
  Power (*run)(const Use&);
  const kvxm::ProcessorBlocks& data;
};
const Architecture architectures[] = {
    {"Tarvek", &run<KVXMTarvekPssParams, KVXMTarvekPssModel>, KVXMTarvekPssData::getGlobal()},
    {"TarvekPmc", &run<KVXMTarvekPmcParams, KVXMTarvekPmcModel>, KVXMTarvekPssData::getGlobal()},
    {"Morlan", &run<KVXMMorlanPssParams, KVXMMorlanPssModel>, KVXMMorlanPssData::getGlobal()},
};

/// Calls `visit` with each block of each architecture, used as most designs do.
template <class Visit>
void forEachBlock(Visit visit) {
  for (const Architecture& arch : architectures)
    for (const kvxm::ProcessorBlock& block : arch.data.getBlocks()) {
      SCOPED_TRACE(std::string(arch.name) + " " + std::string(block.name));
      visit(arch.run, block,
            Use{.block = std::string(block.name), .megahertz = block.megahertz, .load = 0.5f});
    }
}

// Published: a cluster of four application cores takes one to two watts at full load in the 16 nm class, a
// core with its caches 100 to 300 pJ a cycle in either.
TEST(ProcessorPower, IsOfTheExpectedSize) {
  const struct {
    const Architecture& arch;
    Use use;
    double least, most;
  } cases[] = {
      {architectures[2], {"Application Processors", 4, 1200, 1, 0.85f}, 1.0, 2.0},
      {architectures[2], {"Real-Time Processors", 2, 500, 1, 0.85f}, 0.04, 0.15},
      {architectures[2], {"DDR4", 64, 2400, 0.5f, 0.85f, 1.2f}, 0.5, 1.5},
      {architectures[2], {"Serial Transceivers", 1, 2500, 1, 0.85f, 0, 1.8f}, 0.04, 0.15},
      {architectures[2], {"Real-Time Clock", 1, 0.032768f, 1, 0, 0, 1.5f}, 1e-6, 1e-5},
      {architectures[0], {"Application Processors", 2, 1350, 1, 0.8f}, 0.3, 0.8},
      {architectures[1], {"Platform Processors", 2, 320, 1, 0.8f}, 0.003, 0.03},
      {architectures[0], {"Gigabit Ethernet", 1, 125, 1, 0.8f, 1.8f}, 0.01, 0.05},
  };
  for (const auto& [arch, use, least, most] : cases) {
    EXPECT_GE(arch.run(use).total(), least) << arch.name << " " << use.block;
    EXPECT_LE(arch.run(use).total(), most) << arch.name << " " << use.block;
  }
}

TEST(ProcessorPower, OfABlockIsLinearInCountAndFrequencyAndQuadraticInVoltage) {
  forEachBlock([](auto run, const kvxm::ProcessorBlock&, Use use) {
    const Power one = run(use);
    EXPECT_GT(one.total(), 0.0);
    Use more = use;
    more.count = 3;
    EXPECT_NEAR(run(more).total(), 3 * one.total(), 1e-5 * one.total());
    more = use;
    more.megahertz *= 2;
    EXPECT_NEAR(run(more).core + run(more).pad, 2 * (one.core + one.pad), 1e-5 * one.total());
    EXPECT_EQ(run(more).bias, one.bias) << "a bias does not know the frequency";
    more = use;
    more.core *= 1.1f;
    more.pad *= 1.1f;
    more.bias *= 1.1f;
    EXPECT_NEAR(run(more).core + run(more).pad, 1.21 * (one.core + one.pad), 1e-5 * one.total());
    EXPECT_NEAR(run(more).bias, 1.1 * one.bias, 1e-5 * one.total());
  });
}

TEST(ProcessorPower, OfABlockRisesWithTheLoadFromWhatItsClocksTake) {
  forEachBlock([](auto run, const kvxm::ProcessorBlock& block, Use use) {
    const double half = run(use).total();
    use.load = 0.0f;
    const double idle = run(use).total();
    use.load = 1.0f;
    const double full = run(use).total();
    EXPECT_NEAR(half, (idle + full) / 2, 1e-5 * full) << "linear";
    EXPECT_GT(idle, 0.0);
    EXPECT_EQ(full > idle, block.work || block.pads > 0);
    use.load = 7.0f;
    EXPECT_EQ(run(use).total(), full) << "no more than all of the time";
  });
}

TEST(ProcessorPower, IsNoneWhenNothingIsUsed) {
  forEachBlock([](auto run, const kvxm::ProcessorBlock&, Use use) {
    for (const int count : {0, -1, 2147483646}) {
      use.count = count;
      EXPECT_EQ(run(use).total(), 0.0) << count;
    }
  });
  for (const Architecture& arch : architectures)
    for (const char* name : {"", "None", "Toaster"})
      EXPECT_EQ(arch.run({.block = name}).total(), 0.0) << name;
}

TEST(ProcessorPower, IsDrawnFromTheSuppliesThatTheBlockDeclares) {
  forEachBlock([](auto run, const kvxm::ProcessorBlock& block, Use use) {
    const Power power = run(use);
    EXPECT_EQ(power.core > 0.0, !block.coreRail.empty());
    EXPECT_EQ(power.pad > 0.0, !block.padRail.empty());
    EXPECT_EQ(power.bias > 0.0, !block.biasRail.empty());
  });
}

TEST(ProcessorPower, OfTheMemoryInterfaceFollowsWidthRateAndActivity) {
  const auto run = architectures[2].run;
  for (const std::string& type : KVXMMorlanPssData::getGlobal().getMemoryTypes()) {
    if (type == "None") continue;
    const Use use{.block = type, .count = 32, .megahertz = 1600, .load = 0.5f, .pad = 1.2f};
    const Power power = run(use);
    EXPECT_GT(power.core, 0.0) << type;
    EXPECT_GT(power.pad, 0.0) << type;
    Use other = use;
    other.count = 16;
    EXPECT_NEAR(run(other).total(), power.total() / 2, 1e-6) << type;
    other = use;
    other.load = 0.0f;
    EXPECT_EQ(run(other).pad, 0.0) << type << " moves no data";
    EXPECT_GT(run(other).core, 0.0) << type << " is still clocked";
    EXPECT_LT(run(other).core, power.core) << type;
  }
  EXPECT_LT(run({.block = "LPDDR4", .count = 32, .megahertz = 1600}).pad,
            run({.block = "DDR4", .count = 32, .megahertz = 1600}).pad);
}

TEST(ProcessorData, IsSound) {
  for (const Architecture& arch : architectures) {
    std::set<std::string_view> names;
    for (const kvxm::ProcessorBlock& block : arch.data.getBlocks()) {
      EXPECT_TRUE(names.insert(block.name).second) << block.name << " stands twice";
      EXPECT_GE(block.most, 1) << block.name;
      EXPECT_GT(block.megahertz, 0.0f) << block.name;
      EXPECT_LE(block.megahertz, block.limits[0])
          << block.name << " starts above what the slowest grade runs at";
      EXPECT_LE(block.limits[0], block.limits[1]) << block.name;
      EXPECT_LE(block.limits[1], block.limits[2]) << block.name;
    }
    for (const kvxm::ProcessorMemory& memory : arch.data.getMemories())
      EXPECT_LE(static_cast<float>(memory.rates.front()), memory.limits[0]) << memory.name;
  }
}

TEST(ProcessorData, KnowsWhatASpeedGradeReaches) {
  const kvxm::ProcessorBlock* cores = KVXMMorlanPssData::getGlobal().findBlock("Application Processors");
  ASSERT_TRUE(cores);
  for (const auto& [speed, megahertz] : {std::pair{"1", 1200.0f},
                                         {"1LV", 1200.0f},
                                         {"2", 1333.0f},
                                         {"2LV", 1333.0f},
                                         {"3", 1500.0f},
                                         {"", 1200.0f},
                                         {"fast", 1200.0f}})
    EXPECT_EQ(kvxm::limitOf(cores->limits, speed), megahertz) << speed;
}

}  // namespace
