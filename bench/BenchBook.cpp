#include "bench/BenchBook.h"

#include "engine/base/calculation/KVXECalculationMgr.h"
#include "engine/base/config/ClockTag.h"
#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "models/tarvek/KVXMTarvekCleLogic.h"
#include "models/tarvek/KVXMTarvekSignal.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::TabType;
using KVXEEnums::Unit;

namespace {

// A table in the shape of a block memory's: names, counts, modes, two ports with clocks and rates, three
// powers.
const KVXETitle Config("STAND_IN"), Name("NAME"), Count("COUNT"), Mode("MODE"), Toggle("TOGGLE_RATE"),
    ClockA("PORT_A_CLOCK"), EnableA("PORT_A_ENABLE"), WidthA("PORT_A_WIDTH"), WriteA("PORT_A_WRITE"),
    ClockB("PORT_B_CLOCK"), EnableB("PORT_B_ENABLE"), WidthB("PORT_B_WIDTH"), WriteB("PORT_B_WRITE"),
    Vccint("VCCINT_POWER"), Vccram("VCCRAM_POWER"), Power("POWER"), Comments("USER_COMMENTS");

struct StandInRow {
  int count = 0;
  float toggle = 0, enableA = 0, enableB = 0, writeA = 0, writeB = 0, megahertz = 0, volts = 0;
  std::string device = {};
};

double calculatePower(const StandInRow& row) {
  using F = KVXMTarvekCleLogicParams::FloatEnum;
  KVXMTarvekCleLogicParams params;
  params[KVXMTarvekCleLogicParams::StringEnum::DEVICE] = row.device;
  params[KVXMTarvekCleLogicParams::IntEnum::LUT_RAM] = row.count;
  params[KVXMTarvekCleLogicParams::IntEnum::REGISTERS] = row.count;
  params[F::FREQUENCY] = row.megahertz;
  params[F::TOGGLE_RATE] = row.toggle * (row.enableA + row.enableB) * 0.5f * (1.0f + row.writeA * row.writeB);
  params[F::VCCINT] = row.volts;
  KVXMTarvekCleLogicModel::getGlobal().calculate(params);
  return params[F::VCCINT_POWER];
}

float megahertzOf(const std::string& tag) {
  const auto clock = kvxe::ClockTag::parse(tag);
  return clock ? clock->megahertz : 0.0f;
}

void updateStandInRow(const KVXEUID& uid) {
  KVXERow* cells = uid.getRow();
  const auto number = [cells](const KVXETitle& title) {
    float value = 0.0f;
    return cells->getCell(&title)->getVal(value, true) ? value : 0.0f;
  };
  const auto text = [cells](const KVXETitle& title) {
    std::string value;
    cells->getCell(&title)->getVal(value, true);
    return value;
  };
  StandInRow row{.count = static_cast<int>(number(Count)),
                 .toggle = number(Toggle),
                 .enableA = number(EnableA),
                 .enableB = number(EnableB),
                 .writeA = number(WriteA),
                 .writeB = number(WriteB)};
  text(Mode);
  number(WidthA);
  number(WidthB);
  row.megahertz = (megahertzOf(text(ClockA)) + megahertzOf(text(ClockB))) / 2;
  row.device = KVXETab::getDeviceName(uid);
  KVXECell* volts = uid.getTab()->lookup<std::string>(
      &KVXETab::m_PowerTable, "VCCINT", &KVXETab::m_InternalRailColumn, &KVXETab::m_VoltageColumn, false);
  volts->getVal(row.volts, true);
  const auto watts = static_cast<float>(calculatePower(row));
  cells->getCell(&Vccint)->setValAndMarkEngineClean(0.75f * watts);
  cells->getCell(&Vccram)->setValAndMarkEngineClean(0.25f * watts);
  cells->getCell(&Power)->setValAndMarkEngineClean(watts);
}

template <const KVXETitle& Column>
void updateRail(const KVXEUID& uid) {
  uid.getCell()->setValAndMarkEngineClean(uid.getTab()->sumColumn(&Config, &Column));
}

template <class T>
void enter(KVXECell* cell, const T& value) {
  cell->setValAndState(value, CellState::DIRTY_DIRTY);
  cell->setValueSource(KVXEEnums::ValueSource::USER);
}

constexpr float toggleOf(unsigned int row) {
  return 0.1f + 0.0001f * static_cast<float>(row);
}

}  // namespace

