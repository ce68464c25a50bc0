// The built-in catalogue is complete and believable.

#include <cmath>
#include <regex>
#include <set>

#include "models/catalogue/Characterisation.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/common/KVXMCommonParamControlData.h"
#include "models/morlan/KVXMMorlanPartsData.h"
#include "models/morlan/KVXMMorlanPowerLabelData.h"
#include "models/morlan/KVXMMorlanSomPartsData.h"
#include "models/tarvek/KVXMTarvekPartsData.h"
#include "models/tarvek/KVXMTarvekStaticData.h"
#include "tests/models/CatalogueKit.h"

using namespace kvxm;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

const DeviceCatalogue& catalogue() {
  return DeviceCatalogue::getGlobal();
}

std::vector<Device> devicesOf(Architecture architecture) {
  std::vector<Device> devices;
  for (const Device& device : catalogue().devices()) {
    if (device.architecture == architecture) devices.push_back(device);
  }
  return devices;
}

std::set<std::string> codesOf(Architecture architecture, std::string Part::*field) {
  std::set<std::string> codes;
  for (const Device& device : devicesOf(architecture)) {
    for (const Part& part : device.parts) codes.insert(part.*field);
  }
  return codes;
}

}  // namespace

TEST(CatalogueData, HasNoMistakesAndNothingDoubtful) {
  EXPECT_THAT(modelDataErrors(), IsEmpty());
  EXPECT_THAT(modelDataWarnings(), IsEmpty());
}

TEST(CatalogueData, EveryDeviceIsComplete) {
  for (const Device& device : catalogue().devices()) {
    SCOPED_TRACE(device.name);
    EXPECT_FALSE(device.resources.empty());
    EXPECT_GT(device.resource("LUT"), 0);
    EXPECT_FALSE(device.supplies.empty());
    EXPECT_TRUE(device.supply("VCCINT") && device.supply("VCCAUX"));
    EXPECT_GE(device.maxProcessLeakage, 1.5f);
    EXPECT_LE(device.maxProcessLeakage, 2.5f);
    EXPECT_GT(device.thetaJa, 0.0f);
    int highestCurrent = 0;
    for (const std::string& package : device.packages) {
      highestCurrent = std::max(highestCurrent, device.maxCurrent(package));
    }
    EXPECT_GT(highestCurrent, 0);
    EXPECT_NE(catalogue().findFamily(device.family), nullptr);
    EXPECT_EQ(device.parts.empty(), device.architecture == Architecture::Som);
  }
}

TEST(CatalogueData, SuppliesHaveOrderedLimitsAndALeakageLaw) {
  for (const Device& device : catalogue().devices()) {
    for (const Supply& supply : device.supplies) {
      SCOPED_TRACE(device.name + " " + supply.rail);
      for (const GradedVoltageRange& range : supply.ranges) {
        EXPECT_LE(range.volts.min, range.volts.nom);
        EXPECT_LE(range.volts.nom, range.volts.max);
      }
      EXPECT_GE(supply.beta, 0.012f);
      EXPECT_LE(supply.beta, 0.040f);
      EXPECT_GE(supply.voltageExponent, 1.0f);
      EXPECT_LE(supply.voltageExponent, 5.0f);
      EXPECT_GE(supply.leakageWatts, 0.0f);
    }
  }
}

TEST(CatalogueData, LeaksLikeAModernPart) {
  for (const Device& device : catalogue().devices()) {
    double idle = 0;
    for (const Supply& supply : device.supplies) idle += supply.leakageWatts * std::exp(supply.beta * 25.0f);
    EXPECT_GT(idle, 0.5) << device.name;
    EXPECT_LT(idle, 20.0) << device.name;
    if (device.name == "AK1080") {
      EXPECT_GT(idle, 2.0);
      EXPECT_LT(idle, 8.0);
    }
  }
}

