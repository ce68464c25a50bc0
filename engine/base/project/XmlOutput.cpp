#include "engine/base/project/XmlOutput.h"

#include <ostream>

#include "engine/base/project/XmlEscapes.h"

namespace kvxe {

namespace {

constexpr std::size_t Indent = 3;
constexpr std::size_t BlockSize = 1 << 16;

}  // namespace

XmlOutput::XmlOutput(std::ostream& stream)
    : m_stream(stream), m_text("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n") {
  send();
}

void XmlOutput::send() {
  m_stream.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
  m_text.clear();
}

void XmlOutput::open(std::string_view name) {
  m_open.push_back(escapeXmlName(name));
}

void XmlOutput::close() {
  const std::string name = std::move(m_open.back());
  m_open.pop_back();
  if (m_begun <= m_open.size()) return;
  m_begun = m_open.size();
  m_text.append(Indent * m_begun, ' ').append("</").append(name).append(">\n");
  send();
}

void XmlOutput::add(std::string_view name, Attributes attributes) {
  for (; m_begun < m_open.size(); ++m_begun)
    m_text.append(Indent * m_begun, ' ').append("<").append(m_open[m_begun]).append(">\n");
  m_text.append(Indent * m_begun, ' ').append("<").append(escapeXmlName(name));
  for (const auto& [key, value] : attributes) {
    m_text.append(" ").append(escapeXmlName(key)).append("=\"");
    appendValue(escapeXmlText(value));
    m_text += '"';
  }
  m_text += "/>\n";
  if (m_text.size() >= BlockSize) send();
}

/// Blanks that a reader of XML may take for one another are spelled as numbers, too.
void XmlOutput::appendValue(const std::string& value) {
  for (const char c : value) {
    switch (c) {
      case '<':
        m_text += "&lt;";
        break;
      case '>':
        m_text += "&gt;";
        break;
      case '&':
        m_text += "&amp;";
        break;
      case '"':
        m_text += "&quot;";
        break;
      case '\t':
        m_text += "&#9;";
        break;
      case '\n':
        m_text += "&#10;";
        break;
      case '\r':
        m_text += "&#13;";
        break;
      default:
        m_text += c;
    }
  }
}

}  // namespace kvxe
