// Model data of the user: what is taken over, and what is reported.

#include <sys/stat.h>

#include <sstream>

#include "models/catalogue/Characterisation.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/morlan/KVXMMorlanSomPartsData.h"
#include "models/tarvek/KVXMTarvekPartsData.h"
#include "models/tarvek/KVXMTarvekStaticData.h"
#include "tests/models/CatalogueKit.h"

using namespace kvxm;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const CoefficientInfo& firstCoefficient() {
  return coefficientInfos()[0];
}

std::string readText(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

const std::string deviceHeader = "device,family,excursion,max_process_leakage,theta_ja\n";
const std::string partHeader = "device,package,speed,voltage,temperature,screen,status\n";
const std::string supplyHeader =
    "rail,display,category,requires,grades,devices,min_v,nom_v,max_v,beta,exponent\n";

struct Mistake {
  const char* label;
  std::string file;
  std::string text;
  std::string reported;  ///< after the directory, up to the end of the line
};

std::vector<Mistake> mistakes() {
  const std::string key(firstCoefficient().key);
  return {
      {"missing column", "tarvek/devices.csv", "device,family,excursion,theta_ja\nAK1240,Arkeon Core,no,1\n",
       "tarvek/devices.csv:1: max_process_leakage: missing column; expected it in the header"},
      {"unknown column", "tarvek/packages.csv", "device,package,max_vccint_a,colour\nAK1080,VSVA1024,1,red\n",
       "tarvek/packages.csv:1: colour: unknown column; expected one of device, package, max_vccint_a"},
      {"column twice", "tarvek/resources.csv", "resource,AK1080,AK1080\nLUT,1,2\n",
       "tarvek/resources.csv:1: AK1080: duplicate column; expected each column once"},
      {"too few cells", "tarvek/devices.csv", deviceHeader + "# note\nAK1240,Arkeon Core,no\n",
       "tarvek/devices.csv:3: AK1240: 3 cells; expected 5 as in the header"},
      {"device name", "tarvek/devices.csv", deviceHeader + "ak12,Arkeon Core,no,2,1\n",
       "tarvek/devices.csv:2: device: \"ak12\"; expected capital letters and four digits, as AK1080"},
      {"device twice", "tarvek/devices.csv",
       deviceHeader + "AK1080,Arkeon Core,no,2,1\nAK1080,Arkeon Core,no,2,1\n",
       "tarvek/devices.csv:3: device: duplicate \"AK1080\"; expected it once"},
      {"device of another architecture", "morlan/devices.csv",
       deviceHeader + "AK1080,Belrin Hexaline+,no,2,1\n",
       "morlan/devices.csv:2: device: \"AK1080\" exists in another architecture; expected a new name"},
      {"misspelled family", "tarvek/devices.csv", deviceHeader + "AK1080,Arkeon Cor,no,2,1\n",
       "tarvek/devices.csv:2: family: \"Arkeon Cor\"; did you mean \"Arkeon Core\"?"},
      {"number with a comma sign", "tarvek/devices.csv", deviceHeader + "AK1080,Arkeon Core,no,2;1,1\n",
       "tarvek/devices.csv:2: max_process_leakage: \"2;1\"; expected a number from 1 to 10"},
      {"not finite", "tarvek/devices.csv", deviceHeader + "AK1080,Arkeon Core,no,2,inf\n",
       "tarvek/devices.csv:2: theta_ja: \"inf\"; expected a number from 0.01 to 100"},
      {"unknown resource", "tarvek/resources.csv", "resource,AK1080\nLUTS,1\n",
       "tarvek/resources.csv:2: resource: \"LUTS\"; did you mean \"LUT\"?"},
      {"negative count", "tarvek/resources.csv", "resource,AK1080\nLUT,-1\n",
       "tarvek/resources.csv:2: AK1080: \"-1\"; expected a whole number of at least 0"},
      {"count too large", "tarvek/resources.csv", "resource,AK1080\nLUT,99999999999\n",
       "tarvek/resources.csv:2: AK1080: \"99999999999\"; expected a whole number of at least 0"},
      {"unknown device", "tarvek/leakage.csv", "rail,AK1081\nVCCINT,1\n",
       "tarvek/leakage.csv:1: AK1081: unknown device; did you mean \"AK1080\"?"},
      {"leakage not a number", "tarvek/leakage.csv", "rail,AK1080\nVCCINT,1 W\n",
       "tarvek/leakage.csv:2: AK1080: \"1 W\"; expected watts from 0 to 1000"},
      {"limits out of order", "tarvek/supplies.csv",
       supplyHeader + "VCCINT,VCCINT,PL_CORE,,MP,,0.9,0.8,0.95,0.02,3\n",
       "tarvek/supplies.csv:2: nom_v: limits out of order; expected min_v <= nom_v <= max_v"},
      {"unknown category", "tarvek/supplies.csv", supplyHeader + "VCCQ,VCCQ,CORE,,,,0.7,0.8,0.9,0.02,3\n",
       "tarvek/supplies.csv:2: category: \"CORE\"; expected one of PMC, LPD, FPD, SYSTEM_AUX, SYSTEM_CORE, "
       "PL_CORE, IO, XCVRA, XCVRD, XCVRC, HBM, BATT, OTHER"},
      {"grade twice", "tarvek/supplies.csv",
       supplyHeader + "VCCQ,VCCQ,IO,,MP LP,,0.7,0.8,0.9,0.02,3\nVCCQ,VCCQ,IO,,HP LP,,0.7,0.8,0.9,0.02,3\n",
       "tarvek/supplies.csv:3: rail: duplicate \"VCCQ LP *\"; expected it once"},
      {"unknown voltage grade", "tarvek/parts.csv", partHeader + "AK1080,VSVA1024,2,LQ,E,S,PREVIEW\n",
       "tarvek/parts.csv:2: voltage: \"LQ\"; did you mean \"LP\"?"},
      {"package name", "tarvek/parts.csv", partHeader + "AK1080,VSV1024,2,MP,E,S,PREVIEW\n",
       "tarvek/parts.csv:2: package: \"VSV1024\"; expected four capital letters and three or four digits"},
      {"unknown default part", "tarvek/families.csv", "family,internal,default_part\nArkeon Core,x,AK1080\n",
       "tarvek/families.csv:2: Arkeon Core: unknown default part \"AK1080\"; expected the printed name of a "
       "part "
       "of the family, as AK1080-VSVA1024_2-MP-E-S"},
      {"device without parts", "tarvek/devices.csv", deviceHeader + "AK1240,Arkeon Core,no,2,1\n",
       "tarvek/devices.csv:2: AK1240: no parts; expected rows in parts.csv"},
      {"unknown base part", "som/modules.csv",
       "module,family,board,device,grade,temperature,talmor_device,base_part,status,default\n"
       "SM6_X_I,Ludra,X,SM6,Industrial,I,SM6-X-I,HS441-SMRB900_2-E,PREVIEW,no\n",
       "som/modules.csv:2: SM6_X_I: unknown base part \"HS441-SMRB900_2-E\"; expected a part of "
       "morlan/parts.csv"},
      {"wrong default", "common/parameters.csv", "name,type,default,meaning\nX,int,yes,test\n",
       "common/parameters.csv:2: default: \"yes\"; expected a value of the type int"},
      {"alias of nothing", "common/aliases.csv", "alias,device\nA,B\n",
       "common/aliases.csv:2: device: unknown device \"B\"; expected a device of devices.csv"},
      {"header only", "tarvek/parts.csv", partHeader,
       "tarvek/parts.csv:1: no rows; expected at least one below the header"},
      {"blank file", "tarvek/parts.csv", " \n\n",
       "tarvek/parts.csv: empty; expected data; remove the file if it has none"},
      {"empty file", "tarvek/parts.csv", "",
       "tarvek/parts.csv: empty; expected data; remove the file if it has none"},
      {"binary file", "tarvek/parts.csv",
       std::string("\x7f"
                   "ELF\0\1",
                   6),
       "tarvek/parts.csv: not a text file; expected UTF-8 text"},
      {"cut letter", "tarvek/parts.csv", "device \xC3",
       "tarvek/parts.csv: not a text file; expected UTF-8 text"},
      {"unknown coefficient", "tarvek/coefficients.toml", "\n" + key + "x = 1.0\n",
       "tarvek/coefficients.toml:2: " + key + "x: unknown key; did you mean \"" + key + "\"?"},
      {"coefficient of a wrong type", "tarvek/coefficients.toml", key + " = \"1.0\"\n",
       "tarvek/coefficients.toml:1: " + key + ": not a number; expected a number, believable from "},
      {"coefficient not finite", "tarvek/coefficients.toml", key + " = nan\n",
       "tarvek/coefficients.toml:1: " + key + ": not a finite number; expected a number, believable from "},
      {"coefficient of an unknown family", "tarvek/coefficients.toml", "[family.\"Arkeon Nut\"]\n",
       "tarvek/coefficients.toml:1: family.Arkeon Nut: unknown family; did you mean \"Arkeon Net\"?"},
      {"no section", "tarvek/coefficients.toml", "device = 3\n",
       "tarvek/coefficients.toml:1: device: not a section; expected [device.NAME]"},
      {"endless key", "tarvek/coefficients.toml", std::string(100000, '.') + "a = 1\n",
       "tarvek/coefficients.toml:1: the line has too many dots"},
      {"nameless section", "tarvek/coefficients.toml", "[\ndevice.AK1080]\n",
       "tarvek/coefficients.toml:1: section without a name; expected lines \"key = number\""},
      {"no TOML", "morlan/coefficients.toml", "a = 1\nb = = 2\n", "morlan/coefficients.toml:2: "},
      {"misplaced file", "parts.csv", partHeader,
       "parts.csv: not the name of a data file; expected one of tarvek/"},
  };
}

}  // namespace

