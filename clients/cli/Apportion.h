#pragma once

#include <cstdint>
#include <vector>

namespace kvx {

/// Rounds parts so that they add up to their rounded total: each part gets its whole units, and what the
/// total has more goes one by one to the parts with the largest remainders (the method of largest
/// remainders). With parts that add up to the total in exact arithmetic no part moves by a unit or more.
std::vector<std::int64_t> apportion(const std::vector<double>& parts, double unit, std::int64_t total);

/// The value in units, rounded half away from zero.
std::int64_t toUnits(double value, double unit);

}  // namespace kvx
