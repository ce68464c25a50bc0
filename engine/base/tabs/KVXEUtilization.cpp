#include "engine/base/tabs/KVXEUtilization.h"

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXERowReading.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "models/catalogue/DeviceCatalogue.h"

namespace kvxe {

namespace {

constexpr const char* Registers = "FF";

std::optional<float> readCount(const KVXEUID& uid, const KVXETitle& column) {
  float count = 0.0f;
  if (!uid.getRow()->getCell(&column)->getVal(count, true)) return std::nullopt;
  return count;
}

/// The used share of what there is; the warning stands on the cell that shows it.
void updateShare(const KVXEUID& uid, const UtilizationRow& row) {
  KVXECell* cell = uid.getCell();
  const std::optional<float> used = readCount(uid, KVXETab::m_UsedColumn);
  const std::optional<float> available = readCount(uid, KVXETab::m_AvailColumn);
  const bool isKnown = used && available;
  if (isKnown && *used > *available) {
    cell->setMsg(KvxSeverity::WARNING, row.overflow);
  } else {
    cell->clearMsg();
  }
  if (isKnown && *available > 0.0f) return cell->setValAndMarkEngineClean(*used / *available);
  cell->setBlankAndMarkEngineClean();
}

}  // namespace

std::vector<KVXETab::UtilizationTableRow> toTableRows(std::span<const UtilizationRow> rows,
                                                      KVXEFormula formula) {
  std::vector<KVXETab::UtilizationTableRow> tableRows;
  for (const UtilizationRow& row : rows) tableRows.push_back({row.type, formula});
  return tableRows;
}

std::optional<int> availableCount(const std::string& resource) {
  const auto* selection = KVXEPartSelection::getGlobal();
  if (!selection || resource.empty()) return std::nullopt;
  const int count = selection->getAvailResources(resource);
  if (count > 0 || resource != Registers) return count;
  // A module's list leaves out the registers, since they come with its LUTs: they are those of its device.
  const auto& catalogue = kvxm::DeviceCatalogue::getGlobal();
  const kvxm::Device* device = catalogue.findDevice(selection->getSelectedDeviceName());
  if (device) device = catalogue.findDevice(device->baseDevice);
  return device ? device->resource(resource) : 0;
}

void updateUtilizationCell(const KVXEUID& uid, const UtilizationRow& row) {
  const KVXETitle* column = uid.getTable()->getHeaderRow()->getIndexToTitle(uid.getColumnIndex());
  if (column == &KVXETab::m_UtilColumn) return updateShare(uid, row);
  std::optional<float> value;
  if (column == &KVXETab::m_AvailColumn) value = availableCount(row.resource);
  if (column == &KVXETab::m_UsedColumn && row.countUsed) value = row.countUsed(uid);
  if (column == &KVXETab::m_BlockPowerColumn && row.sumPower) value = row.sumPower(uid);
  if (value) return uid.getCell()->setValAndMarkEngineClean(*value);
  uid.getCell()->setBlankAndMarkEngineClean();
}

}  // namespace kvxe
