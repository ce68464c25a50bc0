#include "engine/som/KVXESomMorlanPowerDesignTab.h"

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/som/KVXESomPartSelection.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/morlan/KVXMMorlanSomPartsData.h"

namespace {

const std::string packageRow = "Package";
const std::string speedRow = "Speed";

/// The part that the selected module carries; null for none.
const kvxm::Part* basePart() {
  const KVXEPartSelection* selection = KVXEPartSelection::getGlobal();
  if (!selection) return nullptr;
  const std::string name =
      KVXMMorlanSomPartsData::getGlobal().getDeviceData(selection->getSelectedDeviceName(), "BASE_PART_NAME");
  return kvxm::DeviceCatalogue::getGlobal().findPart(name);
}

}  // namespace

std::span<const KVXEPowerDesignTab::DeviceRow> KVXESomMorlanPowerDesignTab::deviceRows() const {
  using Selection = KVXESomPartSelection;
  static const DeviceRow rows[] = {
      {"Family", Selection::m_familyStr},
      {"Board", Selection::m_boardStr},
      {"Device", Selection::m_devStr},
      {packageRow, ""},
      {speedRow, ""},
      {"Temperature", Selection::m_tempGradeStr},
      {"Process", Selection::m_processStr},
  };
  return rows;
}

kvxm::Architecture KVXESomMorlanPowerDesignTab::architecture() const {
  return kvxm::Architecture::Som;
}

std::string KVXESomMorlanPowerDesignTab::partSetting(const DeviceRow& row) const {
  if (row.option != packageRow && row.option != speedRow) return KVXEMorlanPowerDesignTab::partSetting(row);
  const kvxm::Part* part = basePart();
  if (!part) return {};
  return row.option == packageRow ? part->package : part->speed;
}

/// The dynamic rows of the summary's one list of blocks; without a summary, what the tabs themselves say.
float KVXESomMorlanPowerDesignTab::onChipDynamicPower(const KVXEUID& uid) {
  const bool isListed =
      uid.getBook()->getTable(KVXEEnums::TabType::SUMMARY, &KVXESummaryTab::m_onchipTableHeader);
  return isListed ? KVXESummaryTab::getFpgaDynamicPower(uid)
                  : KVXEMorlanPowerDesignTab::onChipDynamicPower(uid);
}
