#include "models/common/MemoryPower.h"

#include <gtest/gtest.h>

#include <string>

#include "models/morlan/KVXMMorlanBram.h"
#include "models/morlan/KVXMMorlanWram.h"
#include "models/tarvek/KVXMTarvekBram.h"
#include "models/tarvek/KVXMTarvekHsRam.h"
#include "models/tarvek/KVXMTarvekWram.h"

namespace {

/// One row of memories, in the terms that all kinds share. Both ports are used alike.
struct Row {
  double count = 100, megahertz = 400, coreVolts = 0.8, arrayVolts = 0.8;
  double toggleRate = 0.125, enable = 0.25, write = 0.25;
  int width = 36, cascade = 0, latency = 1;
  std::string mode = "", writeMode = "NO_CHANGE", sleep = "No";
  double sleepRate = 0, inactiveCycles = 0;
  bool isSinglePort = false;
};

struct Watts {
  double core = 0, array = 0, nets = 0;
  double total() const { return core + array + nets; }
};

template <class Params>
void setRow(const Row& row, Params& params) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  using S = typename Params::StringEnum;
  const auto set = [&](F slot, double value) { params[slot] = static_cast<float>(value); };
  if (!row.mode.empty()) params[S::MODE] = row.mode;
  params[I::COUNT] = static_cast<int>(row.count);
  params[I::CASCADE_GROUP_SIZE] = row.cascade;
  params[I::PORT_A_WIDTH] = params[I::PORT_B_WIDTH] = row.width;
  set(F::VCCINT, row.coreVolts);
  set(F::VCCRAM, row.arrayVolts);
  for (const F port : {F::PORT_A_ENABLE, F::PORT_B_ENABLE}) set(port, row.enable);
  for (const F port : {F::PORT_A_WRITE, F::PORT_B_WRITE}) set(port, row.write);
  if constexpr (requires { F::PORT_A_CLOCK; }) {
    set(F::TOGGLE_RATE, row.toggleRate);
    set(F::PORT_A_CLOCK, row.megahertz);
    set(F::PORT_B_CLOCK, row.isSinglePort ? 0.0 : row.megahertz);
    params[S::PORT_A_WRITE_MODE] = params[S::PORT_B_WRITE_MODE] = row.writeMode;
  } else {
    for (const F rate : {F::INPUT_TOGGLE_RATE, F::OUTPUT_TOGGLE_RATE}) set(rate, row.toggleRate);
    set(F::FREQUENCY, row.megahertz);
    set(F::SLEEP_RATE, row.sleepRate);
    set(F::AVG_INACTIVE_CYCLES, row.inactiveCycles);
    params[S::AUTO_SLEEP] = row.sleep;
    params[I::LATENCY] = row.latency;
  }
}

template <class Params, class Model>
Watts watts(const Row& row) {
  using F = typename Params::FloatEnum;
  Params params;
  setRow(row, params);
  Model::getGlobal().calculate(params);
  const bool isInKilowatts = requires {
    F::PORT_A_CLOCK;
  };
  const double scale = isInKilowatts ? 1000.0 : 1.0;
  return {static_cast<double>(params[F::VCCINT_POWER]) * scale,
          static_cast<double>(params[F::VCCRAM_POWER]) * scale, static_cast<double>(params[F::SIGNAL_POWER])};
}

template <>
Watts watts<KVXMTarvekHsRamParams, KVXMTarvekHsRamModel>(const Row& row) {
  using F = KVXMTarvekHsRamParams::FloatEnum;
  KVXMTarvekHsRamParams params;
  params[KVXMTarvekHsRamParams::IntEnum::NUM_MEMORY] = static_cast<int>(row.count);
  params[F::FREQUENCY] = static_cast<float>(row.megahertz);
  params[F::VCCINT] = static_cast<float>(row.coreVolts);
  params[F::TOGGLE_RATE] = static_cast<float>(row.toggleRate);
  params[F::DUTY_CYCLE] = static_cast<float>(row.enable);
  KVXMTarvekHsRamModel::getGlobal().calculate(params);
  return {.core = static_cast<double>(params[F::VCCINT_POWER])};
}

