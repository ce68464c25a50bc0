#include "engine/base/project/XmlScan.h"

#include <algorithm>
#include <boost/property_tree/detail/xml_parser_error.hpp>
#include <charconv>
#include <vector>

#include "engine/base/project/XmlEscapes.h"

namespace kvxe {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\n";

bool isBlank(char c) {
  return Blanks.find(c) != std::string_view::npos;
}

/// What XML cannot hold, as itself or as a reference to its number.
bool isControl(unsigned code) {
  return code < 0x20 && code != '\t' && code != '\n' && code != '\r';
}

/// A name or piece of text for a message, cut to a length that can be read.
std::string quoted(std::string_view text) {
  constexpr std::size_t longest = 60;
  return "'" + std::string(text.substr(0, longest)) + (text.size() > longest ? "..." : "") + "'";
}

class Scanner {
 public:
  Scanner(std::string_view text, const std::string& fileName, std::size_t maxNodes, XmlListener* listener)
      : m_text(text), m_fileName(fileName), m_maxNodes(maxNodes), m_listener(listener) {}

  void scan() {
    checkCharacters();
    if (m_text.starts_with(ByteOrderMark)) m_at = ByteOrderMark.size();
    while (skipToMarkup()) scanMarkup();
    if (!m_open.empty())
      fail("element " + quoted(m_open.back()) + " is not closed", positionOf(m_open.back()));
    if (!m_hasRoot && !m_hasDeclaration) fail("the text holds no element");
  }

 private:
  [[noreturn]] void fail(const std::string& what, std::size_t at) const {
    const auto line = 1 + std::ranges::count(m_text.substr(0, at), '\n');
    throw boost::property_tree::xml_parser::xml_parser_error(what, m_fileName,
                                                             static_cast<unsigned long>(line));
  }
  [[noreturn]] void fail(const std::string& what) const { fail(what, m_at); }

  std::size_t positionOf(std::string_view part) const {
    return static_cast<std::size_t>(part.data() - m_text.data());
  }

  void checkCharacters() const {
    if (m_text.size() > maxXmlTextSize)
      fail("the text is longer than " + std::to_string(maxXmlTextSize) + " bytes", 0);
    const auto control =
        std::ranges::find_if(m_text, [](char c) { return isControl(static_cast<unsigned char>(c)); });
    if (control != m_text.end())
      fail("control character " + std::to_string(static_cast<int>(*control)),
           static_cast<std::size_t>(control - m_text.begin()));
  }

  char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }

  bool take(std::string_view expected) {
    if (!m_text.substr(m_at).starts_with(expected)) return false;
    m_at += expected.size();
    return true;
  }

  void expect(char c, const char* where) {
    if (peek() != c) fail("expected '" + std::string(1, c) + "' " + where);
    ++m_at;
  }

  void skipBlanks() {
    while (isBlank(peek())) ++m_at;
  }

  /// To the next "<", over what may stand before it; false at the end.
  bool skipToMarkup() {
    const std::size_t next = std::min(m_text.find('<', m_at), m_text.size());
    const std::string_view between = m_text.substr(m_at, next - m_at);
    if (m_open.empty()) {
      skipBlanks();
      if (m_at != next) fail("text outside the root element");
    } else {
      checkReferences(between);
    }
    m_at = next;
    return next < m_text.size();
  }

  /// The parser of the tree puts in whatever character a number stands for.
  void checkReferences(std::string_view text) const {
    for (auto at = text.find("&#"); at != std::string_view::npos; at = text.find("&#", at + 2)) {
      const bool isHex = text.substr(at + 2).starts_with('x');
      const char* begin = text.data() + at + (isHex ? 3 : 2);
      unsigned code = 0;
      const auto [end, error] = std::from_chars(begin, text.data() + text.size(), code, isHex ? 16 : 10);
      const bool isClosed = end != text.data() + text.size() && *end == ';';
      if (error != std::errc() || !isClosed || isControl(code) || code > 0x10FFFF)
        fail("reference to no character", positionOf(text.substr(at)));
    }
  }

