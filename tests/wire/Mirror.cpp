#include "tests/wire/Mirror.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "messages/handshake.pb.h"
#include "models/common/KVXMHelperUtils.h"

namespace {

using KVXMHelperUtils::ToString;

/// The parts of a cell, whichever message brought them.
struct Look {
  std::string value, unit, message, list, bounds;
  int foreground = 0, background = 0;
  bool isEditable = false;

  template <class Number>
  void bound(const char* name, bool isSet, Number number) {
    if (isSet) bounds += std::string(name) + ToString(number);
  }
  template <class Entries>
  void numbers(const Entries& entries) {
    for (const auto entry : entries) list += ToString(kvxmInt(entry)) + "|";
  }
  template <class Entries>
  void texts(const Entries& entries) {
    for (const auto& entry : entries) list += entry + "|";
  }
  std::string text() const {
    std::string all = value.empty() ? "" : value + (unit.empty() ? "" : " " + unit);
    if (!message.empty()) all += " msg:" + message;
    if (!list.empty()) all += " list:" + list;
    return all + bounds + " " + ToString(foreground) + "/" + ToString(background) +
           (isEditable ? " w" : " r");
  }

 private:
  static int kvxmInt(float value) { return static_cast<int>(value); }
  static int kvxmInt(int value) { return value; }
};

std::string textOf(const GenericTreeTableCellData& cell) {
  Look look;
  if (cell.has_stringvalue()) look.value = cell.stringvalue();
  if (cell.has_intvalue()) look.value = ToString(cell.intvalue());
  if (cell.has_floatvalue()) look.value = ToString(cell.floatvalue());
  look.unit = cell.unit();
  look.message = cell.message();
  look.bound(" min", cell.has_min(), cell.min());
  look.bound(" max", cell.has_max(), cell.max());
  look.bound(" min", cell.has_intmin(), cell.intmin());
  look.bound(" max", cell.has_intmax(), cell.intmax());
  look.texts(cell.dropdown());
  look.numbers(cell.intdropdown());
  look.foreground = cell.foreground();
  look.background = cell.background();
  look.isEditable = cell.iseditable();
  return look.text();
}

template <class Packet>
void addNumber(const Packet& packet, Look& look) {
  if (packet.has_value()) look.value = ToString(packet.value());
  look.bound(" min", packet.has_min(), packet.min());
  look.bound(" max", packet.has_max(), packet.max());
  look.numbers(packet.dropdown());
}

std::string textOf(const KvxCellPacket& cell) {
  Look look;
  if (cell.has_stringpacket()) {
    look.value = cell.stringpacket().value();
    look.texts(cell.stringpacket().dropdown());
  }
  if (cell.has_intpacket()) addNumber(cell.intpacket(), look);
  if (cell.has_floatpacket()) addNumber(cell.floatpacket(), look);
  look.unit = cell.unit();
  look.message = cell.message();
  look.foreground = cell.foreground();
  look.background = cell.background();
  look.isEditable = cell.iseditable();
  return look.text();
}

}  // namespace

void Mirror::apply(const KvxHandshakeData& reply) {
  if (reply.has_bookbundle()) {
    m_tabs.clear();
    for (const KvxBookBundleNodeData& node : reply.bookbundle().nodes()) addNode(node);
    if (reply.summarypanel().has_node()) addNode(reply.summarypanel().node());
  }
  if (reply.has_bookpacket()) apply(reply.bookpacket());
}

