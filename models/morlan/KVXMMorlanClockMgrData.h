#pragma once

#include <string>
#include <vector>

#include "models/common/ClockManagerKinds.h"

/// The kinds of clock managers of Morlan devices. Frequencies are in MHz.
class KVXMMorlanClockMgrData : public kvxm::ClockManagerKinds {
 public:
  /// A device has as many PLLs for each of its FSYNs; its list of resources does not count them.
  static constexpr int PllsPerFsyn = 2;

  static const KVXMMorlanClockMgrData& getGlobal();

  std::vector<kvxm::VcoRange> getFsynVcoRanges(const std::string& speed) const {
    return getVcoRanges("FSYN", speed);
  }
  std::vector<kvxm::VcoRange> getPllVcoRanges(const std::string& speed) const {
    return getVcoRanges("PLL", speed);
  }

 private:
  KVXMMorlanClockMgrData();
};
