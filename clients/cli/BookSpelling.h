#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"

/// Finds the parts of a workbook by any spelling of their names. All knowledge of what a workbook contains
/// comes from the book itself, so a tab is usable the day it exists.
namespace kvx {

/// What is found: only what the user sees, or what the book holds besides (tabs of other devices, tables of
/// the engine's own).
enum class Reach { Shown, All };

/// A tab that the selected device has; null for any other name.
KVXETab* findTab(const KVXEBook& book, std::string_view name, Reach reach = Reach::Shown);
/// The names of the tabs that have a table to fill, as they are written in a sheet.
std::vector<std::string> tabNames(const KVXEBook& book);

/// A table of the tab that the user sees; null for any other name.
KVXETable* findTable(const KVXETab& tab, std::string_view name, Reach reach = Reach::Shown);
/// Whether the user sees the table.
bool isShown(const KVXETable& table);
/// The tab's first table whose rows the user makes; null when it has none.
KVXETable* findMainTable(const KVXETab& tab);
/// The names of the tables as they are written in a sheet.
std::vector<std::string> tableNames(const KVXETab& tab);

/// A column by any spelling; where several have it, the first that the user edits.
std::optional<unsigned int> findColumn(const KVXETable& table, std::string_view name);
/// The names of the columns that the user edits, as they are written in a sheet.
std::vector<std::string> editableColumnNames(const KVXETable& table);
/// The names by which a sheet refers to a tab, a table and a column, so that the functions above find them
/// again; those of the table and the column follow what the screen shows. Empty when no name leads there.
std::string writtenName(const KVXETab& tab);
std::string writtenName(const KVXETable& table);
std::string writtenName(const KVXETable& table, unsigned int column);
/// Whether the column holds texts that the user does not edit: in a table with fixed rows they name the rows.
bool isKeyColumn(const KVXETable& table, unsigned int column);
/// The first such column.
std::optional<unsigned int> findKeyColumn(const KVXETable& table);

/// The name of a column on screen.
std::string columnTitle(const KVXETable& table, unsigned int column);
/// The default cell of a column.
KVXECell* columnCell(const KVXETable& table, unsigned int column);

/// The first data row whose text in that column is a spelling of `text`; 0 when there is none. A row with a
/// place on screen is preferred.
unsigned int findRow(const KVXETable& table, unsigned int column, std::string_view text);
/// The texts of a column, without repetitions and blanks.
std::vector<std::string> columnTexts(const KVXETable& table, unsigned int column);
/// What a message calls the row: the text of its first text column, else its number.
std::string rowName(const KVXETable& table, unsigned int row);
/// The names of the rows that the user sees.
std::vector<std::string> shownRowNames(const KVXETable& table);

}  // namespace kvx
