#pragma once

#include <boost/property_tree/ptree_fwd.hpp>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kvxe {
class XmlOutline;
class XmlOutput;
}  // namespace kvxe

/// Every XML file of the system goes through here: a property tree whose nodes are named by dotted paths, and
/// rows, which are repeated elements that are read and written as one map of attributes each.
///
/// What is written reads back to the same attributes, any names and values included. In a file a character
/// that XML does not allow in a name or a value is escaped ("_x0020_" for a blank in a name); bytes that are
/// no UTF-8 become U+FFFD. The text of an element is trimmed and its blanks condensed on reading; attributes
/// are not.
///
/// Errors are std::exceptions whose text names the file, and for a damaged text the line.
class KVXEXmlReadWrite {
 public:
  using Tree = boost::property_tree::ptree;
  using AttrMap = std::unordered_map<std::string, std::string>;
  /// Keeps the order in which attributes are written.
  using AttrVector = std::vector<std::pair<std::string, std::string>>;
  /// Rows that belong to a named group.
  template <class Row>
  using NamedRows = std::pair<std::string, std::vector<Row>>;

  explicit KVXEXmlReadWrite(std::string xmlPath);
  explicit KVXEXmlReadWrite(const Tree& tree);
  explicit KVXEXmlReadWrite(Tree&& tree);
  KVXEXmlReadWrite(KVXEXmlReadWrite&&) noexcept;
  KVXEXmlReadWrite& operator=(KVXEXmlReadWrite&&) noexcept;
  ~KVXEXmlReadWrite();

  const std::string& getXmlPath() const { return m_xmlPath; }
  void setXmlPath(std::string xmlPath);

  /// The tree itself, without the copy that getXmlTree makes.
  const Tree& tree() const { return *m_xmlTree; }
  void getXmlTree(Tree& out) const;
  /// Moves the tree out; an empty one stays.
  Tree takeXmlTree();
  void setXmlTree(const Tree& tree);
  void setXmlTree(Tree&& tree);
  /// Empties the tree; the path stays.
  void clearXmlData();

  // Reading. An empty path stands for the tree itself.

  /// The attributes of the element at a path but those with an empty value; none for an absent element.
  AttrMap getAttrMap(const std::string& path) const;
  AttrMap getAttrMap(const std::string& path, const Tree& tree) const;
  /// One map for each element at a path that has attributes, in the order of the document. Attributes with an
  /// empty value are in it only with `keepEmpty`.
  std::vector<AttrMap> getVectorOfAttrMap(const std::string& path, bool keepEmpty) const;
  std::vector<AttrMap> getVectorOfAttrMap(const std::string& path, const Tree& tree, bool keepEmpty) const;

  // Writing. An empty path, and no attributes or rows, change nothing. Attribute names are taken as they are:
  // a "." in one is part of the name.

  /// Sets the text of the element at a path, which is made when it is missing.
  void putAttrValue(const std::string& path, const std::string& value);
  /// Appends an element with that text, whatever is there.
  void addAttrValue(const std::string& path, const std::string& value);
  /// Sets attributes of the element at a path, which is made when it is missing.
  void addAttrMap(const std::string& path, const AttrMap& attributes);
  void addAttrVector(const std::string& path, const AttrVector& attributes);
  /// Appends one element at a path for each row, also for one without attributes.
  void addVectorOfAttrMap(const std::string& path, const std::vector<AttrMap>& rows);
  void addVectorOfAttrVector(const std::string& path, const std::vector<AttrVector>& rows);
  /// Groups of rows: for the path "A.B.C.R" a new element B under A that holds, for each pair, one C with the
  /// attribute "name" and its rows as elements R.
  void addNodesOfVectorOfAttrMap(const std::string& path, const std::vector<NamedRows<AttrMap>>& groups);
  void addNodesOfVectorOfAttrVector(const std::string& path,
                                    const std::vector<NamedRows<AttrVector>>& groups);
  /// Removes all elements of that name under the parent of the path; needs a path with a parent.
  void removeNode(const std::string& path);

  // Files. With `xpFormat` they are in the wrapped stream format, otherwise plain XML.

  /// Reads the file into the tree. A file that is absent, or not of the format or the extension that is asked
  /// for (".xml", without `xpFormat` also ".lvr"), leaves an empty tree and no complaint.
  /// @throws std::exception when the file cannot be read, is too large or is not well-formed XML; the text is
  /// on standard error then, too.
  const Tree& parseXml(bool xpFormat) &;
  Tree parseXml(bool xpFormat) &&;
  /// The text that parseXml would make a tree of, not looked at yet; empty where that leaves an empty tree.
  std::string readText(bool xpFormat) const;
  /// The tree of an XML text; `fileName` is for messages.
  static Tree parseText(std::string text, const std::string& fileName);
  /// Writes the tree; missing directories are made, and a path that does not end in ".xml" gets it. Does
  /// nothing without a path.
  /// @throws NException when the file cannot be written in full, or the tree could not be read back.
  void writeXml(bool xpFormat);
  /// As parseXml for a file whose tree would be too much to hold.
  kvxe::XmlOutline outlineXml(bool xpFormat) const;
  /// As above with what `write` puts out in place of the tree.
  void writeXml(bool xpFormat, const std::function<void(kvxe::XmlOutput&)>& write);

  /// Prints the tree on standard output, for debugging, if `enabled`.
  void dumpTree(bool enabled, const Tree& tree, int indent) const;

 private:
  bool prepareFile();
  template <class Attributes>
  void putAttributes(const std::string& path, const Attributes& attributes);
  template <class Row>
  void appendRows(const std::string& path, const std::vector<Row>& rows);
  template <class Row>
  void addNodesOfAttributeRows(const std::string& path, const std::vector<NamedRows<Row>>& groups);

  std::string m_xmlPath;
  std::unique_ptr<Tree> m_xmlTree;  // never null
};