TEST(ModelDataMistakes, AreReportedWithFileLineKeyAndExpectedForm) {
  const std::string builtIn = KVXMTarvekPartsData::getGlobal().getDeviceToFamilyMap("AK1080");
  for (const Mistake& mistake : mistakes()) {
    SCOPED_TRACE(mistake.label);
    ModelDataDirectory directory;
    directory.write(mistake.file, mistake.text);
    directory.load();
    EXPECT_THAT(modelDataErrors(), Contains(testing::StartsWith(directory.path(mistake.reported))));
    EXPECT_EQ(KVXMTarvekPartsData::getGlobal().getDeviceToFamilyMap("AK1080"), builtIn);
  }
}

TEST(ModelDataMistakes, AreAllReportedAndLeaveTheBuiltInDataWhole) {
  ModelDataDirectory directory;
  directory.write("tarvek/resources.csv", "resource,AK1080\nLUT,7\nFF,many\nBRAMS,3\n");
  directory.write("tarvek/packages.csv", "device,package,max_vccint_a\nAK1080,VSVA1024,-4\n");
  directory.load();
  EXPECT_THAT(modelDataErrors(), ElementsAre(HasSubstr("resources.csv:3: AK1080: \"many\""),
                                             HasSubstr("resources.csv:4: resource: \"BRAMS\""),
                                             HasSubstr("packages.csv:2: max_vccint_a: \"-4\"")));
  EXPECT_EQ(DeviceCatalogue::getGlobal().findDevice("AK1080")->resource("LUT"), 540000);
}

