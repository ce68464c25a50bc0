// The power delivery design of real books: which supply feeds each rail, its voltage, currents and margin.

#include "models/common/RailGrouping.h"
#include "tests/tabs/PowerDeliveryBook.h"

namespace {

const std::string full = kvxm::fullPowerManagement;
const std::string minimum = kvxm::minimumRails;

class EveryPowerDelivery : public PowerDelivery, public testing::WithParamInterface<std::string> {
 protected:
  /// One part for each device and set of supply limits.
  std::vector<std::string> parts() {
    std::vector<std::string> chosen;
    std::set<std::string> seen;
    for (const std::string& part : KVXEPartSelection::getGlobal()->getAvailableParts()) {
      const kvxm::Part* known = kvxm::DeviceCatalogue::getGlobal().findPart(part);
      const kvxm::Device* device = kvxm::DeviceCatalogue::getGlobal().findDevice(part);
      if (device && seen.insert(device->name + (known ? known->supplyGrade() : "")).second)
        chosen.push_back(part);
    }
    return chosen;
  }
  void expectSoundGroups(const kvxm::Device& device, const std::string& consolidation) {
    std::map<std::string, std::string> groupOfRail;
    for (const auto& [group, rails] : groups(device)) {
      EXPECT_TRUE(rails.size() > 1 || device.supply(group)) << group;
      EXPECT_EQ(supply(group, Tab::m_psdVoltageColumn)->getIsEditable(), rails.size() > 1) << group;
      for (const std::string& name : rails) {
        EXPECT_TRUE(groupOfRail.emplace(name, group).second) << name << " is in two groups";
        EXPECT_EQ(numberIn(supply(group, Tab::m_psdVoltageColumn)), Tab::getNomVoltage(uid(), name)) << group;
      }
    }
    for (const kvxm::Supply& one : device.supplies) {
      SCOPED_TRACE(one.rail);
      EXPECT_NE(groupOf(one.rail), "");
      EXPECT_EQ(groupOf(one.rail), groupOfRail[one.rail]);
      EXPECT_EQ(rail(one.rail, KVXETab::m_voltageColumn)->getIsEditable(),
                groupOf(one.rail) == one.displayName);
      EXPECT_EQ(Tab::getVoltage(uid(), one.rail), Tab::getNomVoltage(uid(), one.rail));
    }
    if (consolidation == full) {
      EXPECT_EQ(groupOf("VCCINT"), "VCCINT");
    }
  }
};

}  // namespace

TEST_P(EveryPowerDelivery, EveryRailIsInOneSupplyOfItsVoltage) {
  open(GetParam());
  size_t shared[2] = {};
  for (const std::string& part : parts()) {
    use(part);
    const kvxm::Device* device = kvxm::DeviceCatalogue::getGlobal().findDevice(Tab::getDevice(uid()));
    ASSERT_TRUE(device);
    for (const std::string& consolidation : {full, minimum}) {
      SCOPED_TRACE(part + " " + consolidation);
      m_book->edit(choice(Tab::m_powerRailConsolidationTable), consolidation);
      EXPECT_EQ(Tab::getPowerRailConsolidation(uid()), consolidation);
      expectSoundGroups(*device, consolidation);
      for (const auto& [group, rails] : groups(*device)) shared[consolidation == minimum] += rails.size() - 1;
    }
  }
  EXPECT_GT(shared[0], 0u);
  EXPECT_GT(shared[1], 2 * shared[0]) << "the fewest supplies are hardly fewer";
}

