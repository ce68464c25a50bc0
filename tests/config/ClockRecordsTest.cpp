// Clocks, clock managers, and how they keep each other in step.

#include "engine/base/config/ClockRows.h"
#include "tests/config/ConfigBook.h"

using namespace kvxe;
using KVXEEnums::TabType;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Names = std::vector<std::string>;

namespace {

using Tab = KVXEClockTab;
constexpr auto AsDefined = PopulatePolicy::DefaultEditable;

TEST(ClockTagOfRecord, ReadsWhatItWrites) {
  const struct {
    const char* tag;
    const char* name;  // null: no tag
    float megahertz;
  } cases[] = {
      {"250.000 MHz (sys_clk)", "sys_clk", 250.0f},
      {"250MHz (a)", "a", 250.0f},
      {"0.5 MHz (a(b) MHz (c))", "a(b) MHz (c)", 0.5f},
      {"1 MHz ()", "", 1.0f},
      {"250.000 Mhz (a)", nullptr, 0},
      {"250.000  MHz (a)", nullptr, 0},
      {"250. MHz (a)", nullptr, 0},
      {".5 MHz (a)", nullptr, 0},
      {" 1 MHz (a)", nullptr, 0},
      {"-1 MHz (a)", nullptr, 0},
      {"1 MHz (a) ", nullptr, 0},
      {"1 MHz (a\nb)", nullptr, 0},
      {"", nullptr, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.tag);
    std::string name = "before";
    float megahertz = 7.0f;
    EXPECT_EQ(ClockConfig::extractNameAndFreqFromTag(name, megahertz, c.tag), c.name != nullptr);
    EXPECT_EQ(name, c.name ? c.name : "before");
    EXPECT_EQ(megahertz, c.name ? c.megahertz : 7.0f);
    EXPECT_EQ(ClockConfig::extractNameFromTag(c.tag), c.name ? c.name : "");
    EXPECT_EQ(ClockConfig::extractFreqFromTag(c.tag), c.megahertz);
  }
  EXPECT_EQ(ClockConfig::constructClockTag("a(b)", 33.3333f), "33.333 MHz (a(b))");
  EXPECT_EQ((ClockConfig{.name = "a", .frequency = 100}.constructClockTag()), "100.000 MHz (a)");
  EXPECT_EQ(ClockConfig{.name = "a"}.constructClockTag(), "") << "no frequency, no tag";
}

TEST(NamesInRows, AreCutAtTheColons) {
  EXPECT_EQ(detail::managerBefore("m:1:clk", "clk"), "m:1");
  EXPECT_EQ(detail::managerBefore("m:xclk", "clk"), "");
  EXPECT_EQ(detail::managerBefore(":clk", "clk"), "");
  EXPECT_EQ(detail::managerBefore("a.c:b.d", "b+d"), "") << "a name is no pattern";
  EXPECT_EQ(detail::outputOfSource("FSYN:m:clk"), "clk");
  EXPECT_EQ(detail::outputOfSource("::clk"), "clk");
  EXPECT_EQ(detail::outputOfSource("m:clk"), "");
  EXPECT_EQ(detail::outputOfSource("External"), "");
}

template <class A>
class ClockRecords : public ::testing::Test {
 protected:
  ConfigIfc<ClockConfig>& clocks() { return *m_book.template records<ClockConfig>(); }
  ConfigIfc<ClockMgrConfig>& mgrs() { return *m_book.template records<ClockMgrConfig>(); }
  Names clockNames() { return namesOf(clocks().getAll()); }
  /// The tags of power management; none on a device without.
  Names domainTags() {
    Names tags;
    if (const auto domains = m_book.template records<ClockDomainPwrConfig>())
      for (const auto& domain : domains->getAll()) tags.push_back(domain->clockTag);
    return tags;
  }
  KVXECell* at(const KVXETitle& table, unsigned int row, const KVXETitle& column) {
    return m_book.book()->getTable(TabType::CLOCK, &table)->getCellAt(row, &column);
  }
  void add(const std::string& name, float megahertz) {
    ASSERT_TRUE(clocks().populate({.name = name, .frequency = megahertz}, AsDefined));
  }
  static OutputClockConfig output(const std::string& name, float megahertz, bool isInUse = true) {
    return {.clock = {.name = name, .frequency = megahertz}, .isInUse = isInUse};
  }