  void scanMarkup() {
    // Each piece of markup takes memory while the tree is built, whether it makes a node or not.
    countNode();
    if (take("</")) return scanEndTag();
    if (take("<?")) return scanInstruction();
    if (take("<!--")) return skipPast("-->", "comment");
    if (take("<![CDATA[")) return scanCharacterData();
    if (take("<!DOCTYPE")) return scanDocumentType();
    if (take("<!")) fail("unknown declaration");
    scanElement();
  }

  void countNode() {
    if (++m_nodes > m_maxNodes) fail("more than " + std::to_string(m_maxNodes) + " elements and attributes");
  }

  void skipPast(std::string_view end, const char* what) {
    const std::size_t found = m_text.find(end, m_at);
    if (found == std::string_view::npos) fail(std::string(what) + " without end");
    m_at = found + end.size();
  }

  void scanInstruction() {
    m_hasDeclaration |= m_text.substr(m_at).starts_with("xml");
    skipPast("?>", "processing instruction");
  }

  void scanCharacterData() {
    if (m_open.empty()) fail("text outside the root element");
    skipPast("]]>", "character data");
  }

  void scanDocumentType() {
    if (m_hasRoot) fail("document type after the start of the root element");
    const std::size_t begin = m_at;
    skipPast(">", "document type");
    if (m_text.substr(begin, m_at - begin).find('[') != std::string_view::npos)
      fail("document types with declarations are not read", begin);
  }

  std::string_view scanName(const char* what) {
    const std::size_t begin = m_at;
    if (isXmlNameStart(peek()))
      while (isXmlNameChar(peek())) ++m_at;
    if (m_at == begin) fail(std::string("expected the name of an ") + what);
    return m_text.substr(begin, m_at - begin);
  }

  void scanElement() {
    if (m_hasRoot && m_open.empty()) fail("a second root element");
    m_hasRoot = true;
    if (m_open.size() == maxXmlDepth) fail("elements are nested deeper than " + std::to_string(maxXmlDepth));
    const std::size_t begin = m_at++;
    const std::string_view name = scanName("element");
    if (m_listener) m_listener->startElement(name, begin);
    m_attributes.clear();
    for (skipBlanks(); isXmlNameStart(peek()); skipBlanks()) scanAttribute();
    if (!m_attributes.empty()) checkAttributes();
    const bool isEmpty = take("/");
    expect('>', "at the end of a tag");
    if (!isEmpty)
      m_open.push_back(name);
    else if (m_listener)
      m_listener->endElement(m_at);
  }

  void scanAttribute() {
    countNode();
    m_attributes.push_back(scanName("attribute"));
    skipBlanks();
    expect('=', "after the name of an attribute");
    skipBlanks();
    const char quote = peek();
    if (quote != '"' && quote != '\'') fail("expected a quoted value of an attribute");
    const std::size_t begin = ++m_at;
    skipPast(std::string_view(&quote, 1), "value of an attribute");
    checkReferences(m_text.substr(begin, m_at - begin - 1));
  }

  void checkAttributes() {
    countNode();  // their list
    std::ranges::sort(m_attributes);
    const auto twice = std::ranges::adjacent_find(m_attributes);
    if (twice != m_attributes.end())
      fail("attribute " + quoted(*twice) + " is given twice", positionOf(*twice));
  }

  void scanEndTag() {
    const std::string_view name = scanName("element");
    if (m_open.empty()) fail("end of " + quoted(name) + ", which is not open");
    if (name != m_open.back()) fail("end of " + quoted(name) + " inside " + quoted(m_open.back()));
    m_open.pop_back();
    skipBlanks();
    expect('>', "at the end of a tag");
    if (m_listener) m_listener->endElement(m_at);
  }

  std::string_view m_text;
  const std::string& m_fileName;
  const std::size_t m_maxNodes;
  XmlListener* m_listener;  // may be null
  std::size_t m_at = 0;
  std::size_t m_nodes = 0;
  std::vector<std::string_view> m_open;        // names of the elements around the present place
  std::vector<std::string_view> m_attributes;  // names of those of the present element
  bool m_hasRoot = false;
  bool m_hasDeclaration = false;
};

}  // namespace

void scanXml(std::string_view text, const std::string& fileName, std::size_t maxNodes,
             XmlListener* listener) {
  Scanner(text, fileName, maxNodes, listener).scan();
}

}  // namespace kvxe
