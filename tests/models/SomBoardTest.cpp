// The boards of the modules: energy is conserved, limits are found, data can be overridden.

#include <cmath>

#include "models/morlan/KVXMMorlanSM4.h"
#include "models/morlan/KVXMMorlanSM6.h"
#include "models/morlan/SomBoardPower.h"
#include "tests/models/CatalogueKit.h"

using kvxm::BoardComponent;
using kvxm::BoardKey;
using kvxm::BoardLoad;
using kvxm::BoardOutput;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct ModuleCase {
  const char* name;
  std::unique_ptr<kvxm::Record> (*make)();
  void (*calculate)(kvxm::Record& params);
};

template <class Params, class Model>
constexpr ModuleCase moduleCase(const char* name) {
  return {name, [] { return std::unique_ptr<kvxm::Record>(std::make_unique<Params>()); },
          [](kvxm::Record& params) { Model::getGlobal().calculate(static_cast<Params&>(params)); }};
}

constexpr ModuleCase modules[] = {
    moduleCase<KVXMMorlanSM6Params, KVXMMorlanSM6Model>("SM6"),
    moduleCase<KVXMMorlanSM4Params, KVXMMorlanSM4Model>("SM4"),
};

float value(kvxm::Record& params, int key) {
  return *params.findFloat(key);
}

float heat(kvxm::Record& params, BoardComponent component) {
  return value(params, BoardKey::heatOf(component));
}

float heatOfAll(kvxm::Record& params) {
  double sum = 0.0;
  for (int i = 0; i < static_cast<int>(BoardComponent::Count); ++i)
    sum += static_cast<double>(heat(params, static_cast<BoardComponent>(i)));
  return static_cast<float>(sum);
}

void load(kvxm::Record& params, float wattsOfEachRail, int count, int width, float activity) {
  for (int i = 0; i < static_cast<int>(BoardLoad::Count); ++i)
    *params.findFloat(BoardKey::powerOf(static_cast<BoardLoad>(i))) = wattsOfEachRail;
  for (int use = static_cast<int>(kvxm::BoardUse::QSPI); use < static_cast<int>(kvxm::BoardUse::Count); ++use)
    *params.findInt(BoardKey::countOf(static_cast<kvxm::BoardUse>(use))) = count;
  *params.findInt(BoardKey::MEMORY_WIDTH) = width;
  *params.findFloat(BoardKey::MEMORY_RATE) = 2400.0f;
  *params.findFloat(BoardKey::MEMORY_ACTIVITY) = activity;
}

}  // namespace

TEST(SomBoard, HeatIsWhatTheInputAndTheCarrierDeliver) {
  for (const ModuleCase& module : modules) {
    for (const float watts : {0.0f, 0.01f, 0.4f, 5.0f}) {
      for (const int width : {0, 32, 64}) {
        for (const float bankWatts : {0.0f, 1.5f}) {
          SCOPED_TRACE(std::string(module.name) + " " + std::to_string(watts) + " W, width " +
                       std::to_string(width));
          const auto params = module.make();
          load(*params, watts, width > 32, width, 0.5f);
          *params->findFloat(BoardKey::PL_BANK_POWER) = bankWatts;
          module.calculate(*params);
          const float delivered = value(*params, BoardKey::INPUT_POWER) + bankWatts;
          EXPECT_NEAR(heatOfAll(*params), delivered, 1e-5f * delivered);
          EXPECT_NEAR(value(*params, BoardKey::BOARD_POWER), delivered, 1e-5f * delivered);
        }
      }
    }
  }
}

TEST(SomBoard, ARailHeatsTheChipByItsPowerAndItsRegulatorByTheLoss) {
  struct Case {
    BoardLoad load;
    BoardComponent sm6, sm4;
  };
  const Case cases[] = {
      {BoardLoad::PL_CORE, BoardComponent::U166, BoardComponent::U167},
      {BoardLoad::PS_CORE, BoardComponent::U167, BoardComponent::U167},
      {BoardLoad::VCU, BoardComponent::U167, BoardComponent::U167},
      {BoardLoad::PL_RAM, BoardComponent::U170, BoardComponent::U170},
      {BoardLoad::XCVRB_AVCC, BoardComponent::U151, BoardComponent::U170},
      {BoardLoad::XCVRE_AVCC, BoardComponent::U165, BoardComponent::U170},
      {BoardLoad::PS_DDR, BoardComponent::PCB, BoardComponent::PCB},
  };
  for (const ModuleCase& module : modules) {
    for (const Case& given : cases) {
      SCOPED_TRACE(std::string(module.name) + " load " + std::to_string(static_cast<int>(given.load)));
      const auto idle = module.make();
      module.calculate(*idle);
      const auto busy = module.make();
      *busy->findFloat(BoardKey::powerOf(given.load)) = 1.0f;
      module.calculate(*busy);
      const BoardComponent regulator = std::string(module.name) == "SM6" ? given.sm6 : given.sm4;
      EXPECT_NEAR(heat(*busy, BoardComponent::CHIP) - heat(*idle, BoardComponent::CHIP), 1.0f, 1e-5f);
      const float loss = heat(*busy, regulator) - heat(*idle, regulator);
      EXPECT_GT(loss, 0.05f);
      EXPECT_LT(loss, 1.0f);
      EXPECT_FLOAT_EQ(heat(*busy, BoardComponent::MEMORY), heat(*idle, BoardComponent::MEMORY));
    }
  }
}

