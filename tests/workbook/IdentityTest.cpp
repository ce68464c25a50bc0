#include <gmock/gmock.h>

#include "engine/base/workbook/KVXETitle.h"
#include "tests/kit/Captured.h"
#include "tests/kit/TinyBook.h"

using namespace KVXEEnums;

namespace {

TEST(Enums, NamesAndNumbersGoBothWays) {
  std::string name;
  enum_to_string(TabType::NOC_DDRMC, name);
  EXPECT_EQ(name, "NOC_DDRMC");
  TabType type{};
  string_to_enum("POWER_DESIGN", type);
  EXPECT_EQ(type, TabType::POWER_DESIGN);
  EXPECT_EQ(num_enum_items(type), 51);
  Unit unit{};
  EXPECT_EQ(num_enum_items(unit), 24);
  EXPECT_EQ(nameOf(CellState::HEADER_CLEAN), "HEADER_CLEAN");
  EXPECT_EQ(nameOf(static_cast<Unit>(99)), "");
}

TEST(Enums, WhatIsOutOfBoundsIsReportedAndGivesTheEnd) {
  const Captured err(std::cerr);
  const Captured out;
  CellType type{};
  ushort_to_enum(4, type);
  EXPECT_EQ(type, CellType::NumItems);
  EXPECT_EQ(err.text(), "");
  ushort_to_enum(5, type);
  EXPECT_EQ(err.text(), "Out of bounds ushort_to_enum conversion for ushort 5\n");
  string_to_enum("INT ", type);
  EXPECT_EQ(type, CellType::NumItems);
  EXPECT_THAT(err.text(), testing::EndsWith("\nOut of bounds string_to_enum conversion for string INT \n"));
  EXPECT_EQ(++type, CellType::NumItems);
  EXPECT_EQ(type--, CellType::NumItems);
  EXPECT_EQ(type, CellType::HEADER);
  type = CellType::INT;
  EXPECT_EQ(--type, CellType::INT);
  EXPECT_EQ(out.text(),
            "Out of bounds prefix increment operator used.\nOut of bounds prefix decrement operator used.\n");
}

TEST(Title, SpellingsFollowFromTheName) {
  const KVXETitle plain("POWER_DESIGN");
  const KVXETitle full("ENV_TEMP", "User Choice", "envTemp");
  const struct {
    const KVXETitle& title;
    TitleType type;
    const char* text;
  } cases[] = {{plain, TitleType::DISPLAY, "Power Design"},
               {plain, TitleType::SW, "POWER_DESIGN"},
               {plain, TitleType::LVR, "PowerDesign"},
               {plain, TitleType::KVX, "PowerDesign"},
               {plain, TitleType::RP, "PowerDesign"},
               {full, TitleType::DISPLAY, "User Choice"},
               {full, TitleType::SW, "ENV_TEMP"},
               {full, TitleType::LVR, "envTemp"},
               {full, TitleType::KVX, "EnvTemp"}};
  for (const auto& c : cases) EXPECT_EQ(c.title.getTag(c.type), c.text) << nameOf(c.type);
}

TEST(Title, ColumnHeadsBreakNearTheirMiddle) {
  std::string pad15, pad25;
  for (int i = 0; i < 25; ++i) (i < 15 ? pad15 : pad25) += "&nbsp;";
  pad25 += pad15;
  const std::pair<const char*, std::string> cases[] = {
      {"Fanout", "Fanout"},
      {"Name", "Name" + pad15},
      {"Clock Tag", "Clock<br>Tag" + pad25},
      {"Toggle Rate", "Toggle<br>Rate"},
      {"ab cd ef", "ab cd<br>ef"},  // a tie goes to the right
      {"Port A  Bit Width", "Port A <br>Bit Width"},
      {"A verylongword", "A<br>verylongword"},
      {"LongWord x", "LongWord x"},  // one letter is no line
      {" ", " "}};
  for (const auto& [display, html] : cases)
    EXPECT_EQ(KVXETitle("X", display).getDisplayTag(true), "<html>" + html + "</html>") << display;
}

class UidTest : public TinyBook {};

TEST_F(UidTest, TheNextPowerOfTenIsStrictlyAboveAndBounded) {
  const std::pair<unsigned int, unsigned int> cases[] = {
      {0, 1}, {1, 10}, {9, 10}, {10, 100}, {99, 100}, {999999999, 1000000000}, {4000000000u, 1000000000}};
  for (const auto& [n, bound] : cases) EXPECT_EQ(KVXEUID::upper_bound_10x(n), bound) << n;
}

TEST_F(UidTest, PackingAndUnpackingAreEachOthersInverse) {
  static const KVXEColumn columns[] = {{.title = &A, .type = CellType::INT},
                                       {.title = &B, .type = CellType::INT}};
  make(columns, 120);
  const KVXEUID tabUid(tab());
  EXPECT_EQ(tabUid.getUId(), 10ul * tab()->getIndex());
  EXPECT_EQ(KVXEUID(table).getUId(), tabUid.getUId());
  for (const unsigned int row : {0u, 1u, 9u, 10u, 99u, 120u}) {
    KVXECell* cell = table->getRow(row)->getChild(1);
    const KVXEUID uid(cell);
    const KVXEUID back(uid.getUId(), AtomType::CELL);
    EXPECT_EQ(back.getCell(), cell);
    EXPECT_EQ(back.getRow(), cell->getRow());
    EXPECT_EQ(back.getUId(AtomType::TABLE), uid.getUId(AtomType::TABLE));
    EXPECT_EQ(back.getUId(), uid.getUId());
    EXPECT_EQ(back.getRowIndex(), row);
    EXPECT_EQ(back.getColumnIndex(), 1u);
  }
  const unsigned long lastRow = KVXEUID(table->getRow(120)).getUId();
  table->deleteRow(120);
  const KVXEUID gone(lastRow, AtomType::ROW);
  EXPECT_EQ(gone.getTable(), table);
  EXPECT_EQ(gone.getRow(), nullptr);
  EXPECT_EQ(gone.getRowIndex(), 0xFFFFFFFF);
  EXPECT_EQ(KVXEUID(static_cast<KVXECell*>(nullptr)).getUId(), ~0ul);
}

TEST_F(UidTest, OrderIsBookTabTableRowColumn) {
  static const KVXEColumn columns[] = {{.title = &A, .type = CellType::INT},
                                       {.title = &B, .type = CellType::INT}};
  make(columns, 3);
  const KVXEUID a1(at(1, A)), b1(at(1, B)), a2(at(2, A));
  EXPECT_TRUE(KVXEUID::Compare(a1, b1));
  EXPECT_TRUE(KVXEUID::Compare(b1, a2));
  EXPECT_FALSE(KVXEUID::Compare(a1, a1));
  const Captured out;
  EXPECT_TRUE(KVXEUID::Compare(a1, KVXEUID(tab()))) << "unset levels come last";
  EXPECT_EQ(out.text(), "Error: compare UID called for two different type of UIDs.\n");
}

TEST_F(UidTest, DescriptionLeadsAPersonToTheCell) {
  static const KVXEColumn columns[] = {{.title = &A, .type = CellType::INT, .number = 4},
                                       {.title = &B, .type = CellType::STRING, .text = "x"}};
  make(columns, 12);
  at(3, A)->setValAndState(7, CellState::DIRTY_DIRTY);
  const KVXEUID uid(at(3, A));
  EXPECT_EQ(uid.describe(" -> "),
            "Sysmon Tab -> Tiny Table -> A Column -> Row(Engine: 3, Gui: 2 ) -> CellValue: 7 -> "
            "CellUID: " +
                std::to_string(uid.getUId()) + " -> Row-Values: | ==> 7 <== | x |");
  table->getRow(2)->setIsEnabled(false);
  EXPECT_NE(KVXEUID(table->getRow(2)).describe("").find("Gui:Hidden )"), std::string::npos);
  EXPECT_EQ(uid.reflect().substr(0, 24), "Index mapping\n0 = BOOK\n1");
}

}  // namespace