  ConfigBook<A> m_book{6};
};
using Architectures = ::testing::Types<Tarvek, Morlan>;
TYPED_TEST_SUITE(ClockRecords, Architectures);
using TarvekClockRecords = ClockRecords<Tarvek>;  // with power management

TYPED_TEST(ClockRecords, AreFoundByTag) {
  this->add("a", 100);
  this->add("b", 200);
  EXPECT_EQ(this->clocks().findFromTag("100.000 MHz (a)")->name, "a");
  EXPECT_EQ(this->clocks().findFromTag("999 MHz (b)")->name, "b") << "the frequency is not compared";
  EXPECT_EQ(this->clocks().findFromTag("100.000 MHz (c)"), nullptr);
  EXPECT_EQ(this->clocks().findFromTag("no tag"), nullptr);
  EXPECT_EQ(this->clocks().findFromTag(""), nullptr);
  EXPECT_EQ(this->clocks().get("a")->tag, "100.000 MHz (a)") << "before any calculation";
}

TYPED_TEST(ClockRecords, ManagersConnectOnce) {
  this->add("a", 100);
  auto& clocks = this->clocks();
  for (const char* mgr : {"m1", "m2", "m1"}) EXPECT_TRUE(clocks.connectClockMgr("a", mgr));
  KVXECell* cell = this->at(Tab::m_ClockConfigTable, 1, Tab::m_ClockMgr);
  EXPECT_EQ(textIn(cell), "m1\x17m2");
  EXPECT_EQ(cell->getState(), KVXEEnums::CellState::DIRTY_DIRTY);
  EXPECT_THAT(clocks.get("a")->clockMgrs, ElementsAre("m1", "m2"));
  {
    const std::string before = this->m_book.now();
    EXPECT_FALSE(clocks.connectClockMgr("nobody", "m1"));
    EXPECT_FALSE(clocks.connectClockMgr("a", ""));
    EXPECT_FALSE(clocks.disconnectClockMgr("nobody", "m1"));
    EXPECT_TRUE(clocks.disconnectClockMgr("a", "m9"));
    EXPECT_EQ(this->m_book.now(), before);
  }
  ClockConfig twice = *clocks.get("a");
  twice.clockMgrs = {"m1", "m2", "m1"};
  ASSERT_TRUE(clocks.edit(twice));
  EXPECT_TRUE(clocks.disconnectClockMgr("a", "m1"));
  EXPECT_EQ(textIn(cell), "m2");
}

TYPED_TEST(ClockRecords, ClockThatDrivesLoadsStays) {
  const struct {
    const char* name;
    int fanout;
    bool isRemovable;
  } cases[] = {{"blank", blank, true}, {"none", 0, true}, {"one", 1, false}, {"wrong", -1, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(this->clocks().populate({.name = c.name, .frequency = 1, .fanout = c.fanout}, AsDefined));
    const std::string before = this->m_book.now();
    EXPECT_EQ(this->clocks().remove(c.name), c.isRemovable);
    EXPECT_EQ(this->m_book.now() == before, !c.isRemovable);
  }
  EXPECT_FALSE(this->clocks().remove(Names{"one", "nobody"}));
}

TEST_F(TarvekClockRecords, PowerManagementKeepsStep) {
  ClockConfig clock{.name = "a", .frequency = 100};
  clock.pwr.isGated = true;
  clock.pwr.minScaledFreq = 25;
  ASSERT_TRUE(clocks().populate(clock, AsDefined));
  add("b", 200);
  ASSERT_TRUE(clocks().populate({.name = "untagged"}, AsDefined));
  EXPECT_THAT(domainTags(), ElementsAre("100.000 MHz (a)", "200.000 MHz (b)"));
  m_book.calculate();
  EXPECT_EQ(clocks().get("a")->pwr, (ClockDomainPwrConfig{"100.000 MHz (a)", true, 25}));

  m_book.put(at(Tab::m_ClockConfigTable, 1, Tab::m_ClockFreq), 110.0f);  // by the user, not calculated yet
  clock.frequency = 120;
  ASSERT_TRUE(clocks().edit(clock));
  clock.frequency = 150;
  clock.pwr.isGated = false;
  ASSERT_TRUE(clocks().edit(clock));
  ASSERT_TRUE(clocks().edit({.name = "untagged", .frequency = 5}));
  for (const char* when : {"at once", "after the calculation"}) {
    SCOPED_TRACE(when);
    EXPECT_THAT(domainTags(), ElementsAre("150.000 MHz (a)", "200.000 MHz (b)", "5.000 MHz (untagged)"));
    EXPECT_EQ(clocks().get("a")->pwr, (ClockDomainPwrConfig{"150.000 MHz (a)", false, 25}));
    m_book.calculate();
  }
  ASSERT_TRUE(clocks().edit({.name = "untagged"}));
  EXPECT_TRUE(clocks().remove("b"));
  EXPECT_THAT(domainTags(), ElementsAre("150.000 MHz (a)"));
}

TYPED_TEST(ClockRecords, FrequencyTravelsToTheManagers) {
  this->add("in", 100);
  for (const char* name : {"m1", "m2"})
    ASSERT_TRUE(
        this->mgrs().populate({.name = name, .refClock = 100, .divide = 1, .multiply = 12}, AsDefined));
  ASSERT_TRUE(this->clocks().connectClockMgr("in", "m1"));
  ASSERT_TRUE(this->clocks().connectClockMgr("in", "gone"));
  ClockConfig clock = *this->clocks().get("in");
  clock.frequency = 50;
  ASSERT_TRUE(this->clocks().edit(clock));
  EXPECT_EQ(this->mgrs().get("m1")->refClock, 50);
  EXPECT_EQ(this->mgrs().get("m1")->vcoFreq, 600);
  EXPECT_EQ(this->mgrs().get("m2")->refClock, 100);
  EXPECT_FALSE(this->mgrs().setRefClockFreq("gone", 1));

  ASSERT_TRUE(this->mgrs().setRefClockFreq("m1", 70));
  clock.fanout = 10;
  ASSERT_TRUE(this->clocks().edit(clock));
  EXPECT_EQ(this->mgrs().get("m1")->refClock, 70) << "the clock's frequency is what it was";

  ASSERT_TRUE(this->clocks().edit({.name = "in", .frequency = 25}));
  EXPECT_EQ(this->mgrs().get("m1")->refClock, 25) << "connected until the record without it was written";
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, IsEmpty());
}

TYPED_TEST(ClockRecords, ManagerBringsItsClocks) {
  ClockMgrConfig mgr{.name = "m", .type = "FSYN", .divide = 1, .multiply = 12};
  mgr.outputDivides[0] = 4;
  mgr.outputDivides[2] = 8;
  mgr.inputClk = {.name = "in", .frequency = 100, .source = "External"};
  mgr.outputClks = {this->output("o0", 300), this->output("o1", 1, false), this->output("o2", 150)};
  ASSERT_TRUE(this->mgrs().populate(mgr, AsDefined));
  EXPECT_THAT(this->clockNames(), ElementsAre("in", "o0", "o2"));
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, ElementsAre("m"));
  EXPECT_EQ(this->clocks().get("o2")->source, "FSYN:m:o2");
  EXPECT_EQ(this->domainTags().size(), (std::is_same_v<TypeParam, Tarvek> ? 3u : 0u));
  EXPECT_EQ(textIn(this->at(Tab::m_ClkMgrTable, 1, Tab::m_OutputClkNames)), "o0\x17o2");
  for (const char* when : {"at once", "after the calculation"}) {
    SCOPED_TRACE(when);
    const auto found = this->mgrs().get("m");
    EXPECT_EQ(found->refClock, 100) << "that of the input clock";
    EXPECT_EQ(found->vcoFreq, 1200);
    EXPECT_EQ(found->outputDivides, mgr.outputDivides);
    ASSERT_EQ(found->outputClks.size(), 2u);
    EXPECT_EQ(found->outputClks[1].clock.frequency, 150);
    EXPECT_EQ(found->inputClk.source, "External");
    this->m_book.calculate();
  }
  ASSERT_TRUE(this->mgrs().populate(ClockMgrConfig{.name = "m2", .inputClkName = "in"}, AsDefined));
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, ElementsAre("m", "m2"))
      << "an existing clock is connected";
  EXPECT_EQ(this->mgrs().get("m2")->refClock, 100);
  EXPECT_TRUE(this->mgrs().remove("m"));
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, ElementsAre("m2"));
  ASSERT_TRUE(this->mgrs().edit(ClockMgrConfig{.name = "m2", .inputClkName = "o0"}));
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, IsEmpty());
  EXPECT_THAT(this->clocks().get("o0")->clockMgrs, ElementsAre("m2"));
  EXPECT_EQ(this->clockNames().size(), 3u);
}

