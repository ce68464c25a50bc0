#include "engine/wizard/base/KVXEWizardMgr.h"

#include "engine/base/services/KVXEHandshakeDialog.h"
#include "messages/handshake.pb.h"

KVXEWizardMgr& KVXEWizardMgr::getGlobal() {
  static KVXEWizardMgr manager;
  return manager;
}

void KVXEWizardMgr::initWizard(KvxHandshakeData* data, const std::string& key, const std::string&) {
  if (data) data->Clear();
  KVXEHandshakeDialog::getGlobal().appendHSMsg(
      "engine/wizard/base/KVXEWizardMgr", __LINE__, 3,
      key.empty() ? std::string("The button does not name a dialog.")
                  : "The dialog \"" + key + "\" is not available. Enter its values in the tables instead.");
}

void KVXEWizardMgr::updateWizardConfiguration(KvxHandshakeData* data, const std::string&) {
  if (data) data->Clear();
}
