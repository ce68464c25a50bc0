#include "platform/wyr_common/NDUEnv.h"

#include <cstdlib>

const char* NDUEnv::getEnv(const char* name) {
  return std::getenv(name);
}
