#include "clients/cli/BookSpelling.h"

#include <algorithm>

#include "clients/cli/Spelling.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETitle.h"

namespace kvx {

namespace {

using KVXEEnums::CellType;
using KVXEEnums::TitleType;
using KVXEEnums::Visibility;

bool isSpelledLike(const KVXETitle& title, std::string_view name) {
  for (const TitleType type :
       {TitleType::SW, TitleType::DISPLAY, TitleType::LVR, TitleType::KVX, TitleType::RP})
    if (isSameSpelling(title.getTag(type), name)) return true;
  return false;
}

/// The programmatic spelling in small letters, as sheets commonly write it.
std::string sheetName(const std::string& name) {
  std::string small = name;
  for (char& c : small) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return small;
}

std::string sheetName(const KVXETitle& title) {
  return sheetName(title.getTag(TitleType::SW));
}

/// Calls `visit(table)` for every table that the user sees, then for the others in reach, until one is
/// accepted.
template <class Accept>
KVXETable* firstTable(const KVXETab& tab, Accept accept, Reach reach = Reach::Shown) {
  for (const bool shown : {true, false})
    for (unsigned int i = 0; i < tab.getTableCount() && (shown || reach == Reach::All); ++i) {
      KVXETable* table = tab.getTable(i);
      if (isShown(*table) == shown && table->getTableTitle() && accept(*table)) return table;
    }
  return nullptr;
}

/// Words in small letters with "_" between them, without what stands in brackets: "Frequency (MHz)" gives
/// "frequency".
std::string snakeCase(const std::string& title) {
  std::string key;
  for (const char c : title.substr(0, title.find(" ("))) {
    const bool isWord =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    if (isWord) key += c;
    if (!isWord && !key.empty() && key.back() != '_') key += '_';
  }
  while (key.ends_with('_')) key.pop_back();
  return sheetName(key);
}

/// The first spelling of the title that `leadsBack`.
template <class LeadsBack>
std::string firstName(const KVXETitle& title, LeadsBack leadsBack) {
  for (const TitleType type : {TitleType::DISPLAY, TitleType::SW, TitleType::KVX, TitleType::LVR})
    if (const std::string name = snakeCase(title.getTag(type)); !name.empty() && leadsBack(name)) return name;
  return "";
}

bool isText(const KVXETable& table, unsigned int column) {
  return table.getColumnType(column) == CellType::STRING;
}

std::string textAt(const KVXETable& table, unsigned int row, unsigned int column) {
  KVXECell* cell = table.getCellAt(row, column);
  std::string text;
  if (cell) cell->getVal(text, true);
  return text;
}

}  // namespace

KVXETab* findTab(const KVXEBook& book, std::string_view name, Reach reach) {
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    KVXETab* tab = book.getTab(i);
    if (tab && (tab->getIsEnabled() || reach == Reach::All) && isSameSpelling(tab->getTypeAsStr(), name))
      return tab;
  }
  return nullptr;
}

std::vector<std::string> tabNames(const KVXEBook& book) {
  std::vector<std::string> names;
  for (unsigned int i = 0; i < book.getTabCount(); ++i) {
    const KVXETab* tab = book.getTab(i);
    if (tab && tab->getIsEnabled() && tab->getTableCount() > 0)
      names.push_back(sheetName(tab->getTypeAsStr()));
  }
  return names;
}

KVXETable* findTable(const KVXETab& tab, std::string_view name, Reach reach) {
  return firstTable(
      tab, [name](const KVXETable& table) { return isSpelledLike(*table.getTableTitle(), name); }, reach);
}

bool isShown(const KVXETable& table) {
  return table.getVisibility() == Visibility::EXTERNAL && table.getColumnCount() > 0;
}

KVXETable* findMainTable(const KVXETab& tab) {
  return firstTable(tab, [](const KVXETable& table) { return table.getHasTableEditingFeatures(); });
}

