#pragma once

#include <memory>
#include <string>
#include <vector>

class KVXEBook;

/// Owns the books, of which one lives at a time, and knows the current architecture.
class KVXEBookMgr {
 public:
  static constexpr const char* NoArchName = "NONE";

  static KVXEBookMgr& getGlobal();
  ~KVXEBookMgr();

  std::string className() const { return "KVXEBookMgr"; }

  /// The book of the architecture, "NONE" for the current one; null when there is none.
  KVXEBook* getCurrentBook(std::string archName = NoArchName) const;
  /// As above, but a missing book is made, and takes the place of any other.
  KVXEBook* getOrCreateCurrentBook(std::string archName);
  /// Null beyond the end.
  KVXEBook* getBook(unsigned int index) const;
  unsigned int getBookCount() const { return static_cast<unsigned int>(m_books.size()); }
  /// Destroys all books; the last architecture's name stays.
  void closeProject();

  /// The architecture that was asked for last.
  static const std::string& getLastArchName() { return m_lastArchName; }

 private:
  KVXEBookMgr();

  std::vector<std::unique_ptr<KVXEBook>> m_books;
  static std::string m_lastArchName;
};
