// Static power by rail and block, and the junction temperature, over every device of the catalogue.

#include <cmath>

#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/StaticPower.h"
#include "models/morlan/KVXMMorlanStatic.h"
#include "models/tarvek/KVXMTarvekStatic.h"

namespace {

using kvxm::Architecture;
using kvxm::Device;
using kvxm::StaticKey;

/// The static record of a device, whatever its architecture.
class StaticRecord {
 public:
  explicit StaticRecord(const Device& device) : m_isTarvek(device.architecture == Architecture::Tarvek) {
    if (m_isTarvek) {
      m_params = std::make_unique<KVXMTarvekStaticParams>();
    } else {
      m_params = std::make_unique<KVXMMorlanStaticParams>();
    }
    *m_params->findString(StaticKey::DEVICE) = device.name;
  }

  StaticRecord& set(int key, float value) {
    *m_params->findFloat(key) = value;
    return *this;
  }
  StaticRecord& process(const std::string& name) {
    *m_params->findString(StaticKey::PROCESS) = name;
    return *this;
  }
  StaticRecord& solve(float theta, float ambient, float dynamicWatts) {
    *m_params->findInt(StaticKey::SOLVE_JUNCTION) = 1;
    return set(StaticKey::THETA_JA, theta)
        .set(StaticKey::AMBIENT_TEMP, ambient)
        .set(StaticKey::DYNAMIC_POWER, dynamicWatts);
  }
  StaticRecord& calculate() {
    if (m_isTarvek) {
      KVXMTarvekStaticModel::getGlobal().calculate(static_cast<KVXMTarvekStaticParams&>(*m_params));
    } else {
      KVXMMorlanStaticModel::getGlobal().calculate(static_cast<KVXMMorlanStaticParams&>(*m_params));
    }
    return *this;
  }
  float operator[](int key) { return *m_params->findFloat(key); }
  int status() { return *m_params->findInt(StaticKey::JUNCTION_STATUS); }

 private:
  bool m_isTarvek;
  std::unique_ptr<kvxm::Record> m_params;
};

class StaticPower : public testing::TestWithParam<std::string> {
 protected:
  const Device& device() { return *kvxm::DeviceCatalogue::getGlobal().findDevice(GetParam()); }
  StaticRecord record() { return StaticRecord(device()); }
};

std::vector<std::string> deviceNames() {
  std::vector<std::string> names;
  for (const Device& device : kvxm::DeviceCatalogue::getGlobal().devices()) names.push_back(device.name);
  return names;
}

constexpr float relative = 1e-6f;

void expectClose(double a, double b) {
  EXPECT_NEAR(a, b, relative * std::max({1.0, std::abs(a), std::abs(b)}));
}

// The readers of a Tarvek record address it by these numbers.
double excursionSum(StaticRecord& r, float vccram, float vccint) {
  return r[1065] * vccram + r[1796] + r[1804] + r[857] * vccint + r[1842] + r[112];
}

double tarvekBlocks(StaticRecord& r) {
  const float k = r[1707] * r[1708];
  const float a = (r[131] * r[18] + r[134] * r[19] + r[146] * r[23]) * k;
  const float c = (r[214] * r[45] + r[122] * r[15] + r[125] * r[16] + r[128] * r[17]) * k;
  const float d = (r[137] * r[20] + r[140] * r[21] + r[143] * r[22]) * k;
  return double{r[152]} + r[158] + r[83] + r[148] + a + c + d;
}

}  // namespace

