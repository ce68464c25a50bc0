#include "models/morlan/KVXMMorlanClockMgrData.h"

namespace {

// name, outputs, {borders of the low, medium and high range}, what the slowest speed grade reaches
constexpr kvxm::ClockManagerKind kinds[] = {
    {"FSYN", 7, {600, 900, 1300, 1600}, 1440},
    {"PLL", 3, {600, 850, 1150, 1400}, 1300},
};

}  // namespace

KVXMMorlanClockMgrData::KVXMMorlanClockMgrData() : ClockManagerKinds(kinds) {}

const KVXMMorlanClockMgrData& KVXMMorlanClockMgrData::getGlobal() {
  static const KVXMMorlanClockMgrData data;
  return data;
}
