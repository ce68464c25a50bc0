// Sheets, estimates of other tools and saved projects address the columns of memories by these spellings.

#include "engine/base/tabs/KVXEBramTab.h"
#include "engine/base/tabs/KVXEWramTab.h"
#include "engine/tarvek/KVXETarvekMpramTab.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;

namespace {

struct Column {
  const char* tag;
  const char* display;
  const char* key = "";  ///< of older files; empty where nothing relies on it
  const char* start = "";
};

// The double and triple blanks are part of the names.
const std::vector<Column> bramColumns = {
    {"NAME", "Name", "name"},
    {"BRAM_COUNT", "BRAMs", "count"},
    {"CASCADE_GROUP_SIZE", "Cascade Group Size", "cascade"},
    {"MODE", "Mode", "mode", "BMEM18"},
    {"TOGGLE_RATE", "Toggle Rate", "toggleRate", "0.125"},
    {"PORT_A_CLOCK", "Port A Clock", "portAclockFreq"},
    {"PORT_A_ENABLE_RATE", "Port A Enable Rate", "portAenableRate", "0.25"},
    {"PORT_A_BIT_WIDTH", "Port A  Bit Width", "portAwidth"},
    {"PORT_A_WRITE_MODE", "Port A Write Mode", "portAwriteMode", "NO_CHANGE"},
    {"PORT_A_WRITE_ENABLE", "Port A   Write Enable", "portAwriteRate", "0.25"},
    {"PORT_B_CLOCK", "Port B Clock", "portBclockFreq"},
    {"PORT_B_ENABLE_RATE", "Port B Enable Rate", "portBenableRate", "0.25"},
    {"PORT_B_BIT_WIDTH", "Port B  Bit Width", "portBwidth"},
    {"PORT_B_WRITE_MODE", "Port B Write Mode", "portBwriteMode", "NO_CHANGE"},
    {"PORT_B_WRITE_ENABLE", "Port B   Write Enable", "portBwriteRate", "0.25"},
    {"VCCINT_POWER", "VCCINT Power"},
    {"VCCRAM_POWER", "VCC_RAM Power"},
    {"POWER", "Power (W)"},
    {"USER_COMMENTS", "User Comments"},
};
const std::vector<Column> wramColumns = {
    {"NAME", "Name", "name"},
    {"WRAM_COUNT", "WRAMs", "count"},
    {"CASCADE_GROUP_SIZE", "Cascade Group Size", "cascade"},
    {"LATENCY", "Latency", "pipelineRegs", "1"},
    {"MODE", "Mode", "mode", "SDP"},
    {"AUTO_SLEEP", "Auto Sleep", "autoSleep", "No"},
    {"SLEEP_RATE", "Sleep Rate", "sleepRate", "0"},
    {"AVG_INACTIVE_CYCLES", "Avg Inactive Cycles"},
    {"INPUT_TOGGLE_RATE", "Input Toggle Rate", "", "0.125"},
};
const std::vector<Column> mpramColumns = {
    {"MPRAM_NAME", "Name"},
    {"MPRAM_INT_CLK_FREQ", "Interface Clock Frequency (MHz)"},
    {"MPRAM_TOGGLE_RATE", "Toggle Rate", "", "0.125"},
    {"MPRAM_AVG_DUTY_CYCLE", "Avg Active Duty Cycle", "", "0.5"},
    {"MPRAM_NUM_MEMORY", "Number of RAMs"},
    {"MPRAM_VCCINT_POWER", "Vccint Power (W)"},
};

class MemoryColumns : public ::testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Architectures, MemoryColumns, ::testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& arch) { return arch.param.substr(0, 5); });

void expectColumns(const KVXETable* table, const KVXETitle& first, const std::vector<Column>& columns) {
  ASSERT_TRUE(table);
  KVXEHeaderRow* header = table->getHeaderRow();
  unsigned int index = table->findTitle(&first);
  for (const Column& column : columns) {
    SCOPED_TRACE(column.tag);
    ASSERT_LT(index, header->getColumnCount());
    const KVXETitle* title = header->getIndexToTitle(index);
    EXPECT_EQ(title->getTag(TitleType::SW), column.tag);
    EXPECT_EQ(title->getTag(TitleType::DISPLAY), column.display);
    if (*column.key) {
      EXPECT_EQ(title->getTag(TitleType::LVR), column.key);
    }
    std::string start;
    if (!header->getDefaultCell(index)->getVal(start, false)) start.clear();
    EXPECT_EQ(start, column.start);
    ++index;
  }
}

TEST_P(MemoryColumns, StandInOrderWithTheirSpellingsAndDefaults) {
  const DeviceBook book(GetParam());
  const auto table = [&](TabType type, const KVXETitle& title) {
    return book.book()->getOrCreateTab(type)->getTable(&title);
  };
  expectColumns(table(TabType::BRAM, KVXEBramTab::m_BramConfigTable), KVXEBramTab::m_Name, bramColumns);
  expectColumns(table(TabType::WRAM, KVXEWramTab::m_WramConfigTable), KVXEWramTab::m_Name, wramColumns);
  if (GetParam() == KVXEPartSelection::m_arkeonArchName)
    expectColumns(table(TabType::MPRAM, KVXETarvekMpramTab::m_ConfigTable), KVXETarvekMpramTab::m_Name,
                  mpramColumns);
}

TEST_P(MemoryColumns, TellTheRulesOfThePorts) {
  const DeviceBook book(GetParam());
  const KVXETable* table = book.book()->getTable(TabType::BRAM, &KVXEBramTab::m_BramConfigTable);
  const auto toolTip = [&](const KVXETitle& title) {
    return table->getHeaderRow()->getDisplayCell(table->findTitle(&title))->getMsg()->getDisplayText();
  };
  EXPECT_EQ(toolTip(KVXEBramTab::m_Name), "<html>The name of this module.</html>");
  EXPECT_EQ(toolTip(KVXEBramTab::m_PortAWriteEnable),
            "<html>The percentage of the time that PortA is being written to, independent of the RAM enable. "
            "Read enable is (100% - Write Enable).\nNot used in SDP and FIFO configurations as PortA is the "
            "read port and PortB is the write port.</html>");
}

}  // namespace
