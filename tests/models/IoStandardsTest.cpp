// IO standards of the user: what is taken over, and what is reported.

#include "models/catalogue/IoStandards.h"

#include "models/catalogue/DeviceCatalogue.h"
#include "tests/models/CatalogueKit.h"

using namespace kvxm;
using namespace ::testing;

namespace {

const std::string header =
    "type,standard,rail,signalling,differential,driver_ohms,swing,receiver_ma,driver_ma,"
    "input_terminations,output_terminations\n";

TEST(IoStandardData, OfTheUserReplacesByNameAndElseIsAdded) {
  const std::size_t before = ioStandards(IoBank::TarvekHsio).names.size();
  const double resistance = findIoStandard(IoBank::TarvekHsio, "SSTL 1.2V")->driverOhms;
  {
    ModelDataDirectory directory;
    directory.write("tarvek/io_standards.csv",
                    header +
                        "HSIO,SSTL 1.2V,VCCO12,half,no,44,0.8,0.4,0,RTT_80,\n"
                        "HSIO,LVSTL 1.0V,VCCO10,half,no,40,0.4,0.4,0,,FP_VTT_50\n");
    directory.load();
    ASSERT_THAT(modelDataErrors(), IsEmpty());
    const IoStandard* replaced = findIoStandard(IoBank::TarvekHsio, "SSTL 1.2V");
    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced->driverOhms, 44.0);
    EXPECT_THAT(replaced->inputTerminations, ElementsAre("None", "RTT_80"));
    EXPECT_THAT(replaced->outputTerminations, ElementsAre("None"));
    EXPECT_EQ(terminationOhms("RTT_80"), 80.0);
    EXPECT_EQ(offeredOhms(replaced->inputTerminations, "RTT_40"), 0.0) << "no longer offered";
    EXPECT_EQ(ioStandards(IoBank::TarvekHsio).names.size(), before + 1);
    EXPECT_EQ(ioStandards(IoBank::TarvekHsio).names.back(), "LVSTL 1.0V");
    EXPECT_FALSE(findIoStandard(IoBank::MorlanMsio, "LVSTL 1.0V"));
  }
  EXPECT_EQ(ioStandards(IoBank::TarvekHsio).names.size(), before);
  EXPECT_EQ(findIoStandard(IoBank::TarvekHsio, "SSTL 1.2V")->driverOhms, resistance);
}

TEST(IoStandardData, MistakesAreReportedWithTheirPlace) {
  const struct {
    const char* label;
    std::string row, reported;  ///< after file and line
  } cases[] = {
      {"type of the other architecture", "MSIO,A,VCCO12,rail,no,40,1,0,0,,",
       "type: \"MSIO\"; did you mean \"HSIO\"?"},
      {"no name", "HSIO,,VCCO12,rail,no,40,1,0,0,,", "standard: blank; "},
      {"rail", "HSIO,A,VCCO21,rail,no,40,1,0,0,,", "rail: \"VCCO21\"; did you mean "},
      {"rail that feeds no bank", "LSIO,A,VCCAUX,rail,no,40,1,0,0,,",
       "rail: \"VCCAUX\" is no IO supply of AK1020"},
      {"signalling", "HSIO,A,VCCO12,midway,no,40,1,0,0,,", "signalling: \"midway\"; "},
      {"more than the supply", "HSIO,A,VCCO12,rail,no,40,1.2,0,0,,",
       "swing: \"1.2\"; expected a number from 0.01 to 1"},
      {"no resistance", "HSIO,A,VCCO12,half,no,0,1,0,0,,", "driver_ohms: \"0\"; "},
      {"current without one", "HSIO,A,VCCO15,current,yes,50,0.2,0,0,,",
       "driver_ma: 0; expected a current with the signalling \"current\", else 0"},
      {"current through one pin", "HSIO,A,VCCO15,current,no,50,0.2,0,3,,",
       "differential: no; expected yes with the signalling \"current\""},
      {"termination to nowhere", "HSIO,A,VCCO12,rail,no,40,1,0,0,RTT_40,",
       "input_terminations: RTT_40; expected none with the signalling \"rail\""},
      {"termination without ohms", "HSIO,A,VCCO12,half,no,40,1,0,0,RTT,",
       "input_terminations: \"RTT\"; expected a name that ends in _ and 10 to 10000 ohms, as RTT_40"},
      {"twice", "HSIO,A,VCCO12,half,no,40,1,0,0,,\nHSIO,A,VCCO12,half,no,40,1,0,0,,",
       "standard: duplicate \"A\"; expected it once"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    ModelDataDirectory directory;
    directory.write("tarvek/io_standards.csv", header + c.row + "\n");
    directory.load();
    const std::string line = c.label == std::string("twice") ? ":3: " : ":2: ";
    EXPECT_THAT(modelDataErrors(),
                Contains(StartsWith(directory.path("tarvek/io_standards.csv") + line + c.reported)));
    EXPECT_FALSE(findIoStandard(IoBank::TarvekHsio, "A")) << "wrong data leave the built-in ones whole";
  }
}

TEST(IoStandardData, BuiltInStandardsHaveASupplyOfTheirVoltage) {
  const struct {
    IoBank bank;
    const char* device;
  } banks[] = {{IoBank::TarvekHsio, "AK1080"},
               {IoBank::TarvekLsio, "AK1080"},
               {IoBank::MorlanMsio, "HB240"},
               {IoBank::MorlanLsio, "HB240"}};
  for (const auto& [bank, device] : banks) {
    EXPECT_GE(ioStandards(bank).names.size(), 5u);
    for (const IoStandard& standard : ioStandards(bank).standards) {
      const Supply* supply = DeviceCatalogue::getGlobal().findDevice(device)->supply(standard.rail);
      ASSERT_TRUE(supply) << standard.name;
      std::string volts = supply->displayName.substr(supply->displayName.find(' ') + 1);  // "VCCO 1.8V"
      EXPECT_THAT(standard.name, HasSubstr(" " + volts)) << standard.rail;
    }
  }
}

}  // namespace
