// The refresh: what changed since the front end last heard of it.

#include <boost/sort/pdqsort/pdqsort.hpp>
#include <iostream>

#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXECellOrder.h"
#include "engine/base/workbook/KVXECellStateMgr.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXEImage.h"
#include "engine/base/workbook/KVXETemplateCell.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "engine/swig/CellLook.h"
#include "engine/swig/KVXEPBHelper.h"
#include "messages/book.pb.h"

using KVXEEnums::CellState;
using KVXEEnums::CellType;
using KVXEEnums::GridComponentType;

namespace {

/// Value, list and bounds of a number cell. Returns whether it has a value.
template <class T, class Packet>
bool populateNumber(KVXETemplateCell<T>& cell, Packet& packet) {
  T value{};
  const bool hasValue = cell.getVal(value, true);
  if (hasValue) {
    cell.unitAdjustment(value, true);
    packet.set_value(value);
  }
  if (cell.hasOwnDDVals()) {
    for (T entry : cell.getDDVals()) {
      cell.unitAdjustment(entry, true);
      packet.add_dropdown(entry);
    }
  }
  const auto [least, most] = cell.getRange();
  if (least != kvxeBlank<T>) packet.set_min(least);
  if (most != kvxeBlank<T>) packet.set_max(most);
  return hasValue;
}

bool populateText(KVXEStringCell& cell, StringPacket& packet) {
  const std::string& text = cell.readVal(true);
  if (!text.empty()) packet.set_value(text);
  if (cell.hasOwnDDVals())
    for (const std::string& entry : cell.KVXETemplateCell<std::string>::getDDVals())
      packet.add_dropdown(entry);
  return !text.empty();
}

void populateValue(KVXECell* cell, KvxCellPacket& packet) {
  bool hasValue = false;
  switch (cell->getCellType()) {
    case CellType::FLOAT:
      hasValue = populateNumber(static_cast<KVXEFloatCell&>(*cell), *packet.mutable_floatpacket());
      break;
    case CellType::INT:
      hasValue = populateNumber(static_cast<KVXEIntCell&>(*cell), *packet.mutable_intpacket());
      break;
    default:
      hasValue = populateText(static_cast<KVXEStringCell&>(*cell), *packet.mutable_stringpacket());
  }
  packet.set_unit(hasValue ? cell->getUnitSuffix() : std::string());
}

/// The head of a column: its text, and the list that cells of the column have without one of their own.
void populateHead(KVXEHeaderCell& head, KvxCellPacket& packet) {
  StringPacket* text = packet.mutable_stringpacket();
  std::string title;
  if (head.getVal(title, true)) text->set_value(title);
  for (std::string& entry : head.getShownColumnList()) text->add_dropdown(std::move(entry));
}

/// Sorts cells into sections and tables as they come, in the order of the book.
class PacketWriter {
 public:
  explicit PacketWriter(KvxBookPacketData& packet) : m_packet(packet) {}

  void add(KVXECell* cell) {
    KVXETable* table = cell->getRow() ? cell->getRow()->getTable() : nullptr;
    if (table && table->getTab() && hasNews(*cell, *table) && openSection(table->getTab())) {
      if (table->getPBGridViewType() == GridComponentType::IMAGE) {
        table->populate(m_section->add_images());
      } else if (openTable(table)) {
        addCell(cell, *table);
      }
    }
    // What is not sent, since the viewer does not see it, is part of the bundle that a new viewer gets.
    cell->markGuiClean();
  }

 private:
  /// Whatever an edit may have changed was evaluated; most of it is as it was.
  static bool hasNews(KVXECell& cell, const KVXETable& table) {
    return cell.getRow()->getIndex() == 0 || cell.m_sentLook != kvxe::lookOf(cell) ||
           !table.getAddedRowIndices().empty() || !table.getDeletedRowIndices().empty();
  }

  bool openSection(KVXETab* tab) {
    if (tab == m_tab) return m_section != nullptr;
    m_tab = tab;
    m_table = nullptr;
    m_section = nullptr;
    if (!tab->getIsEnabled() || !KVXEViewer::sees(tab->getVisibility())) return false;
    m_section = m_packet.add_sections();
    m_section->set_tabindex(static_cast<int>(tab->getIndex()));
    if (const std::string suffix = tab->getPBSuffix(); !suffix.empty()) m_section->set_suffix(suffix);
    m_section->set_severity(tab->getTabSeverity());
    return true;
  }

  bool openTable(KVXETable* table) {
    if (table == m_table) return m_tablePacket != nullptr;
    m_table = table;
    m_tablePacket = nullptr;
    if (!KVXEViewer::sees(table->getVisibility())) return false;
    m_tablePacket = m_section->add_tables();
    m_tablePacket->set_tableindex(static_cast<int>(table->getIndex()));
    m_tablePacket->set_severity(table->getTableSeverity());
    for (const unsigned int row : table->getAddedRowIndices())
      m_tablePacket->add_addedrows(static_cast<int>(row));
    for (const unsigned int row : table->getDeletedRowIndices())
      m_tablePacket->add_deletedrows(static_cast<int>(row));
    table->clearRowIndices();
    return true;
  }

