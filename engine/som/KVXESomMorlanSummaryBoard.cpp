// The board around the device: what loads it, where it gets warm, and what it wants from the carrier card.

#include "engine/base/tabs/KVXEPowerDesignTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/som/KVXESomForeignCell.h"
#include "engine/som/KVXESomMorlanSummaryTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "models/morlan/KVXMMorlanSM4.h"
#include "models/morlan/KVXMMorlanSM6.h"
#include "models/morlan/SomBoardPower.h"

using kvxe::ForeignCell;
using KVXEEnums::TabType;
using kvxm::BoardComponent;
using kvxm::BoardKey;
using Tab = KVXESomMorlanSummaryTab;

namespace {

const char* const somName = "Som Summary Table";

std::optional<float> numberIn(KVXECell* cell) {
  float value = 0.0f;
  if (!cell || !cell->getVal(value, true)) return std::nullopt;
  return value;
}

}  // namespace

// Input of the board's model.

namespace {

enum class Side { Logic, Processors };

/// Which slot of the model a rail of the device counts to: the first rule whose prefix and part fit. The
/// rails of the logic's IO banks come from the carrier card, and the battery feeds its rail past the board's
/// input.
struct RailRule {
  std::string_view prefix;
  std::string_view part;
  Side side;
  int slot;
};
constexpr int noSlot = 0;
constexpr RailRule railRules[] = {
    {"VCCINTVCU", "", Side::Logic, BoardKey::VCU_POWER},
    {"VCCINTIO", "", Side::Logic, BoardKey::PL_IO_CORE_POWER},
    {"VCCINT", "", Side::Logic, BoardKey::PL_CORE_POWER},
    {"VCCRAM", "", Side::Logic, BoardKey::PL_RAM_POWER},
    {"VCCPSINT", "", Side::Processors, BoardKey::PS_CORE_POWER},
    {"VCCPSPLL", "", Side::Processors, BoardKey::PS_PLL_POWER},
    {"VCCPS", "", Side::Processors, BoardKey::PS_AUX_POWER},
    {"VCCOPSDDR", "", Side::Processors, BoardKey::PS_DDR_POWER},
    {"VCCOPS", "", Side::Processors, BoardKey::PS_IO_POWER},
    {"VPSMXCVR", "AVCC", Side::Processors, BoardKey::XCVRE_AVCC_POWER},
    {"VPSMXCVR", "", Side::Processors, BoardKey::XCVRE_AVTT_POWER},
    {"MXCVR", "VCCAUX", Side::Logic, BoardKey::XCVRB_AUX_POWER},
    {"MXCVR", "AVCC", Side::Logic, BoardKey::XCVRB_AVCC_POWER},
    {"MXCVR", "", Side::Logic, BoardKey::XCVRB_AVTT_POWER},
    {"VCCBATT", "", Side::Logic, noSlot},
    {"VCCO", "", Side::Logic, BoardKey::PL_BANK_POWER},
    {"", "", Side::Logic, BoardKey::PL_AUX_POWER},
};

const RailRule& ruleOf(std::string_view rail) {
  for (const RailRule& rule : railRules)
    if (rail.starts_with(rule.prefix) && rail.find(rule.part) != rail.npos) return rule;
  return std::end(railRules)[-1];
}

/// Adds what the device draws from the rails of one side.
void addRails(const KVXEUID& uid, kvxm::Record& params, Side side) {
  const KVXETable* table = uid.getBook()->getTable(TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable);
  for (unsigned int i = 1; table && i < table->getRowCount(); ++i) {
    std::string rail;
    if (!table->getCellAt(i, &KVXETab::m_internalSupplyColumn)->getVal(rail, true)) continue;
    const RailRule& rule = ruleOf(rail);
    if (rule.side != side || rule.slot == noSlot) continue;
    const auto amps = numberIn(table->getCellAt(i, &KVXETab::m_totalCurrentColumn));
    const auto volts = numberIn(table->getCellAt(i, &KVXETab::m_voltageColumn));
    if (amps && volts) *params.findFloat(rule.slot) += *amps * *volts;
  }
  if (side != Side::Logic) return;
  // What terminations burn elsewhere is drawn from the banks' supplies, but does not heat the device.
  float& bankWatts = *params.findFloat(BoardKey::PL_BANK_POWER);
  bankWatts = std::max(0.0f, bankWatts - KVXEPowerDesignTab::getOffChipPower(uid));
}

/// A row of the table of interfaces: the slot that takes its count, and the most that the board has.
struct Interface {
  const std::string* text;
  const char* toolTip;
  int slot;
  int most;
};
const Interface interfaces[] = {
    {&Tab::m_qspiStr, "QSPI flash in use.", BoardKey::QSPI_COUNT, 1},
    {&Tab::m_emmcSd0Str, "eMMC in use, or SD0 in its place.", BoardKey::EMMC_COUNT, 1},
    {&Tab::m_spiStr, "SPI controller in use, with the trusted platform module.", BoardKey::SPI_COUNT, 1},
    {&Tab::m_i2cStr, "I2C controller in use, with the EEPROM.", BoardKey::I2C_COUNT, 1},
    {&Tab::m_usbStr, "USB controller in use.", BoardKey::USB_COUNT, 1},
    {&Tab::m_gpiosStr, "Groups of GPIOs in use.", BoardKey::GPIO_COUNT, 3},
    {&Tab::m_gpioLedsStr, "LEDs that GPIOs drive.", BoardKey::GPIO_LED_COUNT, 3},
    {&Tab::m_dualGemStr, "Ethernet controllers in use.", BoardKey::GEM_COUNT, 3},
    {&Tab::m_bank50xStr, "Further IO banks of the processing system in use.", BoardKey::PS_BANK_COUNT, 3},
};

void readInterface(const KVXEUID& uid, kvxm::Record& params, const Interface& interface) {
  KVXECell* cell = uid.getBook()->lookup<std::string>(TabType::SUMMARY, &Tab::m_IoIntfTable, *interface.text,
                                                      &Tab::m_IoKey, &Tab::m_IoValue, false);
  int count = 0;
  if (cell && cell->getVal(count, true)) *params.findInt(interface.slot) = count;
}

bool isEmmc(const Interface& interface) {
  return interface.slot == BoardKey::EMMC_COUNT;
}

// The memory interface, as the tab of the processing system has it.
constexpr ForeignCell memoryType{TabType::PS, "PS_MEMORY_INTERFACE", "Memory Type", "OPTION", "SELECTION"};
constexpr ForeignCell memoryWidth{TabType::PS, "PS_MEMORY_INTERFACE", "Data Width", "OPTION", "SELECTION"};
constexpr ForeignCell memoryRate{TabType::PS, "PS_MEMORY_INTERFACE", "Data Rate", "OPTION", "SELECTION"};
constexpr ForeignCell memoryActivity{TabType::PS, "PS_MEMORY_INTERFACE", "Activity", "OPTION", "SELECTION"};

}  // namespace

