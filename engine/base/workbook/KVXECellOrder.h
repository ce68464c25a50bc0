#pragma once

#include <cstdint>

#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXERow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"

/// A cell with its place in the order of KVXEUID::Compare, packed so that sorting compares two numbers.
struct KVXEOrderedCell {
  std::uint64_t sheet = ~std::uint64_t{0};  ///< book and tab, then table
  std::uint64_t place = ~std::uint64_t{0};  ///< row, then column
  KVXECell* cell;

  explicit KVXEOrderedCell(KVXECell* c) : cell(c) {
    const KVXERow* row = c->getRow();
    if (!row) return;
    place = std::uint64_t{row->getIndex()} << 32 | c->getColumnIndex();
    const KVXETable* table = row->getTable();
    if (table && table->getTab())
      sheet = std::uint64_t{table->getTab()->getIndex()} << 32 | table->getIndex();
  }

  friend bool operator<(const KVXEOrderedCell& a, const KVXEOrderedCell& b) {
    return a.sheet != b.sheet ? a.sheet < b.sheet : a.place < b.place;
  }
};
