// What every type of records does, shown on modules of logic.

#include "engine/base/config/IoConfig.h"
#include "engine/base/config/RecordFields.h"
#include "tests/config/ConfigBook.h"

using namespace kvxe;
using KVXEEnums::CellState;
using KVXEEnums::TabType;
using KVXEEnums::ValueSource;
using ::testing::ElementsAre;
using Names = std::vector<std::string>;

namespace {

using Tab = KVXELogicTab;
constexpr auto AsDefined = PopulatePolicy::DefaultEditable;

class Records : public ::testing::Test {
 protected:
  KVXETable* table() { return m_book.book()->getTable(TabType::LOGIC, &Tab::m_LogicConfigTable); }
  KVXECell* at(unsigned int row, const KVXETitle& column) { return table()->getCellAt(row, &column); }
  Names names() { return namesOf(logic().getAll()); }
  ConfigIfc<LogicConfig>& logic() { return *m_book.records<LogicConfig>(); }
  void fill(const Names& all) {
    for (const std::string& name : all) ASSERT_TRUE(logic().populate({.name = name}, AsDefined));
  }

  ConfigBook<Tarvek> m_book{6};
};

TEST_F(Records, FieldsAndColumnsGoSideBySide) {
  const LogicConfig module{.name = "fir", .lutAsSrl = 4, .toggleRate = 0.25f};
  ASSERT_TRUE(logic().populate(module, AsDefined));
  EXPECT_EQ(textIn(at(1, Tab::m_Name)), "fir");
  EXPECT_EQ(textIn(at(1, Tab::m_LutAsSRL)), "4");
  EXPECT_EQ(numberIn(at(1, Tab::m_ToggleRate)), 0.25f);
  EXPECT_FALSE(numberIn(at(1, Tab::m_Registers)) == 0.0f) << "a blank field is a blank cell";
  EXPECT_EQ(*logic().get("fir"), module);

  const LogicConfig& start = logic().getDefault();
  EXPECT_EQ(start.toggleRate, 0.125f);
  EXPECT_EQ(start.registers, kvxeBlank<int>);
  EXPECT_EQ(&start, &logic().getDefault());

  const std::vector<int> items{10, 20, 30};
  std::vector<std::string> pairs;
  const size_t visited = forEach(items, module, [&](int item, const auto& field) {
    pairs.push_back(std::to_string(item) +
                    detail::StringConverter<std::remove_cvref_t<decltype(field)>>::toText(field));
  });
  EXPECT_EQ(visited, 3u);
  EXPECT_THAT(pairs, ElementsAre("10fir", "20", "30"));
}

TEST_F(Records, ConversionsTakeAnyText) {
  const struct {
    const char* text;
    int whole;
    unsigned int natural;
    float fraction;
    bool isOn;
  } cases[] = {
      {"", blank, blank, blank, false}, {"12", 12, 12, 12.0f, true},
      {"-3", -3, 0, -3.0f, true},       {"0.5", 0, 0, 0.5f, true},
      {"Yes", 0, 0, 0.0f, true},        {"NO", 0, 0, 0.0f, false},
      {"1e999", 1, 1, blank, true},     {"99999999999", 2147483647, 2147483647, 99999999999.0f, true},
      {"\x17", 0, 0, 0.0f, false},      {"0", 0, 0, 0.0f, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(detail::StringConverter<int>::convert(c.text), c.whole);
    EXPECT_EQ(detail::StringConverter<unsigned int>::convert(c.text), c.natural);
    EXPECT_EQ(detail::StringConverter<float>::convert(c.text), c.fraction);
    EXPECT_EQ(detail::StringConverter<bool>::convert(c.text), c.isOn);
  }
  EXPECT_THAT(detail::splitList("\x17"
                                "a\x17\x17"
                                "b c\x17"),
              ElementsAre("a", "b c"));
  EXPECT_EQ(detail::joinList({"a", "", "b"}),
            "a\x17"
            "b");
}

TEST_F(Records, PopulateTakesFreeRowsOnly) {
  fill({"a"});
  m_book.edit(at(3, Tab::m_Name), std::string("theirs"));
  ASSERT_TRUE(logic().populate(std::vector<LogicConfig>{{.name = "b"}, {.name = "c"}}, AsDefined));
  EXPECT_THAT(names(), ElementsAre("a", "b", "theirs", "c"));

  const std::string before = m_book.now();
  const std::vector<LogicConfig> three{{.name = "x"}, {.name = "y"}, {.name = "z"}};
  EXPECT_FALSE(logic().populate(three, AsDefined)) << "two rows are left";
  EXPECT_TRUE(logic().populate(std::vector<LogicConfig>(), AsDefined));
  EXPECT_FALSE(logic().populate({.name = "x"}, PopulatePolicy::CustomEditable)) << "no rule for these";
  EXPECT_EQ(m_book.now(), before);

  fill({"d", "d"});
  EXPECT_FALSE(logic().populate({.name = "full"}, AsDefined));
  EXPECT_TRUE(logic().populate(std::vector<LogicConfig>(), AsDefined));
  EXPECT_THAT(names(), ElementsAre("a", "b", "theirs", "c", "d", "d"));
}

TEST_F(Records, PolicyDecidesWhoMayEdit) {
  const struct {
    PopulatePolicy policy;
    bool isNameEditable;
    bool isCountEditable;
  } cases[] = {
      {PopulatePolicy::DefaultEditable, true, true},
      {PopulatePolicy::ForceReadonly, false, false},
      {PopulatePolicy::ForceEditable, true, true},
      {PopulatePolicy::ForceEditableExceptName, false, true},
  };
  for (unsigned int row = 1; const auto& c : cases) {
    SCOPED_TRACE(row);
    ASSERT_TRUE(logic().populate({.name = "m" + std::to_string(row)}, c.policy));
    EXPECT_EQ(at(row, Tab::m_Name)->getIsEditable(), c.isNameEditable);
    EXPECT_EQ(at(row, Tab::m_Registers)->getIsEditable(), c.isCountEditable);
    EXPECT_FALSE(at(row++, Tab::m_VccintPower)->getIsEditable()) << "a result is no column of the record";
  }
}

TEST_F(Records, RowsAreFoundByName) {
  fill({"a", "b", "c"});
  EXPECT_TRUE(logic().exists("b"));
  EXPECT_FALSE(logic().exists(""));
  EXPECT_FALSE(logic().exists("B"));
  EXPECT_EQ(logic().get("nobody"), nullptr);
  const auto some = logic().get(std::set<std::string>{"c", "nobody", "a"});
  ASSERT_EQ(some.size(), 2u);
  EXPECT_EQ(some.at("c")->name, "c");

  EXPECT_TRUE(logic().edit({.name = "b", .registers = 70}));
  EXPECT_EQ(logic().get("b")->registers, 70);
  const std::string before = m_book.now();
  EXPECT_FALSE(logic().edit({.name = "nobody", .registers = 1}));
  EXPECT_FALSE(logic().edit({.name = "", .registers = 1}));
  EXPECT_EQ(m_book.now(), before);
}

TEST_F(Records, RemovedRowsCloseUp) {
  fill({"a", "b", "c", "d", "e", "f"});
  EXPECT_TRUE(logic().remove("b"));
  EXPECT_THAT(names(), ElementsAre("a", "c", "d", "e", "f"));
  EXPECT_TRUE(logic().remove(Names{"c", "f", "a", "c"}));
  EXPECT_THAT(names(), ElementsAre("d", "e"));
  const std::string before = m_book.now();
  EXPECT_FALSE(logic().remove("b"));
  EXPECT_FALSE(logic().remove(Names{"d", "nobody"}));
  EXPECT_TRUE(logic().remove(Names{}));
  EXPECT_EQ(m_book.now(), before);
}

TEST_F(Records, WrittenValuesAreEdits) {
  auto& clocks = *m_book.records<ClockConfig>();
  utils::ValueSource::set(ValueSource::XML);
  ClockConfig clock = clocks.getDefault();
  clock.name = "clk";
  clock.frequency = 250.0f;
  ASSERT_TRUE(clocks.populate(clock, AsDefined));
  LogicConfig module = logic().getDefault();
  module.name = "fir";
  module.clock = clock.constructClockTag();
  module.registers = 20000;
  ASSERT_TRUE(logic().populate(module, AsDefined));
  EXPECT_EQ(at(1, Tab::m_Registers)->getState(), CellState::DIRTY_DIRTY);
  EXPECT_EQ(at(1, Tab::m_Registers)->getValueSource(), ValueSource::XML);
  EXPECT_EQ(at(1, Tab::m_ToggleRate)->getValueSource(), ValueSource::DEFAULT);
  ASSERT_TRUE(logic().edit({.name = "fir", .toggleRate = 0.5f}));
  EXPECT_EQ(at(1, Tab::m_ToggleRate)->getValueSource(), ValueSource::XML);
  ASSERT_TRUE(logic().edit(module));
  EXPECT_EQ(at(1, Tab::m_ToggleRate)->getValueSource(), ValueSource::DEFAULT) << "as it started";
  m_book.calculate();
  const float watts = numberIn(at(1, Tab::m_VccintPower));
  EXPECT_GT(watts, 0.0f);

  clock.frequency = 500.0f;
  ASSERT_TRUE(clocks.edit(clock));
  m_book.calculate();
  EXPECT_NEAR(numberIn(at(1, Tab::m_VccintPower)), 2.0f * watts, 0.02f * watts);
  EXPECT_EQ(logic().get("fir")->clock, "500.000 MHz (clk)") << "the clock carries its users along";
}

TEST_F(Records, ValueOfTheLayerStandsAgainstTheFormula) {
  auto& clocks = *m_book.records<ClockConfig>();
  ClockConfig clock = clocks.getDefault();
  clock.frequency = 100.0f;
  clock.name = "follows";
  ASSERT_TRUE(clocks.populate(clock, AsDefined));
  clock.name = "stands";
  clock.fanoutPerSite = 9.0f;
  ASSERT_TRUE(clocks.populate(clock, AsDefined));
  ASSERT_TRUE(logic().populate({.name = "full", .registers = 500000}, AsDefined));
  m_book.calculate();
  EXPECT_EQ(clocks.get("stands")->fanoutPerSite, 9.0f);
  EXPECT_GT(clocks.get("follows")->fanoutPerSite, 6.6f);
  ASSERT_TRUE(clocks.edit(*clocks.get("follows"))) << "reading and writing back changes nothing";
  ASSERT_TRUE(logic().remove("full"));
  m_book.calculate();
  EXPECT_EQ(clocks.get("follows")->fanoutPerSite, 6.5f);
}

TEST_F(Records, InterfacesFollowTheBook) {
  ConfigMgr& mgr = ConfigMgr::getGlobal<Tarvek>();
  const KVXEBook* open = mgr.getBook();
  EXPECT_EQ(open, m_book.book());
  KVXEBookMgr::getGlobal().closeProject();
  EXPECT_EQ(mgr.getConfigIfc<LogicConfig>(), nullptr);
  EXPECT_EQ(mgr.getBook(), nullptr);
  KVXEPartSelection::getGlobal()->redrawTabs(true);
  ASSERT_NE(mgr.getConfigIfc<LogicConfig>(), nullptr);
  EXPECT_TRUE(mgr.getConfigIfc<LogicConfig>()->populate({.name = "new"}, AsDefined));
  m_book.book()->deleteTabs(true);
  EXPECT_EQ(mgr.getConfigIfc<LogicConfig>(), nullptr);
}

TEST_F(Records, TableThatTheDeviceLacksIsAbsent) {
  EXPECT_NE(m_book.records<IoConfig>(), nullptr);
  auto& selection = *KVXEPartSelection::getGlobal();
  for (const bool isRebuilt : {false, true}) {
    ASSERT_TRUE(selection.selectPart("AK2080-LRVD1936_1-LP-E-S", "Maximum"));  // its pins are on another tab
    selection.redrawTabs(isRebuilt);
    EXPECT_EQ(m_book.records<IoConfig>(), nullptr);
    EXPECT_NE(m_book.records<LogicConfig>(), nullptr);
    ASSERT_TRUE(selection.selectPart(selection.getDefaultPart(), "Maximum"));
    selection.redrawTabs(isRebuilt);
    EXPECT_NE(m_book.records<IoConfig>(), nullptr);
  }
}

TEST(RecordsOfModules, AreThoseOfMorlan) {
  const DeviceBook book(KVXEPartSelection::m_somVisionArchName);
  ConfigMgr& mgr = ConfigMgr::getGlobal<Morlan>();
  EXPECT_EQ(mgr.getBook(), book.book());
  EXPECT_TRUE(mgr.getConfigIfc<LogicConfig>()->populate({.name = "a"}, AsDefined));
  EXPECT_EQ(mgr.getConfigIfc<ClockDomainPwrConfig>(), nullptr);
}

}  // namespace