TYPED_TEST(ClockRecords, ManagersThatComeTogetherShareClocks) {
  const ClockConfig in{.name = "in", .frequency = 100};
  const ClockMgrConfig first{.name = "m1", .outputClks = {this->output("mid", 200)}, .inputClk = in};
  const ClockMgrConfig second{.name = "m2", .inputClk = in};
  const ClockMgrConfig cascaded{.name = "m3", .inputClkName = "mid"};
  ASSERT_TRUE(this->mgrs().populate(std::vector{cascaded, first, second}, AsDefined));
  EXPECT_THAT(this->clockNames(), UnorderedElementsAre("in", "mid"));
  EXPECT_THAT(this->clocks().get("in")->clockMgrs, ElementsAre("m1", "m2"));
  EXPECT_THAT(this->clocks().get("mid")->clockMgrs, ElementsAre("m3"));
}

TYPED_TEST(ClockRecords, ManagerWithoutRoomWritesNothing) {
  for (const char* name : {"a", "b", "c", "d"}) this->add(name, 10);
  ClockMgrConfig mgr{.name = "m", .type = "FSYN"};
  mgr.inputClk = {.name = "in", .frequency = 100};
  mgr.outputClks = {this->output("o0", 300), this->output("o1", 150)};
  const std::string before = this->m_book.now();
  EXPECT_FALSE(this->mgrs().populate(mgr, AsDefined)) << "three clocks, two rows";
  EXPECT_FALSE(this->mgrs().populate(std::vector<ClockMgrConfig>{{.name = "fits"}, mgr}, AsDefined));
  EXPECT_FALSE(this->mgrs().populate(std::vector<ClockMgrConfig>(7), AsDefined));
  EXPECT_EQ(this->m_book.now(), before);
  mgr.inputClk = *this->clocks().get("a");
  EXPECT_TRUE(this->mgrs().populate(mgr, AsDefined));
}

