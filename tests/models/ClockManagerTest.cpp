#include <algorithm>
#include <cmath>

#include "models/common/BlockRegistry.h"
#include "models/morlan/KVXMMorlanClockMgr.h"
#include "models/morlan/KVXMMorlanClockMgrData.h"
#include "models/tarvek/KVXMTarvekClockMgr.h"
#include "models/tarvek/KVXMTarvekClockMgrData.h"

using namespace ::testing;

namespace {

// Power. All kinds are driven through their numeric keys, as the clock tab drives them.

struct Kind {
  const char* block;
  int divideKey, multiplyKey, outputs;
  std::vector<int> coreVoltages;  ///< float keys
  int auxVoltage;
  double watts1GHz;  ///< about what it draws with its oscillator at 1 GHz
};

const Kind kinds[] = {
    {"KVXMTarvekFsyn", 8, 9, 7, {2}, 3, 0.025},  {"KVXMTarvekDpll", 5, 6, 4, {2, 3}, 4, 0.008},
    {"KVXMTarvekIopll", 5, 6, 3, {2}, 3, 0.014}, {"KVXMTarvekY7Pll", 5, 6, 3, {2}, 3, 0.014},
    {"KVXMMorlanFsyn", 8, 9, 7, {2}, 3, 0.048},  {"KVXMMorlanPll", 5, 6, 3, {2}, 3, 0.028},
};

class ClockManagerPower : public TestWithParam<Kind> {
 protected:
  static constexpr int RefClock = 1, PowerDown = 7, AuxPower = 24;

  void SetUp() override {
    for (const auto& block : kvxm::allBlocks())
      if (block.name == GetParam().block) m_block = &block;
    ASSERT_TRUE(m_block);
    m_record = m_block->makeRecord();
    *m_record->findFloat(RefClock) = 100.0f;
    *m_record->findInt(GetParam().divideKey) = 1;
    *m_record->findInt(GetParam().multiplyKey) = 10;
    *m_record->findInt(1) = 4;
  }

  double power(std::initializer_list<int> keys) {
    m_block->calculate(*m_record);
    double sum = 0.0;
    for (const int key : keys)
      if (const float* watts = m_record->findFloat(key)) sum += *watts;
    return sum;
  }
  double core() { return power({21, 22, 23}); }
  double aux() { return power({AuxPower}); }
  double total() { return power({21, 22, 23, AuxPower}); }
  float& real(int key) { return *m_record->findFloat(key); }
  int& whole(int key) { return *m_record->findInt(key); }