TEST(ModelDataMistakes, OfTheDirectoryItself) {
  ModelDataDirectory directory;
  directory.load();
  EXPECT_THAT(modelDataErrors(), ElementsAre(HasSubstr("KVX_MODEL_DATA: no data file in it")));
  ModelDataDirectory::use(directory.path("missing"));
  EXPECT_THAT(modelDataErrors(), ElementsAre(HasSubstr("missing: KVX_MODEL_DATA: no such directory")));
  directory.write("file", "x");
  ModelDataDirectory::use(directory.path("file"));
  EXPECT_THAT(modelDataErrors(), ElementsAre(HasSubstr("file: KVX_MODEL_DATA: not a directory")));
}

TEST(ModelDataMistakes, OfFilesThatAreNoneOrTooLarge) {
  ModelDataDirectory directory;
  directory.write("tarvek/parts.csv", "x");
  std::filesystem::resize_file(directory.path("tarvek/parts.csv"), (16u << 20) + 1);
  ASSERT_EQ(mkfifo(directory.path("tarvek/devices.csv").c_str(), 0600), 0);
  std::filesystem::create_directory(directory.path("tarvek/leakage.csv"));
  directory.load();
  EXPECT_THAT(modelDataErrors(), ElementsAre(HasSubstr("devices.csv: not a regular file"),
                                             HasSubstr("leakage.csv: not a regular file"),
                                             HasSubstr("parts.csv: larger than 16 MB")));
}

