// The edits of the front end as they reach the book.

#include <iostream>
#include <optional>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/swig/CellEdit.h"
#include "engine/swig/KVXEPBHelper.h"
#include "messages/handshake.pb.h"

namespace {

/// Walks a packet down to its cells; every step that finds nothing says so and ends the walk.
class Absorption {
 public:
  explicit Absorption(const KVXEBook& book) : m_book(book) {}

  bool absorb(const KvxBookPacketData& packet) {
    for (const KvxSectionPacket& section : packet.sections())
      if (!absorb(section)) return false;
    return true;
  }

 private:
  bool absorb(const KvxSectionPacket& section) {
    m_tabIndex = section.tabindex();
    m_tab = section.has_tabindex() ? m_book.getTab(static_cast<unsigned int>(m_tabIndex)) : nullptr;
    if (!m_tab) return fail("TabNotFound", __LINE__);
    for (const KvxTablePacket& table : section.tables())
      if (!absorb(table)) return false;
    return true;
  }

  bool absorb(const KvxTablePacket& packet) {
    m_tableIndex = packet.tableindex();
    m_table =
        packet.has_tableindex() ? m_tab->getTable(static_cast<unsigned int>(packet.tableindex())) : nullptr;
    if (!m_table) return fail("TableNotFound", __LINE__);
    for (const KvxCellPacket& cell : packet.cells())
      if (!absorb(cell)) return false;
    m_tableIndex.reset();
    return true;
  }

  bool absorb(const KvxCellPacket& packet) {
    m_row.reset();
    KVXECell* cell = nullptr;
    if (packet.has_row() && packet.has_column()) {
      m_row = packet.row();
      unsigned int index = 0;
      KVXERow* row = m_table->guiToEngineIndex(packet.row(), index) ? m_table->getRow(index) : nullptr;
      if (!row) return fail("RowNotFound", __LINE__);
      cell = row->getChild(static_cast<unsigned int>(packet.column()));
    }
    if (!cell && packet.has_uid()) cell = KVXEUID(packet.uid(), KVXEEnums::AtomType::CELL).getCell();
    // The cells of a header row are the book's own.
    if (!cell || cell->getRow()->getIndex() == 0) return fail("CellNotFound", __LINE__);
    return store(*cell, packet);
  }

  bool store(KVXECell& cell, const KvxCellPacket& packet) {
    switch (packet.value_case()) {
      case KvxCellPacket::kFloatPacket:
        return storeValue(cell, packet.floatpacket());
      case KvxCellPacket::kIntPacket:
        return storeValue(cell, packet.intpacket());
      case KvxCellPacket::kStringPacket:
        return storeValue(cell, packet.stringpacket());
      default:
        return fail("PB Value not set properly by GUI", __LINE__);
    }
  }

  template <class Packet>
  bool storeValue(KVXECell& cell, const Packet& packet) {
    if (packet.has_value()) {
      kvxe::editCell(cell, packet.value());
    } else {
      kvxe::blankCell(cell);
    }
    return true;
  }

  bool fail(const char* what, int line) const {
    std::cout << "Error: " << what << " (@Line:" << line
              << " - bool KVXEPBHelper::absorb(const KvxBookPacketData&))";
    const char* separator = " ";
    const auto dump = [&separator](const char* name, int value) {
      std::cout << separator << name << " = " << value;
      separator = " , ";
    };
    dump("tabIndex", m_tabIndex);
    if (m_tableIndex) dump("tableIndex", *m_tableIndex);
    if (m_row) dump("cp.rowindex()", *m_row);
    std::cout << '\n';
    return false;
  }

  const KVXEBook& m_book;
  KVXETab* m_tab = nullptr;
  KVXETable* m_table = nullptr;
  int m_tabIndex = 0;
  std::optional<int> m_tableIndex;
  std::optional<int> m_row;
};

}  // namespace

bool KVXEPBHelper::absorb(const KvxHandshakeData* message) {
  if (!message || message->ByteSizeLong() == 0 || !message->has_bookpacket()) return true;
  return absorb(message->bookpacket());
}

bool KVXEPBHelper::absorb(const KvxBookPacketData& packet) {
  if (packet.sections().empty()) return true;
  const KVXEBook* book = currentBook();
  if (book) return Absorption(*book).absorb(packet);
  std::cout << "Error: BookNotFound (@Line:" << __LINE__
            << " - bool KVXEPBHelper::absorb(const KvxBookPacketData&))" << '\n';
  return false;
}
