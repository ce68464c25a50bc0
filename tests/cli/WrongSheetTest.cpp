// What a wrong sheet is told. Each case is a sheet behind the two lines of its head, and the lines expected.

#include "tests/cli/CliKit.h"

namespace {

struct WrongSheet {
  const char* label;
  std::string sheet;
  std::vector<std::string> mistakes;
};

const std::string Clock = "[[clock]]\nname = 'clk'\nfrequency = 100\nfanout = 10\n";  // lines 3 to 6

const WrongSheet wrongSheets[] = {
    {"unknown tab",
     "[[clok]]\nname = 'a'\n",
     {"sheet:3: the device has no tab \"clok\"; did you mean \"clock\"?"}},
    {"unknown table",
     "[[clock.managers]]\nname = 'a'\n",
     {"sheet:3: tab \"clock\" has no table \"managers\"; *"}},
    {"no main table",
     "[[power_design]]\nvoltage = 1\n",
     {"sheet:3: tab \"power_design\" has no table for rows of its own; write [[power_design.TABLE]]: *"}},
    {"unknown column",
     "[[logic]]\nregistres = 5\n",
     {"sheet:4: table \"Logic Settings\" has no column \"registres\"; did you mean \"registers\"?"}},
    {"calculated column",
     "[[logic]]\nvccint_power = 5\n",
     {"sheet:4: \"vccint_power\" is calculated by the workbook; remove it, or give *"}},
    {"column twice",
     "[[logic]]\ntoggle_rate = 0.1\nToggleRate = 0.2\n",
     {"sheet:5: \"ToggleRate\" is the same column as \"toggle_rate\"; keep one of them"}},
    {"text for a number",
     "[[logic]]\nregisters = 'many'\n",
     {"sheet:4: registers: \"many\" is no number; give a number without a unit"}},
    {"fraction for a count",
     "[[logic]]\nregisters = 1.5\n",
     {"sheet:4: registers: 1.5 is no whole number; give a whole number"}},
    {"truth for a number",
     "[[logic]]\nregisters = true\n",
     {"sheet:4: registers: true is no number; give a number"}},
    {"number for a text", "[[logic]]\nname = 5\n", {"sheet:4: name: 5 is no text; give a text"}},
    {"below the range",
     "[[logic]]\nregisters = -1\n",
     {"sheet:4: registers: -1 is out of range; at least 0 is allowed"}},
    {"above the range",
     "[[logic]]\ntoggle_rate = 12.5\n",
     {"sheet:4: toggle_rate: 12.5 is out of range; 0 to 2 is allowed"}},
    {"too large for any cell",
     "[[logic]]\nregisters = 99999999999\n",
     {"sheet:4: registers: 99999999999 is out of range; *"}},
    {"the blank value",
     "[[logic]]\nregisters = 2147483646\n",
     {"sheet:4: registers: 2147483646 is out of range; *"}},
    {"not finite", "[[logic]]\ntoggle_rate = nan\n", {"sheet:4: toggle_rate: the value is not finite; *"}},
    {"unit of another kind",
     "[[logic]]\ntoggle_rate = '12 MHz'\n",
     {"sheet:4: toggle_rate: \"MHz\" is no unit of this column; give a number, alone or with \"%\""}},
    {"not in the list",
     Clock + "source = 'Extern'\n",
     {"sheet:7: source: \"Extern\" is not in the list; choose one of \"External\", \"Internal\""}},
    {"not in a list that is fixed",
     "[[bram]]\nmode = 'BMEM37'\n",
     {"sheet:4: mode: \"BMEM37\" is not in the list; choose one of \"BMEM18\", *"}},
    {"width of another mode",
     "[[bram]]\nmode = 'BMEM18'\nport_a_bit_width = 36\n",
     {"sheet:5: port_a_bit_width: 36 is not in the list; choose one of \"9\", \"18\""}},
    {"termination of no standard",
     "[[io]]\ni_o_standard = 'SSTL 1.2V'\noutput_termination = 'FP_VTT_9'\n",
     {"sheet:5: output_termination: \"FP_VTT_9\" is not in the list; choose one of \"None\", *"}},
    {"cascade longer than any",
     "[[bram]]\nbram_count = 100\ncascade_group_size = 13\n",
     {"sheet:5: cascade_group_size: 13 is out of range; 0 to 12 is allowed"}},
    {"cascade longer than the module, beside another mistake",
     "[[bram]]\nbram_count = 5\ncascade_group_size = '8'\n[[bram]]\nbram_count = -5\n",
     {"sheet:5: cascade_group_size: \"8\" is out of range; 0 to 5 is allowed",
      "sheet:7: bram_count: -5 is out of range; *"}},
    {"supply that no rails share",
     "[[power_design.power_delivery_design]]\npower_rail_group = 'CORE_0V80'\navailable = 5\nvoltage = 0.8\n",
     {"sheet:5: this design has no \"CORE_0V80\" in table \"Power Delivery Design\"; *"}},
    {"voltage of a supply that feeds one rail",
     "[[power_design.power_delivery_design]]\npower_rail_group = 'VCCINT'\nvoltage = 0.81\n",
     {"sheet:5: voltage is decided by the workbook in this row; *"}},
    {"escape sequence",
     "[[logic]]\n\"\\u001b[31mred\" = 1\n",
     {"sheet:4: table \"Logic Settings\" has no column \"?[31mred\"; *"}},
    {"two lines",
     "[[logic]]\nname = \"a\\nb\"\n",
     {"sheet:4: name: the text has more than one line; keep it on one line"}},
    {"unknown clock",
     Clock + "[[logic]]\nclock = 'clkk'\n",
     {"sheet:8: clock: there is no clock \"clkk\"; did you mean \"clk\"?"}},
    {"clock without frequency",
     "[[clock]]\nname = 'a'\n[[logic]]\nclock = 'a'\n",
     {"sheet:6: clock: clock \"a\" has no frequency; give the clock's row a frequency"}},
    {"clock of a wrong row",
     "[[clock]]\nname = 'a'\nfrequency = 'fast'\n[[logic]]\nclock = 'a'\n",
     {"sheet:5: frequency: \"fast\" is no number; *", "sheet:7: clock: clock \"a\" has no frequency; *"}},
    {"clock twice",
     Clock + Clock,
     {"sheet:8: there are two clocks \"clk\"; give each clock a name of its own"}},
    {"row not named",
     "[[power_design.power_rail_characteristics]]\nvoltage = 0.8\n",
     {"sheet:3: the entry does not say which row of table \"Power Rail Characteristics\" it means; give "
      "\"Supply\": *"}},
    {"unknown rail",
     "[[power_design.power_rail_characteristics]]\nsupply = 'VCCINTT'\nvoltage = 0.8\n",
     {"sheet:4: table \"Power Rail Characteristics\" has no row \"VCCINTT\"; did you mean *"}},
    {"rail of another device",
     "[[power_design.power_rail_characteristics]]\nsupply = 'VCCPSW'\nvoltage = 0.8\n",
     {"sheet:5: this design has no \"VCCPSW\" in table \"Power Rail Characteristics\"; did you mean *"}},
    {"rail twice",
     "[[power_design.power_rail_characteristics]]\nsupply = 'VCCINT'\nvoltage = 0.8\n"
     "[[power_design.power_rail_characteristics]]\nsupply = 'VCCINT'\nvoltage = 0.81\n",
     {"sheet:8: \"voltage\" of this row is given twice; it stands in line 5 already"}},
    {"unknown environment",
     "[environment]\nambient_temp = 30\n",
     {"sheet:4: the environment has no \"ambient_temp\"; did you mean \"ambient_temperature\"?"}},
    {"read-only environment",
     "[environment]\nmax_junction_temperature = 90\n",
     {"sheet:4: max_junction_temperature is decided by the workbook in this row; *"}},
    {"given and calculated",
     "[environment]\njunction_temperature = 80\neffective_theta_ja = 1\n",
     {"sheet:5: the junction temperature cannot be both given and calculated from the thermal resistance; "
      "*"}},
    {"row above the last",
     "[[logic]]\nrow = 3\nregisters = 1\n[[logic]]\nrow = 3\nregisters = 1\n",
     {"sheet:7: 3 is no row that can follow in table \"Logic Settings\"; give a number from 4 to 20000"}},
    {"row that is no number",
     "[[logic]]\nrow = 'a'\nregisters = 1\n[[ps.processors]]\nrow = 9\nload = 1\n",
     {"sheet:4: \"a\" is no row that can follow in *", "sheet:7: 9 is no row that can follow in *"}},
    {"source of another kind",
     "[[logic]]\nregisters = { value = 1, source = 'Me' }\nname = { value = 'a' }\n"
     "clock = { value = [1], source = 'XML' }\n",
     {"sheet:4: \"registers\" has a value that no cell can hold; write { value = ..., *", "sheet:5: *",
      "sheet:6: *"}},
    {"stored value of another type",
     "[[logic]]\nregisters = { value = '1', source = 'XML' }\ntoggle_rate = { value = 'a', source = 'XML' }\n"
     "name = { value = 5, source = 'XML' }\n",
     {"sheet:4: registers: \"1\" is no number; *", "sheet:5: toggle_rate: *",
      "sheet:6: name: 5 is no text; *"}},
    {"clock of two frequencies",
     Clock + "[[clock]]\nname = { value = 'clk', source = 'USER' }\nfrequency = 200\n"
             "[[logic]]\nclock = 'clk'\n[[logic]]\nclock = '200.000 MHz (clk)'\n",
     {"sheet:11: clock: there are clocks \"clk\" of several frequencies; name the one that is meant by its "
      "tag, *"}},
    {"IP configuration",
     "[ip_configuration]\na = 1\n[ip_configuration.b]\nwidth = 3\n",
     {"sheet:4: \"ip_configuration\" holds a table of texts for each IP; *",
      "sheet:6: \"width\" of an IP has to be a text; put it in quotes"}},
    {"all in one run",
     "[environment]\nambient = 'warm'\n[[logic]]\nname = 'a'\nclock = 'x'\nlut = 7\n[[fabric]]\nname = 'b'\n",
     {"sheet:4: *", "sheet:7: clock: there is no clock \"x\"; there are none", "sheet:8: *",
      "sheet:9: the device has no tab \"fabric\"; *"}},
};

/// A pattern may end in "*" for anything.
bool matches(const std::string& line, const std::string& pattern) {
  if (!pattern.ends_with('*')) return line == pattern;
  return line.starts_with(pattern.substr(0, pattern.size() - 1));
}

TEST(WrongSheet, IsToldWhatWouldBeRight) {
  for (const WrongSheet& each : wrongSheets) {
    SCOPED_TRACE(each.label);
    const SheetResult result = estimateText(SheetHead + each.sheet);
    EXPECT_FALSE(result.estimate);
    const auto lines = linesOf(result.mistakes);
    EXPECT_EQ(lines.size(), each.mistakes.size()) << result.mistakes;
    for (std::size_t i = 0; i < std::min(lines.size(), each.mistakes.size()); ++i)
      EXPECT_TRUE(matches(lines[i], each.mistakes[i])) << lines[i] << "\nexpected " << each.mistakes[i];
  }
}

TEST(WrongSheet, NeedsAPartAndAProcess) {
  const WrongSheet heads[] = {
      {"empty", "", {"sheet:1: the sheet names no process; *", "sheet:1: the sheet names no part; *"}},
      {"unknown process",
       "part = 'AK1020-VSVA1024-2-MP-E-S'\nprocess = 'Fast'\n",
       {"sheet:2: \"Fast\" is no process; write process = \"Typical\" or \"Maximum\""}},
      {"slip in the part",
       "process = 'typical'\npart = 'AK1020-VSVA1024-2-MP-E-X'\n",
       {"sheet:2: there is no part \"AK1020-VSVA1024-2-MP-E-X\"; did you mean *"}},
      {"device for a part",
       "process = 'typical'\npart = 'AK1020'\n",
       {"sheet:2: there is no part \"AK1020\"; *"}},
      {"no such part", "process = 'typical'\npart = 'Q'\n", {"sheet:2: there is no part \"Q\"; *"}},
  };
  for (const WrongSheet& each : heads) {
    SCOPED_TRACE(each.label);
    const auto lines = linesOf(estimateText(each.sheet).mistakes);
    ASSERT_EQ(lines.size(), each.mistakes.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
      EXPECT_TRUE(matches(lines[i], each.mistakes[i])) << lines[i];
  }
}

TEST(WrongSheet, OverridesAreHeldToTheSame) {
  const std::pair<const char*, const char*> cases[] = {
      {"clock..clk.frequency=quick",
       "--set clock..clk.frequency=quick: frequency: \"quick\" is no number; *"},
      {"clock..cllk.frequency=5",
       "--set clock..cllk.frequency=5: table \"Clock Settings\" has no row \"cllk\"; did you mean "
       "\"clk\"?"},
      {"clock..0.frequency=5",
       "--set clock..0.frequency=5: table \"Clock Settings\" has no row 0; rows are numbered from 1"},
      {"process=Best", "--set process=Best: \"Best\" is no process; *"},
      {"frequency=5", "--set frequency=5: \"frequency\" is no setting of a sheet; *"},
  };
  for (const auto& [text, expected] : cases) {
    const auto lines = linesOf(estimateText(SheetHead + Clock, {text}).mistakes);
    ASSERT_EQ(lines.size(), 1u) << text;
    EXPECT_TRUE(matches(lines[0], expected)) << lines[0];
  }
}

}  // namespace
