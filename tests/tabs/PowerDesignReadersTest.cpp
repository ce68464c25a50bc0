// What the power design tells other tabs of transceivers, of power beside the chip's and of the catalogue.

#include "tests/tabs/PowerDeliveryBook.h"

using namespace KVXEEnums;

namespace {

const KVXETitle standInTable("STAND_IN");
const KVXETitle standInChannels("CHANNELS", "Channels");

}  // namespace

class PulledSupplies : public PowerDelivery {
 protected:
  KVXECell* addXcvrTable(TabType type) {
    KVXETable* table = m_book->book()->getTab(type)->createTable(&standInTable, false, false, true,
                                                                 GridComponentType::TABLE);
    static const KVXEColumn columns[] = {
        {.title = &standInChannels, .type = CellType::INT, .isEditable = true}};
    table->addColumns(columns);
    table->getOrCreateRow(2);
    return table->getCellAt(2, &standInChannels);
  }
};

TEST_F(PulledSupplies, DependOnTheKindsOfTransceiversInUse) {
  use("AK1080-VSVA1024_2-MP-E-S");
  KVXECell* voltageOfA = rail("MXCVRAAVCC", KVXETab::m_voltageColumn);
  KVXECell* voltageOfC = rail("MXCVRCAVCC", KVXETab::m_voltageColumn);
  EXPECT_EQ(message(voltageOfA), "") << "unknown use";
  KVXECell* channelsOfA = addXcvrTable(TabType::XCVRA);
  KVXECell* channelsOfC = addXcvrTable(TabType::XCVRC);
  m_book->settle();

  const std::string down =
      "<html>For device with XCVRA and XCVRC, the AVCC voltage is pulled down when XCVRA is used and XCVRC "
      "is "
      "unused.</html>";
  const std::string up =
      "<html>For device with XCVRA and XCVRC, the AVCC voltage is pulled up except when XCVRA is used and "
      "XCVRC is unused.</html>";
  const std::string range = "<html>The Voltage value is out of valid range.</html>";
  const struct {
    const char* label;
    int usedA, usedC;
    float voltsA, voltsC;
    std::string ofA, ofC;
  } cases[] = {
      {"both unused", 0, 0, 0.92f, 0.92f, up, ""},
      {"both used", 4, 8, 0.948f, 0.88f, up, ""},
      {"both used, A low", 4, 8, 0.88f, 0.88f, range, ""},
      {"both used, A on the bound", 4, 8, 0.892f, 0.92f, up, ""},
      {"A alone", 4, 0, 0.88f, 0.88f, "", down},
      {"A alone, C on the bound", 1, 0, 0.92f, 0.906f, "", down},
      {"A alone, C high", 1, 0, 0.92f, 0.91f, "", ""},
      {"C alone", 0, 4, 0.92f, 0.88f, up, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    edit(channelsOfA, c.usedA);
    edit(channelsOfC, c.usedC);
    edit(voltageOfA, c.voltsA);
    edit(voltageOfC, c.voltsC);
    EXPECT_EQ(message(voltageOfA), c.ofA);
    EXPECT_EQ(message(voltageOfC), c.ofC);
    EXPECT_EQ(Tab::getUsedXcvrs(uid(), "XCVRA"), c.usedA);
    EXPECT_EQ(Tab::getUsedXcvrQuads(uid(), "XCVRC"), (c.usedC + 3) / 4);
  }
}

TEST_F(PowerDelivery, TransceiversOfTheDevice) {
  use("AK1080-VSVA1024_2-MP-E-S");
  EXPECT_EQ(Tab::getXcvrResources(uid()), (std::map<std::string, int>{{"XCVRA", 24}, {"XCVRC", 16}}));
  EXPECT_EQ(Tab::getAvailXcvrs(uid(), "XCVRD"), 0);
  EXPECT_EQ(Tab::getAvailXcvrs(uid(), "LUT"), 0);
  EXPECT_EQ(Tab::getUsedXcvrs(uid(), "XCVRA"), 0);
  EXPECT_EQ(Tab::getAvailXcvrPowerPlanes(uid(), "XCVRA"), 2);
  EXPECT_EQ(Tab::getUsedXcvrPowerPlanes(uid(), "XCVRA"), 0);
}

TEST_F(PowerDelivery, TypicalPartsMayLeakMoreThanTheCatalogueSays) {
  const struct {
    const char* process;
    float expected;
  } cases[] = {{"Typical", 1.5f}, {"Maximum", 1.0f}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.process);
    open(KVXEPartSelection::m_arkeonArchName);
    use("AK1080-VSVA1024_2-MP-E-S", c.process);
    edit(environment(KVXESummaryTab::m_junctionTempStr, KVXESummaryTab::m_envTempColumn),
         KVXESummaryTab::m_userOverrideOnStr);
    const float before = Tab::getOnChipStaticPower(uid());
    edit(choice(Tab::m_internalScalingTable), 1.5f);
    EXPECT_EQ(Tab::getTpfSetting(uid()), 1.5f);
    EXPECT_NEAR(Tab::getOnChipStaticPower(uid()), c.expected * before, 1e-4f * before);
    EXPECT_NEAR(KVXESummaryTab::getFpgaStaticPower(uid()), c.expected * before, 1e-4f * before);
  }
}

