#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvxm {

/// A type of DRAM at a kind of controller.
struct DramSupport {
  std::string controller;               ///< "DDRMC", "DDRMC5" or "DDRMC5C"
  std::string resource;                 ///< the device's name of the controller
  std::string dramType;                 ///< "DDR4", ...
  std::array<float, 3> componentRates;  ///< Mbps that speed grades 1, 2 and 3 reach with components
  std::array<float, 3> moduleRates;     ///< as above with memory modules, whose lines are longer
  std::vector<std::string> standards;
  std::vector<int> dataWidths;          ///< of a channel
  std::vector<std::string> encryption;  ///< "No", and "Yes" where the controller can

  /// Mbps; `speed` is a speed grade as part names write it, an unknown one counts as the fastest.
  float maximumRate(std::string_view standard, std::string_view speed) const;
};

}  // namespace kvxm

/// What the hard memory controllers of Tarvek devices support.
class KVXMTarvekDdrmcData {
 public:
  static const KVXMTarvekDdrmcData& getGlobal();

  /// Data pins of a controller over all channels, those of the error correction apart.
  static constexpr int dataPins = 64;
  static constexpr int largestChannelCount = 2;

  /// Everything, the older controllers first.
  std::span<const kvxm::DramSupport> getDramSupport() const;
  /// Null when the controller does not support the type.
  const kvxm::DramSupport* find(std::string_view controller, std::string_view dramType) const;

 private:
  KVXMTarvekDdrmcData() = default;
};