BenchBook::BenchBook(unsigned int rows) : m_rows(rows) {
  KVXEPartSelection::resetToDefaultPart();
  KVXEPartSelection::getGlobal()->redrawTabs(true);
  KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
  m_clocks = book->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable);
  m_logic = book->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
  fillClocks();
  fillLogic();
  for (const TabType type : {TabType::BRAM, TabType::WRAM, TabType::DSP}) makeStandIn(type);
}

BenchBook::~BenchBook() {
  KVXEBookMgr::getGlobal().closeProject();
}

void BenchBook::fillClocks() {
  for (unsigned int i = 1; i <= Clocks; ++i) {
    const std::string name = "clk_" + std::to_string(i);
    const float megahertz = 100.0f + 10.0f * static_cast<float>(i);
    enter(m_clocks->getCellAt(i, &KVXEClockTab::m_Name), name);
    enter(m_clocks->getCellAt(i, &KVXEClockTab::m_ClockFreq), megahertz);
    enter(m_clocks->getCellAt(i, &KVXEClockTab::m_Fanout), 1000);
    m_tags.push_back(kvxe::ClockTag::construct(name, megahertz));
  }
}

void BenchBook::fillLogic() {
  m_logic->getOrCreateRow(m_rows);
  for (unsigned int i = 1; i <= m_rows; ++i) {
    enter(m_logic->getCellAt(i, &KVXELogicTab::m_Name), "module_" + std::to_string(i));
    enter(m_logic->getCellAt(i, &KVXELogicTab::m_Clock), m_tags[i % Clocks]);
    enter(m_logic->getCellAt(i, &KVXELogicTab::m_LutAsLogic), 100);
    enter(m_logic->getCellAt(i, &KVXELogicTab::m_Registers), 200);
    enter(m_logic->getCellAt(i, &KVXELogicTab::m_ToggleRate), toggleOf(i));
  }
}

