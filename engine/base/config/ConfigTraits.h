#pragma once

#include <boost/type_index.hpp>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

class KVXETitle;

namespace kvxe {

/// The table of the records T of an architecture: where it stands, and its columns in the order of the
/// fields. A specialisation derives from TableOf.
template <class A, class T>
struct TableTraits;

template <KVXEEnums::TabType Tab, const KVXETitle& Table, const KVXETitle&... Columns>
struct TableOf {
  static constexpr size_t columnCount = sizeof...(Columns);
  static constexpr KVXEEnums::TabType getTabType() { return Tab; }
  static const KVXETitle& getTableTitle() { return Table; }
  static const std::vector<const KVXETitle*>& getTitles() {
    static const std::vector<const KVXETitle*> titles{&Columns...};
    return titles;
  }
};

/// Names a type of records.
template <class T>
struct ConfigTypeTraits {
  static std::string getName() {
    const std::string name = boost::typeindex::type_id<T>().pretty_name();
    return name.substr(name.rfind(':') + 1);
  }
};

}  // namespace kvxe
