#include "clients/cli/Apportion.h"

#include <cmath>
#include <numeric>
#include <random>

namespace {

TEST(Apportion, PartsAddUpAndMoveLessThanAUnit) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> watts(0, 3);
  for (int round = 0; round < 200; ++round) {
    std::vector<double> parts(1 + random() % 40);
    for (double& part : parts) part = random() % 4 == 0 ? 0.0 : watts(random);
    const double sum = std::accumulate(parts.begin(), parts.end(), 0.0);
    const auto shares = kvx::apportion(parts, 1e-3, kvx::toUnits(sum, 1e-3));
    EXPECT_EQ(std::accumulate(shares.begin(), shares.end(), std::int64_t{0}), kvx::toUnits(sum, 1e-3));
    for (std::size_t i = 0; i < parts.size(); ++i)
      EXPECT_LT(std::fabs(static_cast<double>(shares[i]) * 1e-3 - parts[i]), 1e-3 + 1e-12);
  }
}

TEST(Apportion, LargestRemaindersRoundUp) {
  EXPECT_EQ(kvx::apportion({0.0004, 0.0004, 0.0004}, 1e-3, 1), (std::vector<std::int64_t>{1, 0, 0}));
  EXPECT_EQ(kvx::apportion({1.2, 1.7, 1.1}, 1.0, 4), (std::vector<std::int64_t>{1, 2, 1}));
}

TEST(Apportion, NothingOutOfTheOrdinaryIsUndefined) {
  EXPECT_TRUE(kvx::apportion({}, 1e-3, 5).empty());
  EXPECT_EQ(kvx::toUnits(std::nan(""), 1e-3), 0);
  EXPECT_EQ(kvx::toUnits(INFINITY, 1e-3), 0);
  EXPECT_EQ(kvx::apportion({std::nan(""), 1.0}, 1.0, 1), (std::vector<std::int64_t>{0, 1}));
  EXPECT_GT(kvx::toUnits(1e300, 1e-3), 0);
}

}  // namespace
