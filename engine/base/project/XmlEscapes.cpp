#include "engine/base/project/XmlEscapes.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>
#include <charconv>

#include "models/common/KVXMHelperUtils.h"
#include "platform/wyr_common/NLocale.h"

namespace kvxe {

namespace {

using boost::property_tree::ptree;

constexpr std::string_view EmptyName = "_x_";
constexpr std::size_t EscapeLength = 7;  // "_xHHHH_"

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The number that four hexadecimal digits after "_x" give.
std::optional<unsigned> escapedNumber(std::string_view text) {
  if (!text.starts_with("_x") || text.size() < EscapeLength - 1) return std::nullopt;
  unsigned number = 0;
  const char* end = text.data() + EscapeLength - 1;
  const auto [at, error] = std::from_chars(text.data() + 2, end, number, 16);
  return error == std::errc() && at == end ? std::optional(number) : std::nullopt;
}

bool needsEscape(std::string_view name, std::size_t at) {
  if (at == 0 ? !isXmlNameStart(name[at]) : !isXmlNameChar(name[at])) return true;
  return name[at] == '_' && (name == EmptyName || escapedNumber(name.substr(at)));
}

void appendEscape(std::string& spelled, char c) {
  constexpr char digits[] = "0123456789ABCDEF";
  const auto number = static_cast<unsigned char>(c);
  spelled.append("_x00").append({digits[number / 16], digits[number % 16], '_'});
}

bool isPlainName(std::string_view name) {
  for (std::size_t at = 0; at < name.size(); ++at)
    if (needsEscape(name, at)) return false;
  return !name.empty();
}

/// What the children of a node are. Under names of its own the tree keeps things other than elements.
enum class Children { Elements, Attributes };

Children childrenOf(const std::string& key, Children siblings) {
  return siblings == Children::Elements && key == "<xmlattr>" ? Children::Attributes : Children::Elements;
}

bool isName(const std::string& key, Children siblings) {
  return siblings == Children::Attributes ||
         (key != "<xmlattr>" && key != "<xmlcomment>" && key != "<xmltext>");
}

/// XML allows these blanks and no other control characters.
bool isControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

bool isPlainText(const std::string& text) {
  if (!KVXMHelperUtils::isText(text)) return false;
  for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1))
    if (escapedNumber(std::string_view(text).substr(at))) return false;
  return true;
}

bool isPlain(const ptree& tree, Children children) {
  if (!isPlainText(tree.data())) return false;
  return std::ranges::all_of(tree, [&](const ptree::value_type& child) {
    return (!isName(child.first, children) || isPlainName(child.first)) &&
           isPlain(child.second, childrenOf(child.first, children));
  });
}

ptree escaped(const ptree& tree, Children children) {
  ptree copy(escapeXmlText(tree.data()));
  for (const auto& [key, child] : tree)
    copy.push_back({isName(key, children) ? escapeXmlName(key) : key, ptree()})->second =
        escaped(child, childrenOf(key, children));
  return copy;
}

void unescape(ptree& tree, Children children) {
  if (tree.data().find("_x") != std::string::npos) tree.data() = unescapeXmlText(tree.data());
  for (auto child = tree.begin(); child != tree.end(); ++child) {
    unescape(child->second, childrenOf(child->first, children));
    if (!isName(child->first, children)) continue;
    const std::string name = unescapeXmlName(child->first);
    if (name == child->first) continue;
    const auto renamed = tree.insert(child, {name, ptree()});
    renamed->second.swap(child->second);
    tree.erase(child);
    child = renamed;
  }
}

}  // namespace

bool isXmlNameStart(char c) {
  return isLetter(c) || c == '_' || c == ':' || static_cast<unsigned char>(c) >= 0x80;
}

bool isXmlNameChar(char c) {
  return isXmlNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

std::string escapeXmlName(std::string_view name) {
  if (name.empty()) return std::string(EmptyName);
  std::string spelled;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (needsEscape(name, at))
      appendEscape(spelled, name[at]);
    else
      spelled += name[at];
  }
  return spelled;
}

std::string unescapeXmlName(std::string_view spelled) {
  return spelled == EmptyName ? std::string() : unescapeXmlText(spelled);
}

std::string unescapeXmlText(std::string_view spelled) {
  std::string name;
  for (std::size_t at = 0; at < spelled.size();) {
    const std::optional<unsigned> number = escapedNumber(spelled.substr(at));
    const std::size_t last = at + EscapeLength - 1;
    const bool isEscape = number && *number < 0x80 && last < spelled.size() && spelled[last] == '_';
    name += isEscape ? static_cast<char>(*number) : spelled[at];
    at += isEscape ? EscapeLength : 1;
  }
  return name;
}

std::string escapeXmlText(const std::string& text) {
  if (isPlainText(text)) return text;
  const std::string valid = NLocale::convert(NLocale::convert(text));
  std::string spelled;
  for (std::size_t at = 0; at < valid.size(); ++at) {
    if (isControl(valid[at]) || escapedNumber(std::string_view(valid).substr(at)))
      appendEscape(spelled, valid[at]);
    else
      spelled += valid[at];
  }
  return spelled;
}

std::optional<ptree> escapeForXml(const ptree& tree) {
  if (isPlain(tree, Children::Elements)) return std::nullopt;
  return escaped(tree, Children::Elements);
}

void unescapeTree(ptree& tree) {
  unescape(tree, Children::Elements);
}

}  // namespace kvxe
