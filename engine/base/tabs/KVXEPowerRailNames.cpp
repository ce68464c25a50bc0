// What is known of rails by their names.

#include "engine/base/tabs/KVXEPowerRailNames.h"

#include <algorithm>
#include <string_view>

const std::string KVXEPowerRailNames::m_pmcStr = "PMC";
const std::string KVXEPowerRailNames::m_lpdStr = "LPD";
const std::string KVXEPowerRailNames::m_fpdStr = "FPD";
const std::string KVXEPowerRailNames::m_systemAuxStr = "SYSTEM_AUX";
const std::string KVXEPowerRailNames::m_systemCoreStr = "SYSTEM_CORE";
const std::string KVXEPowerRailNames::m_plCoreStr = "PL_CORE";
const std::string KVXEPowerRailNames::m_ioStr = "IO";
const std::string KVXEPowerRailNames::m_xcvraStr = "XCVRA";
const std::string KVXEPowerRailNames::m_xcvrdStr = "XCVRD";
const std::string KVXEPowerRailNames::m_xcvrcStr = "XCVRC";
const std::string KVXEPowerRailNames::m_hbmStr = "HBM";
const std::string KVXEPowerRailNames::m_batStr = "BATT";
const std::string KVXEPowerRailNames::m_otherStr = "OTHER";

namespace {

using Names = KVXEPowerRailNames;

struct Category {
  const std::string* key;
  const char* detailed;  // empty: the key is shown
  const char* domain;
};

// In the order of the supply table.
constexpr Category categories[] = {
    {&Names::m_pmcStr, "Platform Management Controller(PMC)", "PMC"},
    {&Names::m_lpdStr, "Low Power Domain (LPD)", "LPD"},
    {&Names::m_fpdStr, "Full Power Domain (FPD)", "FPD"},
    {&Names::m_systemAuxStr, "System Auxiliary", "SYSTEM"},
    {&Names::m_systemCoreStr, "System Core", "SYSTEM"},
    {&Names::m_plCoreStr, "Programmable Logic Core", "PL"},
    {&Names::m_ioStr, "Programmable Logic IO", "IO"},
    {&Names::m_xcvraStr, "Programmable Logic XCVRA", "XCVRA"},
    {&Names::m_xcvrdStr, "Programmable Logic XCVRD", "XCVRD"},
    {&Names::m_xcvrcStr, "Programmable Logic XCVRC", "XCVRC"},
    {&Names::m_hbmStr, "Programmable Logic HBM", "HBM"},
    {&Names::m_batStr, "", "BATT"},
    {&Names::m_otherStr, "", "OTHER"},
};

struct DomainColor {
  const char* domain;
  KVXECell::Color background;
};
constexpr KVXECell::Color LogicBackground = 0xf9c499;
constexpr DomainColor domainColors[] = {
    {"PMC", 0xab9ac0},          {"SYSTEM", 0xd7e3bf},       {"LPD", 0xb7dde8},
    {"FPD", 0x64b7cc},          {"PL", LogicBackground},    {"IO", LogicBackground},
    {"XCVRA", LogicBackground}, {"XCVRB", LogicBackground}, {"XCVRC", LogicBackground},
    {"XCVRD", LogicBackground}, {"HBM", LogicBackground},   {"BATT", 0xfff2cc},
};
constexpr KVXECell::Color OtherBackground = 0xf5f5f5;

enum class RailClass {
  Vcu,
  XcvrA,
  XcvrB,
  XcvrC,
  XcvrD,
  PsIo,
  Ps,
  PsBlock,
  Psw,
  Hbm,
  Hic5,
  Hic5n,
  Nicb,
  Vcco,
  NetVcco
};

// A rail belongs to a class when its name begins with `prefix`, contains `part`, and does not begin with
// `but`.
struct RailClassRule {
  RailClass railClass;
  std::string_view prefix;
  std::string_view part = {};
  std::string_view but = {};
};
constexpr RailClassRule railClassRules[] = {
    {RailClass::Vcu, "", "VCU"},      {RailClass::XcvrA, "MXCVRA"},
    {RailClass::XcvrB, "MXCVRB"},     {RailClass::XcvrC, "MXCVRC"},
    {RailClass::XcvrD, "MXCVRD"},     {RailClass::PsIo, "VCCO50"},
    {RailClass::PsIo, "VCCOPSIO"},    {RailClass::Ps, "VCCPMC"},
    {RailClass::Ps, "VCCPS"},         {RailClass::Ps, "VCCAUXPMC"},
    {RailClass::Ps, "VCCO50"},        {RailClass::Ps, "VCCOPS"},
    {RailClass::Ps, "VTTPS"},         {RailClass::Ps, "VPS"},
    {RailClass::PsBlock, "VCCPMC"},   {RailClass::PsBlock, "VCCPSLP"},
    {RailClass::PsBlock, "VCCPSFP"},  {RailClass::PsBlock, "VCCPSW"},
    {RailClass::PsBlock, "VCCPSINT"}, {RailClass::Psw, "VCCPSW"},
    {RailClass::Psw, "VCCPSGTA"},     {RailClass::Psw, "VTTPSGTA"},
    {RailClass::Hbm, "", "HBM"},      {RailClass::Hic5, "VCCHIC5", "", "VCCHIC5N"},
    {RailClass::Hic5n, "VCCHIC5N"},   {RailClass::Nicb, "VCCNICB"},
    {RailClass::Vcco, "VCCO1"},       {RailClass::Vcco, "VCCO2"},
    {RailClass::Vcco, "VCCO3"},       {RailClass::NetVcco, "VCCO1", "", "VCCO18"},
};

bool isOf(RailClass railClass, std::string_view rail) {
  return std::any_of(std::begin(railClassRules), std::end(railClassRules), [&](const RailClassRule& rule) {
    return rule.railClass == railClass && rail.starts_with(rule.prefix) &&
           rail.find(rule.part) != rail.npos && (rule.but.empty() || !rail.starts_with(rule.but));
  });
}

const Category* findCategory(std::string_view text) {
  const auto found =
      std::find_if(std::begin(categories), std::end(categories), [&](const Category& category) {
        return text == *category.key || (*category.detailed && text == category.detailed);
      });
  return found == std::end(categories) ? nullptr : found;
}

}  // namespace

