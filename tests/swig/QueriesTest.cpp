#include "engine/base/selection/KVXEPartSelection.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/base/workbook/KVXEBookMgr.h"
#include "engine/base/workbook/KVXETab.h"
#include "engine/base/workbook/KVXETable.h"
#include "tests/kit/Captured.h"
#include "tests/swig/FrontEnd.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

TEST(Queries, ListsStayAsTheyAreWithoutASelection) {
  FrontEnd frontEnd;
  KVXEGuiInterface& gui = frontEnd.gui();
  std::vector<std::string> list{"before"};
  gui.resetDeviceSelectionDropDowns();
  gui.setDeviceSelectionDropDownCurrentValue(0, "x");
  gui.getDeviceSelectionDropDownsList(list);
  EXPECT_EQ(gui.getDeviceSelectionDropDownValues(0, list), -1);
  EXPECT_THAT(list, ElementsAre("before"));
  EXPECT_EQ(gui.getSelectedDeviceName(), "");
}

TEST(Queries, ArchitectureIsOneDropDown) {
  FrontEnd frontEnd;
  KVXEGuiInterface& gui = frontEnd.gui();
  std::vector<std::string> list{"before"};
  gui.getArchitectureDropDownsList(list);
  EXPECT_EQ(gui.getArchitectureDropDownValues(7, list), 0);
  EXPECT_THAT(list, ElementsAre("before", "Architecture", "Arkeon", "Ludra", "Hexaline+"));
  for (const std::string name : {"Arkeon", "Ludra", "Hexaline+"}) {
    gui.setArchitectureDropDownCurrentValue(-3, name);
    EXPECT_EQ(KVXEPartSelection::getGlobal()->getArchName(), name);
  }
  gui.setArchitectureDropDownCurrentValue(0, "Abacus");
  EXPECT_EQ(KVXEPartSelection::getGlobal(), nullptr);
}

TEST(Queries, DropDownsLeadToADevice) {
  FrontEnd frontEnd;
  frontEnd.chooseArchitecture("Arkeon");
  KVXEGuiInterface& gui = frontEnd.gui();
  const std::string device = gui.getSelectedDeviceName();
  EXPECT_NE(device, "");
  std::vector<std::string> values;
  for (const int index : {-1, std::numeric_limits<int>::min(), 99}) {
    EXPECT_EQ(gui.getDeviceSelectionDropDownValues(index, values), -1);
    gui.setDeviceSelectionDropDownCurrentValue(index, "x");
  }
  EXPECT_EQ(gui.getSelectedDeviceName(), device);
  frontEnd.choose(KVXEPartSelection::m_devStr, "no such device");
  EXPECT_NE(gui.getSelectedDeviceName(), "") << "reading the drop-downs repairs the choice";
}

TEST(Queries, ConstantAnswers) {
  FrontEnd frontEnd;
  EXPECT_EQ(KVXEGuiInterface::getSelectedDeviceToolTip(), "Selected Device Tooltip");
  EXPECT_EQ(KVXEGuiInterface::getCurrentDesignName(), "KVX");
  EXPECT_TRUE(KVXEGuiInterface::hasPartForSelectedArchitecture());
  EXPECT_FALSE(frontEnd.gui().canUndoLastEditOperation() || frontEnd.gui().canRedoLastUndo());
  EXPECT_EQ(frontEnd.gui().undoLastEditOperation() + frontEnd.gui().redoLastUndo(), "");
}

TEST(Queries, TableEditsAreFollowedUpByAHandshake) {
  FrontEnd frontEnd;
  frontEnd.createProject("Hexaline+");
  constexpr int Clock = static_cast<int>(KVXEEnums::TabType::CLOCK);
  KVXETab* tab = KVXEBookMgr::getGlobal().getCurrentBook()->getTab(KVXEEnums::TabType::CLOCK);
  int index = 0;
  while (!tab->getTable(static_cast<unsigned int>(index))->getHasTableEditingFeatures()) ++index;
  const KVXETable* table = tab->getTable(static_cast<unsigned int>(index));
  const auto rows = table->getRowCount();

  KVXEGuiInterface& gui = frontEnd.gui();
  std::vector<int> selection{0, 1, 2};
  EXPECT_TRUE(
      gui.hasTableEditingFeatures(Clock, index) && gui.canInsertTableRow(Clock, index, 0) &&
      gui.canDeleteTableRows(Clock, index, selection) && gui.canDuplicateTableRows(Clock, index, selection) &&
      gui.canPasteTableRows(Clock, index, selection, 5) &&
      gui.canFillDownTableRows(Clock, index, selection) && gui.canClearTableRows(Clock, index, selection));
  EXPECT_EQ(gui.insertTableRow(Clock, index, 1), "");
  EXPECT_EQ(table->getRowCount(), rows + 1);
  EXPECT_EQ(gui.duplicateTableRows(Clock, index, selection), "");
  EXPECT_EQ(table->getRowCount(), rows + 4);
  EXPECT_EQ(gui.pasteTableRows(Clock, index, selection, 5), "");
  EXPECT_EQ(gui.fillDownTableRows(Clock, index, selection), "");
  EXPECT_EQ(gui.clearTableRows(Clock, index, selection), "");
  EXPECT_EQ(gui.deleteTableRows(Clock, index, selection), "");
  EXPECT_EQ(table->getRowCount(), rows + 1);

  const KvxHandshakeData reply = frontEnd.send(KvxOperationData::TABLE_EDIT);
  EXPECT_EQ(partsOf(reply), "bookPacket, status");
  bool hasAddedRows = false;
  for (const KvxSectionPacket& section : reply.bookpacket().sections())
    for (const KvxTablePacket& packet : section.tables())
      if (section.tabindex() == Clock && packet.tableindex() == index)
        hasAddedRows = packet.addedrows_size() > 0;
  EXPECT_TRUE(hasAddedRows);

  const int size = gui.getGenericTreeTableDataSize(Clock, index);
  std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
  gui.getGenericTreeTableData(Clock, index, bytes.data(), size);
  GenericTreeTableData data;
  ASSERT_TRUE(data.ParseFromArray(bytes.data(), size));
  EXPECT_EQ(data.model().rows_size(), static_cast<int>(rows));
}

}  // namespace
