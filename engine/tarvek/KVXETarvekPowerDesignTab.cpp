#include "engine/tarvek/KVXETarvekPowerDesignTab.h"

#include <cmath>
#include <limits>

#include "engine/base/tabs/KVXEPowerDesignFormulas.h"
#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/tarvek/KVXETarvekPartSelection.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/tarvek/KVXMTarvekPowerRailGrouping.h"
#include "models/tarvek/KVXMTarvekStatic.h"
#include "models/tarvek/KVXMTarvekStaticData.h"

using namespace kvxe::powerdesign;

namespace {

using StringEnum = KVXMTarvekStaticParams::StringEnum;

constexpr float ColdVccint = 0.725f;   // volts that a low voltage part needs when it is cold
constexpr float ColdJunction = 25.0f;  // degrees C
constexpr float VoltageTolerance = std::numeric_limits<float>::epsilon();

/// Volts between which a supply is pulled; a voltage on the bound lies inside.
struct PullRange {
  float low, high;
  bool contains(float volts) const {
    return volts >= low - VoltageTolerance && volts <= high + VoltageTolerance;
  }
};
constexpr PullRange lowAvcc{0.854f, 0.906f};
constexpr PullRange highAvcc{0.892f, 0.948f};

const char* const pulledDownMsg =
    "For device with XCVRA and XCVRC, the AVCC voltage is pulled down when XCVRA is used and XCVRC is "
    "unused.";
const char* const pulledUpMsg =
    "For device with XCVRA and XCVRC, the AVCC voltage is pulled up except when XCVRA is used and XCVRC is "
    "unused.";
const char* const coldVoltageMsg =
    "Junction Temperature is currently set or calculated to 25C or less, to correctly estimate Total power "
    "at this temperature in a -2L I Device with DVS (Dynamic Voltage Scaling) set the VCCINT voltage to "
    "0.725v, adjust the Nominal voltage to 0.725v in the Power Supply Design Table below";

}  // namespace

std::span<const KVXEPowerDesignTab::DeviceRow> KVXETarvekPowerDesignTab::deviceRows() const {
  using Selection = KVXETarvekPartSelection;
  static const DeviceRow rows[] = {
      {"Family", Selection::m_familyStr},
      {"Device Grade", Selection::m_deviceGradeStr},
      {"Device", Selection::m_devStr},
      {"Package", Selection::m_pkgStr},
      {"Speed", Selection::m_spdGradeStr},
      {"Static Power", Selection::m_staticScreenStr},
      {"Temperature", Selection::m_tempGradeStr},
      {"VCCINT Voltage", Selection::m_voltageRangeStr},
      {"Core Voltage", Selection::m_coreVoltageStr},
      {"Process", Selection::m_processStr},
  };
  return rows;
}

kvxm::Architecture KVXETarvekPowerDesignTab::architecture() const {
  return kvxm::Architecture::Tarvek;
}

const kvxm::StaticQueries& KVXETarvekPowerDesignTab::staticData() const {
  return KVXMTarvekStaticData::getGlobal();
}

std::unique_ptr<kvxm::Record> KVXETarvekPowerDesignTab::makeStaticParams() const {
  return std::make_unique<KVXMTarvekStaticParams>();
}

void KVXETarvekPowerDesignTab::calculateStatic(kvxm::Record& params) const {
  KVXMTarvekStaticModel::getGlobal().calculate(static_cast<KVXMTarvekStaticParams&>(params));
}

std::string KVXETarvekPowerDesignTab::supplyGrade(const KVXEUID& uid) const {
  return deviceSetting(uid, KVXETarvekPartSelection::m_voltageRangeStr);
}

void KVXETarvekPowerDesignTab::fillDeviceParams(const KVXEUID& uid, kvxm::Record& params) const {
  *params.findString(static_cast<int>(StringEnum::STATIC_SCREEN)) =
      deviceSetting(uid, KVXETarvekPartSelection::m_staticScreenStr);
}

void KVXETarvekPowerDesignTab::fillBlockParams(const KVXEUID& uid, kvxm::Record& params) const {
  KVXECell* usage = uid.getBook()->lookup<std::string>(
      KVXEEnums::TabType::SUMMARY, &KVXESummaryTab::m_rcxTableHeader, KVXESummaryTab::m_rcxUsageStr,
      &KVXESummaryTab::m_rcxTypeColumn, &KVXESummaryTab::m_rcxOptionColumn, false);
  if (usage) usage->getVal(*params.findString(static_cast<int>(StringEnum::RCX_USAGE)), true);
}

bool KVXETarvekPowerDesignTab::isLvdsSku(const KVXEUID& uid) {
  return deviceSetting(uid, KVXETarvekPartSelection::m_voltageRangeStr) == "LLI" && getTempGrade(uid) == "I";
}

std::string KVXETarvekPowerDesignTab::railGroup(const std::string& consolidation, const kvxm::Supply& supply,
                                                float nominalVolts) const {
  using Params = KVXMTarvekPowerRailGroupingParams;
  Params params;
  params[Params::StringEnum::CONSOLIDATION] = consolidation;
  params[Params::StringEnum::RAIL] = supply.rail;
  params[Params::StringEnum::CATEGORY] = supply.category;
  params[Params::FloatEnum::NOMINAL_VOLTAGE] = nominalVolts;
  KVXMTarvekPowerRailGroupingModel::getGlobal().calculate(params);
  return params[Params::StringEnum::GROUP];
}

void KVXETarvekPowerDesignTab::checkVoltage(const KVXEUID& uid, const std::string& rail, float volts) const {
  checkSupplyPull(uid, rail, volts);
  checkColdVoltage(uid, rail, volts);
}

/// On a device with both kinds of transceivers the AVCC rails are pulled up or down, depending on which kinds
/// are used; that is known as soon as both kinds have their tables.
void KVXETarvekPowerDesignTab::checkSupplyPull(const KVXEUID& uid, const std::string& rail, float volts) {
  const bool isOfA = rail == "MXCVRAAVCC";
  const bool isOfC = rail == "MXCVRCAVCC";
  if (!isOfA && !isOfC) return;
  if (getAvailXcvrs(uid, "XCVRA") < 1 || getAvailXcvrs(uid, "XCVRC") < 1) return;
  const auto usedA = countUsedXcvrs(uid, "XCVRA");
  const auto usedC = countUsedXcvrs(uid, "XCVRC");
  if (!usedA || !usedC) return;
  const bool isPulledDown = *usedA >= 1 && *usedC == 0;
  KVXECell* cell = uid.getCell();
  if (isPulledDown && isOfC && lowAvcc.contains(volts)) cell->setMsg(KvxSeverity::WARNING, pulledDownMsg);
  if (isPulledDown || !isOfA) return;
  if (highAvcc.contains(volts)) return cell->setMsg(KvxSeverity::WARNING, pulledUpMsg);
  cell->setMsg(KvxSeverity::ERROR, outOfRangeMsg);
  showRange(*cell, false);
}

/// A low voltage part that is cold needs a higher VCCINT. Its temperature is read for such a part alone.
void KVXETarvekPowerDesignTab::checkColdVoltage(const KVXEUID& uid, const std::string& rail, float volts) {
  if (rail != "VCCINT" || std::abs(volts - ColdVccint) <= VoltageTolerance || !isLvdsSku(uid)) return;
  const auto junction = environmentValue(uid, KVXESummaryTab::m_junctionTempStr);
  if (junction && *junction <= ColdJunction) uid.getCell()->setMsg(KvxSeverity::ERROR, coldVoltageMsg);
}
