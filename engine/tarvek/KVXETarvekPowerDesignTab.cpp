#include "engine/tarvek/KVXETarvekPowerDesignTab.h"

#include <cmath>
#include <limits>

#include "engine/base/tabs/KVXESummaryTab.h"
#include "engine/base/workbook/KVXEBook.h"
#include "engine/tarvek/KVXETarvekPartSelection.h"
#include "models/tarvek/KVXMTarvekStatic.h"
#include "models/tarvek/KVXMTarvekStaticData.h"

namespace {

using StringEnum = KVXMTarvekStaticParams::StringEnum;

constexpr float ColdVccint = 0.725f;   // volts that a low voltage part needs when it is cold
constexpr float ColdJunction = 25.0f;  // degrees C
constexpr float VoltageTolerance = std::numeric_limits<float>::epsilon();

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

/// A low voltage part that is cold needs a higher VCCINT. Its temperature is read for such a part alone.
void KVXETarvekPowerDesignTab::checkVoltage(const KVXEUID& uid, const std::string& rail, float volts) const {
  if (rail != "VCCINT" || std::abs(volts - ColdVccint) <= VoltageTolerance || !isLvdsSku(uid)) return;
  const auto junction = environmentValue(uid, KVXESummaryTab::m_junctionTempStr);
  if (junction && *junction <= ColdJunction) uid.getCell()->setMsg(KvxSeverity::ERROR, coldVoltageMsg);
}
