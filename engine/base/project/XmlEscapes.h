#pragma once

#include <boost/property_tree/ptree_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace kvxe {

/// An ASCII letter, digit, "_", "-", "." or ":", or a byte of a character beyond ASCII.
bool isXmlNameChar(char c);
/// As above without those that only go on with a name: digits, "-" and ".".
bool isXmlNameStart(char c);

/// A name as files spell it: each character that XML does not allow there as "_xHHHH_", its number in four
/// hexadecimal digits; an underscore that begins what looks like that is escaped, too. "_x_" is the empty
/// name.
std::string escapeXmlName(std::string_view name);
/// The name that escapeXmlName spelled so.
std::string unescapeXmlName(std::string_view spelled);

/// A value as files spell it: control characters that XML does not allow are escaped as in names. Bytes that
/// are no UTF-8 become U+FFFD.
std::string escapeXmlText(const std::string& text);
/// The value that escapeXmlText spelled so.
std::string unescapeXmlText(std::string_view spelled);

/// A copy of a tree with names and values as files spell them; nothing for a tree that can be written as it
/// is.
std::optional<boost::property_tree::ptree> escapeForXml(const boost::property_tree::ptree& tree);
/// Gives a tree that was read its names and values. The tree is not deeper than scanXml allows.
void unescapeTree(boost::property_tree::ptree& tree);

}  // namespace kvxe
