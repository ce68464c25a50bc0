#include "models/common/RailGrouping.h"

#include <cmath>

#include "models/common/KVXMHelperUtils.h"

namespace kvxm {

namespace {

/// One line of the table of regulators: the first that fits a rail counts. A blank part fits every rail, a
/// blank regulator is the rail's own.
struct GroupRule {
  std::string_view category, prefix, suffix;
  std::string_view full, minimum;
};

// What the columns weigh. Cores tolerate the ripple of a buck converter and are told apart by the domain that
// may be switched off or scaled: only where no such control is lost do they share under full power
// management. Auxiliary supplies feed oscillators and level shifters. Monitors (VCCAUXSMON, VCCADC) measure
// against their supply and never share. Transceivers need quiet supplies, one kind for each of the driver's
// three voltages. Banks of the processing system may all be raised together, so they stay apart from the
// logic's banks.
constexpr GroupRule rules[] = {
    // category, prefix, suffix, full power management, minimum rails
    {"PMC", "VCCPMC", "", "", "CORE"},
    {"PMC", "VCCAUXPMC", "", "", "AUX"},
    {"PMC", "VCCO50", "", "", "PS_IO"},
    {"LPD", "VCCPSLP", "", "", "CORE"},
    {"LPD", "VCCPSINT", "", "", "CORE"},
    {"LPD", "VCCPSAUX", "", "", "AUX"},
    {"LPD", "VCCO50", "", "", "PS_IO"},
    {"LPD", "VCCPSGTA", "", "", "XCVR_AVCC"},
    {"LPD", "VTTPSGTA", "", "", "XCVR_AVTT"},
    {"FPD", "VCCPSFP", "", "FULL_POWER", "CORE"},
    {"FPD", "VCCPSW", "", "FULL_POWER", "CORE"},
    {"FPD", "VCCPSINT", "", "", "CORE"},
    {"FPD", "VPSMXCVR", "AVCC", "", "XCVR_AVCC"},
    {"FPD", "VPSMXCVR", "AVTT", "", "XCVR_AVTT"},
    {"SYSTEM_AUX", "VCCAUX", "", "SYSTEM_AUX", "AUX"},
    {"SYSTEM_CORE", "", "", "SYSTEM_CORE", "CORE"},
    {"PL_CORE", "", "", "", "CORE"},
    {"", "MXCVR", "AVCC", "", "XCVR_AVCC"},
    {"", "MXCVR", "AVTT", "", "XCVR_AVTT"},
    {"", "MXCVR", "VCCAUX", "", "XCVR_AUX"},
    {"HBM", "", "", "HBM", "HBM"},
    {"OTHER", "VCCINT", "", "", "CORE"},
};

const GroupRule* ruleFor(std::string_view rail, std::string_view category) {
  for (const GroupRule& rule : rules) {
    const bool fits = (rule.category.empty() || rule.category == category) && rail.starts_with(rule.prefix) &&
                      rail.ends_with(rule.suffix);
    if (fits) return &rule;
  }
  return nullptr;
}

/// "0V80", or "0V725" where two decimals do not tell all.
std::string voltageText(float volts) {
  const int millivolts = static_cast<int>(std::lround(static_cast<double>(volts) * 1000.0));
  const bool isFine = millivolts % 10 != 0;
  const int fraction = isFine ? millivolts % 1000 : millivolts % 1000 / 10;
  return KVXMHelperUtils::ToString(millivolts / 1000) + "V" +
         KVXMHelperUtils::i2s(fraction, isFine ? 3 : 2, '0');
}

}  // namespace

std::string railGroup(std::string_view consolidation, std::string_view rail, std::string_view category,
                      float nominalVolts) {
  constexpr float mostVolts = 1000.0f;
  const GroupRule* rule = ruleFor(rail, category);
  if (!rule || !(nominalVolts > 0.0f && nominalVolts < mostVolts)) return {};
  const std::string_view regulator = consolidation == minimumRails ? rule->minimum : rule->full;
  return regulator.empty() ? std::string() : std::string(regulator) + "_" + voltageText(nominalVolts);
}

}  // namespace kvxm
