#include <boost/property_tree/xml_parser.hpp>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlEscapes.h"
#include "engine/base/project/XmlOutline.h"
#include "engine/base/project/XmlOutput.h"
#include "engine/base/project/XmlScan.h"
#include "platform/tqm_iostreams/filters.h"
#include "platform/tqm_iostreams/xp.h"
#include "platform/wyr_common/NException.h"

// KVXEXmlReadWrite between its tree and files.

namespace {

namespace fs = std::filesystem;
namespace xml = boost::property_tree::xml_parser;
using Tree = KVXEXmlReadWrite::Tree;

constexpr const char* XmlExtension = ".xml";
constexpr const char* LvrExtension = ".lvr";

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
  throw NException(path + ": " + reason);
}

/// Why the system call that was made last failed.
std::string lastError(const char* otherwise) {
  return errno ? std::generic_category().message(errno) : otherwise;
}

/// Whether there is a file to read that may be of the format, by its name and what it is.
bool isCandidate(const std::string& path, bool xpFormat) {
  if (path.empty() || path.find('\0') != std::string::npos || !fs::is_regular_file(path)) return false;
  if (xpFormat && !tqm::iostreams::xp::is_xp_format(path)) return false;
  const fs::path extension = fs::path(path).extension();
  return extension == XmlExtension || (extension == LvrExtension && !xpFormat);
}

/// All that a stream holds, up to a little more than may be parsed.
std::string readAll(std::istream& in, const std::string& path) {
  std::string text;
  char buffer[1 << 16];
  while (text.size() <= kvxe::maxXmlTextSize && in.read(buffer, sizeof buffer).gcount() > 0)
    text.append(buffer, static_cast<std::size_t>(in.gcount()));
  if (in.bad()) fail(path, lastError("read error"));
  return text;
}

std::string readFile(const std::string& path, bool xpFormat) {
  errno = 0;
  if (xpFormat) {
    tqm::iostreams::filtering_stream<tqm::iostreams::input> in;
    tqm::iostreams::xp_version18{std::ios::binary}(in, path);
    return readAll(in, path);
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) fail(path, lastError("cannot open file"));
  return readAll(in, path);
}

/// The nodes below an element at that depth; refuses depths that scanXml would.
std::size_t countNodes(const Tree& element, const std::string& path, std::size_t depth) {
  if (depth > kvxe::maxXmlDepth)
    fail(path, "elements are nested deeper than " + std::to_string(kvxe::maxXmlDepth));
  std::size_t count = 0;
  for (const auto& [name, child] : element)
    count += 1 + (name == "<xmlattr>" ? child.size() : countNodes(child, path, depth + 1));
  return count;
}

/// What is saved must open again.
void checkReadable(const Tree& tree, const std::string& path) {
  if (countNodes(tree, path, 0) > kvxe::maxXmlNodes)
    fail(path, "more than " + std::to_string(kvxe::maxXmlNodes) + " elements and attributes");
  const auto roots = tree.size() - tree.count("<xmlcomment>") - tree.count("<xmlattr>");
  if (roots > 1 || !tree.data().empty()) fail(path, "XML has one root element and no text outside it");
}

void writeTree(std::ostream& out, const Tree& tree, const std::string& path) {
  try {
    xml::write_xml_internal(out, tree, path, xml::xml_writer_make_settings<std::string>(' ', 3, "utf-8"));
  } catch (const xml::xml_parser_error&) {
    fail(path, lastError("write error"));
  }
}

using Write = std::function<void(std::ostream&)>;

void writePlain(const std::string& path, const Write& write) {
  errno = 0;
  std::ofstream out(path, std::ios::binary);
  if (!out) fail(path, lastError("cannot open file"));
  write(out);
  // A full disk may show only when the last of the buffer goes out.
  out.close();
  if (!out) fail(path, lastError("write error"));
}

void writeWrapped(const std::string& path, const Write& write) {
  tqm::iostreams::filtering_stream<tqm::iostreams::output> out;
  tqm::iostreams::xp_latest{std::ios::binary}(out, path);
  write(out);
  out.close();
}

/// Calls `read`, and has its errors on standard error, too.
template <class Read>
auto loudly(Read read) {
  try {
    return read();
  } catch (const std::exception& error) {
    std::cerr << "ERROR: Invalid XML: " << error.what() << std::endl;
    throw;
  }
}

}  // namespace

Tree KVXEXmlReadWrite::parseText(std::string text, const std::string& fileName) {
  kvxe::scanXml(text, fileName);
  // Most files have no escapes, and to look for one costs less than to go through the tree.
  const bool mayHaveEscapes = text.find("_x") != std::string::npos;
  std::istringstream in(std::move(text));
  Tree tree;
  xml::read_xml_internal(in, tree, xml::trim_whitespace, fileName);
  if (mayHaveEscapes) kvxe::unescapeTree(tree);
  return tree;
}

std::string KVXEXmlReadWrite::readText(bool xpFormat) const {
  return isCandidate(m_xmlPath, xpFormat) ? readFile(m_xmlPath, xpFormat) : std::string();
}

const Tree& KVXEXmlReadWrite::parseXml(bool xpFormat) & {
  clearXmlData();
  if (isCandidate(m_xmlPath, xpFormat))
    setXmlTree(loudly([&] { return parseText(readFile(m_xmlPath, xpFormat), m_xmlPath); }));
  return *m_xmlTree;
}

Tree KVXEXmlReadWrite::parseXml(bool xpFormat) && {
  parseXml(xpFormat);
  return takeXmlTree();
}

kvxe::XmlOutline KVXEXmlReadWrite::outlineXml(bool xpFormat) const {
  return loudly([&] { return kvxe::XmlOutline(readText(xpFormat), m_xmlPath); });
}

bool KVXEXmlReadWrite::prepareFile() {
  if (m_xmlPath.empty()) return false;
  if (m_xmlPath.find('\0') != std::string::npos) fail(m_xmlPath, "the path holds a NUL character");
  if (fs::path(m_xmlPath).extension() != XmlExtension) m_xmlPath += XmlExtension;
  const fs::path directory = fs::path(m_xmlPath).parent_path();
  return directory.empty() || fs::exists(directory) || fs::create_directories(directory);
}

void KVXEXmlReadWrite::writeXml(bool xpFormat) {
  if (!prepareFile()) return;
  checkReadable(*m_xmlTree, m_xmlPath);
  const std::optional<Tree> escaped = kvxe::escapeForXml(*m_xmlTree);
  (xpFormat ? writeWrapped : writePlain)(
      m_xmlPath, [&](std::ostream& out) { writeTree(out, escaped ? *escaped : *m_xmlTree, m_xmlPath); });
}

void KVXEXmlReadWrite::writeXml(bool xpFormat, const std::function<void(kvxe::XmlOutput&)>& write) {
  if (!prepareFile()) return;
  (xpFormat ? writeWrapped : writePlain)(m_xmlPath, [&](std::ostream& out) {
    kvxe::XmlOutput elements(out);
    write(elements);
  });
}
