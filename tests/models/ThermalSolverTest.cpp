#include "models/common/ThermalSolver.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <ostream>

namespace {

using kvxm::solveJunctionTemperature;
using kvxm::ThermalPath;
using kvxm::ThermalResult;
using kvxm::ThermalStatus;

constexpr double e = std::numbers::e;
constexpr double unlimited = 1e6;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// One exponential law, for which the solution is known in closed form.
struct Exponential {
  double theta, dynamicWatts, leakageWatts, beta;
  double reference = 25;

  double leakage(double t) const { return leakageWatts * std::exp(beta * (t - reference)); }
  double z(double ambient) const {
    return beta * theta * leakageWatts * std::exp(beta * (ambient + theta * dynamicWatts - reference));
  }
  double criticalAmbient() const {
    return reference - theta * dynamicWatts - (1 + std::log(beta * theta * leakageWatts)) / beta;
  }
  ThermalResult solve(double ambient, double highest = unlimited) const {
    return solveJunctionTemperature({ambient, theta, dynamicWatts, highest},
                                    [this](double t) { return leakage(t); });
  }
};

std::ostream& operator<<(std::ostream& out, const Exponential& law) {
  return out << "theta " << law.theta << " Pd " << law.dynamicWatts << " P0 " << law.leakageWatts << " beta "
             << law.beta;
}

/// Principal branch of Lambert's W on [-1/e, 0], by Halley's method from the series at the branch point.
double lambertW0(double x) {
  const double p = std::sqrt(std::max(0.0, 2 * (e * x + 1)));
  double w = -1 + p - p * p / 3 + 11 * p * p * p / 72;
  for (int i = 0; i < 50 && p > 1e-7; ++i) {
    const double f = w * std::exp(w) - x;
    const double step = f / (std::exp(w) * (w + 1) - (w + 2) * f / (2 * w + 2));
    w -= step;
    if (std::abs(step) < 1e-15) break;
  }
  return w;
}

std::vector<Exponential> grid() {
  std::vector<Exponential> laws;
  for (double theta : {0.05, 0.4, 1.3, 5.0}) {
    for (double dynamicWatts : {0.0, 4.0, 60.0}) {
      for (double leakageWatts : {0.01, 1.5, 20.0}) {
        for (double beta : {0.012, 0.024, 0.040}) laws.push_back({theta, dynamicWatts, leakageWatts, beta});
      }
    }
  }
  return laws;
}

void expectClosedForm(const Exponential& law, double ambient) {
  const ThermalResult result = law.solve(ambient);
  const double z = law.z(ambient);
  if (z > 1 / e) {
    EXPECT_EQ(result.status, ThermalStatus::NoSolution) << law << " Ta " << ambient;
    return;
  }
  const double expected = ambient + law.theta * law.dynamicWatts - lambertW0(-z) / law.beta;
  ASSERT_EQ(result.status, ThermalStatus::Converged) << law << " Ta " << ambient;
  EXPECT_NEAR(result.temperature, expected, 1e-6) << law << " Ta " << ambient;
  EXPECT_LT(law.beta * law.theta * law.leakage(result.temperature), 1.0)
      << "the stable one of the two solutions";
  EXPECT_LT(result.iterations, 60) << law << " Ta " << ambient;
}

TEST(ThermalSolver, AgreesWithTheClosedForm) {
  for (const Exponential& law : grid()) {
    for (double ambient : {-55.0, 0.0, 25.0, 70.0, 110.0}) expectClosedForm(law, ambient);
  }
}

TEST(ThermalSolver, TellsStableFromLostOnEitherSideOfCriticalAmbient) {
  for (const Exponential& law : grid()) {
    for (double distance : {-30.0, -1.0, -0.01, 0.01, 1.0, 30.0}) {
      expectClosedForm(law, law.criticalAmbient() + distance);
    }
  }
}

TEST(ThermalSolver, SolvesSeveralLawsTogether) {
  const auto leakage = [](double t) {
    return 2 * std::exp(0.024 * (t - 25)) + 0.7 * std::exp(0.036 * (t - 25)) +
           0.4 * std::exp(0.013 * (t - 25)) + 0.3;
  };
  const ThermalResult result = solveJunctionTemperature({40, 0.9, 12, 125}, leakage);
  ASSERT_EQ(result.status, ThermalStatus::Converged);
  EXPECT_NEAR(result.temperature, 40 + 0.9 * (12 + leakage(result.temperature)), 1e-6);
  EXPECT_LT(result.temperature, 60);
}

TEST(ThermalSolver, ASolutionAboveTheLimitIsNotNone) {
  const Exponential law{1.0, 90, 0.5, 0.02};
  const ThermalResult result = law.solve(30, 110);
  EXPECT_EQ(result.status, ThermalStatus::OutOfRange);
  EXPECT_NEAR(result.temperature, law.solve(30).temperature, 1e-6);
  EXPECT_EQ(law.solve(law.criticalAmbient() + 1, 110).status, ThermalStatus::NoSolution);
}

TEST(ThermalSolver, HandlesInputsThatAreNoDesign) {
  struct Case {
    const char* label;
    ThermalPath path;
    ThermalStatus status;
    double temperature;
  };
  const Case cases[] = {
      {"no thermal resistance", {30, 0, 50, 125}, ThermalStatus::Converged, 30},
      {"negative resistance", {30, -1, 5, 125}, ThermalStatus::NoSolution, 125},
      {"resistance no number", {30, nan, 5, 125}, ThermalStatus::NoSolution, 125},
      {"infinite resistance", {30, infinite, 5, 125}, ThermalStatus::NoSolution, 125},
      {"ambient no number", {nan, 1, 5, 125}, ThermalStatus::NoSolution, 125},
      {"infinite power", {30, 1, infinite, 125}, ThermalStatus::NoSolution, 125},
      {"product overflows", {30, 1e200, 1e200, 125}, ThermalStatus::NoSolution, 125},
      {"the workbook's blank", {30, 1, 3.4e38, 125}, ThermalStatus::NoSolution, 125},
  };
  const auto leakage = [](double t) { return std::exp(0.03 * (t - 25)); };
  for (const Case& c : cases) {
    const ThermalResult result = solveJunctionTemperature(c.path, leakage);
    EXPECT_EQ(result.status, c.status) << c.label;
    EXPECT_EQ(result.temperature, c.temperature) << c.label;
  }
  const auto nothing = [](double) { return 0.0; };
  EXPECT_EQ(solveJunctionTemperature({30, 2, 10, 125}, nothing).temperature, 50.0) << "no leakage";
  const auto broken = [](double) { return nan; };
  EXPECT_EQ(solveJunctionTemperature({30, 2, 10, 125}, broken).status, ThermalStatus::NoSolution);
}

TEST(ThermalSolver, EndsForALawThatIsNotConvex) {
  const auto stairs = [](double t) { return std::floor(t / 3); };
  const ThermalResult result = solveJunctionTemperature({30, 2, 10, 125}, stairs);
  EXPECT_LE(result.iterations, 201);
}

}  // namespace