constexpr auto tarvekBram = watts<KVXMTarvekBramParams, KVXMTarvekBramModel>;
constexpr auto morlanBram = watts<KVXMMorlanBramParams, KVXMMorlanBramModel>;
constexpr auto tarvekWram = watts<KVXMTarvekWramParams, KVXMTarvekWramModel>;
constexpr auto morlanWram = watts<KVXMMorlanWramParams, KVXMMorlanWramModel>;

struct Kind {
  const char* name;
  Watts (*watts)(const Row&);
  const char* plainMode;
};
const Kind kinds[] = {{"Tarvek BRAM", tarvekBram, "BMEM36SDP"},
                      {"Morlan BRAM", morlanBram, "BMEM36SDP"},
                      {"Tarvek WRAM", tarvekWram, "SDP"},
                      {"Morlan WRAM", morlanWram, "SDP"}};
const Kind multiPort{"Tarvek MPRAM", watts<KVXMTarvekHsRamParams, KVXMTarvekHsRamModel>, ""};

void expectSwitchingLaw(const Kind& kind) {
  SCOPED_TRACE(kind.name);
  const double before = kind.watts({}).total();
  ASSERT_GT(before, 0.0);
  EXPECT_NEAR(kind.watts({.count = 300}).total() / before, 3.0, 1e-5);
  EXPECT_NEAR(kind.watts({.megahertz = 600}).total() / before, 1.5, 1e-5);
  EXPECT_NEAR(kind.watts({.coreVolts = 0.88, .arrayVolts = 0.88}).total() / before, 1.21, 1e-5);
  EXPECT_GT(kind.watts({.toggleRate = 0.25}).total(), before);
  EXPECT_GT(kind.watts({.enable = 0.5}).total(), before);
  const double apart = kind.watts({.count = 30}).total() + kind.watts({.count = 70}).total();
  EXPECT_NEAR(apart, before, 1e-6 * apart) << "rows merged equal their sum";
  constexpr int BlankCount = 0x7FFFFFFE;
  for (const Row& row : {Row{.count = 0}, Row{.count = -5}, Row{.count = BlankCount}, Row{.megahertz = 0},
                         Row{.megahertz = -1}, Row{.coreVolts = 0, .arrayVolts = 0}})
    EXPECT_EQ(kind.watts(row).total(), 0.0);
}

TEST(MemoryPower, FollowsTheSwitchingLaw) {
  for (const Kind& kind : kinds) {
    expectSwitchingLaw(kind);
    const Watts before = kind.watts({});
    EXPECT_GT(kind.watts({.width = 72}).core, before.core) << kind.name;
    EXPECT_GT(kind.watts({.width = 72}).array, before.array) << kind.name;
    EXPECT_EQ(kind.watts({.coreVolts = 0.88}).array, before.array) << "each rail has its own part";
    EXPECT_EQ(kind.watts({.arrayVolts = 0.88}).core, before.core) << kind.name;
  }
  expectSwitchingLaw(multiPort);
}

TEST(MemoryPower, AWriteCostsWhatItShows) {
  for (const auto& bram : {tarvekBram, morlanBram}) {
    const double reads = bram({.write = 0}).total();
    for (const double write : {0.25, 0.5, 1.0}) {
      const auto written = [&](const char* mode, double share) {
        return bram({.write = share, .writeMode = mode}).total();
      };
      EXPECT_LT(written("NO_CHANGE", write), reads) << "outputs stand still";
      EXPECT_NEAR(written("WRITE_FIRST", write), reads, 1e-6 * reads);
      EXPECT_GT(written("READ_FIRST", write), written("READ_FIRST", 0.9 * write));
      EXPECT_FLOAT_EQ(static_cast<float>(bram({.write = write}).array),
                      static_cast<float>(bram({.write = 0}).array));
    }
    EXPECT_EQ(bram({.enable = 0}).total(), 0.0) << "nothing is accessed";
  }
}