  void addCell(KVXECell* cell, const KVXETable& table) {
    if (cell->getState() == CellState::HEADER_DIRTY) return addHead(cell, table);
    int row = 0;
    if (!table.engineToGuiIndex(cell->getRow()->getIndex(), row) || !cell->getRow()->hasPlaceOnScreen())
      return;
    KvxCellPacket* packet = m_tablePacket->add_cells();
    packet->set_row(row);
    packet->set_column(static_cast<int>(cell->getColumnIndex()));
    const auto [foreground, background] = cell->getColor();
    packet->set_foreground(static_cast<int>(foreground));
    packet->set_background(static_cast<int>(background));
    packet->set_iseditable(cell->getIsEditable());
    packet->set_message(cell->getMsg() ? cell->getMsg()->getDisplayText() : std::string());
    packet->set_uid(KVXEUID(cell).getUId());
    populateValue(cell, *packet);
    cell->m_sentLook = kvxe::lookOf(*cell);
  }

  void addHead(KVXECell* cell, const KVXETable& table) {
    const unsigned int column = (cell->getColumnIndex() - 1) / 2;  // a header row holds two cells a column
    if (column >= table.getColumnCount() || cell->getCellType() != CellType::HEADER) return;
    KvxCellPacket* packet = m_tablePacket->add_headers();
    packet->set_column(static_cast<int>(column));
    packet->set_uid(KVXEUID(cell).getUId());
    populateHead(static_cast<KVXEHeaderCell&>(*cell), *packet);
  }

  KvxBookPacketData& m_packet;
  KVXETab* m_tab = nullptr;
  KVXETable* m_table = nullptr;
  KvxSectionPacket* m_section = nullptr;    // null for a tab that is not sent
  KvxTablePacket* m_tablePacket = nullptr;  // null for a table that is not sent
};

/// With another list on the head of its column a cell may have become right or wrong: it waits as well.
void judgeColumn(KVXECell& head) {
  const KVXETable& table = *head.getRow()->getTable();
  const unsigned int column = (head.getColumnIndex() - 1) / 2;
  for (unsigned int row = 1; row < table.getRowCount(); ++row)
    if (KVXECell* cell = table.getCellAt(row, column)) cell->addDDErrorMsgIfApplicable();
}

void judgeColumnsOfWaitingHeads() {
  std::vector<KVXECell*> cells;
  KVXECellStateMgr::getGlobal().getCellsForGuiRefresh(cells);
  for (KVXECell* cell : cells)
    if (cell->getState() == CellState::HEADER_DIRTY && cell->getCellType() == CellType::HEADER)
      judgeColumn(*cell);
}

/// The cells that wait, in the order of the book.
std::vector<KVXEOrderedCell> waitingCells() {
  std::vector<KVXECell*> cells;
  KVXECellStateMgr::getGlobal().getCellsForGuiRefresh(cells);
  std::vector<KVXEOrderedCell> ordered(cells.begin(), cells.end());
  boost::sort::pdqsort(ordered.begin(), ordered.end());
  return ordered;
}

}  // namespace

bool KVXEPBHelper::populate(KvxBookPacketData* packet) {
  if (!packet) return false;
  packet->Clear();
  judgeColumnsOfWaitingHeads();
  const std::vector<KVXEOrderedCell> cells = waitingCells();
  if (cells.empty()) return true;
  // Messages first: they decide on the severities with which tables and tabs open.
  for (const KVXEOrderedCell& waiting : cells) {
    if (waiting.cell->getState() == CellState::HEADER_DIRTY) continue;  // a title is no entry of the list
    waiting.cell->addDDErrorMsgIfApplicable();
    waiting.cell->addRangeErrorMsgIfApplicable();
  }
  PacketWriter writer(*packet);
  for (const KVXEOrderedCell& waiting : cells) writer.add(waiting.cell);
  addChangedLooks(*packet);
  return true;
}

// Tabs whose cells are as they were.

KVXEPBHelper::TabLook KVXEPBHelper::TabLook::of(KVXETab* tab) {
  if (!tab || !tab->getIsEnabled() || !KVXEViewer::sees(tab->getVisibility())) return {};
  return {tab->getPBSuffix(), tab->getTabSeverity()};
}

void KVXEPBHelper::TabLook::populate(KvxSectionPacket& section) const {
  section.set_suffix(suffix);
  section.set_severity(severity);
}

void KVXEPBHelper::rememberLooks() {
  m_sentLooks.clear();
  const KVXEBook* book = currentBook();
  for (unsigned int i = 0; book && i < book->getTabCount(); ++i)
    m_sentLooks.push_back(TabLook::of(book->getTab(i)));
}

void KVXEPBHelper::addChangedLooks(KvxBookPacketData& packet) {
  const std::vector<TabLook> before = std::move(m_sentLooks);
  rememberLooks();
  for (size_t i = 0; i < m_sentLooks.size(); ++i) {
    if (i < before.size() && before[i] == m_sentLooks[i]) continue;
    auto& sections = *packet.mutable_sections();
    const auto open = std::find_if(sections.begin(), sections.end(), [&](const KvxSectionPacket& section) {
      return section.tabindex() == static_cast<int>(i);
    });
    KvxSectionPacket& section = open != sections.end() ? *open : *packet.add_sections();
    section.set_tabindex(static_cast<int>(i));
    m_sentLooks[i].populate(section);
  }
}
