#include "engine/base/project/XmlOutline.h"

#include <algorithm>
#include <boost/property_tree/detail/xml_parser_error.hpp>

#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlEscapes.h"
#include "engine/base/project/XmlScan.h"

namespace kvxe {

using boost::property_tree::ptree;

class XmlOutline::Builder : public XmlListener {
 public:
  explicit Builder(XmlOutline& outline) : m_outline(outline), m_open{&outline.m_tree} {}

  void startElement(std::string_view spelled, std::size_t begin) override {
    if (++m_depth > Depth) return;
    const std::string name = unescapeXmlName(spelled);
    m_path.resize(m_lengths.empty() ? 0 : m_lengths.back());
    if (!m_path.empty()) m_path += '.';
    m_path += name;
    if (m_path.size() > MaxPathLength)
      refuse("names of elements longer than " + std::to_string(MaxPathLength) + " bytes together", begin);
    m_lengths.push_back(m_path.size());
    ptree& parent = *m_open.back();
    const bool isNew = m_depth < Depth || m_outline.m_counts[m_path]++ == 0;
    if (isNew && ++m_elements > MaxElements)
      refuse("more than " + std::to_string(MaxElements) + " elements above the rows", begin);
    if (m_depth == Depth) {
      if (isNew) parent.push_back({name, ptree()});
    } else {
      m_open.push_back(&parent.push_back({name, ptree()})->second);
      m_ranges.push_back({m_path, m_outline.m_ranges.try_emplace(m_path, Range{begin, begin}).second});
    }
  }

  void endElement(std::size_t end) override {
    if (m_depth-- > Depth) return;
    m_lengths.pop_back();
    if (m_depth + 1 == Depth) return;
    m_open.pop_back();
    if (const auto& [path, isFirst] = m_ranges.back(); isFirst) m_outline.m_ranges[path].end = end;
    m_ranges.pop_back();
  }

 private:
  [[noreturn]] void refuse(const std::string& what, std::size_t at) const {
    const auto line = 1 + std::count(m_outline.m_text.begin(),
                                     m_outline.m_text.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    throw boost::property_tree::xml_parser::xml_parser_error(what, m_outline.m_fileName,
                                                             static_cast<unsigned long>(line));
  }

  XmlOutline& m_outline;
  std::vector<ptree*> m_open;
  std::vector<std::pair<std::string, bool>>
      m_ranges;                        // of the open elements: path, and whether it is the first
  std::vector<std::size_t> m_lengths;  // of the path of each open element
  std::string m_path;
  std::size_t m_depth = 0;
  std::size_t m_elements = 0;  // in the outline
};

XmlOutline::XmlOutline(std::string text, std::string fileName)
    : m_text(std::move(text)), m_fileName(std::move(fileName)) {
  if (m_text.empty()) return;
  Builder builder(*this);
  scanXml(m_text, m_fileName, MaxNodes, &builder);
}

std::size_t XmlOutline::count(const std::string& path) const {
  const auto found = m_counts.find(path);
  return found == m_counts.end() ? 0 : found->second;
}

KVXEXmlReadWrite XmlOutline::read(const std::string& path) const {
  const auto found = m_ranges.find(path);
  if (found == m_ranges.end()) return KVXEXmlReadWrite(ptree());
  const auto [begin, end] = found->second;
  ptree element = KVXEXmlReadWrite::parseText(m_text.substr(begin, end - begin), m_fileName);
  const std::size_t parent = path.rfind('.');
  if (parent == std::string::npos) return KVXEXmlReadWrite(std::move(element));
  ptree tree;
  tree.put_child(path.substr(0, parent), ptree()).swap(element);
  return KVXEXmlReadWrite(std::move(tree));
}

}  // namespace kvxe
