#pragma once

#include <memory>
#include <mutex>
#include <typeindex>
#include <unordered_map>

#include "engine/base/config/Architectures.h"
#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXETable;
class KVXETitle;

namespace kvxe {

template <class T>
class ConfigIfc;

/// Which implementation an interface has.
enum class IfcPolicy { Plain, Linked };

/// The typed interfaces of one architecture's book, one for each type of records whose table the selected
/// device has. Modules use the manager of Morlan.
///
/// Interfaces point at tables: get them here when they are needed, and do not keep them across a change of
/// the device or the end of a book. An interface whose table is gone is absent from then on.
class ConfigMgr {
 public:
  /// The manager of an architecture; at first it stands on the current book.
  template <class A>
  static ConfigMgr& getGlobal();

  ConfigMgr(const ConfigMgr&) = delete;
  ConfigMgr& operator=(const ConfigMgr&) = delete;

  /// Makes all interfaces anew, for the tables that the book has now; for no book there are none.
  template <class A>
  void reset(KVXEBook* book);

  /// The interface of a type of records; null when the selected device, or a book that has been closed since,
  /// has no such table.
  template <class T>
  std::shared_ptr<ConfigIfc<T>> getConfigIfc() const {
    return std::static_pointer_cast<ConfigIfc<T>>(findLive(typeid(T)));
  }

  /// The book that the interfaces were made for; null when it is closed.
  KVXEBook* getBook() const { return isBookOpen() ? m_book : nullptr; }

 private:
  struct Binding {
    std::shared_ptr<void> ifc;  ///< a ConfigIfc<T> of the type it is found by
    KVXEEnums::TabType tabType;
    const KVXETitle* tableTitle;
    KVXETable* table;
  };

  ConfigMgr() = default;
  /// Binds the types that an architecture has, each in one line.
  template <class A>
  static void initIfcs(ConfigMgr& mgr);
  /// Binds the clock tables, which refer to each other.
  template <class A>
  void constructClockIfcs();
  /// Binds the records T when their table exists. `extra` goes to the implementation: interfaces of the
  /// tables that it keeps in step.
  template <class A, class T, IfcPolicy Policy = IfcPolicy::Plain, class... Extra>
  void constructConfigIfc(const Extra&... extra);

  void setBook(KVXEBook* book);
  bool isBookOpen() const;
  /// The table on an enabled tab of the book; null if there is none.
  KVXETable* findTable(KVXEEnums::TabType tabType, const KVXETitle& title) const;
  std::shared_ptr<void> findLive(std::type_index type) const;

  KVXEBook* m_book = nullptr;
  bool m_isBookManaged = false;  // by KVXEBookMgr, which then tells whether it is still open
  std::unordered_map<std::type_index, Binding> m_bindings;
};

template <>
void ConfigMgr::initIfcs<Tarvek>(ConfigMgr& mgr);
template <>
void ConfigMgr::initIfcs<Morlan>(ConfigMgr& mgr);

extern template ConfigMgr& ConfigMgr::getGlobal<Tarvek>();
extern template ConfigMgr& ConfigMgr::getGlobal<Morlan>();
extern template void ConfigMgr::reset<Tarvek>(KVXEBook* book);
extern template void ConfigMgr::reset<Morlan>(KVXEBook* book);

}  // namespace kvxe
