#include <gmock/gmock.h>

#include "engine/base/workbook/KVXEImage.h"
#include "tests/wire/WireBook.h"

namespace {

using KVXEEnums::TabType;
using KVXEEnums::Visibility;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Bundle : public WireBook {
 protected:
  /// The node of the table's tab, two levels down.
  const KvxBookBundleNodeData& node() {
    const KvxBookBundleData& bundle = reply().bookbundle();
    return bundle.nodes(0).children(0).children(0);
  }
  const GenericTreeTableData& tableData() {
    return node().gridcontent().components(0).tablechart().tables().tabs(0).table();
  }
};

TEST_F(Bundle, TabsNestAsTheirTypesDo) {
  const KvxHandshakeData& first = reply();
  ASSERT_TRUE(first.has_bookbundle());
  EXPECT_FALSE(first.has_bookpacket());
  ASSERT_EQ(first.bookbundle().nodes_size(), 1);
  const KvxBookBundleNodeData& estimation = first.bookbundle().nodes(0);
  EXPECT_EQ(estimation.type(), "ESTIMATION");
  EXPECT_FALSE(estimation.has_placeholder());  // a group heading
  ASSERT_EQ(estimation.children_size(), 1);
  const KvxBookBundleNodeData& sysmon = estimation.children(0).children(0);
  EXPECT_EQ(sysmon.type(), "SYSMON");
  EXPECT_EQ(sysmon.index(), SysmonTab);
  EXPECT_EQ(sysmon.placeholder(), "Sysmon tab is yet to be implemented. Stay tuned!");
  EXPECT_TRUE(sysmon.has_gridcontent());
  EXPECT_EQ(sysmon.buttons_size(), 3);
  EXPECT_EQ(sysmon.buttons(2).genericbutton().text(), "Manage IP");
  EXPECT_FALSE(reply().has_bookbundle()) << "sent once";
}

TEST_F(Bundle, ATabNeedsItsParent) {
  book()->getTab(TabType::HARD_BLOCKS)->setIsEnabled(false);
  Captured captured;
  const KvxHandshakeData& data = reply();
  EXPECT_EQ(data.bookbundle().nodes(0).children_size(), 0);
  EXPECT_EQ(captured.text(), "Error: Parent Tab not enabled for type: SYSMON\n");
}

TEST_F(Bundle, FollowsTheViewer) {
  KVXETab* hidden = book()->getOrCreateTab(TabType::PLL);
  hidden->setVisibility(Visibility::DEVELOPER);
  table->setVisibility(Visibility::INTERNAL);
  table->getRow(2)->setVisibility(Visibility::INTERNAL);
  table->setColumnVisibility(&B, Visibility::DEVELOPER);

  EXPECT_EQ(node().gridcontent().components_size(), 0);
  KVXEPBHelper::getGlobal().setVisibility(Visibility::INTERNAL);
  const GenericTreeTableData data = tableData();
  EXPECT_EQ(data.title(), "Tiny [Internal]");
  EXPECT_TRUE(data.isinternal());
  EXPECT_EQ(data.model().rows_size(), 3);
  EXPECT_TRUE(data.model().header().columns(BColumn).ishidden());

  KVXEPBHelper::getGlobal().setVisibility(Visibility::DEVELOPER);
  const KvxHandshakeData& all = reply();
  ASSERT_TRUE(all.has_bookbundle());
  EXPECT_EQ(all.bookbundle().nodes(0).children(1).title(), "Pll [Developer]");

  table->setVisibility(Visibility::EXTERNAL);
  KVXEPBHelper::getGlobal().setVisibility(Visibility::EXTERNAL);
  const GenericTreeTableData outside = tableData();
  EXPECT_EQ(outside.title(), "Tiny");
  ASSERT_EQ(outside.model().rows_size(), 2) << "the row for insiders has no place on screen";
  EXPECT_EQ(outside.model().rows(1).index(), 3);
}

TEST_F(Bundle, CellsCarryWhatTheScreenShows) {
  edit(at(1, Name), std::string("first"));
  edit(at(1, A), 7);
  at(1, Choice)->setDDValsAndMarkEngineClean(std::vector<std::string>{"u", "v"});
  at(2, Choice)->setMsg(KvxSeverity::WARNING, "mind");
  const GenericTreeTableData data = tableData();
  EXPECT_EQ(data.tag(), "TINY");
  EXPECT_EQ(data.headerheight(), 60);
  EXPECT_EQ(data.preferredheight(), 100);
  EXPECT_EQ(data.model().header().tooltipdelay(), 500);
  const auto& columns = data.model().header().columns();
  EXPECT_EQ(columns[AColumn].columnclass(), 500);
  EXPECT_EQ(columns[ChoiceColumn].columnclass(), 810);
  EXPECT_THAT(columns[ChoiceColumn].dropdown(), ElementsAre("x", "y"));

  const auto& cells = data.model().rows(0).cells();
  EXPECT_EQ(cells[NameColumn].stringvalue(), "first");
  EXPECT_EQ(cells[AColumn].intvalue(), 7);
  EXPECT_EQ(cells[AColumn].intmin(), 0);
  EXPECT_EQ(cells[AColumn].intmax(), 100);
  EXPECT_FALSE(cells[BColumn].has_floatvalue()) << "blank";
  EXPECT_TRUE(cells[BColumn].has_min());
  EXPECT_FALSE(cells[BColumn].has_max()) << "no bound";
  EXPECT_FALSE(cells[SumColumn].iseditable());
  EXPECT_EQ(cells[SumColumn].background(), 0xF5F5F5);
  EXPECT_THAT(cells[ChoiceColumn].dropdown(), ElementsAre("u", "v"));
  EXPECT_THAT(cells[ChoiceColumn].message(), HasSubstr("Invalid value selected for a dropdown entry."));
  const auto& second = data.model().rows(1).cells(ChoiceColumn);
  EXPECT_EQ(second.message(), "<html>mind</html>");
  EXPECT_EQ(second.background(), 0xFFF2CC);
  EXPECT_EQ(second.dropdown_size(), 0) << "the column's list stands in";
}

TEST_F(Bundle, ImagesHaveASize) {
  static const KVXETitle Picture("PICTURE");
  std::string file = "board.png";
  KVXEImage* image = tab()->createImage(&Picture, file, &KVXECell::NoFormula, false);
  image->setWidth(320);
  KVXECalculationMgr::getGlobal().fullCalculate();
  const KvxImageData sent = node().gridcontent().components(1).image();
  EXPECT_EQ(sent.path(), "board.png");
  EXPECT_EQ(sent.width(), 320);
  EXPECT_EQ(sent.height(), 500);
  EXPECT_FALSE(sent.has_height());

  image->setFileName("");
  const KvxHandshakeData& changed = reply();
  ASSERT_EQ(changed.bookpacket().sections_size(), 1);
  ASSERT_EQ(changed.bookpacket().sections(0).images_size(), 1);
  EXPECT_FALSE(changed.bookpacket().sections(0).images(0).has_path());
}

TEST_F(Bundle, NullMessagesAreRefused) {
  KVXEPBHelper& helper = KVXEPBHelper::getGlobal();
  EXPECT_FALSE(helper.populate(static_cast<KvxHandshakeData*>(nullptr)));
  EXPECT_FALSE(tab()->populate(nullptr));
  EXPECT_FALSE(table->populate(static_cast<GenericTreeTableData*>(nullptr)));
  EXPECT_FALSE(at(1, A)->populate(nullptr));
  EXPECT_FALSE(table->getRow(1)->populate(static_cast<GenericTreeTableRowData*>(nullptr)));
}

}  // namespace
