#pragma once

#include <map>
#include <string>

class KvxHandshakeData;

/// Opens the dialogs that guide the user through a task, one at a time, and takes their answers.
///
/// There is no wizard so far, so each request for one is answered with a message.
class KVXEWizardMgr {
 public:
  using Properties = std::map<std::string, std::string>;

  static KVXEWizardMgr& getGlobal();

  /// Opens the wizard of the key, with the settings that were saved under `savedKey`, empty for its own, and
  /// puts its dialog into the reply. For an unknown key the reply is empty, and the user is told.
  void initWizard(KvxHandshakeData* data, const std::string& key, const std::string& savedKey);
  /// Hands the request's change in a dialog to the open wizard; an empty uid means that of the changed
  /// component. Without an open wizard the reply is empty and nothing else happens.
  void updateWizardConfiguration(KvxHandshakeData* data, const std::string& uid);
  /// Forgets the open wizard and the saved settings: the project closes.
  void resetVariables() { m_savedConfigs.clear(); }

  /// What each dialog that made an IP was filled with, by the IP's identifier: a project keeps it, so that
  /// the dialog can open again on it.
  const std::map<std::string, Properties>& getSavedConfigs() const { return m_savedConfigs; }
  void saveConfig(const std::string& key, Properties properties) {
    m_savedConfigs.insert_or_assign(key, std::move(properties));
  }
  static void clearAllSavedIPConfigs() { getGlobal().m_savedConfigs.clear(); }

 private:
  KVXEWizardMgr() = default;

  std::map<std::string, Properties> m_savedConfigs;
};
