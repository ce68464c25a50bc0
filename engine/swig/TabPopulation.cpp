// Tabs and the tree of tabs of a book that goes out whole.

#include <iostream>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEImage.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "engine/swig/KVXEPBHelper.h"
#include "engine/swig/VisibilityTitle.h"
#include "messages/book.pb.h"

using KVXEEnums::GridComponentType;
using KVXEEnums::TabType;

namespace {

bool isShown(KVXETable* table) {
  if (!table || !KVXEViewer::sees(table->getVisibility())) return false;
  const auto [rows, columns] = table->getPrintableArea();
  return table->getPBGridViewType() != GridComponentType::TABLE || (rows > 0 && columns > 0);
}

}  // namespace

/// A tab without content of its own whose type heads a group of tabs.
bool KVXETab::isGroupHeading() const {
  if (!m_tables.empty() || m_type >= TabType::NumItems) return false;
  const auto next = static_cast<TabType>(static_cast<unsigned short>(m_type) + 1);
  return KVXEEnums::nameOf(next) == getTypeAsStr() + "_START";
}

bool KVXETab::populateComponents(KvxGridComponentsContentData* content) {
  bool isComplete = true;
  bool gridOptionA = false;
  const auto add = [&](KVXETable* component) {
    KvxGridComponentData* data = content->add_components();
    isComplete &= component->populate(data);
    gridOptionA |= data->gridoptiona();
  };
  for (KVXETable* table : m_tables)
    if (isShown(table)) add(table);
  for (KVXEImage* image : m_images)
    if (image && KVXEViewer::sees(image->getVisibility())) add(image);
  content->set_gridoptiona(gridOptionA);
  return isComplete;
}

bool KVXETab::populate(KvxBookBundleNodeData* node) {
  if (!node) return false;
  node->set_index(static_cast<int>(getIndex()));
  node->set_type(getTypeAsStr());
  node->set_title(kvxe::withVisibility(getPBTitle(), m_visibility));
  bool isComplete = populateComponents(node->mutable_gridcontent());
  for (const auto& button : m_buttons) isComplete &= button->populate(node->add_buttons());
  if (!isGroupHeading()) node->set_placeholder(getPlaceholderText());
  if (const std::string suffix = getPBSuffix(); !suffix.empty()) node->set_suffix(suffix);
  return isComplete;
}

namespace {

/// Walks the flat list of tabs; marker members of the enumeration say how they nest.
class TabTree {
 public:
  TabTree(const KVXEBook& book, KvxBookBundleData& bundle)
      : m_book(book), m_bundle(bundle), m_nodes(book.getTabCount(), nullptr) {}

  bool populate() {
    // The first tab is the summary panel's.
    for (unsigned int i = 1; i < m_book.getTabCount(); ++i) visit(i);
    return m_isComplete;
  }

 private:
  static std::string nameOf(unsigned int index) { return KVXEEnums::nameOf(static_cast<TabType>(index)); }

  void visit(unsigned int index) {
    const std::string text = nameOf(index);
    if (text.find("_START") != std::string::npos) return begin(index, text);
    if (text.find("_END") != std::string::npos) {
      if (!m_parents.empty()) m_parents.pop_back();
      return;
    }
    KVXETab* tab = m_book.getTab(index);
    if (!tab || !tab->getIsEnabled() || !KVXEViewer::sees(tab->getVisibility())) return;
    KvxBookBundleNodeData* node = addNode(*tab);
    if (!node) return;
    m_isComplete &= tab->populate(node);
    node->set_severity(tab->getTabSeverity());
    m_nodes[index] = node;
  }

  void begin(unsigned int index, const std::string& text) {
    const std::string previous = nameOf(index - 1);
    if (previous + "_START" == text) {
      m_parents.push_back(index - 1);
    } else {
      std::cout << "Error: Tab-type " << text << "should not be preceded by tab-type " << previous << '\n';
    }
  }

  KvxBookBundleNodeData* addNode(const KVXETab& tab) {
    if (m_parents.empty()) return m_bundle.add_nodes();
    KvxBookBundleNodeData* parent = m_nodes[m_parents.back()];
    if (parent) return parent->add_children();
    std::cout << "Error: Parent Tab not enabled for type: " << tab.getType() << '\n';
    return nullptr;
  }

  const KVXEBook& m_book;
  KvxBookBundleData& m_bundle;
  std::vector<KvxBookBundleNodeData*> m_nodes;  // by tab index; null for a tab that is not sent
  std::vector<unsigned int> m_parents;
  bool m_isComplete = true;
};

}  // namespace

bool KVXEPBHelper::populate(KvxBookBundleData* bundle) {
  if (!bundle) return false;
  bundle->Clear();
  const KVXEBook* book = currentBook();
  const bool isComplete = !book || TabTree(*book, *bundle).populate();
  rememberLooks();
  KVXECellStateMgr::getGlobal().markGuiClean();
  return isComplete;
}
