#include "models/tarvek/KVXMTarvekNocData.h"

namespace {

constexpr struct {
  char speed;
  float megahertz;
} grades[] = {{'1', 1000}, {'2', 1080}, {'3', 1200}};

}  // namespace

const KVXMTarvekNocData& KVXMTarvekNocData::getGlobal() {
  static const KVXMTarvekNocData data;
  return data;
}

float KVXMTarvekNocData::getMaximumFrequency(std::string_view speed) const {
  for (const auto& grade : grades)
    if (speed.starts_with(grade.speed)) return grade.megahertz;
  return grades[2].megahertz;
}