TEST_P(StaticPower, RailsAndBlocksAddUp) {
  for (const float celsius : {-40.0f, 25.0f, 100.0f, 110.0f}) {
    StaticRecord r = record();
    double volts = 0.6;
    double rails = 0.0;
    for (size_t i = 0; i < device().supplies.size(); ++i, volts += 0.05)
      r.set(StaticKey::RAIL_VOLTAGE_0 + static_cast<int>(i), static_cast<float>(volts));
    r.set(StaticKey::JUNCTION_TEMP, celsius).process("Maximum").calculate();
    const auto voltage = [&](const char* rail) {
      const int index = kvxm::staticRailIndex(device(), rail);
      return index < 0 ? 0.0f : r[StaticKey::RAIL_VOLTAGE_0 + index];
    };
    for (size_t i = 0; i < device().supplies.size(); ++i) {
      if (device().supplies[i].category == "HBM") continue;
      const int index = static_cast<int>(i);
      rails += double{r[StaticKey::RAIL_VOLTAGE_0 + index]} * r[StaticKey::RAIL_CURRENT_0 + index];
    }
    SCOPED_TRACE(celsius);
    EXPECT_GT(rails, 0.0);
    expectClose(r[StaticKey::STATIC_POWER], rails);
    if (device().architecture != Architecture::Tarvek) continue;
    expectClose(tarvekBlocks(r), rails);
    expectClose(excursionSum(r, voltage("VCCRAM"), voltage("VCCINT")), rails);
  }
}

TEST_P(StaticPower, MaximumProcessLeaksAtLeastAsMuchOnEveryRailAndBlock) {
  StaticRecord typical = record();
  StaticRecord maximum = record();
  typical.calculate();
  maximum.process("Maximum").calculate();
  for (int i = 0; i < static_cast<int>(kvxm::mostStaticRails); ++i)
    EXPECT_GE(maximum[StaticKey::RAIL_CURRENT_0 + i], typical[StaticKey::RAIL_CURRENT_0 + i]) << "rail " << i;
  for (const int block :
       {StaticKey::PL_STATIC_POWER, StaticKey::PS_STATIC_POWER, StaticKey::XCVRA_STATIC_POWER,
        StaticKey::XCVRB_STATIC_POWER, StaticKey::XCVRC_STATIC_POWER, StaticKey::XCVRD_STATIC_POWER,
        StaticKey::HBM_STATIC_POWER})
    EXPECT_GE(maximum[block], typical[block]) << "block " << block;
  EXPECT_GT(maximum[StaticKey::STATIC_POWER], 1.4f * typical[StaticKey::STATIC_POWER]);
}

TEST_P(StaticPower, RisesWithTemperatureAndVoltage) {
  float before = 0.0f;
  for (float celsius = -55.0f; celsius <= 125.0f; celsius += 10.0f) {
    const float watts = record().set(StaticKey::JUNCTION_TEMP, celsius).calculate()[StaticKey::STATIC_POWER];
    EXPECT_GT(watts, before) << celsius << " C";
    before = watts;
  }
  const int index = kvxm::staticRailIndex(device(), "VCCINT");
  ASSERT_GE(index, 0);
  before = -1.0f;
  for (float volts = 0.0f; volts < 1.0f; volts += 0.05f) {
    const float watts =
        record().set(StaticKey::RAIL_VOLTAGE_0 + index, volts).calculate()[StaticKey::STATIC_POWER];
    EXPECT_GT(watts, before) << volts << " V";
    before = watts;
  }
}

TEST_P(StaticPower, SettlesWhereHeatAndCoolingAgree) {
  StaticRecord r = record();
  r.solve(1.0f, 40.0f, 5.0f).calculate();
  ASSERT_EQ(r.status(), 0);
  const double tj = r[StaticKey::JUNCTION_RESULT];
  EXPECT_NEAR(tj, 40.0 + 1.0 * (5.0 + r[StaticKey::STATIC_POWER]), 1e-3);
  EXPECT_FLOAT_EQ(r[StaticKey::INITIAL_TEMP], 45.0f);
  EXPECT_GT(r[StaticKey::TEMP_AT_25], 45.0f);
  EXPECT_LT(r[StaticKey::TEMP_AT_25], tj);
  EXPECT_LT(r[StaticKey::NON_INT_LEAKAGE], r[StaticKey::STATIC_POWER]);
}

TEST_P(StaticPower, SettlesBelowTheMaximumUpToTheAmbientLimit) {
  for (const float theta : {0.0f, 0.5f, device().thetaJa, 5.0f}) {
    SCOPED_TRACE(theta);
    const float limit = record().solve(theta, 25.0f, 2.0f).calculate()[StaticKey::MAX_AMBIENT_TEMP];
    const auto settles = [&](float ambient) {
      StaticRecord r = record();
      r.solve(theta, ambient, 2.0f).calculate();
      return r.status() == 0 && r[StaticKey::JUNCTION_RESULT] <= 100.0f;
    };
    EXPECT_TRUE(settles(limit - 0.02f));
    EXPECT_FALSE(settles(limit + 0.02f));
  }
}

