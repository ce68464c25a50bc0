// The verbs that take projects, from the outside.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "clients/cli/DiffCommand.h"
#include "tests/cli/CliKit.h"
#include "tests/kit/ProjectDirectory.h"

namespace {

const std::string Examples[] = {"video_pipeline", "packet_processor", "motor_controller"};

std::string example(const std::string& name) {
  return KVX_SOURCE_DIR "/examples/" + name + ".toml";
}

/// Runs the program and expects that status.
ProgramRun expectRun(const std::string& arguments, int status) {
  ProgramRun run = runKvx(arguments);
  EXPECT_EQ(run.status, status) << arguments << "\n" << run.errors;
  return run;
}

nlohmann::json estimate(const std::string& arguments) {
  auto document = nlohmann::json::parse(runKvx("estimate --json " + arguments).output);
  document.erase("name");
  return document;
}

TEST(Convert, ExamplesComeBack) {
  for (const std::string& name : Examples) {
    SCOPED_TRACE(name);
    const ProjectDirectory directory;
    const ProgramRun first = expectRun("convert " + example(name) + " a.kvx", 0);
    EXPECT_NE(first.errors.find("becomes \"a\""), std::string::npos) << first.errors;
    expectRun("convert a.kvx a.toml", 0);
    expectRun("convert a.toml b.kvx", 0);
    expectRun("convert b.kvx b.toml", 0);
    EXPECT_EQ(readFile("a.kvx"), readFile("b.kvx"));
    EXPECT_EQ(readFile("a.toml"), readFile("b.toml"));
    EXPECT_EQ(expectRun("convert a.kvx -", 0).output, readFile("a.toml"));
    EXPECT_EQ(estimate("a.kvx"), estimate(example(name)));
    EXPECT_EQ(expectRun("diff a.kvx " + example(name), 0).output, "");
    EXPECT_EQ(directory.list(), (std::vector<std::string>{"a.kvx", "a.toml", "b.kvx", "b.toml"}));
  }
}

TEST(Convert, ProjectsTakeTheOptionsOfSheets) {
  const ProjectDirectory directory;
  expectRun("convert " + example("video_pipeline") + " a.kvx", 0);
  for (const std::string set :
       {"process=Maximum", "clock..pix_clk.frequency=320", "environment.ambient_temperature=50",
        "logic..3.toggle_rate='20 %'", "part=AK1080-VSVA1024-2-HP-E-S"}) {
    const std::string option = " --set " + set;
    const ProgramRun sheet = runKvx("estimate --json " + example("video_pipeline") + option);
    const ProgramRun project = runKvx("estimate --json a.kvx" + option);
    EXPECT_EQ(sheet.status, project.status) << set << project.errors;
    EXPECT_EQ(linesOf(sheet.output).size(), linesOf(project.output).size()) << set;
  }
  EXPECT_EQ(estimate("a.kvx --set process=Maximum"),
            estimate(example("video_pipeline") + " --set process=Maximum"));
  expectRun("estimate a.kvx --budget 1", 1);
  const ProgramRun wrong = expectRun("estimate a.kvx --set clock..pix_clock.frequency=3", 2);
  EXPECT_NE(wrong.errors.find("did you mean \"pix_clk\"?"), std::string::npos) << wrong.errors;
}

TEST(Convert, RefusesWithoutATrace) {
  const ProjectDirectory directory;
  ProjectDirectory::write("wrong.toml", SheetHead + "[[clok]]\nname = 'a'\n[[logic]]\nregisters = -1\n");
  ProjectDirectory::write("there.kvx", "x");
  ProjectDirectory::write("there.toml", "x");
  expectRun("convert " + example("motor_controller") + " good.kvx", 0);
  const auto before = directory.list();
  const struct {
    std::string arguments, error;
  } cases[] = {
      {"convert wrong.toml new.kvx", "wrong.toml:3: the device has no tab \"clok\""},
      {"convert wrong.toml new.kvx", "wrong.toml:6: registers: -1 is out of range"},
      {"convert none.toml new.kvx", "none.toml:1: cannot be opened: No such file"},
      {"convert none.kvx new.toml", "none.kvx: cannot be opened: No such file"},
      {"convert . new.kvx", ".:1: is a directory"},
      {"convert good.kvx there.toml", "there.toml: exists already; give --force"},
      {"convert " + example("motor_controller") + " there.kvx", "there.kvx: exists already; give --force"},
      {"convert there.kvx new.toml", "there.kvx: there.kvx failed during integrity check"},
      {"convert there.toml good.toml", "good.toml: both files are sheets"},
      {"convert good.kvx new.kvx", "new.kvx: both files are projects"},
      {"convert there.toml new.KVX", "new.KVX: both files are sheets"},
      {"convert good.kvx", "target is required"},
      {"estimate there.kvx", "there.kvx failed during integrity check"},
      {"diff good.kvx there.kvx", "there.kvx failed during integrity check"},
      {"diff good.kvx none.toml", "none.toml:1: cannot be opened"},
  };
  for (const auto& each : cases) {
    const ProgramRun run = expectRun(each.arguments, 2);
    EXPECT_EQ(run.output, "") << each.arguments;
    EXPECT_NE(run.errors.find(each.error), std::string::npos) << each.arguments << "\n" << run.errors;
    EXPECT_EQ(directory.list(), before) << each.arguments;
  }
  EXPECT_EQ(readFile("there.kvx") + readFile("there.toml"), "xx");
}

TEST(Convert, ReplacesAFileWhenForced) {
  const ProjectDirectory directory;
  ProjectDirectory::write("a.kvx", "x");
  expectRun("convert --force " + example("motor_controller") + " a.kvx", 0);
  ProjectDirectory::write("real.toml", "x");
  std::filesystem::create_symlink("real.toml", "a.toml");
  expectRun("convert a.kvx a.toml --force", 0);
  EXPECT_TRUE(std::filesystem::is_symlink("a.toml"));
  EXPECT_EQ(expectRun("diff a.kvx real.toml", 0).output, "");
  EXPECT_EQ(directory.list(), (std::vector<std::string>{"a.kvx", "a.toml", "real.toml"}));
}

TEST(Convert, AnotherDeviceDoesNotStandIn) {
  const ProjectDirectory directory;
  const std::string data = "KVX_MODEL_DATA=" KVX_SOURCE_DIR "/examples/model-data";
  const auto parts = nlohmann::json::parse(runKvx("parts --json --device AK1240", data).output)["parts"];
  ProjectDirectory::write("a.toml", "part = " + parts[0]["name"].dump() + "\nprocess = 'Typical'\n");
  EXPECT_EQ(runKvx("convert a.toml a.kvx", data).status, 0);
  const ProgramRun run = expectRun("estimate a.kvx", 2);
  EXPECT_NE(run.errors.find("AK1240"), std::string::npos) << run.errors;
  EXPECT_NE(expectRun("check a.kvx", 0).output.find("AK1240"), std::string::npos);
}

TEST(Convert, FailuresOfTheMachineAreTold) {
  if (geteuid() != 0 || !std::filesystem::exists("/proc/self")) GTEST_SKIP() << "needs root";
  const ProjectDirectory directory;
  expectRun("convert " + example("motor_controller") + " a.kvx", 0);
  for (const std::string arguments : {"convert a.kvx /proc/a.toml", "convert a.kvx /none/a.toml",
                                      "convert a.kvx - >/dev/full", "convert a.kvx /proc/self/x.toml"}) {
    const ProgramRun run = runKvx(arguments);
    EXPECT_EQ(run.status, 3) << arguments;
    EXPECT_EQ(run.errors.rfind("kvx: ", 0), 0u) << run.errors;
  }
  const ProgramRun inProc = runKvx("estimate " + directory.path().string() + "/a.kvx", "cd /proc &&");
  EXPECT_EQ(inProc.status, 3) << inProc.output;
  EXPECT_NE(inProc.errors.find("run kvx in a directory that you may write to"), std::string::npos)
      << inProc.errors;
  EXPECT_EQ(directory.list(), std::vector<std::string>{"a.kvx"});
}

TEST(Convert, LeavesAnotherProcessItsStagingDirectory) {
  const ProjectDirectory directory;
  std::filesystem::create_directories(".Kvx/projects/other");
  expectRun("convert " + example("motor_controller") + " a.kvx", 0);
  EXPECT_EQ(directory.staging(), std::vector<std::string>{"other"});
}

// What differs.

TEST(Diff, ShowsOnlyWhatDiffers) {
  const ProjectDirectory directory;
  std::string sheet = readFile(example("motor_controller"));
  ProjectDirectory::write("a.toml", sheet);
  const auto replace = [&sheet](const std::string& from, const std::string& to) {
    sheet.replace(sheet.find(from), from.size(), to);
  };
  replace("process = \"Typical\"", "process = \"Maximum\"");
  replace("\"60 C\"", "\"55 C\"");
  replace("toggle_rate = \"9 %\"", "toggle_rate = 0.1");
  replace("[[logic]]\nname = \"trajectory\"",
          "[[logic]]\nname = \"new\"\nregisters = 3\n[[logic]]\nname = \"trajectory\"");
  ProjectDirectory::write("edited.toml", sheet);
  expectRun("convert edited.toml b.kvx", 0);
  const ProgramRun run = expectRun("diff a.toml b.kvx", 1);
  const std::string expected =
      "Setting                                a.toml                         b.kvx\n"
      "process                                Typical                        Maximum\n"
      "environment\n"
      "  ambient_temperature                  60                             55\n"
      "logic: current_control_6x\n"
      "  toggle_rate                          0.09                           0.1\n"
      "logic: new\n"
      "  name                                 -                              new\n"
      "  registers                            -                              3\n"
      "\n"
      "Result                                 a.toml                         b.kvx\n"
      "Summary\n"
      "  Total board power ";
  EXPECT_EQ(run.output.substr(0, expected.size()), expected);
  for (const std::string& line : linesOf(run.output)) EXPECT_LE(line.size(), 100u) << line;

  const auto document = nlohmann::json::parse(expectRun("diff --json a.toml b.kvx", 1).output);
  EXPECT_EQ(document["schema"], "kvx-diff/1");
  EXPECT_EQ(document["same"], false);
  EXPECT_EQ(document["settings"].size(), 5u);
  EXPECT_EQ(document["settings"][3],
            nlohmann::json({{"group", "logic: new"}, {"name", "name"}, {"a", nullptr}, {"b", "new"}}));
  const auto same = nlohmann::json::parse(expectRun("diff --json a.toml a.toml", 0).output);
  EXPECT_TRUE(same["settings"].empty() && same["results"].empty() && same["same"]);
}

TEST(Diff, LongNamesAndValuesStayInTheirColumns) {
  const std::string lengthy = "\xc3\xa4" + std::string(200, 'x');
  const kvx::DesignDifference difference{{{lengthy, lengthy, lengthy, std::nullopt}}, {}};
  for (const std::string& line :
       linesOf(kvx::printDifference({lengthy, "b", false}, difference, kvx::Style(false))))
    EXPECT_LE(line.size(), 102u) << line;
}

// What is in a project.

TEST(Check, TellsWhatIsInside) {
  const ProjectDirectory directory;
  ProjectDirectory::write("a.toml", SheetHead +
                                        "[[logic]]\nname = 'a'\nregisters = 5\n"
                                        "[ip_configuration.dma]\nwidth = '64'\n");
  expectRun("convert a.toml a.kvx", 0);
  const ProgramRun run = expectRun("check a.kvx", 0);
  const auto lines = linesOf(run.output);
  for (const std::string& expected :
       {"whole, " + std::to_string(std::filesystem::file_size("a.kvx")) + " bytes",
        std::string("Device              AK1020"), std::string("Process             Typical"),
        "LOGIC LogicConfiguration" + std::string(26, ' ') + "         500           2",
        "dma" + std::string(47, ' ') + "           1"})
    EXPECT_NE(std::find(lines.begin(), lines.end(), expected), lines.end()) << expected << "\n" << run.output;
  EXPECT_NE(run.output.find("versions/topVersion/version.xml"), std::string::npos);
  for (const std::string& line : lines) EXPECT_LE(line.size(), 100u) << line;
  EXPECT_EQ(directory.list(), (std::vector<std::string>{"a.kvx", "a.toml"}));
}

TEST(Check, AnyByteThatChangedIsDamage) {
  const ProjectDirectory directory;
  expectRun("convert " + example("motor_controller") + " a.kvx", 0);
  const std::string whole = readFile("a.kvx");
  for (const std::size_t at : {std::size_t{0}, whole.size() / 2, whole.size() - 90, whole.size() - 1}) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 1);
    ProjectDirectory::write("b.kvx", damaged);
    const ProgramRun run = expectRun("check b.kvx", 2);
    EXPECT_EQ(run.errors.rfind("b.kvx: the file is damaged or no project", 0), 0u) << run.errors;
    EXPECT_EQ(run.output, "");
    expectRun("estimate b.kvx", 2);
  }
  for (const std::string arguments : {"check none.kvx", "check .", "check", "check /dev/null"})
    expectRun(arguments, 2);
}

}  // namespace
