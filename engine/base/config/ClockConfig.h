#pragma once

#include <string>
#include <vector>

#include "engine/base/config/CellText.h"
#include "engine/base/config/ConfigIfc.h"

namespace kvxe {

/// What power management knows of a clock: a row of "CLK_DOMAIN_PWR".
struct ClockDomainPwrConfig {
  std::string clockTag{};
  bool isGated = false;
  float minScaledFreq = blank;  ///< MHz; the least that the clock is scaled down to

  bool operator==(const ClockDomainPwrConfig&) const = default;
};

/// One clock of the design: a row of "CLOCK_CONFIGURATION".
struct ClockConfig {
  std::string name{};
  std::vector<std::string> clockMgrs{};  ///< the managers that the clock is connected to
  float frequency = blank;               ///< MHz
  std::string tag{};                     ///< made of name and frequency; not written
  std::string source{};                  ///< "External", "Internal", or "type:manager:clock" of an output
  int fanout = blank;
  float fanoutPerSite = blank;
  float bufferEnable = blank;  ///< shares of the time, 0 to 1
  float sliceEnable = blank;
  std::string comments{};
  /// The clock's row of power management, by its tag; of no account on a device without that table.
  ClockDomainPwrConfig pwr{};

  /// The tag of a clock; empty without a name or a frequency.
  static std::string constructClockTag(const std::string& name, float frequency);
  std::string constructClockTag() const { return constructClockTag(name, frequency); }
  /// False, with the outputs unchanged, for a text that is no clock tag.
  static bool extractNameAndFreqFromTag(std::string& name, float& frequency, const std::string& tag);
  /// Empty for a text that is no clock tag.
  static std::string extractNameFromTag(const std::string& tag);
  /// 0 for a text that is no clock tag.
  static float extractFreqFromTag(const std::string& tag);

  bool operator==(const ClockConfig&) const = default;
};

template <>
class ConfigIfc<ClockDomainPwrConfig> : public ConfigIfcBase<ClockDomainPwrConfig> {
 public:
  using ConfigIfcBase<ClockDomainPwrConfig>::edit;
  /// Overwrites the row that has this tag now, tag included. False when it is absent.
  virtual bool edit(const std::string& clockTag, const ClockDomainPwrConfig& cfg) = 0;
};

template <>
class ConfigIfc<ClockConfig> : public ConfigIfcBase<ClockConfig> {
 public:
  /// The clock that the tag names, whatever its frequency; for a text without a name the one whose tag it is.
  /// Null for none.
  virtual std::unique_ptr<ClockConfig> findFromTag(const std::string& tag) const = 0;
  /// Adds a manager to those of the clock, once. False for an unknown clock or an empty name.
  virtual bool connectClockMgr(const std::string& clockName, const std::string& mgrName) = 0;
  /// Takes a manager from those of the clock. False for an unknown clock.
  virtual bool disconnectClockMgr(const std::string& clockName, const std::string& mgrName) = 0;
};

}  // namespace kvxe