TEST_F(PowerDelivery, TablesStandInOrder) {
  const KVXETitle* const order[] = {
      &KVXETab::m_deviceTable,       &Tab::m_powerSummaryTable,           &Tab::m_powerSupplyDesignTable,
      &KVXETab::m_powerSupplyTable,  &Tab::m_powerRailConsolidationTable, &Tab::m_currentSelectionTable,
      &Tab::m_internalScalingTable,  &Tab::m_debugIntDeviceTable,         &Tab::m_debugStrDeviceTable,
      &Tab::m_debugFloatDeviceTable, &Tab::m_debugJunctionTempTable};
  for (const std::string& architecture : DeviceBook::architectures()) {
    open(architecture);
    ASSERT_EQ(design()->getTableCount(), std::size(order)) << architecture;
    for (unsigned int i = 0; i < std::size(order); ++i)
      EXPECT_EQ(design()->getTable(i)->getTableTitle(), order[i]) << architecture << " " << i;
  }
}

TEST_F(PowerDelivery, DebugTablesShowTheCatalogue) {
  use("AK1080-VSVA1024_2-MP-E-S");
  const auto at = [&](const KVXETitle& table, const KVXETitle& key, const KVXETitle& value, const char* row) {
    return m_book->cell(TabType::POWER_DESIGN, table, row, key, value);
  };
  const auto number = [&](const char* row) {
    return numberIn(at(Tab::m_debugFloatDeviceTable, Tab::m_debugFloatOptionColumn,
                       Tab::m_debugFloatSelectionColumn, row));
  };
  EXPECT_EQ(numberIn(at(Tab::m_debugIntDeviceTable, Tab::m_debugDeviceOptionColumn,
                        Tab::m_debugDeviceSelectionColumn, "DSP")),
            1900.0f);
  EXPECT_EQ(textIn(at(Tab::m_debugStrDeviceTable, Tab::m_debugDeviceOptionColumn,
                      Tab::m_debugDeviceSelectionColumn, "SUPPLY_GRADE")),
            "MP");
  EXPECT_FLOAT_EQ(number("THETA_JA"), 1.23f);
  EXPECT_FLOAT_EQ(number("VCCINT"), 0.80f);
  EXPECT_TRUE(std::isnan(number("MXCVRDAVCC")));
  EXPECT_EQ(design()->getTable(&Tab::m_debugIntDeviceTable)->getVisibility(), Visibility::DEVELOPER);
}

TEST_F(PowerDelivery, ReadersOfPowerAndTemperature) {
  use("AK1080-VSVA1024_2-MP-E-S");
  useLogic();
  EXPECT_GT(Tab::getBlockDynamicPower(uid(), TabType::LOGIC), 0.0f);
  EXPECT_EQ(Tab::getBlockDynamicPower(uid(), TabType::HIC), 0.0f);
  EXPECT_NEAR(Tab::getPlDynamicPower(uid()), Tab::getOnChipDynamicPower(uid()), 1e-4f);
  const std::map<std::string, float> currents{{"VCCINT", 10.0f}, {"VCCAUX", 2.0f}, {"NONE", 5.0f}};
  KVXECell* override = environment(KVXESummaryTab::m_junctionTempStr, KVXESummaryTab::m_envTempColumn);
  edit(override, KVXESummaryTab::m_userOverrideOnStr);
  EXPECT_EQ(Tab::getIntermediateJunctionTemperature(uid(), 40.0f, currents), Tab::getUserJunctionTemp(uid()));
  edit(override, KVXESummaryTab::m_userOverrideOffStr);
  edit(environment(KVXESummaryTab::m_thetaJaStr, KVXESummaryTab::m_envValColumn), 2.0f);
  EXPECT_FLOAT_EQ(Tab::getIntermediateJunctionTemperature(uid(), 40.0f, currents), 62.0f);
}

TEST_F(PowerDelivery, GradesReadInFull) {
  use("AK1080-VSVA1024_2-MP-E-S");
  EXPECT_EQ(Tab::getSpeedGradeForDisplay(uid()), "-2");
  EXPECT_EQ(Tab::getTempGradeForDisplay(uid()), "Extended 0C->100C");
  EXPECT_EQ(Tab::getVoltageRangeForDisplay(uid()), "Mid - 0.80v");
  open(KVXEPartSelection::m_morlanArchName);
  EXPECT_EQ(Tab::getVoltageRangeForDisplay(uid()), "") << "the speed field says it";
}
