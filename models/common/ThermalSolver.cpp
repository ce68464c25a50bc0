#include "models/common/ThermalSolver.h"

#include <algorithm>
#include <cmath>

namespace kvxm {

namespace {

constexpr int mostIterations = 200;      // a double root halves the distance by each step: about 40
constexpr double smallestStep = 1e-9;    // degrees; far below the promised 1e-6 even at a double root
constexpr double relativeNoise = 1e-14;  // what rounding leaves of f, relative to its terms
constexpr double chordWidth = 1e-3;      // degrees; wide enough that rounding does not turn the chord's slope

bool isUsable(const ThermalPath& path) {
  return std::isfinite(path.ambient) && std::isfinite(path.thetaJa) && path.thetaJa >= 0.0 &&
         std::isfinite(path.dynamicWatts) && std::isfinite(path.ambient + path.thetaJa * path.dynamicWatts);
}

}  // namespace

ThermalResult solveJunctionTemperature(const ThermalPath& path,
                                       const std::function<double(double)>& leakageWatts) {
  ThermalResult result{ThermalStatus::NoSolution, path.highestTemperature, 0};
  if (!isUsable(path)) return result;

  const double start = path.ambient + path.thetaJa * path.dynamicWatts;
  const auto leakageHeating = [&](double temperature) {
    return path.thetaJa == 0.0 ? 0.0 : path.thetaJa * std::max(leakageWatts(temperature), 0.0);
  };

  double temperature = start;
  for (result.iterations = 1; result.iterations <= mostIterations; ++result.iterations) {
    const double heating = leakageHeating(temperature);
    const double excess = start + heating - temperature;
    if (!std::isfinite(excess)) return result;

    const double noise = relativeNoise * (1.0 + std::abs(temperature) + heating);
    const double slope = (heating - leakageHeating(temperature - chordWidth)) / chordWidth - 1.0;
    const bool atRoot = excess <= noise;
    if (!atRoot && !(slope < 0.0)) return result;

    const double step = atRoot ? 0.0 : -excess / slope;
    temperature += step;
    if (step > smallestStep) continue;
    const bool inRange = temperature <= path.highestTemperature;
    result.status = inRange ? ThermalStatus::Converged : ThermalStatus::OutOfRange;
    result.temperature = temperature;
    return result;
  }
  return result;
}

}  // namespace kvxm
