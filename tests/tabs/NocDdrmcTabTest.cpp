#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/tarvek/KVXETarvekNocDdrmcTab.h"
#include "models/common/KVXMHelperUtils.h"
#include "tests/kit/Consistency.h"
#include "tests/kit/DeviceBook.h"

using namespace KVXEEnums;
using Noc = KVXETarvekNocDdrmcTab;

namespace {

/// A device of each kind of controller.
struct Device {
  const char* name;
  const char* part;
  const char* controller;
  const char* dramType;
  int controllers;

  friend void PrintTo(const Device& device, std::ostream* out) { *out << device.name; }
};
const Device ak1080{"AK1080", "AK1080-VSVA1024-1MP-E-S", "DDRMC", "DDR4", 3};
const Device ae2060{"AE2060", "AE2060-VSVA1024-2MP-E-S", "DDRMC5", "LPDDR5", 4};
const Device ak2080{"AK2080", "AK2080-LRVE2197-1MP-E-S", "DDRMC5C", "DDR5", 6};

class NocDdrmcTab : public ::testing::TestWithParam<Device> {
 protected:
  void SetUp() override { select(GetParam()); }
  void select(const Device& device) {
    ASSERT_TRUE(KVXEPartSelection::getGlobal()->selectPart(device.part, KVXEPartSelection::m_typStr));
    KVXEPartSelection::getGlobal()->redrawTabs(true);
    book.trim(9);
  }
  KVXETab* tab() { return book.book()->getTab(TabType::NOC_DDRMC); }
  KVXECell* noc(unsigned int row, const KVXETitle& column) {
    return tab()->getTable(&Noc::m_NocConfigTable)->getCellAt(row, &column);
  }
  KVXECell* controller(unsigned int row, const KVXETitle& column) {
    return tab()->getTable(&Noc::m_DdrmcConfigTable)->getCellAt(row, &column);
  }
  float used(const std::string& row, const KVXETitle& column) {
    return numberIn(book.cell(TabType::NOC_DDRMC, KVXETab::m_UtilTable, row, KVXETab::m_TypeColumn, column));
  }
  float summary(const std::string& row) {
    KVXETable* table = book.book()->getTable(TabType::SUMMARY, &KVXESummaryTab::m_onchipDynamicTableHeader);
    const KVXETitle& title =
        table ? KVXESummaryTab::m_onchipDynamicTableHeader : KVXESummaryTab::m_onchipTableHeader;
    return numberIn(book.cell(TabType::SUMMARY, title, row, KVXESummaryTab::m_onchipResourceColumn,
                              KVXESummaryTab::m_onchipPowerColumn));
  }
  float rail(const std::string& name) {
    return numberIn(book.cell(TabType::NOC_DDRMC, KVXETab::m_PowerTable, name, KVXETab::m_InternalRailColumn,
                              KVXETab::m_ActivePowerColumn));
  }
  float dynamicPower() {
    float watts = -1.0f;
    EXPECT_TRUE(tab()->getTabActivePower(watts));
    return watts;
  }
  /// The message on a cell, with that of a value outside its list.
  static std::string messageOf(KVXECell* cell) {
    if (cell->isInADropdownColumn()) cell->addDDErrorMsgIfApplicable();
    return cell->getMsg() ? cell->getMsg()->getDisplayText() : "";
  }
  void connect(unsigned int row, int read, int write) {
    book.put(noc(row, Noc::m_ReadBandWidth), read);
    book.put(noc(row, Noc::m_WriteBandWidth), write);
    calculateEdits();
  }
  void place(unsigned int row, int bandWidth = 8000) {
    book.put(controller(row, Noc::m_DramType), std::string(GetParam().dramType));
    book.put(controller(row, Noc::m_ReadBandWidth), bandWidth);
    calculateEdits();
  }

