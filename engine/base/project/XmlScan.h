#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvxe {

/// Deepest nesting of elements: far beyond any file of the system, and far from the stack that the recursive
/// reading and writing of trees takes.
inline constexpr std::size_t maxXmlDepth = 256;
/// Most nodes of a tree: elements, their lists of attributes, and attributes. A full book has some 230,000; a
/// node takes about 300 bytes.
inline constexpr std::size_t maxXmlNodes = 800'000;
/// Longest text that is read, in bytes. A full book has some 5 MB.
inline constexpr std::size_t maxXmlTextSize = std::size_t{64} << 20;

/// Is told the elements of a text in their order; positions are offsets into it.
class XmlListener {
 public:
  virtual ~XmlListener() = default;
  /// An element whose tag begins at `begin`; the name is as the text spells it (XmlEscapes.h).
  virtual void startElement(std::string_view spelled, std::size_t begin) = 0;
  /// The innermost open element, with its end tag, ends before `end`.
  virtual void endElement(std::size_t end) = 0;
};

/// Goes through an XML text once, without recursion, before a tree is built of it: the parser of the property
/// tree descends as deep as the text says and takes much that is not XML.
/// Refuses texts beyond the limits, `maxNodes` among them, empty ones, control characters, elements that are
/// not closed or closed by another name, a second root, text outside the root, an attribute that is given
/// twice, and document types that declare anything. A declaration alone is an empty tree.
/// @throws boost::property_tree::xml_parser_error with the name of the file, the line and what is wrong.
void scanXml(std::string_view text, const std::string& fileName, std::size_t maxNodes = maxXmlNodes,
             XmlListener* listener = nullptr);

}  // namespace kvxe
