#include "models/common/IoPower.h"

#include <cmath>

#include "models/morlan/KVXMMorlanLsIo.h"
#include "models/morlan/KVXMMorlanLsIoData.h"
#include "models/morlan/KVXMMorlanMsIo.h"
#include "models/morlan/KVXMMorlanMsIoData.h"
#include "models/tarvek/KVXMTarvekHsIo.h"
#include "models/tarvek/KVXMTarvekHsIoData.h"
#include "models/tarvek/KVXMTarvekLsIo.h"
#include "models/tarvek/KVXMTarvekLsIoData.h"

using namespace ::testing;

namespace {

struct Use {
  std::string standard = "";
  int inputs = 0, outputs = 0, bidirs = 0;
  float megahertz = 100.0f, toggleRate = 0.25f, outputEnable = 1.0f, termDisable = 0.0f, picofarads = 5.0f;
  std::string inside = "None", outside = "None", dataRate = "SDR";
};

struct Power {
  double core, auxiliary, bank, offChip;
  double total() const { return core + auxiliary + bank + offChip; }
};

/// Volts of a bank, from the name of its rail.
float voltsOf(std::string_view rail) {
  const std::string digits(rail.substr(4));
  return static_cast<float>(std::stoi(digits) / std::pow(10, digits.size() - 1));
}

template <class Params, class Model>
Power runModel(const Use& use, const kvxm::IoQueries& standards) {
  using F = typename Params::FloatEnum;
  using I = typename Params::IntEnum;
  using S = typename Params::StringEnum;
  Params params;
  params[S::STANDARD] = use.standard;
  params[S::INPUT_TERMINATION] = use.inside;
  params[S::OUTPUT_TERMINATION] = use.outside;
  params[S::DATA_RATE] = use.dataRate;
  params[I::INPUTS] = use.inputs;
  params[I::OUTPUTS] = use.outputs;
  params[I::BIDIRS] = use.bidirs;
  params[F::FREQUENCY] = use.megahertz;
  params[F::TOGGLE_RATE] = use.toggleRate;
  params[F::OUTPUT_ENABLE] = use.outputEnable;
  params[F::TERM_DISABLE] = use.termDisable;
  params[F::LOAD_CAPACITANCE] = use.picofarads;
  const kvxm::IoStandard* standard = standards.find(use.standard);
  params[F::VCCO] = standard ? voltsOf(standard->rail) : 1.8f;
  Model::getGlobal().calculate(params);
  return {params[F::VCCINTIO_POWER], params[F::VCCAUX_POWER], params[F::VCCO_POWER],
          params[F::OFF_CHIP_POWER]};
}

struct Bank {
  const char* name;
  const kvxm::IoQueries& standards;
  Power (*model)(const Use&, const kvxm::IoQueries&);
  Power run(const Use& use) const { return model(use, standards); }
};
const Bank banks[] = {
    {"Tarvek HSIO", KVXMTarvekHsIoData::getGlobal(), &runModel<KVXMTarvekHsIoParams, KVXMTarvekHsIoModel>},
    {"Tarvek LSIO", KVXMTarvekLsIoData::getGlobal(), &runModel<KVXMTarvekLsIoParams, KVXMTarvekLsIoModel>},
    {"Morlan MSIO", KVXMMorlanMsIoData::getGlobal(), &runModel<KVXMMorlanMsIoParams, KVXMMorlanMsIoModel>},
    {"Morlan LSIO", KVXMMorlanLsIoData::getGlobal(), &runModel<KVXMMorlanLsIoParams, KVXMMorlanLsIoModel>},
};
const Bank& fast = banks[0];
const Bank& slow = banks[1];

/// Calls `visit` with each standard of each bank, with every termination that it may have.
template <class Visit>
void forEachInterface(Visit visit) {
  for (const Bank& bank : banks)
    for (const std::string& standard : bank.standards.getIoList())
      for (const std::string& inside : bank.standards.getIbuf(standard))
        for (const std::string& outside : bank.standards.getObuf(standard)) {
          const std::string name = bank.name + (" " + standard) + " " + inside + " " + outside;
          SCOPED_TRACE(name);
          visit(bank, Use{.standard = standard, .inside = inside, .outside = outside});
        }
}

void expectSame(const Power& a, const Power& b) {
  EXPECT_NEAR(a.core, b.core, 1e-5 * b.total());
  EXPECT_NEAR(a.auxiliary, b.auxiliary, 1e-5 * b.total());
  EXPECT_NEAR(a.bank, b.bank, 1e-5 * b.total());
  EXPECT_NEAR(a.offChip, b.offChip, 1e-5 * b.total());
}

TEST(IoPower, IsFiniteAndPositiveForEveryStandard) {
  int visited = 0;
  forEachInterface([&](const Bank& bank, Use use) {
    for (int* signals : {&use.inputs, &use.outputs, &use.bidirs}) {
      *signals = 8;
      const Power power = bank.run(use);
      for (const double watts : {power.core, power.auxiliary, power.bank, power.offChip})
        EXPECT_TRUE(std::isfinite(watts) && watts >= 0.0) << watts;
      EXPECT_GT(power.total(), 0.0);
      EXPECT_LT(power.total(), 8 * 0.05) << "50 mW a signal";
      EXPECT_EQ(power.auxiliary > 0.0,
                signals == &use.inputs && bank.standards.find(use.standard)->receiverMilliamps > 0.0);
      if (signals != &use.inputs) {
        EXPECT_EQ(power.offChip > 0.0, use.outside != "None");
      }
      *signals = 0;
    }
    ++visited;
  });
  EXPECT_GT(visited, 40);
}

TEST(IoPower, OfNothingIsNothing) {
  forEachInterface([](const Bank& bank, const Use& use) { EXPECT_EQ(bank.run(use).total(), 0.0); });
  const struct {
    const char* label;
    Use use;
  } cases[] = {
      {"unknown standard", {.standard = "TTL 5V", .inputs = 4, .outputs = 4}},
      {"no standard", {.inputs = 4, .outputs = 4}},
      {"negative counts", {.standard = "LVCMOS 3.3V 12mA", .inputs = -4, .outputs = -4, .bidirs = -1}},
      {"no clock", {.standard = "LVCMOS 3.3V 12mA", .inputs = 4, .outputs = 4, .megahertz = 0}},
      {"no transitions", {.standard = "LVCMOS 3.3V 12mA", .inputs = 4, .outputs = 4, .toggleRate = 0}},
  };
  for (const auto& c : cases) EXPECT_EQ(slow.run(c.use).total(), 0.0) << c.label;
}

TEST(IoPower, IsLinearInSignalsAndFrequency) {
  forEachInterface([](const Bank& bank, Use use) {
    use.inputs = 3;
    use.outputs = 5;
    use.bidirs = 7;
    use.outputEnable = 0.25f;
    const Power one = bank.run(use);
    Use more = use;
    more.inputs *= 4;
    more.outputs *= 4;
    more.bidirs *= 4;
    const Power four = bank.run(more);
    expectSame(four, {4 * one.core, 4 * one.auxiliary, 4 * one.bank, 4 * one.offChip});

    use.megahertz = 0.0f;  // what terminations and comparators draw
    const Power still = bank.run(use);
    EXPECT_EQ(still.core, 0.0);
    use.megahertz = 300.0f;
    const Power fastest = bank.run(use);
    expectSame(fastest, {3 * one.core, one.auxiliary, still.bank + 3 * (one.bank - still.bank), one.offChip});
  });
}

TEST(IoPower, OfALoadGoesWithTheSwingAndTheSupply) {
  forEachInterface([](const Bank& bank, Use use) {
    const kvxm::IoStandard& standard = *bank.standards.find(use.standard);
    use.outputs = 100;
    const double light = bank.run(use).bank;
    use.picofarads += 10.0f;
    const double volts = voltsOf(standard.rail);
    const double pins = 100 * (standard.isDifferential ? 2 : 1);
    const double expected = pins * 0.5 * 10e-12 * standard.swing * volts * volts * 100e6 * 0.25;
    EXPECT_NEAR(bank.run(use).bank - light, expected, 1e-3 * expected);
  });
  EXPECT_LT(fast.standards.find("LVSTL 1.1V")->swing, 0.5);
}

TEST(IoPower, OfInputsHasANetEach) {
  const auto nets = [](int inputs, int outputs, float volts) {
    using P = KVXMTarvekHsIoParams;
    P params;
    params[P::StringEnum::STANDARD] = "LVCMOS 1.2V 8mA";
    params[P::IntEnum::INPUTS] = inputs;
    params[P::IntEnum::OUTPUTS] = outputs;
    params[P::FloatEnum::FREQUENCY] = 400.0f;
    params[P::FloatEnum::VCCINT] = volts;
    KVXMTarvekHsIoModel::getGlobal().calculate(params);
    return params[P::FloatEnum::VCCINT_POWER];
  };
  EXPECT_EQ(nets(0, 100, 0.8f), 0.0f) << "the net of an output is its source's";
  EXPECT_EQ(nets(100, 0, 0.0f), 0.0f);
  EXPECT_GT(nets(100, 0, 0.8f) / (100 * 400e6f * 0.125f), 5e-15f) << "joules of a net and transition";
  EXPECT_LT(nets(100, 0, 0.8f) / (100 * 400e6f * 0.125f), 50e-15f);
}

TEST(IoPower, OfABankIsOfTheExpectedSize) {
  // 100 outputs of 5 pF and some more for the pad at 3.3 V and 25 million transitions a second: 100 mW.
  const double watts = slow.run({.standard = "LVCMOS 3.3V 12mA", .outputs = 100}).total();
  EXPECT_GT(watts, 0.07);
  EXPECT_LT(watts, 0.2);
}

TEST(IoPower, FollowsTheDataRate) {
  const auto watts = [](const char* rate, float toggleRate) {
    return slow
        .run({.standard = "LVCMOS 1.8V 4mA",
              .inputs = 9,
              .outputs = 9,
              .toggleRate = toggleRate,
              .dataRate = rate})
        .total();
  };
  const double full = watts("SDR", 1.0f);
  EXPECT_NEAR(watts("SDR", 0.125f), full / 8, 1e-5 * full);
  EXPECT_NEAR(watts("DDR", 0.125f), full / 4, 1e-5 * full);
  EXPECT_NEAR(watts("Clock", 0.125f), full * 2, 1e-5 * full) << "a clock rises and falls in every cycle";
}

TEST(IoPower, OfABidirectionalSignalLiesBetweenAnInputAndAnOutput) {
  forEachInterface([](const Bank& bank, Use use) {
    Use input = use, output = use;
    input.inputs = 16;
    output.outputs = 16;
    use.bidirs = 16;
    const Power received = bank.run(input), driven = bank.run(output);
    use.outputEnable = 0.0f;
    expectSame(bank.run(use), received);
    use.outputEnable = 1.0f;
    expectSame(bank.run(use), driven);
    use.outputEnable = 0.25f;
    const auto between = [](double a, double b) { return 0.75 * a + 0.25 * b; };
    expectSame(bank.run(use),
               {between(received.core, driven.core), between(received.auxiliary, driven.auxiliary),
                between(received.bank, driven.bank), between(received.offChip, driven.offChip)});
  });
}

/// Watts of one signal that stands still, by hand.
TEST(IoPower, OfTerminationsIsSplitWhereItIsBurnt) {
  const struct {
    const char* label;
    Use use;
    double onChip, offChip;
  } cases[] = {
      {"driver to half of VCCO",
       {.standard = "SSTL 1.2V", .outputs = 1, .outside = "FP_VTT_40"},
       0.0075 * 0.0075 * 40,
       0.0075 * 0.0075 * 40},
      {"other value",
       {.standard = "SSTL 1.2V", .outputs = 1, .outside = "FP_VTT_50"},
       0.6 * 0.6 / 8100 * 40,
       0.6 * 0.6 / 8100 * 50},
      {"both pins of a pair",
       {.standard = "DIFF_SSTL 1.2V", .outputs = 1, .outside = "FP_VTT_40"},
       2 * 0.0075 * 0.0075 * 40,
       2 * 0.0075 * 0.0075 * 40},
      {"driver to VCCO, low for half of the time",
       {.standard = "POD 1.2V", .outputs = 1, .outside = "FP_VCCO_40"},
       0.5 * 1.44 / 5476 * 34,
       0.5 * 1.44 / 5476 * 40},
      {"split inside", {.standard = "SSTL 1.2V", .inputs = 1, .inside = "RTT_40"}, 1.44 / 160, 0.0},
      {"split inside, off for a quarter of the time",
       {.standard = "SSTL 1.2V", .inputs = 1, .termDisable = 0.25f, .inside = "RTT_40"},
       0.75 * 1.44 / 160,
       0.0},
      {"to VCCO inside",
       {.standard = "POD 1.2V", .inputs = 1, .inside = "RTT_60"},
       0.5 * 1.44 / 8836 * 60,
       0.5 * 1.44 / 8836 * 34},
      {"current driver", {.standard = "LVDS 1.5V", .outputs = 1}, 0.0035 * 1.5, 0.0},
      {"current driver into its resistor",
       {.standard = "LVDS 1.5V", .outputs = 1, .outside = "FD_100"},
       0.0035 * 1.5 - 0.0035 * 0.0035 * 100,
       0.0035 * 0.0035 * 100},
      {"pair that the far end feeds", {.standard = "LVDS 1.5V", .inputs = 1, .inside = "TERM_100"}, 0.0, 0.0},
      {"always off",
       {.standard = "POD 1.2V", .inputs = 1, .termDisable = 1.0f, .inside = "RTT_60"},
       0.0,
       0.0},
      {"unknown resistor", {.standard = "SSTL 1.2V", .outputs = 1, .outside = "FP_VTT_41"}, 0.0, 0.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    Use still = c.use;
    still.megahertz = 0.0f;
    const Power power = fast.run(still);
    EXPECT_NEAR(power.bank, c.onChip, 1e-5 * c.onChip);
    EXPECT_NEAR(power.offChip, c.offChip, 1e-5 * c.offChip);
    EXPECT_EQ(power.core, 0.0);
  }
}

TEST(IoStandards, HaveListsThatFitTogether) {
  for (const Bank& bank : banks) {
    SCOPED_TRACE(bank.name);
    std::vector<std::string> all = bank.standards.getIoList(false);
    for (const std::string& pair : bank.standards.getIoList(true)) all.push_back(pair);
    EXPECT_THAT(all, UnorderedElementsAreArray(bank.standards.getIoList()));
    EXPECT_THAT(bank.standards.getIbuf("unknown"), ElementsAre("None"));
    EXPECT_THAT(bank.standards.getObuf("unknown"), ElementsAre("None"));
  }
  forEachInterface([](const Bank&, const Use& use) {
    for (const std::string& name : {use.inside, use.outside})
      EXPECT_EQ(kvxm::terminationOhms(name) > 0.0, name != "None") << name;
  });
}

}  // namespace
