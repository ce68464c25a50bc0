#pragma once

#include <map>
#include <string>
#include <vector>

class KvxBookBundleData;
class KvxBookBundleNodeData;
class KvxBookPacketData;
class KvxHandshakeData;
class KvxTablePacket;

/// A front end's copy of the book, built from a bundle and kept up to date by packets alone.
class Mirror {
 public:
  /// Takes over a reply: its bundle, or its packet.
  void apply(const KvxHandshakeData& reply);

  /// What is not as in the other copy, line by line; empty when the two are equal. Identifiers of one
  /// exchange do not count.
  std::vector<std::string> differencesFrom(const Mirror& other) const;

  /// What follows the title of a tab.
  std::string suffix(int tab) const { return m_tabs.at(tab).suffix; }

 private:
  struct Column {
    std::string title;
    std::vector<std::string> list;
  };
  struct Table {
    int severity = 0;
    bool showsRowIds = false;
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;  // each cell in one text
  };
  struct Tab {
    std::string title, suffix;
    int severity = 0;
    std::map<int, Table> tables;
  };

  void addNode(const KvxBookBundleNodeData& node);
  void apply(const KvxBookPacketData& packet);
  static void apply(const KvxTablePacket& packet, Table& table);
  /// Every look of the copy by the place where it is.
  std::map<std::string, std::string> describe() const;

  std::map<int, Tab> m_tabs;
};
