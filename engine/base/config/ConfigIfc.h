#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "engine/base/config/PopulatePolicy.h"

/// The configuration layer: a table of the workbook as typed records, one structure for each row. Wizards
/// and importers create, read, edit and remove records here and never touch cells.
///
/// A type of records is a structure, its titles, and one line of binding:
///
///     struct FooConfig {                 // engine/base/config/FooConfig.h
///       std::string name;                // the key is the first field
///       int count = blank;               // one member for each column, in the order of the titles
///       float toggleRate = blank;
///     };
///
///     template <>                        // engine/tarvek/KVXETarvekConfig.cpp
///     struct TableTraits<Tarvek, FooConfig>
///         : TableOf<TabType::FOO, Foo::m_FooTable, Foo::m_Name, Foo::m_Count, Foo::m_ToggleRate> {};
///
///     mgr.constructConfigIfc<Tarvek, FooConfig>();   // in ConfigMgr::initIfcs<Tarvek>
///
/// and a client says
///
///     if (auto foos = ConfigMgr::getGlobal<Tarvek>().getConfigIfc<FooConfig>())
///       foos->populate({.name = "a", .count = 3}, PopulatePolicy::DefaultEditable);
///
/// What concerns more than one table is a specialisation of LinkedConfigImpl (ClockConfigImpl.h).
///
/// A field that is blank is written as a blank cell: a record for a new row starts from `getDefault()`.
/// Values are written as edits: the next incremental calculation follows them. An operation that fails has
/// written nothing. Nothing here throws or calculates.
namespace kvxe {

/// The operations of every table. Names are the texts of the first column; where two rows have the same
/// name, the first is meant.
template <class T>
class ConfigIfcBase {
 public:
  virtual ~ConfigIfcBase() = default;

  /// Writes a record into the first free row. False when the table is full, and for a policy that the
  /// records do not have. A name that is there already is no obstacle: ask `exists`.
  virtual bool populate(const T& cfg, PopulatePolicy policy) = 0;
  /// As above for many; all or none.
  virtual bool populate(const std::vector<T>& cfgs, PopulatePolicy policy) = 0;
  /// Removes a row, those below it move up. False when it is absent or may not be removed.
  virtual bool remove(const std::string& name) = 0;
  /// As above for many; all or none.
  virtual bool remove(const std::vector<std::string>& names) = 0;
  /// Overwrites the row that has the record's name. False when it is absent.
  virtual bool edit(const T& cfg) = 0;
  /// False for an empty name.
  virtual bool exists(const std::string& name) const = 0;
  /// Null when there is no such row.
  virtual std::unique_ptr<T> get(const std::string& name) const = 0;
  /// The rows whose names are in the set.
  virtual std::map<std::string, std::unique_ptr<T>> get(const std::set<std::string>& names) const = 0;
  /// The rows from the first to the one before the first free row.
  virtual std::vector<std::unique_ptr<T>> getAll() const = 0;
  /// The defaults of the columns, read once in the life of the process.
  virtual const T& getDefault() const = 0;
};

/// What clients hold; a specialisation adds operations of its records.
template <class T>
class ConfigIfc : public ConfigIfcBase<T> {};

}  // namespace kvxe
