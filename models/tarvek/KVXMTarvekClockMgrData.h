#pragma once

#include <string>
#include <vector>

#include "models/common/ClockManagerKinds.h"

/// The kinds of clock managers of Tarvek devices. Frequencies are in MHz.
class KVXMTarvekClockMgrData : public kvxm::ClockManagerKinds {
 public:
  static const KVXMTarvekClockMgrData& getGlobal();

  std::vector<kvxm::VcoRange> getFsynVcoRanges(const std::string& speed) const {
    return getVcoRanges("FSYN", speed);
  }
  std::vector<kvxm::VcoRange> getDpllVcoRanges(const std::string& speed) const {
    return getVcoRanges("DPLL", speed);
  }
  std::vector<kvxm::VcoRange> getIopllVcoRanges(const std::string& speed) const {
    return getVcoRanges("IOPLL", speed);
  }

 private:
  KVXMTarvekClockMgrData();
};