void KVXESomMorlanSummaryTab::updateSomPlParams(const KVXEUID& uid, kvxm::Record& params) {
  addRails(uid, params, Side::Logic);
}

void KVXESomMorlanSummaryTab::updateSomPsParams(const KVXEUID& uid, kvxm::Record& params) {
  addRails(uid, params, Side::Processors);
  for (const Interface& interface : interfaces)
    if (!isEmmc(interface)) readInterface(uid, params, interface);
}

void KVXESomMorlanSummaryTab::updateSomDdrParams(const KVXEUID& uid, kvxm::Record& params) {
  const KVXEBook& book = *uid.getBook();
  std::string type;
  KVXECell* choice = kvxe::findCell(book, memoryType);
  if (choice && choice->getVal(type, true) && type == "None") return;
  int bits = 0;
  if (KVXECell* cell = kvxe::findCell(book, memoryWidth); cell && cell->getVal(bits, true))
    *params.findInt(BoardKey::MEMORY_WIDTH) = bits;
  *params.findFloat(BoardKey::MEMORY_RATE) = numberIn(kvxe::findCell(book, memoryRate)).value_or(0.0f);
  *params.findFloat(BoardKey::MEMORY_ACTIVITY) =
      numberIn(kvxe::findCell(book, memoryActivity)).value_or(0.0f);
}

void KVXESomMorlanSummaryTab::updateSomEmmcParams(const KVXEUID& uid, kvxm::Record& params) {
  for (const Interface& interface : interfaces)
    if (isEmmc(interface)) readInterface(uid, params, interface);
}

void KVXESomMorlanSummaryTab::getSomParams(const KVXEUID& uid, kvxm::Record& params) {
  updateSomPlParams(uid, params);
  updateSomPsParams(uid, params);
  updateSomDdrParams(uid, params);
  updateSomEmmcParams(uid, params);
}

