#include "engine/som/KVXESomIoTab.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "engine/base/tabs/KVXEConfigTable.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETemplateCell.h"

using KVXEEnums::CellType;
using KVXEEnums::Unit;

const KVXETitle KVXESomIoTab::m_Bank("BANK", "Bank", "bank");
const KVXETitle KVXESomIoTab::m_BankSuppliesTable("BANK_SUPPLIES", "Bank Supplies");
const KVXETitle KVXESomIoTab::m_BankSupplyRail("RAIL", "Rail");
const KVXETitle KVXESomIoTab::m_BankSupplyVoltage("VOLTAGE", "Voltage");
const KVXETitle KVXESomIoTab::m_BankSupplyCurrent("CURRENT", "Current");

namespace {

/// A bank of the module and the type of pins in it.
struct ModuleBank {
  const char* rail;
  const char* type;
};
constexpr ModuleBank moduleBanks[] = {
    {"VCCO_HPA", "HP"}, {"VCCO_HPB", "HP"}, {"VCCO_HPC", "HP"},
    {"VCCO_HDA", "HD"}, {"VCCO_HDB", "HD"}, {"VCCO_HDC", "HD"},
};
const char* const bankNames[] = {"VCCO_HPA", "VCCO_HPB", "VCCO_HPC", "VCCO_HDA", "VCCO_HDB", "VCCO_HDC"};

const char* const otherVoltageMsg =
    "<html>The standard of these pins needs another voltage than the first interface in this bank.\nPlease "
    "move them to another bank.</html>";

bool isOtherVoltage(float first, float volts) {
  constexpr float Tolerance = 1e-3f;
  return std::abs(first - volts) > Tolerance;
}

/// The banks for pins of a type; all of them for another text.
const std::vector<std::string>& banksOfType(const std::string& type) {
  static const auto list = [](const std::string& wanted) {
    std::vector<std::string> banks;
    for (const ModuleBank& bank : moduleBanks)
      if (wanted.empty() || wanted == bank.type) banks.emplace_back(bank.rail);
    return banks;
  };
  static const std::vector<std::string> all = list(""), fast = list("HP"), dense = list("HD");
  if (type == "HP") return fast;
  return type == "HD" ? dense : all;
}

}  // namespace

void KVXESomIoTab::init() {
  initTables();
  initBankSuppliesTable();
}

std::vector<KVXEColumn> KVXESomIoTab::bankColumns() const {
  return {kvxe::column::choice(m_Bank, bankNames, "",
                               "<html>The bank of the module in which the pins are, by its supply.\n"
                               "All interfaces of a bank need standards of one voltage.</html>",
                               &updateBank)};
}

void KVXESomIoTab::initBankSuppliesTable() {
  const KVXEColumn columns[] = {
      {.title = &m_BankSupplyRail, .type = CellType::STRING, .toolTip = "The supply of a bank."},
      {.title = &m_BankSupplyVoltage,
       .type = CellType::FLOAT,
       .formula = &updateBankSupplies,
       .unit = Unit::VOLTAGE_SHOW,
       .toolTip = "The voltage that the standards in the bank need; blank for an unused bank."},
      {.title = &m_BankSupplyCurrent,
       .type = CellType::FLOAT,
       .formula = &updateBankSupplies,
       .unit = Unit::CURRENT_SHOW,
       .toolTip = "The current that the interfaces in the bank draw, far ends included."},
  };
  KVXETable* table =
      createTable(&m_BankSuppliesTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  for (const ModuleBank& bank : moduleBanks)
    table->getOrCreateRow(table->getRowCount())
        ->getCell(&m_BankSupplyRail)
        ->setValAndMarkEngineClean(std::string(bank.rail));
}

void KVXESomIoTab::updateBank(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_IoConfigTable, "banks of the module")) return;
  offerInCell(uid, banksOfType(readText(uid.getRow(), m_IoType)));
}

void KVXESomIoTab::updatePinsInBank(const KVXEUID& uid) {
  updateTotalPins(uid);
  const std::string& bank = readText(uid.getRow(), m_Bank);
  const float volts = kvxe::readNumber(uid.getRow(), m_BankVoltage, 0.0f);
  const auto known = std::find(std::begin(bankNames), std::end(bankNames), bank);
  float first = 0.0f;
  if (known != std::end(bankNames) && volts > 0.0f) {
    const auto row = static_cast<unsigned int>(known - std::begin(bankNames)) + 1;
    uid.getTab()->getTable(&m_BankSuppliesTable)->getCellAt(row, &m_BankSupplyVoltage)->getVal(first, true);
  }
  if (first > 0.0f && isOtherVoltage(first, volts)) {
    uid.getCell()->setMsg(KvxSeverity::WARNING, otherVoltageMsg);
  } else {
    uid.getCell()->clearMsg();
  }
}

void KVXESomIoTab::readDemands() {
  const KVXETable& interfaces = *getTable(&m_IoConfigTable);
  const unsigned int bankColumn = interfaces.findTitle(&m_Bank);
  m_demands.clear();
  for (unsigned int i = 1; i < interfaces.getRowCount(); ++i) {
    const std::string& bank =
        static_cast<KVXEStringCell*>(interfaces.getCellAt(i, bankColumn))->readVal(true);
    if (bank.empty()) continue;
    KVXERow* row = interfaces.getRow(i);
    const float volts = kvxe::readNumber(row, m_BankVoltage, 0.0f);
    if (volts <= 0.0f) continue;
    BankDemand& demand = m_demands[bank];
    if (demand.volts <= 0.0f) demand.volts = volts;
    const double watts = static_cast<double>(kvxe::readNumber(row, m_VccoPower, 0.0f)) +
                         static_cast<double>(kvxe::readNumber(row, m_OffChipPower, 0.0f));
    demand.amperes += watts / static_cast<double>(volts);
  }
}

void KVXESomIoTab::updateBankSupplies(const KVXEUID& uid) {
  if (!kvxe::isInTable(uid, m_BankSuppliesTable, "supplies of banks")) return;
  auto* tab = static_cast<KVXESomIoTab*>(uid.getTab());
  KVXECell* run = uid.getTable()->getCellAt(1, &m_BankSupplyVoltage);
  if (float volts = 0.0f; uid.getCell() == run) {
    tab->readDemands();
  } else {
    run->getVal(volts, true);
  }
  const auto found = tab->m_demands.find(readText(uid.getRow(), m_BankSupplyRail));
  if (found == tab->m_demands.end()) return uid.getCell()->setBlankAndMarkEngineClean();
  const BankDemand& demand = found->second;
  if (uid.getCell() != uid.getRow()->getCell(&m_BankSupplyVoltage))
    return uid.getCell()->setValAndMarkEngineClean(static_cast<float>(demand.amperes));
  uid.getCell()->setValAndMarkEngineClean(demand.volts);
}
