#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/base/services/KVXEParamControlMgr.h"

namespace {

/// Sets an environment variable for the life of the object.
class Variable {
 public:
  Variable(const char* name, const char* text) : m_name(name) { setenv(name, text, 1); }
  ~Variable() { unsetenv(m_name); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* m_name;
};

constexpr const char* switchName = "DISABLE_SIGNAL_POWER";

TEST(ParamControl, ASwitchIsWhatTheEnvironmentSays) {
  const struct {
    const char* text;
    int value;
  } cases[] = {{"1", 1},   {"0", 0},      {"abc", 0},         {"", 0},
               {" 7 ", 7}, {"12abc", 12}, {"-3", -3},         {"+4", 4},
               {"+-4", 0}, {"0x10", 0},   {"99999999999", 0}, {"2147483647", 2147483647}};
  for (const auto& c : cases) {
    const Variable variable(switchName, c.text);
    const KVXEParamControlMgr params;
    int number = 99;
    bool flag = false;
    EXPECT_TRUE(params.getParam(switchName, number));
    EXPECT_TRUE(params.getParam(switchName, flag));
    EXPECT_EQ(number, c.value) << c.text;
    EXPECT_EQ(flag, c.value != 0) << c.text;
  }
}

TEST(ParamControl, ValuesStayUntilTheyAreReadAgain) {
  unsetenv(switchName);
  KVXEParamControlMgr params;
  const Variable variable(switchName, "1");
  bool flag = true;
  EXPECT_TRUE(params.getParam(switchName, flag));
  EXPECT_FALSE(flag);
  params.refreshParamMaps();
  EXPECT_TRUE(params.getParam(switchName, flag));
  EXPECT_TRUE(flag);
}

TEST(ParamControl, AnUnknownNameLeavesTheOutputAlone) {
  const Variable variable("KVX_NO_SUCH_PARAMETER", "1");
  const KVXEParamControlMgr params;
  int number = 5;
  std::string text = "as before";
  EXPECT_FALSE(params.getParam("KVX_NO_SUCH_PARAMETER", number));
  EXPECT_FALSE(params.getParam(switchName, text)) << "an integer parameter is no text";
  EXPECT_EQ(number, 5);
  EXPECT_EQ(text, "as before");
}

}  // namespace
