#pragma once

#include <string>
#include <unordered_map>

/// Named switches of the engine. The model library lists them; the process environment gives their values.
class KVXEParamControlMgr {
 public:
  static KVXEParamControlMgr& getGlobal();

  KVXEParamControlMgr();

  // The value of a parameter. False, with the output as it was, for a name of no such parameter.
  bool getParam(const std::string& name, bool& value) const;
  bool getParam(const std::string& name, int& value) const;
  bool getParam(const std::string& name, float& value) const;
  bool getParam(const std::string& name, std::string& value) const;

  /// The name under which a device is known now, the name itself when it has no other.
  std::string getAliasNameIfAny(const std::string& name) const;

  /// Reads the environment again. A variable that is not set, or is no number where one is wanted, gives 0 or
  /// the empty text whatever the parameter's default: a switch is on only where somebody turned it on.
  void refreshParamMaps();

 private:
  void initializeParamMaps();

  std::unordered_map<std::string, int> m_intParams;
  std::unordered_map<std::string, float> m_floatParams;
  std::unordered_map<std::string, std::string> m_stringParams;
};
