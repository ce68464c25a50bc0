#include "clients/cli/SheetWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "clients/cli/Spelling.h"
#include "platform/wyr_common/NLocale.h"
#include "platform/wyr_common/TemporaryFile.h"

namespace kvx {

namespace {

// A reader refuses lines with more; dots in a text can be written otherwise.
constexpr std::ptrdiff_t MostPlainDots = 40;

bool isUtf8(const std::string& text) {
  return NLocale::convert(NLocale::convert(text)) == text;
}

std::string escaped(unsigned char c) {
  constexpr const char* Digits = "0123456789ABCDEF";
  return std::string("\\u00") + Digits[c >> 4] + Digits[c & 0xF];
}

std::string inTomlQuotes(const std::string& text) {
  if (!isUtf8(text)) throw std::runtime_error("a text that is no UTF-8: " + inQuotes(text));
  const bool hasManyDots = std::count(text.begin(), text.end(), '.') > MostPlainDots;
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\')
      quoted += {'\\', c};
    else if (byte < 0x20 || byte == 0x7F || (c == '.' && hasManyDots))
      quoted += escaped(byte);
    else
      quoted += c;
  }
  return quoted + "\"";
}

bool isBareKey(const std::string& key) {
  return !key.empty() && std::ranges::all_of(key, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
  });
}

std::string writeKey(const std::string& key) {
  return isBareKey(key) ? key : inTomlQuotes(key);
}

template <class T>
std::string digitsOf(T number) {
  char text[40];
  return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

/// The shortest text that a reader, who takes it for a double first, rounds to the same float.
std::string writeNumber(double number) {
  const auto asFloat = static_cast<float>(number);
  std::string text = digitsOf(asFloat);
  double read = 0;
  std::from_chars(text.data(), text.data() + text.size(), read);
  if (static_cast<double>(asFloat) != number || static_cast<float>(read) != asFloat) text = digitsOf(number);
  const bool isWhole = text.find_first_not_of("-0123456789") == std::string::npos;
  constexpr std::size_t LongestWhole = 15;  // longer ones might not be integers to a reader
  if (isWhole && (text == "-0" || text.size() > LongestWhole)) text += ".0";
  return text;
}

std::string writeValue(const SheetValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return inTomlQuotes(*text);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return digitsOf(*number);
  if (const auto* number = std::get_if<double>(&value)) return writeNumber(*number);
  return std::get<bool>(value) ? "true" : "false";
}

std::string writeLine(const Assignment& assignment) {
  std::string value = writeValue(assignment.value);
  if (assignment.source)
    value = "{ value = " + value + ", source = \"" + KVXEEnums::nameOf(*assignment.source) + "\" }";
  return writeKey(assignment.key) + " = " + value + "\n";
}

std::string writeRow(const SheetRow& row) {
  const std::string path = writeKey(row.tab) + (row.table.empty() ? "" : "." + writeKey(row.table));
  std::string text = "\n[[" + path + "]]\n";
  if (row.number) text += writeLine(*row.number);
  for (const Assignment& cell : row.cells) text += writeLine(cell);
  return text;
}

std::string writeIp(const IpConfiguration& configuration) {
  std::string text = "\n[ip_configuration." + writeKey(configuration.uid) + "]\n";
  for (const auto& [name, value] : configuration.properties)
    text += writeKey(name) + " = " + inTomlQuotes(value) + "\n";
  return text;
}

}  // namespace

std::string writeSheetText(const Sheet& sheet) {
  std::string text;
  for (const auto& setting : {sheet.name, sheet.part, sheet.process})
    if (setting) text += writeLine(*setting);
  if (!sheet.environment.empty()) text += "\n[environment]\n";
  for (const Assignment& setting : sheet.environment) text += writeLine(setting);
  for (const SheetRow& row : sheet.rows) text += writeRow(row);
  for (const IpConfiguration& configuration : sheet.ipConfigurations) text += writeIp(configuration);
  return text;
}

void replaceFile(const std::string& path, const std::string& text) {
  TemporaryFile::sweep(path);
  TemporaryFile temporary(path);
  std::ofstream file(temporary.path(), std::ios::binary);
  file << text;
  file.close();
  if (!file) throw std::runtime_error(path + ": cannot be written; is the disk full?");
  temporary.flush();
  temporary.replaceTarget();
}

}  // namespace kvx
