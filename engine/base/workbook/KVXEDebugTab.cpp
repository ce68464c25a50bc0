#include "engine/base/workbook/KVXEDebugTab.h"

#include <iostream>

#include "engine/base/workbook/KVXERow.h"
#include "models/common/KVXMHelperUtils.h"

using enum KVXEEnums::CellType;

const KVXETitle KVXEDebugTab::m_APIDemoTable("API_DEMO", "API Demo");
const KVXETitle KVXEDebugTab::m_DemoName("NAME", "Name");
const KVXETitle KVXEDebugTab::m_DemoChoice("CHOICE", "Choice");
const KVXETitle KVXEDebugTab::m_DemoInput("INPUT", "Input");
const KVXETitle KVXEDebugTab::m_DemoResult("RESULT", "Result");

void KVXEDebugTab::init() {
  static const char* const choices[] = {"single", "double"};
  static const KVXEColumn columns[] = {
      {.title = &m_DemoName, .type = STRING, .isEditable = true, .toolTip = "Any text."},
      {.title = &m_DemoChoice,
       .type = STRING,
       .isEditable = true,
       .text = "single",
       .isDropdown = true,
       .entries = choices,
       .toolTip = "What the result makes of the input."},
      {.title = &m_DemoInput,
       .type = INT,
       .isEditable = true,
       .number = 2000,
       .minimum = 0,
       .maximum = 100000,
       .toolTip = "A number. It decides the severity of this tab."},
      {.title = &m_DemoResult,
       .type = INT,
       .formula = &updateDemoResult,
       .toolTip = "The input, once or twice."},
  };
  KVXETable* table = createTable(&m_APIDemoTable, true, false, true, KVXEEnums::GridComponentType::TABLE);
  table->addColumns(columns);
  table->getOrCreateRow(5);
  table->setHasTableEditingFeatures(true);
}

int KVXEDebugTab::getTabSeverity() {
  const KVXETable* table = getTable(&m_APIDemoTable);
  KVXECell* cell = table ? table->getCellAt(1, &m_DemoInput) : nullptr;
  int input = 0;
  if (!cell || !cell->getVal(input, false)) return 0;
  if (input == 0) return 3;
  return input < 1001 ? 2 : 0;
}

void KVXEDebugTab::updateDemoResult(const KVXEUID& uid) {
  if (uid.getTable()->getTableTitle() != &m_APIDemoTable) {
    std::cout << "Error: error occured in updating API demo table." << '\n';
    return;
  }
  int input = 0;
  std::string choice;
  uid.getRow()->getCell(&m_DemoChoice)->getVal(choice, true);
  if (!uid.getRow()->getCell(&m_DemoInput)->getVal(input, true))
    return uid.getCell()->setBlankAndMarkEngineClean();
  const int again = choice == "double" ? input : 0;
  uid.getCell()->setValAndMarkEngineClean(KVXMHelperUtils::SUM(std::vector<int>{input, again}));
}
