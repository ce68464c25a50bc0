#pragma once

#include <string>
#include <vector>

/// Names a saved table by the elements that hold it.
class TableId {
 public:
  /// From the names of the elements above the table's contents: the root, book, tab and table. Empty for a
  /// shorter path.
  explicit TableId(const std::vector<std::string>& path) {
    if (path.size() < 4) return;
    m_book = path[1];
    m_tab = path[2];
    m_table = path[3];
  }

  std::string getPath() const { return "Version." + m_book + "." + m_tab + "." + m_table; }
  /// The path of the element that names the pilot column.
  void getTableIdConfigStr(std::string& out) const { out = getPath() + ".config"; }
  /// The path of the rows.
  void getTableIdParamStr(std::string& out) const { out = getPath() + ".params"; }

  std::string m_book;
  std::string m_tab;
  std::string m_table;
};
