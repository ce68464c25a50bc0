#include "engine/base/services/KVXEParamControlMgr.h"

#include <charconv>
#include <string_view>

#include "models/common/KVXMCommonParamControlData.h"
#include "platform/wyr_common/NDUEnv.h"

namespace {

template <class Map, class Value>
bool find(const Map& params, const std::string& name, Value& value) {
  const auto found = params.find(name);
  if (found == params.end()) return false;
  value = static_cast<Value>(found->second);
  return true;
}

std::string_view environmentText(const std::string& name) {
  const char* text = NDUEnv::getEnv(name.c_str());
  return text ? std::string_view(text) : std::string_view();
}

/// The leading number of a text after blanks and a sign; 0 for none and for one that does not fit.
template <class Number>
Number leadingNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  Number value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() ? value : Number(0);
}

}  // namespace

KVXEParamControlMgr& KVXEParamControlMgr::getGlobal() {
  static KVXEParamControlMgr params;
  return params;
}

KVXEParamControlMgr::KVXEParamControlMgr() {
  initializeParamMaps();
  refreshParamMaps();
}

void KVXEParamControlMgr::initializeParamMaps() {
  const KVXMCommonParamControlData& data = KVXMCommonParamControlData::getGlobal();
  for (const std::string& name : data.getCfgKeys({"PARAM_VARS_INT"}, false))
    m_intParams[name] = data.getParamVarsInt(name, "DEFAULT");
  for (const std::string& name : data.getCfgKeys({"PARAM_VARS_FLOAT"}, false))
    m_floatParams[name] = data.getParamVarsFloat(name, "DEFAULT");
  for (const std::string& name : data.getCfgKeys({"PARAM_VARS_STRING"}, false))
    m_stringParams[name] = data.getParamVarsString(name, "DEFAULT");
}

void KVXEParamControlMgr::refreshParamMaps() {
  for (auto& [name, value] : m_intParams) value = leadingNumber<int>(environmentText(name));
  for (auto& [name, value] : m_floatParams) value = leadingNumber<float>(environmentText(name));
  for (auto& [name, value] : m_stringParams) value = std::string(environmentText(name));
}

bool KVXEParamControlMgr::getParam(const std::string& name, bool& value) const {
  return find(m_intParams, name, value);
}

bool KVXEParamControlMgr::getParam(const std::string& name, int& value) const {
  return find(m_intParams, name, value);
}

bool KVXEParamControlMgr::getParam(const std::string& name, float& value) const {
  return find(m_floatParams, name, value);
}

bool KVXEParamControlMgr::getParam(const std::string& name, std::string& value) const {
  return find(m_stringParams, name, value);
}

std::string KVXEParamControlMgr::getAliasNameIfAny(const std::string& name) const {
  return KVXMCommonParamControlData::getGlobal().getDeviceAlias(name);
}
