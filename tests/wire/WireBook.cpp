#include "tests/wire/WireBook.h"

using enum KVXEEnums::CellType;
using KVXEEnums::TabType;
using KVXEEnums::Visibility;

void WireBook::SetUp() {
  TinyBook::SetUp();
  KVXEPBHelper::getGlobal().setVisibility(Visibility::EXTERNAL);
  for (const TabType parent : {TabType::ESTIMATION, TabType::HARD_BLOCKS}) book()->getOrCreateTab(parent);
  static const char* const choices[] = {"x", "y"};
  static const KVXEColumn columns[] = {
      {.title = &Name, .type = STRING, .isEditable = true},
      {.title = &A, .type = INT, .isEditable = true, .minimum = 0, .maximum = 100},
      {.title = &B, .type = FLOAT, .isEditable = true, .minimum = 0},
      {.title = &Sum, .type = INT, .formula = &addUp},
      {.title = &Choice,
       .type = STRING,
       .isEditable = true,
       .text = "x",
       .isDropdown = true,
       .entries = choices},
  };
  make(columns, 3);
  KVXECalculationMgr::getGlobal().fullCalculate();
}

void WireBook::TearDown() {
  KVXEPBHelper::getGlobal().setVisibility(Visibility::INTERNAL);
  TinyBook::TearDown();
}

const KvxHandshakeData& WireBook::reply() {
  EXPECT_TRUE(KVXEPBHelper::getGlobal().populate(&m_reply));
  return m_reply;
}

const KvxTablePacket& WireBook::tablePacket() {
  const KvxBookPacketData& packet = reply().bookpacket();
  EXPECT_LE(packet.sections_size(), 1);
  static const KvxTablePacket none;
  if (packet.sections_size() != 1) return none;
  EXPECT_EQ(packet.sections(0).tables_size(), 1);
  return packet.sections(0).tables_size() == 1 ? packet.sections(0).tables(0) : none;
}

bool WireBook::absorb(const std::string& cells) {
  const std::string text =
      "sections { tabIndex: " + std::to_string(SysmonTab) + " tables { tableIndex: 0 " + cells + " } }";
  const bool isAbsorbed = KVXEPBHelper::getGlobal().absorb(fromText<KvxBookPacketData>(text));
  calculate();
  return isAbsorbed;
}
