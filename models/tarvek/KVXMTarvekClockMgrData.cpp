#include "models/tarvek/KVXMTarvekClockMgrData.h"

namespace {

// name, outputs, {borders of the low, medium and high range}, what the slowest speed grade reaches
constexpr kvxm::ClockManagerKind kinds[] = {
    {"FSYN", 7, {800, 1300, 1900, 2400}, 2200},
    {"DPLL", 4, {700, 1100, 1500, 1900}, 1700},
    {"IOPLL", 3, {600, 1000, 1400, 1800}, 1600},
    {"Y7PLL", 3, {1000, 1600, 2200, 2800}, 2600},
};

}  // namespace

KVXMTarvekClockMgrData::KVXMTarvekClockMgrData() : ClockManagerKinds(kinds) {}

const KVXMTarvekClockMgrData& KVXMTarvekClockMgrData::getGlobal() {
  static const KVXMTarvekClockMgrData data;
  return data;
}
