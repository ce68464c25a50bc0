// The formulas of the IO tab.

#include <algorithm>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/tabs/KVXEDropdowns.h"
#include "engine/base/tabs/KVXEIoTab.h"
#include "engine/base/tabs/KVXEUtilization.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::Visibility;

KVXEIoTab* KVXEIoTab::tabOf(const KVXEUID& uid) {
  return static_cast<KVXEIoTab*>(uid.getTab());
}

const std::string& KVXEIoTab::readText(KVXERow* row, const KVXETitle& column) {
  return static_cast<KVXEStringCell*>(row->getCell(&column))->readVal(true);
}

// Banks and standards.

const KVXEIoTab::Offer& KVXEIoTab::offer() const {
  std::uint32_t present = 0;
  const std::span<const Bank> known = banks();
  for (size_t i = 0; i < known.size(); ++i)
    if (kvxe::availableCount(known[i].resource).value_or(0) > 0) present |= 1u << i;
  if (present == m_offer.present) return m_offer;
  m_offer = Offer();
  m_offer.present = present;
  for (size_t i = 0; i < known.size(); ++i) {
    if (!(present & 1u << i)) continue;
    m_offer.banks.push_back(&known[i]);
    m_offer.types.push_back(known[i].type);
    auto& standards = m_offer.standards;
    for (const std::string& standard : known[i].standards->getIoList())
      if (std::find(standards.begin(), standards.end(), standard) == standards.end())
        standards.push_back(standard);
  }
  return m_offer;
}

KVXEIoTab::Place KVXEIoTab::findPlace(KVXERow* row) const {
  const std::string& type = readText(row, m_IoType);
  const std::string& standard = readText(row, m_IoStandard);
  if (standard.empty()) return {};
  for (const Bank* bank : offer().banks) {
    if (!type.empty() && type != bank->type) continue;
    if (const kvxm::IoStandard* found = bank->standards->find(standard)) return {bank, found};
  }
  return {};
}

KVXEIoTab::Place KVXEIoTab::findPlace(const KVXEUID& uid) {
  return tabOf(uid)->findPlace(uid.getRow());
}

// Lists.

namespace {

/// The list of a row without a standard.
const std::vector<std::string>& withoutTermination() {
  static const std::vector<std::string> list{"None"};
  return list;
}

}  // namespace

void KVXEIoTab::offerInCell(const KVXEUID& uid, const std::vector<std::string>& list) {
  kvxe::offerInCell(uid.getCell(), list);
  uid.getCell()->addDDErrorMsgIfApplicable();
}

void KVXEIoTab::updateIoType(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "IO types")) return;
  const std::vector<std::string>& types = tabOf(uid)->offer().types;
  // The list is the column's: the first row that is evaluated after a change of the device brings it.
  kvxe::offerInColumn(uid.getCell()->getHeaderDefaultCell(), types);
  offerInCell(uid, types);
}

/// The standards of the row's type, or of all types while the row has none that the device has.
void KVXEIoTab::updateIoStandard(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "IO standards")) return;
  const std::string& type = readText(uid.getRow(), m_IoType);
  const Offer& offer = tabOf(uid)->offer();
  kvxe::offerInColumn(uid.getCell()->getHeaderDefaultCell(), offer.standards);
  const auto bank = std::find_if(offer.banks.begin(), offer.banks.end(),
                                 [&](const Bank* one) { return one->type == type; });
  offerInCell(uid, bank == offer.banks.end() ? offer.standards : (*bank)->standards->getIoList());
}

void KVXEIoTab::updateInputTermination(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "terminations of inputs")) return;
  const kvxm::IoStandard* standard = findPlace(uid).standard;
  offerInCell(uid, standard ? standard->inputTerminations : withoutTermination());
}

void KVXEIoTab::updateOutputTermination(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "terminations of outputs")) return;
  const kvxm::IoStandard* standard = findPlace(uid).standard;
  offerInCell(uid, standard ? standard->outputTerminations : withoutTermination());
}

// Pins and banks of a row.

namespace {

int readCount(KVXERow* row, const KVXETitle& column) {
  int count = 0;
  return row->getCell(&column)->getVal(count, true) ? std::max(count, 0) : 0;
}

}  // namespace

void KVXEIoTab::updateTotalPins(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "pins of interfaces")) return;
  constexpr double Most = 2147483645.0;  // one below a blank cell
  double pins = 0.0;
  for (const KVXETitle* column : {&m_Inputs, &m_Outputs, &m_Bidirs}) pins += readCount(uid.getRow(), *column);
  const kvxm::IoStandard* standard = findPlace(uid).standard;
  if (standard && standard->isDifferential) pins *= 2.0;
  if (pins <= 0.0) return uid.getCell()->setBlankAndMarkEngineClean();
  uid.getCell()->setValAndMarkEngineClean(static_cast<int>(std::min(pins, Most)));
}

