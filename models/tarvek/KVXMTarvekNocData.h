#pragma once

#include <string_view>

/// What the network on chip of Tarvek devices reaches. `speed` is a speed grade as part names write it; an
/// unknown one counts as the fastest.
class KVXMTarvekNocData {
 public:
  static const KVXMTarvekNocData& getGlobal();

  /// MHz of the switches.
  float getMaximumFrequency(std::string_view speed) const;
  /// MB/s that a port carries in one direction at a clock in MHz.
  double getPortBandWidth(double megahertz) const { return megahertz * bytesPerCycle; }

 private:
  static constexpr double bytesPerCycle = 16;

  KVXMTarvekNocData() = default;
};
