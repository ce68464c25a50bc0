// A front end that applies only packets to its copy of the first bundle holds what a fresh bundle holds, and
// what the engine's own cells hold.

#include <gmock/gmock.h>

#include <random>

#include "engine/base/tabs/KVXEBramTab.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXELogicTab.h"
#include "engine/base/workbook/KVXETableOperations.h"
#include "engine/base/workbook/KVXEViewer.h"
#include "engine/swig/KVXEPBHelper.h"
#include "messages/handshake.pb.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/wire/Mirror.h"

namespace {

using KVXEEnums::CellType;
using KVXEEnums::TableOperation;
using KVXEEnums::TabType;
using KVXEEnums::Visibility;
using ::testing::IsEmpty;

class FrontEnd : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    m_book = std::make_unique<DeviceBook>(GetParam());
    m_book->trim(12);
    putToWork();
    KVXEPBHelper::getGlobal().setVisibility(Visibility::EXTERNAL);
    KVXECalculationMgr::getGlobal().fullCalculate();
    receive();
  }
  /// A clock with logic and memories on it, so that tabs have power and shares of it.
  void putToWork() {
    const auto table = [this](TabType type, const KVXETitle& title) {
      return m_book->book()->getTable(type, &title);
    };
    KVXETable* clocks = table(TabType::CLOCK, KVXEClockTab::m_ClockConfigTable);
    m_book->put(clocks->getCellAt(1, &KVXEClockTab::m_Name), std::string("core"));
    m_book->put(clocks->getCellAt(1, &KVXEClockTab::m_ClockFreq), 300.0f);
    const std::string clock = "300.000 MHz (core)";
    KVXETable* logic = table(TabType::LOGIC, KVXELogicTab::m_LogicConfigTable);
    m_book->put(logic->getCellAt(1, &KVXELogicTab::m_Clock), clock);
    m_book->put(logic->getCellAt(1, &KVXELogicTab::m_LutAsLogic), 20000);
    KVXETable* memories = table(TabType::BRAM, KVXEBramTab::m_BramConfigTable);
    m_book->put(memories->getCellAt(1, &KVXEBramTab::m_PortAClock), clock);
    m_book->put(memories->getCellAt(1, &KVXEBramTab::m_BramCount), 400);
  }
  void TearDown() override { KVXEPBHelper::getGlobal().setVisibility(Visibility::INTERNAL); }

  unsigned int draw(size_t count) { return static_cast<unsigned int>(m_random() % count); }

  void receive() {
    KvxHandshakeData reply;
    EXPECT_TRUE(KVXEPBHelper::getGlobal().populate(&reply));
    m_bundles += reply.has_bookbundle();
    m_mirror.apply(reply);
  }

  /// A table of the book that the viewer sees and that suits the test.
  KVXETable* drawTable(const std::function<bool(const KVXETable&)>& suits) {
    std::vector<KVXETable*> tables;
    for (unsigned int t = 0; t < m_book->book()->getTabCount(); ++t) {
      KVXETab* tab = m_book->book()->getTab(t);
      if (!tab || !tab->getIsEnabled() || !KVXEViewer::sees(tab->getVisibility())) continue;
      for (unsigned int i = 0; i < tab->getTableCount(); ++i)
        if (KVXETable* table = tab->getTable(i); KVXEViewer::sees(table->getVisibility()) && suits(*table))
          tables.push_back(table);
    }
    return tables[draw(tables.size())];
  }

  void editCell();
  void editRows();

  std::unique_ptr<DeviceBook> m_book;
  Mirror m_mirror;
  std::mt19937 m_random{11};
  int m_bundles = 0;
};

/// Sometimes right, sometimes wrong, sometimes nothing.
void fillValue(KvxCellPacket& packet, KVXECell* cell, std::mt19937& random) {
  const unsigned int luck = static_cast<unsigned int>(random() % 10);
  if (cell->getCellType() == CellType::STRING) {
    std::vector<std::string> entries{"text", "a\xC3\xA4\"<>", ""};
    if (luck > 1 && cell->isInADropdownColumn()) cell->getDDVals(entries);
    if (luck > 0)
      packet.mutable_stringpacket()->set_value(entries.empty() ? "?" : entries[random() % entries.size()]);
    packet.mutable_stringpacket();
    return;
  }
  static constexpr float numbers[] = {0.0f, 1.0f, 0.25f, 2.0f, 40.0f, 100.0f, -1.0f, 1e9f, NAN, INFINITY};
  if (cell->getCellType() == CellType::INT) {
    std::vector<std::string> entries;
    const bool hasList = cell->getDDVals(entries);
    const int number =
        hasList ? std::stoi(entries[random() % entries.size()]) : static_cast<int>(random() % 300);
    if (luck > 1) packet.mutable_intpacket()->set_value(luck > 2 ? number : -number);
    packet.mutable_intpacket();
  } else {
    if (luck > 0) packet.mutable_floatpacket()->set_value(numbers[random() % std::size(numbers)]);
    packet.mutable_floatpacket();
  }
}

