#include "models/common/ClockManagerKinds.h"

#include <algorithm>
#include <cmath>

#include "models/common/Effects.h"

namespace kvxm {

namespace {

constexpr const char* rangeNames[] = {"LOW_VCO_RANGE", "MEDIUM_VCO_RANGE", "HIGH_VCO_RANGE"};
constexpr int mediumRange = 1;
constexpr char slowestGrade = '1';

}  // namespace

const ClockManagerKind* ClockManagerKinds::find(std::string_view kind) const {
  for (const ClockManagerKind& known : m_kinds)
    if (known.name == kind) return &known;
  return nullptr;
}

std::vector<std::string> ClockManagerKinds::getKinds() const {
  std::vector<std::string> names;
  for (const ClockManagerKind& kind : m_kinds) names.emplace_back(kind.name);
  return names;
}

int ClockManagerKinds::getOutputCount(std::string_view kind) const {
  const ClockManagerKind* known = find(kind);
  return known ? known->outputCount : 0;
}

std::vector<VcoRange> ClockManagerKinds::getVcoRanges(std::string_view kind, std::string_view speed) const {
  const ClockManagerKind* known = find(kind);
  std::vector<VcoRange> ranges;
  if (!known) return ranges;
  const bool isSlow = !speed.empty() && speed.front() == slowestGrade;
  const float maximum = isSlow ? known->slowMaximum : known->borders[std::size(rangeNames)];
  for (std::size_t i = 0; i < std::size(rangeNames); ++i)
    ranges.push_back({rangeNames[i], known->borders[i], std::min(known->borders[i + 1], maximum)});
  return ranges;
}

std::string ClockManagerKinds::getDefaultVcoRange(std::string_view kind) const {
  return find(kind) ? rangeNames[mediumRange] : "";
}

CounterSetting ClockManagerKinds::chooseCounters(std::string_view kind, std::string_view speed,
                                                 double inputMegahertz) const {
  const auto limits = vcoLimits(getVcoRanges(kind, speed));
  if (!limits || !(inputMegahertz > 0.0)) return {};
  const double middle = (static_cast<double>(limits->first) + limits->second) / 2;
  for (int divide = 1; divide <= largestDivide; ++divide) {
    const double wanted = std::clamp(middle * divide / inputMegahertz, 1.0, double{largestMultiply});
    const int multiply = static_cast<int>(std::lround(wanted));
    const double megahertz = oscillatorFrequency(inputMegahertz, multiply, divide);
    if (megahertz >= limits->first && megahertz <= limits->second) return {divide, multiply, megahertz};
  }
  return {};
}

std::optional<std::pair<float, float>> vcoLimits(const std::vector<VcoRange>& ranges) {
  if (ranges.empty()) return std::nullopt;
  return std::pair(ranges.front().minimum, ranges.back().maximum);
}

}  // namespace kvxm
