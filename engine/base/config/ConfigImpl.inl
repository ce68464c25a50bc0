#pragma once

namespace kvxe {

template <class A, class T>
auto ConfigImplBase<A, T>::policy2FunctorMap() -> const RuleMap& {
  static const RuleMap map = [] {
    RuleMap rules;
    rules[PopulatePolicy::DefaultEditable] = std::make_unique<detail::DefaultEditable>();
    rules[PopulatePolicy::ForceReadonly] = std::make_unique<detail::ForceReadonly>();
    rules[PopulatePolicy::ForceEditable] = std::make_unique<detail::ForceEditable>();
    rules[PopulatePolicy::ForceEditableExceptName] = std::make_unique<detail::ForceEditableExceptName>();
    constexpr auto custom = PopulatePolicy::CustomEditable;
    if constexpr (requires { Traits::getEditableFlags(custom); })
      rules[custom] = std::make_unique<detail::CustomEditable<A, T, static_cast<unsigned int>(custom)>>();
    return rules;
  }();
  return map;
}

// Reading.

template <class A, class T>
std::string ConfigImplBase<A, T>::getNameFromRow(KVXERow& row) const {
  return detail::storedText(cellOf(row, *Traits::getTitles().front()));
}

template <class A, class T>
KVXERow* ConfigImplBase<A, T>::findRowByName(const std::string& name) const {
  return detail::findRow(getTable(), *Traits::getTitles().front(), name);
}

namespace detail {

/// A record from the cells that `cellAt` gives for its titles.
template <class T, class CellAt>
T readRecord(const std::vector<const KVXETitle*>& titles, const CellAt& cellAt) {
  T cfg{};
  forEach(titles, cfg, [&](const KVXETitle* title, auto& field) {
    field = StringConverter<std::remove_reference_t<decltype(field)>>::convert(storedText(*cellAt(title)));
  });
  return cfg;
}

}  // namespace detail

template <class A, class T>
T ConfigImplBase<A, T>::createDefaultCfg() const {
  KVXEHeaderRow* header = getTable().getHeaderRow();
  return detail::readRecord<T>(Traits::getTitles(),
                               [&](const KVXETitle* title) { return header->getDefaultCell(title); });
}

template <class A, class T>
T ConfigImplBase<A, T>::createCfgFromRow(KVXERow& row) const {
  return detail::readRecord<T>(Traits::getTitles(),
                               [&](const KVXETitle* title) { return row.getCell(title); });
}

template <class A, class T>
std::unique_ptr<T> ConfigImplBase<A, T>::get(const std::string& name) const {
  KVXERow* row = findRowByName(name);
  return row ? std::make_unique<T>(createCfgFromRow(*row)) : nullptr;
}

template <class A, class T>
std::map<std::string, std::unique_ptr<T>> ConfigImplBase<A, T>::get(
    const std::set<std::string>& names) const {
  std::map<std::string, std::unique_ptr<T>> found;
  for (KVXERow* row : detail::findUsedRows(getTable())) {
    const std::string name = getNameFromRow(*row);
    if (names.contains(name) && !found.contains(name))
      found[name] = std::make_unique<T>(createCfgFromRow(*row));
  }
  return found;
}

template <class A, class T>
std::vector<std::unique_ptr<T>> ConfigImplBase<A, T>::getAll() const {
  std::vector<std::unique_ptr<T>> all;
  for (KVXERow* row : detail::findUsedRows(getTable()))
    all.push_back(std::make_unique<T>(createCfgFromRow(*row)));
  return all;
}

template <class A, class T>
const T& ConfigImplBase<A, T>::getDefault() const {
  static const T cfg = createDefaultCfg();
  return cfg;
}

// Writing.

template <class A, class T>
void ConfigImplBase<A, T>::assignCfgToRow(const T& cfg, KVXERow& row, PopulatePolicy policy) {
  const detail::CellEditabilityRule& rule = *policy2FunctorMap().at(policy);
  unsigned int column = 0;
  forEach(Traits::getTitles(), cfg, [&](const KVXETitle* title, const auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    KVXECell& cell = cellOf(row, *title);
    const unsigned int index = column++;
    // What a formula makes of the other columns comes with the next calculation.
    if (detail::isComputedColumn(*cell.getHeaderDefaultCell())) return;
    detail::writeText(cell, detail::StringConverter<Field>::toText(field));
    assignToRow(rule, cell, index);
  });
}

template <class A, class T>
bool ConfigImplBase<A, T>::canPopulate(size_t count, PopulatePolicy policy) const {
  return policy2FunctorMap().contains(policy) && detail::findFreeRows(getTable(), count).size() == count;
}

template <class A, class T>
bool ConfigImplBase<A, T>::populate(const std::vector<T>& cfgs, PopulatePolicy policy) {
  if (cfgs.empty()) return true;
  if (!canPopulate(cfgs.size(), policy)) return false;
  const std::vector<KVXERow*> rows = detail::findFreeRows(getTable(), cfgs.size());
  for (size_t i = 0; i < cfgs.size(); ++i) assignCfgToRow(cfgs[i], *rows[i], policy);
  return true;
}

template <class A, class T>
bool ConfigImplBase<A, T>::edit(const std::string& name, const T& cfg) {
  KVXERow* row = findRowByName(name);
  if (row) assignCfgToRow(cfg, *row, PopulatePolicy::DefaultEditable);
  return row != nullptr;
}

template <class A, class T>
bool ConfigImplBase<A, T>::remove(const std::vector<std::string>& names) {
  std::set<unsigned int> rows;
  for (const std::string& name : names) {
    KVXERow* row = findRowByName(name);
    if (!row || (isRemovabilityDefined() && !isRemovableRow(*row))) return false;
    rows.insert(row->getIndex());
  }
  // From the last up, so that the numbers of the others stay.
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    preDelete(*getTable().getRow(*row));
    getTable().moveDownStreamRowsUpByOneRow(*row);
  }
  postDelete();
  return true;
}

}  // namespace kvxe
