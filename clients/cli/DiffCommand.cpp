#include "clients/cli/DiffCommand.h"

#include "clients/cli/Design.h"
#include "clients/cli/JsonTypes.h"
#include "clients/cli/TextTable.h"

namespace kvx {

namespace {

constexpr std::size_t NameWidth = 38, ValueWidth = 30;
constexpr const char* Gap = " ";

std::optional<Snapshot> takeSnapshot(const std::string& path, Diagnostics& diagnostics) {
  const auto design = loadDesign(path, {}, diagnostics);
  if (!design) return std::nullopt;
  return Snapshot{path, readEntries(*design->book), estimateOf(*design)};
}

/// One row of three columns; a text that is too wide goes on in the next line.
std::string printRow(const std::string& name, const std::string& a, const std::string& b) {
  const auto names = wrapText(printable(name), NameWidth);
  const auto left = wrapText(printable(a), ValueWidth);
  const auto right = wrapText(printable(b), ValueWidth);
  const auto at = [](const std::vector<std::string>& lines, std::size_t i) {
    return i < lines.size() ? lines[i] : std::string();
  };
  std::string text;
  for (std::size_t i = 0; i < std::max({names.size(), left.size(), right.size()}); ++i) {
    std::string line =
        padRight(at(names, i), NameWidth) + Gap + padRight(at(left, i), ValueWidth) + Gap + at(right, i);
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

/// The end of a path, which tells it from the other.
std::string headOf(const std::string& path) {
  constexpr std::string_view Ellipsis = "...";
  if (displayWidth(path) <= ValueWidth) return path;
  std::size_t begin = path.size();
  std::size_t width = Ellipsis.size();
  while (begin > 0 && width < ValueWidth) {
    const std::size_t before = begin;
    do --begin;
    while (begin > 0 && (static_cast<unsigned char>(path[begin]) & 0xC0) == 0x80);
    width += displayWidth(std::string_view(path).substr(begin, before - begin));
  }
  return std::string(Ellipsis) + path.substr(begin);
}

std::string printSection(const std::string& head, const std::vector<Difference>& differences,
                         const DiffRequest& request, const Style& style) {
  if (differences.empty()) return "";
  const std::string titles = printRow(head, headOf(request.a), headOf(request.b));
  std::string text = style.bold(std::string_view(titles).substr(0, titles.size() - 1)) + "\n";
  std::string group;
  for (const Difference& difference : differences) {
    if (difference.group != group)
      for (const std::string& line : wrapText(printable(difference.group), LineWidth)) text += line + "\n";
    group = difference.group;
    text += printRow((group.empty() ? "" : "  ") + difference.name, difference.a.value_or("-"),
                     difference.b.value_or("-"));
  }
  return text;
}

Json toJson(const std::vector<Difference>& differences) {
  const auto orNull = [](const std::optional<std::string>& text) {
    return text ? Json(*text) : Json(nullptr);
  };
  Json list = Json::array();
  for (const Difference& difference : differences)
    list.push_back({{"group", difference.group.empty() ? Json(nullptr) : Json(difference.group)},
                    {"name", difference.name},
                    {"a", orNull(difference.a)},
                    {"b", orNull(difference.b)}});
  return list;
}

}  // namespace

std::string printDifference(const DiffRequest& request, const DesignDifference& difference,
                            const Style& style) {
  const std::string settings = printSection("Setting", difference.settings, request, style);
  const std::string results = printSection("Result", difference.results, request, style);
  return settings + (settings.empty() || results.empty() ? "" : "\n") + results;
}

std::string jsonDifference(const DiffRequest& request, const DesignDifference& difference) {
  return toText({{"schema", "kvx-diff/1"},
                 {"a", request.a},
                 {"b", request.b},
                 {"same", difference.isEmpty()},
                 {"settings", toJson(difference.settings)},
                 {"results", toJson(difference.results)}});
}

Outcome runDiff(const DiffRequest& request, Diagnostics& diagnostics) {
  const auto a = takeSnapshot(request.a, diagnostics);
  const auto b = takeSnapshot(request.b, diagnostics);
  if (!a || !b) return {ExitStatus::BadInput, ""};
  const DesignDifference difference = compareDesigns(*a, *b);
  return {difference.isEmpty() ? ExitStatus::Success : ExitStatus::Broken,
          request.isJson ? jsonDifference(request, difference)
                         : printDifference(request, difference, Style::forStandardOutput())};
}

}  // namespace kvx