void Mirror::addNode(const KvxBookBundleNodeData& node) {
  Tab& tab = m_tabs[node.index()];
  tab.title = node.title();
  tab.suffix = node.suffix();
  tab.severity = node.severity();
  for (const KvxGridComponentData& component : node.gridcontent().components()) {
    for (const GenericTreeTablesTabData& one : component.tablechart().tables().tabs()) {
      Table& table = tab.tables[one.table().tableindex()];
      table.severity = component.severity();
      table.showsRowIds = one.table().showrowids();
      for (const GenericTreeTableColumnData& column : one.table().model().header().columns())
        table.columns.push_back({column.title(), {column.dropdown().begin(), column.dropdown().end()}});
      for (const GenericTreeTableRowData& row : one.table().model().rows()) {
        std::vector<std::string>& cells = table.rows.emplace_back();
        for (const GenericTreeTableCellData& cell : row.cells()) cells.push_back(textOf(cell));
      }
    }
  }
  for (const KvxBookBundleNodeData& child : node.children()) addNode(child);
}

void Mirror::apply(const KvxBookPacketData& packet) {
  for (const KvxSectionPacket& section : packet.sections()) {
    ASSERT_TRUE(m_tabs.contains(section.tabindex())) << "tab " << section.tabindex();
    Tab& tab = m_tabs[section.tabindex()];
    tab.suffix = section.suffix();
    tab.severity = section.severity();
    for (const KvxTablePacket& table : section.tables()) {
      ASSERT_TRUE(tab.tables.contains(table.tableindex())) << tab.title << " table " << table.tableindex();
      apply(table, tab.tables[table.tableindex()]);
    }
  }
}

void Mirror::apply(const KvxTablePacket& packet, Table& table) {
  table.severity = packet.severity();
  for (auto row = packet.deletedrows().rbegin(); row != packet.deletedrows().rend(); ++row)
    table.rows.erase(table.rows.begin() + *row - 1);
  for (const int row : packet.addedrows())
    table.rows.emplace(table.rows.begin() + row - 1, table.columns.size());
  for (const KvxCellPacket& head : packet.headers()) {
    Column& column = table.columns.at(static_cast<size_t>(head.column()));
    column.title = head.stringpacket().value();
    column.list.assign(head.stringpacket().dropdown().begin(), head.stringpacket().dropdown().end());
  }
  for (const KvxCellPacket& cell : packet.cells()) {
    EXPECT_FALSE(table.showsRowIds && cell.column() == 0 && cell.intpacket().value() != cell.row() + 1);
    table.rows.at(static_cast<size_t>(cell.row())).at(static_cast<size_t>(cell.column())) = textOf(cell);
  }
}

std::map<std::string, std::string> Mirror::describe() const {
  std::map<std::string, std::string> looks;
  for (const auto& [index, tab] : m_tabs) {
    looks[tab.title] = tab.suffix + " severity " + ToString(tab.severity);
    for (const auto& [number, table] : tab.tables) {
      const std::string place = tab.title + " table " + ToString(number);
      looks[place] =
          ToString(static_cast<int>(table.rows.size())) + " rows, severity " + ToString(table.severity);
      for (size_t c = 0; c < table.columns.size(); ++c) {
        std::string& head = looks[place + " column " + ToString(static_cast<int>(c))];
        head = table.columns[c].title;
        for (const std::string& entry : table.columns[c].list) head += "|" + entry;
      }
      for (size_t r = 0; r < table.rows.size(); ++r)
        for (size_t c = table.showsRowIds ? 1 : 0; c < table.rows[r].size(); ++c)
          looks[place + " row " + ToString(static_cast<int>(r)) + " " + table.columns.at(c).title + " " +
                ToString(static_cast<int>(c))] = table.rows[r][c];
    }
  }
  return looks;
}

std::vector<std::string> Mirror::differencesFrom(const Mirror& other) const {
  const auto mine = describe();
  const auto theirs = other.describe();
  std::vector<std::string> differences;
  for (const auto& [place, look] : theirs) {
    const auto found = mine.find(place);
    if (found == mine.end()) {
      differences.push_back(place + ": missing, should be " + look);
    } else if (found->second != look) {
      differences.push_back(place + ": " + found->second + ", should be " + look);
    }
  }
  for (const auto& [place, look] : mine)
    if (!theirs.contains(place)) differences.push_back(place + ": " + look + ", should not be");
  return differences;
}
