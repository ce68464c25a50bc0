#include "clients/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>

#include "clients/cli/CheckCommand.h"
#include "clients/cli/ConvertCommand.h"
#include "clients/cli/DiffCommand.h"
#include "clients/cli/EstimateCommand.h"
#include "clients/cli/PartsCommand.h"
#include "clients/cli/Spelling.h"
#include "clients/cli/UnitText.h"

namespace kvx {

namespace {

/// Sends std::cout elsewhere while it lives.
class Redirected {
 public:
  explicit Redirected(std::ostream& target) : m_before(std::cout.rdbuf(target.rdbuf())) {}
  ~Redirected() { std::cout.rdbuf(m_before); }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;

 private:
  std::streambuf* m_before;
};

struct Arguments {
  EstimateRequest estimate;
  std::string budget;
  PartsRequest parts;
  ConvertRequest convert;
  DiffRequest diff;
  std::string checked;
};

void describeEstimate(CLI::App& command, Arguments& arguments) {
  command.add_option("design", arguments.estimate.path, "a design sheet, or a project (.kvx)")->required();
  command.add_flag("--json", arguments.estimate.isJson, "print one JSON document instead of tables");
  command
      .add_option("--set", arguments.estimate.overrides,
                  "override a value of the design: part=P, process=P, environment.KEY=V or\n"
                  "TAB.TABLE.ROW.COLUMN=V, with the row's number or name; may be repeated")
      ->allow_extra_args(false);
  command.add_option("--budget", arguments.budget, "fail with status 1 above this many watts");
}

void describeParts(CLI::App& command, Arguments& arguments) {
  for (const PartFilter& filter : partFilters())
    command.add_option(filter.option, arguments.parts.filters[filter.option], filter.help);
  command
      .add_option("--has", arguments.parts.resources,
                  "only devices with this resource: NAME or \"NAME>=COUNT\"; may be repeated")
      ->allow_extra_args(false);
  command.add_flag("--json", arguments.parts.isJson, "print one JSON document instead of a table");
}

void describeConvert(CLI::App& command, Arguments& arguments) {
  command.add_option("source", arguments.convert.source, "a design sheet, or a project (.kvx)")->required();
  command
      .add_option("target", arguments.convert.target,
                  "the other of the two; \"-\" writes a sheet to standard output")
      ->required();
  command.add_flag("--force", arguments.convert.isForced, "replace a file that is there");
}

void describeDiff(CLI::App& command, Arguments& arguments) {
  command.add_option("a", arguments.diff.a, "a design sheet, or a project (.kvx)")->required();
  command.add_option("b", arguments.diff.b, "another")->required();
  command.add_flag("--json", arguments.diff.isJson, "print one JSON document instead of tables");
}

void readBudget(Arguments& arguments, Diagnostics& diagnostics) {
  if (arguments.budget.empty()) return;
  const auto text = NumberText::parse(arguments.budget);
  const auto watts = text ? toStored(*text, KVXEEnums::Unit::POWER_SHOW) : std::nullopt;
  if (watts && *watts >= 0)
    arguments.estimate.budget = *watts;
  else
    diagnostics.add({"--budget " + arguments.budget, 0}, inQuotes(arguments.budget) + " is no power",
                    "give watts: 12.5 or \"12.5 W\"");
}

Outcome runVerb(const CLI::App& application, Arguments& arguments, std::ostream& errors) {
  Diagnostics diagnostics;
  readBudget(arguments, diagnostics);
  const auto run = [&]() -> Outcome {
    if (application.got_subcommand("parts")) return runParts(arguments.parts, diagnostics);
    if (application.got_subcommand("convert")) return runConvert(arguments.convert, diagnostics);
    if (application.got_subcommand("diff")) return runDiff(arguments.diff, diagnostics);
    if (application.got_subcommand("check")) return runCheck(arguments.checked, diagnostics);
    return runEstimate(arguments.estimate, diagnostics);
  };
  Outcome outcome = run();
  diagnostics.print(errors);
  if (!diagnostics.isEmpty()) return {ExitStatus::BadInput, ""};
  return outcome;
}

}  // namespace

Outcome runCommandLine(int argc, const char* const* argv, std::ostream& errors) {
  const Redirected engineOutput(errors);
  CLI::App application("Power estimation of programmable logic designs: estimates as code.", "kvx");
  application.set_version_flag("--version", "kvx " KVX_VERSION);
  application.require_subcommand(1);
  Arguments arguments;
  describeEstimate(*application.add_subcommand("estimate", "Estimate the power of a design"), arguments);
  describeParts(*application.add_subcommand("parts", "List the parts of the catalogue"), arguments);
  describeConvert(
      *application.add_subcommand("convert", "Make a project of a design sheet, or the sheet of a project"),
      arguments);
  describeDiff(*application.add_subcommand("diff", "Tell what two designs do not share"), arguments);
  application.add_subcommand("check", "Tell whether a project file is whole, and what is inside")
      ->add_option("project", arguments.checked, "a project (.kvx)")
      ->required();
  try {
    application.parse(argc, argv);
  } catch (const CLI::Success& request) {  // help and version
    std::ostringstream text;
    application.exit(request, text, text);
    return {ExitStatus::Success, text.str()};
  } catch (const CLI::ParseError& mistake) {
    errors << "kvx: " << mistake.what() << "; \"kvx --help\" tells more\n";
    return {ExitStatus::BadInput, ""};
  }
  return runVerb(application, arguments, errors);
}

}  // namespace kvx