std::vector<std::string> tableNames(const KVXETab& tab) {
  std::vector<std::string> names;
  firstTable(tab, [&names](const KVXETable& table) {
    names.push_back(sheetName(*table.getTableTitle()));
    return false;
  });
  return names;
}

std::optional<unsigned int> findColumn(const KVXETable& table, std::string_view name) {
  std::optional<unsigned int> first;
  const KVXEHeaderRow* header = table.getHeaderRow();
  for (unsigned int column = 0; column < table.getColumnCount(); ++column) {
    const KVXETitle* title = header->getIndexToTitle(column);
    if (!title || title == &KVXETab::m_RowID || !isSpelledLike(*title, name)) continue;
    if (columnCell(table, column)->getIsEditable()) return column;
    if (!first) first = column;
  }
  return first;
}

std::vector<std::string> editableColumnNames(const KVXETable& table) {
  std::vector<std::string> names;
  for (unsigned int column = 0; column < table.getColumnCount(); ++column) {
    const KVXETitle* title = table.getHeaderRow()->getIndexToTitle(column);
    if (title && columnCell(table, column)->getIsEditable()) names.push_back(sheetName(*title));
  }
  return names;
}

std::string writtenName(const KVXETab& tab) {
  return sheetName(tab.getTypeAsStr());
}

std::string writtenName(const KVXETable& table) {
  return firstName(*table.getTableTitle(), [&table](const std::string& name) {
    return findTable(*table.getTab(), name, Reach::All) == &table;
  });
}

std::string writtenName(const KVXETable& table, unsigned int column) {
  const KVXETitle* title = table.getHeaderRow()->getIndexToTitle(column);
  if (!title) return "";
  return firstName(*title,
                   [&table, column](const std::string& name) { return findColumn(table, name) == column; });
}

bool isKeyColumn(const KVXETable& table, unsigned int column) {
  return isText(table, column) && !columnCell(table, column)->getIsEditable();
}

std::optional<unsigned int> findKeyColumn(const KVXETable& table) {
  for (unsigned int column = 0; column < table.getColumnCount(); ++column)
    if (isKeyColumn(table, column)) return column;
  return std::nullopt;
}

std::string columnTitle(const KVXETable& table, unsigned int column) {
  const KVXETitle* title = table.getHeaderRow()->getIndexToTitle(column);
  return title ? title->getTag(TitleType::DISPLAY) : "";
}

KVXECell* columnCell(const KVXETable& table, unsigned int column) {
  return table.getHeaderRow()->getDefaultCell(column);
}

unsigned int findRow(const KVXETable& table, unsigned int column, std::string_view text) {
  unsigned int hidden = 0;
  for (unsigned int row = 1; row < table.getRowCount(); ++row) {
    if (!isSameSpelling(textAt(table, row, column), text)) continue;
    if (table.getRow(row)->hasPlaceOnScreen()) return row;
    if (hidden == 0) hidden = row;
  }
  return hidden;
}

std::vector<std::string> columnTexts(const KVXETable& table, unsigned int column) {
  std::vector<std::string> texts;
  for (unsigned int row = 1; row < table.getRowCount(); ++row) {
    std::string text = textAt(table, row, column);
    if (!text.empty() && std::find(texts.begin(), texts.end(), text) == texts.end())
      texts.push_back(std::move(text));
  }
  return texts;
}

std::string rowName(const KVXETable& table, unsigned int row) {
  for (unsigned int column = 0; column < table.getColumnCount(); ++column) {
    if (!isText(table, column)) continue;
    std::string text = textAt(table, row, column);
    if (!text.empty()) return text;
  }
  return "row " + std::to_string(row);
}

std::vector<std::string> shownRowNames(const KVXETable& table) {
  std::vector<std::string> names;
  for (unsigned int row = 1; row < table.getRowCount(); ++row)
    if (table.getRow(row)->hasPlaceOnScreen()) names.push_back(rowName(table, row));
  return names;
}

}  // namespace kvx
