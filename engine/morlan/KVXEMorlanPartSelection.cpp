#include "engine/morlan/KVXEMorlanPartSelection.h"

#include "engine/base/config/ConfigMgr.h"
#include "engine/base/selection/PartNameParser.h"
#include "models/morlan/KVXMMorlanPartsData.h"

namespace {

using kvxe::CascadeSetting;
using kvxm::Part;
using Order = CascadeSetting::Order;
using KVXEEnums::TabType;
using Selection = KVXEMorlanPartSelection;

constexpr kvxe::GradeText temperatureTexts[] = {{"I", "Industrial -40C->100C"},
                                                {"E", "Extended 0C->100C"},
                                                {"C", "Commercial 0C->85C"},
                                                {"M", "Military -55C->125C"},
                                                {"Q", "Q-Grade -40C->125C"}};
constexpr kvxe::GradeMark temperatureMarks[] = {{"Extended", "", "E"},   {"Commercial", "", "C"},
                                                {"Military", "", "M"},   {"Q-Grade", "", "Q"},
                                                {"Automotive", "", "Q"}, {"", "", "I"}};

constexpr TabType tabsOfEveryDevice[] = {
    TabType::SUMMARY_CONSOLE, TabType::SUMMARY, TabType::POWER_DESIGN, TabType::ESTIMATION, TabType::DSP,
    TabType::CLOCK,           TabType::BRAM,    TabType::LOGIC,        TabType::IO,         TabType::OTHER};

constexpr std::string_view ignoredResources[] = {"CLKCOLS", "CLKROWS", "FF",   "LSIO",  "MSIO",    "FEC",
                                                 "LUT",     "LUTRAM",  "FSYN", "ADC",   "DAC",     "EAMAC",
                                                 "ILMAC",   "VCU",     "PCIE", "PCIEC", "NUM_DIES"};

}  // namespace

constinit const kvxe::GradeTable KVXEMorlanPartSelection::m_temperatures{temperatureTexts, temperatureMarks};

const kvxe::ArchitectureDescription& KVXEMorlanPartSelection::describe() const {
  static constexpr CascadeSetting cascade[] = {
      {&Selection::m_familyStr, Order::Alphabetic},
      {&Selection::m_deviceGradeStr, Order::Catalogue, nullptr, &kvxe::deviceGrades},
      {&Selection::m_devStr, Order::Natural, &Part::device},
      {&Selection::m_pkgStr, Order::Natural, &Part::package},
      {&Selection::m_spdGradeStr, Order::Natural, &Part::speed},
      {&Selection::m_tempGradeStr, Order::Catalogue, &Part::temperature, &m_temperatures},
  };
  static const kvxe::ArchitectureDescription description{
      .architecture = kvxm::Architecture::Morlan,
      .parts = &KVXMMorlanPartsData::getGlobal(),
      .defaultPart = "HB240-LFRC1156_2-E",
      .cascade = cascade,
      .tabs = tabsOfEveryDevice,
      .ignoredResources = ignoredResources,
  };
  return description;
}

bool KVXEMorlanPartSelection::hasValidArchPrefix(const std::string& name) {
  return kvxe::sharesLeadingLetters(
      name, KVXMMorlanPartsData::getGlobal().getCfgKeys({"DEVICE_TO_FAMILY_MAP"}, false));
}

void KVXEMorlanPartSelection::resetConfiguration(KVXEBook* book) {
  using kvxe::ConfigMgr, kvxe::Morlan;
  ConfigMgr::getGlobal<Morlan>().reset<Morlan>(book);
}