TEST(CatalogueData, PartNamesFollowTheirPatternAndAreFoundByNameAndKey) {
  const std::regex tarvek("[A-Z]+[0-9]{4}_[A-Z]{4}[0-9]{3,4}_[123](LP|LHP|LLI|MP|MHP|MM|HP)[EIBM][SL]");
  const std::regex morlan("[A-Z0-9]+_[A-Z]{4}[0-9]{3,4}_[123](L|LV|M|Q|LVI)?[EIQM]");
  std::set<std::string> keys;
  for (const Device& device : catalogue().devices()) {
    for (const Part& part : device.parts) {
      SCOPED_TRACE(part.key);
      EXPECT_TRUE(std::regex_match(part.key, device.architecture == Architecture::Tarvek ? tarvek : morlan));
      EXPECT_TRUE(keys.insert(part.key).second);
      EXPECT_EQ(catalogue().findPart(part.name), &part);
      EXPECT_EQ(catalogue().findPart(part.key), &part);
      const bool graded = device.name.starts_with("QQ") || device.name.starts_with("QA");
      EXPECT_EQ(part.key.find("QQ") != std::string::npos || part.key.find("QA") != std::string::npos, graded);
      EXPECT_EQ(part.key.find("es"), std::string::npos);
    }
  }
}

TEST(CatalogueData, CoversEveryCode) {
  EXPECT_THAT(codesOf(Architecture::Tarvek, &Part::speed), ElementsAre("1", "2", "3"));
  EXPECT_THAT(codesOf(Architecture::Tarvek, &Part::voltage),
              ElementsAre("HP", "LHP", "LLI", "LP", "MHP", "MM", "MP"));
  EXPECT_THAT(codesOf(Architecture::Tarvek, &Part::temperature), ElementsAre("B", "E", "I", "M"));
  EXPECT_THAT(codesOf(Architecture::Tarvek, &Part::screen), ElementsAre("L", "S"));
  EXPECT_THAT(codesOf(Architecture::Tarvek, &Part::status),
              ElementsAre("ADVANCE", "PRELIMINARY", "PREVIEW", "PRODUCTION"));
  EXPECT_GE(codesOf(Architecture::Tarvek, &Part::package).size(), 5u);
  EXPECT_THAT(codesOf(Architecture::Morlan, &Part::temperature), ElementsAre("E", "I", "M", "Q"));
  EXPECT_THAT(codesOf(Architecture::Morlan, &Part::speed),
              IsSupersetOf({"1", "1L", "1M", "1Q", "2", "2LV", "2LVI", "3"}));
}

TEST(CatalogueData, DevicesHaveAndLackWhatTheTabsAskFor) {
  const auto tarvek = devicesOf(Architecture::Tarvek);
  EXPECT_GE(tarvek.size(), 8u);
  EXPECT_GE(devicesOf(Architecture::Morlan).size(), 6u);
  for (const char* resource : {"HBM2E", "PSW", "PS", "DDRMC5C", "DDRMC5", "MXE", "MXE2", "XCVRA", "XCVRD"}) {
    const auto with = std::count_if(tarvek.begin(), tarvek.end(),
                                    [&](const Device& device) { return device.resource(resource) > 0; });
    EXPECT_GT(with, 0) << resource;
    EXPECT_LT(with, static_cast<long>(tarvek.size())) << resource;
  }
  for (const Device& device : tarvek) {
    SCOPED_TRACE(device.name);
    EXPECT_EQ(device.family.find("Net") != std::string::npos, device.resource("PSW") > 0);
    EXPECT_EQ(device.family.find("HBM") != std::string::npos, device.resource("HBM2E") > 0);
    EXPECT_EQ(device.supply("MXCVRAAVCC") != nullptr, device.resource("XCVRA") > 0);
    EXPECT_EQ(device.supply("VCCHBM") != nullptr, device.resource("HBM2E") > 0);
  }
  EXPECT_TRUE(catalogue().findDevice("AK1080")->resource("XCVRA") > 0 &&
              catalogue().findDevice("AK1080")->resource("XCVRC") > 0);
}

