#pragma once

#include <string>

#include "engine/base/services/KVXEHandshakeDialog.h"
#include "messages/handshake.pb.h"

/// What the engine has to tell the user, as the severity and the lines; empty for nothing. It is told then.
inline std::string takeMessages() {
  KvxHandshakeData reply;
  const KvxMessageDialogData* dialog = KVXEHandshakeDialog::getGlobal().populateMessageDialogData(&reply);
  if (!dialog) return {};
  const std::string& text = dialog->text();
  return std::to_string(dialog->severity()) + " " + text.substr(0, text.find_last_not_of('\n') + 1);
}
