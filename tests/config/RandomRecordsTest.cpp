// Whatever a client does through the records, in whatever order: incremental results equal full ones, linked
// tables agree, and what fails has changed nothing.

#include <algorithm>

#include "tests/config/ConfigBook.h"
#include "tests/kit/Captured.h"

using namespace kvxe;
using Names = std::vector<std::string>;

namespace {

template <class A>
class RandomClient {
 public:
  RandomClient(ConfigBook<A>& book, unsigned int seed) : m_book(book), m_state(seed) {}

  /// Does one operation and says what it was; fails the test when it broke its promise.
  std::string act() {
    switch (below(8)) {
      case 0:
        return use(clocks(), &RandomClient::clock);
      case 1:
        return use(mgrs(), &RandomClient::mgr);
      case 2:
        return use(logic(), &RandomClient::module);
      case 3:
        return check("connect", [&] { return clocks().connectClockMgr(name(), name()); });
      case 4:
        return check("disconnect", [&] { return clocks().disconnectClockMgr(name(), name()); });
      case 5:
        return check("reference", [&] { return mgrs().setRefClockFreq(name(), megahertz()); });
      default:
        return use(clocks(), &RandomClient::clock);
    }
  }

  int doneCount() const { return m_doneCount; }

  void expectLinked() {
    const auto domains = m_book.template records<ClockDomainPwrConfig>();
    if (!domains) return;
    Names tags, held;
    for (const auto& record : clocks().getAll())
      if (!record->tag.empty()) tags.push_back(record->tag);
    for (const auto& domain : domains->getAll()) held.push_back(domain->clockTag);
    std::sort(tags.begin(), tags.end());
    std::sort(held.begin(), held.end());
    EXPECT_EQ(tags, held) << "each clock has its row of power management";
  }

 private:
  unsigned int below(unsigned int limit) {
    m_state = m_state * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<unsigned int>((m_state >> 33) % limit);
  }
  std::string name() { return "n" + std::to_string(below(9)); }
  float megahertz() { return static_cast<float>(below(6)) * 50.0f; }

  ConfigIfc<ClockConfig>& clocks() { return *m_book.template records<ClockConfig>(); }
  ConfigIfc<ClockMgrConfig>& mgrs() { return *m_book.template records<ClockMgrConfig>(); }
  ConfigIfc<LogicConfig>& logic() { return *m_book.template records<LogicConfig>(); }

  ClockConfig clock() {
    ClockConfig cfg = clocks().getDefault();
    cfg.name = name();
    if (below(5)) cfg.frequency = megahertz();
    if (below(4) == 0) cfg.fanout = static_cast<int>(below(3));
    if (below(4) == 0) cfg.clockMgrs = {name(), name()};
    cfg.pwr.isGated = below(2);
    return cfg;
  }
  ClockMgrConfig mgr() {
    ClockMgrConfig cfg{.name = name(), .type = "FSYN", .divide = 1, .multiply = 8};
    cfg.inputClk = clock();
    for (unsigned int i = below(4); i > 0; --i) cfg.outputClks.push_back({clock(), below(3) > 0});
    return cfg;
  }
  LogicConfig module() {
    LogicConfig cfg = logic().getDefault();
    cfg.name = name();
    cfg.clock = ClockConfig::constructClockTag(name(), megahertz());
    cfg.registers = static_cast<int>(below(100000));
    return cfg;
  }

  template <class T>
  std::string use(ConfigIfc<T>& ifc, T (RandomClient::*make)()) {
    const auto many = [&](auto element) {
      std::vector<decltype(element())> all;
      for (unsigned int i = below(4); i > 0; --i) all.push_back(element());
      return all;
    };
    const std::string type = ConfigTypeTraitsName<T>();
    switch (below(9)) {
      case 0:
      case 1:
        return check(type + " populate", [&] { return ifc.populate((this->*make)(), policy()); });
      case 2:
        return check(type + " populate many",
                     [&] { return ifc.populate(many([&] { return (this->*make)(); }), policy()); });
      case 3:
      case 4:
        return check(type + " edit", [&] {
          const T cfg = (this->*make)();
          const bool wasThere = ifc.exists(cfg.name);
          return ifc.edit(cfg) && wasThere;
        });
      case 5:
        return check(type + " remove", [&] {
          const std::string gone = name();
          const size_t count = ifc.getAll().size();
          return ifc.remove(gone) && ifc.getAll().size() <= count;
        });
      case 6:
        return check(type + " remove many", [&] { return ifc.remove(many([&] { return name(); })); });
      default:
        return check(type + " read", [&] {
          const auto all = ifc.getAll();
          for (const auto& record : all) EXPECT_TRUE(record->name.empty() || ifc.exists(record->name));
          const auto some = ifc.get(std::set<std::string>{name(), name()});
          for (const auto& [key, record] : some) EXPECT_EQ(*record, *ifc.get(key));
          return false;
        });
    }
  }
  template <class T>
  static std::string ConfigTypeTraitsName() {
    return std::is_same_v<T, ClockConfig> ? "clock" : std::is_same_v<T, LogicConfig> ? "module" : "manager";
  }
  PopulatePolicy policy() { return PopulatePolicy(below(5)); }

  template <class Operation>
  std::string check(const std::string& what, const Operation& operation) {
    const std::string before = m_book.now();
    const bool isDone = operation();
    m_doneCount += isDone;
    if (!isDone) {
      EXPECT_TRUE(m_book.now() == before) << what << " failed and left traces";
    }
    if (below(3)) m_book.calculate();
    return what + (isDone ? "" : " (nothing)");
  }

  ConfigBook<A>& m_book;
  unsigned long long m_state;
  int m_doneCount = 0;
};

template <class A>
class RandomRecords : public ::testing::Test {};
using Architectures = ::testing::Types<Tarvek, Morlan>;
TYPED_TEST_SUITE(RandomRecords, Architectures);

TYPED_TEST(RandomRecords, EveryOperationKeepsItsPromises) {
  ConfigBook<TypeParam> book(8);
  RandomClient<TypeParam> client(book, 20240801);
  std::string history;
  for (int step = 0; step < 300; ++step) {
    history += "\n" + client.act();
    client.expectLinked();
    book.calculate();
    client.expectLinked();
    const KVXETable* clocks = book.table(KVXEEnums::TabType::CLOCK, "CLOCK_CONFIGURATION");
    ASSERT_EQ(book.template records<ClockConfig>()->getAll().size() + 1,
              clocks->getFirstRowIDWithDefaults(true))
        << history;
    const Captured out;
    ASSERT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull()) << history << "\n"
                                                                    << out.text().substr(0, 3000);
    KVXECellStateMgr::getGlobal().markGuiClean();
    for (const KVXETitle* title : {&KVXEClockTab::m_ClockConfigTable, &KVXEClockTab::m_ClkMgrTable})
      ASSERT_EQ(book.book()->getTable(KVXEEnums::TabType::CLOCK, title)->checkInvariants(), "") << history;
    ASSERT_EQ(KVXECalculationMgr::getGlobal().checkInvariants(), "") << history;
    ASSERT_FALSE(this->HasFailure()) << history;
  }
  EXPECT_GT(client.doneCount(), 60) << history;
}

}  // namespace
