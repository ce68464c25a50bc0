#include "clients/cli/Estimate.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "clients/cli/JsonEstimate.h"
#include "clients/cli/PrintEstimate.h"
#include "clients/cli/TextTable.h"
#include "tests/cli/CliKit.h"

namespace {

const std::string Design =
    "[[clock]]\nname = 'clk'\nfrequency = 200\nfanout = 20000\n"
    "[[logic]]\nname = 'a'\nclock = 'clk'\nlut_as_logic = 10000\nregisters = 10000\ntoggle_rate = '25 %'\n"
    "[environment]\njunction_temperature = 60\n";

kvx::Estimate estimate(const std::string& text, const std::vector<std::string>& overrides = {}) {
  SheetResult result = estimateText(SheetHead + text, overrides);
  EXPECT_EQ(result.mistakes, "");
  return result.estimate.value_or(kvx::Estimate{});
}

double powerOf(const kvx::Estimate& result, const std::string& block) {
  for (const auto& each : result.blocks)
    if (each.name == block && !each.isStatic) return each.watts;
  return std::nan("");
}

TEST(Estimate, SpellingsAndUnitsMeanTheSame) {
  const kvx::Estimate first = estimate(Design);
  EXPECT_GT(powerOf(first, "Logic"), 0.01);
  const kvx::Estimate second = estimate(
      "[['Clock']]\nName = 'clk'\n'Frequency (MHz)' = '0.2 GHz'\nFAN_OUT = '20000'\n"
      "[[LOGIC.'Logic Settings']]\nname = 'a'\nclockFreq = 'clk'\nluts = 10000\nffs = 10000\ntoggleRate = "
      "0.25\n"
      "[environment]\n'Junction Temperature' = '140 F'\n");
  EXPECT_EQ(powerOf(first, "Logic"), powerOf(second, "Logic"));
  EXPECT_EQ(powerOf(first, "Clocking"), powerOf(second, "Clocking"));
  EXPECT_FLOAT_EQ(first.junction, second.junction);
}

TEST(Estimate, OverridesEqualAnEditedSheet) {
  std::string edited = Design;
  edited.replace(edited.find("200\n"), 3, "300");
  const kvx::Estimate expected = estimate(edited);
  for (const char* text : {"clock..clk.frequency=300", "clock.clock_settings.1.frequency=0.3 GHz"}) {
    const kvx::Estimate overridden = estimate(Design, {text});
    EXPECT_EQ(kvx::jsonEstimate(overridden), kvx::jsonEstimate(expected)) << text;
  }
  EXPECT_NEAR(powerOf(expected, "Logic") / powerOf(estimate(Design), "Logic"), 1.5, 1e-4);
}

TEST(Estimate, MaximumProcessLeaksMore) {
  const kvx::Estimate typical = estimate(Design);
  const kvx::Estimate maximum = estimate(Design, {"process=Maximum"});
  EXPECT_GT(maximum.staticWatts(), 1.2 * typical.staticWatts());
  EXPECT_EQ(maximum.process, "Maximum");
}

TEST(Estimate, JunctionTemperatureIsGivenOrCalculated) {
  const std::string sheet = Design.substr(0, Design.find("[environment]"));
  EXPECT_TRUE(estimate(Design).isJunctionGiven);
  EXPECT_FLOAT_EQ(estimate(Design).junction, 60);
  const kvx::Estimate calculated =
      estimate(sheet + "[environment]\nambient_temperature = 50\neffective_theta_ja = 2\n");
  EXPECT_FALSE(calculated.isJunctionGiven);
  EXPECT_NEAR(calculated.junction, 50 + 2 * calculated.totalWatts(), 0.1);
  const kvx::Estimate ambientOnly = estimate(sheet + "[environment]\nambient_temperature = 50\n");
  EXPECT_FALSE(ambientOnly.isJunctionGiven);
  EXPECT_FLOAT_EQ(ambientOnly.thetaJa.value_or(0), 2.4f);  // the device's start value
  EXPECT_TRUE(estimate(sheet).isJunctionGiven);
}

TEST(Estimate, RunawayIsAnError) {
  const kvx::Estimate runaway =
      estimate(Design.substr(0, Design.find("[environment]")) +
               "[environment]\nambient_temperature = 100\neffective_theta_ja = 60\n");
  EXPECT_FALSE(runaway.isJunctionValid);
  EXPECT_TRUE(runaway.hasErrors());
}

TEST(Estimate, AbsurdEntriesAreAnErrorAndFitTheColumns) {
  const kvx::Estimate absurd = estimate(
      "[[clock]]\nname = 'c'\nfrequency = 1e38\nfanout = 2147483645\n"
      "[environment]\nambient_temperature = 20\neffective_theta_ja = 1e30\n");
  EXPECT_TRUE(absurd.hasErrors());
  for (const std::string& line : linesOf(kvx::printEstimate(absurd, kvx::Style(false))))
    EXPECT_LE(line.size(), 100u) << line;
}

TEST(Estimate, TablesGrowWithTheSheet) {
  std::string rows = Design;
  for (int i = 0; i < 1200; ++i)
    rows += "[[logic]]\nname = 'r" + std::to_string(i) + "'\nclock = 'clk'\nregisters = 1\n";
  EXPECT_GT(powerOf(estimate(rows), "Logic"), powerOf(estimate(Design), "Logic"));
}

TEST(Estimate, RailOutOfRangeIsAnError) {
  const std::string rail = "[[power_design.power_rail_characteristics]]\nsupply = 'vccint'\nvoltage = ";
  const kvx::Estimate allowed = estimate(Design + rail + "'810 mV'\n");
  EXPECT_FALSE(allowed.hasErrors());
  const auto vccint = std::find_if(allowed.rails.begin(), allowed.rails.end(),
                                   [](const auto& each) { return each.name == "VCCINT"; });
  ASSERT_NE(vccint, allowed.rails.end());
  EXPECT_FLOAT_EQ(vccint->volts, 0.81f);
  const kvx::Estimate wrong = estimate(Design + rail + "0.95\n");
  ASSERT_TRUE(wrong.hasErrors());
  EXPECT_EQ(wrong.messages[0].tab + "/" + wrong.messages[0].row, "Power Design/VCCINT");
  EXPECT_EQ(wrong.messages[0].text.find('<'), std::string::npos);
}

TEST(Estimate, LimitsFollowFromOtherCellsInAnyOrder) {
  const std::string sheets[] = {
      "[[bram]]\nbram_count = 100\ncascade_group_size = 8\n",
      "[[bram]]\ncascade_group_size = 12\nbram_count = 100\n",
      "[[bram]]\nmode = 'BMEM36SDP'\nport_a_bit_width = 72\nport_b_bit_width = 9\n",
      "[[bram]]\nport_b_bit_width = 72\nport_a_bit_width = '9'\nmode = 'bmem36_sdp'\n",
  };
  for (const std::string& sheet : sheets) {
    SCOPED_TRACE(sheet);
    EXPECT_FALSE(estimate(sheet).hasErrors());
  }
}

TEST(Estimate, SupplyCarriesItsRails) {
  const kvx::Estimate result =
      estimate(Design +
                   "[[power_design.power_rail_consolidation]]\noption = 'Power Rail Consolidation'\n"
                   "selection = 'Minimum Rails'\n"
                   "[[power_design.power_delivery_design]]\npower_rail_group = 'CORE_0V80'\n"
                   "schematic_name = 'buck'\navailable = '100 mA'\nvoltage = '790 mV'\n",
               {"process=Maximum"});
  EXPECT_EQ(result.consolidation, "Minimum Rails");
  ASSERT_GT(result.supplies.size(), 1u);
  std::size_t fed = 0;
  for (const auto& supply : result.supplies) {
    SCOPED_TRACE(supply.group);
    fed += supply.rails.size();
    const bool isAlone = supply.rails == std::vector<std::string>{supply.group};
    EXPECT_TRUE(isAlone || supply.rails.size() > 1u);
    double amperes = 0, most = 0, step = 0;
    for (const auto& rail : result.rails) {
      if (rail.group != supply.group) continue;
      EXPECT_EQ(rail.volts, supply.volts) << rail.name;
      amperes += rail.amperes;
      most += rail.powerupAmperes.value_or(rail.amperes);
      step += rail.stepLoad.value_or(0) * rail.dynamicAmperes;
    }
    EXPECT_NEAR(supply.estimatedAmperes, amperes, 1e-5);
    EXPECT_NEAR(supply.stepLoadAmperes, step, 1e-5);
    const bool isCore = supply.group == "CORE_0V80";
    ASSERT_EQ(supply.marginAmperes.has_value(), isCore);
    if (!isCore) continue;
    EXPECT_EQ(supply.volts, 0.79f);
    EXPECT_NEAR(*supply.marginAmperes, 0.1 - most, 1e-5);
  }
  EXPECT_EQ(fed, result.rails.size()) << "each rail has one supply";
  const std::string text = kvx::printEstimate(result, kvx::Style(false));
  EXPECT_NE(text.find("\n  buck: "), std::string::npos) << text;
  EXPECT_NE(text.find("Power Design / Power Delivery Design / CORE_0V80: The supply gives less"),
            std::string::npos)
      << text;
}

TEST(Estimate, TerminationsOutsideAreOffChip) {
  const std::string pins =
      "[[clock]]\nname = 'clk'\nfrequency = 200\n"
      "[[io]]\ni_o_standard = 'SSTL 1.2V'\noutputs = 20\nclock = 'clk'\noutput_termination = ";
  const kvx::Estimate open = estimate(pins + "'None'\n");
  const kvx::Estimate terminated = estimate(pins + "'FP_VTT_50'\n");
  EXPECT_EQ(open.offChipWatts, 0);
  EXPECT_GT(terminated.offChipWatts, 0.01f);
  const auto drawn = [](const kvx::Estimate& result) {
    double watts = 0;
    for (const auto& rail : result.rails) watts += rail.watts();
    return watts;
  };
  EXPECT_NEAR(drawn(terminated) - terminated.totalWatts() - (drawn(open) - open.totalWatts()),
              terminated.offChipWatts, 0.01 * static_cast<double>(terminated.offChipWatts));
}

TEST(Estimate, OverfilledDeviceIsWarnedOf) {
  const struct {
    std::string row, line;
  } cases[] = {
      {"[[logic]]\nname = 'a'\nregisters = 9000000\n", "Registers"},
      {"[[bram]]\nname = 'a'\nbram_count = 9000\nmode = 'BMEM36'\n", "BRAM"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.row);
    const kvx::Estimate result = estimate(each.row);
    EXPECT_FALSE(result.hasErrors());
    const std::string text = kvx::printEstimate(result, kvx::Style(false));
    const std::size_t messages = text.find("\nMessages\n");
    ASSERT_NE(messages, std::string::npos) << text;
    EXPECT_NE(text.find("Utilization exceeds 100%", messages), std::string::npos) << text;
    const auto lines = linesOf(text.substr(text.find("\nUtilization ")));
    const auto line = std::find_if(lines.begin(), lines.end(), [&](const std::string& candidate) {
      return candidate.find(' ' + each.line + ' ') != std::string::npos;
    });
    ASSERT_NE(line, lines.end()) << text;
    EXPECT_GT(std::stod(line->substr(line->rfind(' '))), 100) << *line;
  }
}

// Printing.

/// The number in the line that begins so, in the table of blocks.
double printedPower(const std::string& line) {
  return std::stod(line.substr(34));
}

std::size_t levelOf(const std::string& line) {
  return line.find_first_not_of(' ') / 2;
}

TEST(PrintEstimate, PartsAddUpAndLinesFit) {
  for (const char* name : {"video_pipeline", "packet_processor", "motor_controller"}) {
    SCOPED_TRACE(name);
    const SheetResult result =
        estimateText(readFile(KVX_SOURCE_DIR "/examples/" + std::string(name) + ".toml"));
    ASSERT_TRUE(result.estimate) << result.mistakes;
    double drawn = 0;
    for (const auto& rail : result.estimate->rails)
      drawn += static_cast<double>(rail.volts) * static_cast<double>(rail.dynamicAmperes);
    const double delivered = result.estimate->dynamicWatts() + result.estimate->offChipWatts;
    EXPECT_NEAR(drawn, delivered, 1e-3 * delivered) << "rails and blocks";
    const auto lines = linesOf(kvx::printEstimate(*result.estimate, kvx::Style(false)));
    for (const std::string& line : lines) EXPECT_LE(kvx::displayWidth(line), 100u) << line;
    auto line = std::find_if(lines.begin(), lines.end(),
                             [](const std::string& each) { return each.starts_with("Block "); });
    ASSERT_NE(line, lines.end());
    std::vector<double> rest;  // of each level: what its parts have to make up
    for (++line; line != lines.end() && !line->empty(); ++line) {
      const std::size_t level = levelOf(*line);
      for (std::size_t i = level + 1; i < rest.size(); ++i) EXPECT_TRUE(std::fabs(rest[i]) < 1e-9) << *line;
      rest.resize(level + 1);
      rest.push_back(printedPower(*line));
      if (level > 0) rest[level] -= printedPower(*line);
      const bool isLeaf = line + 1 == lines.end() || (line + 1)->empty() || levelOf(*(line + 1)) <= level;
      if (isLeaf) rest.back() = 0;
    }
    for (std::size_t i = 1; i < rest.size(); ++i) EXPECT_NEAR(rest[i], 0, 1e-9);
  }
}

TEST(PrintEstimate, ColourIsOnlyAddedOnRequest) {
  kvx::Estimate result;
  result.name = "n";
  result.marginDegrees = -5;
  result.budget = 0.0;
  result.blocks = {{"B", "", false, 1.0f}};
  result.messages = {{KvxSeverity::ERROR, "Tab", "Table", "row", "column", std::string(300, 'x')}};
  const std::string plain = kvx::printEstimate(result, kvx::Style(false));
  EXPECT_EQ(plain.find('\x1b'), std::string::npos);
  std::string colored = kvx::printEstimate(result, kvx::Style(true));
  EXPECT_NE(colored.find("\x1b[31m"), std::string::npos);
  for (std::size_t at; (at = colored.find('\x1b')) != std::string::npos;)
    colored.erase(at, colored.find('m', at) - at + 1);
  EXPECT_EQ(colored, plain);
  for (const std::string& line : linesOf(plain)) EXPECT_LE(line.size(), 100u);
}

TEST(PrintEstimate, ShowsSuppliesThatAreSharedOrGiven) {
  kvx::Estimate result;
  result.offChipWatts = 0.25f;
  result.supplies = {
      {"ALONE", "", {"A"}, 1.0f, std::nullopt, 0.5f, 0.0f, std::nullopt},
      {"GIVEN", "", {"B"}, 1.0f, 0.4f, 0.5f, 0.0f, -0.1f},
      {"SHARED", std::string(150, 'n'), {"C", "D"}, 1.0f, std::nullopt, 3e38f, 0.0f, std::nullopt}};
  const std::string plain = kvx::printEstimate(result, kvx::Style(false));
  EXPECT_EQ(plain.find("ALONE"), std::string::npos);
  EXPECT_NE(plain.find("\nGIVEN"), std::string::npos);
  EXPECT_NE(plain.find(": C, D\n"), std::string::npos) << plain;
  EXPECT_NE(plain.find("Off-chip power             0.250 W"), std::string::npos) << plain;
  for (const std::string& line : linesOf(plain)) EXPECT_LE(line.size(), 100u) << line;
  EXPECT_NE(kvx::printEstimate(result, kvx::Style(true)).find("\x1b[33m         -0.100"), std::string::npos);
  result.supplies.resize(1);
  result.offChipWatts = 0;
  const std::string bare = kvx::printEstimate(result, kvx::Style(false));
  EXPECT_EQ(bare.find("Supply"), std::string::npos);
  EXPECT_EQ(bare.find("Off-chip"), std::string::npos);
}

TEST(JsonEstimate, NumbersReadBackAndTextsAreEscaped) {
  kvx::Estimate result;
  result.name = "quote \" and \xff";
  result.blocks = {{"A", "C", false, 0.1f}, {"B", "", true, 1e-7f}};
  result.rails = {{"R", 0.85f, 0.3f, 0.1f, 0.4f}};
  result.supplies = {{"G", "", {"R", "S"}, 0.85f, 2.0f, 0.4f, 0.1f, 1.6f}};
  const std::string text = kvx::jsonEstimate(result);
  EXPECT_NE(text.find("\"power_w\": 0.1\n"), std::string::npos) << text;
  const auto document = nlohmann::json::parse(text);
  EXPECT_EQ(document["schema"], "kvx-estimate/1");
  EXPECT_EQ(document["blocks"][1]["power_w"].get<float>(), 1e-7f);
  EXPECT_EQ(document["blocks"][1]["category"], nullptr);
  EXPECT_EQ(document["rails"][0]["voltage_v"].get<float>(), 0.85f);
  EXPECT_EQ(document["rails"][0]["group"], nullptr);
  EXPECT_EQ(document["rails"][0]["powerup_a"], nullptr);
  EXPECT_EQ(document["supplies"][0]["rails"], (std::vector<std::string>{"R", "S"}));
  EXPECT_EQ(document["supplies"][0]["margin_a"].get<float>(), 1.6f);
  EXPECT_EQ(document["budget"], nullptr);
}

}  // namespace