TEST_P(EveryPowerDelivery, ASupplyGivesWhatItsRailsDraw) {
  open(GetParam());
  use(KVXEPartSelection::getGlobal()->getSelectedDeviceName(), "Maximum");
  useLogic();
  consolidate(minimum);
  const kvxm::Device* device = kvxm::DeviceCatalogue::getGlobal().findDevice(Tab::getDevice(uid()));
  const auto found = groups(*device);
  ASSERT_FALSE(found.empty());
  const std::pair<std::string, const KVXETitle*> choices[] = {{"Static", &KVXETab::m_staticCurrentColumn},
                                                              {"Dynamic", &KVXETab::m_dynamicCurrentColumn},
                                                              {"Powerup", &KVXETab::m_powerupCurrentColumn},
                                                              {"Total", &KVXETab::m_totalCurrentColumn}};
  for (const auto& [selection, column] : choices) {
    edit(choice(Tab::m_currentSelectionTable), selection);
    double supplies = 0.0;
    for (const auto& [group, rails] : found) {
      SCOPED_TRACE(selection + " " + group);
      double sum = 0.0;
      double step = 0.0;
      for (const std::string& name : rails) {
        const float drawn = amps(name, *column);
        sum += selection == "Powerup" ? std::max(drawn, amps(name, KVXETab::m_totalCurrentColumn)) : drawn;
        step += amps(name, KVXETab::m_stepLoadColumn) * amps(name, KVXETab::m_dynamicCurrentColumn);
      }
      EXPECT_NEAR(numberIn(supply(group, Tab::m_psdEstimatedCurrentColumn)), sum, 1e-5f * sum);
      EXPECT_NEAR(numberIn(supply(group, Tab::m_psdStepLoadColumn)), step, 1e-5f * step);
      supplies += numberIn(supply(group, Tab::m_psdEstimatedCurrentColumn));
    }
    double rails = 0.0;
    for (const kvxm::Supply& one : device->supplies) rails += amps(one.rail, *column);
    if (selection != "Powerup") {
      EXPECT_NEAR(supplies, rails, 1e-5 * rails) << selection;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Architectures, EveryPowerDelivery, testing::ValuesIn(DeviceBook::architectures()),
                         [](const auto& param) {
                           std::string name = param.param;
                           std::erase_if(name,
                                         [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
                           return name;
                         });

TEST_F(PowerDelivery, AGroupHasOneVoltage) {
  use("AK1080-VSVA1024_2-MP-E-S");
  consolidate(minimum);
  KVXECell* volts = supply("CORE_0V80", Tab::m_psdVoltageColumn);
  const float before = amps("VCCSOC", KVXETab::m_staticCurrentColumn);
  edit(volts, 0.81f);
  for (const char* name : {"VCCINT", "VCCSOC", "VCCPMC", "VCCRAM"}) {
    EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), name), 0.81f) << name;
    EXPECT_EQ(rail(name, KVXETab::m_voltageColumn)->getColor().second, KVXECell::ReadOnlyBackground) << name;
  }
  EXPECT_GT(amps("VCCSOC", KVXETab::m_staticCurrentColumn), before);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCAUX"), 1.5f);

  const std::string outOfRange = "<html>The Voltage value is out of valid range.</html>";
  edit(volts, 0.86f);  // within the range of VCCINT_HIC, beyond that of VCCINT
  EXPECT_EQ(message(volts), outOfRange);
  EXPECT_EQ(message(rail("VCCINT", KVXETab::m_voltageColumn)), outOfRange);
  EXPECT_EQ(message(rail("VCCINTHIC", KVXETab::m_voltageColumn)), "");
  blank(volts);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.80f);
  EXPECT_EQ(message(volts), "");
  EXPECT_EQ(message(rail("VCCINT", KVXETab::m_voltageColumn)), "");
}

TEST_F(PowerDelivery, ASingleRailDecidesOnTheVoltageOfItsSupply) {
  use("AK1080-VSVA1024_2-MP-E-S");
  KVXECell* volts = supply("VCCINT", Tab::m_psdVoltageColumn);
  EXPECT_FLOAT_EQ(numberIn(volts), 0.80f);
  edit(rail("VCCINT", KVXETab::m_voltageColumn), 0.81f);
  EXPECT_FLOAT_EQ(numberIn(volts), 0.81f);
  EXPECT_EQ(volts->getColor().second, KVXECell::ReadOnlyBackground);
  edit(rail("VCCINT", KVXETab::m_voltageColumn), 0.95f);
  EXPECT_FLOAT_EQ(numberIn(volts), 0.95f);
  EXPECT_NE(volts->getColor().second, KVXECell::ReadOnlyBackground) << "out of range";
  EXPECT_EQ(message(volts), "") << "one message, at the rail";
  blank(rail("VCCINT", KVXETab::m_voltageColumn));
  EXPECT_FLOAT_EQ(numberIn(volts), 0.80f);
  EXPECT_EQ(volts->getColor().second, KVXECell::ReadOnlyBackground);
}