TEST(SomBoard, AnIdleBoardDrawsLittleAndExceedsNothing) {
  for (const ModuleCase& module : modules) {
    SCOPED_TRACE(module.name);
    const auto params = module.make();
    module.calculate(*params);
    EXPECT_GT(value(*params, BoardKey::INPUT_POWER), 0.02f);
    EXPECT_LT(value(*params, BoardKey::INPUT_POWER), 0.5f);
    EXPECT_FLOAT_EQ(heat(*params, BoardComponent::CHIP), 0.0f);
    for (int i = 0; i < static_cast<int>(BoardOutput::Count); ++i)
      EXPECT_FLOAT_EQ(value(*params, BoardKey::overlimitOf(static_cast<BoardOutput>(i))), 0.0f) << i;
  }
}

TEST(SomBoard, OverlimitIsTheExcessInMilliwatts) {
  KVXMMorlanSM6Params params;
  using F = KVXMMorlanSM6Params::FloatEnum;
  const auto excess = [&](float watts) {
    params[F::PL_CORE_POWER] = watts;
    KVXMMorlanSM6Model::getGlobal().calculate(params);
    return params[F::U166_DA9130_OVERLIMIT];
  };
  EXPECT_FLOAT_EQ(excess(8.0f), 0.0f);
  const float atNine = excess(9.0f);
  EXPECT_GT(atNine, 500.0f);                           // the excess of the load and the copper before it
  EXPECT_NEAR(excess(10.0f) - atNine, 1026.3f, 1.0f);  // one watt, and (10^2 - 9^2) / 0.85^2 of a milliohm
  EXPECT_FLOAT_EQ(params[F::U167_DA9131_CH1_OVERLIMIT], 0.0f);
}

TEST(SomBoard, MoreUseNeverDrawsLess) {
  for (const ModuleCase& module : modules) {
    SCOPED_TRACE(module.name);
    float before = 0.0f;
    for (const float activity : {0.0f, 0.25f, 0.5f, 1.0f}) {
      const auto params = module.make();
      load(*params, 0.1f, 1, 64, activity);
      module.calculate(*params);
      EXPECT_GT(value(*params, BoardKey::INPUT_POWER), before);
      before = value(*params, BoardKey::INPUT_POWER);
    }
    const auto beyond = module.make();
    load(*beyond, 0.1f, 1, 64, 3.0f);
    module.calculate(*beyond);
    EXPECT_FLOAT_EQ(value(*beyond, BoardKey::INPUT_POWER), before)
        << "an interface is busy at most all the time";
  }
}

TEST(SomBoardData, ARowOfTheUserReplacesTheBuiltInOne) {
  ModelDataDirectory directory;
  const std::string header = "module,output,component,volts,efficiency,milliohms,limit_w,loads\n";
  directory.write("som/regulators.csv", header + "SM6,U166_DA9130,U166,0.85,0.5,0,1,PL_CORE\n");
  directory.load();
  EXPECT_THAT(kvxm::modelDataErrors(), IsEmpty());
  KVXMMorlanSM6Params params;
  using F = KVXMMorlanSM6Params::FloatEnum;
  params[F::PL_CORE_POWER] = 2.0f;
  KVXMMorlanSM6Model::getGlobal().calculate(params);
  EXPECT_FLOAT_EQ(params[F::U166_HEAT], 2.0f);
  EXPECT_FLOAT_EQ(params[F::U166_DA9130_OVERLIMIT], 1000.0f);
}

TEST(SomBoardData, MistakesAreNamed) {
  struct Case {
    const char* label;
    const char* row;
    const char* message;
  };
  const Case cases[] = {
      {"load fed twice", "SM6,U166_DA9130,U166,0.85,0.9,0,1,PL_CORE VCU", "SM6: VCU is fed twice"},
      {"load without a supply", "SM6,U166_DA9130,U166,0.85,0.9,0,1,", "SM6: PL_CORE is not fed"},
      {"unknown load", "SM6,U166_DA9130,U166,0.85,0.9,0,1,PL_COR",
       "loads: \"PL_COR\"; did you mean \"PL_CORE\"?"},
      {"unknown output", "SM6,U999,U166,0.85,0.9,0,1,PL_CORE", "output: \"U999\""},
      {"more out than in", "SM6,U166_DA9130,U166,0.85,1.1,0,1,PL_CORE", "efficiency: \"1.1\""},
      {"unknown module", "SM9,U166_DA9130,U166,0.85,0.9,0,1,PL_CORE", "module: \"SM9\""},
      {"loaded input", "SM6,VCC_SOM,PCB,5,1,0,1,PL_CORE", "it feeds the regulators"},
  };
  for (const Case& given : cases) {
    SCOPED_TRACE(given.label);
    ModelDataDirectory directory;
    directory.write("som/regulators.csv",
                    std::string("module,output,component,volts,efficiency,milliohms,limit_w,"
                                "loads\n") +
                        given.row + "\n");
    directory.load();
    EXPECT_THAT(kvxm::modelDataErrors(), Contains(HasSubstr(given.message)));
  }
}
