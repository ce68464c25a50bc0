#include "clients/cli/SheetReader.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#define TOML_HEADER_ONLY 1
#include <toml++/toml.h>

#include "clients/cli/Spelling.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvx {

std::string describeValue(const SheetValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return inQuotes(*text);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  if (const auto* number = std::get_if<double>(&value)) return KVXMHelperUtils::ToString(*number);
  return std::get<bool>(value) ? "true" : "false";
}

namespace {

// The parser's tables nest as deep as a dotted key, and it destroys them by recursion: a key of 100,000 dots
// would end the process. Where texts begin and end is the parser's business, so that all dots count.
constexpr std::ptrdiff_t MostDotsInLine = 100;
constexpr unsigned int MostUnreadableLines = 50;

unsigned int lineOf(const toml::source_region& region) {
  return std::max<unsigned int>(region.begin.line, 1);
}

/// Turns the parsed document into a Sheet.
class DocumentReader {
 public:
  DocumentReader(Sheet& sheet, Diagnostics& diagnostics) : m_sheet(sheet), m_diagnostics(diagnostics) {}

  void read(const toml::table& document) {
    for (const auto& [key, node] : document) readTopLevel(key, node);
    // The parser sorts keys; rows count in the order in which they were written.
    std::stable_sort(m_sheet.rows.begin(), m_sheet.rows.end(),
                     [](const SheetRow& a, const SheetRow& b) { return a.place.line < b.place.line; });
  }

 private:
  Place placeOf(unsigned int line) const { return {m_sheet.place.source, line}; }
  Place placeOf(const toml::key& key) const { return placeOf(lineOf(key.source())); }

  void readTopLevel(const toml::key& key, const toml::node& node) {
    const std::string name(key.str());
    if (std::optional<Assignment>* setting = settingOf(name)) return readSetting(key, node, *setting);
    if (isSameSpelling(name, "environment")) return readEnvironment(key, node);
    if (isSameSpelling(name, "ip_configuration")) return readIpConfigurations(key, node);
    if (const toml::array* rows = node.as_array(); rows && (rows->empty() || rows->is_array_of_tables()))
      return readRows(*rows, name, "");
    if (const toml::table* table = node.as_table()) return readTab(key, *table);
    m_diagnostics.add(placeOf(key), inQuotes(name) + " is no setting of a sheet",
                      adviseName(name, {"name", "part", "process", "environment"}) +
                          " A row of a table begins with [[tab]]");
  }

  std::optional<Assignment>* settingOf(const std::string& name) {
    if (isSameSpelling(name, "name")) return &m_sheet.name;
    if (isSameSpelling(name, "part")) return &m_sheet.part;
    if (isSameSpelling(name, "process")) return &m_sheet.process;
    return nullptr;
  }

  void readSetting(const toml::key& key, const toml::node& node, std::optional<Assignment>& setting) {
    const std::string name(key.str());
    if (setting)
      return m_diagnostics.add(placeOf(key), inQuotes(name) + " is given twice", "keep one of them");
    const auto text = node.value<std::string>();
    setting = Assignment{name, text.value_or(""), placeOf(key)};
    if (text) return;
    m_sheet.isDamaged = true;
    m_diagnostics.add(placeOf(key), inQuotes(name) + " has to be a text", "write " + name + " = \"...\"");
  }

  void readEnvironment(const toml::key& key, const toml::node& node) {
    const toml::table* table = node.as_table();
    if (!table)
      return m_diagnostics.add(placeOf(key), "\"environment\" is a table of settings",
                               "begin it with [environment]");
    std::vector<Assignment> cells = readCells(*table);
    for (Assignment& cell : cells) m_sheet.environment.push_back(std::move(cell));
  }

  /// `[ip_configuration.UID]`: the texts with which the IP's dialog was filled.
  void readIpConfigurations(const toml::key& key, const toml::node& node) {
    const toml::table* table = node.as_table();
    if (!table) return reportIpConfiguration(placeOf(key));
    for (const auto& [uid, child] : *table) {
      const toml::table* properties = child.as_table();
      if (!properties) {
        reportIpConfiguration(placeOf(uid));
        continue;
      }
      IpConfiguration configuration{std::string(uid.str()), {}};
      for (const auto& [name, text] : *properties) {
        if (const auto value = text.value_exact<std::string>())
          configuration.properties.emplace(name.str(), *value);
        else
          m_diagnostics.add(placeOf(name), inQuotes(name.str()) + " of an IP has to be a text",
                            "put it in quotes");
      }
      m_sheet.ipConfigurations.push_back(std::move(configuration));
    }
  }

  void reportIpConfiguration(const Place& place) {
    m_diagnostics.add(place, "\"ip_configuration\" holds a table of texts for each IP",
                      "begin each with [ip_configuration.NAME]");
  }

