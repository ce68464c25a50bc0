#pragma once

#include <memory>
#include <string>

#include "engine/base/workbook/KVXEEnums.h"

class KVXEBook;
class KVXETab;

/// Decides which class stands behind a tab type. The descendants know the tabs of one architecture, call
/// `init()` on what they made, and leave every other type to this class.
class KVXETabFactory {
 public:
  /// The factory of an architecture, by its name; an unknown name gives the first architecture's.
  static std::unique_ptr<KVXETabFactory> createFor(const std::string& archName, KVXEBook* book);

  explicit KVXETabFactory(KVXEBook* book) : m_book(book) {}
  virtual ~KVXETabFactory() = default;

  /// A new tab, owned by the caller. A type without a class of its own gives an empty sheet.
  virtual KVXETab* createTab(KVXEEnums::TabType type);
  virtual std::string className() const { return "KVXETabFactory"; }

 protected:
  KVXEBook* m_book;
};
