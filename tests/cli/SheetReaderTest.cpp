#include "clients/cli/SheetReader.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/cli/CliKit.h"

namespace {

std::string printed(const kvx::Diagnostics& diagnostics) {
  std::ostringstream text;
  diagnostics.print(text);
  return text.str();
}

TEST(SheetReader, KeepsTheOrderAndTheLinesOfTheSheet) {
  kvx::Diagnostics diagnostics;
  const kvx::Sheet sheet = kvx::readSheetText(
      "part = 'P'\n"
      "[[logic]]\n"
      "name = 'z'\n"
      "[[clock]]\n"
      "name = 'b'\n"
      "frequency = 1.5\n"
      "[[clock.clock_manager_configuration]]\n"
      "count = 2\n"
      "[[clock]]\n"
      "name = 'a'\n",
      "s", diagnostics);
  EXPECT_TRUE(diagnostics.isEmpty()) << printed(diagnostics);
  std::string order;
  for (const kvx::SheetRow& row : sheet.rows)
    order += row.tab + "." + row.table + ":" + std::to_string(row.place.line) + " ";
  EXPECT_EQ(order, "logic.:2 clock.:4 clock.clock_manager_configuration:7 clock.:9 ");
  EXPECT_EQ(std::get<double>(sheet.rows[1].cells[1].value), 1.5);
  EXPECT_EQ(sheet.rows[1].cells[1].place.line, 6u);
}

TEST(SheetReader, ReportsEveryMistakeOfForm) {
  kvx::Diagnostics diagnostics;
  kvx::readSheetText(
      "part = 7\n"            // 1: no text
      "proces = 'Typical'\n"  // 2: no such setting
      "environment = 3\n"     // 3: no table
      "[[clock]]\n"           // 4
      "name = unquoted\n"     // 5: no TOML
      "name = 'a'\n"          // 6
      "name = 'b'\n"          // 7: twice
      "when = 2024-01-01\n"   // 8: no value of a cell
      "list = [1, 2]\n"       // 9: neither
      "[logic]\n"             // 10
      "name = 'c'\n",         // 11: in no row
      "s", diagnostics);
  const auto lines = linesOf(printed(diagnostics));
  ASSERT_EQ(lines.size(), 8u) << printed(diagnostics);
  const unsigned expected[] = {1, 2, 3, 5, 7, 8, 9, 11};
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_EQ(lines[i].rfind("s:" + std::to_string(expected[i]) + ": ", 0), 0u) << lines[i];
}

TEST(SheetReader, NoTextEndsTheProcess) {
  std::string dots = "a";
  for (int i = 0; i < 200000; ++i) dots += ".a";
  std::string nested = "x = ";
  for (int i = 0; i < 250; ++i) {
    nested += "[{a";
    for (int j = 0; j < 99; ++j) nested += ".a";
    nested += " = \n";
  }
  const std::string texts[] = {"[" + dots + "]\n",
                               dots + " = 1\n",
                               "x = {" + dots + " = 1}\n",
                               "x = [\"\"\"\n# \"\"\", {" + dots + " = 1}]\n",
                               "x = " + std::string(100000, '[') + "\n",
                               nested,
                               "[(]\n",
                               "[[ \n",
                               "\xEF\xBB\xBF [",
                               "[",
                               "[[[a]]]\n",
                               "\"",
                               "'''",
                               "a = \"\\u12"};
  for (const std::string& text : texts) {
    kvx::Diagnostics diagnostics;
    kvx::readSheetText(text, "s", diagnostics);
    EXPECT_FALSE(diagnostics.isEmpty()) << text.substr(0, 50);
  }
}

TEST(SheetReader, RefusesWhatIsNoSheetFile) {
  const TemporaryDirectory directory;
  const std::string sparse = directory.write("sparse", "");
  std::filesystem::resize_file(sparse, 100'000'000);
  struct Case {
    std::string path, expected;
  };
  const Case cases[] = {
      {directory.path("none"), "cannot be opened: No such file or directory"},
      {directory.path(""), "is a directory"},
      {sparse, "is larger than a design sheet may be"},
      {"/dev/zero", "is larger than a design sheet may be"},
      {directory.write("binary", std::string("\x7f"
                                             "ELF\0\1\2",
                                             7)),
       "is no text file"},
      {directory.write("latin", "name = \"caf\xe9\"\n"),
       "not readable as TOML: Encountered invalid utf-8 sequence"},
  };
  for (const Case& each : cases) {
    kvx::Diagnostics diagnostics;
    kvx::readSheetFile(each.path, diagnostics);
    EXPECT_EQ(printed(diagnostics).rfind(each.path + ":1: " + each.expected, 0), 0u) << printed(diagnostics);
    EXPECT_EQ(diagnostics.size(), 1u);
  }
}

TEST(SheetOverride, NamesACellByItsPath) {
  kvx::Diagnostics diagnostics;
  kvx::Sheet sheet;
  sheet.environment.push_back({"Ambient Temperature", 25.0, {}});
  for (const char* text :
       {"process=Maximum", "environment.ambient_temperature=60", "clock..sys.frequency=0.3 GHz",
        "logic.\"a.b\".2.toggle_rate=0.25", "io..1.name=a=b"})
    kvx::addOverride(text, sheet, diagnostics);
  EXPECT_TRUE(diagnostics.isEmpty()) << printed(diagnostics);
  EXPECT_EQ(std::get<std::string>(sheet.process->value), "Maximum");
  ASSERT_EQ(sheet.environment.size(), 1u);
  EXPECT_EQ(std::get<std::int64_t>(sheet.environment[0].value), 60);
  ASSERT_EQ(sheet.rows.size(), 3u);
  EXPECT_EQ(sheet.rows[0].row, "sys");
  EXPECT_EQ(std::get<std::string>(sheet.rows[0].cells[0].value), "0.3 GHz");
  EXPECT_EQ(sheet.rows[1].table, "a.b");
  EXPECT_EQ(std::get<double>(sheet.rows[1].cells[0].value), 0.25);
  EXPECT_EQ(std::get<std::string>(sheet.rows[2].cells[0].value), "a=b");
  for (const char* text : {"", "part", "clock.name=1", "a.b.c.d.e=1", "speed=2"})
    kvx::addOverride(text, sheet, diagnostics);
  EXPECT_EQ(diagnostics.size(), 5u);
}

}  // namespace