  /// `[tab]`: holds nothing but the rows of its tables.
  void readTab(const toml::key& key, const toml::table& table) {
    const std::string tab(key.str());
    for (const auto& [name, node] : table) {
      if (const toml::array* rows = node.as_array(); rows && (rows->empty() || rows->is_array_of_tables())) {
        readRows(*rows, tab, std::string(name.str()));
      } else if (node.is_table()) {
        const std::string path = tab + "." + std::string(name.str());
        m_diagnostics.add(placeOf(name), "[" + path + "] makes no row",
                          "begin each row with [[" + path + "]]");
      } else {
        m_diagnostics.add(placeOf(name), inQuotes(name.str()) + " stands in no row",
                          "begin each row of the tab with [[" + tab + "]]");
      }
    }
  }

  void readRows(const toml::array& rows, const std::string& tab, const std::string& table) {
    for (const toml::node& node : rows) {
      const toml::table& content = *node.as_table();
      SheetRow row{tab, table, std::nullopt, {}, placeOf(lineOf(content.source()))};
      bool hasTables = false;
      for (const auto& [name, child] : content) {
        const toml::array* inner = child.as_array();
        if (!inner || inner->empty() || !inner->is_array_of_tables()) continue;
        hasTables = true;
        if (table.empty())
          readRows(*inner, tab, std::string(name.str()));
        else
          m_diagnostics.add(placeOf(name), "rows stand in rows of " + inQuotes(table),
                            "write [[tab]] or [[tab.table]], no deeper");
      }
      row.cells = readCells(content);
      takeNumber(row);
      const bool isEmpty = content.size() == (row.number ? 1u : 0u);
      if (isEmpty && !hasTables && !m_sheet.isDamaged)
        m_diagnostics.add(row.place, "the row is empty", "give it at least one column, or remove it");
      if (!row.cells.empty()) m_sheet.rows.push_back(std::move(row));
    }
  }

  /// `row = 7` is no cell.
  static void takeNumber(SheetRow& row) {
    const auto found = std::find_if(row.cells.begin(), row.cells.end(), [](const Assignment& cell) {
      return isSameSpelling(cell.key, RowNumberKey);
    });
    if (found == row.cells.end()) return;
    row.number = *found;
    row.cells.erase(found);
  }

  std::vector<Assignment> readCells(const toml::table& table) {
    std::vector<Assignment> cells;
    for (const auto& [key, node] : table) {
      if (const toml::array* rows = node.as_array(); rows && !rows->empty() && rows->is_array_of_tables())
        continue;
      if (const toml::table* stored = node.as_table(); stored && stored->is_inline()) {
        readStored(key, *stored, cells);
      } else if (const auto value = readValue(node)) {
        cells.push_back({std::string(key.str()), *value, placeOf(key)});
      } else {
        m_diagnostics.add(placeOf(key), inQuotes(key.str()) + " has a value that no cell can hold",
                          "give a text in quotes, a number, true or false");
      }
    }
    std::stable_sort(cells.begin(), cells.end(),
                     [](const Assignment& a, const Assignment& b) { return a.place.line < b.place.line; });
    return cells;
  }

  /// `{ value = ..., source = "XML" }`
  void readStored(const toml::key& key, const toml::table& table, std::vector<Assignment>& cells) {
    const toml::node* node = table.get("value");
    const auto value = node ? readValue(*node) : std::nullopt;
    const auto source = sourceOf(table["source"].value_or(std::string()));
    if (value && source && table.size() == 2)
      cells.push_back({std::string(key.str()), *value, placeOf(key), source});
    else
      m_diagnostics.add(
          placeOf(key), inQuotes(key.str()) + " has a value that no cell can hold",
          "write { value = ..., source = \"USER\" }, or \"XML\" or \"IP\" for what was imported");
  }

  static std::optional<KVXEEnums::ValueSource> sourceOf(const std::string& text) {
    using KVXEEnums::ValueSource;
    for (const ValueSource source : {ValueSource::USER, ValueSource::XML, ValueSource::IP})
      if (KVXEEnums::nameOf(source) == text) return source;
    return std::nullopt;
  }

  static std::optional<SheetValue> readValue(const toml::node& node) {
    if (const auto* text = node.as_string()) return SheetValue(text->get());
    if (const auto* number = node.as_integer()) return SheetValue(number->get());
    if (const auto* number = node.as_floating_point()) return SheetValue(number->get());
    if (const auto* truth = node.as_boolean()) return SheetValue(truth->get());
    return std::nullopt;
  }

