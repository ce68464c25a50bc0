// The titles and texts of the power design, and what is known of rails by their names.

#include <algorithm>
#include <array>

#include "engine/base/tabs/KVXEPowerDesignTab.h"

using Title = const KVXETitle;

Title KVXEPowerDesignTab::m_powerSummaryTable("POWER_SUMMARY", "Power Summary");
Title KVXEPowerDesignTab::m_debugJunctionTempTable("DEBUG_JUNCTION_TEMP_TABLE", "Debug Junction Temp Table");
Title KVXEPowerDesignTab::m_debugTempOptionColumn("DEBUG_TEMP_OPTION", "Key");
Title KVXEPowerDesignTab::m_debugTempValueColumn("DEBUG_TEMP_VALUE", "value");

const std::string KVXEPowerDesignTab::m_totalPowerCol = "Total";
const std::string KVXEPowerDesignTab::m_staticPowerCol = "Static";
const std::string KVXEPowerDesignTab::m_dynamicPowerCol = "Dynamic";

const std::string KVXEPowerDesignTab::m_initialTempStr = "INITIAL_TEMP";
const std::string KVXEPowerDesignTab::m_tempAt25Str = "TEMP_AT_25";
const std::string KVXEPowerDesignTab::m_nonIntLeakageStr = "NON_INT_LEAKAGE";
const std::string KVXEPowerDesignTab::m_calcJunctionTempStr = "CALC_JUNCTION_TEMP";
const std::string KVXEPowerDesignTab::m_maxAmbientTempStr = "MAX_AMBIENT_TEMP";

const std::string KVXEPowerDesignTab::m_invalidJunctionMsg =
    "<html>Estimates are calculated up to the absolute maximum temperature after which point 125+ is shown "
    "in red and the power and thermal estimates are no longer valid.<html>";

const std::string KVXEPowerDesignTab::m_pmcStr = "PMC";
const std::string KVXEPowerDesignTab::m_lpdStr = "LPD";
const std::string KVXEPowerDesignTab::m_fpdStr = "FPD";
const std::string KVXEPowerDesignTab::m_systemAuxStr = "SYSTEM_AUX";
const std::string KVXEPowerDesignTab::m_systemCoreStr = "SYSTEM_CORE";
const std::string KVXEPowerDesignTab::m_plCoreStr = "PL_CORE";
const std::string KVXEPowerDesignTab::m_ioStr = "IO";
const std::string KVXEPowerDesignTab::m_xcvraStr = "XCVRA";
const std::string KVXEPowerDesignTab::m_xcvrdStr = "XCVRD";
const std::string KVXEPowerDesignTab::m_xcvrcStr = "XCVRC";
const std::string KVXEPowerDesignTab::m_hbmStr = "HBM";
const std::string KVXEPowerDesignTab::m_batStr = "BATT";
const std::string KVXEPowerDesignTab::m_otherStr = "OTHER";

namespace {

using Tab = KVXEPowerDesignTab;

struct Category {
  const std::string* key;
  const char* detailed;  // empty: the key is shown
  const char* domain;
};

// In the order of the supply table.
constexpr Category categories[] = {
    {&Tab::m_pmcStr, "Platform Management Controller(PMC)", "PMC"},
    {&Tab::m_lpdStr, "Low Power Domain (LPD)", "LPD"},
    {&Tab::m_fpdStr, "Full Power Domain (FPD)", "FPD"},
    {&Tab::m_systemAuxStr, "System Auxiliary", "SYSTEM"},
    {&Tab::m_systemCoreStr, "System Core", "SYSTEM"},
    {&Tab::m_plCoreStr, "Programmable Logic Core", "PL"},
    {&Tab::m_ioStr, "Programmable Logic IO", "IO"},
    {&Tab::m_xcvraStr, "Programmable Logic XCVRA", "XCVRA"},
    {&Tab::m_xcvrdStr, "Programmable Logic XCVRD", "XCVRD"},
    {&Tab::m_xcvrcStr, "Programmable Logic XCVRC", "XCVRC"},
    {&Tab::m_hbmStr, "Programmable Logic HBM", "HBM"},
    {&Tab::m_batStr, "", "BATT"},
    {&Tab::m_otherStr, "", "OTHER"},
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

bool KVXEPowerDesignTab::isVcuVoltage(const std::string& rail) {
  return isOf(RailClass::Vcu, rail);
}
bool KVXEPowerDesignTab::isXcvrAVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrA, rail);
}
bool KVXEPowerDesignTab::isXcvrDVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrD, rail);
}
bool KVXEPowerDesignTab::isXcvrCVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrC, rail);
}
bool KVXEPowerDesignTab::isXcvrBVoltage(const std::string& rail) {
  return isOf(RailClass::XcvrB, rail);
}
bool KVXEPowerDesignTab::isPSIoVoltage(const std::string& rail) {
  return isOf(RailClass::PsIo, rail);
}
bool KVXEPowerDesignTab::isHbmVoltage(const std::string& rail) {
  return isOf(RailClass::Hbm, rail);
}
bool KVXEPowerDesignTab::isPsVoltage(const std::string& rail) {
  return isOf(RailClass::Ps, rail);
}
bool KVXEPowerDesignTab::isPsBlockVoltage(const std::string& rail) {
  return isOf(RailClass::PsBlock, rail);
}
bool KVXEPowerDesignTab::isHic5Voltage(const std::string& rail) {
  return isOf(RailClass::Hic5, rail);
}
bool KVXEPowerDesignTab::isPswVoltage(const std::string& rail) {
  return isOf(RailClass::Psw, rail);
}
bool KVXEPowerDesignTab::isNicbVoltage(const std::string& rail) {
  return isOf(RailClass::Nicb, rail);
}
bool KVXEPowerDesignTab::isHic5nVoltage(const std::string& rail) {
  return isOf(RailClass::Hic5n, rail);
}
bool KVXEPowerDesignTab::isIoVccoVoltage(const std::string& rail) {
  return isOf(RailClass::Vcco, rail);
}
bool KVXEPowerDesignTab::isArkeonNetVcco(const std::string& rail) {
  return isOf(RailClass::NetVcco, rail);
}

std::vector<std::string> KVXEPowerDesignTab::getCategoryList() {
  std::vector<std::string> keys;
  for (const Category& category : categories) keys.push_back(*category.key);
  return keys;
}

bool KVXEPowerDesignTab::isCategoryStr(const std::string& supply) {
  return findCategory(supply) != nullptr;
}

std::string KVXEPowerDesignTab::getCategoryStr(const std::string& detailed) {
  const Category* category = findCategory(detailed);
  return category ? *category->key : std::string();
}

std::string KVXEPowerDesignTab::getCategoryDetailedStr(const std::string& key) {
  const Category* category = findCategory(key);
  return category ? category->detailed : std::string();
}

std::string KVXEPowerDesignTab::domainOfCategory(const std::string& key) {
  const Category* category = findCategory(key);
  return category ? category->domain : std::string();
}

KVXECell::Colors KVXEPowerDesignTab::getPowerDomainColorCode(const std::string& domain) {
  for (const DomainColor& color : domainColors)
    if (domain == color.domain) return {KVXECell::Black, color.background};
  return {KVXECell::Black, OtherBackground};
}
