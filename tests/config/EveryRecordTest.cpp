// What holds for every type of records, by its traits alone.

#include <boost/pfr.hpp>

#include "engine/base/config/BramConfig.h"
#include "engine/base/config/DdrmcConfig.h"
#include "engine/base/config/IoConfig.h"
#include "engine/base/config/NocConfig.h"
#include "tests/config/ConfigBook.h"

using namespace kvxe;

namespace {

template <class A, class T>
struct Bound {
  using Arch = A;
  using Record = T;
};

/// Gives every field a value of its own that its kind of cell holds.
template <class T>
void fillDistinct(T& record, int start) {
  boost::pfr::for_each_field(record, [&](auto& field) {
    using Field = std::remove_cvref_t<decltype(field)>;
    ++start;
    if constexpr (std::is_same_v<Field, std::string>) {
      field = "text " + std::to_string(start);
    } else if constexpr (std::is_same_v<Field, bool>) {
      field = start % 2 == 0;
    } else {
      field = static_cast<Field>(start) + static_cast<Field>(0.125f);
    }
  });
}

/// Blanks what formulas make of the other fields.
template <class T>
void blankComputed(T&) {}
template <>
void blankComputed(IoConfig& record) {
  record.totalPins = blank;
  record.bankVoltage = blank;
}
template <>
void blankComputed(DdrmcConfig& record) {
  record.controller.clear();
}

template <class B>
class EveryRecord : public ::testing::Test {};
using Types =
    ::testing::Types<Bound<Tarvek, ClockDomainPwrConfig>, Bound<Tarvek, IoConfig>, Bound<Morlan, IoConfig>,
                     Bound<Tarvek, NocConfig>, Bound<Tarvek, DdrmcConfig>, Bound<Tarvek, BramConfig>,
                     Bound<Morlan, BramConfig>, Bound<Tarvek, LogicConfig>, Bound<Morlan, LogicConfig>>;
TYPED_TEST_SUITE(EveryRecord, Types);

TYPED_TEST(EveryRecord, ComesBackAsItWent) {
  using Record = typename TypeParam::Record;
  const ConfigBook<typename TypeParam::Arch> book(4);
  const auto ifc = book.template records<Record>();
  ASSERT_NE(ifc, nullptr);
  EXPECT_EQ(&ifc->getDefault(), &ifc->getDefault());
  std::vector<Record> records(3, ifc->getDefault());
  fillDistinct(records[0], 10);
  fillDistinct(records[1], 50);
  const std::string& first = boost::pfr::get<0>(records[0]);
  boost::pfr::get<0>(records[2]) = "as it starts";
  for (Record& record : records) blankComputed(record);
  ASSERT_TRUE(ifc->populate(records, PopulatePolicy::DefaultEditable));
  const auto all = ifc->getAll();
  ASSERT_EQ(all.size(), 3u);
  for (size_t i = 0; i < all.size(); ++i) EXPECT_TRUE(*all[i] == records[i]) << "record " << i;

  const std::string before = book.now();
  EXPECT_FALSE(ifc->populate(records, PopulatePolicy::DefaultEditable));
  EXPECT_EQ(book.now(), before);
  Record changed = records[1];
  boost::pfr::get<0>(changed) = first;
  EXPECT_TRUE(ifc->edit(changed));
  EXPECT_TRUE(*ifc->get(first) == changed);
  EXPECT_TRUE(ifc->remove(first));
  EXPECT_EQ(ifc->getAll().size(), 2u);
  book.calculate();
  EXPECT_TRUE(KVXECalculationMgr::getGlobal().verifyIncrVsFull());
}

TEST(NocRecords, HaveAPolicyOfTheirOwn) {
  const ConfigBook<Tarvek> book(4);
  ASSERT_TRUE(book.records<NocConfig>()->populate({.moduleName = "m"}, PopulatePolicy::CustomEditable));
  KVXETable* table = book.table(KVXEEnums::TabType::NOC_DDRMC, "NOC_TABLE");
  std::string editable;
  for (unsigned int column = 0; column < table->getColumnCount(); ++column)
    editable += table->getCellAt(1, column)->getIsEditable() ? 'e' : '-';
  EXPECT_EQ(editable, "--ee--e---e") << "name and bandwidths are the module's";
}

}  // namespace
