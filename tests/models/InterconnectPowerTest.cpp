#include "models/common/InterconnectPower.h"

#include <algorithm>
#include <cmath>

#include "models/tarvek/KVXMTarvekDdrmc.h"
#include "models/tarvek/KVXMTarvekDdrmc5.h"
#include "models/tarvek/KVXMTarvekDdrmc5C.h"
#include "models/tarvek/KVXMTarvekDdrmcData.h"
#include "models/tarvek/KVXMTarvekNoc.h"
#include "models/tarvek/KVXMTarvekNocData.h"

namespace {

struct Connection {
  int read = 8000, write = 4000, switches = 6;
  double megahertz = 1000, toggleRate = 0.5, volts = 0.8;
};

struct NocWatts {
  double data, clock;
};

NocWatts noc(const Connection& connection) {
  using I = KVXMTarvekNocParams::IntEnum;
  using F = KVXMTarvekNocParams::FloatEnum;
  KVXMTarvekNocParams params;
  params[I::READ_BAND_WIDTH] = connection.read;
  params[I::WRITE_BAND_WIDTH] = connection.write;
  params[I::SWITCHES] = connection.switches;
  params[F::FREQUENCY] = static_cast<float>(connection.megahertz);
  params[F::TOGGLE_RATE] = static_cast<float>(connection.toggleRate);
  params[F::VCCSOC] = static_cast<float>(connection.volts);
  KVXMTarvekNocModel::getGlobal().calculate(params);
  return {params[F::DATA_POWER], params[F::CLOCK_POWER]};
}

TEST(NocPower, LiesWherePublishedEnergiesDo) {
  const double bits = 12000 * 8e6;
  const double perHop = (noc({.switches = 7}).data - noc({}).data) / bits * 1e12;
  EXPECT_GT(perHop, 0.1) << "pJ per bit and hop";
  EXPECT_LT(perHop, 0.3);
  EXPECT_LT(noc({}).data, 0.3) << "W of a busy connection";
  EXPECT_GT(noc({}).clock, 0.006);
  EXPECT_LT(noc({}).clock, 0.1);
}

TEST(NocPower, DataAndClockScaleApart) {
  const NocWatts before = noc({});
  EXPECT_NEAR(noc({.read = 4000, .write = 8000}).data, before.data, 1e-6) << "directions cost the same";
  EXPECT_NEAR(noc({.read = 16000, .write = 8000}).data, 2 * before.data, 1e-6);
  EXPECT_NEAR(noc({.toggleRate = 0.25}).data, before.data / 2, 1e-6);
  EXPECT_EQ(noc({.read = 0, .write = 0}).data, 0.0);
  EXPECT_EQ(noc({.read = 0, .write = 0}).clock, before.clock) << "an open connection is clocked";
  EXPECT_EQ(noc({.megahertz = 500}).data, before.data);
  EXPECT_NEAR(noc({.megahertz = 500}).clock, before.clock / 2, 1e-6);
  EXPECT_NEAR(noc({.switches = 12}).clock, before.clock * 2, 1e-6);
  EXPECT_NEAR(noc({.volts = 0.88}).data, before.data * 1.21, 1e-6);
  EXPECT_NEAR(noc({.volts = 0.88}).clock, before.clock * 1.21, 1e-6);
}

struct Interface {
  int width = 64, channels = 1, read = 12800, write = 12800;
  double rate = 3200, toggleRate = 0.5, soc = 0.8, io = 0.8, aux = 1.5;
  bool ecc = false, random = false, encrypted = false;
};

struct Watts {
  double soc, io, aux;
  double total() const { return soc + io + aux; }
};

template <class Params, class Model>
Watts controller(const Interface& use) {
  using I = typename Params::IntEnum;
  using F = typename Params::FloatEnum;
  Params params;
  params[I::DATA_WIDTH] = use.width;
  params[I::NUM_CHANNELS] = use.channels;
  params[I::READ_BAND_WIDTH] = use.read;
  params[I::WRITE_BAND_WIDTH] = use.write;
  params[I::ECC_USAGE] = use.ecc;
  params[I::RANDOM_ACCESS] = use.random;
  params[I::ENCRYPTION] = use.encrypted;
  params[F::DATA_RATE] = static_cast<float>(use.rate);
  params[F::TOGGLE_RATE] = static_cast<float>(use.toggleRate);
  params[F::VCCSOC] = static_cast<float>(use.soc);
  params[F::VCCINTIO] = static_cast<float>(use.io);
  params[F::VCCAUX] = static_cast<float>(use.aux);
  Model::getGlobal().calculate(params);
  return {params[F::VCCSOC_POWER], params[F::VCCINTIO_POWER], params[F::VCCAUX_POWER]};
}

constexpr auto ddrmc = controller<KVXMTarvekDdrmcParams, KVXMTarvekDdrmcModel>;
constexpr auto ddrmc5 = controller<KVXMTarvekDdrmc5Params, KVXMTarvekDdrmc5Model>;
constexpr auto ddrmc5c = controller<KVXMTarvekDdrmc5CParams, KVXMTarvekDdrmc5CModel>;

const struct {
  const char* name;
  Watts (*watts)(const Interface&);
} kinds[] = {{"DDRMC", ddrmc}, {"DDRMC5", ddrmc5}, {"DDRMC5C", ddrmc5c}};

TEST(ControllerPower, LiesWherePublishedEnergiesDo) {
  for (const auto& kind : kinds) {
    const double perBit = kind.watts({}).total() / (25600 * 8e6) * 1e12;
    EXPECT_GT(perBit, 2.0) << kind.name << ", pJ";
    EXPECT_LT(perBit, 5.0) << kind.name;
  }
}

TEST(ControllerPower, IdlesByDataRateAndWidth) {
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const Watts busy = kind.watts({});
    const Watts idle = kind.watts({.read = 0, .write = 0});
    EXPECT_GT(idle.total(), 0.2 * busy.total());
    EXPECT_LT(idle.total(), 0.6 * busy.total());
    const Watts slow = kind.watts({.read = 0, .write = 0, .rate = 1600});
    EXPECT_NEAR(slow.soc, idle.soc / 2, 1e-6);
    EXPECT_NEAR(slow.io, idle.io / 2, 1e-6);
    EXPECT_EQ(slow.aux, idle.aux) << "bias";
    const Watts split = kind.watts({.width = 32, .channels = 2});
    EXPECT_NEAR(split.total(), busy.total(), 1e-6) << "two channels of half the width";
    EXPECT_EQ(kind.watts({.width = 0}).total(), 0.0);
    EXPECT_EQ(kind.watts({.channels = 0}).total(), 0.0);
    EXPECT_EQ(kind.watts({.rate = 0}).total(), 0.0);
    EXPECT_EQ(kind.watts({.width = 0x7FFFFFFE}).total(), 0.0) << "blank";
  }
}

