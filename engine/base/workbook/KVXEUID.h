#pragma once

#include <array>
#include <string>

#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXEBookMgr;
class KVXECell;
class KVXERow;
class KVXETab;
class KVXETable;

/// Names a book, tab, table, row or cell at once by pointers, by indices and by one decimal-packed integer.
///
/// The digits of the integer read from the right: book, tab, table, row, cell. Each field is as wide as the
/// number of siblings at its level needs (`upper_bound_10x`), so the packed form changes when a count crosses
/// a power of ten: it lives for one exchange with the front end and is never stored. A UID is a snapshot: it
/// keeps the indices that held when it was made. It is a flat value, cheap enough to be made for every cell
/// that is evaluated.
class KVXEUID {
 public:
  KVXEUID() { init(); }
  explicit KVXEUID(KVXEBook* book);
  explicit KVXEUID(KVXETab* tab);
  explicit KVXEUID(KVXETable* table);
  explicit KVXEUID(KVXERow* row);
  explicit KVXEUID(KVXECell* cell);

  /// Decodes a packed identifier against the present book. Levels that do not exist stay unset.
  KVXEUID(unsigned long id, KVXEEnums::AtomType type);

  /// Back to what names nothing: no type, pointers null, indices and identifiers all ones.
  void init();

  KVXEEnums::AtomType getAtomType() const { return m_atomType; }
  KVXEBook* getBook() const { return static_cast<KVXEBook*>(m_ptrs[0]); }
  KVXETab* getTab() const { return static_cast<KVXETab*>(m_ptrs[1]); }
  KVXETable* getTable() const { return static_cast<KVXETable*>(m_ptrs[2]); }
  KVXERow* getRow() const { return static_cast<KVXERow*>(m_ptrs[3]); }
  KVXECell* getCell() const { return static_cast<KVXECell*>(m_ptrs[4]); }

  unsigned int getBookIndex() const { return m_ids[0]; }
  unsigned int getTabIndex() const { return m_ids[1]; }
  unsigned int getTableIndex() const { return m_ids[2]; }
  unsigned int getRowIndex() const { return m_ids[3]; }
  unsigned int getColumnIndex() const { return m_ids[4]; }

  /// The packed identifier at the level of the atom; all ones when nothing is named.
  unsigned long getUId() const;
  /// The packed identifier at one level of the lineage. Throws std::out_of_range above CELL.
  unsigned long getUId(KVXEEnums::AtomType level) const { return m_uIds.at(static_cast<size_t>(level)); }

  /// The smallest power of ten strictly above `n`; beyond 999,999,999 the largest that 32 bits hold.
  static unsigned int upper_bound_10x(unsigned int n);

  /// Book, then tab, table, row, column; unset levels come last. Comparing atoms of different levels is
  /// reported on standard output.
  static bool Compare(const KVXEUID& a, const KVXEUID& b);

  /// A path that a person can follow, with the row's values behind `separator`. Evaluates nothing.
  std::string describe(const std::string& separator) const;
  /// All members by name, for debugging.
  std::string reflect() const;

 private:
  template <class T>
  unsigned long setUpwardLineage(T* atom, unsigned short level);
  template <class T>
  void setDownwardLineage(T* parent, unsigned short level, unsigned long multiplier, unsigned long rest);
  void setLevel(unsigned short level, void* atom, unsigned int index, unsigned long id);

  KVXEEnums::AtomType m_atomType;
  std::array<void*, 5> m_ptrs;
  std::array<unsigned int, 5> m_ids;
  std::array<unsigned long, 5> m_uIds;
};

/// A plain function that computes the cell that the UID names, and must leave that cell engine clean.
using KVXEFormula = void (*)(const KVXEUID&);