TEST(CatalogueData, FamiliesStartWithAPartOfTheirOwn) {
  std::set<std::string> morlan;
  for (const Family& family : catalogue().families()) {
    SCOPED_TRACE(family.name);
    const Device* device = catalogue().findDevice(family.defaultPart);
    ASSERT_NE(device, nullptr);
    EXPECT_EQ(device->family, family.name);
    EXPECT_EQ(catalogue().findFamily(family.internalName), &family);
    if (family.architecture == Architecture::Morlan) morlan.insert(family.name);
  }
  EXPECT_THAT(morlan, ElementsAre("Belrin Hexaline+", "Corvane Hexaline+", "Delmor Hexaline+",
                                  "Sorvik Hexaline+ MPSoC"));
}

TEST(CatalogueData, ModulesNameABasePartAndOneDefault) {
  const auto& data = KVXMMorlanSomPartsData::getGlobal();
  std::set<std::string> kinds, talmorNames;
  for (const std::string& key : data.getCfgKeys({"DEVICE_DATA"}, false)) {
    SCOPED_TRACE(key);
    kinds.insert(data.getDeviceData(key, "DEVICE_NAME"));
    EXPECT_TRUE(talmorNames.insert(data.getDeviceData(key, "TALMOR_DEV_NAME")).second);
    EXPECT_THAT(KVXMMorlanPartsData::getGlobal().getCfgKeys(
                    {"DEVICE_DATA", data.getDeviceData(key, "BASE_PART_NAME")}, false),
                testing::SizeIs(1));
    EXPECT_EQ(data.getDeviceFamily(key), "Ludra");
  }
  EXPECT_THAT(kinds, ElementsAre("SM4", "SM6"));
  const std::string standard = data.getDeviceDefaults("Ludra");
  EXPECT_EQ(data.getDeviceData(standard, "BOARD_NAME"), "Custom");
  EXPECT_EQ(data.getDeviceData(standard, "DEVICE_NAME"), "SM6");
  EXPECT_EQ(data.getDeviceData(data.getDeviceData(standard, "TALMOR_DEV_NAME"), "GRADE"), "Industrial");
  EXPECT_EQ(data.getDeviceData(standard, "BASE_DEVICE_NAME"), "HS440");
  EXPECT_EQ(data.getDeviceData(standard, "NO_SUCH_FIELD"), "");
}

TEST(CatalogueQueries, AnswerByNameKeyAndLetterCase) {
  const auto& parts = KVXMTarvekPartsData::getGlobal();
  for (const char* name : {"AK1080-VSVA1024_2-MP-E-S", "AK1080_VSVA1024_2MPES", "ak1080_vsva1024_2_mpes"}) {
    SCOPED_TRACE(name);
    EXPECT_THAT(parts.getCfgKeys({"DEVICE_DATA", name}, false), ElementsAre("AK1080_VSVA1024_2MPES"));
    EXPECT_EQ(parts.getDeviceToFamilyMap(name), "Arkeon Core");
    EXPECT_THAT(parts.getResourceData(name, "RESOURCE_DATA"),
                Contains(std::pair<std::string, int>("DSP", 1900)));
    EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getPartStatus(name, "STATUS"), "PRODUCTION");
  }
  EXPECT_THAT(parts.getResourceData("AK1080", "RESOURCE_DATA"), testing::Not(IsEmpty()));
  EXPECT_THAT(parts.getCfgKeys({"DEVICE_TO_FAMILY_MAP"}, true), IsSupersetOf({"AH4080", "AK1080", "QQ1080"}));
  EXPECT_EQ(catalogue().findDevice("AK1080-X-X-X-X-X"), catalogue().findDevice("AK1080"));
}