std::unique_ptr<kvxm::Record> KVXESomMorlanSummaryTab::runBoard(const KVXEUID& uid) {
  const auto run = [&uid](auto params, const auto& model) -> std::unique_ptr<kvxm::Record> {
    getSomParams(uid, *params);
    model.calculate(*params);
    return params;
  };
  if (isSM4(uid)) return run(std::make_unique<KVXMMorlanSM4Params>(), KVXMMorlanSM4Model::getGlobal());
  return run(std::make_unique<KVXMMorlanSM6Params>(), KVXMMorlanSM6Model::getGlobal());
}

// Interfaces.

void KVXESomMorlanSummaryTab::initIoInterfaceTable() {
  const KVXEColumn columns[] = {
      {.title = &m_IoKey, .type = KVXEEnums::CellType::STRING},
      {.title = &m_IoValue,
       .type = KVXEEnums::CellType::INT,
       .isEditable = true,
       .number = 0,
       .isDropdown = true,
       .toolTip = "How many of the interface are in use."},
  };
  KVXETable* table = createTable(&m_IoIntfTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  for (const Interface& interface : interfaces) {
    KVXERow* row = kvxe::addFixedRow(
        *table, m_IoKey, m_IoValue,
        {.text = interface.text, .toolTip = interface.toolTip, .isEditable = true, .number = 0});
    std::vector<int> counts;
    for (int count = 0; count <= interface.most; ++count) counts.push_back(count);
    row->getCell(&m_IoValue)->setDDValsAndMarkEngineClean(counts);
  }
}

// Thermal loading. Every row runs the model by itself: it then depends on what the model reads, and on no
// other row.

void KVXESomMorlanSummaryTab::updateHeat(const KVXEUID& uid, const KVXETitle& table,
                                         BoardComponent component) {
  if (!isInTable(uid, {&table}, somName)) return;
  const auto result = runBoard(uid);
  KVXECell* cell = uid.getCell();
  cell->setValAndMarkEngineClean(*result->findFloat(BoardKey::heatOf(component)));
  const std::string violations = violationsOf(uid, *result, &component);
  if (violations.empty()) return cell->clearMsg();
  cell->setMsg(KvxSeverity::ERROR, violations);
}

void KVXESomMorlanSummaryTab::updateSomFpgaPower(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::CHIP);
}
void KVXESomMorlanSummaryTab::updateSomDdrPower(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::MEMORY);
}
void KVXESomMorlanSummaryTab::updateU170Power(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::U170);
}
void KVXESomMorlanSummaryTab::updateU167Power(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::U167);
}
void KVXESomMorlanSummaryTab::updateU166Power(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::U166);
}
void KVXESomMorlanSummaryTab::updateU151Power(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::U151);
}
void KVXESomMorlanSummaryTab::updateU165Power(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::U165);
}
void KVXESomMorlanSummaryTab::updatePcbPower(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::PCB);
}
void KVXESomMorlanSummaryTab::updateSomEmmcPower(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTable, BoardComponent::EMMC);
}
void KVXESomMorlanSummaryTab::updateSomFpgaPowerSM4(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::CHIP);
}
void KVXESomMorlanSummaryTab::updateSomLpddrPower(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::MEMORY);
}
void KVXESomMorlanSummaryTab::updateU170PowerSM4(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::U170);
}
void KVXESomMorlanSummaryTab::updateU167PowerSM4(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::U167);
}
void KVXESomMorlanSummaryTab::updatePcbPowerSM4(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::PCB);
}
void KVXESomMorlanSummaryTab::updateSomEmmcPowerSM4(const KVXEUID& uid) {
  updateHeat(uid, m_ThermalLoadingTableSM4, BoardComponent::EMMC);
}

// Requirements on the carrier card.

