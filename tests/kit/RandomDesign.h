#pragma once

#include <random>

#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "tests/kit/DeviceBook.h"

/// Calls `visit` for each table of the current book.
template <class Visit>
void forEachTable(Visit visit) {
  KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
  for (unsigned int i = 0; i < book->getTabCount(); ++i) {
    KVXETab* tab = book->getTab(i);
    for (unsigned int j = 0; tab && j < tab->getTableCount(); ++j) visit(tab->getTable(j));
  }
}

/// Calls `visit` for each cell of the table's data rows.
template <class Visit>
void forEachCell(KVXETable* table, Visit visit) {
  for (unsigned int row = 1; row < table->getRowCount(); ++row)
    for (unsigned int column = 0; column < table->getColumnCount(); ++column)
      visit(table->getCellAt(row, column));
}

inline std::string tableName(const KVXETable* table) {
  return table->getTab()->getTypeAsStr() + "." + table->getTableTitle()->getTag(KVXEEnums::TitleType::SW);
}

/// Fills the tables of a book with rows that its cells allow, column by column without knowing any of them.
class RandomDesign {
 public:
  /// Tables that the user may edit are cut to `rows` rows on each new device; a design fills half of them at
  /// most. 0 leaves them as long as they are.
  RandomDesign(DeviceBook& book, unsigned int seed, unsigned int rows)
      : m_book(book), m_random(seed), m_rows(rows) {}

  /// Chooses a part and a process, and makes the book anew; returns both in words.
  std::string changeDevice();
  /// Another design on the device.
  void make();
  void clear();
  /// Gives the design everything but its clocks twice.
  void doubleRows();
  void doubleFrequencies();

 private:
  unsigned int below(unsigned int limit) { return static_cast<unsigned int>(m_random() % limit); }
  const std::string& oneOf(const std::vector<std::string>& list);
  float between(float low, float high);
  static bool isFixed(const KVXETable* table);
  void fillTables(bool areClocks);
  void fill(KVXECell* cell);
  int integerFor(const KVXEIntCell* cell);
  float numberFor(const KVXEFloatCell* cell);
  void readClockTags();
  void replaceWhatIsNoLongerOffered();
  void setAmbient();

  DeviceBook& m_book;
  std::mt19937 m_random;
  unsigned int m_rows;
  std::vector<std::string> m_tags;
  std::vector<std::pair<KVXECell*, std::string>> m_fixedCells;  ///< of tables with given rows, as they start
};
