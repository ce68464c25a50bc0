#include "engine/base/project/ConfigTables.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "engine/base/config/Architectures.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "engine/base/workbook/KVXETitle.h"
#include "engine/tarvek/KVXETarvekMpramTab.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"

namespace kvxe {

namespace {

using KVXEEnums::TabType;

enum class Kind { Other, Pcie, Hic };

/// A table by its place and name, for tabs that have no class here. The title of a tab that gets one moves to
/// `titles`, where it counts by its address.
struct Place {
  std::string_view architecture;
  TabType tab;
  std::string_view table;
  Kind kind = Kind::Other;
};

constexpr std::string_view tarvek = ArchTraits<Tarvek>::getName();
constexpr std::string_view morlan = ArchTraits<Morlan>::getName();
constexpr std::string_view som = ArchTraits<Som>::getName();

constexpr Place places[] = {
    {tarvek, TabType::XCVRA, "XCVRA_CONFIGURATION"},
    {tarvek, TabType::XCVRC, "XCVRC_CONFIGURATION"},
    {tarvek, TabType::XCVRD, "XCVRD_CONFIGURATION"},
    {morlan, TabType::XCVRB, "XCVRB_CONFIGURATION"},
    {som, TabType::XCVRB, "XCVRB_CONFIGURATION"},
    {morlan, TabType::XCVRC, "XCVRC_CONFIGURATION"},
    {tarvek, TabType::MXE2, "MXE2_CONFIGURATION"},
    {tarvek, TabType::NICB, "NICB_CONFIGURATION"},
    {tarvek, TabType::HIC, "HIC_CONFIGURATION", Kind::Hic},
    {tarvek, TabType::HIC5, "HIC5_CONFIGURATION", Kind::Hic},
    {tarvek, TabType::PCIE, "PCIE_CONFIGURATION", Kind::Pcie},
    {tarvek, TabType::PCIE5, "PCIE5_CONFIGURATION", Kind::Pcie},
    {tarvek, TabType::EMMAC, "EMMAC_CONFIGURATION"},
    {tarvek, TabType::EBMAC, "EBMAC_CONFIGURATION"},
    {tarvek, TabType::ILKN, "ILKN_CONFIGURATION"},
    {tarvek, TabType::CRE, "CRE_CONFIGURATION"},
    {tarvek, TabType::FEC, "FECB_CONFIGURATION"},
    {tarvek, TabType::VDU, "VDU_CONFIGURATION"},
};

const Place* findPlace(const KVXETable& table) {
  const KVXETitle* title = table.getTableTitle();
  const KVXETab* tab = table.getTab();
  if (!title || !tab || !tab->getBook()) return nullptr;
  const auto place = std::ranges::find_if(places, [&](const Place& candidate) {
    return candidate.tab == tab->getType() && candidate.table == title->getTag(KVXEEnums::TitleType::SW) &&
           candidate.architecture == tab->getBook()->getArchName();
  });
  return place == std::end(places) ? nullptr : place;
}

bool isOfKind(const KVXETable& table, Kind kind) {
  const Place* place = findPlace(table);
  return place && place->kind == kind;
}

}  // namespace

bool isConfigTable(const KVXETable& table) {
  static const std::unordered_set<const KVXETitle*> titles = {
      &KVXETarvekMpramTab::m_ConfigTable,
      &KVXETarvekNocDdrmcTab::m_NocConfigTable,
      &KVXETarvekNocDdrmcTab::m_DdrmcConfigTable,
  };
  return titles.contains(table.getTableTitle()) || findPlace(table);
}

bool isPcieConfigTable(const KVXETable& table) {
  return isOfKind(table, Kind::Pcie);
}

bool isHicConfigTable(const KVXETable& table) {
  return isOfKind(table, Kind::Hic);
}

}  // namespace kvxe