void FrontEnd::editCell() {
  KVXETable* table = drawTable([](const KVXETable& t) { return t.getRowCount() > 1; });
  const unsigned int place = draw(table->getRowCount());
  unsigned int index = 0;
  KVXERow* row = table->guiToEngineIndex(static_cast<int>(place), index) ? table->getRow(index) : nullptr;
  if (!row) return;
  KVXECell* cell = row->getChild(draw(row->getChildCount()));
  KvxBookPacketData packet;
  KvxSectionPacket* section = packet.add_sections();
  section->set_tabindex(static_cast<int>(table->getTab()->getIndex()));
  KvxTablePacket* tablePacket = section->add_tables();
  tablePacket->set_tableindex(static_cast<int>(table->getIndex()));
  KvxCellPacket* cellPacket = tablePacket->add_cells();
  cellPacket->set_row(static_cast<int>(place));
  cellPacket->set_column(static_cast<int>(cell->getColumnIndex()));
  fillValue(*cellPacket, cell, m_random);
  EXPECT_TRUE(KVXEPBHelper::getGlobal().absorb(packet)) << packet.ShortDebugString();
  KVXECalculationMgr::getGlobal().incrCalculate();
}

void FrontEnd::editRows() {
  KVXETable* table = drawTable([](const KVXETable& t) { return t.getHasTableEditingFeatures(); });
  const auto operation = static_cast<TableOperation>(draw(6));
  const int count = static_cast<int>(table->getRowCount()) - 1;
  if (count < 5 && operation == TableOperation::DELETE) return;
  std::vector<int> rows;
  for (unsigned int i = 1 + draw(3); i-- > 0;)
    rows.push_back(static_cast<int>(draw(static_cast<size_t>(count))));
  const int target = static_cast<int>(draw(static_cast<size_t>(count)));
  KVXETableOperations::getGlobal().performTableOperation(nullptr, operation,
                                                         static_cast<int>(table->getTab()->getIndex()),
                                                         static_cast<int>(table->getIndex()), rows, target);
  KVXECalculationMgr::getGlobal().incrCalculate();
}

TEST_P(FrontEnd, HearsOfAShareThatChangesWithAnotherTab) {
  const int bramTab = static_cast<int>(TabType::BRAM);
  const std::string before = m_mirror.suffix(bramTab);
  EXPECT_NE(before, "");
  KVXETable* logic = m_book->book()->getTable(TabType::LOGIC, &KVXELogicTab::m_LogicConfigTable);
  m_book->edit(logic->getCellAt(1, &KVXELogicTab::m_LutAsLogic), 300000);
  receive();
  EXPECT_EQ(m_bundles, 1);
  EXPECT_NE(m_mirror.suffix(bramTab), before);
  EXPECT_EQ(m_mirror.suffix(bramTab), m_book->book()->getTab(TabType::BRAM)->getPBSuffix());
}

TEST_P(FrontEnd, StaysEqualByPacketsAlone) {
  const Captured silence;
  for (int step = 1; step <= 500; ++step) {
    const unsigned int luck = draw(20);
    if (luck == 0) {
      KVXECalculationMgr::getGlobal().fullCalculate();
    } else if (luck < 5) {
      editRows();
    } else {
      editCell();
    }
    receive();
    if (step % 50 != 0) continue;
    KVXECellStateMgr::getGlobal().requestGuiRedraw();
    KvxHandshakeData bundle;
    KVXEPBHelper::getGlobal().populate(&bundle);
    Mirror fresh;
    fresh.apply(bundle);
    const auto differences = m_mirror.differencesFrom(fresh);
    ASSERT_THAT(differences, IsEmpty()) << "after step " << step;
  }
  EXPECT_LT(m_bundles, 60) << "most replies are packets";
}

INSTANTIATE_TEST_SUITE_P(Architectures, FrontEnd, ::testing::ValuesIn(DeviceBook::architectures()));

}  // namespace
