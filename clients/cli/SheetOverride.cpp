// Overrides of single values of a sheet from the command line.

#include <algorithm>
#include <charconv>

#include "clients/cli/SheetReader.h"
#include "clients/cli/Spelling.h"

namespace kvx {

namespace {

const char* const Form = "write part=P, process=P, environment.KEY=VALUE or TAB.TABLE.ROW.COLUMN=VALUE";

/// Splits at dots that stand outside of double quotes; the quotes go. `end` is where the "=" stands.
std::vector<std::string> splitPath(std::string_view text, std::size_t& end) {
  std::vector<std::string> parts(1);
  bool isQuoted = false;
  for (end = 0; end < text.size(); ++end) {
    const char c = text[end];
    if (c == '"')
      isQuoted = !isQuoted;
    else if (c == '.' && !isQuoted)
      parts.emplace_back();
    else if (c == '=' && !isQuoted)
      return parts;
    else
      parts.back() += c;
  }
  end = std::string_view::npos;
  return parts;
}

/// A number where the whole text is one, else the text.
SheetValue toValue(std::string_view text) {
  const char* const end = text.data() + text.size();
  std::int64_t whole = 0;
  if (const auto result = std::from_chars(text.data(), end, whole);
      result.ec == std::errc() && result.ptr == end)
    return whole;
  double number = 0;
  if (const auto result = std::from_chars(text.data(), end, number);
      result.ec == std::errc() && result.ptr == end)
    return number;
  return std::string(text);
}

}  // namespace

void addOverride(const std::string& text, Sheet& sheet, Diagnostics& diagnostics) {
  const Place place{"--set " + text, 0};
  std::size_t equals = 0;
  std::vector<std::string> path = splitPath(text, equals);
  if (equals == std::string_view::npos)
    return diagnostics.add(place, "there is no \"=\" behind the path", Form);
  const std::string_view written = std::string_view(text).substr(equals + 1);
  const SheetValue value = toValue(written);
  if (path.size() == 1) {
    if (isSameSpelling(path[0], "part"))
      sheet.part = Assignment{path[0], std::string(written), place};
    else if (isSameSpelling(path[0], "process"))
      sheet.process = Assignment{path[0], std::string(written), place};
    else
      diagnostics.add(place, inQuotes(path[0]) + " is no setting of a sheet", Form);
  } else if (path.size() == 2 && isSameSpelling(path[0], "environment")) {
    std::erase_if(sheet.environment, [&](const Assignment& old) { return isSameSpelling(old.key, path[1]); });
    sheet.environment.push_back({path[1], value, place});
  } else if (path.size() == 4) {
    sheet.rows.push_back({path[0], path[1], path[2], {{path[3], value, place}}, place});
  } else {
    diagnostics.add(place, "the path has " + std::to_string(path.size()) + " parts", Form);
  }
}

}  // namespace kvx