bool KVXEPowerRailNames::isVcuVoltage(const std::string& rail) {
  return isOf(RailClass::Vcu, rail);
}
bool KVXEPowerRailNames::isXcvrAVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrA, rail);
}
bool KVXEPowerRailNames::isXcvrDVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrD, rail);
}
bool KVXEPowerRailNames::isXcvrCVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrC, rail);
}
bool KVXEPowerRailNames::isXcvrBVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrB, rail);
}
bool KVXEPowerRailNames::isPSIoVoltage(const std::string& rail) {
  return isOf(RailClass::PsIo, rail);
}
bool KVXEPowerRailNames::isHbmVoltage(const std::string& rail) {
  return isOf(RailClass::Hbm, rail);
}
bool KVXEPowerRailNames::isPsVoltage(const std::string& rail) {
  return isOf(RailClass::Ps, rail);
}
bool KVXEPowerRailNames::isPsBlockVoltage(const std::string& rail) {
  return isOf(RailClass::PsBlock, rail);
}
bool KVXEPowerRailNames::isHic5Voltage(const std::string& rail) {
  return isOf(RailClass::Hic5, rail);
}
bool KVXEPowerRailNames::isPswVoltage(const std::string& rail) {
  return isOf(RailClass::Psw, rail);
}
bool KVXEPowerRailNames::isNicbVoltage(const std::string& rail) {
  return isOf(RailClass::Nicb, rail);
}
bool KVXEPowerRailNames::isHic5nVoltage(const std::string& rail) {
  return isOf(RailClass::Hic5n, rail);
}
bool KVXEPowerRailNames::isIoVccoVoltage(const std::string& rail) {
  return isOf(RailClass::Vcco, rail);
}
bool KVXEPowerRailNames::isArkeonNetVcco(const std::string& rail) {
  return isOf(RailClass::NetVcco, rail);
}

std::vector<std::string> KVXEPowerRailNames::getCategoryList() {
  std::vector<std::string> keys;
  for (const Category& category : categories) keys.push_back(*category.key);
  return keys;
}

bool KVXEPowerRailNames::isCategoryStr(const std::string& supply) {
  return findCategory(supply) != nullptr;
}

std::string KVXEPowerRailNames::getCategoryStr(const std::string& detailed) {
  const Category* category = findCategory(detailed);
  return category ? *category->key : std::string();
}

std::string KVXEPowerRailNames::getCategoryDetailedStr(const std::string& key) {
  const Category* category = findCategory(key);
  return category ? category->detailed : std::string();
}

std::string KVXEPowerRailNames::domainOfCategory(const std::string& key) {
  const Category* category = findCategory(key);
  return category ? category->domain : std::string();
}

KVXECell::Colors KVXEPowerRailNames::getPowerDomainColorCode(const std::string& domain) {
  for (const DomainColor& color : domainColors)
    if (domain == color.domain) return {KVXECell::Black, color.background};
  return {KVXECell::Black, OtherBackground};
}
