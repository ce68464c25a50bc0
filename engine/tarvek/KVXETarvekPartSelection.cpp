#include "engine/tarvek/KVXETarvekPartSelection.h"

#include "engine/base/config/ConfigMgr.h"
#include "engine/base/selection/PartNameParser.h"
#include "models/tarvek/KVXMTarvekPartsData.h"

const std::string KVXETarvekPartSelection::m_voltageRangeStr = "VCCINT Voltage";
const std::string KVXETarvekPartSelection::m_tempGradeStr = "Temperature";
const std::string KVXETarvekPartSelection::m_staticScreenStr = "Static Power";

namespace {

using kvxe::CascadeSetting;
using kvxm::Part;
using Order = CascadeSetting::Order;
using KVXEEnums::TabType;
using Selection = KVXETarvekPartSelection;

constexpr kvxe::GradeText temperatureTexts[] = {{"I", "Industrial -40C->100C"},
                                                {"E", "Extended 0C->100C"},
                                                {"M", "Military -55C->125C"},
                                                {"B", "Military -55C->125C"},
                                                {"Q", "Automotive -40C->125C"}};
constexpr kvxe::GradeMark temperatureMarks[] = {
    {"Extended", "", "E"}, {"Military", "", "M"}, {"Automotive", "", "Q"}, {"", "", "I"}};
constexpr kvxe::GradeTable temperatures{temperatureTexts, temperatureMarks};

constexpr kvxe::GradeText voltageTexts[] = {{"LP", "Low - 0.70v"},
                                            {"LLI", "Low - 0.70v"},
                                            {"MP", "Mid - 0.80v"},
                                            {"MM", "Mid - 0.80v"},
                                            {"HP", "High - 0.88v"},
                                            {"LHP", "Low - 0.70v, PS at 0.88v"},
                                            {"MHP", "Mid - 0.80v, PS at 0.88v"}};
constexpr kvxe::GradeMark voltageMarks[] = {
    {"Low", "PS", "LHP"}, {"Low", "", "LP"}, {"Mid", "PS", "MHP"}, {"Mid", "", "MP"}, {"", "", "HP"}};
constexpr kvxe::GradeTable voltages{voltageTexts, voltageMarks};

constexpr kvxe::GradeText screenTexts[] = {{"L", "Low"}, {"S", "Standard"}};
constexpr kvxe::GradeMark screenMarks[] = {{"Low", "", "L"}, {"", "", "S"}};
constexpr kvxe::GradeTable screens{screenTexts, screenMarks};

constexpr CascadeSetting cascade[] = {
    {&Selection::m_familyStr, Order::Alphabetic},
    {&Selection::m_deviceGradeStr, Order::Catalogue, nullptr, &kvxe::deviceGrades},
    {&Selection::m_devStr, Order::Natural, &Part::device},
    {&Selection::m_pkgStr, Order::Natural, &Part::package},
    {&Selection::m_spdGradeStr, Order::Natural, &Part::speed},
    {&Selection::m_staticScreenStr, Order::Catalogue, &Part::screen, &screens},
    {&Selection::m_tempGradeStr, Order::Catalogue, &Part::temperature, &temperatures},
    {&Selection::m_voltageRangeStr, Order::Catalogue, &Part::voltage, &voltages},
};

constexpr TabType tabsOfEveryDevice[] = {
    TabType::SUMMARY_CONSOLE, TabType::SUMMARY, TabType::POWER_DESIGN, TabType::POWER_MANAGEMENT,
    TabType::ESTIMATION,      TabType::LOGIC,   TabType::CLOCK,        TabType::NOC_DDRMC};

constexpr std::string_view ignoredResources[] = {
    "LUT", "FF",    "LUTRAM", "SRL",  "HSIO", "LSIO",  "DAC",    "ADC",     "FSYN", "HSRAM",
    "HMC", "IOPLL", "Y7PLL",  "DPLL", "FSR",  "HBM2E", "DDRMC5", "DDRMC5C", "SLR",  "Y7IO"};

}  // namespace

const kvxe::ArchitectureDescription& KVXETarvekPartSelection::describe() const {
  static const kvxe::ArchitectureDescription description{
      .architecture = kvxm::Architecture::Tarvek,
      .parts = &KVXMTarvekPartsData::getGlobal(),
      .defaultPart = "AK1080-VSVA1024_2-MP-E-S",
      .cascade = cascade,
      .hasCoreVoltage = true,
      .tabs = tabsOfEveryDevice,
      .ignoredResources = ignoredResources,
  };
  return description;
}

bool KVXETarvekPartSelection::hasValidArchPrefix(const std::string& name) {
  return kvxe::sharesLeadingLetters(
      name, KVXMTarvekPartsData::getGlobal().getCfgKeys({"DEVICE_TO_FAMILY_MAP"}, false));
}

std::string KVXETarvekPartSelection::getStaticScreenFromStr(const std::string& text) const {
  return screens.codeOf(text);
}

std::vector<TabType> KVXETarvekPartSelection::getTabsToShow() const {
  std::vector<TabType> tabs = KVXEPartSelection::getTabsToShow();
  if (isArkeonNet()) {
    tabs.insert(tabs.end(), {TabType::PSW, TabType::Y7IO, TabType::NICB});
  } else {
    tabs.insert(tabs.end(), {TabType::PS, hasDdrmc5c() ? TabType::Y7IO : TabType::IO});
  }
  tabs.push_back(TabType::HARD_BLOCKS);
  return tabs;
}

void KVXETarvekPartSelection::resetConfiguration(KVXEBook* book) {
  using kvxe::ConfigMgr, kvxe::Tarvek;
  ConfigMgr::getGlobal<Tarvek>().reset<Tarvek>(book);
}
