#include "clients/cli/CheckCommand.h"

#include <stdexcept>
#include <system_error>

#include "clients/cli/ProjectContents.h"
#include "clients/cli/ProjectFile.h"
#include "clients/cli/Style.h"
#include "clients/cli/TextTable.h"
#include "platform/wyr_common/NException.h"

namespace kvx {

namespace {

constexpr std::size_t NameWidth = 50, NumberWidth = 12;

std::string printSettings(const ProjectContents::Settings& settings) {
  std::string text;
  for (const auto& [name, value] : settings)
    for (const std::string& line : wrapText(printable(padRight(name, 20) + value), LineWidth))
      text += line + "\n";
  return text;
}

/// A name and numbers behind it.
std::string printLine(const std::string& name, const std::vector<std::string>& numbers) {
  std::string line = padRight(printable(name), NameWidth);
  for (const std::string& number : numbers) line += padLeft(number, NumberWidth);
  return line + "\n";
}

std::string printHead(const std::string& name, const std::vector<std::string>& columns, const Style& style) {
  const std::string line = printLine(name, columns);
  return "\n" + style.bold(std::string_view(line).substr(0, line.size() - 1)) + "\n";
}

std::string printContents(const std::string& path, const ProjectContents& contents, const Style& style) {
  std::string text;
  for (const std::string& line : wrapText(printable(path), LineWidth)) text += style.bold(line) + "\n";
  text += "whole, " + std::to_string(contents.bytes) + " bytes\n\n";
  text += printSettings(contents.product) + "\n" + printSettings(contents.device);
  text += printHead("Entry", {"Bytes", "Packed"}, style);
  for (const ProjectContents::Entry& entry : contents.entries)
    text += printLine(entry.name, {std::to_string(entry.bytes), std::to_string(entry.packedBytes)});
  text += printHead("Table", {"Rows", "Supplied"}, style);
  for (const ProjectContents::Table& table : contents.tables)
    text +=
        printLine(table.tab + " " + table.name, {std::to_string(table.rows), std::to_string(table.supplied)});
  if (contents.ips.empty()) return text;
  text += printHead("IP configuration", {"Properties"}, style);
  for (const ProjectContents::Ip& ip : contents.ips)
    text += printLine(ip.uid, {std::to_string(ip.properties)});
  return text;
}

}  // namespace

Outcome runCheck(const std::string& path, Diagnostics& diagnostics) {
  const Outcome refused{ExitStatus::BadInput, ""};
  if (!isReadableProject(path, diagnostics)) return refused;
  try {
    return {ExitStatus::Success, printContents(path, readContents(path), Style::forStandardOutput())};
  } catch (const std::system_error&) {
    throw;  // the disk, not the project
  } catch (const std::runtime_error& damage) {
    diagnostics.add({path, 0}, damage.what(), "restore it from a copy");
  } catch (const NException& damage) {
    diagnostics.add({path, 0}, damage.what(), "restore it from a copy");
  }
  return refused;
}

}  // namespace kvx
