#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

/// Runs in a process of its own, so that what it does to its limits and memory ends with it.
inline void inChild(const std::function<void()>& act) {
  const ::testing::TestResult& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
  const int before = result.total_part_count();
  const pid_t child = fork();
  if (child == 0) {
    act();
    _exit(result.total_part_count() == before ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "see above";
}
