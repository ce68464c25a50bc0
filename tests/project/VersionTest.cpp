// What the version file may say, and what the book makes of it.

#include "engine/base/project/KVXEVersion.h"

#include <boost/property_tree/ptree.hpp>

#include "engine/base/project/KVXEPrjContentMgr.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/Messages.h"
#include "tests/kit/ProjectDirectory.h"

using namespace KVXEEnums;
using boost::property_tree::ptree;
using Clock = KVXEClockTab;
using Summary = KVXESummaryTab;

namespace {

class Version : public ::testing::Test {
 protected:
  static constexpr const char* Clocks = "Version.Book.CLOCK.ClockConfiguration";
  static constexpr const char* Environment = "Version.Book.SUMMARY.EnvHeader";

  Version() {
    m_book.trim(4);
    for (unsigned int row : {1u, 2u}) {
      m_book.put(clock(row, Clock::m_Name), "clk" + std::to_string(row));
      m_book.put(clock(row, Clock::m_ClockFreq), 100.0f * static_cast<float>(row));
    }
    m_book.put(ambient(), 33.0f);
    m_book.settle();
    KVXEPrjContentMgr().prepProject(m_directory.path());
  }

  KVXECell* clock(unsigned int row, const KVXETitle& column) {
    return m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable)->getCellAt(row, &column);
  }
  KVXECell* ambient() {
    return m_book.cell(TabType::SUMMARY, Summary::m_envTableHeader, Summary::m_AmbientTempStr,
                       Summary::m_envTypeColumn, Summary::m_envValColumn);
  }

  /// Opens the saved version as `change` left it.
  template <class Change>
  bool readChanged(Change change) {
    KVXEXmlReadWrite xml((m_directory.path() / "versions/topVersion/version.xml").string());
    ptree tree = xml.parseXml(true);
    change(tree);
    KVXEXmlReadWrite changed((m_directory.path() / "changed.xml").string());
    changed.setXmlTree(tree);
    changed.writeXml(true);
    const bool isRead = KVXEVersion(m_directory.path()).read(changed.getXmlPath());
    if (isRead) m_book.settle();
    return isRead;
  }
  static ptree& row(ptree& tree, const std::string& table, int number) {
    auto& element = tree.get_child(table);
    auto child = element.find("params");
    for (auto at = element.begin(); at != element.end(); ++at)
      if (at->first == "params" && number-- == 1) return at->second;
    ADD_FAILURE() << "no such row";
    return child->second;
  }

  ProjectDirectory m_directory;
  DeviceBook m_book{KVXEPartSelection::m_arkeonArchName};
};

TEST_F(Version, RowsGoByPositionUnlessTheyHaveAName) {
  ASSERT_TRUE(readChanged([](ptree& tree) {
    auto& rows = tree.get_child(Clocks);
    rows.push_front({"params", ptree()});  // without attributes it takes no place
    auto& environment = tree.get_child(Environment);
    environment.reverse();  // rows with names find their place
    environment.push_back({"params", row(tree, Environment, 1)});
    environment.back().second.put("<xmlattr>.EnvType", "of another release");
  }));
  EXPECT_EQ(textIn(clock(1, Clock::m_Name)), "clk1");
  EXPECT_EQ(textIn(clock(2, Clock::m_Name)), "clk2");
  EXPECT_EQ(clock(4, Clock::m_Name)->getRow()->getTable()->getRowCount(), 5u) << "as many as were saved";
  EXPECT_EQ(numberIn(ambient()), 33.0f);
}

TEST_F(Version, OnlyWhatWasSuppliedIsTaken) {
  const std::string before = textIn(clock(1, Clock::m_ClockTag));
  ASSERT_TRUE(readChanged([](ptree& tree) {
    ptree& first = row(tree, Clocks, 1).get_child("<xmlattr>");
    first.put("ClockTag", "77.000 MHz (forged)");  // computed
    first.erase("ClockFrequency_SOURCE");          // from nowhere
    first.put("Unknown", "1");
    first.put("Unknown_SOURCE", "USER");
    ptree& second = row(tree, Clocks, 2).get_child("<xmlattr>");
    second.put("Name_SOURCE", "IP");
    second.put("ClockFrequency", "");  // blanked by the user
    second.put("Fanout", "12");
    second.put("Fanout_SOURCE", "XML");
  }));
  EXPECT_NE(textIn(clock(1, Clock::m_ClockTag)), before);
  EXPECT_NE(numberIn(clock(1, Clock::m_ClockFreq)), 100.0f);
  EXPECT_FALSE(clock(2, Clock::m_Name)->getIsEditable());
  EXPECT_EQ(clock(2, Clock::m_ClockFreq)->getValueSource(), ValueSource::USER);
  EXPECT_EQ(textIn(clock(2, Clock::m_ClockFreq)), textIn(clock(3, Clock::m_ClockFreq))) << "blank";
  EXPECT_EQ(clock(2, KVXEClockTab::m_Fanout)->getValueSource(), ValueSource::XML);
  EXPECT_TRUE(clock(2, KVXEClockTab::m_Fanout)->getIsEditable()) << "the clocks are no configuration table";
}

TEST_F(Version, ADeviceThatIsNotInTheCatalogueIsTold) {
  const auto rename = [](const std::string& option, const std::string& value) {
    return [=](ptree& tree) {
      for (auto& [name, params] : tree.get_child("Version.Book.POWER_DESIGN.CurrentSelection"))
        if (params.get("<xmlattr>.Option", "") == option) params.put("<xmlattr>.Selection", value);
    };
  };
  EXPECT_TRUE(readChanged(rename("Device", "AK9999")));
  EXPECT_EQ(takeMessages().find("2 The device AK9999-"), 0u);
  EXPECT_FALSE(readChanged(rename("Architecture", "Nile")));
  EXPECT_EQ(takeMessages(), "1 The project file is not supported.");
  EXPECT_FALSE(readChanged([](ptree& tree) { tree.get_child("Version.Book").erase("POWER_DESIGN"); }));
  EXPECT_EQ(takeMessages(), "");
}

TEST_F(Version, RowsThatShareANameAreReported) {
  KVXETable* table = m_book.book()->getTable(TabType::CLOCK, &Clock::m_ClockConfigTable);
  table->setPilotColumnTitle(&Clock::m_Name);
  m_book.edit(clock(2, Clock::m_Name), std::string("clk1"));
  const Captured out;
  KVXEVersion(m_directory.path()).write("");
  EXPECT_EQ(out.text(),
            "\nError: Pilot column with duplicate values : CLOCK->ClockConfiguration->Name has 2 clk1\n");
  table->setPilotColumnTitle(nullptr);
}

}  // namespace