TEST(CatalogueQueries, AnswerUnknownNamesWithNothing) {
  const auto& parts = KVXMTarvekPartsData::getGlobal();
  EXPECT_THAT(parts.getCfgKeys({"DEVICE_DATA", "AK9999_VSVA1024_2MPES"}, false), IsEmpty());
  EXPECT_THAT(parts.getCfgKeys({"DEVICE_DATA", "AK1080"}, false), IsEmpty());
  EXPECT_THAT(parts.getCfgKeys({"DEVICE_DATA", "HB240_LFRC1156_2E"}, false), IsEmpty());
  EXPECT_THAT(parts.getCfgKeys({}, false), IsEmpty());
  EXPECT_EQ(parts.getDeviceToFamilyMap("HB240"), "");
  EXPECT_EQ(parts.getDeviceCoreVoltageMap("AK1080"), "");
  EXPECT_THAT(parts.getResourceData("AK1080", "OTHER"), IsEmpty());
  EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getMaxCurrent("AK1080"), 0);
  EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getMaxCurrent("AK2080_LRVE2197"), 0);
  EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getVoltageRange("AK1080", "VCCXYZ").max, 0.0f);
  EXPECT_EQ(KVXMMorlanPowerLabelData::getGlobal().getPowerLabelInfo("NOPE"), "");
}

TEST(CatalogueQueries, VoltagesFollowTheGrade) {
  const auto& parts = KVXMTarvekPartsData::getGlobal();
  const auto& statics = KVXMTarvekStaticData::getGlobal();
  const struct {
    const char* part;
    const char* core;
    float nominal;
    float processingSystem;
  } cases[] = {
      {"AK1080-VSVA1024_2-LP-E-S", "0.70 V", 0.70f, 0.70f},
      {"AK1080-VSVA1024_2-LLI-I-L", "0.70 V", 0.70f, 0.70f},
      {"AK1080-VSVA1024_2-LHP-E-S", "0.70 V", 0.70f, 0.88f},
      {"AK1080-VSVA1024_2-MP-E-S", "0.80 V", 0.80f, 0.80f},
      {"AK1080-VSVA1024_2-MHP-E-S", "0.80 V", 0.80f, 0.88f},
      {"AK1080-VSVA1024_3-HP-E-S", "0.88 V", 0.88f, 0.88f},
  };
  for (const auto& [part, core, nominal, processingSystem] : cases) {
    SCOPED_TRACE(part);
    EXPECT_EQ(parts.getDeviceCoreVoltageMap(part), core);
    EXPECT_EQ(statics.getVoltageRange(part, "VCCINT").nom, nominal);
    EXPECT_EQ(statics.getVoltageRange(part, "VCC_PSFP").nom, processingSystem);
  }
  EXPECT_EQ(statics.getMaxCurrent("AK1080_VSVA1024"), 72);
  EXPECT_EQ(KVXMMorlanPartsData::getGlobal().getDeviceCoreVoltageMap("HB240-LFRC1156_2LV-E"), "0.72 V");
}

TEST(CatalogueQueries, ParametersHaveDefaults) {
  const auto& data = KVXMCommonParamControlData::getGlobal();
  EXPECT_THAT(data.getCfgKeys({"PARAM_VARS_INT"}, true),
              IsSupersetOf({"DISABLE_SIGNAL_POWER", "DUMP_PROTO_JSON", "LOG_CLOCK_DETAILS"}));
  EXPECT_EQ(data.getParamVarsInt("DUMP_PROTO_JSON", "DEFAULT"), 0);
  EXPECT_EQ(data.getDeviceAlias("AK1080X"), "AK1080");
  EXPECT_EQ(data.getDeviceAlias("AK1080"), "AK1080");
}

TEST(Characterisation, IsFoundByDevicePartAndKeyAndElseIsTheDefault) {
  const Characterisation& device = characterisation("Tarvek", "AK1080");
  EXPECT_EQ(&characterisation("Tarvek", "AK1080-VSVA1024_2-MP-E-S"), &device);
  EXPECT_EQ(&characterisation("Tarvek", "AK1080_VSVA1024_2MPES"), &device);
  EXPECT_EQ(&characterisation("Arkeon", "no such device"), &characterisation("Tarvek", ""));
  EXPECT_EQ(&characterisation("Hexaline+", ""), &characterisation("Morlan", ""));
  EXPECT_NE(&characterisation("Morlan", ""), &characterisation("Tarvek", ""));
}
