#pragma once

#include <string>
#include <vector>

/// The named parameters of the engine with their defaults, and the aliases of device names.
class KVXMCommonParamControlData {
 public:
  static const KVXMCommonParamControlData& getGlobal();

  /// Names of the parameters of one kind: {"PARAM_VARS_INT"}, {"PARAM_VARS_FLOAT"} or {"PARAM_VARS_STRING"}.
  std::vector<std::string> getCfgKeys(const std::vector<std::string>& path, bool sorted) const;
  /// Default of a parameter; field is "DEFAULT". Zero or empty for an unknown name or field.
  int getParamVarsInt(const std::string& name, const std::string& field) const;
  float getParamVarsFloat(const std::string& name, const std::string& field) const;
  std::string getParamVarsString(const std::string& name, const std::string& field) const;
  /// The name under which a device is known now; the name itself when it has no alias.
  std::string getDeviceAlias(const std::string& name) const;

 private:
  KVXMCommonParamControlData() = default;
};
