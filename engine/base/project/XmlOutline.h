#pragma once

#include <boost/property_tree/ptree.hpp>
#include <map>
#include <string>
#include <string_view>

class KVXEXmlReadWrite;

namespace kvxe {

/// An XML text by its upper elements, of which one at a time is made a tree: the tree of all of a full book
/// would take several times the memory of the book.
class XmlOutline {
 public:
  /// Elements down to this depth, the root being 1, are in the outline; those of the last depth once for all
  /// siblings of a name.
  static constexpr std::size_t Depth = 5;
  /// Most elements of an outline; that of a full book has some 1,000.
  static constexpr std::size_t MaxElements = 50'000;
  /// Longest path of one, in bytes.
  static constexpr std::size_t MaxPathLength = 1'000;
  /// Most nodes of the text, as scanXml counts them. A book of the most cells that are saved has 3.2 million,
  /// if each is a row of its own.
  static constexpr std::size_t MaxNodes = 4'000'000;

  /// @throws what scanXml throws of a text that is no XML, or is beyond the limits. An empty text is an empty
  /// outline.
  XmlOutline(std::string text, std::string fileName);

  /// The elements without their attributes and texts.
  const boost::property_tree::ptree& tree() const { return m_tree; }
  /// How many elements of the last depth stand at the path.
  std::size_t count(const std::string& path) const;
  /// A tree that holds, at its place, the first element at that path and all in it; an empty one if there is
  /// none. The path must be shorter than `Depth`.
  KVXEXmlReadWrite read(const std::string& path) const;

 private:
  class Builder;
  struct Range {
    std::size_t begin = 0, end = 0;
  };

  std::string m_text;
  std::string m_fileName;
  boost::property_tree::ptree m_tree;
  std::map<std::string, Range> m_ranges;        // of the text, by path
  std::map<std::string, std::size_t> m_counts;  // of elements of the last depth, by path
};

}  // namespace kvxe