  const kvxm::BlockDescription* m_block = nullptr;
  std::unique_ptr<kvxm::Record> m_record;
};
INSTANTIATE_TEST_SUITE_P(Kinds, ClockManagerPower, ValuesIn(kinds),
                         [](const auto& param) { return std::string(param.param.block); });

TEST_P(ClockManagerPower, IsOfTheExpectedSize) {
  EXPECT_NEAR(total(), GetParam().watts1GHz, 0.25 * GetParam().watts1GHz);
}

TEST_P(ClockManagerPower, IsLinearInTheReferenceAndQuadraticInTheCoreVoltage) {
  const double before = core(), bias = aux();
  real(RefClock) *= 2;
  EXPECT_NEAR(core(), 2 * before, 1e-5 * before);
  EXPECT_NEAR(aux(), bias, 1e-6 * bias) << "a bias does not know the frequency";
  for (const int key : GetParam().coreVoltages) real(key) *= 1.1f;
  EXPECT_NEAR(core(), 2 * 1.21 * before, 1e-5 * before);
  real(GetParam().auxVoltage) *= 1.1f;
  EXPECT_NEAR(aux(), 1.1 * bias, 1e-5 * bias);
}

TEST_P(ClockManagerPower, FollowsTheOscillatorAndNotTheWayItIsReached) {
  const double before = total();
  whole(GetParam().divideKey) = 4;
  whole(GetParam().multiplyKey) = 40;
  EXPECT_NEAR(total(), before, 1e-6 * before);
  whole(GetParam().multiplyKey) = 30;
  EXPECT_LT(total(), before);
}

TEST_P(ClockManagerPower, GrowsWithEachOutputByWhatItsFrequencyCosts) {
  whole(1) = 0;
  const double none = core();
  whole(1) = 8;
  const double one = core() - none;
  EXPECT_GT(one, 0.0);
  whole(1) = 4;
  EXPECT_NEAR(core() - none, 2 * one, 1e-3 * one);
  for (int output = 1; output <= GetParam().outputs; ++output) whole(output) = 8;
  EXPECT_NEAR(core() - none, GetParam().outputs * one, 2e-3 * one);
}

TEST_P(ClockManagerPower, IsNoneWhenNothingRuns) {
  for (const int key : {GetParam().divideKey, GetParam().multiplyKey}) {
    const int value = std::exchange(whole(key), 0);
    EXPECT_EQ(total(), 0.0) << key;
    whole(key) = value;
  }
  const float reference = std::exchange(real(RefClock), 0.0f);
  EXPECT_EQ(total(), 0.0);
  real(RefClock) = reference;
  const double on = total();
  real(PowerDown) = 0.25f;
  EXPECT_NEAR(total(), 0.75 * on, 1e-6);
  real(PowerDown) = 1.0f;
  EXPECT_EQ(total(), 0.0);
  real(PowerDown) = 0.0f;
  *m_record->findString(2) = "OFF";
  EXPECT_EQ(total(), 0.0);
}

TEST_P(ClockManagerPower, RisesWithAPhaseShifterThatMoves) {
  std::string* shift = m_record->findString(3);
  if (!shift) return;  // only an FSYN has one
  const double none = total();
  *shift = "Fixed";
  EXPECT_EQ(total(), none);
  *shift = "Dynamic";
  EXPECT_GT(total(), none);
}

// Counters.

template <class Params, class Model>
kvxm::CounterSetting choose(const std::string& kind, const std::string& speed, float megahertz) {
  Params params;
  params[static_cast<typename Params::StringEnum>(1)] = kind;
  params[static_cast<typename Params::StringEnum>(2)] = speed;
  params[static_cast<typename Params::FloatEnum>(1)] = megahertz;
  Model::getGlobal().calculate(params);
  return {params[static_cast<typename Params::IntEnum>(10)],
          params[static_cast<typename Params::IntEnum>(11)],
          params[static_cast<typename Params::FloatEnum>(19)]};
}

constexpr auto tarvek = &choose<KVXMTarvekClockMgrParams, KVXMTarvekClockMgrModel>;
constexpr auto morlan = &choose<KVXMMorlanClockMgrParams, KVXMMorlanClockMgrModel>;

TEST(ClockManagerCounters, BringTheOscillatorIntoItsRangeOrStayOff) {
  const struct {
    decltype(tarvek) choose;
    const kvxm::ClockManagerKinds& data;
  } architectures[] = {{tarvek, KVXMTarvekClockMgrData::getGlobal()},
                       {morlan, KVXMMorlanClockMgrData::getGlobal()}};
  const float inputs[] = {12.5f,  24.576f, 25.0f,       33.333f, 100.0f,
                          148.5f, 250.0f,  322.265625f, 650.0f,  900.0f};
  for (const auto& arch : architectures)
    for (const std::string& kind : arch.data.getKinds())
      for (const char* speed : {"", "1", "1LV", "2", "3"})
        for (const float input : inputs) {
          SCOPED_TRACE(kind + " speed " + speed + " at " + std::to_string(input));
          const auto limits = kvxm::vcoLimits(arch.data.getVcoRanges(kind, speed));
          ASSERT_TRUE(limits);
          const kvxm::CounterSetting setting = arch.choose(kind, speed, input);
          if (setting.megahertz == 0.0) {
            EXPECT_LT(input * kvxm::largestMultiply, limits->first);
            continue;
          }
          EXPECT_NEAR(setting.megahertz, input * setting.multiply / setting.divide, 1e-3);
          EXPECT_THAT(setting.divide, AllOf(Ge(1), Le(kvxm::largestDivide)));
          EXPECT_THAT(setting.multiply, AllOf(Ge(1), Le(kvxm::largestMultiply)));
          EXPECT_GE(setting.megahertz, limits->first);
          EXPECT_LE(setting.megahertz, limits->second);
          const double middle = (limits->first + limits->second) / 2.0;
          for (const int other : {setting.multiply - 1, setting.multiply + 1}) {
            if (other < 1 || other > kvxm::largestMultiply) continue;
            EXPECT_GE(std::abs(input * other / setting.divide - middle) + 1e-3,
                      std::abs(setting.megahertz - middle))
                << "a nearer setting exists";
          }
          for (int divide = 1; divide < setting.divide; ++divide)
            for (int multiply = 1; multiply <= kvxm::largestMultiply; ++multiply) {
              const double other = static_cast<double>(input) * multiply / divide;
              EXPECT_FALSE(other >= limits->first && other <= limits->second) << divide << " would do";
            }
        }
}

TEST(ClockManagerCounters, StayOffWithoutAnInputOrAKind) {
  for (const auto& [kind, input] : {std::pair<const char*, float>{"FSYN", 0.0f},
                                    {"FSYN", -5.0f},
                                    {"FSYN", 1.0f},
                                    {"FSYN", std::numeric_limits<float>::max()},
                                    {"None", 100.0f},
                                    {"", 100.0f}}) {
    const kvxm::CounterSetting setting = tarvek(kind, "2", input);
    EXPECT_EQ(setting.divide + setting.multiply, 0) << kind << ' ' << input;
    EXPECT_EQ(setting.megahertz, 0.0) << kind << ' ' << input;
  }
}

TEST(ClockManagerRanges, FollowEachOtherWithoutGapInEveryGrade) {
  const auto& data = KVXMTarvekClockMgrData::getGlobal();
  for (const std::string& kind : data.getKinds())
    for (const char* speed : {"", "1", "2"}) {
      const auto ranges = data.getVcoRanges(kind, speed);
      ASSERT_EQ(ranges.size(), 3u);
      EXPECT_EQ(ranges[1].name, data.getDefaultVcoRange(kind));
      for (std::size_t i = 0; i < ranges.size(); ++i) {
        EXPECT_LT(ranges[i].minimum, ranges[i].maximum);
        if (i > 0) {
          EXPECT_EQ(ranges[i].minimum, ranges[i - 1].maximum);
        }
      }
    }
  EXPECT_LT(data.getFsynVcoRanges("1")[2].maximum, data.getFsynVcoRanges("2")[2].maximum);
  EXPECT_THAT(data.getVcoRanges("PLL", ""), IsEmpty());
  EXPECT_EQ(data.getOutputCount("FSYN"), 7);
  EXPECT_EQ(data.getOutputCount("IOPLL"), 3);
}

}  // namespace