TEST(ModelDataOverride, TheDocumentedExampleLoads) {
  const std::string example = KVX_SOURCE_DIR "/examples/model-data";
  ModelDataDirectory restoreAtEnd;
  ModelDataDirectory::use(example);
  ASSERT_THAT(modelDataErrors(), IsEmpty());
  EXPECT_THAT(modelDataWarnings(), IsEmpty());

  const Device* device = DeviceCatalogue::getGlobal().findDevice("AK1240-VSVC1596_2-LP-I-S");
  ASSERT_NE(device, nullptr);
  EXPECT_EQ(device->family, "Arkeon Core");
  EXPECT_EQ(device->resource("LUT"), 810000);
  EXPECT_EQ(device->parts.size(), 9u);
  EXPECT_FLOAT_EQ(device->supply("VCCINT")->leakageWatts, 1.70f);
  EXPECT_FLOAT_EQ(device->supply("VCCINT")->referenceVolts(), 0.80f);
  const auto& parts = KVXMTarvekPartsData::getGlobal();
  EXPECT_EQ(parts.getDeviceCoreVoltageMap("AK1240-VSVC1596_2-LP-I-S"), "0.72 V");
  EXPECT_EQ(parts.getDeviceCoreVoltageMap("AK1240-VSVC1596_2-MP-I-S"), "0.80 V");
  EXPECT_EQ(parts.getDeviceCoreVoltageMap("AK1080-VSVA1024_2-LP-I-S"), "0.70 V");
  EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getMaxCurrent("AK1240_VSVC1596"), 102);

  int corrected = 0;
  for (std::size_t i = 0; i < coefficientCount; ++i) {
    const auto coefficient = static_cast<Coefficient>(i);
    if (characterisation("Tarvek", "AK1240")[coefficient] !=
        characterisation("Tarvek", "AK1080")[coefficient]) {
      ++corrected;
    }
  }
  EXPECT_EQ(corrected, 1);

  const std::string document = readText(KVX_SOURCE_DIR "/docs/model-data.md");
  for (const auto& file : std::filesystem::directory_iterator(example + "/tarvek")) {
    EXPECT_THAT(document, HasSubstr(readText(file.path().string()))) << "the document shows another " << file;
  }
}

