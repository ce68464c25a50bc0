#pragma once

#include "engine/base/config/ClockConfig.h"

namespace kvxe {

/// An output of a clock manager.
struct OutputClockConfig {
  ClockConfig clock{};
  bool isInUse = false;

  bool operator==(const OutputClockConfig&) const = default;
};

/// One clock manager of the design: a row of "CLOCK_MANAGER_CONFIGURATION".
struct ClockMgrConfig {
  static constexpr size_t OutputCount = 7;
  using Outputs = std::array<int, OutputCount>;

  /// Seven blank cells.
  static constexpr Outputs none() {
    Outputs outputs{};
    outputs.fill(blank);
    return outputs;
  }

  std::string name{};
  std::string type{};      ///< "FSYN", "PLL", "IOPLL", "Y7PLL" or "DPLL"
  float refClock = blank;  ///< MHz
  std::string phaseShift{};
  int divide = blank;
  int multiply = blank;
  float vcoFreq = blank;  ///< MHz; made of the three above, not written
  std::string vcoRange{};
  Outputs outputDivides = none();  ///< a blank one is off
  Outputs outputFanoutRows = none();
  std::string inputClkName{};
  std::vector<OutputClockConfig> outputClks{};  ///< only those in use are kept
  float powerDown = blank;                      ///< share of the time, 0 to 1
  /// The clock of that name as it is, or as it is created with the manager.
  ClockConfig inputClk{};

  bool operator==(const ClockMgrConfig&) const = default;
};

namespace detail {

/// The names of the outputs in use.
template <>
struct StringConverter<std::vector<OutputClockConfig>> {
  static std::vector<OutputClockConfig> convert(const std::string& text);
  static std::string toText(const std::vector<OutputClockConfig>& outputs);
};

}  // namespace detail

template <>
class ConfigIfc<ClockMgrConfig> : public ConfigIfcBase<ClockMgrConfig> {
 public:
  /// The types that the selected device has.
  virtual std::vector<std::string> getClockMgrTypes() const = 0;
  /// 0 for an unknown type; so, too, empty answers below.
  virtual int getNumOutputClocks(const std::string& type) const = 0;
  /// The names of the oscillator's ranges from the lowest to the highest.
  virtual std::vector<std::string> getVcoRangeList(const std::string& type) const = 0;
  virtual std::string getDefaultVcoRange(const std::string& type) const = 0;
  /// Sets the frequency of the reference clock in MHz. False for an unknown manager.
  virtual bool setRefClockFreq(const std::string& name, float frequency) = 0;
};

}  // namespace kvxe
