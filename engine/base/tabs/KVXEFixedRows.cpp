#include "engine/base/tabs/KVXEFixedRows.h"

#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETable.h"

namespace kvxe {

namespace {

std::string toolTipOf(const KVXEFixedRow& declaration, const std::string& product) {
  std::string text =
      declaration.toolTip == KVXEFixedRow::SameAsText ? *declaration.text : declaration.toolTip;
  if (const size_t at = text.find("{}"); at != std::string::npos) text.replace(at, 2, product);
  return text;
}

}  // namespace

KVXERow* addFixedRow(KVXETable& table, const KVXETitle& textColumn, const KVXETitle& valueColumn,
                     const KVXEFixedRow& declaration, const std::string& product) {
  table.getOrCreateHeaderRow();
  table.setPilotColumnTitle(&textColumn);  // other releases may have the rows in another order
  KVXERow* row = table.getOrCreateRow(table.getRowCount());
  KVXECell* text = row->getCell(&textColumn);
  text->setValAndMarkEngineClean(*declaration.text);
  if (const std::string toolTip = toolTipOf(declaration, product); !toolTip.empty())
    text->setMsg(KvxSeverity::INFO, toolTip);

  KVXECell* value = row->getCell(&valueColumn);
  value->setIsEditable(declaration.isEditable);
  value->assignFormula(declaration.formula);
  value->setUnit(declaration.unit);
  if (declaration.number == declaration.number) {
    value->setValAndState(static_cast<float>(declaration.number), KVXEEnums::CellState::DIRTY_DISABLED);
    value->setValueSource(KVXEEnums::ValueSource::DEFAULT);
  }
  return row;
}

void addFixedRows(KVXETable& table, const KVXETitle& textColumn, const KVXETitle& valueColumn,
                  std::span<const KVXEFixedRow> rows, const std::string& product) {
  for (const KVXEFixedRow& row : rows) addFixedRow(table, textColumn, valueColumn, row, product);
}

}  // namespace kvxe
