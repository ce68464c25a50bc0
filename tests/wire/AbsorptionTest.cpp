#include <gmock/gmock.h>

#include "tests/wire/WireBook.h"

namespace {

using KVXEEnums::ValueSource;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Absorb : public WireBook {
 protected:
  void SetUp() override {
    WireBook::SetUp();
    reply();
  }
};

TEST_F(Absorb, EveryKindOfValueReachesEveryKindOfCell) {
  EXPECT_TRUE(
      absorb("cells { row: 0 column: 0 stringPacket { value: 'core' } }"
             "cells { row: 0 column: 1 floatPacket { value: 7.9 } }"
             "cells { row: 0 column: 2 stringPacket { value: '2.5' } }"
             "cells { row: 1 column: 0 floatPacket { value: 0.5 } }"
             "cells { row: 1 column: 1 stringPacket { value: '12' } }"
             "cells { row: 1 column: 2 intPacket { value: 3 } }"));
  EXPECT_EQ(text(1, Name), "core");
  EXPECT_EQ(text(1, A), "7");
  EXPECT_EQ(text(1, B), "2.5");
  EXPECT_EQ(text(1, Sum), "9");
  EXPECT_EQ(text(2, Name), "0.5");
  EXPECT_EQ(text(2, A), "12");
  EXPECT_EQ(text(2, B), "3");
  for (const KVXETitle* column : {&Name, &A, &B})
    EXPECT_EQ(at(1, *column)->getValueSource(), ValueSource::USER);
}

TEST_F(Absorb, ACellCanBeNamedByItsNumberAlone) {
  const std::string uid = std::to_string(KVXEUID(at(3, A)).getUId());
  EXPECT_TRUE(absorb("cells { uid: " + uid + " intPacket { value: 9 } }"));
  EXPECT_EQ(text(3, A), "9");
  EXPECT_TRUE(absorb("cells { row: 2 column: 99 uid: " + uid + " intPacket { value: 8 } }"));
  EXPECT_EQ(text(3, A), "8") << "a column that is not there falls back on the number";
}

TEST_F(Absorb, MismatchesAreReportedAndEndTheWalk) {
  const struct {
    const char* packet;
    const char* start;
    const char* end;
  } cases[] = {
      {"sections { tables { tableIndex: 0 } }", "Error: TabNotFound (@Line:", ") tabIndex = 0\n"},
      {"sections { tabIndex: -3 }", "Error: TabNotFound (@Line:", ") tabIndex = -3\n"},
      {"sections { tabIndex: 2000000000 }", "Error: TabNotFound (@Line:", ") tabIndex = 2000000000\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 4 } }",
       "Error: TableNotFound (@Line:", ") tabIndex = 37 , tableIndex = 4\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { row: 3 column: 0 intPacket {} } } }",
       "Error: RowNotFound (@Line:", ") tabIndex = 37 , tableIndex = 0 , cp.rowindex() = 3\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { row: -1 column: 0 intPacket {} } } }",
       "Error: RowNotFound (@Line:", " , cp.rowindex() = -1\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { row: 0 column: -1 intPacket {} } } }",
       "Error: CellNotFound (@Line:", " , cp.rowindex() = 0\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { row: 0 intPacket {} } } }",
       "Error: CellNotFound (@Line:", ") tabIndex = 37 , tableIndex = 0\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { uid: 18446744073709551615 intPacket {} } } }",
       "Error: CellNotFound (@Line:", ") tabIndex = 37 , tableIndex = 0\n"},
      {"sections { tabIndex: 37 tables { tableIndex: 0 cells { row: 0 column: 0 } } }",
       "Error: PB Value not set properly by GUI (@Line:", " , cp.rowindex() = 0\n"},
  };
  ASSERT_EQ(SysmonTab, 37) << "the cases above name the tab by its number";
  for (const auto& [packet, start, end] : cases) {
    SCOPED_TRACE(packet);
    Captured captured;
    EXPECT_FALSE(KVXEPBHelper::getGlobal().absorb(fromText<KvxBookPacketData>(packet)));
    EXPECT_THAT(captured.text(), StartsWith(start));
    EXPECT_THAT(captured.text(), ::testing::EndsWith(end));
  }
  // What came before the mismatch stays.
  Captured captured;
  EXPECT_FALSE(
      absorb("cells { row: 0 column: 1 intPacket { value: 6 } } cells { row: 0 column: 1 }"
             "cells { row: 0 column: 1 intPacket { value: 7 } }"));
  EXPECT_EQ(text(1, A), "6");
}

TEST_F(Absorb, HeaderCellsCannotBeNamed) {
  Captured captured;
  for (unsigned int child = 0; child < table->getHeaderRow()->getChildCount(); ++child) {
    const std::string uid = std::to_string(KVXEUID(table->getHeaderRow()->getChild(child)).getUId());
    EXPECT_FALSE(absorb("cells { uid: " + uid + " intPacket { value: 9 } }"));
  }
  checkInvariants();
}

TEST_F(Absorb, WhatCannotBeStoredLeavesTheCellWithAMessage) {
  absorb(
      "cells { row: 0 column: 0 stringPacket { value: 'core' } }"
      "cells { row: 0 column: 1 intPacket { value: 7 } } cells { row: 0 column: 2 intPacket { value: 2 } }");
  reply();
  const struct {
    const KVXETitle& column;
    std::string value;
    const char* message;
  } cases[] = {
      {B, "2 floatPacket { value: nan }", "it is not a number."},
      {B, "2 floatPacket { value: inf }", "it is not a number."},
      {B, "2 floatPacket { value: 3.4028235e38 }", "it is too large."},
      {B, "2 floatPacket { value: -0.5 }", "the least is 0."},
      {B, "2 stringPacket { value: 'much' }", "it is not a number."},
      {B, "2 stringPacket { value: '1e999' }", "it is not a number."},
      {A, "1 intPacket { value: 101 }", "the most is 100."},
      {A, "1 intPacket { value: -1 }", "the least is 0."},
      {A, "1 intPacket { value: 2147483646 }", "it is too large."},
      {A, "1 floatPacket { value: 1e20 }", "it is too large."},
      {A, "1 floatPacket { value: -inf }", "it is not a number."},
      {Name, "0 floatPacket { value: nan }", "it is not a number."},
      {Name, "0 stringPacket { value: '\\001' }", "it holds a control character, or is not UTF-8."},
      {Name, "0 stringPacket { value: 'a\\000b' }", "it holds a control character, or is not UTF-8."},
      {Name, "0 stringPacket { value: '\\355\\240\\200' }", "it holds a control character, or is not UTF-8."},
      {Name, "0 stringPacket { value: '" + std::string(40000, 'a') + "' }", "a text may have 32767 bytes."},
  };
  for (const auto& [column, value, message] : cases) {
    SCOPED_TRACE(value.substr(0, 60));
    const std::string before = text(1, column);
    EXPECT_TRUE(absorb("cells { row: 0 column: " + value + " }"));
    EXPECT_EQ(text(1, column), before);
    const KvxTablePacket packet = tablePacket();
    ASSERT_EQ(packet.cells_size(), 1) << "the screen gets the old value back";
    EXPECT_EQ(packet.cells(0).message(),
              "<html>The entry was not taken over: " + std::string(message) + "</html>");
    EXPECT_EQ(packet.severity(), 3);
  }
  EXPECT_EQ(text(1, Sum), "9");
  absorb(
      "cells { row: 0 column: 0 stringPacket { value: 'c' } } cells { row: 0 column: 1 intPacket { value: 1 "
      "} }"
      "cells { row: 0 column: 2 floatPacket { } }");
  for (const KvxCellPacket& cell : tablePacket().cells())
    EXPECT_EQ(cell.message(), "") << "the next entry clears it";
}

TEST_F(Absorb, WhatTheUserMayNotEditStays) {
  absorb("cells { row: 0 column: 1 intPacket { value: 7 } }");
  reply();
  Captured captured;
  EXPECT_TRUE(absorb("cells { row: 0 column: 3 intPacket { value: 50 } }"));
  EXPECT_EQ(text(1, Sum), "7");
  EXPECT_THAT(captured.text(), HasSubstr("Error: the front end changed a cell that is not editable"));
  EXPECT_EQ(tablePacket().cells(0).intpacket().value(), 7) << "the screen gets the value back";
}

TEST_F(Absorb, NothingToStoreIsASuccess) {
  KVXEPBHelper& helper = KVXEPBHelper::getGlobal();
  EXPECT_TRUE(helper.absorb(static_cast<const KvxHandshakeData*>(nullptr)));
  EXPECT_TRUE(helper.absorb(KvxBookPacketData()));
  const auto request = fromText<KvxHandshakeData>("operation { type: REFRESH }");
  EXPECT_TRUE(helper.absorb(&request));
  KVXEBookMgr::getGlobal().closeProject();
  Captured captured;
  EXPECT_FALSE(helper.absorb(fromText<KvxBookPacketData>("sections { }")));
  EXPECT_THAT(captured.text(), StartsWith("Error: BookNotFound (@Line:"));
}

}  // namespace