TEST_P(StaticPower, EndsAtTheAbsoluteMaximumWhereNothingSettles) {
  constexpr float huge = std::numeric_limits<float>::max();
  const struct {
    const char* label;
    float theta, ambient, watts;
  } cases[] = {
      {"runaway", 60.0f, 60.0f, 1.0f},
      {"hot air", 1.0f, 124.9f, 1.0f},
      {"endless theta", huge, 25.0f, 1.0f},
      {"no number", std::numeric_limits<float>::quiet_NaN(), 25.0f, 1.0f},
      {"endless power", 1.0f, 25.0f, huge},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    StaticRecord r = record();
    r.solve(c.theta, c.ambient, c.watts).process("Maximum").calculate();
    EXPECT_NE(r.status(), 0);
    EXPECT_EQ(r[StaticKey::JUNCTION_RESULT], 125.0f);
    StaticRecord at125 = record();
    at125.process("Maximum").set(StaticKey::JUNCTION_TEMP, 125.0f).calculate();
    EXPECT_EQ(r[StaticKey::STATIC_POWER], at125[StaticKey::STATIC_POWER]);
    for (const int key : {StaticKey::INITIAL_TEMP, StaticKey::TEMP_AT_25, StaticKey::MAX_AMBIENT_TEMP})
      EXPECT_TRUE(std::isfinite(r[key])) << key;
  }
}

INSTANTIATE_TEST_SUITE_P(Devices, StaticPower, testing::ValuesIn(deviceNames()),
                         [](const auto& param) { return param.param; });

TEST(StaticPower, AnswersWithoutADeviceAndToMistypedVoltages) {
  KVXMTarvekStaticParams params;
  KVXMTarvekStaticModel::getGlobal().calculate(params);
  EXPECT_EQ(*params.findFloat(StaticKey::STATIC_POWER), 0.0f);
  StaticRecord r(kvxm::DeviceCatalogue::getGlobal().devices().front());
  for (int i = 0; i < static_cast<int>(kvxm::mostStaticRails); ++i)
    r.set(StaticKey::RAIL_VOLTAGE_0 + i, 1e30f);
  r.set(StaticKey::JUNCTION_TEMP, 1e6f).calculate();
  EXPECT_TRUE(std::isfinite(r[StaticKey::STATIC_POWER]));
  EXPECT_EQ(r.status(), 2);
}

TEST(StaticPower, PartsAndUseThatChangeTarvekLeakage) {
  const struct {
    const char* label;
    const char *process, *screen, *rcx;
    float low, high;  // over typical, standard, without reconfiguration
  } cases[] = {
      {"low screen, typical", "Typical", "L", "", 1.0f, 1.0f},
      {"low screen, maximum", "Maximum", "L", "", 1.2f, 1.6f},
      {"standard, maximum", "Maximum", "S", "", 1.8f, 2.0f},
      {"reconfigured with NoC", "Typical", "S", "RCX with 1 RP that includes NoC resources", 1.0001f, 1.02f},
  };
  const auto watts = [](const char* process, const char* screen, const char* rcx) {
    using StringEnum = KVXMTarvekStaticParams::StringEnum;
    KVXMTarvekStaticParams params;
    params[StringEnum::DEVICE] = "AK1080";
    params[StringEnum::PROCESS] = process;
    params[StringEnum::STATIC_SCREEN] = screen;
    params[StringEnum::RCX_USAGE] = rcx;
    KVXMTarvekStaticModel::getGlobal().calculate(params);
    return *params.findFloat(StaticKey::STATIC_POWER);
  };
  const float reference = watts("Typical", "S", "Classic SoC Boot mode");
  EXPECT_GT(reference, 1.0f);
  EXPECT_LT(reference, 6.0f);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    const float ratio = watts(c.process, c.screen, c.rcx) / reference;
    EXPECT_GE(ratio, c.low);
    EXPECT_LE(ratio, c.high);
  }
}