void KVXEIoTab::updateBankVoltage(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "bank voltage")) return;
  const kvxm::IoStandard* standard = findPlace(uid).standard;
  const std::string rail = standard ? standard->rail : std::string();
  const std::optional<float> volts = standard ? kvxe::readVoltage(uid, rail) : std::nullopt;
  uid.getRow()->getCell(&m_VccoRail)->setValAndMarkEngineClean(rail);
  kvxe::writeResult(uid.getRow(), m_BankVoltage, volts);
}

// Power of a row.

std::optional<KVXEIoTab::IoRow> KVXEIoTab::readIoRow(const KVXEUID& uid) {
  KVXERow* row = uid.getRow();
  IoRow use{.standard = readText(row, m_IoStandard),
            .inputTermination = readText(row, m_InputTermination),
            .outputTermination = readText(row, m_OutputTermination),
            .dataRate = readText(row, m_DataRate),
            .inputs = readCount(row, m_Inputs),
            .outputs = readCount(row, m_Outputs),
            .bidirectionals = readCount(row, m_Bidirs)};
  const auto megahertz = kvxe::readClockFrequency(row, m_Clock);
  const auto vccaux = kvxe::readVoltage(uid, tabOf(uid)->auxiliaryRail());
  const auto vccintio = kvxe::readVoltage(uid, "VCCINTIO");
  const auto vccint = kvxe::readVoltage(uid, "VCCINT");
  float vcco = 0.0f;
  const bool isPowered = row->getCell(&m_BankVoltage)->getVal(vcco, true);
  if (std::max({use.inputs, use.outputs, use.bidirectionals}) <= 0) return std::nullopt;
  if (!megahertz || !vccaux || !vccintio || !vccint || !isPowered) return std::nullopt;
  use.megahertz = *megahertz;
  use.vcco = vcco;
  use.vccaux = *vccaux;
  use.vccintio = *vccintio;
  use.vccint = kvxe::isSignalPowerDisabled() ? 0.0f : *vccint;
  use.toggleRate = kvxe::readNumber(row, m_ToggleRate, use.toggleRate);
  use.outputEnable = kvxe::readNumber(row, m_OutputEnable, use.outputEnable);
  use.termDisable = kvxe::readNumber(row, m_TermDisable, use.termDisable);
  use.loadCapacitance = kvxe::readNumber(row, m_LoadCapacitance, use.loadCapacitance);
  return use;
}

void KVXEIoTab::updateIoConfigPowerRow(const KVXEUID& uid) {
  static const KVXETitle* const results[] = {&m_VccintPower, &m_VccintioPower, &m_VccauxPower,
                                             &m_VccoPower,   &m_OffChipPower,  &m_Power};
  if (!kvxe::isInTable(uid, m_IoConfigTable, "power of interfaces")) return;
  const Bank* bank = findPlace(uid).bank;
  const std::optional<IoRow> row = readIoRow(uid);
  if (!bank || !row) return kvxe::blankResults(uid.getRow(), results);
  const IoResult power = bank->power(uid, *row);
  const float watts[] = {power.vccint,  power.vccintio,
                         power.vccaux,  power.vcco,
                         power.offChip, power.vccint + power.vccintio + power.vccaux + power.vcco};
  for (size_t i = 0; i < std::size(results); ++i) kvxe::writeResult(uid.getRow(), *results[i], watts[i]);
}

// Rails.

void KVXEIoTab::updateVccintActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_IoConfigTable, m_VccintPower>(uid);
}
void KVXEIoTab::updateVccintioActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_IoConfigTable, m_VccintioPower>(uid);
}
void KVXEIoTab::updateVccauxActivePowerInPowerTable(const KVXEUID& uid) {
  kvxe::sumIntoRail<m_IoConfigTable, m_VccauxPower>(uid);
}

