// Reads the engine's book for the tests of the front end's side, past all that goes over the wire.

#include <jni.h>

#include <bit>
#include <string>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/base/workbook/KVXEViewer.h"

namespace {

template <class T>
std::string displayValue(KVXECell& cell, char kind) {
  T value{};
  if (!cell.getVal(value, false)) return "";
  cell.unitAdjustment(value, true);
  if constexpr (std::is_same_v<T, std::string>) {
    return kind + value;
  } else if constexpr (std::is_same_v<T, float>) {
    return kind + std::to_string(std::bit_cast<int>(value));
  } else {
    return kind + std::to_string(value);
  }
}

/// What the screen shows, headed by its type; floats as the bits that they are. Empty for a blank cell.
std::string displayValue(KVXECell& cell) {
  switch (cell.getCellType()) {
    case KVXEEnums::CellType::INT:
      return displayValue<int>(cell, 'i');
    case KVXEEnums::CellType::FLOAT:
      return displayValue<float>(cell, 'f');
    default:
      return displayValue<std::string>(cell, 's');
  }
}

bool isShown(const KVXETab* tab) {
  return tab && tab->getIsEnabled() && KVXEViewer::sees(tab->getVisibility());
}

bool isShown(KVXETable* table) {
  const auto [rows, columns] = table->getPrintableArea();
  return table->getPBGridViewType() == KVXEEnums::GridComponentType::TABLE &&
         table->getChartViewKind() != 1 && KVXEViewer::sees(table->getVisibility()) && rows > 0 &&
         columns > 0;
}

void append(std::string& text, const std::string& place, KVXETable& table) {
  int rows = 0;
  for (unsigned int index = 1; index < table.getRowCount(); ++index) {
    KVXERow* row = table.getRow(index);
    int screen = 0;
    if (!row->hasPlaceOnScreen() || !table.engineToGuiIndex(index, screen)) continue;
    ++rows;
    for (unsigned int column = 0; column < row->getColumnCount(); ++column) {
      const std::string value = displayValue(*row->getCell(column));
      if (value.empty()) continue;
      text += place + '\t' + std::to_string(screen) + '\t' + std::to_string(column) + '\t' + value + '\0';
    }
  }
  text += place + '\t' + std::to_string(rows) + " rows" + '\0';
}

std::string readBook() {
  std::string text;
  const KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
  for (unsigned int t = 0; book && t < book->getTabCount(); ++t) {
    const KVXETab* tab = book->getTab(t);
    if (!isShown(tab)) continue;
    for (unsigned int i = 0; i < tab->getTableCount(); ++i) {
      KVXETable* table = tab->getTable(i);
      if (isShown(table)) append(text, std::to_string(t) + '\t' + std::to_string(i), *table);
    }
  }
  return text;
}

}  // namespace

/// Each cell on screen that is not blank: tab, table, screen row, column and value; each table: its rows. The
/// entries end in a NUL.
extern "C" JNIEXPORT jbyteArray JNICALL Java_ui_data_kvx_test_Probe_readBook(JNIEnv* environment, jclass) {
  const std::string text = readBook();
  const auto size = static_cast<jsize>(text.size());
  jbyteArray bytes = environment->NewByteArray(size);
  if (bytes) environment->SetByteArrayRegion(bytes, 0, size, reinterpret_cast<const jbyte*>(text.data()));
  return bytes;
}