TEST_F(PowerDelivery, WhatTheUserGaveComesBack) {
  use("AK1080-VSVA1024_2-MP-E-S");
  edit(rail("VCCINT", KVXETab::m_voltageColumn), 0.81f);
  edit(supply("VCCINT", Tab::m_schematicNameColumn), std::string("VDD_PL"));
  edit(supply("VCCINT", Tab::m_psdCurrentColumn), 1e-3f);
  EXPECT_EQ(supply("VCCINT", Tab::m_psdMarginColumn)->getSeverity(), KvxSeverity::WARNING);
  consolidate(minimum);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.80f);
  EXPECT_FALSE(isShown(supply("VCCINT", Tab::m_psdVoltageColumn)));
  EXPECT_EQ(message(supply("VCCINT", Tab::m_psdMarginColumn)), "");
  EXPECT_EQ(groupOf("VCCINT"), "CORE_0V80");
  edit(supply("CORE_0V80", Tab::m_psdVoltageColumn), 0.79f);
  edit(supply("CORE_0V80", Tab::m_schematicNameColumn), std::string("VDD"));
  edit(supply("CORE_0V80", Tab::m_psdCurrentColumn), 90.0f);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.79f);

  consolidate(full);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.81f);
  EXPECT_TRUE(rail("VCCINT", KVXETab::m_voltageColumn)->getIsEditable());
  EXPECT_FLOAT_EQ(numberIn(supply("VCCINT", Tab::m_psdVoltageColumn)), 0.81f);
  EXPECT_EQ(textIn(supply("VCCINT", Tab::m_schematicNameColumn)), "VDD_PL");
  EXPECT_FLOAT_EQ(numberIn(supply("VCCINT", Tab::m_psdMarginColumn)),
                  1e-3f - amps("VCCINT", KVXETab::m_totalCurrentColumn));
  EXPECT_FALSE(isShown(supply("CORE_0V80", Tab::m_psdVoltageColumn)));
  use("AK1080-VSVA1024_2-LP-E-S");
  use("AK1080-VSVA1024_2-MP-E-S");
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.81f);
  blank(rail("VCCINT", KVXETab::m_voltageColumn));
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.80f);

  consolidate(minimum);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.79f);
  EXPECT_EQ(textIn(supply("CORE_0V80", Tab::m_schematicNameColumn)), "VDD");
  EXPECT_EQ(numberIn(supply("CORE_0V80", Tab::m_psdCurrentColumn)), 90.0f);
  consolidate(full);
  EXPECT_FLOAT_EQ(Tab::getVoltage(uid(), "VCCINT"), 0.80f);
}

/// By supply, with one of its rails.
class SupplyOfRail : public PowerDelivery,
                     public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(SupplyOfRail, ToldWhenASupplyIsTooSmall) {
  const auto [name, fed] = GetParam();
  use("AK1080-VSVA1024_2-MP-E-S", "Maximum");
  KVXECell* available = supply(name, Tab::m_psdCurrentColumn);
  KVXECell* margin = supply(name, Tab::m_psdMarginColumn);
  EXPECT_TRUE(std::isnan(numberIn(margin)));
  edit(choice(Tab::m_currentSelectionTable), std::string("Powerup"));
  const float worst = numberIn(supply(name, Tab::m_psdEstimatedCurrentColumn));
  EXPECT_GT(worst, amps(fed, KVXETab::m_totalCurrentColumn));

  edit(available, worst + 1.0f);
  EXPECT_NEAR(numberIn(margin), 1.0f, 1e-4f);
  EXPECT_EQ(message(margin), "");
  edit(available, worst - 0.5f);
  EXPECT_NEAR(numberIn(margin), -0.5f, 1e-4f);
  EXPECT_EQ(margin->getSeverity(), KvxSeverity::WARNING);
  edit(choice(Tab::m_currentSelectionTable), std::string("Dynamic"));
  EXPECT_NEAR(numberIn(margin), -0.5f, 1e-4f) << "the margin is about the worst case whatever is shown";
  blank(available);
  EXPECT_TRUE(std::isnan(numberIn(margin)));
  EXPECT_EQ(message(margin), "");
}

INSTANTIATE_TEST_SUITE_P(SharedAndSingle, SupplyOfRail,
                         testing::Values(std::pair{"SYSTEM_CORE_0V80", "VCCSOC"},
                                         std::pair{"VCCINT", "VCCINT"}),
                         [](const auto& param) { return std::string(param.param.second); });
