#include "engine/base/project/KVXEXmlReadWrite.h"

#include <boost/property_tree/ptree.hpp>
#include <iostream>

namespace {

using Tree = KVXEXmlReadWrite::Tree;
using AttrMap = KVXEXmlReadWrite::AttrMap;

const std::string AttributesKey = "<xmlattr>";
constexpr char PathSeparator = '.';

/// A path as the one in front of its last name, and that name.
std::pair<std::string, std::string> splitPath(const std::string& path) {
  const std::size_t at = path.rfind(PathSeparator);
  if (at == std::string::npos) return {"", path};
  return {path.substr(0, at), path.substr(at + 1)};
}

const Tree* findNode(const Tree& tree, const std::string& path) {
  if (path.empty()) return &tree;
  return tree.get_child_optional(path).get_ptr();
}

Tree& findOrCreateNode(Tree& tree, const std::string& path) {
  if (path.empty()) return tree;
  if (const auto node = tree.get_child_optional(path)) return *node;
  return tree.put_child(path, Tree());
}

Tree& append(Tree& parent, const std::string& name) {
  return parent.push_back({name, Tree()})->second;
}

/// Sets attributes of an element; a later one of the same name wins. The names are no paths.
template <class Attributes>
void setAttributes(Tree& element, const Attributes& attributes) {
  if (attributes.empty()) return;
  const auto present = element.find(AttributesKey);
  Tree& list = present == element.not_found() ? append(element, AttributesKey) : present->second;
  for (const auto& [name, value] : attributes) {
    const auto attribute = list.find(name);
    (attribute == list.not_found() ? append(list, name) : attribute->second).data() = value;
  }
}

template <class Row>
void appendElements(Tree& parent, const std::string& name, const std::vector<Row>& rows) {
  for (const Row& row : rows) setAttributes(append(parent, name), row);
}

AttrMap toAttrMap(const Tree& attributes, bool keepEmpty) {
  AttrMap map;
  for (const auto& [name, attribute] : attributes)
    if (keepEmpty || !attribute.data().empty()) map.insert_or_assign(name, attribute.data());
  return map;
}

}  // namespace

KVXEXmlReadWrite::KVXEXmlReadWrite(std::string xmlPath)
    : m_xmlPath(std::move(xmlPath)), m_xmlTree(std::make_unique<Tree>()) {}

KVXEXmlReadWrite::KVXEXmlReadWrite(const Tree& tree) : m_xmlTree(std::make_unique<Tree>(tree)) {}

KVXEXmlReadWrite::KVXEXmlReadWrite(Tree&& tree) : KVXEXmlReadWrite(std::string()) {
  m_xmlTree->swap(tree);
}

KVXEXmlReadWrite::~KVXEXmlReadWrite() = default;

void KVXEXmlReadWrite::setXmlPath(std::string xmlPath) {
  m_xmlPath = std::move(xmlPath);
}

void KVXEXmlReadWrite::getXmlTree(Tree& out) const {
  out = *m_xmlTree;
}

Tree KVXEXmlReadWrite::takeXmlTree() {
  Tree tree;
  tree.swap(*m_xmlTree);
  return tree;
}

void KVXEXmlReadWrite::setXmlTree(const Tree& tree) {
  *m_xmlTree = tree;
}

void KVXEXmlReadWrite::setXmlTree(Tree&& tree) {
  m_xmlTree->swap(tree);
}

void KVXEXmlReadWrite::clearXmlData() {
  m_xmlTree->clear();
}

AttrMap KVXEXmlReadWrite::getAttrMap(const std::string& path) const {
  return getAttrMap(path, *m_xmlTree);
}

AttrMap KVXEXmlReadWrite::getAttrMap(const std::string& path, const Tree& tree) const {
  const Tree* element = findNode(tree, path);
  if (!element) return {};
  const auto attributes = element->find(AttributesKey);
  return attributes == element->not_found() ? AttrMap() : toAttrMap(attributes->second, false);
}

std::vector<AttrMap> KVXEXmlReadWrite::getVectorOfAttrMap(const std::string& path, bool keepEmpty) const {
  return getVectorOfAttrMap(path, *m_xmlTree, keepEmpty);
}