TEST_F(TarvekClockRecords, FullPowerManagementStopsTheClock) {
  const auto domains = m_book.records<ClockDomainPwrConfig>();
  add("a", 10);
  while (domains->populate({.clockTag = "1 MHz (other)"}, AsDefined)) continue;
  ASSERT_TRUE(clocks().populate({.name = "untagged"}, AsDefined));
  const std::string before = m_book.now();
  EXPECT_FALSE(clocks().populate({.name = "b", .frequency = 20}, AsDefined));
  EXPECT_FALSE(clocks().edit({.name = "untagged", .frequency = 20}));
  EXPECT_EQ(m_book.now(), before);
  EXPECT_TRUE(clocks().edit({.name = "a", .frequency = 20}));
}

TYPED_TEST(ClockRecords, ListsThatAreBlankFollowFromNames) {
  this->add("clk", 100);
  this->m_book.put(this->at(Tab::m_ClockConfigTable, 1, Tab::m_Source), std::string("FSYN:any:clk"));
  this->m_book.put(this->at(Tab::m_ClkMgrTable, 1, Tab::m_Name), std::string("old:clk"));
  this->m_book.put(this->at(Tab::m_ClkMgrTable, 2, Tab::m_Name), std::string("other"));
  EXPECT_THAT(this->clocks().get("clk")->clockMgrs, ElementsAre("old"));
  ASSERT_EQ(this->mgrs().get("other")->outputClks.size(), 1u);
  EXPECT_EQ(this->mgrs().get("other")->outputClks[0].clock.frequency, 100);
}

TYPED_TEST(ClockRecords, KindsAreThoseOfTheDevice) {
  auto& mgrs = this->mgrs();
  ASSERT_THAT(mgrs.getClockMgrTypes(), ::testing::Not(IsEmpty()));
  for (const std::string& type : mgrs.getClockMgrTypes()) {
    SCOPED_TRACE(type);
    EXPECT_THAT(mgrs.getVcoRangeList(type),
                ElementsAre("LOW_VCO_RANGE", "MEDIUM_VCO_RANGE", "HIGH_VCO_RANGE"));
    EXPECT_THAT(mgrs.getVcoRangeList(type), ::testing::Contains(mgrs.getDefaultVcoRange(type)));
  }
  EXPECT_EQ(mgrs.getNumOutputClocks("FSYN"), 7);
  EXPECT_EQ(mgrs.getNumOutputClocks("none"), 0);
  EXPECT_THAT(mgrs.getVcoRangeList("none"), IsEmpty());
}

}  // namespace
