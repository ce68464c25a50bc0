#pragma once

#include <boost/pfr.hpp>
#include <vector>

#include "engine/base/config/CellText.h"

/// The fields of a record, from the structure itself: its members in their order are its columns in their
/// order, and nothing else lists them. A std::array takes one column for each element. A member of a type
/// that no cell holds is the record's own and has no column.
namespace kvxe::detail {

template <class Field>
inline constexpr size_t cellsOf = CellValue<Field> ? 1 : 0;
template <class Element, size_t Count>
inline constexpr size_t cellsOf<std::array<Element, Count>> = Count;

/// How many cells hold a record.
template <class T>
inline constexpr size_t cellCount = []<size_t... I>(std::index_sequence<I...>) {
  return (size_t{0} + ... + cellsOf<boost::pfr::tuple_element_t<I, T>>);
}
(std::make_index_sequence<boost::pfr::tuple_size_v<T>>());

template <class Field, class Visit>
void visitCells(Field& field, const Visit& visit) {
  if constexpr (CellValue<std::remove_const_t<Field>>) {
    visit(field);
  } else if constexpr (cellsOf<std::remove_const_t<Field>> > 0) {
    for (auto& element : field) visit(element);
  }
}

}  // namespace kvxe::detail

namespace kvxe {

/// Calls `functor(item, field)` for the items and the fields of the record side by side, and returns how
/// many pairs there were.
template <class Item, class T, class Functor>
size_t forEach(const std::vector<Item>& items, T& record, const Functor& functor) {
  size_t count = 0;
  boost::pfr::for_each_field(record, [&](auto& member) {
    detail::visitCells(member, [&](auto& field) {
      if (count < items.size()) functor(items[count++], field);
    });
  });
  return count;
}

/// The key of a record: its first field.
template <class T>
const std::string& nameOf(const T& record) {
  return boost::pfr::get<0>(record);
}

}  // namespace kvxe