  Sheet& m_sheet;
  Diagnostics& m_diagnostics;
};

bool startsName(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '-' ||
         c == '"' || c == '\'';
}

/// Whether a line begins a section without a name, which the parser takes for a fault of its own.
bool isNamelessSection(std::string_view line) {
  constexpr std::string_view Blanks = " \t";
  const auto skip = [&line](std::size_t count) { line.remove_prefix(std::min(count, line.size())); };
  if (line.starts_with("\xEF\xBB\xBF")) skip(3);
  skip(line.find_first_not_of(Blanks));
  if (!line.starts_with('[')) return false;
  skip(line.starts_with("[[") ? 2 : 1);
  skip(line.find_first_not_of(Blanks));
  return line.empty() || !startsName(line.front());
}

/// Reports lines that must not reach the parser. True if there are any.
bool hasForbiddenLines(std::string_view text, const std::string& source, Diagnostics& diagnostics) {
  const std::size_t before = diagnostics.size();
  for (unsigned int number = 1; !text.empty(); ++number) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (std::count(line.begin(), line.end(), '.') > MostDotsInLine)
      diagnostics.add({source, number}, "the line has too many dots",
                      "a key has two parts at most: [[tab.table]]");
    if (isNamelessSection(line))
      diagnostics.add({source, number}, "a section without a name", "write [[tab]] or [[tab.table]]");
  }
  return diagnostics.size() > before;
}

/// Blanks a line, so that the rest can be read. False for one that begins a row or a table: what follows it
/// would end up elsewhere.
bool blankLine(std::string& text, unsigned int line) {
  std::size_t begin = 0;
  for (; line > 1; --line) {
    begin = text.find('\n', begin);
    if (begin == std::string::npos) return false;
    ++begin;
  }
  const std::size_t end = std::min(text.find('\n', begin), text.size());
  const std::size_t first = text.find_first_not_of(" \t", begin);
  if (first >= end || text[first] == '[') return false;
  std::fill(text.begin() + static_cast<std::ptrdiff_t>(begin),
            text.begin() + static_cast<std::ptrdiff_t>(end), ' ');
  return true;
}

std::string describeFailure(const toml::parse_error& failure) {
  std::string_view text = failure.description();
  constexpr std::string_view Prefix = "Error while parsing ";
  if (text.starts_with(Prefix)) text.remove_prefix(Prefix.size());
  return "not readable as TOML: " + std::string(text);
}

/// Reads as much as can be read: an unreadable line is reported and left out.
std::optional<toml::table> parseAsFarAsPossible(std::string& text, Sheet& sheet, Diagnostics& diagnostics) {
  unsigned int lastLine = 0;
  for (unsigned int i = 0; i < MostUnreadableLines; ++i) {
    try {
      return toml::parse(std::string_view(text), std::string_view(sheet.place.source));
    } catch (const toml::parse_error& failure) {
      const unsigned int line = lineOf(failure.source());
      sheet.isDamaged = true;
      diagnostics.add({sheet.place.source, line}, describeFailure(failure),
                      "texts and numbers with a unit stand in quotes, and a key stands once in a row");
      if (line <= lastLine || !blankLine(text, line)) return std::nullopt;
      lastLine = line;
    }
  }
  return std::nullopt;
}

std::optional<std::string> refuse(const std::string& path, Diagnostics& diagnostics, const std::string& what,
                                  const std::string& remedy) {
  diagnostics.add({path, 1}, what, remedy);
  return std::nullopt;
}

/// The file's text, read no further than one byte past the limit.
std::optional<std::string> readText(const std::string& path, Diagnostics& diagnostics) {
  const std::string remedy = "give the path of a design sheet";
  struct stat status {};
  if (stat(path.c_str(), &status) != 0)
    return refuse(path, diagnostics, std::string("cannot be opened: ") + std::strerror(errno), remedy);
  if (S_ISDIR(status.st_mode)) return refuse(path, diagnostics, "is a directory", remedy);
  const std::string tooLarge = "is larger than a design sheet may be";
  const std::string largest = "16 MB is the limit";
  if (S_ISREG(status.st_mode) && static_cast<unsigned long long>(status.st_size) > LargestSheetBytes)
    return refuse(path, diagnostics, tooLarge, largest);
  std::ifstream file(path, std::ios::binary);
  if (!file)
    return refuse(path, diagnostics, std::string("cannot be opened: ") + std::strerror(errno), remedy);
  std::string text;
  char block[1 << 16];
  while (text.size() <= LargestSheetBytes && (file.read(block, sizeof block) || file.gcount() > 0))
    text.append(block, static_cast<std::size_t>(file.gcount()));
  if (file.bad()) return refuse(path, diagnostics, "cannot be read", "check the disk");
  if (text.size() > LargestSheetBytes) return refuse(path, diagnostics, tooLarge, largest);
  if (text.find('\0') != std::string::npos) return refuse(path, diagnostics, "is no text file", remedy);
  return text;
}

}  // namespace

Sheet readSheetText(std::string text, const std::string& source, Diagnostics& diagnostics) {
  Sheet sheet;
  sheet.place = {source, 1};
  if (hasForbiddenLines(text, source, diagnostics)) {
    sheet.isDamaged = true;
    return sheet;
  }
  const auto document = parseAsFarAsPossible(text, sheet, diagnostics);
  if (document) DocumentReader(sheet, diagnostics).read(*document);
  return sheet;
}

std::optional<Sheet> readSheetFile(const std::string& path, Diagnostics& diagnostics) {
  auto text = readText(path, diagnostics);
  if (!text) return std::nullopt;
  return readSheetText(std::move(*text), path, diagnostics);
}

}  // namespace kvx