  DeviceBook book{KVXEPartSelection::m_arkeonArchName};
};
INSTANTIATE_TEST_SUITE_P(Devices, NocDdrmcTab, ::testing::Values(ak1080, ae2060, ak2080),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_P(NocDdrmcTab, NothingUsedDrawsNothing) {
  EXPECT_EQ(dynamicPower(), 0.0f);
  EXPECT_EQ(summary("NoC"), 0.0f);
  EXPECT_EQ(summary("Hard MC"), 0.0f);
  book.put(noc(1, Noc::m_ModuleName), std::string("named only"));
  book.put(controller(1, Noc::m_ReadBandWidth), 1000);
  calculateEdits();
  EXPECT_EQ(dynamicPower(), 0.0f);
  EXPECT_TRUE(std::isnan(numberIn(noc(1, Noc::m_Power))));
  EXPECT_TRUE(std::isnan(numberIn(controller(1, Noc::m_Power))));
}

TEST_P(NocDdrmcTab, EveryWattReachesRailsAndSummaryOnce) {
  connect(1, 8000, 4000);
  connect(2, 0, 0);
  place(1);
  place(2, 2000);
  book.put(noc(3, Noc::m_NocSwitches), 12);
  connect(3, 500, 0);
  const float nocPower = used(Noc::m_NocStr, Noc::m_PowerColumn);
  const float clockPower = used(Noc::m_ClockBufferStr, Noc::m_PowerColumn);
  const float controllers = used(GetParam().controller, Noc::m_PowerColumn);
  EXPECT_EQ(used(Noc::m_NocStr, KVXETab::m_UsedColumn), 3.0f);
  EXPECT_EQ(used(GetParam().controller, KVXETab::m_UsedColumn), 2.0f);
  EXPECT_GT(std::min({nocPower, clockPower, controllers}), 0.0f);
  EXPECT_FLOAT_EQ(nocPower + clockPower + controllers, dynamicPower());
  EXPECT_FLOAT_EQ(rail("VCCSOC") + rail("VCCINTIO") + rail("VCCAUX"), dynamicPower());
  EXPECT_FLOAT_EQ(summary("NoC"), nocPower + clockPower);
  EXPECT_FLOAT_EQ(summary("Hard MC"), controllers);
  EXPECT_FLOAT_EQ(numberIn(noc(2, Noc::m_Power)), clockPower * 6 / 24) << "an open connection, idle";
}

TEST_P(NocDdrmcTab, ShowsTheKindsOfTheDevice) {
  for (const std::string& kind : {Noc::m_HardMcStr, Noc::m_Ddrmc5Str, Noc::m_Ddrmc5CStr, Noc::m_HbmmcStr}) {
    const KVXECell* type = book.cell(TabType::NOC_DDRMC, KVXETab::m_UtilTable, kind, KVXETab::m_TypeColumn,
                                     KVXETab::m_TypeColumn);
    const bool isOfDevice = kind == GetParam().controller;
    EXPECT_EQ(type->getRow()->getVisibility() == Visibility::EXTERNAL, isOfDevice) << kind;
    EXPECT_EQ(std::isnan(used(kind, Noc::m_PowerColumn)), !isOfDevice) << kind;
  }
  EXPECT_EQ(used(GetParam().controller, KVXETab::m_AvailColumn), static_cast<float>(GetParam().controllers));
}

TEST_P(NocDdrmcTab, WarnsOfMoreControllersThanTheDeviceHas) {
  const std::string kind = GetParam().controller;
  KVXECell* share =
      book.cell(TabType::NOC_DDRMC, KVXETab::m_UtilTable, kind, KVXETab::m_TypeColumn, KVXETab::m_UtilColumn);
  for (int row = 1; row <= GetParam().controllers; ++row) place(static_cast<unsigned int>(row));
  EXPECT_EQ(messageOf(share), "");
  place(static_cast<unsigned int>(GetParam().controllers) + 1);
  EXPECT_EQ(messageOf(share), "<html>" + kind + " utilization exceeds 100%.\nPlease review the usage in " +
                                  kind + " table.</html>");
  EXPECT_EQ(share->getSeverity(), KvxSeverity::WARNING);
  controller(1, Noc::m_DramType)->setBlankAndState(CellState::DIRTY_DIRTY);
  calculateEdits();
  EXPECT_EQ(messageOf(share), "");
}

TEST_P(NocDdrmcTab, ABlankDataRateIsTheHighest) {
  place(1);
  KVXECell* rate = controller(1, Noc::m_Datarate);
  const float highest = numberIn(controller(1, Noc::m_Power));
  book.put(rate, 20000.0f);
  calculateEdits();
  const std::string warning = messageOf(rate);
  const std::string opening = "<html>Maximum datarate for selected device grade is  ";
  ASSERT_EQ(warning.substr(0, opening.size()), opening);
  EXPECT_EQ(rate->getSeverity(), KvxSeverity::WARNING);
  EXPECT_GT(numberIn(controller(1, Noc::m_Power)), highest);
  book.put(rate, KVXMHelperUtils::s2f(warning.substr(opening.size())));
  calculateEdits();
  EXPECT_EQ(messageOf(rate), "");
  EXPECT_FLOAT_EQ(numberIn(controller(1, Noc::m_Power)), highest);
}

TEST_P(NocDdrmcTab, WarnsOfWhatDoesNotFit) {
  place(1, 100);
  book.put(controller(1, Noc::m_DataWidth), 32);
  book.put(controller(1, Noc::m_Datarate), 2000.0f);
  KVXECell* read = controller(1, Noc::m_ReadBandWidth);
  for (const int write : {7900, 7901}) {
    book.put(controller(1, Noc::m_WriteBandWidth), write);
    calculateEdits();
    EXPECT_EQ(messageOf(read) != "", write > 7900) << "32 bits at 2000 Mbps carry 8000 MB/s";
  }
  book.put(controller(1, Noc::m_Channels), 2);
  calculateEdits();
  EXPECT_EQ(messageOf(read), "");
  EXPECT_EQ(messageOf(controller(1, Noc::m_Channels)), "") << "64 data pins";

  connect(1, 16000, 16001);
  EXPECT_EQ(messageOf(noc(1, Noc::m_ReadBandWidth)), "");
  EXPECT_NE(messageOf(noc(1, Noc::m_WriteBandWidth)), "");
  EXPECT_EQ(messageOf(noc(1, Noc::m_NocClock)), "");
  book.put(noc(1, Noc::m_NocClock), 1300.0f);
  calculateEdits();
  EXPECT_EQ(messageOf(noc(1, Noc::m_WriteBandWidth)), "");
  EXPECT_NE(messageOf(noc(1, Noc::m_NocClock)), "");
}

TEST_P(NocDdrmcTab, OffersWhatTheControllerSupports) {
  std::vector<std::string> list;
  place(1);
  ASSERT_TRUE(controller(1, Noc::m_DramType)->getDDVals(list));
  for (const std::string& type : list) {
    book.put(controller(1, Noc::m_DramType), type);
    calculateEdits();
    EXPECT_EQ(textIn(controller(1, Noc::m_Controller)), GetParam().controller) << type;
    std::vector<std::string> standards;
    controller(1, Noc::m_Standard)->getDDVals(standards);
    EXPECT_EQ(standards.size() == 1, type.starts_with("LPDDR")) << type;
    EXPECT_EQ(messageOf(controller(1, Noc::m_DramType)), "");
    EXPECT_EQ(messageOf(controller(1, Noc::m_Standard)), "");
  }
  book.put(controller(1, Noc::m_Crypto), std::string("Yes"));
  calculateEdits();
  EXPECT_EQ(messageOf(controller(1, Noc::m_Crypto)) == "", std::string(GetParam().controller) == "DDRMC5C");
}

TEST_P(NocDdrmcTab, AnUsedUpRowIsADefaultRowAgain) {
  KVXETable* table = tab()->getTable(&Noc::m_DdrmcConfigTable);
  EXPECT_EQ(table->getFirstRowIDWithDefaults(true), 1u);
  place(1);
  EXPECT_EQ(table->getFirstRowIDWithDefaults(true), 2u);
  table->resetDefaults(1, 1);
  calculateEdits();
  EXPECT_EQ(table->getFirstRowIDWithDefaults(true), 1u);
}

TEST_P(NocDdrmcTab, AMemoryOfAnotherDeviceIsMarked) {
  place(1);
  const Device& other = GetParam().name == ak1080.name ? ae2060 : ak1080;
  ASSERT_TRUE(KVXEPartSelection::getGlobal()->selectPart(other.part, KVXEPartSelection::m_typStr));
  KVXEPartSelection::getGlobal()->redrawTabs(false);
  book.settle();
  EXPECT_EQ(messageOf(controller(1, Noc::m_DramType)),
            "<html>Invalid value selected for a dropdown entry.</html>");
  EXPECT_TRUE(std::isnan(numberIn(controller(1, Noc::m_Power))));
  EXPECT_EQ(summary("Hard MC"), 0.0f);
}

TEST_P(NocDdrmcTab, AFullTableHasFewEdges) {
  const size_t idle = KVXECalculationMgr::getGlobal().getEdgeCount();
  for (unsigned int row = 1; row <= 8; ++row) {
    connect(row, 100, 100);
    place(row);
  }
  book.settle();
  EXPECT_LT(KVXECalculationMgr::getGlobal().getEdgeCount() - idle, 8u * 120u);
}

}  // namespace