TEST(MemoryPower, ErrorCorrectionAdds) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const Watts plain = kind.watts({.width = 72, .mode = kind.plainMode});
    const Watts corrected = kind.watts({.width = 72, .mode = kind.plainMode + std::string("_ECC")});
    EXPECT_GT(corrected.core, plain.core);
    EXPECT_EQ(corrected.array, plain.array);
    EXPECT_LT(corrected.total(), 2.0 * plain.total());
  }
  const auto core = [](const char* mode) { return tarvekBram({.width = 72, .mode = mode}).core; };
  const double plain = core("BMEM36SDP");
  const double encoding = core("BMEM36SDP_ECC_ENCODE_ONLY") - plain;
  const double decoding = core("BMEM36SDP_ECC_DECODE_ONLY") - plain;
  EXPECT_GT(encoding, 0.0);
  EXPECT_GT(decoding, 0.0);
  EXPECT_NEAR(core("BMEM36SDP_ECC") - plain, encoding + decoding, 1e-4 * plain);
}

TEST(MemoryPower, ACascadeOfOneIsNone) {
  for (const Kind& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const double alone = kind.watts({}).total();
    EXPECT_EQ(kind.watts({.cascade = 1}).total(), alone);
    EXPECT_LT(kind.watts({.cascade = 4}).total(), alone) << "one of a group is accessed";
    EXPECT_GT(kind.watts({.cascade = 4}).total(), alone / 4) << "and its output passes the others";
  }
}

TEST(MemoryPower, EnergiesLieWherePublishedOnesDo) {
  const struct {
    const char* name;
    Watts (*watts)(const Row&);
    double volts;
    bool isSinglePort;
    double published;  // 32 kb, picojoules a cycle
  } cases[] = {{"7 nm, one port", tarvekBram, 0.8, true, 3.4},
               {"7 nm, two ports", tarvekBram, 0.8, false, 6.8},
               {"16 nm, one port", morlanBram, 0.85, true, 6.3},
               {"16 nm, two ports", morlanBram, 0.85, false, 12.6}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const Watts watts = c.watts({.coreVolts = c.volts,
                                 .arrayVolts = c.volts,
                                 .enable = 1,
                                 .mode = "BMEM36",
                                 .isSinglePort = c.isSinglePort});
    const double picojoules = (watts.core + watts.array) / (100 * 400e6) * 1e12;
    EXPECT_GT(picojoules, c.published / 3);
    EXPECT_LT(picojoules, c.published * 3);
  }
  const Row wide{.enable = 1, .width = 72};
  const double larger = tarvekWram(wide).array / tarvekBram(wide).array;
  EXPECT_GT(larger, 1.2) << "a memory of sixteen times the capacity";
  EXPECT_LT(larger, 4.0);
}

TEST(MemoryPower, SleepAndPipelineOfWideMemories) {
  for (const auto& wram : {tarvekWram, morlanWram}) {
    const double awake = wram({}).core;
    EXPECT_EQ(wram({.sleepRate = 0.7, .inactiveCycles = 500}).core, awake) << "it is off";
    const auto asleep = [&](double rate, double cycles) {
      return wram({.sleep = "Yes", .sleepRate = rate, .inactiveCycles = cycles}).core;
    };
    EXPECT_EQ(asleep(0.0, 500), awake);
    EXPECT_LT(asleep(0.7, 500), asleep(0.5, 500));
    EXPECT_GT(asleep(0.5, 2), awake) << "waking up costs more than a short sleep saves";
    EXPECT_EQ(wram({.latency = 0}).core, awake);
    const double stage = wram({.latency = 2}).core - awake;
    EXPECT_GT(stage, 0.0);
    EXPECT_NEAR(wram({.latency = 4}).core - awake, 3 * stage, 1e-3 * stage);
  }
}

}  // namespace
