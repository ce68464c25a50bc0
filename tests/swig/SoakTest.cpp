#include <unistd.h>

#include <fstream>

#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXECell.h"
#include "engine/base/workbook/KVXEHeaderRow.h"
#include "engine/base/workbook/KVXETab.h"
#include "tests/kit/Captured.h"
#include "tests/swig/FrontEnd.h"

namespace {

using Op = KvxOperationData;

#ifdef __SANITIZE_ADDRESS__
constexpr bool IsMemoryMeasured = false;  // freed memory stays with the sanitizer for a while
#else
constexpr bool IsMemoryMeasured = true;
#endif
constexpr int Handshakes = 10000;
constexpr int WarmUp = 1000;

double residentMegabytes() {
  std::ifstream file("/proc/self/statm");
  double total = 0, resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

/// Adds an edit of a cell to a request: as text, whole number or number.
template <class T>
void addEdit(KvxHandshakeData& message, KVXECell* cell, const T& value) {
  const KVXEUID uid(cell);
  KvxSectionPacket* section = message.mutable_bookpacket()->add_sections();
  section->set_tabindex(static_cast<int>(uid.getTab()->getIndex()));
  KvxTablePacket* table = section->add_tables();
  table->set_tableindex(static_cast<int>(uid.getTable()->getIndex()));
  KvxCellPacket* packet = table->add_cells();
  packet->set_row(static_cast<int>(cell->getRow()->getIndex()) - 1);
  packet->set_column(static_cast<int>(cell->getColumnIndex()));
  if constexpr (std::is_same_v<T, float>)
    packet->mutable_floatpacket()->set_value(value);
  else if constexpr (std::is_same_v<T, int>)
    packet->mutable_intpacket()->set_value(value);
  else
    packet->mutable_stringpacket()->set_value(value);
}

/// Logic on one clock, edited by a front end.
class LogicDesign {
 public:
  using Clock = KVXEClockTab;
  using Logic = KVXELogicTab;
  static constexpr unsigned int Modules = 4;

  LogicDesign() {
    m_frontEnd.createProject(KVXEPartSelection::m_morlanArchName);
    const KVXEBook* book = KVXEBookMgr::getGlobal().getCurrentBook();
    m_clocks = book->getTab(KVXEEnums::TabType::CLOCK)->getTable(&Clock::m_ClockConfigTable);
    m_modules = book->getTab(KVXEEnums::TabType::LOGIC)->getTable(&Logic::m_LogicConfigTable);
    KvxHandshakeData message = FrontEnd::request(Op::INCREMENTAL_CALCULATION);
    addEdit(message, m_clocks->getCellAt(1, &Clock::m_Name), std::string("core"));
    addEdit(message, m_clocks->getCellAt(1, &Clock::m_ClockFreq), 100.0f);
    m_frontEnd.send(message);
    message = FrontEnd::request(Op::INCREMENTAL_CALCULATION);
    for (unsigned int row = 1; row <= Modules; ++row)
      addEdit(message, m_modules->getCellAt(row, &Logic::m_Clock), std::string("100.000 MHz (core)"));
    m_frontEnd.send(message);
  }

  /// An edit that is not like the one before; what comes back.
  KvxHandshakeData edit(int count) {
    const unsigned int row = 1 + static_cast<unsigned int>(count) % Modules;
    KvxHandshakeData message = FrontEnd::request(Op::INCREMENTAL_CALCULATION);
    addEdit(message, m_clocks->getCellAt(1, &Clock::m_ClockFreq), static_cast<float>(100 + count % 97));
    addEdit(message, m_modules->getCellAt(row, &Logic::m_LutAsLogic), 500 + count % 89);
    addEdit(message, m_modules->getCellAt(row, &Logic::m_ToggleRate), static_cast<float>(5 + count % 83));
    return m_frontEnd.send(message);
  }

 private:
  FrontEnd m_frontEnd;
  KVXETable* m_clocks = nullptr;
  KVXETable* m_modules = nullptr;
};

std::size_t cellsIn(const KvxBookPacketData& packet) {
  std::size_t count = 0;
  for (const KvxSectionPacket& section : packet.sections())
    for (const KvxTablePacket& table : section.tables())
      count += static_cast<std::size_t>(table.cells_size());
  return count;
}

TEST(Soak, ThousandsOfHandshakesKeepTheMemory) {
  LogicDesign design;
  double before = 0;
  std::size_t changed = 0;
  for (int i = 0; i < Handshakes; ++i) {
    if (i == WarmUp) before = residentMegabytes();
    const KvxHandshakeData reply = design.edit(i);
    ASSERT_EQ(partsOf(reply), "bookPacket, status");
    changed += cellsIn(reply.bookpacket());
  }
  EXPECT_GT(changed, 10u * Handshakes) << "the edits do not reach the power";
  if (IsMemoryMeasured) {
    EXPECT_LT(residentMegabytes(), before * 1.02);
  }
}

}  // namespace
