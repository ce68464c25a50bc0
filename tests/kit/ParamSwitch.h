#pragma once

#include <cstdlib>

#include "engine/base/services/KVXEParamControlMgr.h"

/// Turns a named switch of the engine on while it lives.
class ParamSwitch {
 public:
  explicit ParamSwitch(const char* name) : m_name(name) {
    setenv(m_name, "1", 1);
    KVXEParamControlMgr::getGlobal().refreshParamMaps();
  }
  ~ParamSwitch() {
    unsetenv(m_name);
    KVXEParamControlMgr::getGlobal().refreshParamMaps();
  }
  ParamSwitch(const ParamSwitch&) = delete;
  ParamSwitch& operator=(const ParamSwitch&) = delete;

 private:
  const char* m_name;
};