TEST(ControllerPower, TrafficAndVoltageCount) {
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.name);
    const Watts busy = kind.watts({});
    const double idle = kind.watts({.read = 0, .write = 0}).total();
    EXPECT_NEAR(kind.watts({.read = 25600, .write = 25600}).total() - idle, 2 * (busy.total() - idle), 1e-5);
    EXPECT_LT(kind.watts({.toggleRate = 0.1}).total(), busy.total());
    EXPECT_GT(kind.watts({.random = true}).soc, busy.soc);
    EXPECT_EQ(kind.watts({.random = true}).io, busy.io);
    EXPECT_NEAR(kind.watts({.ecc = true}).io / busy.io, 9.0 / 8.0, 1e-5);
    EXPECT_NEAR(kind.watts({.soc = 0.88}).soc, 1.21 * busy.soc, 1e-5);
    EXPECT_NEAR(kind.watts({.io = 0.88}).io, 1.21 * busy.io, 1e-5);
    EXPECT_NEAR(kind.watts({.aux = 1.65}).aux, 1.1 * busy.aux, 1e-6) << "a current";
  }
}

TEST(ControllerPower, KindsDiffer) {
  EXPECT_GT(ddrmc5({}).io, ddrmc({}).io) << "equalisers";
  EXPECT_EQ(ddrmc5({}).soc, ddrmc({}).soc);
  EXPECT_GT(ddrmc5c({.encrypted = true}).soc, ddrmc5c({}).soc);
  EXPECT_EQ(ddrmc5({.encrypted = true}).soc, ddrmc5({}).soc) << "cannot encrypt";
}

TEST(ControllerData, RatesRiseWithTheGradeAndFallWithModules) {
  for (const kvxm::DramSupport& support : KVXMTarvekDdrmcData::getGlobal().getDramSupport()) {
    SCOPED_TRACE(support.controller + " " + support.dramType);
    EXPECT_EQ(KVXMTarvekDdrmcData::getGlobal().find(support.controller, support.dramType), &support);
    for (const std::string& standard : support.standards) {
      EXPECT_GT(support.maximumRate(standard, "1"), 1000.0f);
      EXPECT_LT(support.maximumRate(standard, "1"), support.maximumRate(standard, "2"));
      EXPECT_LT(support.maximumRate(standard, "2"), support.maximumRate(standard, "3"));
      EXPECT_EQ(support.maximumRate(standard, ""), support.maximumRate(standard, "3"));
      EXPECT_LE(support.maximumRate(standard, "1"), support.maximumRate("Component", "1"));
    }
    EXPECT_LE(*std::max_element(support.dataWidths.begin(), support.dataWidths.end()),
              KVXMTarvekDdrmcData::dataPins);
  }
}

TEST(NocData, ReachesMoreWithTheGrade) {
  const auto& data = KVXMTarvekNocData::getGlobal();
  EXPECT_LT(data.getMaximumFrequency("1"), data.getMaximumFrequency("2"));
  EXPECT_LT(data.getMaximumFrequency("2"), data.getMaximumFrequency("3"));
  EXPECT_EQ(data.getMaximumFrequency(""), data.getMaximumFrequency("3"));
  EXPECT_EQ(data.getPortBandWidth(1000), 16000.0);
}

}  // namespace
