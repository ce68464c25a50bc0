#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/base/workbook/KVXEEnums.h"

class KVXECell;
class KVXETab;
class KVXETabFactory;
class KVXETable;
class KVXETitle;

/// The workbook of one device architecture: a slot for each tab type, filled on demand by the architecture's
/// factory.
class KVXEBook {
 public:
  KVXEBook(unsigned int index, std::string archName);
  KVXEBook(const KVXEBook&) = delete;
  KVXEBook& operator=(const KVXEBook&) = delete;
  ~KVXEBook();

  unsigned int getIndex() const { return m_index; }
  const std::string& getArchName() const { return m_archName; }
  /// The number of slots, which is also the number of tabs where identifiers are packed.
  unsigned int getTabCount() const { return static_cast<unsigned int>(m_tabs.size()); }

  /// The slot's tab, made if missing; null for a type beyond the slots.
  KVXETab* getOrCreateTab(KVXEEnums::TabType type);
  /// Null when there is none.
  KVXETab* getTab(KVXEEnums::TabType type) const { return getTab(static_cast<unsigned int>(type)); }
  KVXETab* getTab(unsigned int index) const { return index < m_tabs.size() ? m_tabs[index] : nullptr; }
  KVXETable* getTable(KVXEEnums::TabType type, const KVXETitle* title) const;
  /// KVXETab::lookup in that tab; null when there is no such tab, table or row.
  template <class T>
  KVXECell* lookup(KVXEEnums::TabType type, const KVXETitle* table, T key, const KVXETitle* from,
                   const KVXETitle* to, bool useRegex);

  /// Destroys all tabs; with `recreateSlots` the book has its empty slots again.
  void deleteTabs(bool recreateSlots);

 private:
  std::vector<KVXETab*> m_tabs;  // owned
  std::unique_ptr<KVXETabFactory> m_factory;
  unsigned int m_index;
  std::string m_archName;
};
