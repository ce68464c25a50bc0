// The program from the outside: status, streams, environment.

#include <nlohmann/json.hpp>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "models/common/ParamsRecord.h"
#include "tests/cli/CliKit.h"

namespace {

const std::string Video = KVX_SOURCE_DIR "/examples/video_pipeline.toml";

TEST(Command, StatusTellsHowItEnded) {
  const TemporaryDirectory directory;
  const std::string wrong = directory.write("wrong.toml", SheetHead + "[[clok]]\nname = 'a'\n");
  const std::string empty = directory.write("empty.toml", "");
  const struct {
    std::string arguments;
    int status;
  } cases[] = {
      {"--version", 0},
      {"--help", 0},
      {"estimate --help", 0},
      {"estimate " + Video, 0},
      {"estimate " + Video + " --budget 100", 0},
      {"estimate " + Video + " --budget '100 mW'", 1},
      {"estimate " + Video + " --set power_design.power_rail_characteristics.VCCINT.voltage=2", 1},
      {"", 2},
      {"estimat", 2},
      {"estimate", 2},
      {"estimate --nothing " + Video, 2},
      {"estimate " + Video + " --budget plenty", 2},
      {"estimate " + Video + " --set nothing", 2},
      {"estimate " + wrong, 2},
      {"estimate " + empty, 2},
      {"estimate " + directory.path("none"), 2},
      {"estimate " + directory.path(""), 2},
      {"parts", 0},
      {"parts --family 'arkeon edge' '--has=DSP>=1000' --json", 0},
      {"parts --arch Tarvec", 2},
      {"parts --has GOLD", 2},
      {"estimate " + Video + " >/dev/full", 3},
      {"parts >/dev/full", 3},
  };
  for (const auto& each : cases) {
    const ProgramRun run = runKvx(each.arguments);
    EXPECT_EQ(run.status, each.status) << each.arguments << "\n" << run.errors;
    const bool isRefused = each.status >= 2;
    EXPECT_EQ(run.output.empty(), isRefused) << each.arguments;
    EXPECT_TRUE(!isRefused || !run.errors.empty()) << each.arguments;
    EXPECT_TRUE(each.status != 0 || run.errors.empty()) << each.arguments << "\n" << run.errors;
  }
}

TEST(Command, OutputIsTheSameUnderEveryLocaleAndTwice) {
  const TemporaryDirectory directory;
  const std::string compile =
      "localedef -i de_DE -f UTF-8 '" + directory.path("de_DE.UTF-8") + "' >/dev/null 2>&1";
  const bool hasLocale = std::system(compile.c_str()) == 0;
  const ProgramRun plain = runKvx("estimate " + Video + " --json", "LC_ALL=C");
  const ProgramRun german =
      runKvx("estimate " + Video + " --json", "LOCPATH='" + directory.path("") + "' LC_ALL=de_DE.UTF-8");
  EXPECT_EQ(plain.output, german.output);
  EXPECT_FALSE(plain.output.empty());
  if (!hasLocale) GTEST_SKIP() << "the German locale cannot be made here";
}

TEST(Command, NeverColoursAPipe) {
  EXPECT_EQ(runKvx("estimate " + Video, "TERM=xterm").output.find('\x1b'), std::string::npos);
}

TEST(Command, ModelDataMistakesAreInput) {
  const TemporaryDirectory directory;
  std::filesystem::create_directory(directory.path("tarvek"));
  directory.write("tarvek/devices.csv", "device, family\nAK9\n");
  for (const std::string& arguments : {"estimate " + Video, std::string("parts")}) {
    const ProgramRun run = runKvx(arguments, "KVX_MODEL_DATA='" + directory.path("") + "'");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.errors.find("devices.csv:"), std::string::npos) << run.errors;
  }
}

TEST(Command, PartsAreFilteredByEveryField) {
  const auto count = [](const std::string& arguments) {
    const ProgramRun run = runKvx("parts --json " + arguments);
    EXPECT_EQ(run.status, 0) << run.errors;
    return nlohmann::json::parse(run.output)["parts"].size();
  };
  const std::size_t all = count("");
  EXPECT_EQ(count("--arch Tarvek") + count("--arch Morlan") + count("--arch Som"), all);
  EXPECT_EQ(count("--device ak1080 --package VSVA1024 --speed 3 --temperature E"), 1u);
  EXPECT_GT(count("--grade QA"), 0u);
  EXPECT_EQ(count("--part AK1020_VSVA1024_2_MP_E_S"), 1u);
  const auto many = nlohmann::json::parse(runKvx("parts --json '--has=MXE>=200'").output);
  for (const auto& part : many["parts"]) EXPECT_GE(part["resources"]["MXE"], 200);
  for (const std::string& line : linesOf(runKvx("parts").output)) EXPECT_LE(line.size(), 100u) << line;
}

/// What the summary of the present book says itself; nothing for a module, which has another summary.
std::optional<float> totalOnSummary() {
  KVXETab* summary = KVXEBookMgr::getGlobal().getCurrentBook()->getTab(KVXEEnums::TabType::SUMMARY);
  if (!summary->getTable(&KVXESummaryTab::m_summaryTableHeader)) return std::nullopt;
  KVXECell* cell = summary->lookup<std::string>(
      &KVXESummaryTab::m_summaryTableHeader, KVXESummaryTab::m_onChipPowerStr,
      &KVXESummaryTab::m_summaryOptionColumn, &KVXESummaryTab::m_summarySelectionColumn, false);
  float watts = 0;
  return cell && cell->getVal(watts, true) ? std::optional(watts) : std::nullopt;
}

TEST(Command, EveryDeviceCanBeEstimated) {
  // One part of each device: the tabs of each are built and calculated.
  const auto list = nlohmann::json::parse(runKvx("parts --json").output);
  std::map<std::string, std::string> partOf;
  for (const auto& part : list["parts"])
    partOf.emplace(part["device"].get<std::string>(), part["name"].get<std::string>());
  ASSERT_GT(partOf.size(), 15u);
  for (const auto& [device, part] : partOf) {
    const SheetResult result = estimateText("part = '" + part + "'\nprocess = 'Typical'\n");
    ASSERT_TRUE(result.estimate) << part << ": " << result.mistakes;
    EXPECT_EQ(result.estimate->part, part);
    EXPECT_GT(result.estimate->staticWatts(), 0.05) << part;
    EXPECT_LT(result.estimate->totalWatts(), 60) << part;
    const auto shown = totalOnSummary();
    EXPECT_NEAR(result.estimate->totalWatts(), shown.value_or(result.estimate->totalWatts()), 6e-4) << part;
  }
}

}  // namespace
