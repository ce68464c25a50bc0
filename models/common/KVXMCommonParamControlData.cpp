#include "models/common/KVXMCommonParamControlData.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "models/catalogue/ModelDataStore.h"

namespace {

using kvxm::ParameterDefault;
using Kind = ParameterDefault::Kind;

const ParameterDefault* findParameter(Kind kind, const std::string& name, const std::string& field) {
  if (field != "DEFAULT") return nullptr;
  for (const ParameterDefault& parameter : kvxm::ModelDataStore::current().parameters) {
    if (parameter.kind == kind && parameter.name == name) return &parameter;
  }
  return nullptr;
}

template <class Number>
Number numberDefault(Kind kind, const std::string& name, const std::string& field) {
  Number value = 0;
  if (const ParameterDefault* parameter = findParameter(kind, name, field)) {
    std::from_chars(parameter->text.data(), parameter->text.data() + parameter->text.size(), value);
  }
  return value;
}

}  // namespace

const KVXMCommonParamControlData& KVXMCommonParamControlData::getGlobal() {
  static const KVXMCommonParamControlData instance;
  return instance;
}

std::vector<std::string> KVXMCommonParamControlData::getCfgKeys(const std::vector<std::string>& path,
                                                                bool sorted) const {
  static constexpr std::pair<std::string_view, Kind> sections[] = {
      {"PARAM_VARS_INT", Kind::Int}, {"PARAM_VARS_FLOAT", Kind::Float}, {"PARAM_VARS_STRING", Kind::String}};
  std::vector<std::string> names;
  if (path.size() != 1) return names;
  for (const auto& [section, kind] : sections) {
    if (path[0] != section) continue;
    for (const ParameterDefault& parameter : kvxm::ModelDataStore::current().parameters) {
      if (parameter.kind == kind) names.push_back(parameter.name);
    }
  }
  if (sorted) std::sort(names.begin(), names.end());
  return names;
}

int KVXMCommonParamControlData::getParamVarsInt(const std::string& name, const std::string& field) const {
  return numberDefault<int>(Kind::Int, name, field);
}

float KVXMCommonParamControlData::getParamVarsFloat(const std::string& name, const std::string& field) const {
  return numberDefault<float>(Kind::Float, name, field);
}

std::string KVXMCommonParamControlData::getParamVarsString(const std::string& name,
                                                           const std::string& field) const {
  const ParameterDefault* parameter = findParameter(Kind::String, name, field);
  return parameter ? parameter->text : std::string();
}

std::string KVXMCommonParamControlData::getDeviceAlias(const std::string& name) const {
  for (const auto& [former, present] : kvxm::ModelDataStore::current().aliases) {
    if (former == name) return present;
  }
  return name;
}