namespace {

/// A supply that the carrier card gives. A voltage or range that the board fixes stands here, other voltages
/// and currents are those of the IO banks.
struct CarrierSupply {
  const std::string* rail;
  const char* voltage;
  const char* range;
  const char* toolTip;
};
const char* const highPerformanceRange = "1.0 - 1.8 V";
const char* const highDensityRange = "1.2 - 3.3 V";
const char* const bankToolTip = "Supply of an IO bank of the programmable logic.";
const CarrierSupply carrierSupplies[] = {
    {&Tab::m_vccSomStr, "5.0 V", "4.750 - 5.250 V", "Supply of the board: all of its regulators."},
    {&Tab::m_vccoHpaStr, "", highPerformanceRange, bankToolTip},
    {&Tab::m_vccoHpbStr, "", highPerformanceRange, bankToolTip},
    {&Tab::m_vccoHpcStr, "", highPerformanceRange, bankToolTip},
    {&Tab::m_vccoHdaStr, "", highDensityRange, bankToolTip},
    {&Tab::m_vccoHdbStr, "", highDensityRange, bankToolTip},
    {&Tab::m_vccoHdcStr, "", highDensityRange, bankToolTip},
    {&Tab::m_vccBattStr, "1.2 - 1.5 V", "", "Supply of the battery domain. Optional."},
};

/// The supply of the formula's row; the rows are made from the list, in its order.
const CarrierSupply& supplyOf(const KVXEUID& uid) {
  return carrierSupplies[uid.getRowIndex() - 1];
}

/// What the IO tab says of a bank's supply; nothing without one.
std::optional<float> bankValue(const KVXEUID& uid, const char* column) {
  return numberIn(kvxe::findCell(
      *uid.getBook(), {TabType::IO, "BANK_SUPPLIES", supplyOf(uid).rail->c_str(), "RAIL", column}));
}

}  // namespace

void KVXESomMorlanSummaryTab::initVCRequirementsTable() {
  using enum KVXEEnums::CellType;
  const KVXEColumn columns[] = {
      {.title = &m_BankRail, .type = STRING, .formula = &updateBankRail},
      {.title = &m_BankVoltage, .type = STRING, .formula = &updateBankVoltage},
      {.title = &m_BankCurrent,
       .type = FLOAT,
       .formula = &updateBankCurrent,
       .unit = KVXEEnums::Unit::CURRENT_SHOW},
      {.title = &m_BankVoltageRange, .type = STRING, .formula = &updateVoltageRange},
  };
  KVXETable* table =
      createTable(&m_VCRequirementsTable, false, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  table->setMsg(KvxSeverity::INFO, "Summary table of the required " + productName() +
                                       " voltage and current specifications required from the carrier card");
  for (const CarrierSupply& supply : carrierSupplies) {
    KVXECell* rail = table->getOrCreateRow(table->getRowCount())->getCell(&m_BankRail);
    rail->setValAndMarkEngineClean(*supply.rail);
    rail->setMsg(KvxSeverity::INFO, supply.toolTip);
  }
}

void KVXESomMorlanSummaryTab::updateBankRail(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_VCRequirementsTable}, somName)) return;
  uid.getCell()->setValAndMarkEngineClean(*supplyOf(uid).rail);
}

void KVXESomMorlanSummaryTab::updateBankVoltage(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_VCRequirementsTable}, somName)) return;
  std::string text = supplyOf(uid).voltage;
  const auto volts = text.empty() ? bankValue(uid, "VOLTAGE") : std::nullopt;
  if (volts) text = KVXMHelperUtils::formatFixed(*volts, 3) + " V";
  uid.getCell()->setValAndMarkEngineClean(text);
}

void KVXESomMorlanSummaryTab::updateBankCurrent(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_VCRequirementsTable}, somName)) return;
  std::optional<float> amps = bankValue(uid, "CURRENT");
  if (supplyOf(uid).rail == &m_vccSomStr) {
    const auto result = runBoard(uid);
    const float volts = *result->findFloat(BoardKey::INPUT_VOLTAGE);
    if (volts > 0.0f) amps = *result->findFloat(BoardKey::INPUT_POWER) / volts;
  }
  if (amps) return uid.getCell()->setValAndMarkEngineClean(*amps);
  uid.getCell()->setBlankAndMarkEngineClean();
}

/// The range of the board's own supply tells everything that the board cannot deliver.
void KVXESomMorlanSummaryTab::updateVoltageRange(const KVXEUID& uid) {
  if (!isInTable(uid, {&m_VCRequirementsTable}, somName)) return;
  KVXECell* cell = uid.getCell();
  cell->setValAndMarkEngineClean(std::string(supplyOf(uid).range));
  if (supplyOf(uid).rail != &m_vccSomStr) return;
  const std::string violations = violationsOf(uid, *runBoard(uid), nullptr);
  if (violations.empty()) return cell->clearMsg();
  cell->setMsg(KvxSeverity::ERROR, violations);
}
