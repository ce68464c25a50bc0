#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What is fixed about the kinds of clock managers: their outputs, and the ranges of their oscillators.
namespace kvxm {

/// A part of what an oscillator covers, which a designer may ask for by its name.
struct VcoRange {
  std::string name;  ///< "LOW_VCO_RANGE", "MEDIUM_VCO_RANGE" or "HIGH_VCO_RANGE"
  float minimum = 0.0f;
  float maximum = 0.0f;  ///< both in MHz

  bool operator==(const VcoRange&) const = default;
};

/// One kind of clock managers.
struct ClockManagerKind {
  std::string_view name;
  int outputCount;
  float borders[4];   ///< MHz; the low range lies between the first two, and so on
  float slowMaximum;  ///< MHz; what the slowest speed grade reaches
};

/// The setting of a clock manager's counters, all 0 when there is none.
struct CounterSetting {
  int divide = 0;
  int multiply = 0;
  double megahertz = 0.0;  ///< of the oscillator
};

inline constexpr int largestDivide = 128;
inline constexpr int largestMultiply = 64;

/// The kinds of one architecture; every query of an unknown kind has an empty answer. `speed` is a speed
/// grade as part names write it ("1", "2LV"); the ranges are those of the fastest grade when it is empty.
class ClockManagerKinds {
 public:
  explicit constexpr ClockManagerKinds(std::span<const ClockManagerKind> kinds) : m_kinds(kinds) {}

  std::vector<std::string> getKinds() const;
  int getOutputCount(std::string_view kind) const;
  /// The ranges from the lowest to the highest.
  std::vector<VcoRange> getVcoRanges(std::string_view kind, std::string_view speed) const;
  /// The name of the range that suits most designs.
  std::string getDefaultVcoRange(std::string_view kind) const;
  /// The smallest divide counter with which the oscillator can run at all, since the jitter grows with it,
  /// and the multiply counter that then brings the oscillator closest to the middle of what it covers.
  CounterSetting chooseCounters(std::string_view kind, std::string_view speed, double inputMegahertz) const;

 private:
  const ClockManagerKind* find(std::string_view kind) const;

  std::span<const ClockManagerKind> m_kinds;
};

/// Least and most MHz over all ranges; nothing without ranges.
std::optional<std::pair<float, float>> vcoLimits(const std::vector<VcoRange>& ranges);

}  // namespace kvxm
