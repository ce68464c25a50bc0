#include "platform/wyr_common/NDUEnv.h"

#include <cstdlib>

const char* NDUEnv::getEnv(const char* name) {
  return std::getenv(name);
}

std::string NDUEnv::getProductVersion() {
  return KVX_VERSION;
}

std::string NDUEnv::getFullProductStr() {
  return "KVX " + getProductVersion();
}

std::string NDUEnv::getFullBuildStr() {
  return getFullProductStr() + ", " + KVX_COMPILER + ", " + KVX_BUILD_TYPE;
}
