#include "engine/base/tabs/KVXEPowerXcvrCounts.h"

#include <algorithm>

#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "models/catalogue/DeviceCatalogue.h"

using KVXEEnums::TabType;

namespace {

struct XcvrKind {
  const char* name;  // its resource, too
  TabType tab;
};
constexpr XcvrKind xcvrKinds[] = {{"XCVRA", TabType::XCVRA},
                                  {"XCVRB", TabType::XCVRB},
                                  {"XCVRC", TabType::XCVRC},
                                  {"XCVRD", TabType::XCVRD}};

// The configuration table of a transceiver tab is the one that counts channels under this tag.
const char* const channelsTag = "CHANNELS";

// Four transceivers share a quad with its clocks; the package feeds up to this many quads from one plane.
constexpr int xcvrsPerQuad = 4;
constexpr int quadsPerPlane = 4;
constexpr long long mostXcvrs = 1000000;  // more is a typing error

const XcvrKind* findKind(const std::string& name) {
  for (const XcvrKind& kind : xcvrKinds)
    if (name == kind.name) return &kind;
  return nullptr;
}

const KVXETitle* channelsTitle(const KVXETable& table) {
  const KVXEHeaderRow* header = table.getHeaderRow();
  for (unsigned int i = 0; header && i < table.getColumnCount(); ++i) {
    const KVXETitle* title = header->getIndexToTitle(i);
    if (title && title->getTag(KVXEEnums::TitleType::SW) == channelsTag) return title;
  }
  return nullptr;
}

int groupsOf(int count, int size) {
  return (count + size - 1) / size;
}

}  // namespace

std::optional<int> KVXEPowerXcvrCounts::countUsedXcvrs(const KVXEUID& uid, const std::string& name) {
  const XcvrKind* kind = findKind(name);
  KVXETab* tab = kind && uid.getBook() ? uid.getBook()->getTab(kind->tab) : nullptr;
  for (unsigned int i = 0; tab && i < tab->getTableCount(); ++i) {
    const KVXETable* table = tab->getTable(i);
    const KVXETitle* channels = channelsTitle(*table);
    if (!channels) continue;
    std::vector<int> counts;
    tab->readColumn(table->getTableTitle(), channels, counts);
    long long sum = 0;
    for (const int count : counts)
      if (count != kvxeBlank<int>) sum += count;
    return static_cast<int>(std::clamp(sum, 0LL, mostXcvrs));
  }
  return std::nullopt;
}

int KVXEPowerXcvrCounts::getUsedXcvrs(const KVXEUID& uid, const std::string& kind) {
  return countUsedXcvrs(uid, kind).value_or(0);
}

int KVXEPowerXcvrCounts::getAvailXcvrs(const KVXEUID& uid, const std::string& kind) {
  if (!findKind(kind)) return 0;
  const kvxm::Device* device =
      kvxm::DeviceCatalogue::getGlobal().findDevice(KVXEPowerDesignTab::getDevice(uid));
  return device ? device->resource(kind) : 0;
}

int KVXEPowerXcvrCounts::getUsedXcvrQuads(const KVXEUID& uid, const std::string& kind) {
  return groupsOf(getUsedXcvrs(uid, kind), xcvrsPerQuad);
}

int KVXEPowerXcvrCounts::getUsedXcvrPowerPlanes(const KVXEUID& uid, const std::string& kind) {
  return groupsOf(getUsedXcvrQuads(uid, kind), quadsPerPlane);
}

int KVXEPowerXcvrCounts::getAvailXcvrPowerPlanes(const KVXEUID& uid, const std::string& kind) {
  return groupsOf(groupsOf(getAvailXcvrs(uid, kind), xcvrsPerQuad), quadsPerPlane);
}

std::map<std::string, int> KVXEPowerXcvrCounts::getXcvrResources(const KVXEUID& uid) {
  std::map<std::string, int> counts;
  for (const XcvrKind& kind : xcvrKinds)
    if (const int count = getAvailXcvrs(uid, kind.name)) counts[kind.name] = count;
  return counts;
}