TEST(ModelDataOverride, ChangesOnlyWhatIsNamed) {
  ModelDataDirectory directory;
  directory.write("tarvek/resources.csv", "\xEF\xBB\xBFresource,AK1080\r\nLUT,7\r\nXCVRC,0\r\nHIC,\r\n");
  directory.write("tarvek/leakage.csv", "rail,AK1080\nVCCINT,9.5\n");
  directory.write("tarvek/parts.csv", partHeader + "AK1080,VSVA1024,2,MP,E,S,ADVANCE\n");
  directory.write("tarvek/supplies.csv", supplyHeader +
                                             "VCCAUX,VCCAUX,SYSTEM_AUX,,,AK1080,1.7,1.8,1.9,0.02,2\n"
                                             "VCCNEW,VCC_NEW,PMC,DSP,,,1,1.1,1.2,0.02,2\n");
  directory.load();
  ASSERT_THAT(modelDataErrors(), IsEmpty());
  const Device& device = *DeviceCatalogue::getGlobal().findDevice("AK1080");
  EXPECT_EQ(device.resource("LUT"), 7);
  EXPECT_EQ(device.resource("DSP"), 1900);
  EXPECT_EQ(device.resource("HIC"), 1);
  EXPECT_EQ(device.resources.front().first, "LUT");
  EXPECT_EQ(device.supply("MXCVRCAVCC"), nullptr) << "the rail goes with its block";
  EXPECT_FLOAT_EQ(device.supply("VCCINT")->leakageWatts, 9.5f);
  EXPECT_FLOAT_EQ(device.supply("VCCAUX")->referenceVolts(), 1.8f);
  EXPECT_FLOAT_EQ(device.supply("VCCAUX")->beta, 0.02f);
  EXPECT_LT(device.supply("VCCNEW"), device.supply("VCCINT")) << "rails stand in the order of their groups";
  EXPECT_EQ(device.parts.size(), 35u);
  EXPECT_EQ(KVXMTarvekStaticData::getGlobal().getPartStatus("AK1080_VSVA1024_2MPES", "STATUS"), "ADVANCE");
  EXPECT_FLOAT_EQ(DeviceCatalogue::getGlobal().findDevice("AK1160")->supply("VCCAUX")->referenceVolts(),
                  1.5f);
}

TEST(ModelDataOverride, TheMostSpecialCoefficientCounts) {
  const std::string key(firstCoefficient().key);
  const float band = firstCoefficient().bandMax;
  const auto first = static_cast<Coefficient>(0);
  const auto value = [](float number) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << number;
    return text.str();
  };
  ModelDataDirectory directory;
  directory.write("tarvek/coefficients.toml", key + " = " + value(band) + "\n[family.\"Arkeon Net\"]\n" +
                                                  key + " = " + value(band / 2) + "\n[device.AN3120]\n" +
                                                  key + " = " + value(band * 20) + "\n");
  directory.load();
  ASSERT_THAT(modelDataErrors(), IsEmpty());
  EXPECT_FLOAT_EQ(characterisation("Tarvek", "unknown")[first], band);
  EXPECT_FLOAT_EQ(characterisation("Tarvek", "AN3060")[first], band / 2);
  EXPECT_FLOAT_EQ(characterisation("Tarvek", "AN3120_KTVG2785_3HPES")[first], band * 20);
  EXPECT_THAT(modelDataWarnings(), ElementsAre(HasSubstr("coefficients.toml:5: " + key + ": ")));
}

TEST(ModelDataOverride, AddsAModuleAsTheDefault) {
  ModelDataDirectory directory;
  directory.write("som/modules.csv",
                  "module,family,board,device,grade,temperature,talmor_device,base_part,status,default\n"
                  "SM6_LAB_I,Ludra,Lab,SM6,Industrial,I,SM6-LAB_2-I,HS440-SMRB900_2-I,PREVIEW,yes\n");
  directory.load();
  ASSERT_THAT(modelDataErrors(), IsEmpty());
  EXPECT_EQ(KVXMMorlanSomPartsData::getGlobal().getDeviceData("SM6-LAB_2-I", "BOARD_NAME"), "Lab");
  EXPECT_EQ(KVXMMorlanSomPartsData::getGlobal().getDeviceDefaults("Ludra"), "SM6_LAB_I");
}