std::vector<AttrMap> KVXEXmlReadWrite::getVectorOfAttrMap(const std::string& path, const Tree& tree,
                                                          bool keepEmpty) const {
  std::vector<AttrMap> rows;
  if (path.empty()) return rows;
  const auto [parentPath, name] = splitPath(path);
  const Tree* parent = findNode(tree, parentPath);
  if (!parent) return rows;
  for (const auto& [childName, child] : *parent) {
    if (childName != name) continue;
    const auto attributes = child.find(AttributesKey);
    if (attributes != child.not_found()) rows.push_back(toAttrMap(attributes->second, keepEmpty));
  }
  return rows;
}

void KVXEXmlReadWrite::putAttrValue(const std::string& path, const std::string& value) {
  if (!path.empty()) m_xmlTree->put(path, value);
}

void KVXEXmlReadWrite::addAttrValue(const std::string& path, const std::string& value) {
  if (!path.empty()) m_xmlTree->add(path, value);
}

template <class Attributes>
void KVXEXmlReadWrite::putAttributes(const std::string& path, const Attributes& attributes) {
  if (path.empty() || attributes.empty()) return;
  setAttributes(findOrCreateNode(*m_xmlTree, path), attributes);
}

void KVXEXmlReadWrite::addAttrMap(const std::string& path, const AttrMap& attributes) {
  putAttributes(path, attributes);
}

void KVXEXmlReadWrite::addAttrVector(const std::string& path, const AttrVector& attributes) {
  putAttributes(path, attributes);
}

template <class Row>
void KVXEXmlReadWrite::appendRows(const std::string& path, const std::vector<Row>& rows) {
  if (path.empty() || rows.empty()) return;
  const auto [parent, name] = splitPath(path);
  appendElements(findOrCreateNode(*m_xmlTree, parent), name, rows);
}

void KVXEXmlReadWrite::addVectorOfAttrMap(const std::string& path, const std::vector<AttrMap>& rows) {
  appendRows(path, rows);
}

void KVXEXmlReadWrite::addVectorOfAttrVector(const std::string& path, const std::vector<AttrVector>& rows) {
  appendRows(path, rows);
}

template <class Row>
void KVXEXmlReadWrite::addNodesOfAttributeRows(const std::string& path,
                                               const std::vector<NamedRows<Row>>& groups) {
  const auto [groupPath, rowName] = splitPath(path);
  if (groupPath.empty() || groups.empty()) return;
  const auto [prefix, groupName] = splitPath(groupPath);
  // Without a prefix there is no element to make anew, and the groups stand at the top.
  const auto [above, holder] = splitPath(prefix);
  Tree& parent = prefix.empty() ? *m_xmlTree : append(findOrCreateNode(*m_xmlTree, above), holder);
  for (const auto& [name, rows] : groups) {
    Tree& group = append(parent, groupName);
    setAttributes(group, AttrVector{{"name", name}});
    appendElements(group, rowName, rows);
  }
}

void KVXEXmlReadWrite::addNodesOfVectorOfAttrMap(const std::string& path,
                                                 const std::vector<NamedRows<AttrMap>>& groups) {
  addNodesOfAttributeRows(path, groups);
}

void KVXEXmlReadWrite::addNodesOfVectorOfAttrVector(const std::string& path,
                                                    const std::vector<NamedRows<AttrVector>>& groups) {
  addNodesOfAttributeRows(path, groups);
}

void KVXEXmlReadWrite::removeNode(const std::string& path) {
  const auto [parentPath, name] = splitPath(path);
  if (parentPath.empty()) return;
  if (const auto parent = m_xmlTree->get_child_optional(parentPath)) parent->erase(name);
}

void KVXEXmlReadWrite::dumpTree(bool enabled, const Tree& tree, int indent) const {
  if (!enabled) return;
  const auto indentation = [](int width) {
    return std::string(static_cast<std::size_t>(std::max(width, 0)), ' ');
  };
  for (const auto& [name, child] : tree) {
    if (child.empty()) {
      std::cout << indentation(indent + 1) << name << "=" << child.data() << '\n';
    } else {
      std::cout << indentation(indent) << name << '\n';
      dumpTree(enabled, child, indent + 1);
    }
  }
}
