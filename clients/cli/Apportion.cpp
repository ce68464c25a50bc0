#include "clients/cli/Apportion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace kvx {

namespace {

constexpr double Largest = 9e15;  // exact in a double, and far from overflow in sums

double inUnits(double value, double unit) {
  const double units = value / unit;
  return std::isfinite(units) ? std::clamp(units, -Largest, Largest) : 0.0;
}

}  // namespace

std::int64_t toUnits(double value, double unit) {
  return std::llround(inUnits(value, unit));
}

std::vector<std::int64_t> apportion(const std::vector<double>& parts, double unit, std::int64_t total) {
  std::vector<std::int64_t> shares;
  for (const double part : parts)
    shares.push_back(static_cast<std::int64_t>(std::floor(inUnits(part, unit))));
  std::vector<std::size_t> order(parts.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return inUnits(parts[a], unit) - static_cast<double>(shares[a]) >
           inUnits(parts[b], unit) - static_cast<double>(shares[b]);
  });
  std::int64_t missing = total - std::accumulate(shares.begin(), shares.end(), std::int64_t{0});
  for (std::size_t i = 0; missing > 0 && i < order.size(); ++i, --missing) ++shares[order[i]];
  for (std::size_t i = order.size(); missing < 0 && i-- > 0; ++missing) --shares[order[i]];
  return shares;
}

}  // namespace kvx
