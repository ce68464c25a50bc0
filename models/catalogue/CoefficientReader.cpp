#include "models/catalogue/CoefficientReader.h"

#include <toml++/toml.h>
#include <algorithm>
#include <cmath>

#include "models/catalogue/CsvTable.h"

namespace kvxm {
namespace {

constexpr float doubtFactor = 10;  // how far outside its band a value may lie without a warning

int lineOf(const toml::node& node) {
  return static_cast<int>(node.source().begin.line);
}

const std::vector<std::string_view>& coefficientKeys() {
  static const std::vector<std::string_view> keys = [] {
    std::vector<std::string_view> all;
    for (std::size_t i = 0; i < coefficientCount; ++i) all.push_back(coefficientInfos()[i].key);
    return all;
  }();
  return keys;
}

constexpr std::string_view expectedLines =
    "expected lines \"key = number\" and sections [family.\"NAME\"] or [device.NAME]";

/// The first line with a section header that has no name, or 0. The parser does not report these but takes
/// them for a fault of its own.
int lineOfNamelessSection(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    if (!line.starts_with('[')) continue;
    line.remove_prefix(line.starts_with("[[") ? 2 : 1);
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const char first = line.empty() ? ' ' : line.front();
    const bool startsName = (first >= '0' && first <= '9') || (first >= 'A' && first <= 'Z') ||
                            (first >= 'a' && first <= 'z') || first == '_' || first == '-';
    if (!startsName && first != '"' && first != '\'' && first != ']') return number;
  }
  return 0;
}

/// The first line with more dots than a key of these files could have, or 0. The parser's tables nest as deep
/// as a dotted key and are destroyed by recursion, so a key of a hundred thousand dots would end the process.
int lineOfEndlessKey(std::string_view text) {
  constexpr std::ptrdiff_t mostDots = 200;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '.') > mostDots)
      return number;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return 0;
}

/// One file on its way into the sets.
class Reader {
 public:
  Reader(const DataFile& file, const SectionNames& names, CoefficientSets& sets, Problems& problems)
      : m_file(file), m_names(names), m_sets(sets), m_problems(problems) {}

  void readTop(const toml::table& top) {
    for (const auto& [key, node] : top) {
      if (key == "family") {
        readSections(node, "family", m_names.families, m_sets.families);
      } else if (key == "device") {
        readSections(node, "device", m_names.devices, m_sets.devices);
      } else {
        readValue(key.str(), node, m_sets.all);
      }
    }
  }

 private:
  void readSections(const toml::node& node, std::string_view kind, const std::vector<std::string_view>& known,
                    std::map<std::string, CoefficientSets::Values, std::less<>>& sections) {
    const toml::table* table = node.as_table();
    if (!table) {
      return m_problems.error(m_file, lineOf(node), kind, "not a section",
                              "expected [" + std::string(kind) + ".NAME]");
    }
    for (const auto& [name, section] : *table) {
      const std::string label = std::string(kind) + "." + std::string(name.str());
      if (std::find(known.begin(), known.end(), name.str()) == known.end()) {
        m_problems.error(m_file, lineOf(section), label, "unknown " + std::string(kind),
                         expectedOneOf(name.str(), known));
      } else if (const toml::table* values = section.as_table()) {
        for (const auto& [key, value] : *values)
          readValue(key.str(), value, sections[std::string(name.str())]);
      } else {
        m_problems.error(m_file, lineOf(section), label, "not a section", "expected [" + label + "]");
      }
    }
  }

  void readValue(std::string_view key, const toml::node& node, CoefficientSets::Values& values) {
    const auto& keys = coefficientKeys();
    const auto found = std::find(keys.begin(), keys.end(), key);
    if (found == keys.end()) {
      return m_problems.error(m_file, lineOf(node), key, "unknown key", expectedOneOf(key, keys));
    }
    const auto index = static_cast<std::size_t>(found - keys.begin());
    const CoefficientInfo& info = coefficientInfos()[index];
    const std::string unit = info.unit.empty() ? std::string() : " " + std::string(info.unit);
    const std::string expected = "expected a number, believable from " + numberText(info.bandMin) + " to " +
                                 numberText(info.bandMax) + unit;
    if (!node.is_number()) return m_problems.error(m_file, lineOf(node), key, "not a number", expected);
    const double read = node.value_or(0.0);
    const auto value = static_cast<float>(std::clamp(read, -1e38, 1e38));
    if (!std::isfinite(read) || std::abs(read) >= 1e38) {
      return m_problems.error(m_file, lineOf(node), key, "not a finite number", expected);
    }
    values[index] = value;
    if (value < info.bandMin / doubtFactor || value > info.bandMax * doubtFactor) {
      m_problems.warning(m_file, lineOf(node), key,
                         numberText(value) + " is more than ten times outside its band", expected);
    }
  }

  const DataFile& m_file;
  const SectionNames& m_names;
  CoefficientSets& m_sets;
  Problems& m_problems;
};

void apply(const std::map<std::string, CoefficientSets::Values, std::less<>>& sections, std::string_view name,
           Characterisation& set) {
  const auto section = sections.find(name);
  if (section == sections.end()) return;
  for (const auto& [index, value] : section->second) set.set(static_cast<Coefficient>(index), value);
}

}  // namespace

Characterisation CoefficientSets::setFor(std::string_view family, std::string_view device) const {
  Characterisation set;
  for (const auto& [index, value] : all) set.set(static_cast<Coefficient>(index), value);
  apply(families, family, set);
  apply(devices, device, set);
  return set;
}

void readCoefficients(const DataFile& file, const SectionNames& names, CoefficientSets& sets,
                      Problems& problems) {
  if (const int line = lineOfNamelessSection(file.text)) {
    return problems.error(file, line, {}, "section without a name", expectedLines);
  }
  if (const int line = lineOfEndlessKey(file.text)) {
    return problems.error(file, line, {}, "the line has too many dots", expectedLines);
  }
  try {
    Reader(file, names, sets, problems).readTop(toml::parse(file.text, file.path));
  } catch (const toml::parse_error& failure) {
    problems.error(file, static_cast<int>(failure.source().begin.line), {}, failure.description(),
                   expectedLines);
  }
}

void checkComplete(const DataFile& file, const CoefficientSets& sets, Problems& problems) {
  for (std::size_t i = 0; i < coefficientCount; ++i) {
    if (sets.all.contains(i)) continue;
    problems.error(file, 0, coefficientInfos()[i].key, "missing key", "expected a value for all devices");
  }
}

}  // namespace kvxm
