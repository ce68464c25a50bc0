#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvxe {

/// Writes an XML text element by element, so that no tree of it has to be in memory: a node of a property
/// tree takes some 400 bytes, and a full book has 230,000. Names and values are escaped as for trees.
class XmlOutput {
 public:
  using Attributes = std::span<const std::pair<std::string, std::string>>;

  /// Writes the declaration. Whether all went well, the stream knows.
  explicit XmlOutput(std::ostream& stream);
  XmlOutput(const XmlOutput&) = delete;
  XmlOutput& operator=(const XmlOutput&) = delete;

  /// Begins an element, which comes to be with the first one inside it: it leaves nothing if it stays empty.
  void open(std::string_view name);
  /// Ends the innermost open element.
  void close();
  /// An element with attributes only.
  void add(std::string_view name, Attributes attributes);

 private:
  void appendValue(const std::string& value);
  void send();

  std::ostream& m_stream;
  std::vector<std::string> m_open;  // names as written
  std::size_t m_begun = 0;          // how many of them are written
  std::string m_text;               // on its way
};

}  // namespace kvxe