/// Reads the interfaces once for all rails, and shows the rows of the rails that the device's standards have.
void KVXEIoTab::readVccoSums() {
  const KVXETable& interfaces = *getTable(&m_IoConfigTable);
  const unsigned int railColumn = interfaces.findTitle(&m_VccoRail);
  const unsigned int vccoColumn = interfaces.findTitle(&m_VccoPower);
  const unsigned int offChipColumn = interfaces.findTitle(&m_OffChipPower);
  m_vccoSums.clear();
  for (const Bank* bank : offer().banks)
    for (const std::string& standard : bank->standards->getIoList())
      m_vccoSums[bank->standards->find(standard)->rail];
  for (unsigned int i = 1; i < interfaces.getRowCount(); ++i) {
    float onChip = 0.0f;
    float offChip = 0.0f;
    if (!interfaces.getCellAt(i, vccoColumn)->getVal(onChip, true)) continue;
    interfaces.getCellAt(i, offChipColumn)->getVal(offChip, true);
    RailSum& sum =
        m_vccoSums[static_cast<KVXEStringCell*>(interfaces.getCellAt(i, railColumn))->readVal(true)];
    sum.onChip += onChip;
    sum.offChip += offChip;
  }
}

void KVXEIoTab::writeVccoSum(const KVXEUID& uid) const {
  const auto found = m_vccoSums.find(readText(uid.getRow(), m_InternalRailColumn));
  const bool isPresent = found != m_vccoSums.end();
  const RailSum sum = isPresent ? found->second : RailSum();
  const bool isOnChip = uid.getTable()->getTableTitle() == &m_PowerTable;
  uid.getRow()->setVisibility(isPresent ? Visibility::EXTERNAL : Visibility::ALWAYS_HIDDEN);
  uid.getCell()->setValAndMarkEngineClean(static_cast<float>(isOnChip ? sum.onChip : sum.offChip));
}

void KVXEIoTab::updateVccoActivePowerInPowerTable(const KVXEUID& uid) {
  const KVXETitle* title = uid.getTable()->getTableTitle();
  if (title != &m_OffChipPowerTable && !kvxe::isInTable(uid, m_PowerTable, "power of IO banks")) return;
  KVXEIoTab* tab = tabOf(uid);
  float watts = 0.0f;
  if (uid.getCell() == tab->m_vccoRun) {
    tab->readVccoSums();
  } else {
    tab->m_vccoRun->getVal(watts, true);
  }
  tab->writeVccoSum(uid);
}

// Utilization.

namespace {

/// All pins, from the rows above, so that the columns are read once.
std::optional<float> readUtilizationRows(const KVXEUID& uid) {
  float sum = 0.0f;
  for (unsigned int i = 1; i < uid.getRowIndex(); ++i)
    sum += kvxe::readNumber(uid.getTable()->getRow(i), KVXETab::m_UsedColumn, 0.0f);
  return sum;
}

}  // namespace

/// The pins of the interfaces in the kind of bank that the row counts.
std::optional<float> KVXEIoTab::countPinsOfBank(const KVXEUID& uid) {
  const KVXEIoTab* tab = tabOf(uid);
  const Bank* bank = &tab->banks()[uid.getRowIndex() - 1];
  const KVXETable* table = tab->getTable(&m_IoConfigTable);
  const unsigned int pinColumn = table->findTitle(&m_TotalPins);
  double pins = 0.0;
  for (unsigned int i = 1; i < table->getRowCount(); ++i) {
    float count = 0.0f;
    if (table->getCellAt(i, pinColumn)->getVal(count, true) && tab->findPlace(table->getRow(i)).bank == bank)
      pins += count;
  }
  return static_cast<float>(pins);
}

std::optional<float> KVXEIoTab::availablePins(const KVXEUID& uid) {
  float pins = 0.0f;
  for (const Bank& bank : tabOf(uid)->banks())
    pins += static_cast<float>(kvxe::availableCount(bank.resource).value_or(0));
  return pins;
}

void KVXEIoTab::updateUtilizationTable(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_UtilTable, "utilization of IO")) return;
  static const std::string overflow =
      "<html>Utilization exceeds 100%.\nPlease review the usage in IO table.</html>";
  const KVXEIoTab* tab = tabOf(uid);
  const size_t row = uid.getRowIndex() - 1;
  const bool isTotal = row >= tab->banks().size();
  const kvxe::UtilizationRow declaration{.type = isTotal ? m_ioStr : tab->banks()[row].resource,
                                         .resource = isTotal ? "" : tab->banks()[row].resource,
                                         .countUsed = isTotal ? &readUtilizationRows : &countPinsOfBank,
                                         .overflow = overflow};
  const bool isAvailable = uid.getCell() == uid.getRow()->getCell(&m_AvailColumn);
  if (isTotal && isAvailable) return kvxe::writeResult(uid.getRow(), m_AvailColumn, availablePins(uid));
  kvxe::updateUtilizationCell(uid, declaration);
}
