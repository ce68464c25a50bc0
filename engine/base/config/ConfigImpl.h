#pragma once

#include <iterator>

#include "engine/base/config/ConfigIfc.h"
#include "engine/base/config/ConfigTraits.h"
#include "engine/base/config/RecordFields.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETable.h"

namespace kvxe {

namespace detail {

/// Editable by the flags that the table declares for the policy.
template <class A, class T, unsigned int Policy>
class CustomEditable final : public CellEditabilityRule {
  void operator()(KVXECell& cell, unsigned int column) const override {
    static const std::vector<bool> flags = TableTraits<A, T>::getEditableFlags(PopulatePolicy(Policy));
    if (column < flags.size()) cell.setIsEditable(flags[column]);
  }
};

}  // namespace detail

/// The records T over a table, driven by their traits alone.
template <class A, class T>
class ConfigImplBase {
 public:
  using Traits = TableTraits<A, T>;
  static_assert(Traits::columnCount == detail::cellCount<T>, "one title for each field that a cell holds");

  ConfigImplBase() = default;
  ConfigImplBase(const ConfigImplBase&) = delete;
  ConfigImplBase& operator=(const ConfigImplBase&) = delete;
  virtual ~ConfigImplBase() = default;

  bool populate(const T& cfg, PopulatePolicy policy) { return populate(std::vector<T>{cfg}, policy); }
  virtual bool populate(const std::vector<T>& cfgs, PopulatePolicy policy);
  bool remove(const std::string& name) { return remove(std::vector<std::string>{name}); }
  bool remove(const std::vector<std::string>& names);
  bool edit(const T& cfg) { return edit(nameOf(cfg), cfg); }
  /// Overwrites the row that has this name now, name included.
  virtual bool edit(const std::string& name, const T& cfg);
  bool exists(const std::string& name) const { return findRowByName(name) != nullptr; }
  std::unique_ptr<T> get(const std::string& name) const;
  std::map<std::string, std::unique_ptr<T>> get(const std::set<std::string>& names) const;
  std::vector<std::unique_ptr<T>> getAll() const;
  const T& getDefault() const;
  /// Whether isRemovableRow decides anything for these records.
  virtual bool isRemovabilityDefined() const { return false; }

 protected:
  virtual KVXETable& getTable() const = 0;

  /// After rows were removed.
  virtual void postDelete() {}
  virtual bool isRemovableRow(KVXERow&) const { return true; }
  /// Before a row is removed.
  virtual void preDelete(KVXERow&) {}
  virtual T createDefaultCfg() const;
  virtual T createCfgFromRow(KVXERow& row) const;
  virtual void assignCfgToRow(const T& cfg, KVXERow& row, PopulatePolicy policy);
  virtual KVXERow* findRowByName(const std::string& name) const;
  virtual std::string getNameFromRow(KVXERow& row) const;

  /// Whether `populate` has what it needs in this table.
  bool canPopulate(size_t count, PopulatePolicy policy) const;
  static KVXECell& cellOf(KVXERow& row, const KVXETitle& column) { return *row.getCell(&column); }

 private:
  using RuleMap = std::map<PopulatePolicy, std::unique_ptr<const detail::CellEditabilityRule>>;
  /// The rule of each policy that these records have.
  static const RuleMap& policy2FunctorMap();
  static void assignToRow(const detail::CellEditabilityRule& rule, KVXECell& cell, unsigned int column) {
    rule(cell, column);
  }
};

/// The rules of one table; the records that have rules of their own specialise it.
template <class A, class T>
class ConfigImpl : public ConfigImplBase<A, T> {
 public:
  explicit ConfigImpl(KVXETable* table) : m_table(table) {}

 protected:
  KVXETable& getTable() const override { return *m_table; }

 private:
  KVXETable* m_table;
};

/// As ConfigImpl, and keeps other tables in step.
template <class A, class T>
class LinkedConfigImpl;

}  // namespace kvxe

#include "engine/base/config/ConfigImpl.inl"
