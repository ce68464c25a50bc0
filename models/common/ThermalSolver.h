#pragma once

#include <functional>

namespace kvxm {

/// What decides the junction temperature besides the leakage: Tj = Ta + theta * (Pd + leakage(Tj)), the
/// one-path thermal model of JESD51-2.
struct ThermalPath {
  double ambient = 25.0;              ///< Ta, degrees Celsius
  double thetaJa = 1.0;               ///< junction to ambient, C/W
  double dynamicWatts = 0.0;          ///< Pd
  double highestTemperature = 125.0;  ///< up to where the leakage law is characterised, degrees Celsius
};

enum class ThermalStatus {
  Converged,   ///< the temperature is the stable one, to a millionth of a degree
  NoSolution,  ///< leakage heats faster than the path cools (or an input is no number): there is no
               ///< temperature
  OutOfRange,  ///< a solution exists, but above `highestTemperature`, where the leakage law is a guess
};

struct ThermalResult {
  ThermalStatus status = ThermalStatus::NoSolution;
  double temperature = 0.0;  ///< degrees Celsius; with NoSolution the highest temperature of the path
  int iterations = 0;
};

/// Solves for the lower, stable solution. `leakageWatts(T)` must be finite or infinite, increasing and convex
/// in T, as every sum of exponential laws is.
///
/// f(T) = Ta + theta * (Pd + leakage(T)) - T is then convex and has at most two roots. The search starts at
/// Ta + theta * Pd, which lies below the lower root, and steps by f over the slope of the chord to a point
/// just left of T. For a convex f that chord is steeper than the tangent, so that a step never passes the
/// root; a chord that does not fall while f is still positive therefore proves that the minimum of f lies
/// above zero and there is no root. The number of steps is bounded. (Newton's method for convex functions:
/// Ortega and Rheinboldt, Iterative Solution of Nonlinear Equations, 13.3.)
ThermalResult solveJunctionTemperature(const ThermalPath& path,
                                       const std::function<double(double)>& leakageWatts);

}  // namespace kvxm
