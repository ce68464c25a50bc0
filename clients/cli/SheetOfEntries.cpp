// From the entries of a book to the sheet that says them.

#include <algorithm>

#include "clients/cli/BookEntries.h"
#include "clients/cli/EnvironmentTable.h"
#include "clients/cli/Spelling.h"

namespace kvx {

namespace {

class SheetMaker {
 public:
  explicit SheetMaker(const std::string& source) { m_sheet.place = {source, 0}; }

  Sheet make(const BookEntries& entries) {
    m_sheet.part = Assignment{"part", entries.part, m_sheet.place};
    m_sheet.process = Assignment{"process", entries.process, m_sheet.place};
    m_sheet.ipConfigurations = entries.ipConfigurations;
    for (const TableEntry* table : inSheetOrder(entries.tables)) {
      if (auto settings = asSettings(*table))
        m_sheet.environment = std::move(*settings);
      else
        addRows(*table);
    }
    return std::move(m_sheet);
  }

 private:
  /// The order of the book, but the main table of a tab in front of the tab's others: [[tab.table]] behind
  /// [[tab]] stands for itself, while [[tab]] cannot follow it.
  static std::vector<const TableEntry*> inSheetOrder(const std::vector<TableEntry>& tables) {
    std::vector<const TableEntry*> order;
    for (const TableEntry& table : tables) {
      auto place = order.end();
      while (table.isMain && place != order.begin() && (*std::prev(place))->tab == table.tab) --place;
      order.insert(place, &table);
    }
    return order;
  }

  Assignment assign(const CellEntry& cell) const {
    return {cell.column, cell.value, m_sheet.place,
            cell.isCurrent ? std::nullopt : std::optional(cell.source)};
  }

  void addRows(const TableEntry& table) {
    unsigned int next = 1;
    for (const RowEntry& entry : table.rows) {
      SheetRow row{table.tab, table.isMain ? "" : table.table, std::nullopt, {}, m_sheet.place};
      const bool isNamed = table.isGrown ? entry.index == next : entry.key.has_value();
      if (!isNamed) row.number = Assignment{RowNumberKey, std::int64_t{entry.index}, m_sheet.place};
      if (isNamed && !table.isGrown) row.cells.push_back({entry.key->column, entry.key->text, m_sheet.place});
      for (const CellEntry& cell : entry.cells) row.cells.push_back(assign(cell));
      m_sheet.rows.push_back(std::move(row));
      next = entry.index + 1;
    }
  }

  /// The environment as [environment], where that says all: which choice of the junction temperature goes
  /// with the keys is understood then, and must be the one that was made.
  static std::optional<std::vector<Assignment>> asSettings(const TableEntry& table) {
    using Environment = EnvironmentTable;
    if (table.environmentColumn.empty()) return std::nullopt;
    std::vector<Assignment> settings;
    std::string choice;
    bool hasJunction = false, hasTheta = false, hasAmbient = false;
    for (const RowEntry& row : table.rows) {
      const std::string key = row.key ? Environment::keyOf(row.key->text) : "";
      for (const CellEntry& cell : row.cells) {
        if (!cell.isCurrent || key.empty()) return std::nullopt;
        const bool isJunction = isSameSpelling(key, Environment::JunctionKey);
        if (cell.column != table.environmentColumn) {
          const auto* text = std::get_if<std::string>(&cell.value);
          if (!isJunction || !text || text->empty()) return std::nullopt;
          choice = *text;
          continue;
        }
        hasJunction |= isJunction;
        hasTheta |= isSameSpelling(key, Environment::ThetaKey);
        hasAmbient |= isSameSpelling(key, Environment::AmbientKey);
        settings.push_back({key, cell.value, {}});
      }
    }
    const bool isUnderstood = hasTheta ? !hasJunction && choice.ends_with(Environment::Calculated)
                                       : choice.empty() && (hasJunction || !hasAmbient);
    return isUnderstood ? std::optional(std::move(settings)) : std::nullopt;
  }

  Sheet m_sheet;
};

}  // namespace

Sheet makeSheet(const BookEntries& entries, const std::string& source) {
  return SheetMaker(source).make(entries);
}

}  // namespace kvx
