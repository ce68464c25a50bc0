#include <algorithm>
#include <iostream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXETab.h"

namespace {

using KVXEEnums::TabType;

/// Whether a block is shown on the hard block tab, too.
bool isHardBlock(TabType type) {
  if (type >= TabType::HIC && type <= TabType::EMMAC) return true;
  static constexpr TabType further[] = {TabType::EBMAC, TabType::CRE, TabType::VDU, TabType::ILKN};
  return std::find(std::begin(further), std::end(further), type) != std::end(further);
}

/// The tab of a resource; `NumItems` if there is none.
TabType tabOfResource(const std::string& name) {
  TabType type = TabType::NumItems;
  KVXEEnums::string_to_enum(name == "HIC5N" ? "HIC5" : name, type);
  return type;
}

}  // namespace

std::vector<TabType> KVXEPartSelection::getTabsToShow() const {
  return {describe().tabs.begin(), describe().tabs.end()};
}

void KVXEPartSelection::redrawTabs(bool deleteTabs) {
  readAllDropDowns();  // settings from a file, or of a client that never read the lists, may be incomplete
  KVXEBook* book = KVXEBookMgr::getGlobal().getOrCreateCurrentBook(getArchName());
  if (!book) return;
  if (deleteTabs) book->deleteTabs(true);

  std::vector<bool> isShown(book->getTabCount());
  const auto show = [&](TabType type) {
    KVXETab* tab = book->getOrCreateTab(type);
    if (!tab) return;
    isShown[tab->getIndex()] = true;
    refreshViews(tab);
  };
  for (const TabType type : getTabsToShow()) show(type);

  std::map<std::string, int> resources;
  getResources(resources);
  const auto& ignored = describe().ignoredResources;
  bool needsHardBlocks = false;
  for (const auto& [name, count] : resources) {
    if (count == 0 || std::find(ignored.begin(), ignored.end(), name) != ignored.end()) continue;
    const TabType type = tabOfResource(name);
    if (type == TabType::NumItems) {
      std::cout << "Tab type is not supported: " << name << '\n';
      continue;
    }
    needsHardBlocks |= isHardBlock(type);
    show(type);
  }
  if (needsHardBlocks) show(TabType::HARD_BLOCKS);

  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    if (KVXETab* tab = book->getTab(i)) tab->setIsEnabled(isShown[i]);
  }
  resetConfiguration(book);
  setDevicePkg();
}

void KVXEPartSelection::refreshViews(KVXETab* tab) {
  if (tab) KVXECellStateMgr::getGlobal().requestGuiRedraw();
}