KVXETable* BenchBook::makeStandIn(TabType type) {
  static const KVXEColumn columns[] = {
      {.title = &Name, .type = CellType::STRING, .isEditable = true},
      {.title = &Count, .type = CellType::INT, .isEditable = true, .number = 4},
      {.title = &Mode, .type = CellType::STRING, .isEditable = true, .text = "BMEM36"},
      {.title = &Toggle,
       .type = CellType::FLOAT,
       .isEditable = true,
       .unit = Unit::PERCENTAGE_SHOW,
       .number = 0.125},
      {.title = &ClockA,
       .type = CellType::STRING,
       .isEditable = true,
       .formula = &KVXEClockTab::updateClockDropdown,
       .isDropdown = true},
      {.title = &EnableA,
       .type = CellType::FLOAT,
       .isEditable = true,
       .unit = Unit::PERCENTAGE_SHOW,
       .number = 0.25},
      {.title = &WidthA, .type = CellType::INT, .isEditable = true, .number = 36},
      {.title = &WriteA,
       .type = CellType::FLOAT,
       .isEditable = true,
       .unit = Unit::PERCENTAGE_SHOW,
       .number = 0.5},
      {.title = &ClockB,
       .type = CellType::STRING,
       .isEditable = true,
       .formula = &KVXEClockTab::updateClockDropdown,
       .isDropdown = true},
      {.title = &EnableB,
       .type = CellType::FLOAT,
       .isEditable = true,
       .unit = Unit::PERCENTAGE_SHOW,
       .number = 0.25},
      {.title = &WidthB, .type = CellType::INT, .isEditable = true, .number = 36},
      {.title = &WriteB,
       .type = CellType::FLOAT,
       .isEditable = true,
       .unit = Unit::PERCENTAGE_SHOW,
       .number = 0.5},
      {.title = &Vccint, .type = CellType::FLOAT, .formula = &updateStandInRow, .unit = Unit::POWER_SHOW},
      {.title = &Vccram, .type = CellType::FLOAT, .formula = &updateStandInRow, .unit = Unit::POWER_SHOW},
      {.title = &Power, .type = CellType::FLOAT, .formula = &updateStandInRow, .unit = Unit::POWER_SHOW},
      {.title = &Comments, .type = CellType::STRING, .isEditable = true},
  };
  KVXETab* tab = KVXEBookMgr::getGlobal().getCurrentBook()->getOrCreateTab(type);
  tab->setIsEnabled(true);
  KVXETable* table = tab->createTable(&Config, true, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  table->getOrCreateRow(m_rows);
  for (unsigned int i = 1; i <= m_rows; ++i) {
    enter(table->getCellAt(i, &Name), "block_" + std::to_string(i));
    enter(table->getCellAt(i, &Toggle), toggleOf(i));
    for (const KVXETitle* clock : {&ClockA, &ClockB}) enter(table->getCellAt(i, clock), m_tags[i % Clocks]);
  }
  if (!tab->getTable(&KVXETab::m_PowerTable)) {
    std::vector<KVXETab::PowerTableRow> rails = {{"VCCINT", &updateRail<Vccint>, &KVXECell::NoFormula},
                                                 {"VCCRAM", &updateRail<Vccram>, &KVXECell::NoFormula}};
    tab->initPowerTableRows(rails);
  }
  return table;
}

KVXECell* BenchBook::getToggleRate(unsigned int row) const {
  return m_logic->getCellAt(row, &KVXELogicTab::m_ToggleRate);
}

KVXECell* BenchBook::getClockFrequency(unsigned int clock) const {
  return m_clocks->getCellAt(clock, &KVXEClockTab::m_ClockFreq);
}

KVXECell* BenchBook::getVccint() const {
  return KVXEBookMgr::getGlobal().getCurrentBook()->lookup<std::string>(
      TabType::POWER_DESIGN, &KVXETab::m_powerSupplyTable, "VCCINT", &KVXETab::m_internalSupplyColumn,
      &KVXETab::m_voltageColumn, false);
}

KVXECell* BenchBook::getAmbient() const {
  return KVXEBookMgr::getGlobal().getCurrentBook()->lookup<std::string>(
      TabType::SUMMARY, &KVXESummaryTab::m_envTableHeader, "Ambient Temperature",
      &KVXESummaryTab::m_envTypeColumn, &KVXESummaryTab::m_envValColumn, false);
}

void BenchBook::settle() {
  KVXECalculationMgr::getGlobal().fullCalculate();
  KVXECellStateMgr::getGlobal().markGuiClean();
}

void BenchBook::edit(KVXECell* cell, float value) {
  enter(cell, value);
  KVXECalculationMgr::getGlobal().incrCalculate();
}

size_t BenchBook::countCells() const {
  std::vector<KVXECell*> cells;
  return KVXECellStateMgr::getGlobal().getAllCells(cells);
}

double BenchBook::evaluateStraight() const {
  double watts = 0.0;
  const std::string device = KVXEPartSelection::getGlobal()->getCurrentSetting(KVXEPartSelection::m_devStr);
  float volts = 0.0f;
  getVccint()->getVal(volts, false);
  for (unsigned int i = 1; i <= m_rows; ++i) {
    const float megahertz = 100.0f + 10.0f * static_cast<float>(i % Clocks + 1);
    const StandInRow row{.count = 4,
                         .toggle = toggleOf(i),
                         .enableA = 0.25f,
                         .enableB = 0.25f,
                         .writeA = 0.5f,
                         .writeB = 0.5f,
                         .megahertz = megahertz,
                         .volts = volts,
                         .device = device};
    for (int table = 0; table < 3; ++table) watts += calculatePower(row);
    KVXMTarvekCleLogicParams logic;
    logic[KVXMTarvekCleLogicParams::StringEnum::DEVICE] = device;
    logic[KVXMTarvekCleLogicParams::IntEnum::LUT_LOGIC] = 100;
    logic[KVXMTarvekCleLogicParams::IntEnum::REGISTERS] = 200;
    logic[KVXMTarvekCleLogicParams::FloatEnum::FREQUENCY] = megahertz;
    logic[KVXMTarvekCleLogicParams::FloatEnum::TOGGLE_RATE] = toggleOf(i);
    logic[KVXMTarvekCleLogicParams::FloatEnum::VCCINT] = volts;
    KVXMTarvekCleLogicModel::getGlobal().calculate(logic);
    KVXMTarvekSignalParams signal;
    signal[KVXMTarvekSignalParams::StringEnum::DEVICE] = device;
    signal[KVXMTarvekSignalParams::FloatEnum::FREQUENCY] = megahertz;
    KVXMTarvekSignalModel::getGlobal().calculate(signal);
    watts += logic[KVXMTarvekCleLogicParams::FloatEnum::VCCINT_POWER];
  }
  return watts;
}
